// Sound, video and camera of the panel: plays what the engine asks for, and lays the pictures over the view.
#pragma once

#include "host/camera_video_surface.h"
#include "host/message_box.h"
#include "host/video_surface.h"

#include <QBuffer>
#include <QCamera>
#include <QImage>
#include <QMediaPlayer>
#include <QObject>
#include <QRect>

#include <cstdint>
#include <memory>
#include <utility>

class QLabel;

/// Set when a start found no camera, and kept until the program ends: from then on the engine closes none.
/// Main thread.
inline std::int32_t NoCamera = 0;

/// Main thread, and so are all its media objects. What the engine wants is posted to its slots; what to play
/// stands in widgets/display/media.h.
class MediaBridge : public QObject {
    Q_OBJECT

public:
    /// `view` shows the panel; it takes the two picture labels as its children. Not owned.
    explicit MediaBridge(QLabel& view);
    ~MediaBridge() override;

    /// How the user is asked: ShowWarning() unless a run without a user sets something else.
    void setAskUser(AskUser ask) { ask_ = std::move(ask); }
    const AskUser& askUser() const { return ask_; }

    /// Scale of the view. Pictures to come take it, and redrawPausedVideo().
    void setZoom(float zoom) { zoom_ = zoom; }

    /// A paused video follows the dimming and the zoom. Costs nothing when neither has changed.
    void redrawPausedVideo();

    /// Stops everything, and drops what the engine asked for and has not had yet. For while no engine runs.
    void leaveImage();

public slots:
    void Play_Wav_From_Thread();
    void Play_Video_From_Thread();
    void Play_Camera_From_Thread();

    /// `video_loop` is a panel::VideoMode; any other value only shows the empty label.
    void Play_Video(int X, int Y, int H, int W, const QString& video_Path, int video_loop);
    /// The picture is mirrored in both directions, whatever `direction` says.
    void Open_Camera(int X, int Y, int W, int H, int direction);

    void musicReplay(QMediaPlayer::MediaStatus status);
    void singleVideo_close(QMediaPlayer::MediaStatus status);
    void onShowImage(const QVideoFrame& frame);
    void rcvImage(const QImage& image);

    /// 0..96, for both players and for those to come.
    void setPlayerVolume(int volume);
    void stopMusic();
    void Close_Video();
    void Close_Camera();
    void Pause_Video();
    void Continueplay_Video();

private:
    void startMusic(const QMediaContent& content, QIODevice* stream);
    QMediaPlayer& videoPlayer();
    void loadVideo(const QString& file);
    void drawVideo();
    void endCamera();
    void warn(const std::function<void()>& ask);

    QLabel* videoLabel; // children of the view
    QLabel* cameraLabel;
    AskUser ask_ = ShowWarning;
    bool warningOpen_ = false;
    float zoom_ = 1.0F;

    // A player ends before what it reads from or paints on.
    QBuffer wavBuffer;
    std::unique_ptr<QMediaPlayer> musicOut; // a new one for every sound
    bool musicWanted_ = false;              // started, and not stopped since

    std::unique_ptr<videosurface> videoSurface;
    std::unique_ptr<QMediaPlayer> videoOut; // made by the first video, since the back end is slow to load
    bool videoWanted_ = false;
    bool videoHasPicture_ = false; // the file in the player has shown one
    QRect videoShown;              // px on the panel
    QImage lastVideoPicture;       // as composed, for the pause
    std::uint8_t veilDrawn_ = 0;
    float zoomDrawn_ = 0;

    std::unique_ptr<CameraVideoSurface> cameraSurface;
    std::unique_ptr<QCamera> camera;
    QRect cameraShown; // px on the panel
};
