// SPDX-License-Identifier: MIT
#include "../ksEditorFixture.h"
#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

class ksNodeEditsTest : public testing::Test
{
protected:
    ksNodeEditsTest() { document.open(ksRoomFile()); }

    osg::NodePtr node(const char *name) const { return ksFindNode(document.root(), name); }

    static std::vector<std::string> childrenOf(const osg::NodePtr &parent)
    {
        std::vector<std::string> names;
        for (osg::UInt32 i = 0; i < parent->getNChildren(); ++i)
            names.push_back(ksContainers::nameOf(parent->getChild(i)).toStdString());
        return names;
    }

    QString undoText() const { return document.stack().undoText(); }

    ksDocument document;
};

} // namespace

TEST_F(ksNodeEditsTest, RenamesNodesWithAndWithoutAName)
{
    const osg::NodePtr table = node("Table");
    ksNodeEdits::rename(document, table, QStringLiteral("Desk"));
    EXPECT_EQ(ksContainers::nameOf(table), QStringLiteral("Desk"));
    EXPECT_EQ(undoText(), QStringLiteral("Rename 'Table'"));
    ksNodeEdits::rename(document, table, QStringLiteral("Desk"));
    EXPECT_EQ(document.stack().count(), 1);

    const osg::NodePtr bare = ksNodeEdits::add(document, table);
    bare->subAttachment(bare->findAttachment(osg::Name::getClassType()));
    ksNodeEdits::rename(document, bare, QString());
    EXPECT_EQ(document.stack().count(), 2);
    ksNodeEdits::rename(document, bare, QStringLiteral("Vase"));
    EXPECT_EQ(ksContainers::nameOf(bare), QStringLiteral("Vase"));
    EXPECT_EQ(undoText(), QStringLiteral("Rename ''"));
    document.stack().undo();
    EXPECT_EQ(ksContainers::nameOf(bare), QString());
}

TEST_F(ksNodeEditsTest, ShowsAndHidesSeveralInOneStep)
{
    const std::vector<osg::NodePtr> nodes = {node("Table"), node("Chair")};
    ksNodeEdits::show(document, nodes, false);
    EXPECT_EQ(nodes[0]->getTravMask(), 0u);
    EXPECT_EQ(nodes[1]->getTravMask(), 0u);
    EXPECT_EQ(undoText(), QStringLiteral("Hide 'Table', 'Chair'"));
    ksNodeEdits::show(document, nodes, false);
    EXPECT_EQ(document.stack().count(), 1);
    document.stack().undo();
    EXPECT_NE(nodes[0]->getTravMask(), 0u);
}

TEST_F(ksNodeEditsTest, MovesSeveralInTheirOrder)
{
    const osg::NodePtr place = ksNodeEdits::add(document, document.root());
    std::vector<osg::NodePtr> made;
    for (const char *name : {"a", "b", "c", "d"}) {
        made.push_back(ksNodeEdits::add(document, place));
        ksNodeEdits::rename(document, made.back(), QString::fromLatin1(name));
    }
    const int before = document.stack().count();
    ksNodeEdits::move(document, {made[0], made[1]}, place, 3);
    EXPECT_THAT(childrenOf(place), ElementsAre("c", "a", "b", "d"));
    ksNodeEdits::move(document, {made[3], made[1]}, place, 0);
    EXPECT_THAT(childrenOf(place), ElementsAre("d", "b", "c", "a"));
    ksNodeEdits::move(document, {made[3]}, place);
    EXPECT_THAT(childrenOf(place), ElementsAre("b", "c", "a", "d"));
    EXPECT_EQ(document.stack().count(), before + 3);
    ksNodeEdits::move(document, {made[3]}, place);
    ksNodeEdits::move(document, {made[1], made[2]}, place, 1);
    ksNodeEdits::move(document, {made[1], made[2]}, place, 0);
    EXPECT_EQ(document.stack().count(), before + 3) << "they are there already";
    document.stack().undo();
    document.stack().undo();
    document.stack().undo();
    EXPECT_THAT(childrenOf(place), ElementsAre("a", "b", "c", "d"));
}

