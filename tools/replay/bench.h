// What a command is made from, and what it acts on.
#pragma once

#include "replay/arguments.h"
#include "replay/panel_session.h"
#include "replay/report.h"

#include <QString>

#include <functional>

namespace replay {

/// Where the traces of pictures go that are not as expected.
struct PictureRules {
    QString evidence;   // directory, made when needed; empty: none is kept
    bool bless = false; // the picture of the panel replaces its reference
};

struct Bench {
    PanelSession panel;
    Report report;
    PictureRules pictures;
};

/// A command with its arguments checked, ready to run, also more than once. Throws CommandError when the
/// panel or the disk does not allow it.
using Action = std::function<void(Bench&)>;

} // namespace replay
