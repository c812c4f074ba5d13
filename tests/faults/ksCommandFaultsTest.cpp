// SPDX-License-Identifier: MIT
#include "ksCommandFixture.h"

#include <ksundo/core/ksFindContainer.h>

#include <QCoreApplication>

#include <support/ksSlotSwap.h>
#include <thread>

namespace {

/// What can go wrong with commands of every class.
class ksCommandFaults : public ksCommandFixture
{
protected:
    ksCommandFaults()
    {
        for (const osg::FieldContainerPtr &container : containers(kind().goneWhenDone))
            goneWhenDone.push_back(scene.recorder.idOf(container));
        for (const osg::FieldContainerPtr &container :
             containers(kind().released.empty() ? kind().held : kind().released))
            released.push_back(scene.recorder.idOf(container));
        impostors = containers(kind().impostors);
        impostors.push_back(scene.bystander);
        targetId = kind().target(scene).getFieldContainerId();
    }

    /// Undoes. Where that changes nothing, a second redo takes back what the first one did.
    void takeBack(QUndoCommand &command)
    {
        undo(command);
        if (kind().undoIsEmpty)
            redo(command);
        expectScene(before, held);
        forget();
    }

    /// Expects that \a ignoring did what \a usual did, but for what change handlers do.
    void expectIgnoring(const Step &ignoring, const Step &usual)
    {
        EXPECT_THAT(ignoring.calls, testing::IsEmpty());
        ksRecords records = usual.records;
        records.changed = editsOf(usual.calls);
        EXPECT_EQ(ignoring.records, records);
        expectSame(withoutFields(ignoring.state, kind().handlerFields),
                   withoutFields(usual.state, kind().handlerFields));
    }

    /// Expects that a thread without a change list has done what \a usual did, but for the records.
    void expectWithoutList(const Step &usual, const Events &events)
    {
        // What the thread called on the listener waits in this one.
        QCoreApplication::sendPostedEvents(&scene.listener);
        EXPECT_EQ(scene.take(), events);
        std::vector<ksHandlerCall> calls = usual.calls;
        for (ksHandlerCall &call : calls)
            call.recorded = 0;
        EXPECT_EQ(scene.takeHandlerCalls(), calls);
        expectSame(comparable(scene.state()), comparable(usual.state));
        scene.expectCounts(held);
    }

    /// Does all that can be done with a command that does not find its target, and expects that it does what
    /// is required then, and no more.
    void expectIdle(QUndoCommand &command)
    {
        const State idle = scene.state();
        const ksRecords records = kind().idleRecords ? kind().idleRecords(scene) : ksRecords();
        forget();
        for (const bool undoing : {true, false, false, true}) {
            undoing ? command.undo() : command.redo();
            EXPECT_EQ(scene.take(), undoing ? kind().idleUndoEvents : kind().idleRedoEvents);
            EXPECT_EQ(scene.recorder.take(), records);
            EXPECT_EQ(editsOf(scene.takeHandlerCalls()), records.changed);
            expectSame(scene.state(), idle);
        }
    }

    /// Expects that the command is idle while its id names a container of any other type.
    void expectIdleAmongImpostors(QUndoCommand &command)
    {
        for (const osg::FieldContainerPtr &impostor : impostors) {
            SCOPED_TRACE(impostor->getType().getCName());
            const ksSlotSwap swap(targetId, impostor);
            expectIdle(command);
        }
    }

    bool keepsTarget() const { return std::count(held.begin(), held.end(), targetId) > 0; }

    /// Takes the target out of the scene. False if the command keeps it alive.
    bool dropTarget()
    {
        scene.drop(kind().target(scene));
        const bool isGone = ksFindContainer<osg::FieldContainerPtr>(targetId) == osg::NullFC;
        EXPECT_NE(isGone, keepsTarget() && !kind().isEmpty);
        return isGone;
    }

    /// Expects that a command whose target it keeps alive itself goes on as before, \a done being the state
    /// of the scene after redo while the target was in it.
    void expectSteady(QUndoCommand &command, bool isDone, const State &done)
    {
        const State start = scene.state();
        const State other = isDone ? ksFaultScene::moved(start, comparable(done), comparable(before))
                                   : ksFaultScene::moved(start, comparable(before), comparable(done));
        for (int i = 0; i < 2; ++i) {
            isDone ? command.undo() : command.redo();
            expectSame(scene.state(), other);
            isDone ? command.redo() : command.undo();
            expectSame(scene.state(), start);
        }
    }

    /// Takes the target out of the scene and expects of the command what is required then.
    void loseTarget(QUndoCommand &command, bool isDone, const State &done)
    {
        dropTarget() || kind().isEmpty ? expectIdle(command) : expectSteady(command, isDone, done);
    }

