// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGLightLinkSet.h>
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <limits>
#include <string>
#include <support/ksRecords.h>
#include <utility>
#include <vector>

namespace {

using namespace osg;

constexpr BitVector Lights = LightLinkSet::LightsFieldMask;
constexpr BitVector SceneNodes = LightLinkSet::SceneNodesFieldMask;
constexpr int NodeCount = 8;

using Nodes = LightLinkSet::Nodes;
using PlacedNodes = LightLinkSet::PlacedNodes;

/// A set (id 1) and nodes A to H (ids 2 to 9), each held once here.
class OSGLightLinkSetTest : public testing::Test
{
protected:
    OSGLightLinkSetTest()
    {
        for (int i = 0; i < NodeCount; ++i)
            held.emplace_back(Node::create());
        recorder.take();
    }
    ~OSGLightLinkSetTest() override
    {
        set = NullFC;
        held.clear();
        recorder.take();
    }

    /// The nodes with these letters; '-' is null.
    Nodes nodes(const std::string &letters) const
    {
        Nodes result;
        for (const char letter : letters)
            result.push_back(letter == '-' ? NodePtr() : held[static_cast<std::size_t>(letter - 'A')].get());
        return result;
    }
    NodePtr node(char letter) const { return nodes({letter}).front(); }

    std::string letters(const MFNodePtr &list) const
    {
        std::string result;
        for (const NodePtr &entry : list)
            result += static_cast<char>('A' + recorder.idOf(entry) - recorder.idOf(held[0].get()));
        return result;
    }

    /// Fills the lists and forgets what that recorded.
    void fill(const std::string &lights, const std::string &sceneNodes)
    {
        for (const NodePtr &light : nodes(lights))
            set->addLight(light);
        for (const NodePtr &sceneNode : nodes(sceneNodes))
            set->addSceneNode(sceneNode);
        recorder.take();
    }

    std::string lights() const { return letters(set->getLights()); }
    std::string sceneNodes() const { return letters(set->getSceneNodes()); }

