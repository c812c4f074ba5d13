// SPDX-License-Identifier: MIT
#include "ksLightLinkSetFixture.h"

#include <ksundo/light/detail/ksLinkSetList.h>

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

/// A link set that has only the operations on one node.
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

    const OneByOneSetPtr single{new OneByOneSet(set, [this](const osg::NodePtr &entry) {
        osg::MFNodePtr list;
        list.push_back(entry);
        return letters(list);
    })};
    const ksDetail::ksLinkSetList<OneByOneSetPtr> sceneNodes{single, true};
    const ksDetail::ksLinkSetList<OneByOneSetPtr> lights{single, false};
};

} // namespace

TEST_F(ksLinkSetListTest, PassesOverNodesThatGoWhileItIsAtWork)
{
    const osg::NodePtr parent = osg::Node::create();
    const osg::NodePtr inner = osg::Node::create();
    parent->addChild(inner);
    sceneNodes.add(idsOf({parent, node('A')}));
    const Ids ending = idsOf({parent, inner, node('A')});
    single->take();

    sceneNodes.subtract(ending);

    EXPECT_EQ(single->take().size(), 2u);
    EXPECT_TRUE(sceneNodes.nodes().empty());
}

TEST_F(ksLinkSetListTest, CallsTheOperationsOnOneNodeInOrder)
{
    sceneNodes.add(ids("ABCA"));
    EXPECT_THAT(single->take(),
                testing::ElementsAre("addSceneNode A", "addSceneNode B", "addSceneNode C", "addSceneNode A"));
    sceneNodes.subtract(ids("CA"));
    EXPECT_THAT(single->take(), testing::ElementsAre("subSceneNode C", "subSceneNode A"));
    sceneNodes.insert(ids("DEF"), {1, -1, 0});
    EXPECT_THAT(single->take(),
                testing::ElementsAre("insertSceneNode D 1", "insertSceneNode E -1", "insertSceneNode F 0"));
    EXPECT_EQ(letters(sceneNodes.nodes()), "FBDAE");

    lights.add(ids("BA"));
    lights.subtract(ids("A"));
    lights.insert(ids("C"), {0});
    EXPECT_THAT(single->take(),
                testing::ElementsAre("addLight B", "addLight A", "subLight A", "insertLight C 0"));
    EXPECT_EQ(letters(lights.nodes()), "CB");
    EXPECT_EQ(letters(sceneNodes.nodes()), "FBDAE");
}
