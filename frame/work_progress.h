#pragma once
// How far long work has come, for a program that shows it. The steps that grow with the data
// (the sheets a reader inflates, the data columns an analysis computes, the cells a writer
// emits) say how many of their units are done; an observer installed by the program hears of
// it. Nothing else reads it: no result depends on whether anyone listens.
//
// reportWork may be called from any thread and costs little when no observer is set.
// The observer is called on the reporting thread and must be thread-safe itself.

#include <cstdint>
#include <functional>

namespace orv {

using WorkObserver = std::function<void(std::uint64_t done, std::uint64_t total)>;

// Installs `observer` (empty: none) for the whole process; returns the one it replaces.
WorkObserver setWorkObserver(WorkObserver observer);

// `done` of `total` units of the step under way are finished.
void reportWork(std::uint64_t done, std::uint64_t total);

}  // namespace orv
