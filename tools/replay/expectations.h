// What a script may expect of the panel, and what happens when it is not so.
#pragma once

#include "replay/bench.h"

#include <QImage>
#include <QString>

#include <memory>
#include <optional>
#include <span>

namespace replay {

/// How the panel differs from what was expected.
struct Mismatch {
    QString got;
    QImage actual = {};     // straight; null when no picture was expected
    QImage difference = {}; // may be null
    QString reference = {}; // the file that `actual` may replace; empty: none
};

class Expectation {
public:
    explicit Expectation(QString expected) : expected_(std::move(expected)) {}
    virtual ~Expectation() = default;
    const QString& expected() const { return expected_; }

    /// Runs once before the looks of one command.
    virtual void prepare(const PanelSession&) {}
    /// Whether it holds now. May take what it looks at, such as a sent frame.
    virtual bool holds(PanelSession& panel) = 0;
    /// What holds() found, after it gave false.
    virtual Mismatch mismatch(const PanelSession& panel) const = 0;

private:
    QString expected_;
};

struct ExpectationKind {
    const char* name;
    const char* arguments;
    const char* purpose;
    bool awaitable; // whether looking changes nothing, so that it can be repeated
    std::shared_ptr<Expectation> (*make)(Arguments&);
};
std::span<const ExpectationKind> ExpectationKinds();

/// The expectation that the words describe; throws CommandError when they describe none, or one that cannot
/// be awaited.
std::shared_ptr<Expectation> MakeExpectation(Arguments& arguments, bool toAwait);

/// Looks once, and then after each cycle of the next `patience` milliseconds, until the expectation holds.
/// Reports a failure, or blesses the picture, by the rules.
void Judge(Expectation& expectation, int patience, Bench& bench);

} // namespace replay
