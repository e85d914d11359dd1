#include "replay/input_commands.h"

#include "host/config_block.h"
#include "host/script_words.h"
#include "replay/command_error.h"
#include "replay/word_text.h"
#include "store/host_command.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "store/variable_text.h"
#include "store/variable_value.h"
#include "widgets/touch/pointer.h"

#include <QPoint>

#include <vector>

namespace replay {
namespace {

namespace script = panel::script;

constexpr int LargestCount = 24 * 60 * 60 * 100; // the ticks of a day
constexpr int TapTime = 60;                      // ms that a tap lasts, and that the panel then has
constexpr int MoveTime = 20;                     // ms, one cycle

// The pointer may leave the panel, as a mouse does.
QPoint takePointer(Arguments& arguments, const char* nameX = "X", const char* nameY = "Y") {
    constexpr int farthest = 0xFFFF;
    const int x = arguments.number(nameX, -farthest, farthest);
    return {x, arguments.number(nameY, -farthest, farthest)};
}

void release(Bench& bench) {
    panel::ReleasePointer();
    bench.panel.run(TapTime);
}

/// Each place of the pointer lasts one cycle, the last one too: the panel sees the whole way.
void drag(QPoint from, QPoint to, int milliseconds, Bench& bench) {
    panel::PressPointer(from);
    bench.panel.run(MoveTime);
    const int moves = milliseconds / MoveTime;
    for (int i = 1; i <= moves; ++i) {
        panel::MovePointer(from + (to - from) * (static_cast<double>(i) / moves));
        bench.panel.run(MoveTime);
    }
    release(bench);
}

constexpr int WordWidth = 2; // bytes

/// Words that a host may write: those of the store, and the two ranges of the curve channels.
bool writableByHost(std::uint16_t address, std::size_t count) {
    const bool curves = (address > 0xC000 && address < 0xD000) || (address > 0xE000 && address < 0xF000);
    return curves || address + count <= panel::StoreWordCount;
}

constexpr std::uint8_t WriteCommand = 0x10;

/// A write command as HostCommand() takes it; its length counts the check bytes, which the transport took
/// off.
std::vector<std::uint8_t> writeFrame(std::uint16_t address, const std::vector<std::uint16_t>& words) {
    const std::size_t checkBytes = panel::CrcEnabled ? 2 : 0;
    std::vector<std::uint8_t> frame{static_cast<std::uint8_t>(3 + 2 * words.size() + checkBytes),
                                    WriteCommand, static_cast<std::uint8_t>(address >> 8),
                                    static_cast<std::uint8_t>(address)};
    for (const std::uint16_t word : words) {
        frame.push_back(static_cast<std::uint8_t>(word >> 8));
        frame.push_back(static_cast<std::uint8_t>(word));
    }
    return frame;
}

} // namespace

Action PrepareRun(Arguments& arguments) {
    return [time = arguments.milliseconds(10)](Bench& bench) { bench.panel.run(time); };
}

Action PrepareTick(Arguments& arguments) {
    return [count = arguments.numberOr(1, "N", 1, LargestCount)](Bench& bench) {
        for (int i = 0; i < count; ++i) bench.panel.tick();
    };
}

Action PrepareCycle(Arguments& arguments) {
    return [count = arguments.numberOr(1, "N", 1, LargestCount)](Bench& bench) {
        for (int i = 0; i < count; ++i) bench.panel.cycle();
    };
}

Action PreparePress(Arguments& arguments) {
    return [at = takePointer(arguments)](Bench&) { panel::PressPointer(at); };
}

Action PrepareMove(Arguments& arguments) {
    return [at = takePointer(arguments)](Bench&) { panel::MovePointer(at); };
}

Action PrepareRelease(Arguments&) {
    return [](Bench&) { panel::ReleasePointer(); };
}

Action PrepareTap(Arguments& arguments) {
    return [at = takePointer(arguments)](Bench& bench) {
        panel::PressPointer(at);
        bench.panel.run(TapTime);
        release(bench);
    };
}

Action PrepareDrag(Arguments& arguments) {
    const QPoint from = takePointer(arguments, "X0", "Y0");
    const QPoint to = takePointer(arguments, "X1", "Y1");
    const int time = arguments.milliseconds(MoveTime);
    return [from, to, time](Bench& bench) { drag(from, to, time, bench); };
}

Action PrepareKey(Arguments& arguments) {
    return [key = arguments.named("the key", script::KeyNames).key](Bench&) { panel::PressKey(key); };
}

Action PrepareWrite(Arguments& arguments) {
    const std::uint16_t address = arguments.address(0x10000);
    std::vector<std::uint16_t> words{arguments.word("WORD")};
    while (!arguments.empty()) words.push_back(arguments.word("WORD"));
    if (words.size() > script::LargestWrite)
        throw CommandError(QString("a command frame holds at most %1 words").arg(script::LargestWrite));
    if (!writableByHost(address, words.size()))
        throw CommandError(
            QString("out of reach of a host: %1 words at %2").arg(words.size()).arg(AddressText(address)));
    return [address, words](Bench& bench) {
        bench.panel.requireRunning();
        panel::HostCommand(writeFrame(address, words));
    };
}

Action PrepareSet(Arguments& arguments) {
    const std::uint16_t address = arguments.address(0x10000);
    if (!panel::IsInReach(address, WordWidth))
        throw CommandError("out of reach of the inspector: " + AddressText(address));
    return [address, value = arguments.word("VALUE")](Bench& bench) {
        bench.panel.requireRunning();
        panel::WriteNumber(address, value, WordWidth);
    };
}

Action PrepareText(Arguments& arguments) {
    const std::uint16_t address = arguments.address(panel::HandWrittenWordCount);
    const script::EncodingName& encoding = arguments.named("ENCODING", script::EncodingNames);
    const QString text = arguments.text("TEXT");
    if (text.isEmpty()) throw CommandError("an empty text is not written; a word of 0 ends a text");
    const panel::EncodedText encoded = panel::EncodeText(text, encoding.encoding);
    if (encoded.replaced != 0)
        throw CommandError(
            QString("%1 cannot hold %2 characters of the text").arg(encoding.name).arg(encoded.replaced));
    if (!panel::VariableTextFits(address, encoded))
        throw CommandError("the text does not end within reach of the inspector, below "
                           + AddressText(panel::HandWrittenWordCount));
    return [address, encoded](Bench& bench) {
        bench.panel.requireRunning();
        panel::WriteVariableText(address, encoded);
    };
}

Action PrepareHost(Arguments& arguments) {
    return [frame = arguments.hexBytes()](Bench& bench) {
        bench.panel.requireRunning();
        panel::HostCommand(frame);
    };
}

Action PrepareLoad(Arguments& arguments) {
    return [path = arguments.text("IMAGE.bin")](Bench& bench) { bench.panel.load(path); };
}

} // namespace replay
