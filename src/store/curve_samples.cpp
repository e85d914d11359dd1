#include "store/curve_samples.h"

namespace panel {
namespace {

struct ChannelList {
    std::array<std::size_t, CurveChannelCount> channels{};
    std::size_t count = 0;
};

ChannelList selected(std::uint16_t mask) {
    ChannelList list;
    for (std::size_t channel = 0; channel < CurveChannelCount; ++channel)
        if (mask >> channel & 1) list.channels[list.count++] = channel;
    return list;
}

void append(std::size_t channel, std::uint16_t sample) {
    std::uint16_t& head = CurveHead[channel];
    CurveSamples[channel][head] = sample;
    head = static_cast<std::uint16_t>((head + 1) % CurveRingSize);
    CurveDirty[channel] = 1;
}

std::uint16_t lastSample(std::size_t channel) {
    return CurveSamples[channel][(CurveHead[channel] + CurveRingSize - 1) % CurveRingSize];
}

} // namespace

void AppendCurveSamples(std::uint16_t mask, std::span<const std::uint16_t> samples) {
    const ChannelList list = selected(mask);
    if (list.count == 0) return;
    for (std::size_t i = 0; i < samples.size(); ++i) append(list.channels[i % list.count], samples[i]);
    const std::size_t dealt = samples.size() % list.count;
    if (dealt == 0) return;
    for (std::size_t i = dealt; i < list.count; ++i) append(list.channels[i], lastSample(list.channels[i]));
}

void ClearCurveChannels(std::uint16_t mask) {
    const ChannelList list = selected(mask);
    for (std::size_t i = 0; i < list.count; ++i) {
        const std::size_t channel = list.channels[i];
        CurveSamples[channel].fill(0);
        CurveHead[channel] = 0;
        CurveDirty[channel] = 1;
    }
}

} // namespace panel
