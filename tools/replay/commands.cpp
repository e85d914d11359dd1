#include "replay/commands.h"

#include "replay/answer_commands.h"
#include "replay/command_error.h"
#include "replay/expectations.h"
#include "replay/input_commands.h"
#include "replay/script_line.h"

#include <algorithm>
#include <array>

namespace replay {
namespace {

Action prepareExpect(Arguments& arguments) {
    return [expectation = MakeExpectation(arguments, false)](Bench& bench) { Judge(*expectation, 0, bench); };
}

Action prepareAwait(Arguments& arguments) {
    const int patience = arguments.milliseconds(10);
    return [patience, expectation = MakeExpectation(arguments, true)](Bench& bench) {
        Judge(*expectation, patience, bench);
    };
}

constexpr std::array<Command, 24> Table{{
    {"run", "MS", "passes MS milliseconds: a tick each 10, a cycle each 20", PrepareRun},
    {"tick", "[N]", "N timer ticks alone", PrepareTick},
    {"cycle", "[N]", "N engine cycles alone", PrepareCycle},
    {"press", "X Y", "the pointer goes down", PreparePress},
    {"move", "X Y", "the pointer moves", PrepareMove},
    {"release", "", "the pointer goes up", PrepareRelease},
    {"tap", "X Y", "press, run 60, release, run 60", PrepareTap},
    {"drag", "X0 Y0 X1 Y1 MS", "press, a move each 20 ms for MS, release, run 60", PrepareDrag},
    {"key", "right|left|1|2|3|other", "an encoder key, or one that only wakes", PrepareKey},
    {"read", "ADDR [COUNT]", "answers words of the store", PrepareRead},
    {"write", "ADDR WORD...", "writes words as a serial host does", PrepareWrite},
    {"set", "ADDR VALUE", "writes a word as the variable inspector does", PrepareSet},
    {"text", "ADDR ENCODING \"TEXT\"", "writes a text; gb2312, gbk, big5, unicode, utf-8", PrepareText},
    {"host", "HEX...", "hands a command frame without its head to the panel", PrepareHost},
    {"sent", "", "answers the frames that the panel sent", PrepareSent},
    {"media", "", "answers what was asked of players and camera", PrepareMedia},
    {"state", "", "answers the state of the panel", PrepareState},
    {"pixel", "X Y", "answers a pixel, alpha first", PreparePixel},
    {"frame", "FILE.png [SURFACE]", "saves the FrameSurface, or another one", PrepareFrame},
    {"view", "FILE.png", "saves what a person sees: the frame dimmed", PrepareView},
    {"load", "IMAGE.bin", "loads another image", PrepareLoad},
    {"expect", "...", "checks; see below", prepareExpect},
    {"await", "MS ...", "passes up to MS until the same holds", prepareAwait},
    {"hash", "", "answers SHA-1 of the frame and of the words", PrepareHash},
}};

QString helpLine(const QString& usage, const char* purpose) {
    return QString("  %1 %2\n").arg(usage.trimmed(), -30).arg(purpose);
}

} // namespace

std::span<const Command> Commands() { return Table; }

Action PrepareLine(const QString& line) {
    QStringList words = SplitScriptLine(line);
    if (words.isEmpty()) return {};
    const QString name = words.takeFirst();
    const auto command = std::ranges::find_if(Table, [&name](const auto& row) { return name == row.name; });
    if (command == Table.end()) throw CommandError("there is no such command: " + name);
    Arguments arguments(std::move(words));
    Action action = command->prepare(arguments);
    arguments.finish();
    return action;
}

QString CommandHelp() {
    QString help;
    for (const Command& row : Table)
        help += helpLine(QString("%1 %2").arg(row.name, row.arguments), row.purpose);
    help += "\nWhat may be expected, and awaited unless it is sent:\n";
    for (const ExpectationKind& row : ExpectationKinds())
        help += helpLine(QString("expect %1 %2").arg(row.name, row.arguments), row.purpose);
    return help;
}

} // namespace replay
