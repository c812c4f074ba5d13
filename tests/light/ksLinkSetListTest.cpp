// SPDX-License-Identifier: MIT
#include "ksLightLinkSetFixture.h"

#include <ksundo/light/detail/ksLinkSetList.h>

#include <rapidcheck.h>

#include <functional>
#include <memory>
#include <utility>

namespace {

using Ids = std::vector<osg::UInt32>;

/// A link set that can do nothing but one node at a time. It passes that on and logs it.
class OneByOneSet
{
public:
    using Log = std::vector<std::string>;

    OneByOneSet(const osg::LightLinkSetPtr &set, std::function<std::string(const osg::NodePtr &)> nameOf)
        : set(set)
        , nameOf(std::move(nameOf))
    {}

    osg::MFNodePtr *getMFLights() { return set->getMFLights(); }
    osg::MFNodePtr *getMFSceneNodes() { return set->getMFSceneNodes(); }

    void addLight(const osg::NodePtr &node)
    {
        log.push_back("addLight " + nameOf(node));
        set->addLight(node);
    }
    void addSceneNode(const osg::NodePtr &node)
    {
        log.push_back("addSceneNode " + nameOf(node));
        set->addSceneNode(node);
    }
    void insertLight(const osg::NodePtr &node, osg::Int32 position)
    {
        log.push_back("insertLight " + nameOf(node) + ' ' + std::to_string(position));
        set->insertLight(node, position);
    }
    void insertSceneNode(const osg::NodePtr &node, osg::Int32 position)
    {
        log.push_back("insertSceneNode " + nameOf(node) + ' ' + std::to_string(position));
        set->insertSceneNode(node, position);
    }
    void subLight(const osg::NodePtr &node)
    {
        log.push_back("subLight " + nameOf(node));
        set->subLight(node);
    }
    void subSceneNode(const osg::NodePtr &node)
    {
        log.push_back("subSceneNode " + nameOf(node));
        set->subSceneNode(node);
    }

    Log take() { return std::exchange(log, {}); }

private:
    const osg::LightLinkSetPtr set;
    const std::function<std::string(const osg::NodePtr &)> nameOf;
    Log log;
};

struct OneByOneSetPtr : std::shared_ptr<OneByOneSet>
{
    using ObjectType = OneByOneSet;
    using std::shared_ptr<OneByOneSet>::shared_ptr;
};

static_assert(ksDetail::ksTakesManyNodes<osg::LightLinkSet>);
static_assert(!ksDetail::ksTakesManyNodes<OneByOneSet>);

/// Two link sets: the bundled one, and one that has only the operations on one node.
class ksLinkSetListTest : public ksLightLinkSetFixture
{
protected:
    Ids ids(const std::string &letters) const { return idsOf(nodes(letters)); }

    static Ids idsOf(const std::vector<osg::NodePtr> &nodes)
    {
        Ids result;
        for (const osg::NodePtr &node : nodes)
            result.push_back(node.getFieldContainerId());
        return result;
    }

    const osg::LightLinkSetRefPtr behind{osg::LightLinkSet::create()};
    const OneByOneSetPtr single{new OneByOneSet(behind, [this](const osg::NodePtr &entry) {
        osg::MFNodePtr list;
        list.push_back(entry);
        return letters(list);
    })};
    const ksDetail::ksLinkSetList<osg::LightLinkSetPtr> manyNodes{set, true};
    const ksDetail::ksLinkSetList<osg::LightLinkSetPtr> manyLights{set, false};
    const ksDetail::ksLinkSetList<OneByOneSetPtr> oneNodes{single, true};
    const ksDetail::ksLinkSetList<OneByOneSetPtr> oneLights{single, false};
};

/// Letters of some nodes, each as often as it comes.
rc::Gen<std::string> letters(char end)
{
    return rc::gen::container<std::string>(rc::gen::inRange('A', end));
}

} // namespace

TEST_F(ksLinkSetListTest, IsOneOfTheTwoLists)
{
    set->addLight(node('A'));
    set->addSceneNode(node('B'));
    behind->addLight(node('C'));
    behind->addSceneNode(node('D'));
    EXPECT_EQ(letters(manyLights.nodes()), "A");
    EXPECT_EQ(letters(manyNodes.nodes()), "B");
    EXPECT_EQ(letters(oneLights.nodes()), "C");
    EXPECT_EQ(letters(oneNodes.nodes()), "D");
}

TEST_F(ksLinkSetListTest, KnowsTheFirstPositionOfANode)
{
    oneNodes.add(ids("ABCAB"));
    oneLights.add(ids("D"));
    EXPECT_EQ(oneNodes.positionsOf(ids("CADBA")), (std::vector<osg::Int32>{2, 0, -1, 1, 0}));
    EXPECT_EQ(oneLights.positionsOf(ids("AD")), (std::vector<osg::Int32>{-1, 0}));
    EXPECT_EQ(oneNodes.positionsOf({}), std::vector<osg::Int32>());
}

