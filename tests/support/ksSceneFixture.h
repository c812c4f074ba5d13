// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

#include <OpenSG/OSGNode.h>
#include <ksMessage.h>

#include <gmock/gmock.h>

#include <map>
#include <support/ksAspects.h>
#include <support/ksCommandTime.h>
#include <support/ksContainersSince.h>
#include <support/ksDescribe.h>
#include <support/ksRecords.h>

/// A scene to edit by commands, and everything that such an edit can be observed by. Derived classes hold the
/// scene.
class ksSceneFixture : public testing::Test
{
protected:
    ~ksSceneFixture() override { osg::FieldContainerPtr::_ignore_change = false; }

    static osg::NodePtr nodeWith(const osg::NodeCorePtr &core)
    {
        const osg::NodePtr result = osg::Node::create();
        const osg::CPEditor edit(result, osg::Node::CoreFieldMask);
        result->setCore(core);
        return result;
    }

    static void append(const osg::NodePtr &parent, const osg::NodePtr &newChild)
    {
        const osg::CPEditor edit(parent, osg::Node::ChildrenFieldMask);
        parent->addChild(newChild);
    }

    /// All fields of all containers of the scene that live, by id, as a thread of \a aspect sees them.
    std::map<long long, ksFieldTexts> scene(osg::UInt32 aspect = 0) const
    {
        std::map<long long, ksFieldTexts> texts;
        for (const osg::FieldContainerPtr &container : ksContainersSince(recorder))
            texts[recorder.idOf(container)] = ksFieldTextsOf(container, aspect);
        return texts;
    }

    /// Expects that neither redo() nor undo() does anything that can be seen, in any order.
    void expectIdle(QUndoCommand &command)
    {
        const auto before = scene();
        forget();
        for (const bool undoing : {false, true, true, false, false}) {
            undoing ? command.undo() : command.redo();
            EXPECT_EQ(scene(), before);
            EXPECT_EQ(recorder.take(), ksRecords());
        }
    }

    /// Expects that aspect 1 is as aspect 0 once it has what was recorded.
    void expectAspectsInStep()
    {
        ksSyncAspects();
        EXPECT_EQ(scene(1), scene(0));
        forget();
    }

    /// Expects that \a older never merges with \a newer, both of which would be in time.
    static void expectNoMerge(ksUndoCommand &older, ksUndoCommand &newer)
    {
        const double time = ksCommandTime::of(older);
        ksCommandTime::of(newer) = time + 1;
        newer.setMergeResponseDelta(-1.0);
        EXPECT_FALSE(older.canMergeWith(&newer));
        EXPECT_FALSE(older.mergeWith(&newer));
        EXPECT_EQ(ksCommandTime::of(older), time);
    }

    void forget() { recorder.take(); }

    static int countOf(const osg::FieldContainerPtr &container) { return container.getRefCount(); }

    /// Its ids count from the first container of the scene, and the scene is what the list begins with.
    ksRecorder recorder;
};
