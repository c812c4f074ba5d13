// SPDX-License-Identifier: MIT
#include "ksLightLinkSetFixture.h"

#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <rapidcheck.h>

#include <algorithm>
#include <limits>
#include <support/ksErrorLines.h>

namespace {

using Command = ksAddNodeToLightLinkSetUndoCommand;

constexpr const char *refusal = "Cannot add Root to Light Link Set.";

/// A list of the link set, by the number that selects it.
enum class List : unsigned int
{
    SceneNodes = 1,
    Lights = 3
};

/// Commands on one of the two lists.
class ksAddNodeToLightLinkSetUndoCommandTest : public ksLightLinkSetFixture,
                                               public testing::WithParamInterface<List>
{
protected:
    static unsigned int selector() { return static_cast<unsigned int>(GetParam()); }
    static bool isLights() { return GetParam() == List::Lights; }
    static osg::BitVector mask()
    {
        return isLights() ? osg::LightLinkSet::LightsFieldMask : osg::LightLinkSet::SceneNodesFieldMask;
    }

    std::string listed() const { return letters(isLights() ? set->getLights() : set->getSceneNodes()); }
    std::string other() const { return letters(isLights() ? set->getSceneNodes() : set->getLights()); }

    /// Appends nodes to the list, and forgets what that recorded.
    void fill(const std::string &letters)
    {
        for (const osg::NodePtr &entry : nodes(letters))
            isLights() ? set->addLight(entry) : set->addSceneNode(entry);
        forget();
    }

    /// Takes all nodes out of the list.
    void clear()
    {
        for (const char letter : listed())
            isLights() ? set->subLight(node(letter)) : set->subSceneNode(node(letter));
    }

    Command add(const std::string &letters) const { return Command(set, nodes(letters), selector(), false); }
    Command remove(const std::string &letters) const
    {
        return Command(set, nodes(letters), selector(), true);
    }

    /// Expects that \a command makes \a after of \a before, and the opposite, however often.
    void expectSteps(Command &command, const std::string &before, const std::string &after)
    {
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(listed(), before);
            command.redo();
            EXPECT_EQ(listed(), after);
            command.undo();
        }
        EXPECT_EQ(listed(), before);
    }

    long long setId() const { return recorder.idOf(set.get()); }
    long long idOf(char letter) const { return recorder.idOf(node(letter)); }
};

/// Instances and what they may be replaced by, in the list of lights.
class ksLightInstances : public ksLightLinkSetFixture
{
protected:
    static constexpr osg::UInt32 instance = 0x2;
    static constexpr osg::UInt32 excluded = 0x1000;

    /// A node with the core of A, or another one.
    osg::NodePtr twin(osg::UInt32 externalFlags = 0, osg::UInt32 internalFlags = 0, char letter = 'A')
    {
        const osg::NodePtr result = nodeWith(node(letter)->getCore());
        result->setExternalFlags(externalFlags);
        result->setInternalFlags(internalFlags);
        twins.emplace_back(result);
        return result;
    }

    osg::NodePtr twinBelow(const osg::NodePtr &parent, osg::UInt32 externalFlags = 0,
                           osg::UInt32 internalFlags = 0)
    {
        const osg::NodePtr result = twin(externalFlags, internalFlags);
        append(parent, result);
        return result;
    }

    /// What adding A to a list of the set puts there.
    std::vector<osg::NodePtr> addedFor(osg::NodePtr given, unsigned int list = 3)
    {
        Command command(set, given, list, false);
        command.redo();
        const std::vector<osg::NodePtr> result =
            (list == 3 ? set->getMFLights() : set->getMFSceneNodes())->getValues();
        command.undo();
        EXPECT_TRUE(set->getLights().empty() && set->getSceneNodes().empty());
        return result;
    }

    std::vector<osg::NodeRefPtr> twins;
};

using ksLightLinkSetCommands = ksLightLinkSetFixture;

/// What a list and a command on it should be, with numbers for nodes.
struct Model
{
    std::vector<int> list;
    std::vector<int> given;
    std::vector<int> positions;

    void remember(int node, bool removing)
    {
        const auto found = std::find(list.begin(), list.end(), node);
        if (!removing && found != list.end())
            return;
        if (removing)
            positions.push_back(found == list.end() ? -1 : static_cast<int>(found - list.begin()));
        given.push_back(node);
    }