    /// The state of the scene after redo.
    State doneState()
    {
        const auto command = make();
        redo(*command);
        const State done = scene.state();
        takeBack(*command);
        return done;
    }

    /// Destroys the command and expects that it leaves no trace in the counts.
    void destroy(std::unique_ptr<QUndoCommand> command)
    {
        command.reset();
        scene.expectCounts({});
        EXPECT_EQ(scene.take(), Events());
    }

    /// Does the same, and expects that what it held is released in the required order; the containers \a gone
    /// do not survive that.
    void destroyReleasing(std::unique_ptr<QUndoCommand> command, const std::vector<long long> &gone)
    {
        ksRecords expected;
        for (const long long id : released)
            std::count(gone.begin(), gone.end(), id) > 0 ? expected.destroy(id) : expected.subRef(id);
        forget();
        destroy(std::move(command));
        EXPECT_THAT(scene.takeHandlerCalls(), testing::IsEmpty());
        ksRecords records = scene.recorder.take();
        // What goes with a container is its own business.
        for (std::vector<long long> *ids : {&records.subRefd, &records.destroyed})
            ids->erase(std::remove_if(ids->begin(), ids->end(),
                                      [this](long long id) {
                                          return std::count(released.begin(), released.end(), id) == 0;
                                      }),
                       ids->end());
        EXPECT_EQ(records, expected);
    }

    std::vector<long long> released;
    std::vector<long long> goneWhenDone;
    std::vector<osg::FieldContainerPtr> impostors;
    osg::UInt32 targetId;
};

bool canLackTarget(const ksFaultKind &kind)
{
    return static_cast<bool>(kind.makeWithoutTarget);
}

/// A kind for each way in which it cannot find one of the containers that it needs besides its target.
std::vector<ksFaultKind> kindsWithFurther()
{
    std::vector<ksFaultKind> kinds;
    const auto add = [&kinds](ksFaultKind kind, const ksFurtherContainer &further, const std::string &name) {
        kind.variation += '_' + further.name + '_' + name;
        kind.further = {further};
        kinds.push_back(std::move(kind));
    };
    for (const ksFaultKind &kind : ksFaultKinds()) {
        for (ksFurtherContainer further : kind.further) {
            if (further.impostor)
                add(kind, further, "ofAnotherType");
            further.impostor = {};
            add(kind, further, "gone");
        }
    }
    return kinds;
}

class ksCommandWithoutTarget : public ksCommandFaults
{};

class ksCommandWithoutFurther : public ksCommandFaults
{
protected:
    ksCommandWithoutFurther()
    {
        if (further().redone)
            redone = further().redone(scene);
        if (further().undone)
            undone = further().undone(scene);
        hidden = further().container(scene).getFieldContainerId();
    }

    static const ksFurtherContainer &further() { return kind().further.front(); }

    ksSlotSwap hide() const
    {
        osg::FieldContainerPtr other;
        if (further().impostor)
            other = further().impostor(scene);
        return {hidden, other};
    }

    void expectLeft(const Events &events, const State &expected)
    {
        EXPECT_EQ(scene.take(), events);
        expectScene(expected, held);
        const ksRecords records = scene.recorder.take();
        EXPECT_EQ(records, further().records ? further().records(scene) : records);
    }

    State redone;
    State undone;
    osg::UInt32 hidden;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksCommandFaults, testing::ValuesIn(ksFaultKinds()), ksNameOfKind);
INSTANTIATE_TEST_SUITE_P(, ksCommandWithoutTarget, testing::ValuesIn(ksFaultKindsWith(canLackTarget)),
                         ksNameOfKind);
INSTANTIATE_TEST_SUITE_P(, ksCommandWithoutFurther, testing::ValuesIn(kindsWithFurther()), ksNameOfKind);

TEST_P(ksCommandFaults, AreDestroyedBeforeTheyRan)
{
    destroyReleasing(make(), {});
    expectScene(before, {});
    expectSame(scene.state(), before);
}

TEST_P(ksCommandFaults, AreDestroyedWhenDone)
{
    auto command = make();
    redo(*command);
    const State after = scene.state();
    destroyReleasing(std::move(command), goneWhenDone);
    expectScene(ksFaultScene::without(goneWhenDone, after), {});
}

TEST_P(ksCommandFaults, AreDestroyedWhenUndone)
{
    auto command = make();
    redo(*command);
    undo(*command);
    destroyReleasing(std::move(command), {});
    expectUndone({});
}

TEST_P(ksCommandFaults, LoseTheirTargetBeforeTheFirstRedo)
{
    const State done = doneState();
    auto command = make();
    loseTarget(*command, false, done);
    destroy(std::move(command));
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(targetId), osg::NullFC);
}

