// SPDX-License-Identifier: MIT
#include "../ksEditorFixture.h"
#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/edits/ksFieldEdits.h>
#include <editor/ksEditorError.h>

#include <ksundo/core/ksUndoGesture.h>

#include <OpenSG/OSGThreadContext.h>

#include <QSignalSpy>
#include <gmock/gmock.h>

namespace {

class ksDocumentTest : public testing::Test
{
protected:
    osg::NodePtr node(const char *name) const { return ksFindNode(document.root(), name); }

    void setMask(const char *name, unsigned int mask)
    {
        document.add(ksFieldEdits::make(QStringLiteral("Mask"), node(name), QStringLiteral("travMask"), mask,
                                        ksMerging::Never));
    }

    ksTestFolder folder;
    ksDocument document;
};

} // namespace

TEST_F(ksDocumentTest, BeginsEmpty)
{
    EXPECT_EQ(document.root()->getNChildren(), 0u);
    EXPECT_EQ(document.path(), QString());
    EXPECT_EQ(document.title(), QStringLiteral("Untitled"));
    EXPECT_FALSE(document.isModified());
}

TEST_F(ksDocumentTest, OpensAFile)
{
    QSignalSpy replaced(&document, &ksDocument::replaced);
    EXPECT_TRUE(document.open(ksRoomFile()));
    EXPECT_EQ(replaced.count(), 1);
    EXPECT_EQ(document.title(), QStringLiteral("room.gltf"));
    EXPECT_NE(node("Table"), osg::NullFC);
    EXPECT_EQ(document.warnings(), QStringList{QStringLiteral("Left out: 1 camera")});
    EXPECT_FALSE(document.isModified());
}

TEST_F(ksDocumentTest, KeepsTheSceneWhenAFileCannotBeRead)
{
    document.open(ksRoomFile());
    setMask("Table", 1);
    EXPECT_THROW(document.open(folder.path("missing.gltf")), ksEditorError);
    EXPECT_EQ(document.title(), QStringLiteral("room.gltf"));
    EXPECT_TRUE(document.stack().canUndo());
}

TEST_F(ksDocumentTest, KeepsTheSceneWhenOpeningIsCancelled)
{
    document.open(ksRoomFile());
    const osg::NodePtr root = document.root();
    EXPECT_FALSE(document.open(ksRoomFile(), [](double) { return false; }));
    EXPECT_EQ(document.root(), root);
    // Not asked first only.
    EXPECT_FALSE(document.open(ksRoomFile(), [](double done) { return done < 0.5; }));
    EXPECT_EQ(document.root(), root);
    EXPECT_TRUE(osg::Thread::getCurrentChangeList()->empty());
    double last = 0;
    EXPECT_TRUE(document.open(ksRoomFile(), [&last](double done) {
        EXPECT_GE(done, 0);
        last = done;
        return true;
    }));
    EXPECT_EQ(last, 1);
}

/// What observes the history is told of a step that a menu takes, too.
TEST_F(ksDocumentTest, TellsTheObserverOfEveryStep)
{
    document.open(ksRoomFile());
    setMask("Table", 1);
    int calls = 0;
    document.history().setObserver([&calls] { ++calls; });
    document.stack().undo();
    EXPECT_EQ(calls, 1);
    document.history().redo();
    EXPECT_EQ(calls, 2);
    document.history().setObserver({});
}

TEST_F(ksDocumentTest, IsModifiedUntilItIsSaved)
{
    document.open(ksRoomFile());
    setMask("Table", 1);
    EXPECT_TRUE(document.isModified());
    document.stack().undo();
    EXPECT_FALSE(document.isModified());
    document.stack().redo();
    document.save(folder.path("saved.glb"));
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(document.title(), QStringLiteral("saved.glb"));
    document.stack().undo();
    EXPECT_TRUE(document.isModified());
    EXPECT_TRUE(document.open(folder.path("saved.glb")));
    EXPECT_EQ(node("Table")->getTravMask(), 1u);
}

TEST_F(ksDocumentTest, StaysModifiedWhenTheHistoryIsForgotten)
{
    document.open(ksRoomFile());
    document.stack().clear();
    EXPECT_FALSE(document.isModified());
    setMask("Table", 1);
    document.stack().clear();
    EXPECT_TRUE(document.isModified());
    document.save(folder.path("saved.gltf"));
    EXPECT_FALSE(document.isModified());
}

TEST_F(ksDocumentTest, ShowsInAspectOneWhatItTells)
{
    document.open(ksRoomFile());
    const osg::NodePtr table = node("Table");
    std::vector<osg::UInt32> masks;
    QObject::connect(&document, &ksDocument::changed, [&](const ksSceneChanges &changes) {
        EXPECT_TRUE(changes.concern(table.getFieldContainerId(), osg::Node::TravMaskFieldMask));
        EXPECT_FALSE(changes.concern(table.getFieldContainerId(), osg::Node::ChildrenFieldMask));
        const osg::AspectScope scope(1);
        masks.push_back(table->getTravMask());
    });
    setMask("Table", 1);
    setMask("Table", 2);
    document.stack().undo();
    document.history().redo();
    EXPECT_THAT(masks, testing::ElementsAre(1u, 2u, 1u, 2u));
}

TEST_F(ksDocumentTest, TakesAGestureAsOneStep)
{
    document.open(ksRoomFile());
    {
        const ksUndoGesture gesture(&document.stack());
        for (const unsigned int mask : {1u, 2u, 3u})
            document.add(ksFieldEdits::make(QStringLiteral("Mask"), node("Table"), QStringLiteral("travMask"),
                                            mask, ksMerging::WithPrevious));
    }
    EXPECT_EQ(document.stack().count(), 1);
}

TEST_F(ksDocumentTest, ReleasesItsScenes)
{
    const std::ptrdiff_t before = ksLivingContainers();
    {
        ksDocument other;
        other.open(ksRoomFile());
        other.open(ksRoomFile());
        other.clear();
    }
    EXPECT_EQ(ksLivingContainers(), before);
}