    void subtract()
    {
        for (const int node : given) {
            const auto found = std::find(list.begin(), list.end(), node);
            if (found != list.end())
                list.erase(found);
        }
    }

    void add()
    {
        for (std::size_t i = 0; i < given.size(); ++i) {
            const int end = static_cast<int>(list.size());
            const int position = i < positions.size() && positions[i] >= 0 ? positions[i] : end;
            list.insert(list.begin() + std::min(position, end), given[i]);
        }
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksAddNodeToLightLinkSetUndoCommandTest,
                         testing::Values(List::SceneNodes, List::Lights), [](const auto &info) {
                             return info.param == List::Lights ? "lights" : "sceneNodes";
                         });

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, AddsAndRemovesNodes)
{
    struct Case
    {
        const char *listed;
        bool removing;
        const char *given;
        const char *done;
        const char *undone;
    };
    for (const Case &each : {Case{"AB", false, "EDC", "ABEDC", "AB"},
                             {"ABC", false, "BDA", "ABCD", "ABC"},     // what is listed is not added
                             {"A", false, "BCB", "ABCB", "A"},         // what is given twice is
                             {"ABCDE", true, "BD", "ACE", "ABCDE"},    // back to positions 1 and 3
                             {"ABCDE", true, "DB", "ACE", "ABCED"},    // D at 3 in ACE, then B at 1
                             {"ABCDE", true, "ABCDE", "", "ABCDE"},    // positions of the list as it was
                             {"AB", true, "C", "AB", "ABC"},           // what was not listed goes to the end
                             {"ABC", true, "FBGA", "C", "ACBFG"},      // CF, CBF, CBFG, ACBFG
                             {"CBAABA", true, "A", "CBABA", "CBAABA"}, // the first entry goes
                             {"CBAABA", true, "AA", "CBBA", "CBAABA"}, // the first two
                             {"CBAABA", true, "BBB", "CAAA", "CBBBAAA"}}) { // all to the first position
        SCOPED_TRACE(std::string(each.listed) + (each.removing ? " - " : " + ") + each.given);
        clear();
        fill(each.listed);
        Command command = each.removing ? remove(each.given) : add(each.given);
        EXPECT_EQ(listed(), each.listed) << "nothing happens before the command runs";
        command.redo();
        EXPECT_EQ(listed(), each.done);
        command.undo();
        EXPECT_EQ(listed(), each.undone);
        EXPECT_EQ(other(), "");
    }
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, AddsAndRemovesOneNode)
{
    fill("AB");
    Command adding(set, node('C'), selector(), false);
    expectSteps(adding, "AB", "ABC");
    Command removing(set, node('A'), selector(), true);
    expectSteps(removing, "AB", "B");
    Command idle(set, node('B'), selector(), false);
    expectIdle(idle);
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, TakesPositionsFromTheListAsItWasWhenBuilt)
{
    fill("ABCDE");
    Command late = remove("C");
    fill("F");
    isLights() ? set->subLight(node('A')) : set->subSceneNode(node('A'));
    late.redo();
    EXPECT_EQ(listed(), "BDEF");
    late.undo();
    EXPECT_EQ(listed(), "BDCEF");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, LooksForANodeInItsOwnListOnly)
{
    isLights() ? set->addSceneNode(node('A')) : set->addLight(node('A'));
    Command adding = add("A");
    expectSteps(adding, "", "A");
    EXPECT_EQ(other(), "A");
    fill("BCA");
    Command removing = remove("A");
    expectSteps(removing, "BCA", "BC");
    EXPECT_EQ(other(), "A");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, DoesNotAskAgainWhetherANodeIsListed)
{
    Command command = add("AB");
    fill("B");
    command.redo();
    EXPECT_EQ(listed(), "BAB");
    command.undo();
    EXPECT_EQ(listed(), "B") << "the first entry goes";
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RefusesTheRootEveryTimeAndAddsTheOthers)
{
    ksErrorLines errors;
    Command command = add("A/B/");
    EXPECT_THAT(errors.take(), testing::ElementsAre(refusal, refusal));
    expectSteps(command, "", "AB");
    EXPECT_THAT(errors.take(), testing::IsEmpty()) << "only said when the command is built";
    root->setExternalFlags(0x2);
    Command commands[] = {add("/"), remove("/"), Command(set, root, selector(), false)};
    EXPECT_THAT(errors.take(), testing::ElementsAre(refusal, refusal, refusal)) << "also as an instance";
    for (Command &each : commands)
        expectIdle(each);
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, TakesTheRootOfAScene)
{
    ksErrorLines errors;
    Command command(set, sceneRoot, selector(), false);
    EXPECT_THAT(errors.take(), testing::IsEmpty());
    expectSteps(command, "", "?");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RefusesNothingWithoutARoot)
{
    ksOpenSGUtils::setRoot(osg::NullFC);
    ksErrorLines errors;
    Command command = add("A-/");
    EXPECT_THAT(errors.take(), testing::IsEmpty());
    expectSteps(command, "", "A?");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, SkipsNullNodes)
{
    fill("ABCD");
    ksErrorLines errors;
    Command adding = add("-E--F-");
    expectSteps(adding, "ABCD", "ABCDEF");
    Command removing = remove("-B--D-");
    expectSteps(removing, "ABCD", "AC");
    Command nothing = add("--");
    expectIdle(nothing);
    Command empty = remove("");
    expectIdle(empty);
    Command single(set, osg::NullFC, selector(), true);
    expectIdle(single);
    EXPECT_THAT(errors.take(), testing::IsEmpty());
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, DoesNotMindTheRootWithoutASet)
{
    ksErrorLines errors;
    Command single(osg::NullFC, root, selector(), false);
    Command many(osg::NullFC, nodes("A/"), selector(), true);
    EXPECT_THAT(errors.take(), testing::IsEmpty()) << "there is nothing to add the root to";
    expectIdle(single);
    expectIdle(many);
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, PassesOverNodesThatHaveGoneAndKeepsThePositionsOfTheOthers)
{
    fill("ABCDE");
    Command command = remove("BCD");
    command.redo();
    EXPECT_EQ(listed(), "AE");
    takeOut(node('C'));
    at('C') = osg::NullFC;
    command.undo();
    EXPECT_EQ(listed(), "ABED") << "B at 1, D at 3";
    takeOut(node('B'));
    command.redo();
    EXPECT_EQ(listed(), "AE");
    at('B') = osg::NullFC;
    command.undo();
    EXPECT_EQ(listed(), "AED");
    Command adding = add("FGH");
    takeOut(node('G'));
    at('G') = osg::NullFC;
    expectSteps(adding, "AED", "AEDFH");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RemovesAsWellWhenUndoComesFirst)
{
    fill("ABC");
    Command adding = add("D");
    adding.undo();
    EXPECT_EQ(listed(), "ABC");
    fill("D");
    adding.undo();
    EXPECT_EQ(listed(), "ABC");
    Command removing = remove("B");
    removing.undo();
    EXPECT_EQ(listed(), "ABBC");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RecordsEachOfAHandfulOfNodes)
{
    fill("A");
    Command command = add("BC");
    EXPECT_EQ(recorder.take(), ksRecords());
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_EQ(
            recorder.take(),
            ksRecords().addRef(idOf('B')).change(setId(), mask()).addRef(idOf('C')).change(setId(), mask()));
        command.undo();
        EXPECT_EQ(
            recorder.take(),
            ksRecords().change(setId(), mask()).subRef(idOf('B')).change(setId(), mask()).subRef(idOf('C')));
    }
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RemovesAndPutsBackManyNodesInOneEdit)
{
    fill("ABCDEFGHIJKL");
    const std::string many = "KBDFHJIGC";
    Command command = remove(many);
    recorder.take();
    for (int i = 0; i < 2; ++i) {
        ksRecords released;
        ksRecords taken;
        for (const char letter : many) {
            released.subRef(idOf(letter));
            taken.addRef(idOf(letter));
        }
        command.redo();
        EXPECT_EQ(recorder.take(), released.change(setId(), mask()));
        EXPECT_EQ(listed(), "AEL");
        command.undo();
        EXPECT_EQ(recorder.take(), taken.change(setId(), mask()));
    }
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, LetsANodeGoThatOnlyTheListHeld)
{
    fill("AB");
    Command command = remove("BB");
    takeOut(node('B'));
    at('B') = osg::NullFC;
    command.redo();
    EXPECT_EQ(listed(), "A");
    expectIdle(command);
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, DoesWhatOneNodeAfterTheOtherWouldGive)
{
    const bool passed = rc::check([this] {
        const auto some = rc::gen::container<std::vector<int>>(rc::gen::inRange(0, nodeCount));
        const auto lettersOf = [](const std::vector<int> &numbers) {
            std::string result;
            for (const int number : numbers)
                result += static_cast<char>('A' + number);
            return result;
        };
        const bool removing = *rc::gen::arbitrary<bool>();
        Model model;
        model.list = *some;
        fill(lettersOf(model.list));
        const std::vector<int> given = *some;
        Command command(set, nodes(lettersOf(given)), selector(), removing);
        for (const int number : given)
            model.remember(number, removing);

        for (int i = 0; i < 4; ++i) {
            const bool isRedo = *rc::gen::arbitrary<bool>();
            isRedo ? command.redo() : command.undo();
            isRedo == removing ? model.subtract() : model.add();
            RC_ASSERT(listed() == lettersOf(model.list));
            const std::vector<int> late = *rc::gen::resize(2, some);
            fill(lettersOf(late));
            model.list.insert(model.list.end(), late.begin(), late.end());
        }
        clear();
    });
    EXPECT_TRUE(passed);
}

