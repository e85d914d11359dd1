#include "demo/media_project.h"

#include "demo/avi_file.h"
#include "demo/canvas.h"
#include "demo/film.h"
#include "demo/key_art.h"
#include "demo/sounds.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"
#include "imagekit/media_widgets.h"
#include "imagekit/touch_controls.h"
#include "store/system_words.h"
#include "widgets/display/media.h"

#include <QFile>

namespace demo {
namespace {

namespace format = imagekit::format;
namespace panelWord = panel::word;
using panel::VideoMode;

enum MediaPage : std::uint16_t { StartPage, FilmPage, LoopPage, DoorPage, MediaPages };

constexpr QSize Screen(800, 480);
constexpr int FileMediaChip = 5;
constexpr std::uint16_t CameraSwitch = 0x0100;
constexpr std::uint16_t ChimeNumber = 1, MelodyNumber = 2; // their files are named one less
constexpr QRect Picture{160, 92, 480, 270};
constexpr QRect BackKey{24, 20, 100, 48};
constexpr QRect VolumeTrack{560, 436, 200, 8};

struct MenuKey {
    QRect area;
    Icon icon;
    const char* name;
    const char* description;
};
constexpr QRect menuCell(int column, int row) { return QRect(40 + column * 246, 104 + row * 146, 228, 128); }

const MenuKey Menu[] = {{menuCell(0, 0), Icon::Sun, "Watch the film", "Once, then back here"},
                        {menuCell(1, 0), Icon::Loop, "Film in a loop", "Until you leave"},
                        {menuCell(2, 0), Icon::Home, "Front door", "The camera's picture"},
                        {menuCell(0, 1), Icon::Bell, "Chime", "A short sound"},
                        {menuCell(1, 1), Icon::Speaker, "Melody", "Again and again"},
                        {menuCell(2, 1), Icon::Moon, "Silence", "Stops the melody"}};

void paintMenuKey(Canvas& canvas, const MenuKey& key) {
    canvas.card(key.area);
    canvas.badge(key.icon, QRectF(key.area.x() + 18, key.area.y() + 18, 44, 44), colour::Warm);
    canvas.text(QRectF(key.area.x() + 18, key.area.y() + 70, 200, 22), key.name, style::Heading);
    canvas.text(QRectF(key.area.x() + 18, key.area.y() + 94, 200, 18), key.description, style::Small);
}

QImage paintStart() {
    Canvas canvas(Screen, colour::Ground);
    canvas.text(QRectF(40, 30, 500, 40), "Guest room", style::Title);
    for (const MenuKey& key : Menu) paintMenuKey(canvas, key);
    canvas.icon(Icon::Speaker, QRectF(520, 428, 24, 24), colour::Muted);
    canvas.rounded(VolumeTrack, 4, colour::Track);
    return canvas.take().image;
}

QImage paintPicturePage(const char* title) {
    Canvas canvas(Screen, colour::Ground);
    canvas.key(BackKey);
    canvas.text(BackKey, "Back", style::Body, Qt::AlignCenter);
    canvas.text(QRectF(160, 24, 480, 40), title, style::Title, Qt::AlignCenter);
    canvas.rounded(QRectF(Picture).adjusted(-10, -10, 10, 10), CardRadius, colour::Card);
    return canvas.take().image;
}

QImage paintDoor() {
    Canvas canvas(Screen, colour::Ground);
    canvas.painter().drawImage(0, 0, paintPicturePage("Front door"));
    canvas.text(Picture, "Switch the camera on below", style::Body.in(colour::Muted), Qt::AlignCenter);
    canvas.card(QRectF(300, 384, 200, 58));
    canvas.text(QRectF(316, 398, 100, 30), "Camera", style::Body, Qt::AlignLeft | Qt::AlignVCenter);
    return canvas.take().image;
}

/// Keys cut out of the pages, which carry their texts.
class MediaKeys {
public:
    MediaKeys(imagekit::ImageBuilder& image, const std::vector<PaintedPage>& pages)
        : image_(image), art_(image, pages) {}

