// SPDX-License-Identifier: MIT
#include "ksLightLinkSetFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/light/ksAddNodeAsVisibilityReferenceUndoCommand.h>
#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <rapidcheck.h>

#include <algorithm>
#include <limits>
#include <support/ksEchoTranslator.h>
#include <support/ksErrorLines.h>
#include <support/ksSlotSwap.h>
#include <support/ksVirtualSlot.h>
#include <thread>

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

    /// A node with the core of A.
    osg::NodePtr twin(osg::UInt32 externalFlags = 0, osg::UInt32 internalFlags = 0)
    {
        const osg::NodePtr result = nodeWith(node('A')->getCore());
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

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, AppendsTheNodesInTheirOrder)
{
    fill("AB");
    Command command = add("EDC");
    expectSteps(command, "AB", "ABEDC");
    EXPECT_EQ(other(), "");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, AppendsOneNode)
{
    fill("AB");
    Command command(set, node('C'), selector(), false);
    expectSteps(command, "AB", "ABC");
    EXPECT_EQ(other(), "");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RemovesOneNodeAndPutsItBack)
{
    fill("ABC");
    Command command(set, node('A'), selector(), true);
    expectSteps(command, "ABC", "BC");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, PutsNodesFromPositions1And3BackThere)
{
    fill("ABCDE");
    Command command = remove("BD");
    expectSteps(command, "ABCDE", "ACE");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, PutsNodesBackOneAfterTheOtherInTheOrderGiven)
{
    fill("ABCDE");
    Command command = remove("DB");
    command.redo();
    EXPECT_EQ(listed(), "ACE");
    command.undo();
    EXPECT_EQ(listed(), "ABCED") << "D at 3 in ACE, then B at 1";
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, TakesAllPositionsFromTheListAsItWasWhenBuilt)
{
    fill("ABCDE");
    Command command = remove("ABCDE");
    expectSteps(command, "ABCDE", "");
    Command late = remove("C");
    fill("F");
    isLights() ? set->subLight(node('A')) : set->subSceneNode(node('A'));
    late.redo();
    EXPECT_EQ(listed(), "BDEF");
    late.undo();
    EXPECT_EQ(listed(), "BDCEF");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, AddsNothingForANodeThatIsListed)
{
    fill("ABC");
    Command command = add("BDA");
    expectSteps(command, "ABC", "ABCD");
    Command idle(set, node('B'), selector(), false);
    expectIdle(idle);
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

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, AddsANodeThatIsGivenTwiceTwice)
{
    fill("A");
    Command command = add("BCB");
    expectSteps(command, "A", "ABCB");
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

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, AppendsANodeThatWasNotListedWhenItsRemovalIsUndone)
{
    fill("AB");
    Command command = remove("C");
    command.redo();
    EXPECT_EQ(listed(), "AB");
    command.undo();
    EXPECT_EQ(listed(), "ABC") << "-1 means the end";
    command.redo();
    EXPECT_EQ(listed(), "AB");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, PutsListedAndUnlistedNodesBackTogether)
{
    fill("ABC");
    Command command = remove("FBGA");
    command.redo();
    EXPECT_EQ(listed(), "C");
    command.undo();
    EXPECT_EQ(listed(), "ACBFG") << "CF, CBF, CBFG, ACBFG";
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RemovesTheFirstEntryOfEachNodeAsOftenAsItIsGiven)
{
    fill("CBAABA");
    Command once = remove("A");
    expectSteps(once, "CBAABA", "CBABA");
    Command twice = remove("AA");
    expectSteps(twice, "CBAABA", "CBBA");
    Command often = remove("BBB");
    often.redo();
    EXPECT_EQ(listed(), "CAAA");
    often.undo();
    EXPECT_EQ(listed(), "CBBBAAA");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RefusesTheRootOnceAndAddsTheOthers)
{
    ksErrorLines errors;
    Command command = add("A/B");
    EXPECT_THAT(errors.take(), testing::ElementsAre(refusal));
    expectSteps(command, "", "AB");
    EXPECT_THAT(errors.take(), testing::IsEmpty()) << "only said when the command is built";
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RefusesTheRootEveryTimeAndEverywhere)
{
    ksErrorLines errors;
    Command twice = add("//");
    EXPECT_THAT(errors.take(), testing::ElementsAre(refusal, refusal));
    expectIdle(twice);
    Command removing = remove("/");
    EXPECT_THAT(errors.take(), testing::ElementsAre(refusal));
    expectIdle(removing);
    Command single(set, root, selector(), false);
    EXPECT_THAT(errors.take(), testing::ElementsAre(refusal));
    expectIdle(single);
    EXPECT_EQ(single.text(), QStringLiteral("Add Node to Light Link Set"));
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RefusesTheRootAlsoAsAnInstance)
{
    root->setExternalFlags(0x2);
    ksErrorLines errors;
    Command command = add("/");
    EXPECT_THAT(errors.take(), testing::ElementsAre(refusal));
    expectIdle(command);
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

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, IsIdleWithoutASet)
{
    ksErrorLines errors;
    for (const bool removing : {false, true}) {
        Command single(osg::NullFC, node('A'), selector(), removing);
        expectIdle(single);
        Command many(osg::NullFC, nodes("AB/"), selector(), removing);
        expectIdle(many);
        Command nothing(osg::NullFC, osg::NodePtr(osg::NullFC), selector(), removing);
        expectIdle(nothing);
    }
    EXPECT_THAT(errors.take(), testing::IsEmpty()) << "there is nothing to add the root to";
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

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, PassesOverIdsThatNameAnotherKindOfContainer)
{
    fill("AB");
    Command adding = add("CDE");
    Command removing = remove("AB");
    for (const osg::FieldContainerPtr &other :
         {osg::FieldContainerPtr(node('C')->getCore()), osg::FieldContainerPtr()}) {
        const ksSlotSwap swap(node('D').getFieldContainerId(), other);
        expectSteps(adding, "AB", "ABCE");
        const ksSlotSwap swapA(node('A').getFieldContainerId(), other);
        expectSteps(removing, "AB", "A");
    }
    expectSteps(adding, "AB", "ABCDE");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, IsIdleWhileTheSetsIdNamesAnotherKindOfContainer)
{
    fill("AB");
    Command adding = add("C");
    Command removing = remove("A");
    for (const osg::FieldContainerPtr &other :
         {osg::FieldContainerPtr(node('C')->getCore()), osg::FieldContainerPtr(node('D')),
          osg::FieldContainerPtr()}) {
        const ksSlotSwap swap(set.get().getFieldContainerId(), other);
        expectIdle(adding);
        expectIdle(removing);
    }
    expectSteps(adding, "AB", "ABC");
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, IsIdleWhenTheSetHasGone)
{
    fill("AB");
    Command fresh = add("C");
    Command applied = remove("B");
    applied.redo();
    Command undone = add("D");
    undone.redo();
    undone.undo();
    set = osg::NullFC;
    for (Command *command : {&fresh, &applied, &undone})
        expectIdle(*command);
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

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RecordsEachAdditionAndOneRemoval)
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
        EXPECT_EQ(recorder.take(), ksRecords().change(setId(), mask()).subRef(idOf('B')).subRef(idOf('C')));
    }
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, RecordsOneRemovalAndOneReturn)
{
    fill("ABC");
    Command command = remove("CAD");
    EXPECT_EQ(recorder.take(), ksRecords());
    command.redo();
    EXPECT_EQ(recorder.take(), ksRecords().change(setId(), mask()).subRef(idOf('C')).subRef(idOf('A')));
    command.undo();
    EXPECT_EQ(recorder.take(),
              ksRecords().addRef(idOf('C')).addRef(idOf('A')).addRef(idOf('D')).change(setId(), mask()));
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, CallsTheHandlerOfTheSetForEachEdit)
{
    ksHandlerCalls calls([this] { return listed(); });
    const osg::UInt32 id = set.get().getFieldContainerId();
    Command command = add("AB");
    forget();
    command.redo();
    EXPECT_THAT(calls.take(), testing::ElementsAre(ksHandlerCall{id, mask(), 1, 1, "A"},
                                                   ksHandlerCall{id, mask(), 1, 2, "AB"}));
    forget();
    command.undo();
    EXPECT_THAT(calls.take(), testing::ElementsAre(ksHandlerCall{id, mask(), 1, 1, ""}));

    osg::FieldContainerPtr::_ignore_change = true;
    forget();
    command.redo();
    EXPECT_THAT(calls.take(), testing::IsEmpty());
    EXPECT_EQ(recorder.take().changed.size(), 2u);
    osg::FieldContainerPtr::_ignore_change = false;

    std::thread([&command] { command.undo(); }).join();
    EXPECT_THAT(calls.take(), testing::ElementsAre(ksHandlerCall{id, mask(), 1, 0, ""}));
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, ReachesTheOtherAspect)
{
    add("ABCD").redo();
    expectAspectsInStep();
    Command adding = add("EF");
    Command removing = remove("DBG");
    for (Command *command : {&adding, &removing}) {
        command->redo();
        EXPECT_NE(scene(1), scene());
        expectAspectsInStep();
        command->undo();
        EXPECT_NE(scene(1), scene());
        expectAspectsInStep();
    }
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, HoldsNoReference)
{
    fill("A");
    const int held = countOf(node('A'));
    const int loose = countOf(node('B'));
    {
        Command removing = remove("A");
        Command adding = add("B");
        EXPECT_EQ(countOf(set.get()), 1);
        EXPECT_EQ(countOf(node('A')), held);
        EXPECT_EQ(countOf(node('B')), loose);
        removing.redo();
        adding.redo();
        EXPECT_EQ(countOf(node('A')), held - 1);
        EXPECT_EQ(countOf(node('B')), loose + 1) << "which the set holds";
        removing.undo();
        adding.undo();
        EXPECT_EQ(countOf(node('A')), held);
        EXPECT_EQ(countOf(node('B')), loose);
        forget();
    }
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(countOf(node('A')), held);
    EXPECT_EQ(countOf(set.get()), 1);
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

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, HasTheseTextsUntranslated)
{
    const ksEchoTranslator translator;
    for (const bool removing : {false, true}) {
        EXPECT_EQ(Command(set, nodes("A"), selector(), removing).text(),
                  QStringLiteral("Add Nodes to Light Link Set"));
        EXPECT_EQ(Command(set, node('A'), selector(), removing).text(),
                  QStringLiteral("Add Node to Light Link Set"));
        EXPECT_EQ(Command(osg::NullFC, nodes(""), selector(), removing).text(),
                  QStringLiteral("Add Nodes to Light Link Set"));
        EXPECT_EQ(Command(osg::NullFC, node('-'), selector(), removing).text(),
                  QStringLiteral("Add Node to Light Link Set"));
    }
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, AlwaysTellsTheIdOfTheSet)
{
    const std::string id = "id=int:" + std::to_string(Command::commandId()) + " lightlinkset=uint:";
    const std::string setText = std::to_string(set.get().getFieldContainerId());
    EXPECT_EQ(ksMessageOf(add("A")), id + setText);
    EXPECT_EQ(ksMessageOf(Command(set, osg::NodePtr(), selector(), true)), id + setText);
    EXPECT_EQ(ksMessageOf(Command(osg::NullFC, node('A'), selector(), false)), id + '0');
    EXPECT_EQ(ksMessageOf(Command(osg::NullFC, nodes("AB"), selector(), true)), id + '0');
    const Command command = add("B");
    set = osg::NullFC;
    EXPECT_EQ(ksMessageOf(command), id + setText);
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, BelongsToItsParent)
{
    QUndoCommand parent;
    const auto *many = new Command(set, nodes("A"), selector(), false, &parent);
    const auto *one = new Command(set, node('A'), selector(), false, &parent);
    ASSERT_EQ(parent.childCount(), 2);
    EXPECT_EQ(parent.child(0), many);
    EXPECT_EQ(parent.child(1), one);
}

