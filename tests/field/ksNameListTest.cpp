// SPDX-License-Identifier: MIT
#include <ksundo/field/ksUndoUtil.h>

#include <OSGTransformVariant.h>
#include <OSGTransformVariantsAttachment.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <gmock/gmock.h>

namespace {

using Nodes = std::vector<osg::NodePtr>;
using Handles = std::vector<ksNodePtr>;
using Variants = std::vector<std::pair<osg::NodePtr, int>>;

class ksNameListTest : public testing::Test
{
protected:
    /// A node called \a name, alive until the end of the test.
    osg::NodePtr node(const std::string &name)
    {
        const osg::NodePtr result = bareNode();
        result->setCore(osg::Group::create());
        osg::setName(result, name);
        return result;
    }

    /// A node without a core, which has no name.
    osg::NodePtr bareNode()
    {
        kept.emplace_back(osg::Node::create());
        return kept.back().get();
    }

    /// A node called \a name with transform variants called \a variants.
    osg::NodePtr nodeWithVariants(const std::string &name, const std::vector<std::string> &variants)
    {
        const osg::NodePtr result = node(name);
        const auto attachment = osg::TransformVariantsAttachment::create();
        for (osg::UInt32 i = 0; i < variants.size(); ++i) {
            attachment->insertVariant(i, osg::TransformVariant::create());
            attachment->getVariants(i)->setName(variants[i]);
        }
        result->addAttachment(attachment);
        return result;
    }

    static Handles handlesOf(const Nodes &nodes)
    {
        Handles result;
        for (const osg::NodePtr &each : nodes)
            result.push_back(ksNodePtr(each));
        return result;
    }

    /// The text that all four forms on lists give for \a nodes; expects that those that take no maximum
    /// agree.
    static std::string listed(const Nodes &nodes)
    {
        const QString text = ksUndoUtil::makeNameList(nodes);
        EXPECT_EQ(ksUndoUtil::makeNameList(handlesOf(nodes)), text);
        EXPECT_EQ(text.toStdString(), listed(nodes, nodes.size()));
        return text.toStdString();
    }

    static std::string listed(const Nodes &nodes, unsigned long maxCount)
    {
        const QString text = ksUndoUtil::makeNameList(nodes, maxCount);
        EXPECT_EQ(ksUndoUtil::makeNameList(handlesOf(nodes), maxCount), text);
        return text.toStdString();
    }

    static std::string listed(const Variants &variants, unsigned long maxCount)
    {
        return ksUndoUtil::makeNameList(variants, maxCount).toStdString();
    }

    /// The text that both forms on one node give.
    static QString single(const osg::NodePtr &node)
    {
        const QString text = ksUndoUtil::makeNameList(node);
        EXPECT_EQ(ksUndoUtil::makeNameList(ksNodePtr(node)), text);
        return text;
    }

private:
    std::vector<osg::NodeRefPtr> kept;
};

} // namespace

TEST_F(ksNameListTest, ListsAllNames)
{
    EXPECT_EQ(listed({node("A"), node("B"), node("C")}), "'A', 'B', 'C'");
    EXPECT_EQ(listed({node("A")}), "'A'");
}

TEST_F(ksNameListTest, CutsTheListAtTheMaximum)
{
    const Nodes nodes{node("A"), node("B"), node("C")};
    EXPECT_EQ(listed(nodes, 1), "'A', ...");
    EXPECT_EQ(listed(nodes, 2), "'A', 'B', ...");
    EXPECT_EQ(listed(nodes, 3), "'A', 'B', 'C'");
    EXPECT_EQ(listed(nodes, 4), "'A', 'B', 'C'");
    EXPECT_EQ(listed(nodes, ~0ul), "'A', 'B', 'C'");
}

TEST_F(ksNameListTest, ListsNothingWithAMaximumOfZero)
{
    EXPECT_EQ(listed({node("A")}, 0), "'', ...");
    EXPECT_EQ(listed(Nodes{}, 0), "''");
}

TEST_F(ksNameListTest, GivesTwoApostrophesForNoNodes)
{
    EXPECT_EQ(listed(Nodes{}), "''");
    EXPECT_EQ(listed(Nodes{}, 5), "''");
}

TEST_F(ksNameListTest, LeavesNullNodesOut)
{
    EXPECT_EQ(listed({node("A"), osg::NullFC, node("B")}), "'A', 'B'");
    EXPECT_EQ(listed({osg::NullFC}), "''");
    EXPECT_EQ(listed({osg::NullFC, osg::NullFC}), "''");
}

TEST_F(ksNameListTest, CountsNullNodesTowardsTheMaximum)
{
    EXPECT_EQ(listed({osg::NullFC, node("A"), node("B")}, 2), "'A', ...");
    EXPECT_EQ(listed({node("A"), osg::NullFC, node("B")}, 1), "'A', ...");
    EXPECT_EQ(listed({node("A"), osg::NullFC}, 1), "'A', ...");
}

