#include "host/main_window.h"

#include "host/config_block.h"
#include "host/flash_image.h"
#include "host/image_file.h"
#include "host/image_watcher.h"
#include "host/work_thread.h"
#include "inspector/dialog_reg.h"
#include "inspector/dialog_setting_information.h"
#include "store/backlight.h"
#include "ui_main_window.h"
#include "widgets/display/media.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>

#include <optional>
#include <utility>

using namespace std::chrono_literals;

/// The pictures lie in a static library, which links them only when asked for.
static void linkPictures() { Q_INIT_RESOURCE(resources); }

namespace {

constexpr auto TickPeriod = 10ms;
constexpr auto StartDelay = 1000ms;
constexpr QSize PlaceholderSize(800, 480);
constexpr float ZoomStep = 0.2F;
constexpr float SmallestZoom = 0.6F;
constexpr float LargestZoom = 3.0F;

std::optional<panel::EncoderKey> encoderKeyOf(int key) {
    switch (key) {
    case Qt::Key_Right: return panel::EncoderKey::Clockwise;
    case Qt::Key_Left: return panel::EncoderKey::CounterClockwise;
    case Qt::Key_1: return panel::EncoderKey::Key1;
    case Qt::Key_2: return panel::EncoderKey::Key2;
    case Qt::Key_3: return panel::EncoderKey::Key3;
    default: return std::nullopt;
    }
}

/// The image among the files dragged onto the window, or an empty path.
QString draggedImage(const QMimeData& data) {
    for (const QUrl& url : data.urls())
        if (const QString path = url.toLocalFile(); path.endsWith(".bin", Qt::CaseInsensitive)) return path;
    return {};
}

std::unique_ptr<Ui::MainWindow> makeForm(QMainWindow* window) {
    linkPictures();
    auto form = std::make_unique<Ui::MainWindow>();
    form->setupUi(window);
    return form;
}

} // namespace

MainWindow::MainWindow(PathFiles pathFiles, QWidget* parent)
    : QMainWindow(parent), ui_(makeForm(this)), pathFiles_(std::move(pathFiles)), information_(*ui_),
      presenter_(*ui_->label_Show), media_(*ui_->label_Show), workThread_(std::make_unique<WorkThread>()),
      dialogReg_(new DialogReg(this)), dialogInfo_(new Dialogsettinginformation(this)) {
    setUpView();
    setUpEngine();
    setUpMedia();
    setUpInspector();
    if (QFileInfo(pathFiles_.startImage()).isFile()) information_.logLoading();
}

MainWindow::~MainWindow() { stopEngine(); }

void MainWindow::setInput(std::unique_ptr<PanelInput> input) {
    input_ = std::move(input);
    dialogReg_->setWriter(*input_);
}

EngineProgress MainWindow::progress() const { return workThread_->progress(); }

void MainWindow::setUpView() {
    ui_->actionZoomIn->setShortcuts({QKeySequence::ZoomIn, QKeySequence(QStringLiteral("Ctrl+="))});
    ui_->actionZoomOut->setShortcut(QKeySequence::ZoomOut);

    ui_->scrollArea->setBackgroundRole(QPalette::Midlight);
    QImage placeholder(PlaceholderSize, QImage::Format_ARGB32_Premultiplied);
    placeholder.fill(Qt::black);
    presenter_.show(placeholder, panel::DimValue, zoom_);
    ui_->label_Show->installEventFilter(this);
    ui_->label_Show->setFocus();
}

void MainWindow::setUpEngine() {
    timer1_.setTimerType(Qt::PreciseTimer);
    connect(&timer1_, &QTimer::timeout, this, &MainWindow::Timer1_Out_Event);
    connect(&timer2_, &QTimer::timeout, this, &MainWindow::Timer2_Out_Event);
    timer2_.start(StartDelay);
    workThread_->setCommunity(this);
    connect(workThread_.get(), &WorkThread::Update_to_MainWindow, this, &MainWindow::Update_From_Thread);
}

void MainWindow::setUpMedia() {
    connect(workThread_.get(), &WorkThread::Play_Wav_Signals, &media_, &MediaBridge::Play_Wav_From_Thread);
    connect(workThread_.get(), &WorkThread::Play_Video_Signals, &media_,
            &MediaBridge::Play_Video_From_Thread);
    connect(workThread_.get(), &WorkThread::Play_Camera_Signals, &media_,
            &MediaBridge::Play_Camera_From_Thread);
    connect(dialogReg_, &DialogReg::camera_statu_Signals, &media_, &MediaBridge::Play_Camera_From_Thread);
}

void MainWindow::setUpInspector() {
    connect(this, &MainWindow::Update_to_DialogInfo, dialogReg_, &DialogReg::AddrInit);
    connect(this, &MainWindow::Update_to_DialogInfo, dialogInfo_,
            &Dialogsettinginformation::DialogInfo_Show_Setting);
    ui_->tabWidget->MarkFixedPage(0);
    ui_->tabWidget->AddPage(dialogReg_);
    ui_->splitter->setSizes({ui_->label_Show->width(), dialogReg_->width()});
}

// --- Loading ---

void MainWindow::openImage(const QString& path, float zoom) {
    timer2_.stop();
    information_.clearLog();
    information_.clearImage();
    dialogInfo_->ClearSettings();
    LoadImage(path, zoom);
}

void MainWindow::watchImage() {
    watcher_ = new ImageWatcher(this);
    connect(watcher_, &ImageWatcher::changed, this, [this](const QString& path) { openImage(path, zoom_); });
}