TEST_F(ksNodeEditsTest, GathersThemBehindTheOneTheyAreDroppedOn)
{
    const osg::NodePtr place = ksNodeEdits::add(document, document.root());
    std::vector<osg::NodePtr> made;
    for (const char *name : {"a", "b", "c", "d"}) {
        made.push_back(ksNodeEdits::add(document, place));
        ksNodeEdits::rename(document, made.back(), QString::fromLatin1(name));
    }
    ksNodeEdits::move(document, {made[1], made[3]}, place, 1);
    EXPECT_THAT(childrenOf(place), ElementsAre("a", "b", "d", "c"));
}

TEST_F(ksNodeEditsTest, ShiftsToThePlacesBeside)
{
    using ksNodeEdits::Shift;
    const osg::NodePtr root = document.root();
    const std::vector<std::string> before = childrenOf(root);
    const osg::NodePtr node = root->getChild(1);
    ksNodeEdits::shift(document, node, Shift::Up);
    EXPECT_EQ(root->findChild(node), 0);
    ksNodeEdits::shift(document, node, Shift::Up);
    ksNodeEdits::shift(document, node, Shift::In);
    ksNodeEdits::shift(document, node, Shift::Out);
    ksNodeEdits::shift(document, root, Shift::Down);
    EXPECT_EQ(document.stack().count(), 1) << "there is nothing beside it there";
    ksNodeEdits::shift(document, node, Shift::Down);
    EXPECT_EQ(childrenOf(root), before);
    ksNodeEdits::shift(document, node, Shift::In);
    EXPECT_EQ(node->getParent(), root->getChild(0));
    ksNodeEdits::shift(document, node, Shift::Out);
    EXPECT_EQ(childrenOf(root), before);
    const osg::NodePtr last = root->getChild(root->getNChildren() - 1);
    ksNodeEdits::shift(document, last, Shift::Down);
    EXPECT_EQ(document.stack().count(), 4);
}

TEST_F(ksNodeEditsTest, TakesBackAMoveThatIsNotPossible)
{
    const osg::NodePtr table = node("Table");
    const osg::NodePtr chair = node("Chair");
    const osg::NodePtr parent = chair->getParent();
    EXPECT_THROW(ksNodeEdits::move(document, {chair, table}, node("Legs")), ksEditorError);
    EXPECT_EQ(chair->getParent(), parent);
    EXPECT_EQ(document.stack().count(), 0);
    EXPECT_EQ(document.history().macroDepth(), 0);
}

TEST_F(ksNodeEditsTest, RemovesWhatIsNotBelowOthers)
{
    const osg::NodePtr table = node("Table");
    ksNodeEdits::remove(document, {node("Legs"), table, document.root()});
    EXPECT_EQ(table->getParent(), osg::NullFC);
    EXPECT_NE(ksFindNode(table, "Legs"), osg::NullFC);
    EXPECT_EQ(undoText(), QStringLiteral("Remove 'Table'"));
    ksNodeEdits::remove(document, {document.root()});
    EXPECT_EQ(document.stack().count(), 1);
}

TEST_F(ksNodeEditsTest, DuplicatesBesideTheOriginals)
{
    const osg::NodePtr table = node("Table");
    const std::vector<osg::NodePtr> copies = ksNodeEdits::duplicate(document, {table, node("Chair")});
    ASSERT_EQ(copies.size(), 2u);
    EXPECT_EQ(copies[0]->getParent(), table->getParent());
    EXPECT_EQ(copies[0]->getNChildren(), table->getNChildren());
    EXPECT_EQ(undoText(), QStringLiteral("Duplicate 'Table', 'Chair'"));
    document.stack().undo();
    EXPECT_EQ(copies[0]->getParent(), osg::NullFC);
}