TEST_P(ksAddNodeToLightLinkSetUndoCommandTest, NeverMerges)
{
    Command older = add("A");
    Command newer = add("A");
    expectNoMerge(older, newer);

    ksUndoStack stack;
    for (const char letter : {'A', 'B', 'C'}) {
        auto *command = new Command(set, node(letter), selector(), false);
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 3);
    stack.undo();
    EXPECT_EQ(listed(), "AB");
    stack.undo();
    EXPECT_EQ(listed(), "A");
    stack.redo();
    EXPECT_EQ(listed(), "AB");
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
        for (const char letter : listed())
            isLights() ? set->subLight(node(letter)) : set->subSceneNode(node(letter));
    });
    EXPECT_TRUE(passed);
}

TEST_F(ksLightInstances, AreReplacedByTheOneNodeThatQualifies)
{
    node('A')->setExternalFlags(instance);
    const osg::NodePtr original = twinBelow(node('B'));
    EXPECT_THAT(addedFor(node('A')), testing::ElementsAre(original));
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

TEST_F(ksLightInstances, AreLeftOutWhenNothingElseSharesTheCore)
{
    node('A')->setExternalFlags(instance);
    EXPECT_THAT(addedFor(node('A')), testing::IsEmpty());
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

TEST_F(ksLightInstances, AreNotReplacedByExcludedNodes)
{
    node('A')->setExternalFlags(instance);
    twinBelow(sceneRoot, 0, excluded);
    EXPECT_THAT(addedFor(node('A')), testing::IsEmpty());
    const osg::NodePtr original = twinBelow(sceneRoot);
    EXPECT_THAT(addedFor(node('A')), testing::ElementsAre(original));
}

TEST_F(ksLightInstances, AreNotReplacedByOtherInstances)
{
    node('A')->setExternalFlags(instance);
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

TEST_F(ksLightLinkSetCommands, HaveTheIdOfTheirClass)
{
    const Command one(set, node('A'), 1, false);
    const Command many(set, nodes("BC"), 3, true);
    EXPECT_EQ(one.id(), Command::commandId());
    EXPECT_EQ(many.id(), one.id());
    EXPECT_EQ(one.id(), ksUndoCommand::makeId(typeid(Command)));
    EXPECT_NE(one.id(), ksAddNodeAsVisibilityReferenceUndoCommand::commandId());
}

TEST_F(ksLightLinkSetCommands, KeepTheirVirtualFunctionsInOrder)
{
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&Command::canMergeWith), 7u);
}
