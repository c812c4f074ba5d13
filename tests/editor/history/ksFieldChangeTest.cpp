// SPDX-License-Identifier: MIT
#include <editor/history/ksFieldChange.h>
#include <tests/editor/ksEditorFixture.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

#include <QJsonDocument>
#include <QJsonObject>

namespace {

using testing::IsEmpty;
using testing::SizeIs;

class ksFieldChangeTest : public ksEditorFixture
{
protected:
    ksFieldChangeTest() { ksFieldChange::take(); }

    void setLayer(osg::UInt8 layer) const
    {
        CPEdit(childSettings(), osg::ksNodeSettings::LayerFieldMask);
        childSettings()->setLayer(layer);
    }

    static std::string summary() { return ksFieldChange::summary(ksFieldChange::take()).toStdString(); }
};

} // namespace

TEST_F(ksFieldChangeTest, TellsWhatAFieldHeldAndHolds)
{
    setLayer(3);
    setLayer(4);
    const std::vector<ksFieldChange> changes = ksFieldChange::take();
    ASSERT_THAT(changes, SizeIs(1));
    EXPECT_EQ(changes[0].inFull(), ksContainers::label(childSettings()) + QStringLiteral(" layer: 0 -> 4"));
    EXPECT_EQ(QJsonDocument(changes[0].toJson()).toJson(QJsonDocument::Compact).toStdString(),
              R"({"after":"4","before":"0","field":"layer","id":)" +
                  std::to_string(childSettings().getFieldContainerId()) +
                  R"(,"name":"Child","type":"ksNodeSettings"})");
    EXPECT_EQ(ksFieldChange::summary(changes), QStringLiteral("ksNodeSettings 'Child' layer 0 -> 4"));
    EXPECT_TRUE(osg::Thread::getCurrentChangeList()->empty());
    EXPECT_THAT(ksFieldChange::take(), IsEmpty());
}

TEST_F(ksFieldChangeTest, LeavesOutWhatHoldsWhatItHeld)
{
    setLayer(3);
    setLayer(0);
    EXPECT_THAT(ksFieldChange::take(), IsEmpty());
}

TEST_F(ksFieldChangeTest, TellsWhatComesAndGoes)
{
    {
        const osg::NodePtr added = makeNode("Added");
        CPEdit(root, osg::Node::ChildrenFieldMask);
        root->addChild(added);
    }
    EXPECT_EQ(summary(), "Node 'Root' children + Node 'Added'");
    {
        CPEdit(root, osg::Node::ChildrenFieldMask);
        root->insertChild(0, root->getChild(1));
    }
    EXPECT_EQ(summary(), "Node 'Root' children in another order");
    {
        CPEdit(root, osg::Node::ChildrenFieldMask);
        root->subChild(1);
    }
    // It has gone by now, and is not there to tell its name.
    EXPECT_THAT(summary(), testing::StartsWith("Node 'Root' children"));
}

TEST_F(ksFieldChangeTest, SumsManyChangesUp)
{
    const auto edit = [this](osg::UInt8 layer, const std::string &comment, osg::Int64 revision) {
        CPEdit(childSettings(), osg::FieldBits::AllFields);
        childSettings()->setLayer(layer);
        childSettings()->setComment(comment);
        childSettings()->setRevision(revision);
        childSettings()->setLocked(revision > 0);
    };
    edit(1, std::string(50, 'x'), 0);
    EXPECT_EQ(summary(), "ksNodeSettings 'Child' layer 0 -> 1, comment");
    edit(2, std::string(), 4);
    EXPECT_EQ(summary(),
              "ksNodeSettings 'Child' layer 1 -> 2, revision 0 -> 4, locked FALSE -> TRUE; 1 more");
}

/// The list of children is long enough to cost something.
TEST_F(ksFieldChangeTest, CountsTheEntriesOfLongLists)
{
    const auto addNodes = [this](int count) {
        CPEdit(root, osg::Node::ChildrenFieldMask);
        for (int i = 0; i < count; ++i)
            root->addChild(osg::Node::create());
    };
    addNodes(1000);
    ksFieldChange::take();
    addNodes(1);
    EXPECT_EQ(summary(), "Node 'Root' children 1001 -> 1002 entries");
}