TEST_F(ksLightInstances, AreReplacedByTheOneNodeThatQualifies)
{
    node('A')->setExternalFlags(instance);
    const osg::NodePtr original = twinBelow(node('B'));
    EXPECT_THAT(addedFor(node('A')), testing::ElementsAre(original));
}

TEST_F(ksLightInstances, AreReplacedCoreByCore)
{
    const osg::NodePtr first = twinBelow(node('B'));
    const osg::NodePtr second = twin(0, 0, 'C');
    append(node('B'), second);
    node('A')->setExternalFlags(instance);
    node('C')->setExternalFlags(instance);
    Command(set, nodes("ACDA"), 3, false).redo();
    EXPECT_THAT(set->getLights().getValues(), testing::ElementsAre(first, second, node('D'), first));
}

TEST_F(ksLightInstances, AreReplacedWhateverOtherFlagsTheyAndTheOthersHave)
{
    node('A')->setExternalFlags(~0u);
    node('A')->setInternalFlags(~0u);
    const osg::NodePtr original = twinBelow(node('B'), ~instance, ~excluded);
    EXPECT_THAT(addedFor(node('A')), testing::ElementsAre(original));
}

TEST_F(ksLightInstances, AreLeftOutWithoutACore)
{
    const osg::NodeRefPtr coreless(osg::Node::create());
    append(sceneRoot, coreless);
    coreless->setExternalFlags(instance);
    EXPECT_THAT(addedFor(coreless), testing::IsEmpty());
    coreless->setExternalFlags(0);
    EXPECT_THAT(addedFor(coreless), testing::ElementsAre(coreless.get()));
}