    ksRecorder recorder;
    LightLinkSetRefPtr set{LightLinkSet::create()};
    std::vector<NodeRefPtr> held;
};

TEST_F(OSGLightLinkSetTest, IsACoreWithTwoLists)
{
    EXPECT_EQ(LightLinkSet::getClassType().getParent(), &NodeCore::getClassType());
    EXPECT_EQ(ksFieldTableOf<LightLinkSet>(),
              (std::vector<std::string>{"lights MFNodePtr = ", "sceneNodes MFNodePtr = "}));
}

TEST_F(OSGLightLinkSetTest, ListsAreIndependent)
{
    fill("AB", "BC");

    EXPECT_TRUE(set->containsLight(node('A')));
    EXPECT_FALSE(set->containsSceneNode(node('A')));
    EXPECT_FALSE(set->containsLight(node('C')));
    EXPECT_TRUE(set->containsSceneNode(node('C')));

    set->subSceneNode(node('B'));
    EXPECT_EQ(lights(), "AB");
    EXPECT_EQ(sceneNodes(), "C");

    set->subLight(node('A'));
    EXPECT_EQ(lights(), "B");
    EXPECT_EQ(sceneNodes(), "C");
}

TEST_F(OSGLightLinkSetTest, ContainsNoNull)
{
    set->getMFLights()->push_back(NullFC);
    set->getMFSceneNodes()->push_back(NullFC);

    EXPECT_FALSE(set->containsLight(NullFC));
    EXPECT_FALSE(set->containsSceneNode(NullFC));
    set->subLight(NullFC);
    set->subLights({NullFC});
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(OSGLightLinkSetTest, InsertsAtThePosition)
{
    fill("ABC", "ABC");

    set->insertLight(node('D'), 1);
    EXPECT_EQ(recorder.take(), ksRecords().change(1, Lights).addRef(5));
    EXPECT_EQ(lights(), "ADBC");

    set->insertSceneNode(node('D'), 0);
    EXPECT_EQ(recorder.take(), ksRecords().change(1, SceneNodes).addRef(5));
    EXPECT_EQ(sceneNodes(), "DABC");
}

TEST_F(OSGLightLinkSetTest, PositionsOutsideTheListAreTheEnd)
{
    constexpr Int32 positions[] = {
        -1, -2, 3, 4, std::numeric_limits<Int32>::max(), std::numeric_limits<Int32>::min()};
    for (const Int32 position : positions) {
        set = LightLinkSet::create();
        fill("ABC", "");

        set->insertLight(node('D'), position);
        EXPECT_EQ(lights(), "ABCD") << position;

        set->insertSceneNodes({{node('E'), position}, {node('F'), position}});
        EXPECT_EQ(sceneNodes(), "EF") << position;
    }
}

TEST_F(OSGLightLinkSetTest, NodeMayBeListedSeveralTimes)
{
    fill("", "ABA");
    EXPECT_EQ(node('A').getRefCount(), 3);

    set->subSceneNode(node('A'));

    EXPECT_EQ(sceneNodes(), "BA");
    EXPECT_EQ(node('A').getRefCount(), 2);
    EXPECT_EQ(recorder.take(), ksRecords().change(1, SceneNodes).subRef(2));
}

TEST_F(OSGLightLinkSetTest, NothingToDoIsNoEdit)
{
    fill("A", "B");

    set->addLight(NullFC);
    set->addSceneNode(NullFC);
    set->insertLight(NullFC, 0);
    set->insertSceneNode(NullFC, 0);
    set->insertLights({{NullFC, 0}});
    set->insertSceneNodes({});
    set->subLight(NullFC);
    set->subLight(node('B'));
    set->subSceneNode(NullFC);
    set->subSceneNode(node('A'));
    set->subLights(nodes("-BC"));
    set->subSceneNodes({});

    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(lights(), "A");
    EXPECT_EQ(sceneNodes(), "B");
}

TEST_F(OSGLightLinkSetTest, ManyNodesAreRemovedInOneEdit)
{
    fill("ABCAB", "ABCAB");

    set->subLights(nodes("B-ADAA"));
    EXPECT_EQ(lights(), "CB");
    EXPECT_EQ(recorder.take(), ksRecords().change(1, Lights).subRef(3).subRef(2).subRef(2));

    set->subSceneNodes(nodes("C"));
    EXPECT_EQ(sceneNodes(), "ABAB");
    EXPECT_EQ(recorder.take(), ksRecords().change(1, SceneNodes).subRef(4));
}

TEST_F(OSGLightLinkSetTest, ManyNodesAreInsertedInOneEdit)
{
    fill("ABC", "ABC");

    set->insertLights({{node('D'), 1}, {NullFC, 0}, {node('E'), 3}, {node('A'), -1}});
    EXPECT_EQ(lights(), "ADBECA");
    EXPECT_EQ(recorder.take(), ksRecords().change(1, Lights).addRef(5).addRef(6).addRef(2));

    set->insertSceneNodes({{node('D'), 3}, {node('E'), 0}, {node('F'), 0}});
    EXPECT_EQ(sceneNodes(), "FEABCD");
    EXPECT_EQ(recorder.take(), ksRecords().change(1, SceneNodes).addRef(5).addRef(6).addRef(7));
}

TEST_F(OSGLightLinkSetTest, WholeListCanBeHandedToItsOwnRemoval)
{
    fill("ABA", "");

    set->subLights(set->getLights().getValues());

    EXPECT_EQ(lights(), "");
    EXPECT_EQ(node('A').getRefCount(), 1);
}

TEST_F(OSGLightLinkSetTest, HandleFromTheListCanBeAddedAgain)
{
    fill("ABC", "");
    set->getMFLights()->getValues().shrink_to_fit();

    set->addLight(set->getLights(1));

    EXPECT_EQ(lights(), "ABCB");
}

TEST_F(OSGLightLinkSetTest, HandleFromTheListCanBeRemoved)
{
    fill("ABC", "");

    set->subLight(set->getLights(1));

    EXPECT_EQ(lights(), "AC");
    EXPECT_EQ(recorder.take(), ksRecords().change(1, Lights).subRef(3));
}

TEST_F(OSGLightLinkSetTest, NodeThatWasTheLastToHoldTheSetMayTakeItAlong)
{
    node('A')->setCore(set.get());
    node('B')->setCore(set.get());
    fill("AB", "");
    set = NullFC;
    const LightLinkSetPtr last = LightLinkSetPtr::dcast(node('A')->getCore());
    held.erase(held.begin(), held.begin() + 2);
    recorder.take();

    last->subLights(last->getLights().getValues());

    EXPECT_EQ(recorder.take().destroyed, (std::vector<long long>{2, 3, 1}));
}

// The operations on one node against a plain vector, and those on many against the ones on one.

using Entries = std::vector<int>;
using PlacedEntries = std::vector<std::pair<int, Int32>>;

/// Sets filled alike, with nodes that only the sets hold after the test.
class Twins
{
public:
    explicit Twins(const Entries &entries)
    {
        for (int i = 0; i < NodeCount; ++i)
            nodes.emplace_back(Node::create());
        for (const LightLinkSetRefPtr *set : {&one, &many})
            for (const int entry : entries)
                (*set)->addSceneNode(node(entry));
        recorder.take();
    }

    /// Null for a negative index.
    NodePtr node(int index) const
    {
        return index < 0 ? NodePtr() : nodes[static_cast<std::size_t>(index)].get();
    }

    Nodes nodesOf(const Entries &entries) const
    {
        Nodes result;
        for (const int entry : entries)
            result.push_back(node(entry));
        return result;
    }

    PlacedNodes nodesOf(const PlacedEntries &entries) const
    {
        PlacedNodes result;
        for (const auto &[entry, position] : entries)
            result.emplace_back(node(entry), position);
        return result;
    }

    /// Compares both sets with \a expected, and what they recorded: the same references in the same order,
    /// \a edits edits of the one set and one of the other.
    void expectSame(const ksRecords &ofOne, const ksRecords &ofMany, const Entries &expected,
                    std::size_t edits) const
    {
        RC_ASSERT(one->getSceneNodes().getValues() == nodesOf(expected));
        RC_ASSERT(many->getSceneNodes().getValues() == nodesOf(expected));
        RC_ASSERT(ofOne.addRefd == ofMany.addRefd);
        RC_ASSERT(ofOne.subRefd == ofMany.subRefd);
        RC_ASSERT(ofOne.changed.size() == edits);
        RC_ASSERT(ofMany.changed.size() == std::min<std::size_t>(edits, 1));
    }

    ksRecorder recorder;
    LightLinkSetRefPtr one{LightLinkSet::create()};
    LightLinkSetRefPtr many{LightLinkSet::create()};

private:
    std::vector<NodeRefPtr> nodes;
};

/// Some of the nodes, null among them if \a first is -1.
rc::Gen<Entries> entriesFrom(int first, int end)
{
    return rc::gen::container<Entries>(rc::gen::inRange(first, end));
}

TEST(OSGLightLinkSet, RemovesManyNodesAsIfOneAfterTheOther)
{
    const bool passed = rc::check([] {
        const Entries present = *entriesFrom(0, NodeCount - 2);
        const Entries leaving = *entriesFrom(-1, NodeCount);
        Twins twins(present);

        Entries expected = present;
        std::size_t edits = 0;
        for (const int entry : leaving) {
            twins.one->subSceneNode(twins.node(entry));
            const auto found = std::find(expected.begin(), expected.end(), entry);
            if (found != expected.end()) {
                expected.erase(found);
                ++edits;
            }
        }
        const ksRecords ofOne = twins.recorder.take();
        twins.many->subSceneNodes(twins.nodesOf(leaving));
        const ksRecords ofMany = twins.recorder.take();

        twins.expectSame(ofOne, ofMany, expected, edits);
    });
    EXPECT_TRUE(passed);
}

TEST(OSGLightLinkSet, InsertsManyNodesAsIfOneAfterTheOther)
{
    const bool passed = rc::check([] {
        const Entries present = *entriesFrom(0, NodeCount);
        const Entries coming = *entriesFrom(-1, NodeCount);
        const int end = static_cast<int>(present.size() + coming.size()) + 3;
        auto positions = *rc::gen::container<std::vector<Int32>>(coming.size(), rc::gen::inRange(-2, end));
        if (*rc::gen::arbitrary<bool>())
            std::sort(positions.begin(), positions.end());
        Twins twins(present);

        Entries expected = present;
        std::size_t edits = 0;
        PlacedEntries placed;
        for (std::size_t i = 0; i < coming.size(); ++i) {
            placed.emplace_back(coming[i], positions[i]);
            twins.one->insertSceneNode(twins.node(coming[i]), positions[i]);
            if (coming[i] >= 0) {
                const auto count = static_cast<Int32>(expected.size());
                const Int32 place = positions[i] < 0 ? count : std::min(positions[i], count);
                expected.insert(expected.begin() + place, coming[i]);
                ++edits;
            }
        }
        const ksRecords ofOne = twins.recorder.take();
        twins.many->insertSceneNodes(twins.nodesOf(placed));
        const ksRecords ofMany = twins.recorder.take();

        twins.expectSame(ofOne, ofMany, expected, edits);
    });
    EXPECT_TRUE(passed);
}

TEST(OSGLightLinkSet, NodesComeBackWhereTheyWere)
{
    const bool passed = rc::check([] {
        Entries present(NodeCount);
        for (int i = 0; i < NodeCount; ++i)
            present[static_cast<std::size_t>(i)] = i;
        const Entries leaving = *rc::gen::unique<Entries>(rc::gen::inRange(0, NodeCount));
        Entries ascending = leaving;
        std::sort(ascending.begin(), ascending.end());
        Twins twins(present);

        twins.many->subSceneNodes(twins.nodesOf(leaving));
        PlacedEntries placed;
        for (const int entry : ascending)
            placed.emplace_back(entry, entry);
        twins.many->insertSceneNodes(twins.nodesOf(placed));

        RC_ASSERT(twins.many->getSceneNodes().getValues() == twins.nodesOf(present));
    });
    EXPECT_TRUE(passed);
}

} // namespace
