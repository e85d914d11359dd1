// A value that the engine thread and the main thread share. What is not Shared belongs to one thread.
#pragma once

#include <atomic>

namespace panel {

/// Reads and writes like a plain variable, with relaxed atomic accesses: either side sees the newest value
/// soon, whole, and without any order among several values. Hand-overs that need an order use std::atomic.
template <class T>
class Shared {
public:
    constexpr Shared() = default;
    constexpr explicit(false) Shared(T value) : value_(value) {}
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared& other) { return *this = T(other); }

    operator T() const { return value_.load(std::memory_order_relaxed); }
    Shared& operator=(T value) {
        value_.store(value, std::memory_order_relaxed);
        return *this;
    }
    Shared& operator+=(T step) {
        value_.fetch_add(step, std::memory_order_relaxed);
        return *this;
    }
    /// Sets a new value and gives the old one in one step, so that a request raised meanwhile is not lost.
    T exchange(T value) { return value_.exchange(value, std::memory_order_relaxed); }

    /// Sets a new value unless the other side has changed the expected one.
    void replace(T expected, T value) {
        value_.compare_exchange_strong(expected, value, std::memory_order_relaxed);
    }

private:
    std::atomic<T> value_{};
};

} // namespace panel
