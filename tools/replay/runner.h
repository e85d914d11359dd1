// Carries out scripts.
#pragma once

#include "replay/bench.h"

#include <QString>

#include <istream>

namespace replay {

/// How a run ended; the exit code of the program.
enum class Outcome : int {
    Passed = 0,
    Failed = 1, // an expectation did not hold
    Error = 2   // a command could not be understood or carried out; nothing after it ran
};

/// The name of standard input in diagnostics.
inline constexpr char InputName[] = "stdin";

/// Carries out each line as it arrives.
Outcome RunLines(std::istream& input, Bench& bench);

/// Checks all lines of the file, and then carries them out. Throws CommandError when the file cannot be
/// opened.
Outcome RunFile(const QString& file, Bench& bench);

} // namespace replay