TEST_F(ksLinkSetListTest, PassesOverNodesThatGoWhileItIsAtWork)
{
    const osg::NodePtr parent = osg::Node::create();
    const osg::NodePtr inner = osg::Node::create();
    parent->addChild(inner);
    oneNodes.add(idsOf({parent, node('A')}));
    const Ids ending = idsOf({parent, inner, node('A')});
    single->take();

    oneNodes.subtract(ending);

    EXPECT_EQ(single->take().size(), 2u);
    EXPECT_TRUE(oneNodes.nodes().empty());
}

TEST_F(ksLinkSetListTest, CallsTheOperationsOnOneNodeInOrder)
{
    oneNodes.add(ids("ABCA"));
    EXPECT_THAT(single->take(),
                testing::ElementsAre("addSceneNode A", "addSceneNode B", "addSceneNode C", "addSceneNode A"));
    oneNodes.subtract(ids("CA"));
    EXPECT_THAT(single->take(), testing::ElementsAre("subSceneNode C", "subSceneNode A"));
    oneNodes.insert(ids("DEF"), {1, -1, 0});
    EXPECT_THAT(single->take(),
                testing::ElementsAre("insertSceneNode D 1", "insertSceneNode E -1", "insertSceneNode F 0"));
    EXPECT_EQ(letters(oneNodes.nodes()), "FBDAE");

    oneLights.add(ids("BA"));
    oneLights.subtract(ids("A"));
    oneLights.insert(ids("C"), {0});
    EXPECT_THAT(single->take(),
                testing::ElementsAre("addLight B", "addLight A", "subLight A", "insertLight C 0"));
    EXPECT_EQ(letters(oneLights.nodes()), "CB");
    EXPECT_EQ(letters(oneNodes.nodes()), "FBDAE");
}

TEST_F(ksLinkSetListTest, ChangesOnlyItsListOfTheBundledSet)
{
    manyNodes.add(ids("ABC"));
    manyLights.add(ids("DEF"));
    manyNodes.subtract(ids("A"));
    manyLights.subtract(ids("F"));
    manyNodes.insert(ids("G"), {0});
    manyLights.insert(ids("H"), {0});
    EXPECT_EQ(letters(*set->getMFSceneNodes()), "GBC");
    EXPECT_EQ(letters(*set->getMFLights()), "HDE");
}

TEST_F(ksLinkSetListTest, EndsOneEditForAllTheNodesOfTheBundledSet)
{
    const long long setId = recorder.idOf(set.get());
    const auto id = [this](char letter) { return recorder.idOf(node(letter)); };
    for (const auto &[list, mask] : {std::pair(manyNodes, osg::LightLinkSet::SceneNodesFieldMask),
                                     {manyLights, osg::LightLinkSet::LightsFieldMask}}) {
        list.add(ids("ABC"));
        forget();
        list.subtract(ids("AC"));
        EXPECT_EQ(recorder.take(), ksRecords().change(setId, mask).subRef(id('A')).subRef(id('C')));
        list.insert(ids("CA"), {0, 0});
        EXPECT_EQ(recorder.take(), ksRecords().addRef(id('C')).addRef(id('A')).change(setId, mask));
        EXPECT_EQ(letters(list.nodes()), "ACB");
    }
}

TEST_F(ksLinkSetListTest, GivesTheSameListWithManyNodesAtOnceAsWithOneAtATime)
{
    const bool passed = rc::check([this] {
        const std::string present = *::letters('A' + nodeCount);
        const std::string leaving = *::letters('A' + nodeCount);
        const std::string coming = *::letters('A' + nodeCount);
        const auto positions = *rc::gen::container<std::vector<osg::Int32>>(
            coming.size(), rc::gen::inRange(-2, static_cast<int>(present.size() + coming.size()) + 2));
        const bool sceneNodes = *rc::gen::arbitrary<bool>();
        const auto &many = sceneNodes ? manyNodes : manyLights;
        const auto &one = sceneNodes ? oneNodes : oneLights;

        many.add(ids(present));
        one.add(ids(present));
        RC_ASSERT(letters(many.nodes()) == present);
        RC_ASSERT(letters(one.nodes()) == present);
        many.subtract(ids(leaving));
        one.subtract(ids(leaving));
        RC_ASSERT(letters(many.nodes()) == letters(one.nodes()));
        many.insert(ids(coming), positions);
        one.insert(ids(coming), positions);
        RC_ASSERT(letters(many.nodes()) == letters(one.nodes()));

        const Ids rest = idsOf(many.nodes().getValues());
        many.subtract(rest);
        one.subtract(rest);
        RC_ASSERT(many.nodes().empty());
        RC_ASSERT(one.nodes().empty());
    });
    EXPECT_TRUE(passed);
}