    template <class Key>
    void add(MediaPage page, const QRect& area, Key key) {
        const KeyLooks looks = art_.cut(static_cast<PageId>(page), area, area, CardRadius);
        key.Where = AreaOf(area);
        key.NormalImage = looks.normal;
        key.PressImage = looks.pressed;
        image_.page(page).add(key);
    }
    void addSwitch(MediaPage page, const QRect& area, std::uint16_t word) {
        AddSwitch(image_.page(page), art_, area, word, "Camera");
    }
    void addSlider(MediaPage page, const QRect& track, std::uint16_t word, int highest) {
        AddSlider(image_.page(page), art_, track, word, {0, highest, colour::Warm, colour::Sun}, "Volume");
    }

private:
    imagekit::ImageBuilder& image_;
    KeyArt art_;
};

imagekit::PageKey leadingTo(MediaPage page) { return {.TargetPage = page}; }

imagekit::MultiKey playing(std::uint16_t code) {
    return {.Click = {.Enabled = true, .Address = panelWord::Music, .Value = code}};
}

imagekit::VideoPlayer film(VideoMode mode) {
    imagekit::VideoPlayer player{.Number = 1,
                                 .X1 = U16(Picture.left()),
                                 .Y1 = U16(Picture.top()),
                                 .X2 = U16(Picture.right()),
                                 .Y2 = U16(Picture.bottom()),
                                 .Mode = static_cast<std::uint8_t>(mode)};
    player.EndActions[0] = {panelWord::Page, StartPage};
    return player;
}

void addStart(MediaKeys& keys) {
    keys.add(StartPage, Menu[0].area, leadingTo(FilmPage));
    keys.add(StartPage, Menu[1].area, leadingTo(LoopPage));
    keys.add(StartPage, Menu[2].area, leadingTo(DoorPage));
    keys.add(StartPage, Menu[3].area, playing(ChimeNumber));
    keys.add(StartPage, Menu[4].area, playing(imagekit::MusicCode({.Number = MelodyNumber, .Repeat = true})));
    keys.add(StartPage, Menu[5].area, playing(0));
    keys.addSlider(StartPage, VolumeTrack, panelWord::Volume, panel::LargestVolume);
}

std::vector<PaintedPage> paintMediaPages() {
    return {{"start", paintStart(), format::PngOpaque, {}},
            {"film", paintPicturePage("The film"), format::PngOpaque, {}},
            {"loop", paintPicturePage("The film, again and again"), format::PngOpaque, {}},
            {"door", paintDoor(), format::PngOpaque, {}}};
}

imagekit::ImageBuilder buildMediaProject() {
    const std::vector<PaintedPage> pages = paintMediaPages();
    imagekit::ImageBuilder image({.Width = U16(Screen.width()),
                                  .Height = U16(Screen.height()),
                                  .ICType = FileMediaChip,
                                  .EditorVersion = "V1.20",
                                  .UserVER = "Media"});
    for (const PaintedPage& page : pages) image.addPage(imagekit::Pixels{page.image, page.format});
    MediaKeys keys(image, pages);
    addStart(keys);
    for (const MediaPage page : {FilmPage, LoopPage, DoorPage}) keys.add(page, BackKey, leadingTo(StartPage));
    keys.addSwitch(DoorPage, {436, 399, 52, 28}, CameraSwitch);
    image.page(FilmPage).add(film(VideoMode::PlayOnce));
    image.page(LoopPage).add(film(VideoMode::Repeat));
    image.page(DoorPage).add(imagekit::CameraView{.ControlAddress = CameraSwitch,
                                                  .X1 = U16(Picture.left()),
                                                  .Y1 = U16(Picture.top()),
                                                  .X2 = U16(Picture.right()),
                                                  .Y2 = U16(Picture.bottom())});
    return image;
}

void writeFile(const QDir& directory, const QString& folder, const QString& name, const QByteArray& bytes) {
    QFile file(directory.filePath(folder + '/' + name));
    if (!directory.mkpath(folder) || !file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw imagekit::ImageError(file.fileName().toStdString(), "cannot be written");
}

} // namespace

void WriteMediaProject(const QDir& directory) {
    writeFile(directory, "Music", "0000.wav", WavFile(Chime()));
    writeFile(directory, "Music", "0001.wav", WavFile(Melody()));
    writeFile(directory, "Video", "0001.avi", AviFile(FilmFrames(), FilmFramesPerSecond));
    buildMediaProject().write(directory.filePath("media.bin"));
}

} // namespace demo
