// SPDX-License-Identifier: MIT
#pragma once

#include "ksFaultKind.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

/// What the application throws.
struct ksFault
{};

/// Commands of one kind, in a scene of their own.
class ksCommandFixture : public testing::TestWithParam<ksFaultKind>
{
protected:
    using State = ksFaultScene::State;
    using Events = ksFaultScene::Events;
    using Edits = std::vector<std::pair<long long, osg::BitVector>>;

    /// What can be observed of one step.
    struct Step
    {
        ksRecords records;
        std::vector<ksHandlerCall> calls;
        State state;
    };

    ksCommandFixture()
    {
        if (kind().reportSync)
            kind().reportSync(&scene);
        for (const osg::FieldContainerPtr &container : containers(kind().held)) {
            held.push_back(container.getFieldContainerId());
            taken.addRef(scene.recorder.idOf(container));
        }
        before = scene.state();
    }
    ~ksCommandFixture() override
    {
        if (kind().reportSync)
            kind().reportSync(nullptr);
    }

    static const ksFaultKind &kind() { return GetParam(); }

    std::vector<osg::FieldContainerPtr> containers(const ksFaultKind::Places &places) const
    {
        std::vector<osg::FieldContainerPtr> result;
        for (const ksPlace &place : places)
            result.push_back(place(scene));
        return result;
    }

    /// Builds a command and expects that it records the references that it takes, and nothing else.
    std::unique_ptr<QUndoCommand> make(QUndoCommand *parent = nullptr)
    {
        forget();
        std::unique_ptr<QUndoCommand> command(kind().make(scene, parent));
        scene.expectCounts(held);
        EXPECT_EQ(scene.recorder.take(), taken);
        EXPECT_THAT(scene.takeHandlerCalls(), testing::IsEmpty());
        return command;
    }

    void forget()
    {
        scene.recorder.take();
        scene.takeHandlerCalls();
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

    Step step(QUndoCommand &command, bool undoing)
    {
        forget();
        undoing ? undo(command) : redo(command);
        return {scene.recorder.take(), scene.takeHandlerCalls(), scene.state()};
    }

    /// The edits that \a calls tell of.
    Edits editsOf(const std::vector<ksHandlerCall> &calls) const
    {
        Edits edits;
        for (const ksHandlerCall &call : calls)
            edits.emplace_back(scene.recorder.idOf(call.id), call.mask);
        return edits;
    }

    /// Expects that the scene is as it was before the command was built, apart from what it holds.
    void expectUndone(const std::vector<osg::UInt32> &nowHeld)
    {
        if (!kind().undoIsEmpty)
            expectScene(before, nowHeld);
    }

    /// Expects that the scene is \a expected but for the command's references.
    void expectScene(const State &expected, const std::vector<osg::UInt32> &nowHeld)
    {
        expectSame(comparable(scene.state()), comparable(expected));
        scene.expectCounts(nowHeld);
    }

    static void expectSame(const State &actual, const State &expected)
    {
        EXPECT_THAT(ksFaultScene::differences(actual, expected), testing::IsEmpty());
    }

    static State withoutFields(const State &state, const std::set<std::string> &fields)
    {
        State result;
        for (const auto &[key, text] : state)
            if (fields.count(key.substr(key.find('.') + 1)) == 0)
                result[key] = text;
        return result;
    }

    /// A state but for references and what does not come back exactly.
    static State comparable(const State &state)
    {
        return withoutFields(state, {kind().derivedField, ksFaultScene::referenceCount});
    }

    ksFaultScene scene;
    std::vector<osg::UInt32> held;
    ksRecords taken;
    State before;
};

/// The name of a test of one kind: letters, digits and underscores of its class and variation.
inline std::string ksNameOfKind(const testing::TestParamInfo<ksFaultKind> &info)
{
    std::string name =
        info.param.className + (info.param.variation.empty() ? "" : '_' + info.param.variation);
    for (char &letter : name)
        if (std::isalnum(static_cast<unsigned char>(letter)) == 0)
            letter = '_';
    return name;
}

/// The kinds for which \a holds is true.
template <class Predicate>
std::vector<ksFaultKind> ksFaultKindsWith(Predicate holds)
{
    std::vector<ksFaultKind> kinds = ksFaultKinds();
    kinds.erase(
        std::remove_if(kinds.begin(), kinds.end(), [&](const ksFaultKind &kind) { return !holds(kind); }),
        kinds.end());
    return kinds;
}
