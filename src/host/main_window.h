// The program's window: loads images, runs the engine thread over them, shows the panel's frames and turns
// mouse and keys into the panel's input.
#pragma once

#include "host/community.h"
#include "host/frame_presenter.h"
#include "host/information_panel.h"
#include "host/media_bridge.h"
#include "host/message_box.h"
#include "host/panel_input.h"
#include "host/path_files.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

class DialogReg;
class Dialogsettinginformation;
class ImageWatcher;
class WorkThread;
struct EngineProgress;

namespace Ui {
class MainWindow;
}

/// Main thread. One at a time, since the panel behind it is one.
class MainWindow : public QMainWindow, public panel::community {
    Q_OBJECT

public:
    explicit MainWindow(PathFiles pathFiles = PathFiles(), QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Loads the image that the user chose, in place of whatever runs and of the image that the start would
    /// load.
    void openImage(const QString& path, float zoom = 1.0F);

    /// Loads the image again, at the zoom it is shown at, whenever its file has been written anew.
    void watchImage();
    static constexpr int SmallestZoomPercent = 60, LargestZoomPercent = 300, ZoomStepPercent = 20;
    /// The zoom that the actions reach from 100 % on: the smallest to the largest, in steps. Any other
    /// percentage is taken down to the next one.
    static float zoomOf(int percent);

    /// Where messages for the user go: ShowMessage() unless a run without a user sets something else.
    void setMessageSink(std::function<void(const QString&)> sink) { showMessage_ = std::move(sink); }

    /// How the user is asked about sound, video and camera: ShowWarning() unless a run without a user sets
    /// something else.
    void setAskUser(AskUser ask) { media_.setAskUser(std::move(ask)); }
    const AskUser& askUser() const { return media_.askUser(); }

    /// Where time, pointer, keys and written variables go: straight to the engine unless somebody listens in.
    /// Before the first image.
    void setInput(std::unique_ptr<PanelInput> input);
    /// How far the engine has come.
    EngineProgress progress() const;

    // From the engine thread; done on the main thread, in the order asked for.
    void refreshFrame() override;
    void setPlayerVolume(int volume) override;
    void stopMusic() override;
    void Close_Video() override;
    void Close_Camera() override;

signals:
    /// A newly loaded image can be described.
    void Update_to_DialogInfo();

public slots:
    void Update_From_Thread(QImage image);
    void Timer1_Out_Event();
    void Timer2_Out_Event();
    void on_actionLoad_triggered();
    void on_actionInfo_triggered();
    void on_actionZoomIn_triggered();
    void on_actionZoomOut_triggered();
    void on_actionOriginal_triggered();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void setUpView();
    void setUpEngine();
    void setUpMedia();
    void setUpInspector();

    void LoadImage(const QString& path, float zoom = 1.0F);
    void stopEngine();
    void startEngine();
    void readStartedVariables();

    void setZoom(float zoom);
    void redraw();
    /// Where the mouse cursor is, in panel pixels.
    QPoint cursorOnPanel() const;
    bool cursorInView() const;

    std::unique_ptr<Ui::MainWindow> ui_;
    PathFiles pathFiles_;
    InformationPanel information_;
    FramePresenter presenter_;
    MediaBridge media_;
    std::function<void(const QString&)> showMessage_ = ShowMessage;
    QTimer timer1_; // the panel's tick
    QTimer timer2_; // the start by path file
    std::unique_ptr<WorkThread> workThread_;
    std::unique_ptr<PanelInput> input_ = std::make_unique<PanelInput>();
    QPointer<DialogReg> dialogReg_;        // a page of the tab area, which owns it and closes it for good
    Dialogsettinginformation* dialogInfo_; // hidden until asked for
    ImageWatcher* watcher_ = nullptr;      // none: images are loaded by hand alone
    std::optional<std::uint64_t> cyclesBeforeStart_; // until the started engine has done one more
    int tickCount_ = 0;                              // ticks of the running second, 0..99
    float zoom_ = 1.0F;
    bool pressOutsideView_ =
        false; // the mouse button went down beside the view; such a drag is not the panel's
};
