#include "recipe.h"

#include "base_images.h"
#include "host/config_block.h"
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/silent_outputs.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"
#include "store/host_time.h"
#include "store/pending_writes.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/touch/encoder.h"
#include "widgets/touch/pointer.h"

#include <QDateTime>
#include <QPoint>

#include <algorithm>
#include <iterator>

namespace fuzz {

using namespace panel;

namespace {

constexpr std::size_t EditBytes = 6;
constexpr unsigned MostEdits = 32;
constexpr std::size_t HeadBytes = 0x180;
/// Values at which fields change their meaning.
constexpr std::uint16_t Edges[] = {0,      1,      2,      0x7F,   0x80,   0xFF,   0x100,  0x7FFF,
                                   0x8000, 0xFFFE, 0xFFFF, 0x6FFF, 0x7000, 0x70FE, 0x70FF, 0xE1FE};

SilentOutputs Outputs;
int TickCount = 0;

void setBytes(QByteArray& image, std::size_t at, std::uint16_t value, std::size_t count) {
    for (std::size_t i = 0; i < count && at + i < static_cast<std::size_t>(image.size()); ++i)
        image[static_cast<int>(at + i)] = static_cast<char>(value >> 8 * i);
}

void copyBytes(QByteArray& image, std::size_t from, std::size_t to, std::size_t count) {
    const QByteArray bytes = image.mid(static_cast<int>(from), static_cast<int>(count));
    image.replace(static_cast<int>(to), bytes.size(), bytes);
}

/// Keeps the panel one that starts, and small.
void mendHead(std::span<std::uint8_t> image) {
    constexpr std::size_t colourMode = ConfigBlockAddress + 7, sides = ConfigBlockAddress + 16;
    if (image.size() < sides + 4) return;
    image[colourMode] &= 1;
    for (const std::size_t side : {sides, sides + 2}) {
        image[side] |= 8;
        image[side + 1] = 0;
    }
}

} // namespace

std::uint8_t TakeByte(Input& input) {
    if (input.empty()) return 0;
    const std::uint8_t byte = input.front();
    input = input.subspan(1);
    return byte;
}

RecipeBook::RecipeBook() {
    for (const QByteArray& image : BaseImages()) bases_.push_back(index(image));
}

RecipeBook::Base RecipeBook::index(const QByteArray& image) {
    Base base{image, {}};
    TakeImage(image);
    LoadSectionTable();
    const auto add = [&](StreamPlace place, Framing framing) {
        if (!place.valid()) return;
        StreamWalker walker(FlashBytes(place.address, place.length), framing);
        while (const auto record = walker.next())
            base.records.push_back({place.address + record->offset, record->bytes.size()});
    };
    for (std::uint16_t page = 0; page < Sections.PageCount; ++page) {
        add(DisplayStreamPlace(page), Framing::DisplayByKind);
        add(GroupStreamPlace(page), Framing::Group);
        add(TouchStreamPlace(page), Framing::Touch);
    }
    return base;
}

void RecipeBook::edit(QByteArray& image, const std::vector<Record>& records, Input edit) {
    const unsigned place = edit[1] | edit[2] << 8, value = edit[4] | edit[5] << 8;
    const auto size = static_cast<std::size_t>(image.size());
    const Record& record = records[place % records.size()];
    const std::size_t field = record.offset + edit[3] % record.length;
    switch (edit[0] & 7) {
    case 0: return setBytes(image, field, static_cast<std::uint16_t>(value), 2);
    case 1: return setBytes(image, field, static_cast<std::uint16_t>(value), 1);
    case 2: return setBytes(image, field, Edges[value % std::size(Edges)], 2);
    case 3: return setBytes(image, place % HeadBytes, static_cast<std::uint16_t>(value), 2);
    case 4: return setBytes(image, (place << 8 | edit[3]) % size, static_cast<std::uint16_t>(value), 2);
    case 5: {
        const Record& other = records[value % records.size()];
        return copyBytes(image, record.offset, other.offset, std::min(record.length, other.length));
    }
    case 6: return copyBytes(image, place % size, value % size, edit[3]);
    default: return image.truncate(static_cast<int>(size * (place + 1u) >> 16));
    }
}

void RecipeBook::load(Input& input) const {
    const Base& base = bases_[TakeByte(input) % bases_.size()];
    QByteArray image = base.image;
    for (unsigned edits = TakeByte(input) % MostEdits; edits > 0 && input.size() >= EditBytes; --edits) {
        if (!image.isEmpty()) edit(image, base.records, input.first(EditBytes));
        input = input.subspan(EditBytes);
    }
    TakeImage(image);
    mendHead({FlashImage.data.get(), static_cast<std::size_t>(FlashImage.size)});
}

bool Start() {
    // The same input is to do the same each time.
    SetHostTime(QDateTime(QDate(2026, 11, 23), QTime(10, 8, 42)));
    TickCount = 0;
    IllegalImage = 0; // a wrong check word would end every run at the error frame
    return StartPanel(Outputs) == StartResult::Running;
}

void Act(Input& script) {
    constexpr std::uint16_t variables = 0x0060; // the base images' widgets show words from here on
    const std::uint8_t what = TakeByte(script), how = TakeByte(script);
    const auto value = static_cast<std::uint16_t>(how < 0xC0 ? how : 0xFF00 | how);
    const unsigned choice = what >> 3;
    const QPoint at(how % 48, static_cast<int>(choice) * 2 - 8);
    switch (what & 7) {
    case 0: return PressPointer(at);
    case 1: return MovePointer(at);
    case 2: return ReleasePointer();
    case 3: return PressKey(static_cast<EncoderKey>(how % 5));
    case 4: return StoreWord(static_cast<std::uint16_t>(variables + choice), value);
    case 5: {
        const auto address = static_cast<std::uint16_t>(FirstSystemWord + choice);
        StoreWord(address, value);
        return ApplySystemWordFromMainThread(address);
    }
    case 6: StoreWord(word::PagePreset, how); return ApplySystemWordFromMainThread(word::PagePreset);
    default: StoreWord(word::Page, how % 16); PendingSystemWrites.append(word::Page);
    }
}

void RunCycle() {
    for (int tick = 0; tick < 3; ++tick) CountTick(TickCount);
    EngineCycle(Outputs);
}

} // namespace fuzz
