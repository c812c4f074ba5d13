// SPDX-License-Identifier: MIT
#pragma once

#include "Allocations.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <string>

/// Measures the operations of one case done one way.
///
/// Allocations and, for information, the time per operation become results of the benchmark. Under callgrind,
/// to be started with --instr-atstart=no, the instructions of the operations, and of nothing else, become one
/// dump that bears the case's name.
class Meter
{
public:
    Meter(benchmark::State &state, const std::string &name);

    /// Runs \a operation(0), ... \a operation(\a times - 1) and measures them; the results are given for each
    /// of the \a parts of an operation. To be called once, when everything that happens only once, such as
    /// the first use of a function, has happened.
    template <class Operation>
    void measure(int times, Operation &&operation, int parts = 1)
    {
        start();
        for (int i = 0; i < times; ++i)
            operation(i);
        stop(times * parts);
    }

    /// Fails the case when it did not do what it says: unless \a holds.
    void require(bool holds, const char *what);

private:
    void start();
    void stop(int operations);

    benchmark::State &state;
    const std::string &name;
    Allocations allocations;
    std::chrono::steady_clock::time_point time;
};

/// Registers the case \a name, as it is done by the library and by hand; one of them may be empty.
void addCase(const std::string &name, std::function<void(Meter &)> byLibrary,
             std::function<void(Meter &)> byHand = {});
