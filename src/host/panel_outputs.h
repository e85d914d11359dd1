// The engine's only way out.
#pragma once

class QImage;

namespace panel {

/// What the engine shows and asks for. Every function is called on the engine thread.
class PanelOutputs {
public:
    virtual ~PanelOutputs() = default;

    /// A finished frame. The engine paints on in its own surface, so keep a copy (a shared one will do).
    virtual void showFrame(const QImage& frame) = 0;

    /// Waits while the engine shows frames without its cycle going on. False: the engine is to stop.
    virtual bool pause(int /*microseconds*/) { return true; }

    // What to play stands in the variables of widgets/display/media.h.
    virtual void playSound() = 0;
    virtual void playVideo() = 0;
    virtual void playCamera() = 0;

    /// 0..96, six times the panel's volume.
    virtual void setPlayerVolume(int volume) = 0;
    virtual void stopMusic() = 0;
    virtual void closeVideo() = 0;
    virtual void closeCamera() = 0;
};

} // namespace panel
