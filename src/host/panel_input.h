// All that comes to the panel from outside while it runs: time, pointer, keys, and variables written by hand.
#pragma once

#include "inspector/typed_access.h"
#include "widgets/touch/encoder.h"

#include <QPoint>
#include <QString>

#include <optional>

/// Hands everything straight to the engine. Main thread.
class PanelInput : public inspector::VariableWriter {
public:
    /// The engine is about to start with the image of this path.
    virtual void load(const QString& path);
    /// Another 10 ms have passed; `tickCount` divides the second.
    virtual void tick(int& tickCount);
    virtual void press(QPoint at);
    virtual void move(QPoint at);
    virtual void release();
    /// Any key, without a value for one that is no encoder key.
    virtual void key(std::optional<panel::EncoderKey> key);
};