TEST_F(ksNameListTest, ListsNodesWithoutANameAsEmpty)
{
    EXPECT_EQ(listed({node("A"), bareNode(), node("")}), "'A', '', ''");
    EXPECT_EQ(listed({bareNode()}), "''");
}

TEST_F(ksNameListTest, ListsTheNameOfTheCoreForNodesWithoutOne)
{
    const osg::NodePtr nameless = bareNode();
    nameless->setCore(osg::Group::create());
    EXPECT_EQ(listed({nameless}), "'Group'");
    EXPECT_EQ(single(nameless), QStringLiteral("'Group'"));
    osg::setName(nameless->getCore(), std::string("core"));
    EXPECT_EQ(listed({nameless}), "'core'");
}

TEST_F(ksNameListTest, TakesNamesInListsAsUtf8)
{
    EXPECT_EQ(listed({node("Gr\u00f6\u00dfe"), node("\u6f22")}), "'Gr\u00f6\u00dfe', '\u6f22'");
}

TEST_F(ksNameListTest, TakesASingleNameAsLatin1)
{
    EXPECT_EQ(single(node("Gr\xf6\xdf"
                          "e")),
              QStringLiteral("'Gr\u00f6\u00dfe'"));
    EXPECT_EQ(single(node("\u00f6")), QStringLiteral("'\u00c3\u00b6'"));
}

TEST_F(ksNameListTest, PutsASingleNameInApostrophes)
{
    EXPECT_EQ(single(node("A")), QStringLiteral("'A'"));
    EXPECT_EQ(single(node("")), QStringLiteral("''"));
    EXPECT_EQ(single(bareNode()), QStringLiteral("''"));
    EXPECT_EQ(single(osg::NullFC), QStringLiteral("''"));
}

TEST_F(ksNameListTest, DoesNotReadPlaceholdersInNames)
{
    EXPECT_EQ(listed({node("%1"), node("%2')")}), "'%1', '%2')'");
}

TEST_F(ksNameListTest, DoublesTheNameOfANodeWhoseVariantHasOne)
{
    const osg::NodePtr chair = nodeWithVariants("Chair", {"open", "", "closed"});
    EXPECT_EQ(listed({{chair, 0}}, 1), "'ChairChair'");
    EXPECT_EQ(listed({{chair, 1}}, 1), "'Chair'");
    EXPECT_EQ(listed({{chair, 2}}, 1), "'ChairChair'");
    EXPECT_EQ(listed({{chair, 3}}, 1), "'Chair'");
    EXPECT_EQ(listed({{chair, -1}}, 1), "'Chair'");
    EXPECT_EQ(listed({{node("Table"), 0}}, 1), "'Table'");
}

TEST_F(ksNameListTest, ListsVariantsUpToTheMaximum)
{
    const osg::NodePtr chair = nodeWithVariants("Chair", {"open"});
    const Variants variants{{chair, 0}, {node("B"), 0}, {chair, -1}};
    EXPECT_EQ(listed(variants, 0), "'', ...");
    EXPECT_EQ(listed(variants, 1), "'ChairChair', ...");
    EXPECT_EQ(listed(variants, 2), "'ChairChair', 'B', ...");
    EXPECT_EQ(listed(variants, 3), "'ChairChair', 'B', 'Chair'");
    EXPECT_EQ(listed(variants, 4), "'ChairChair', 'B', 'Chair'");
    EXPECT_EQ(listed(Variants{}, 4), "''");
    EXPECT_EQ(listed(Variants{}, 0), "''");
}

TEST_F(ksNameListTest, LeavesEmptyEntriesOfVariantsOut)
{
    const osg::NodePtr nameless = nodeWithVariants("", {"open"});
    EXPECT_EQ(
        listed(
            {{node("A"), 0}, {nameless, 0}, {node(""), 0}, {bareNode(), 0}, {osg::NullFC, 0}, {node("B"), 0}},
            9),
        "'A', 'B'");
    EXPECT_EQ(listed({{node(""), 0}}, 1), "''");
}

TEST_F(ksNameListTest, CountsEmptyEntriesOfVariantsTowardsTheMaximum)
{
    EXPECT_EQ(listed({{osg::NullFC, 0}, {node(""), 0}, {node("A"), 0}, {node("B"), 0}}, 3), "'A', ...");
}

TEST_F(ksNameListTest, TakesNamesOfVariantsAsUtf8)
{
    EXPECT_EQ(listed({{nodeWithVariants("\u00f6", {"\u00fc"}), 0}}, 1), "'\u00f6\u00f6'");
}
