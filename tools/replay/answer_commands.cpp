#include "replay/answer_commands.h"

#include "graphics/image_row.h"
#include "graphics/surfaces.h"
#include "graphics/veil.h"
#include "pages/page_switch.h"
#include "replay/command_error.h"
#include "replay/pictures.h"
#include "replay/word_text.h"
#include "store/backlight.h"
#include "store/language.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/touch/encoder.h"
#include "widgets/touch/pointer.h"

#include <QCryptographicHash>

#include <array>
#include <vector>

namespace replay {
namespace {

const QString FrameName = "FrameSurface";

QString stateText(PanelSession& panel) {
    struct Field {
        const char* name;
        int value;
    };
    const std::array<Field, 10> fields{{{"page", panel::CurrentPage},
                                        {"popup", panel::PopupActive},
                                        {"popup_x", panel::PopupOriginX},
                                        {"popup_y", panel::PopupOriginY},
                                        {"dim", panel::DimValue},
                                        {"volume", panel::Volume},
                                        {"language", panel::Language},
                                        {"busy", panel::TouchBusy},
                                        {"encoder", panel::EncoderState},
                                        {"frames", panel.outputs().frameCount()}}};
    QStringList text;
    for (const Field& field : fields) text += QString("%1=%2").arg(field.name).arg(field.value);
    return text.join(' ');
}

/// The picture of a surface that exists.
QImage surfacePicture(const QString& name, const PanelSession& panel) {
    if (name == FrameName) return panel.frame();
    const QImage* surface = panel::FindSurface(name.toStdString());
    if (surface->isNull()) throw CommandError("the surface does not exist yet: " + name);
    return *surface;
}

QString frameHash(const QImage& frame) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (int y = 0; y < frame.height(); ++y) // by rows, since what may lie between them is no pixel
        hash.addData(reinterpret_cast<const char*>(frame.constScanLine(y)), 4 * frame.width());
    return hash.result().toHex();
}

QString storeHash() {
    std::vector<std::uint8_t> bytes(panel::StoreByteCount);
    panel::ReadBytes(0, bytes);
    const QByteArray all(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()));
    return QCryptographicHash::hash(all, QCryptographicHash::Sha1).toHex();
}

} // namespace

Action PrepareRead(Arguments& arguments) {
    const int address = arguments.address(panel::StoreWordCount);
    const int count = arguments.numberOr(1, "COUNT", 1, panel::StoreWordCount - address);
    return [address, count](Bench& bench) { bench.report.answer(WordsText(address, count)); };
}

Action PrepareSent(Arguments&) {
    return [](Bench& bench) {
        auto frame = bench.panel.takeSent();
        if (!frame) bench.report.answer("sent none");
        for (; frame; frame = bench.panel.takeSent()) bench.report.answer("sent " + BytesText(*frame));
    };
}

Action PrepareMedia(Arguments&) {
    return [](Bench& bench) {
        const QStringList lines = bench.panel.outputs().takeMedia();
        if (lines.isEmpty()) bench.report.answer("media none");
        for (const QString& line : lines) bench.report.answer(line);
    };
}

Action PrepareState(Arguments&) {
    return [](Bench& bench) { bench.report.answer(stateText(bench.panel)); };
}

Action PreparePixel(Arguments& arguments) {
    return [at = arguments.point()](Bench& bench) {
        const QRgb colour = StraightPixel(bench.panel.frame(), at);
        bench.report.answer(QString("pixel %1 %2 %3").arg(at.x()).arg(at.y()).arg(ColourText(colour)));
    };
}

Action PrepareFrame(Arguments& arguments) {
    const QString file = arguments.pictureFile();
    const QString surface = arguments.empty() ? FrameName : arguments.text("SURFACE");
    if (!panel::FindSurface(surface.toStdString()))
        throw CommandError("there is no such surface: " + surface);
    return [file, surface](Bench& bench) { SavePicture(surfacePicture(surface, bench.panel), file); };
}

Action PrepareView(Arguments& arguments) {
    return [file = arguments.pictureFile()](Bench& bench) {
        SavePicture(panel::VeiledFrame(bench.panel.frame(), panel::DimValue), file);
    };
}

Action PrepareHash(Arguments&) {
    return [](Bench& bench) {
        bench.report.answer(
            QString("hash frame=%1 words=%2").arg(frameHash(bench.panel.frame()), storeHash()));
    };
}

} // namespace replay