void MainWindow::LoadImage(const QString& path, float zoom) {
    stopEngine();
    media_.leaveImage();
    zoom_ = zoom;
    media_.setZoom(zoom_);
    if (watcher_ && !path.isEmpty()) watcher_->watch(path);
    if (!panel::ReadImageFile(path)) {
        if (!path.isEmpty()) showMessage_(QStringLiteral("Read fail,please check the path!"));
        return;
    }
    if (!panel::IllegalImage) {
        information_.showPath(path);
        information_.showImage();
    }
    ui_->label_Show->setFocus();
    pathFiles_.SaveLastPath(DirectoryOf(path));
    panel::SetMediaDirectory(DirectoryOf(path));
    input_->load(path);
    startEngine();
    if (dialogReg_) dialogReg_->setTableDirectory(DirectoryOf(path));
    emit Update_to_DialogInfo();
}

void MainWindow::stopEngine() {
    timer1_.stop();
    workThread_->stop();
}

void MainWindow::startEngine() {
    cyclesBeforeStart_ = workThread_->progress().cycles;
    timer1_.start(TickPeriod);
    workThread_->start();
}

/// The inspector was filled while the engine was setting its variables.
void MainWindow::readStartedVariables() {
    if (!cyclesBeforeStart_ || workThread_->progress().cycles == *cyclesBeforeStart_) return;
    cyclesBeforeStart_.reset();
    if (dialogReg_) dialogReg_->tableWidget_initialize();
}

void MainWindow::Timer1_Out_Event() { input_->tick(tickCount_); }

void MainWindow::Timer2_Out_Event() {
    timer2_.stop();
    const QString path = pathFiles_.startImage();
    if (!panel::IllegalImage) information_.showPath(path);
    if (!QFileInfo(path).isFile()) return;
    information_.clearLog();
    LoadImage(path);
}

void MainWindow::on_actionLoad_triggered() {
    QString directory = pathFiles_.lastDirectory();
    if (directory.isEmpty()) directory = QCoreApplication::applicationDirPath();
    information_.logLoading();
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Select Flash Code"), directory,
                                                      QStringLiteral("file(*.bin)"));
    if (path.isEmpty())
        information_.clearLog();
    else
        openImage(path);
}

void MainWindow::on_actionInfo_triggered() {
    dialogInfo_->activateWindow();
    dialogInfo_->setWindowState((dialogInfo_->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    dialogInfo_->show();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!draggedImage(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // Only after the drop has ended: a message box would hold up the program that the file comes from.
    QTimer::singleShot(0, this, [this, path = draggedImage(*event->mimeData())] { openImage(path); });
}

// --- The view ---

void MainWindow::Update_From_Thread(QImage image) {
    presenter_.show(workThread_->takeFrame().value_or(image), panel::DimValue, zoom_);
    media_.redrawPausedVideo();
    readStartedVariables();
}

void MainWindow::refreshFrame() {
    QMetaObject::invokeMethod(this, &MainWindow::redraw, Qt::QueuedConnection);
}

void MainWindow::redraw() {
    presenter_.showAgain(panel::DimValue, zoom_);
    media_.redrawPausedVideo();
}

void MainWindow::setZoom(float zoom) {
    zoom_ = zoom;
    media_.setZoom(zoom);
    redraw();
}

float MainWindow::zoomOf(int percent) {
    float zoom = 1.0F;
    for (int at = 100 + ZoomStepPercent; at <= percent; at += ZoomStepPercent) zoom += ZoomStep;
    for (int at = 100; at > percent; at -= ZoomStepPercent) zoom -= ZoomStep;
    return zoom;
}

void MainWindow::on_actionZoomIn_triggered() { setZoom(zoom_ < LargestZoom ? zoom_ + ZoomStep : zoom_); }

void MainWindow::on_actionZoomOut_triggered() { setZoom(zoom_ > SmallestZoom ? zoom_ - ZoomStep : zoom_); }

void MainWindow::on_actionOriginal_triggered() { setZoom(1.0F); }

// --- Sound, video and camera ---

void MainWindow::setPlayerVolume(int volume) {
    QMetaObject::invokeMethod(&media_, "setPlayerVolume", Qt::QueuedConnection, Q_ARG(int, volume));
}

void MainWindow::stopMusic() {
    QMetaObject::invokeMethod(&media_, &MediaBridge::stopMusic, Qt::QueuedConnection);
}

void MainWindow::Close_Video() {
    QMetaObject::invokeMethod(&media_, &MediaBridge::Close_Video, Qt::QueuedConnection);
}

void MainWindow::Close_Camera() {
    QMetaObject::invokeMethod(&media_, &MediaBridge::Close_Camera, Qt::QueuedConnection);
}

// --- Mouse and keys ---

QPoint MainWindow::cursorOnPanel() const {
    const QPoint inView = QCursor::pos() - ui_->label_Show->mapToGlobal(QPoint());
    return {static_cast<int>(static_cast<float>(inView.x()) / zoom_),
            static_cast<int>(static_cast<float>(inView.y()) / zoom_)};
}

bool MainWindow::cursorInView() const {
    const QWidget* viewport = ui_->scrollArea->viewport();
    return viewport->rect().contains(viewport->mapFromGlobal(QCursor::pos()));
}

void MainWindow::mousePressEvent(QMouseEvent* /*event*/) {
    pressOutsideView_ = !cursorInView();
    if (!pressOutsideView_) input_->press(cursorOnPanel());
}

void MainWindow::mouseMoveEvent(QMouseEvent* /*event*/) {
    if (!pressOutsideView_) input_->move(cursorOnPanel());
}

void MainWindow::mouseReleaseEvent(QMouseEvent* /*event*/) {
    pressOutsideView_ = false;
    input_->release();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) input_->key(encoderKeyOf(static_cast<QKeyEvent*>(event)->key()));
    return QMainWindow::eventFilter(watched, event);
}
