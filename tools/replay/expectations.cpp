#include "replay/expectations.h"

#include "pages/page_switch.h"
#include "replay/command_error.h"
#include "replay/evidence.h"
#include "replay/pictures.h"
#include "replay/word_text.h"
#include "store/variable_store.h"

#include <QRect>

#include <array>
#include <limits>

namespace replay {
namespace {

class WordExpectation : public Expectation {
public:
    WordExpectation(std::uint16_t address, std::uint16_t value)
        : Expectation(QString("word %1 %2").arg(AddressText(address), WordText(value))), address_(address),
          value_(value) {}
    bool holds(PanelSession&) override { return panel::ReadWord(address_) == value_; }
    Mismatch mismatch(const PanelSession&) const override {
        return {.got = WordText(panel::ReadWord(address_))};
    }

private:
    std::uint16_t address_;
    std::uint16_t value_;
};

class PageExpectation : public Expectation {
public:
    explicit PageExpectation(int page) : Expectation(QString("page %1").arg(page)), page_(page) {}
    bool holds(PanelSession&) override { return panel::CurrentPage == page_; }
    Mismatch mismatch(const PanelSession&) const override {
        return {.got = QString::number(panel::CurrentPage)};
    }

private:
    int page_;
};

class PixelExpectation : public Expectation {
public:
    PixelExpectation(QPoint at, QRgb colour)
        : Expectation(QString("pixel %1 %2 %3").arg(at.x()).arg(at.y()).arg(ColourText(colour))), at_(at),
          colour_(colour) {}
    bool holds(PanelSession& panel) override { return StraightPixel(panel.frame(), at_) == colour_; }
    Mismatch mismatch(const PanelSession& panel) const override {
        return {.got = ColourText(StraightPixel(panel.frame(), at_))};
    }

private:
    QPoint at_;
    QRgb colour_;
};

/// The oldest notification; none of them when `bytes` is empty.
class SentExpectation : public Expectation {
public:
    explicit SentExpectation(std::vector<std::uint8_t> bytes)
        : Expectation("sent " + BytesText(bytes)), bytes_(std::move(bytes)) {}
    bool holds(PanelSession& panel) override {
        found_ = panel.takeSent().value_or(std::vector<std::uint8_t>{});
        return found_ == bytes_;
    }
    Mismatch mismatch(const PanelSession&) const override { return {.got = BytesText(found_)}; }

private:
    std::vector<std::uint8_t> bytes_;
    std::vector<std::uint8_t> found_;
};

/// A part of the frame, or all of it, that equals a picture but for some pixels.
class PictureExpectation : public Expectation {
public:
    /// `corner`: where the part begins that has the size of the picture; nothing: the whole frame.
    PictureExpectation(std::optional<QPoint> corner, QString file, int tolerance)
        : Expectation(describe(corner, file, tolerance)), corner_(corner), file_(std::move(file)),
          tolerance_(tolerance) {}

    void prepare(const PanelSession& panel) override {
        reference_ = ReadReference(file_, panel.frame().size());
    }
    bool holds(PanelSession& panel) override {
        return comparable(panel) && ComparePictures(reference_.picture, actual(panel)).pixels <= tolerance_;
    }
    Mismatch mismatch(const PanelSession& panel) const override;

private:
    static QString describe(std::optional<QPoint> corner, const QString& file, int tolerance) {
        const QString what =
            corner ? QString("region %1 %2 %3").arg(corner->x()).arg(corner->y()).arg(file) : "frame " + file;
        return tolerance == 0 ? what : QString("%1 but for %2 pixels").arg(what).arg(tolerance);
    }
    QRect part(const PanelSession& panel) const {
        return corner_ ? QRect(*corner_, reference_.size) : panel.frame().rect();
    }
    bool comparable(const PanelSession& panel) const {
        return reference_.kind == Reference::Kind::Picture && reference_.size == part(panel).size()
               && panel.frame().rect().contains(part(panel));
    }
    QImage actual(const PanelSession& panel) const {
        return StraightPicture(panel.frame().copy(part(panel)));
    }
    QString whyNotComparable(const PanelSession& panel) const;

