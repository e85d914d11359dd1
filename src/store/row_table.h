// The fixed table that every widget kind with rows keeps them in: an array and a count, and an answer for
// "full".
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <span>

namespace panel {

/// Up to N rows in the order in which they were appended. Never allocates. The engine writes; a tick on the
/// main thread may walk rows() meanwhile, and meets only rows that were whole when they were appended. What
/// it touches of them is Shared, since the engine may clear the table and fill it anew during the walk.
template <class Row, std::size_t N>
class RowTable {
public:
    static constexpr std::size_t Capacity = N;

    /// A fresh row behind the last one, to be filled; it is in the table only after commit(). nullptr when
    /// the table is full: the widget is left out.
    Row* next() {
        if (size() == N) return nullptr;
        rows_[size()] = Row{};
        return &rows_[size()];
    }
    /// Takes in the row that next() gave.
    void commit() { count_.store(size() + 1, std::memory_order_release); }
    /// Both in one, for rows that nobody else looks at.
    Row* append() {
        Row* row = next();
        if (row) commit();
        return row;
    }

    std::span<Row> rows() { return std::span(rows_).first(size()); }
    std::span<const Row> rows() const { return std::span(rows_).first(size()); }
    /// nullptr for a row that does not exist.
    Row* at(std::size_t index) { return index < size() ? &rows_[index] : nullptr; }
    std::size_t size() const { return count_.load(std::memory_order_acquire); }
    bool empty() const { return size() == 0; }

    /// The last row takes the place of the removed one.
    void remove(std::size_t index) {
        rows_[index] = rows_[size() - 1];
        count_.store(size() - 1, std::memory_order_release);
    }
    void clear() { count_.store(0, std::memory_order_release); }

private:
    std::array<Row, N> rows_{};
    std::atomic<std::size_t> count_{0};
};

} // namespace panel