TEST_F(ksLightInstances, AreLeftOutWhenSeveralNodesQualify)
{
    node('A')->setExternalFlags(instance);
    twinBelow(sceneRoot);
    twinBelow(node('B'));
    EXPECT_THAT(addedFor(node('A')), testing::IsEmpty());
    twinBelow(node('C'));
    EXPECT_THAT(addedFor(node('A')), testing::IsEmpty()) << "nor with an odd number";
}

TEST_F(ksLightInstances, AreNotReplacedByExcludedNodesNorByOtherInstances)
{
    node('A')->setExternalFlags(instance);
    twinBelow(sceneRoot, 0, excluded);
    twinBelow(sceneRoot, instance);
    EXPECT_THAT(addedFor(node('A')), testing::IsEmpty());
    const osg::NodePtr original = twinBelow(sceneRoot);
    EXPECT_THAT(addedFor(node('A')), testing::ElementsAre(original));
}

TEST_F(ksLightInstances, AreNotReplacedByNodesThatAreNotBelowTheSceneRoot)
{
    node('A')->setExternalFlags(instance);
    twin();
    twinBelow(root);
    EXPECT_THAT(addedFor(node('A')), testing::IsEmpty());
    const osg::NodePtr original = twinBelow(node('H'));
    EXPECT_THAT(addedFor(node('A')), testing::ElementsAre(original));
    ksSceneDataManager::setSceneRoot(0, original);
    EXPECT_THAT(addedFor(node('A')), testing::IsEmpty()) << "the root of the scene is not below itself";
}

