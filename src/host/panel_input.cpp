#include "host/panel_input.h"

#include "host/engine_loop.h"
#include "widgets/touch/pointer.h"

void PanelInput::load(const QString& /*path*/) {}
void PanelInput::tick(int& tickCount) { panel::CountTick(tickCount); }
void PanelInput::press(QPoint at) { panel::PressPointer(at); }
void PanelInput::move(QPoint at) { panel::MovePointer(at); }
void PanelInput::release() { panel::ReleasePointer(); }
void PanelInput::key(std::optional<panel::EncoderKey> key) { panel::PressKey(key); }
