// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoStack.h>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>
#include <rapidcheck/state.h>

#include <algorithm>
#include <support/ksProbeCommand.h>
#include <support/ksStackRecorder.h>
#include <support/ksStackState.h>

namespace {

/// One step that the stack should hold: what it changes the number from and to.
struct Step
{
    std::string text;
    int before;
    int after;
    bool isNumber;
};

/// What a stack of commands that set one number should be after some operations.
struct Model
{
    std::vector<Step> steps;
    int limit = 0;
    int index = 0;
    int mark = 0;
    int clean = 0;
    int number = 0;
    int openMacros = 0;
    bool addedToMacro = false;
    ksEvents events;

    int count() const { return static_cast<int>(steps.size()); }
    Step &at(int position) { return steps[static_cast<std::size_t>(position)]; }

    ksStackState state() const
    {
        std::vector<std::string> texts;
        for (const Step &step : steps)
            texts.push_back(step.text);
        ksStackState state = ksHolding(texts, index, openMacros == 0 && index == clean);
        if (openMacros > 0) {
            state.undoable = state.redoable = false;
            state.undoText = state.redoText = {};
        }
        return state;
    }

    static ksKeys keys(const Step &step)
    {
        return step.isNumber ? ksKeys{"id=int:" + std::to_string(ksSetNumberCommand::commandId())} : ksKeys();
    }

    void dropUndone()
    {
        steps.resize(static_cast<std::size_t>(index));
        if (clean > index)
            clean = -1;
    }

    void finishStep()
    {
        const int surplus = limit > 0 ? std::max(count() - limit, 0) : 0;
        steps.erase(steps.begin(), steps.begin() + surplus);
        clean = std::max(clean - surplus, -1);
        index = count();
        reportAdded();
    }

    void reportAdded() { events = ksStep::added(at(index - 1).text, index - 1, keys(at(index - 1))); }

    void add(const std::string &text, int value, bool merges)
    {
        const int before = std::exchange(number, value);
        if (openMacros > 0) {
            addedToMacro = true;
            return;
        }
        dropUndone();
        if (merges && index > 0 && index != clean && at(index - 1).isNumber) {
            at(index - 1).after = value;
            reportAdded();
        } else {
            steps.push_back({text, before, value, true});
            finishStep();
        }
    }

    void beginMacro(const std::string &text)
    {
        if (openMacros++ > 0)
            return;
        dropUndone();
        steps.push_back({text, number, number, false});
    }

    void endMacro()
    {
        addedToMacro = true;
        if (--openMacros > 0)
            return;
        steps.back().after = number;
        addedToMacro = false;
        finishStep();
    }

    void goTo(int target)
    {
        target = std::min(target, count());
        if (target < index) {
            number = at(target).before;
            events = ksStep::undone(at(target).text, target, keys(at(target)));
        } else if (target > index) {
            number = at(target - 1).after;
            events = ksStep::redone(at(target - 1).text, target - 1, keys(at(target - 1)));
        }
        index = target;
    }

    void clear()
    {
        if (index > 0)
            events = {"undoPerformed(null)"};
        else if (!steps.empty())
            events = {addedToMacro ? "redoPerformed(null, true)" : "redoPerformed(null, false)"};
        events.push_back("cleared()");
        steps.clear();
        index = mark = clean = openMacros = 0;
        addedToMacro = false;
    }
};

/// The stack to be tried and what it works on.
struct System
{
    explicit System(int limit) { stack.setUndoLimit(limit); }

    int number = 0;
    ksUndoStack stack;
    ksStackRecorder recorder{stack};
};

enum class Kind
{
    add,
    undo,
    redo,
    beginMacro,
    endMacro,
    mark,
    reset,
    setClean,
    clear
};

std::ostream &operator<<(std::ostream &out, Kind kind)
{
    static const char *const names[] = {"add",  "undo",  "redo",     "beginMacro", "endMacro",
                                        "mark", "reset", "setClean", "clear"};
    return out << names[static_cast<int>(kind)];
}

/// One operation, applied to the model and to the stack, which must agree afterwards.
class Operation : public rc::state::Command<Model, System>
{
public:
    Operation(Kind kind, int value, bool merges)
        : kind(kind)
        , value(value)
        , merges(merges)
    {}

    void checkPreconditions(const Model &model) const override
    {
        const bool needsNoMacro =
            kind == Kind::undo || kind == Kind::redo || kind == Kind::reset || kind == Kind::setClean;
        RC_PRE(!needsNoMacro || model.openMacros == 0);
        RC_PRE(kind != Kind::endMacro || model.openMacros > 0);
    }

    void apply(Model &model) const override
    {
        model.events.clear();
        switch (kind) {
        case Kind::add:
            return model.add(text(), value, merges);
        case Kind::undo:
            return model.goTo(std::max(model.index - 1, 0));
        case Kind::redo:
            return model.goTo(model.index + 1);
        case Kind::beginMacro:
            return model.beginMacro(text());
        case Kind::endMacro:
            return model.endMacro();
        case Kind::mark:
            model.mark = model.index;
            return;
        case Kind::reset:
            return model.goTo(model.mark);
        case Kind::setClean:
            model.clean = model.index;
            return;
        case Kind::clear:
            return model.clear();
        }
    }

    void run(const Model &before, System &system) const override
    {
        act(system);
        const Model after = nextState(before);
        RC_ASSERT(system.recorder.take() == after.events);
        RC_ASSERT(ksStateOf(system.stack) == after.state());
        RC_ASSERT(system.number == after.number);
    }

    void show(std::ostream &out) const override { out << kind << ' ' << value << (merges ? " merging" : ""); }

private:
    std::string text() const { return std::to_string(value); }

    void act(System &system) const
    {
        const QString name = QString::number(value);
        switch (kind) {
        case Kind::add: {
            auto *command = new ksSetNumberCommand(name, system.number, value);
            command->setMergeEnabled(merges);
            return system.stack.add(command);
        }
        case Kind::undo:
            return system.stack.undo();
        case Kind::redo:
            return system.stack.redo();
        case Kind::beginMacro:
            return system.stack.beginMacro(name);
        case Kind::endMacro:
            return system.stack.endMacro();
        case Kind::mark:
            return system.stack.mark();
        case Kind::reset:
            return system.stack.reset();
        case Kind::setClean:
            return system.stack.setClean();
        case Kind::clear:
            return system.stack.clear();
        }
    }

    Kind kind;
    int value;
    bool merges;
};

rc::Gen<std::shared_ptr<const rc::state::Command<Model, System>>> operations(const Model &)
{
    return rc::gen::apply(
        [](Kind kind, int value, bool merges) -> std::shared_ptr<const rc::state::Command<Model, System>> {
            return std::make_shared<Operation>(kind, value, merges);
        },
        rc::gen::weightedElement<Kind>({{8, Kind::add},
                                        {5, Kind::undo},
                                        {4, Kind::redo},
                                        {2, Kind::beginMacro},
                                        {3, Kind::endMacro},
                                        {2, Kind::mark},
                                        {2, Kind::reset},
                                        {1, Kind::setClean},
                                        {1, Kind::clear}}),
        rc::gen::inRange(0, 1000), rc::gen::arbitrary<bool>());
}

} // namespace

RC_GTEST_PROP(ksUndoStackModel, AgreesAfterAnySequenceOfOperations, ())
{
    Model model;
    model.limit = *rc::gen::weightedElement<int>({{3, 0}, {1, 1}, {1, 2}, {1, 5}});
    System system(model.limit);
    rc::state::check(model, system, &operations);
}