TEST_F(ksLightInstances, AreLeftOutWithoutAScene)
{
    node('A')->setExternalFlags(instance);
    twinBelow(sceneRoot);
    ksSceneDataManager::setSceneRoot(0, osg::NullFC);
    ksSceneDataManager::setSceneRoot(1, sceneRoot);
    EXPECT_THAT(addedFor(node('A')), testing::IsEmpty());
    ksSceneDataManager::setSceneRoot(1, osg::NullFC);
}

TEST_F(ksLightInstances, MayBeOutsideTheScene)
{
    const osg::NodePtr outside = twin(instance);
    EXPECT_THAT(addedFor(outside), testing::ElementsAre(node('A')));
}

TEST_F(ksLightInstances, AreReplacedAlsoWhenTheyAreRemoved)
{
    node('A')->setExternalFlags(instance);
    const osg::NodePtr original = twinBelow(sceneRoot);
    for (const osg::NodePtr &light : {node('B'), original, node('A')})
        set->addLight(light);
    Command command(set, nodes("A"), 3, true);
    command.redo();
    EXPECT_THAT(set->getLights().getValues(), testing::ElementsAre(node('B'), node('A')));
    command.undo();
    EXPECT_THAT(set->getLights().getValues(), testing::ElementsAre(node('B'), original, node('A')));
}

TEST_F(ksLightInstances, AreLeftOutWhenWhatReplacesThemIsListed)
{
    node('A')->setExternalFlags(instance);
    const osg::NodePtr original = twinBelow(sceneRoot);
    set->addLight(original);
    Command command(set, nodes("A"), 3, false);
    expectIdle(command);
    set->subLight(original);
    set->addLight(node('A'));
    Command other(set, nodes("A"), 3, false);
    other.redo();
    EXPECT_THAT(set->getLights().getValues(), testing::ElementsAre(node('A'), original));
}

TEST_F(ksLightInstances, DoNotKeepTheOthersFromBeingAdded)
{
    node('B')->setExternalFlags(instance);
    Command command(set, nodes("ABC"), 3, false);
    command.redo();
    EXPECT_EQ(letters(set->getLights()), "AC");
    command.undo();
    EXPECT_EQ(letters(set->getLights()), "");
}

TEST_F(ksLightInstances, StayAsTheyAreInTheListOfSceneNodes)
{
    node('A')->setExternalFlags(instance);
    twinBelow(sceneRoot);
    EXPECT_THAT(addedFor(node('A'), 1), testing::ElementsAre(node('A')));
    EXPECT_THAT(addedFor(node('A'), 0), testing::ElementsAre(node('A')));
}

TEST_F(ksLightInstances, AreReplacedOnceAndForAllWhenTheCommandIsBuilt)
{
    node('A')->setExternalFlags(instance);
    const osg::NodePtr original = twinBelow(sceneRoot);
    Command command(set, nodes("A"), 3, false);
    node('A')->setExternalFlags(0);
    takeOut(original);
    command.redo();
    EXPECT_THAT(set->getLights().getValues(), testing::ElementsAre(original));
}

TEST_F(ksLightLinkSetCommands, TakeListSelector3ForTheLightsAndAnyOtherForTheSceneNodes)
{
    for (const unsigned int selector :
         {0u, 1u, 2u, 3u, 4u, 0x103u, std::numeric_limits<unsigned int>::max()}) {
        Command one(set, node('A'), selector, false);
        Command many(set, nodes("BC"), selector, false);
        one.redo();
        many.redo();
        EXPECT_EQ(letters(set->getLights()), selector == 3 ? "ABC" : "") << selector;
        EXPECT_EQ(letters(set->getSceneNodes()), selector == 3 ? "" : "ABC") << selector;
        many.undo();
        one.undo();
        EXPECT_TRUE(set->getLights().empty() && set->getSceneNodes().empty());
    }
}
