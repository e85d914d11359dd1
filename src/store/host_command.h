// The panel's serial command interpreter: the system words seen from the wire.
#pragma once

#include <cstdint>
#include <span>

namespace panel {

/// Carries out one command of a host. `frame` begins with the length byte; the head and what surrounds the
/// frame have been taken off. Replies and check bytes are the transport's business. A command that is
/// unknown, or shorter than its own length says, changes nothing beyond the words it does hold. Engine
/// thread.
void HostCommand(std::span<const std::uint8_t> frame);

} // namespace panel
