// The commands of a script: one row each, which says how the command reads, what it takes and what it does.
#pragma once

#include "replay/bench.h"

#include <QString>

#include <span>

namespace replay {

struct Command {
    const char* name;
    const char* arguments;
    const char* purpose;
    Action (*prepare)(Arguments&);
};
std::span<const Command> Commands();

/// The action of a line of a script; an empty one for a line without a command. Throws CommandError for a
/// line that is not understood.
Action PrepareLine(const QString& line);

/// The text of --help about commands, a line each.
QString CommandHelp();

} // namespace replay
