// SPDX-License-Identifier: MIT
#include "ksFaultKind.h"

#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksUndoStack.h>

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>

#include <algorithm>
#include <cxxabi.h>
#include <memory>
#include <set>
#include <support/ksSlotSwap.h>
#include <thread>

namespace {

/// Commands of every class, each in a scene of its own.
class ksCommandFaults : public testing::TestWithParam<ksFaultKind>
{
protected:
    ksCommandFaults()
    {
        if (kind().reportSync)
            kind().reportSync(&scene);
        if (kind().held)
            for (const osg::FieldContainerPtr &container : kind().held(scene))
                held.push_back(container.getFieldContainerId());
        targetId = kind().target(scene).getFieldContainerId();
        before = scene.state();
    }
    ~ksCommandFaults() override
    {
        if (kind().reportSync)
            kind().reportSync(nullptr);
    }

    static const ksFaultKind &kind() { return GetParam(); }

    /// Builds a command and forgets what the scene has recorded so far.
    std::unique_ptr<QUndoCommand> make()
    {
        std::unique_ptr<QUndoCommand> command(kind().make(scene));
        scene.expectCounts(held);
        scene.recorder.take();
        return command;
    }

    static void expectSame(const ksFaultScene::State &actual, const ksFaultScene::State &expected)
    {
        EXPECT_THAT(ksFaultScene::differences(actual, expected), testing::IsEmpty());
    }

    void redo(QUndoCommand &command)
    {
        command.redo();
        EXPECT_EQ(scene.take(), kind().redoEvents);
        scene.expectCounts(held);
    }

    void undo(QUndoCommand &command)
    {
        command.undo();
        EXPECT_EQ(scene.take(), kind().undoEvents);
        scene.expectCounts(held);
    }

    /// Expects that the scene is as it was before the command was built, apart from what it holds.
    void expectUndone(const std::vector<osg::UInt32> &nowHeld)
    {
        if (!kind().undoIsEmpty)
            expectScene(before, nowHeld);
    }

    /// Expects that the scene is \a expected but for the command's references.
    void expectScene(const ksFaultScene::State &expected, const std::vector<osg::UInt32> &nowHeld)
    {
        expectSame(comparable(scene.state()), comparable(expected));
        scene.expectCounts(nowHeld);
    }

    /// Does all that can be done with a command that does not find its target, and expects that it does what
    /// is required then, and no more.
    void expectIdle(QUndoCommand &command)
    {
        const ksFaultScene::State idle = scene.state();
        const ksRecords records = kind().idleRecords ? kind().idleRecords(scene) : ksRecords();
        scene.recorder.take();
        osg::ProbeContainer::takeCalls();
        for (const bool undoing : {true, false, false, true}) {
            undoing ? command.undo() : command.redo();
            EXPECT_EQ(scene.take(), undoing ? kind().idleUndoEvents : kind().idleRedoEvents);
            EXPECT_EQ(scene.recorder.take(), records);
            expectSame(scene.state(), idle);
        }
        EXPECT_TRUE(osg::ProbeContainer::takeCalls().empty());
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

    /// Expects that a command whose target it keeps alive itself goes on as before.
    void expectSteady(QUndoCommand &command, bool isDone)
    {
        const ksFaultScene::State start = scene.state();
        for (int i = 0; i < 2; ++i) {
            isDone ? command.undo() : command.redo();
            EXPECT_TRUE(scene.state() != start);
            isDone ? command.redo() : command.undo();
            expectSame(scene.state(), start);
        }
    }

    /// Destroys the command and expects that it leaves no trace in the counts.
    void destroy(std::unique_ptr<QUndoCommand> command)
    {
        command.reset();
        scene.expectCounts({});
        EXPECT_EQ(scene.take(), ksFaultScene::Events());
    }

    ksFaultScene scene;
    std::vector<osg::UInt32> held;
    osg::UInt32 targetId;
    ksFaultScene::State before;

    static ksFaultScene::State comparable(const ksFaultScene::State &state)
    {
        ksFaultScene::State result;
        for (const auto &[key, text] : state) {
            const std::string field = key.substr(key.find('.') + 1);
            if (field != kind().derivedField && field != ksFaultScene::referenceCount)
                result[key] = text;
        }
        return result;
    }
};

std::string nameOf(const testing::TestParamInfo<ksFaultKind> &info)
{
    return info.param.name;
}

std::vector<ksFaultKind> kindsWithoutTarget()
{
    std::vector<ksFaultKind> kinds = ksFaultKinds();
    kinds.erase(std::remove_if(kinds.begin(), kinds.end(),
                               [](const ksFaultKind &kind) { return !kind.makeWithoutTarget; }),
                kinds.end());
    return kinds;
}

class ksCommandWithoutTarget : public ksCommandFaults
{};

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksCommandFaults, testing::ValuesIn(ksFaultKinds()), nameOf);
INSTANTIATE_TEST_SUITE_P(, ksCommandWithoutTarget, testing::ValuesIn(kindsWithoutTarget()), nameOf);

TEST_P(ksCommandFaults, ComeBackWithoutAny)
{
    auto command = make();
    expectScene(before, held);
    redo(*command);
    const ksFaultScene::State after = scene.state();
    EXPECT_EQ(after == before, kind().isEmpty);
    for (int i = 0; i < 2; ++i) {
        undo(*command);
        expectUndone(held);
        if (kind().undoIsEmpty)
            return;
        redo(*command);
        expectScene(after, held);
    }
    scene.recorder.take();
}

TEST_P(ksCommandFaults, ReachTheOtherAspectAtEveryStep)
{
    const std::unique_ptr<QUndoCommand> command(kind().make(scene));
    ksSyncAspects();
    for (int i = 0; i < 2; ++i) {
        command->redo();
        ksSyncAspects();
        expectSame(scene.state(1), scene.state(0));
        command->undo();
        ksSyncAspects();
        expectSame(scene.state(1), scene.state(0));
    }
}

TEST_P(ksCommandFaults, AreDestroyedBeforeTheyRan)
{
    destroy(make());
    expectScene(before, {});
    expectSame(scene.state(), before);
}

TEST_P(ksCommandFaults, AreDestroyedWhenDone)
{
    auto command = make();
    redo(*command);
    destroy(std::move(command));
}

TEST_P(ksCommandFaults, AreDestroyedWhenUndone)
{
    auto command = make();
    redo(*command);
    undo(*command);
    destroy(std::move(command));
    expectUndone({});
}

TEST_P(ksCommandFaults, LoseTheirTargetBeforeTheFirstRedo)
{
    auto command = make();
    dropTarget() || kind().isEmpty ? expectIdle(*command) : expectSteady(*command, false);
    destroy(std::move(command));
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(targetId), osg::NullFC);
}

