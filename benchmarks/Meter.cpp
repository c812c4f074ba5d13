// SPDX-License-Identifier: MIT
#include "Meter.h"

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

#include <utility>
#include <valgrind/callgrind.h>

namespace {

void addBenchmark(const std::string &name, std::function<void(Meter &)> body)
{
    const auto run = [name, body = std::move(body)](benchmark::State &state) {
        for ([[maybe_unused]] auto iteration : state) {
            Meter meter(state, name);
            body(meter);
        }
    };
    benchmark::RegisterBenchmark(name.c_str(), run)->Iterations(1)->UseManualTime();
}

} // namespace

Meter::Meter(benchmark::State &state, const std::string &name)
    : state(state)
    , name(name)
{}

void Meter::start()
{
    // As after a frame: no edits are pending, and the list has room for those to come.
    osg::Thread::getCurrentChangeList()->clearAll();
    time = std::chrono::steady_clock::now();
    allocations = Allocations::now();
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
}

void Meter::stop(int operations)
{
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
    const Allocations spent = Allocations::now() - allocations;
    const std::chrono::duration<double> duration = std::chrono::steady_clock::now() - time;

    state.SetIterationTime(duration.count() / operations);
    state.counters["operations"] = operations;
    state.counters["allocations"] = static_cast<double>(spent.number) / operations;
    state.counters["bytes"] = static_cast<double>(spent.bytes) / operations;
    state.counters["kept"] = static_cast<double>(spent.kept) / operations;
}

void Meter::require(bool holds, const char *what)
{
    if (!holds)
        state.SkipWithError(what);
}

void addCase(const std::string &name, std::function<void(Meter &)> byLibrary,
             std::function<void(Meter &)> byHand)
{
    if (byLibrary)
        addBenchmark(name + "/ksundo", std::move(byLibrary));
    if (byHand)
        addBenchmark(name + "/hand", std::move(byHand));
}
