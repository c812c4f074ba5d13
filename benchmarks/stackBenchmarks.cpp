// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

#include <memory>
#include <utility>

namespace {

/// A scene and a history of edits in it.
template <class Edits>
class EditedScene
{
public:
    EditedScene(int containers, int steps)
        : containers(containers)
        , steps(steps)
        , scene(containers)
    {
        push(steps);
    }

    /// The scene and history of this size in its first state: all steps done. It is kept until another size
    /// is asked for, since a large one takes longer to build than to measure.
    static EditedScene &of(int containers, int steps)
    {
        static std::unique_ptr<EditedScene> current;
        if (current == nullptr || current->containers != containers || current->steps != steps) {
            current.reset();
            current = std::make_unique<EditedScene>(containers, steps);
        }
        current->restore();
        return *current;
    }

    void pushOne(int step) { edits.push(Edits::makeCommand(scene.target(step), static_cast<float>(step))); }

    void push(int number)
    {
        for (int i = 0; i < number; ++i)
            pushOne(i);
    }

    void undo(int number)
    {
        for (int i = 0; i < number; ++i)
            edits.undo();
    }

    void redo(int number)
    {
        for (int i = 0; i < number; ++i)
            edits.redo();
    }

    int count() const { return edits.count(); }

    Edits edits;

private:
    void restore()
    {
        undo(edits.index() - steps + 1);
        pushOne(edits.index());
    }

    int containers;
    int steps;
    MaterialScene scene;
};

template <class Edits>
void push(Meter &meter, int containers, int steps)
{
    auto &edited = EditedScene<Edits>::of(containers, steps);
    meter.measure(stepCount, [&edited](int i) { edited.pushOne(i); });
    meter.require(edited.count() == steps + stepCount, "a pushed command is missing");
}

template <class Edits>
void undo(Meter &meter, int containers, int steps)
{
    auto &edited = EditedScene<Edits>::of(containers, steps);
    meter.measure(stepCount, [&edited](int) { edited.edits.undo(); });
    meter.require(edited.edits.index() == steps - stepCount, "a step was not undone");
    edited.redo(stepCount);
}

template <class Edits>
void redo(Meter &meter, int containers, int steps)
{
    auto &edited = EditedScene<Edits>::of(containers, steps);
    edited.undo(stepCount);
    meter.measure(stepCount, [&edited](int) { edited.edits.redo(); });
    meter.require(edited.edits.index() == steps, "a step was not redone");
}

void addSteps(const std::string &prefix, int containers, int steps)
{
    const auto sized = [=](void (*body)(Meter &, int, int)) {
        return [=](Meter &meter) { body(meter, containers, steps); };
    };
    addCase(prefix + "push", sized(push<ByLibrary>), sized(push<ByHand>));
    addCase(prefix + "undo", sized(undo<ByLibrary>), sized(undo<ByHand>));
    addCase(prefix + "redo", sized(redo<ByLibrary>), sized(redo<ByHand>));
}

template <class Edits>
void mergedPush(Meter &meter)
{
    const MaterialScene scene(1);
    Edits edits;
    const auto drag = [&](int i) {
        edits.push(Edits::makeMergingCommand(scene.target(0), static_cast<float>(i)));
    };
    drag(0);
    drag(1);
    meter.measure(stepCount, drag);
    meter.require(edits.count() == 1, "the commands did not merge");
}

/// The least that Qt allows: a number behind a pointer, which is nobody's field, and nobody who hears of it.
class BareCommand : public QUndoCommand
{
public:
    BareCommand(float &number, float value, bool merges)
        : number(number)
        , value(value)
        , merges(merges)
    {}

    void undo() override { std::swap(number, value); }
    void redo() override { std::swap(number, value); }
    int id() const override { return merges ? 1 : -1; }
    bool mergeWith(const QUndoCommand *) override { return merges; }

private:
    float &number;
    float value;
    bool merges;
};

void bareSteps(Meter &meter, bool undoes, bool merges)
{
    float number = 0;
    QUndoStack stack;
    const auto push = [&](int i) { stack.push(new BareCommand(number, static_cast<float>(i), merges)); };
    for (int i = 0; i < stepCount; ++i)
        push(i);
    if (undoes)
        meter.measure(stepCount, [&](int) { stack.undo(); });
    else
        meter.measure(stepCount, push);
    meter.require(stack.index() == (merges ? 1 : undoes ? 0 : 2 * stepCount), "a step is missing");
}

} // namespace

void addStackBenchmarks()
{
    addSteps("", 2, stepCount);
    addCase("merged push", mergedPush<ByLibrary>, mergedPush<ByHand>);
    addCase("bare QUndoStack/push", {}, [](Meter &meter) { bareSteps(meter, false, false); });
    addCase("bare QUndoStack/undo", {}, [](Meter &meter) { bareSteps(meter, true, false); });
    addCase("bare QUndoStack/merged push", {}, [](Meter &meter) { bareSteps(meter, false, true); });
}

void addGrowthBenchmarks()
{
    for (const int size : {1'000, 10'000, 100'000, 1'000'000})
        addSteps("history/" + std::to_string(size) + "/", 2, size);
    for (const int size : {1'000, 10'000, 100'000, 1'000'000})
        addSteps("scene/" + std::to_string(size) + "/", size, stepCount);
}
