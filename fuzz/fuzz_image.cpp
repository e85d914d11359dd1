// Loads any bytes as an image, checks it, starts the panel and runs it under input that the same bytes
// choose.
#include "check/image_check.h"
#include "host/config_block.h"
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/silent_outputs.h"
#include "store/pending_writes.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/touch/encoder.h"
#include "widgets/touch/pointer.h"

#include <QImage>
#include <QtGlobal>

#include <span>

namespace {

using namespace panel;

constexpr std::size_t ScriptBytes = 64; // at the end of the input: what happens in each cycle
constexpr int Cycles = 256;

/// A panel small enough for many runs a second; nothing else of the head is touched.
void shrinkPanel(std::span<std::uint8_t> image) {
    constexpr std::size_t sides = ConfigBlockAddress + 16;
    if (image.size() < sides + 4) return;
    image[sides] = static_cast<std::uint8_t>(image[sides] | 8);
    image[sides + 1] = 0;
    image[sides + 2] = static_cast<std::uint8_t>(image[sides + 2] | 8);
    image[sides + 3] = 0;
    image[ConfigBlockAddress + 7] &= 1; // colour modes that start
}

void load(std::span<const std::uint8_t> bytes) {
    TakeImage(bytes);
    shrinkPanel({FlashImage.data.get(), bytes.size()});
    check::CheckImage({});
    IllegalImage = 0; // a wrong check would end every run at the error frame
}

/// Input from the main thread before one cycle.
void act(std::uint8_t what, std::uint8_t how) {
    const QPoint at(how * 2 - 16, what * 2 - 16);
    switch (what & 7) {
    case 0: PressPointer(at); break;
    case 1: MovePointer(at); break;
    case 2: ReleasePointer(); break;
    case 3: PressKey(static_cast<EncoderKey>(how % 5)); break;
    case 4: StoreWord(static_cast<std::uint16_t>(what << 4), how); break;
    case 5: {
        const auto address = static_cast<std::uint16_t>(FirstSystemWord + (what >> 3));
        StoreWord(address, how);
        ApplySystemWordFromMainThread(address);
        break;
    }
    case 6:
        StoreWord(word::PagePreset, how);
        ApplySystemWordFromMainThread(word::PagePreset);
        break;
    default:
        StoreWord(word::Page, how & 7);
        PendingSystemWrites.append(word::Page);
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < ScriptBytes) return 0;
    const std::span script(data + size - ScriptBytes, ScriptBytes);
    load({data, size - ScriptBytes});
    SilentOutputs outputs;
    if (StartPanel(outputs) != StartResult::Running) return 0;
    int tickCount = 0;
    for (std::size_t cycle = 0; cycle < Cycles; ++cycle) {
        act(script[cycle % ScriptBytes], script[(cycle + cycle / ScriptBytes + 1) % ScriptBytes]);
        CountTick(tickCount);
        CountTick(tickCount);
        EngineCycle(outputs);
    }
    return 0;
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}
