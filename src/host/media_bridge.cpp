#include "host/media_bridge.h"

#include "host/config_block.h"
#include "host/frame_picture.h"
#include "host/frame_presenter.h"
#include "host/media_requests.h"
#include "host/riff_head.h"
#include "host/video_decoder.h"
#include "store/backlight.h"
#include "store/system_words.h"
#include "widgets/display/group_clock.h"
#include "widgets/display/media.h"

#include <QCameraInfo>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QPixmap>
#include <QTimer>
#include <QUrl>
#include <QVideoFrame>

using panel::VideoMode;

namespace {

QLabel* makePictureLabel(QLabel& view, const char* name) {
    auto* label = new QLabel(&view);
    label->setObjectName(QLatin1String(name));
    label->setAttribute(Qt::WA_TransparentForMouseEvents); // a touch goes to the panel under it
    label->hide();
    return label;
}

void clearAndHide(QLabel& label) {
    label.clear();
    label.hide();
}

QSize panelSize() {
    const panel::ConfigBlock config = panel::ReadConfigBlock();
    return {config.XSIZE, config.YSIZE};
}

bool inForce(VideoMode mode) { return panel::VideoModeInForce == static_cast<std::uint8_t>(mode); }

} // namespace

MediaBridge::MediaBridge(QLabel& view)
    : QObject(&view), videoLabel(makePictureLabel(view, "videoLabel")),
      cameraLabel(makePictureLabel(view, "cameraLabel")) {}

MediaBridge::~MediaBridge() = default;

void MediaBridge::leaveImage() {
    QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
    stopMusic();
    Close_Video();
    endCamera();
    lastVideoPicture = {};
}

/// Never two boxes at once: while one is open the engine may go on asking.
void MediaBridge::warn(const std::function<void()>& ask) {
    if (warningOpen_) return;
    warningOpen_ = true;
    ask();
    warningOpen_ = false;
}

// --- Sound ---

void MediaBridge::Play_Wav_From_Thread() {
    const panel::ReadySound sound = panel::TakeReadySound();
    if (!sound.ready) return;
    musicOut.reset(); // it may still read the buffer
    if (!sound.file.isEmpty()) {
        startMusic(QUrl::fromLocalFile(sound.file), nullptr);
        return;
    }
    wavBuffer.close();
    wavBuffer.setData(panel::RiffHead(static_cast<std::uint32_t>(sound.samples.size())) + sound.samples);
    wavBuffer.open(QIODevice::ReadWrite);
    startMusic(QMediaContent(), &wavBuffer);
}

void MediaBridge::startMusic(const QMediaContent& content, QIODevice* stream) {
    musicOut = std::make_unique<QMediaPlayer>(this);
    musicOut->setVolume(panel::Volume * panel::PlayerSteps);
    musicOut->setMedia(content, stream);
    connect(musicOut.get(), &QMediaPlayer::mediaStatusChanged, this, &MediaBridge::musicReplay);
    musicWanted_ = true;
    musicOut->play();
}

void MediaBridge::musicReplay(QMediaPlayer::MediaStatus status) {
    if (status != QMediaPlayer::EndOfMedia || panel::MusicRepeat != 1) return;
    // Only once the player has come to rest; a stop may overtake it.
    QTimer::singleShot(0, musicOut.get(), [this] {
        if (musicWanted_) musicOut->play();
    });
}

void MediaBridge::stopMusic() {
    musicWanted_ = false;
    if (musicOut) musicOut->stop();
}

void MediaBridge::setPlayerVolume(int volume) {
    if (musicOut) musicOut->setVolume(volume);
    if (videoOut) videoOut->setVolume(volume);
}

// --- Video ---

void MediaBridge::Play_Video_From_Thread() {
    if (panel::VideoOnPage != 1) return; // the page has gone meanwhile
    const panel::ReadyVideo video = panel::VideoToPlay();
    if (!VideoDecoderFound(video.file)) {
        warn([this] { OfferVideoDecoder(ask_); });
        return;
    }
    const QRect rect = video.rect;
    const QSize size = panelSize();
    if (size.width() < rect.x() + rect.width() || size.height() < rect.y() + rect.height()) return;
    Play_Video(rect.x(), rect.y(), rect.height(), rect.width(), video.file, video.mode);
}

QMediaPlayer& MediaBridge::videoPlayer() {
    if (!videoOut) {
        videoOut = std::make_unique<QMediaPlayer>(this);
        videoOut->setVolume(panel::Volume * panel::PlayerSteps);
        connect(videoOut.get(), &QMediaPlayer::mediaStatusChanged, this, &MediaBridge::singleVideo_close);
        connect(videoOut.get(), qOverload<QMediaPlayer::Error>(&QMediaPlayer::error), this,
                &MediaBridge::Close_Video);
    }
    return *videoOut;
}

void MediaBridge::loadVideo(const QString& file) {
    auto surface = std::make_unique<videosurface>(this);
    connect(surface.get(), &videosurface::showImage, this, &MediaBridge::onShowImage);
    videoPlayer().setVideoOutput(surface.get());
    videoSurface = std::move(surface); // the one before is no longer painted on
    videoPlayer().setMedia(QUrl::fromLocalFile(file));
    videoHasPicture_ = false;
}