TEST_P(ksCommandFaults, LoseTheirTargetBeforeTheUndo)
{
    auto command = make();
    redo(*command);
    loseTarget(*command, true, scene.state());
    destroy(std::move(command));
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(targetId), osg::NullFC);
}

TEST_P(ksCommandFaults, LoseTheirTargetBetweenUndoAndRedo)
{
    auto command = make();
    redo(*command);
    const State done = scene.state();
    undo(*command);
    loseTarget(*command, false, done);
    destroy(std::move(command));
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(targetId), osg::NullFC);
}

TEST_P(ksCommandFaults, FindAContainerOfAnotherTypeUnderTheirId)
{
    auto command = make();
    expectIdleAmongImpostors(*command);
    redo(*command);
    expectIdleAmongImpostors(*command);
    undo(*command);
    expectUndone(held);
}

TEST_P(ksCommandFaults, RecordButCallNoHandlerWhileChangesAreIgnored)
{
    auto command = make();
    const Step done = step(*command, false);
    EXPECT_EQ(done.calls.empty(), kind().isEmpty);
    const Step undone = step(*command, true);
    if (kind().undoIsEmpty)
        takeBack(*command);

    osg::FieldContainerPtr::_ignore_change = true;
    const Step ignoringDone = step(*command, false);
    const Step ignoringUndone = step(*command, true);
    osg::FieldContainerPtr::_ignore_change = false;

    expectIgnoring(ignoringDone, done);
    expectIgnoring(ignoringUndone, undone);
}

TEST_P(ksCommandFaults, RunOnAThreadWithoutAChangeList)
{
    auto command = make();
    const Step done = step(*command, false);
    const Step undone = step(*command, true);
    if (kind().undoIsEmpty)
        takeBack(*command);
    forget();

    std::thread([&] { command->redo(); }).join();
    expectWithoutList(done, kind().redoEvents);
    std::thread([&] { command->undo(); }).join();
    expectWithoutList(undone, kind().undoEvents);
    expectUndone(held);
    EXPECT_EQ(scene.recorder.take(), ksRecords());
}

TEST_P(ksCommandFaults, TakeBackAStepInWhichTheApplicationThrows)
{
    auto command = make();
    for (const bool undoing : {false, true, false}) {
        const State start = scene.state();
        int calls = 0;
        do {
            SCOPED_TRACE("call " + std::to_string(calls + 1) + (undoing ? " of undo" : " of redo"));
            scene.interruptAt(++calls, [] { throw ksFault(); });
            try {
                undoing ? command->undo() : command->redo();
                break;
            } catch (const ksFault &) {
                expectScene(start, held);
            }
        } while (!HasFailure());
        scene.interruptAt(0, {});
        scene.take();
        EXPECT_EQ(scene.state() == start, kind().isEmpty || (undoing && kind().undoIsEmpty));
        scene.expectCounts(held);
    }
    if (kind().undoIsEmpty)
        return;
    command->undo();
    expectUndone(held);
}

TEST_P(ksCommandFaults, EndAlsoWhenTheApplicationThrowsWhileAStepIsTakenBack)
{
    auto command = make();
    std::function<void()> fail = [this, &fail] {
        scene.interruptAt(1, fail);
        throw ksFault();
    };
    scene.interruptAt(1, fail);
    if (kind().isEmpty)
        command->redo();
    else
        EXPECT_THROW(command->redo(), ksFault);
    scene.interruptAt(0, {});
    scene.take();
    scene.expectCounts(held);
    // Of several nodes, those are back that came before the exception.
    if (kind().className != ksClassName<ksAddNodeToLightLinkSetUndoCommand>)
        expectScene(before, held);
}

TEST_P(ksCommandWithoutFurther, RedoWhatIsLeft)
{
    const State expected = further().redone ? ksFaultScene::moved(before, {}, redone) : doneState();
    const auto command = make();
    const auto hiding = hide();
    command->redo();
    expectLeft(further().redoEvents, expected);
}

TEST_P(ksCommandWithoutFurther, UndoWhatIsLeft)
{
    const auto command = make();
    redo(*command);
    forget();
    const State expected = further().undone ? ksFaultScene::moved(scene.state(), {}, undone) : before;
    const auto hiding = hide();
    command->undo();
    expectLeft(further().undoEvents, expected);
}

TEST_P(ksCommandWithoutTarget, DoNothing)
{
    std::unique_ptr<QUndoCommand> command(kind().makeWithoutTarget(scene));
    expectIdle(*command);
    destroy(std::move(command));
    expectSame(scene.state(), before);
}
