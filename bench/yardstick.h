// The yardstick of the engine's benchmarks: a memcpy of the 800 x 480 surface, taken in turns with the job.
#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <functional>
#include <vector>

namespace yardstick {

using Job = std::function<void()>;

inline constexpr std::size_t SurfaceBytes = std::size_t{4} * 800 * 480;

inline double secondsOf(const Job& job) {
    const auto start = std::chrono::steady_clock::now();
    job();
    benchmark::ClobberMemory();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// Reports the median of the job as a multiple of the memcpy. `prepare` is not timed.
inline void measure(
    benchmark::State& state, const Job& job, double scale = 1, const Job& prepare = [] {}) {
    const std::vector<char> from(SurfaceBytes, 1);
    std::vector<char> to(SurfaceBytes);
    std::vector<double> jobTimes, copyTimes;
    for (auto _ : state) {
        copyTimes.push_back(secondsOf([&] {
            std::memcpy(to.data(), from.data(), SurfaceBytes);
            benchmark::DoNotOptimize(to.data());
        }));
        prepare();
        jobTimes.push_back(secondsOf(job));
        state.SetIterationTime(jobTimes.back());
    }
    state.counters["memcpys"] = scale * median(jobTimes) / median(copyTimes);
}

} // namespace yardstick