void MediaBridge::Play_Video(int X, int Y, int H, int W, const QString& video_Path, int video_loop) {
    videoShown = {X, Y, W, H};
    videoWanted_ = true;
    videoLabel->show();
    switch (static_cast<VideoMode>(video_loop)) {
    case VideoMode::Continue: Continueplay_Video(); break;
    case VideoMode::Pause: Pause_Video(); break;
    case VideoMode::LoadHidden:
        loadVideo(video_Path);
        Close_Video();
        break;
    case VideoMode::PlayOnce:
    case VideoMode::Repeat:
        loadVideo(video_Path);
        Continueplay_Video();
        break;
    }
}

void MediaBridge::Pause_Video() { videoPlayer().pause(); }

void MediaBridge::Continueplay_Video() { videoPlayer().play(); }

void MediaBridge::Close_Video() {
    videoWanted_ = false;
    clearAndHide(*videoLabel);
    if (videoOut) videoOut->stop();
}

void MediaBridge::singleVideo_close(QMediaPlayer::MediaStatus status) {
    if (status == QMediaPlayer::InvalidMedia) clearAndHide(*videoLabel);
    if (status != QMediaPlayer::EndOfMedia || !videoWanted_) return;
    if (inForce(VideoMode::PlayOnce)) {
        Close_Video();
        panel::RequestEndActions();
    } else if (inForce(VideoMode::Repeat)) {
        if (!videoHasPicture_) return Close_Video(); // it would end again at once, for ever
        QTimer::singleShot(0, videoOut.get(), [this] {
            if (videoWanted_) videoOut->play();
        });
    }
}

void MediaBridge::onShowImage(const QVideoFrame& frame) {
    if (!videoWanted_) return; // a frame that was under way when the video was closed
    lastVideoPicture = ComposeVideoPicture(FrameToImage(frame), videoShown.size());
    videoHasPicture_ = true;
    drawVideo();
}

void MediaBridge::drawVideo() {
    veilDrawn_ = panel::DimValue;
    zoomDrawn_ = zoom_;
    const QImage onPanel = ClippedToPanel(lastVideoPicture, videoShown.topLeft(), panelSize());
    videoLabel->setPixmap(QPixmap::fromImage(ZoomedUnderVeil(onPanel, zoom_, veilDrawn_)));
    videoLabel->move(ZoomedPoint(videoShown.topLeft(), zoom_));
    videoLabel->adjustSize();
}

void MediaBridge::redrawPausedVideo() {
    if (!inForce(VideoMode::Pause) || !videoWanted_ || lastVideoPicture.isNull()) return;
    const bool drawn = !videoLabel->pixmap(Qt::ReturnByValue).isNull();
    if (!drawn || veilDrawn_ != panel::DimValue || zoomDrawn_ != zoom_) drawVideo();
}

// --- Camera ---

void MediaBridge::Play_Camera_From_Thread() {
    if (QCameraInfo::availableCameras().isEmpty()) {
        NoCamera = 1;
        warn([this] { ask_(QStringLiteral("No camera is detected."), QMessageBox::Ok, QMessageBox::Ok); });
        return;
    }
    if (panel::CameraOnPage != 1) return;
    const panel::ReadyCamera view = panel::CameraToShow();
    Open_Camera(view.rect.x(), view.rect.y(), view.rect.width(), view.rect.height(), view.pictureMode);
}

void MediaBridge::Open_Camera(int X, int Y, int W, int H, int /*direction*/) {
    const QList<QCameraInfo> cameras = QCameraInfo::availableCameras();
    if (cameras.isEmpty()) return;
    camera = std::make_unique<QCamera>(cameras.first(), this);
    cameraSurface = std::make_unique<CameraVideoSurface>(this);
    camera->setViewfinder(cameraSurface.get());
    connect(cameraSurface.get(), &CameraVideoSurface::sndImage, this, &MediaBridge::rcvImage);
    connect(camera.get(), qOverload<QCamera::Error>(&QCamera::error), cameraLabel, &QLabel::hide);
    cameraShown = {X, Y, W, H};
    cameraLabel->show();
    camera->start();
}

void MediaBridge::rcvImage(const QImage& image) {
    constexpr QSize largest(panel::LargestPanelSide, panel::LargestPanelSide);
    const QSize size = cameraShown.size();
    if (cameraLabel->isHidden()) return; // a picture that was under way when the camera was closed
    if (image.isNull() || size.isEmpty() || size.boundedTo(largest) != size) return;
    cameraLabel->setGeometry({ZoomedPoint(cameraShown.topLeft(), zoom_), ZoomedSize(size, zoom_)});
    QImage picture = ComposeCameraPicture(image, size, zoom_, panel::DimValue);
    cameraLabel->setPixmap(QPixmap::fromImage(panel::DrawGroupClocksOnly(std::move(picture))));
}

void MediaBridge::Close_Camera() {
    if (NoCamera != 1) endCamera();
}

void MediaBridge::endCamera() {
    clearAndHide(*cameraLabel);
    if (camera) camera->stop();
}
