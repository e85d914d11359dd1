// What the engine thread may ask of the window at once, rather than by a signal.
#pragma once

namespace panel {

/// Implemented by the main window. Every operation is called on the engine thread and must not touch a widget
/// or a player there: the window posts the work to its own thread. An operation that is not overridden does
/// nothing.
class community {
public:
    virtual ~community() = default;

    virtual void refreshFrame() {}
    virtual void setPlayerVolume(int /*volume, 0..96*/) {}
    virtual void stopMusic() {}
    virtual void Close_Video() {}
    virtual void Close_Camera() {}
};

} // namespace panel
