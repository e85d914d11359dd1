// Outputs that lead nowhere, for programs that only want the engine to run.
#pragma once

#include "host/panel_outputs.h"

namespace panel {

class SilentOutputs : public PanelOutputs {
public:
    void showFrame(const QImage& /*frame*/) override {}
    void playSound() override {}
    void playVideo() override {}
    void playCamera() override {}
    void setPlayerVolume(int /*volume*/) override {}
    void stopMusic() override {}
    void closeVideo() override {}
    void closeCamera() override {}
};

} // namespace panel