TEST_P(ksCommandFaults, LoseTheirTargetBeforeTheUndo)
{
    auto command = make();
    redo(*command);
    dropTarget() || kind().isEmpty ? expectIdle(*command) : expectSteady(*command, true);
    destroy(std::move(command));
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(targetId), osg::NullFC);
}

TEST_P(ksCommandFaults, LoseTheirTargetBetweenUndoAndRedo)
{
    auto command = make();
    redo(*command);
    undo(*command);
    dropTarget() || kind().isEmpty ? expectIdle(*command) : expectSteady(*command, false);
    destroy(std::move(command));
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(targetId), osg::NullFC);
}

TEST_P(ksCommandFaults, FindAContainerOfAnotherTypeUnderTheirId)
{
    auto command = make();
    {
        const ksSlotSwap swap(targetId, scene.bystander);
        expectIdle(*command);
    }
    redo(*command);
    {
        const ksSlotSwap swap(targetId, scene.bystander);
        expectIdle(*command);
    }
    undo(*command);
    expectUndone(held);
}

TEST_P(ksCommandFaults, RecordButCallNoHandlerWhileChangesAreIgnored)
{
    auto command = make();
    command->redo();
    const ksRecords records = scene.recorder.take();
    command->undo();
    scene.take();
    scene.recorder.take();
    osg::ProbeContainer::takeCalls();

    osg::FieldContainerPtr::_ignore_change = true;
    redo(*command);
    const ksRecords ignoring = scene.recorder.take();
    undo(*command);
    osg::FieldContainerPtr::_ignore_change = false;

    EXPECT_TRUE(osg::ProbeContainer::takeCalls().empty());
    EXPECT_EQ(ignoring.addRefd, records.addRefd);
    EXPECT_EQ(ignoring.subRefd, records.subRefd);
    EXPECT_FALSE(ignoring.changed.empty() && !kind().isEmpty);
    for (const auto &record : ignoring.changed)
        EXPECT_EQ(std::count(records.changed.begin(), records.changed.end(), record) > 0, true);
}

TEST_P(ksCommandFaults, RunOnAThreadWithoutAChangeList)
{
    auto command = make();
    command->redo();
    const ksFaultScene::State after = scene.state();
    command->undo();
    scene.recorder.take();

    std::thread([&] { command->redo(); }).join();
    if (!kind().undoIsEmpty)
        expectSame(scene.state(), after);
    std::thread([&] { command->undo(); }).join();
    expectUndone(held);
    EXPECT_EQ(scene.recorder.take(), ksRecords());
}

TEST_P(ksCommandWithoutTarget, DoNothing)
{
    std::unique_ptr<QUndoCommand> command(kind().makeWithoutTarget(scene));
    expectIdle(*command);
    destroy(std::move(command));
    expectSame(scene.state(), before);
}

TEST_P(ksCommandWithoutTarget, StandInTheHistoryAllTheSame)
{
    ksUndoStack stack;
    stack.add(kind().makeWithoutTarget(scene));
    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    stack.redo();
    EXPECT_EQ(stack.index(), 1);
    expectSame(comparable(scene.state()), comparable(before));
}

/// Every class that has an id of its own is among the kinds above.
TEST(ksFaultKinds, HoldEveryCommandClass)
{
    std::set<std::string> declared;
    const QRegularExpression pattern(QStringLiteral("^\\s*KS_UNDO_COMMAND\\((\\w+)\\)"),
                                     QRegularExpression::MultilineOption);
    QDirIterator headers(QStringLiteral(KSUNDO_SOURCES), {QStringLiteral("*.h")}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        QFile file(headers.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto matches = pattern.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            declared.insert(matches.next().captured(1).toStdString());
    }
    ASSERT_GT(declared.size(), 30u);

    ksFaultScene scene;
    std::set<std::string> tested;
    for (const ksFaultKind &kind : ksFaultKinds()) {
        const std::unique_ptr<QUndoCommand> command(kind.make(scene));
        const QUndoCommand &object = *command;
        const std::unique_ptr<char, void (*)(void *)> name(
            abi::__cxa_demangle(typeid(object).name(), nullptr, nullptr, nullptr), &std::free);
        const std::string className = name.get();
        tested.insert(className.substr(0, className.find('<')));
    }
    EXPECT_EQ(tested, declared);
}