    std::optional<QPoint> corner_;
    QString file_;
    int tolerance_;
    Reference reference_;
};

QString sizeText(QSize size) { return QString("%1 x %2 pixels").arg(size.width()).arg(size.height()); }

QString PictureExpectation::whyNotComparable(const PanelSession& panel) const {
    if (reference_.kind == Reference::Kind::Missing) return "no such file";
    if (reference_.kind == Reference::Kind::NoPicture) return "a file that is no PNG picture";
    return QString("a panel of %1, and the file has %2")
        .arg(sizeText(panel.frame().size()), sizeText(reference_.size));
}

Mismatch PictureExpectation::mismatch(const PanelSession& panel) const {
    if (!comparable(panel)) {
        // Without a size, nobody knows what part of the frame a region means.
        if (corner_) return {.got = whyNotComparable(panel), .actual = StraightPicture(panel.frame())};
        return {.got = whyNotComparable(panel), .actual = actual(panel), .reference = file_};
    }
    const QImage shown = actual(panel);
    const Difference difference = ComparePictures(reference_.picture, shown);
    const QPoint first = difference.first;
    return {.got = QString("%1 differing pixels, the first at (%2, %3): %4 expected, %5 shown")
                       .arg(difference.pixels)
                       .arg(first.x())
                       .arg(first.y())
                       .arg(ColourText(reference_.picture.pixel(first)), ColourText(shown.pixel(first))),
            .actual = shown,
            .difference = DifferencePicture(reference_.picture, shown),
            .reference = file_};
}

std::shared_ptr<Expectation> makeWord(Arguments& arguments) {
    const auto address = arguments.address(panel::StoreWordCount);
    return std::make_shared<WordExpectation>(address, arguments.word("VALUE"));
}

std::shared_ptr<Expectation> makePage(Arguments& arguments) {
    return std::make_shared<PageExpectation>(arguments.number("N", 0, 0xFFFF));
}

std::shared_ptr<Expectation> makePixel(Arguments& arguments) {
    const QPoint at = arguments.point();
    return std::make_shared<PixelExpectation>(at, arguments.colour());
}

std::shared_ptr<Expectation> makeSent(Arguments& arguments) {
    return std::make_shared<SentExpectation>(arguments.takeIf("none") ? std::vector<std::uint8_t>{}
                                                                      : arguments.hexBytes());
}

std::shared_ptr<Expectation> makePicture(std::optional<QPoint> corner, Arguments& arguments) {
    const QString file = arguments.pictureFile();
    return std::make_shared<PictureExpectation>(
        corner, file, arguments.numberOr(0, "N", 0, std::numeric_limits<int>::max()));
}

std::shared_ptr<Expectation> makeFrame(Arguments& arguments) { return makePicture({}, arguments); }
std::shared_ptr<Expectation> makeRegion(Arguments& arguments) {
    return makePicture(arguments.point(), arguments);
}

constexpr std::array<ExpectationKind, 6> Kinds{{
    {"word", "ADDR VALUE", "the word has the value", true, makeWord},
    {"page", "N", "page N is on show", true, makePage},
    {"pixel", "X Y #RRGGBB", "the pixel of the frame has the colour", true, makePixel},
    {"sent", "HEX...", "the oldest sent frame not yet looked at; none: there is none", false, makeSent},
    {"frame", "FILE.png [N]", "the frame equals the picture; N pixels may differ", true, makeFrame},
    {"region", "X Y FILE.png [N]", "the frame equals the picture from (X, Y) on", true, makeRegion},
}};

} // namespace

std::span<const ExpectationKind> ExpectationKinds() { return Kinds; }

std::shared_ptr<Expectation> MakeExpectation(Arguments& arguments, bool toAwait) {
    const ExpectationKind& kind = arguments.named("what is expected", Kinds);
    if (toAwait && !kind.awaitable) throw CommandError(QString("this cannot be awaited: ") + kind.name);
    return kind.make(arguments);
}

void Judge(Expectation& expectation, int patience, Bench& bench) {
    expectation.prepare(bench.panel);
    bool holds = expectation.holds(bench.panel);
    for (int passed = 10; !holds && passed <= patience; passed += 10)
        if (bench.panel.passTick() || passed == patience) holds = expectation.holds(bench.panel);
    if (holds) return;

    const Mismatch mismatch = expectation.mismatch(bench.panel);
    if (bench.pictures.bless && !mismatch.reference.isEmpty()) {
        SavePicture(mismatch.actual, mismatch.reference);
        bench.report.diagnose("blessed " + mismatch.reference);
        return;
    }
    const QString within = patience == 0 ? QString() : QString(" within %1 ms").arg(patience);
    bench.report.fail(QString("expected %1%2, got %3").arg(expectation.expected(), within, mismatch.got));
    if (!bench.pictures.evidence.isEmpty() && !mismatch.actual.isNull())
        KeepEvidence(bench.pictures.evidence, bench.report, mismatch.actual, mismatch.difference);
}

} // namespace replay
