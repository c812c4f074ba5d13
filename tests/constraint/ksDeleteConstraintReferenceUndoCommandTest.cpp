// SPDX-License-Identifier: MIT
#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>

#include <OSGAimConstraint.h>
#include <OSGPointConstraint.h>
#include <OpenSG/OSGGroup.h>

#include <algorithm>
#include <optional>
#include <support/ksSceneFixture.h>
#include <support/ksSlotSwap.h>
#include <support/ksWatched.h>
#include <type_traits>
#include <vector>

static_assert(std::is_constructible_v<
              ksDeleteConstraintReferenceUndoCommand,
              osg::FCPtr<osg::FCPtr<osg::AttachmentContainerPtr, osg::NodeCore>, osg::AbstractConstraint>,
              const std::vector<osg::AttachmentContainerPtr> &, QUndoCommand *>);

namespace {

using Command = ksDeleteConstraintReferenceUndoCommand;
using osg::ConstraintObjectPtr;
using osg::FieldContainerPtr;
using Objects = std::vector<ConstraintObjectPtr>;

constexpr osg::BitVector sourcesMask = osg::AbstractConstraintBase::SourcesFieldMask;
constexpr osg::BitVector targetMask = osg::AbstractConstraintBase::TargetFieldMask;
constexpr osg::BitVector upVectorMask = osg::AimConstraintBase::UpVectorSourcesFieldMask;

/// An aim and a point constraint, whose change handlers can be watched, and nodes A to F, which the test
/// holds. It holds no constraint objects: those are named after their nodes.
class ksDeleteConstraintReferenceUndoCommandTest : public ksSceneFixture
{
protected:
    ksDeleteConstraintReferenceUndoCommandTest()
    {
        for (int i = 0; i < 6; ++i)
            held.emplace_back(nodeWith(osg::Group::create()));
    }

    osg::NodePtr node(char letter) const { return held.at(static_cast<std::size_t>(letter - 'A')); }

    /// The nodes with these letters; '-' is null.
    std::vector<osg::AttachmentContainerPtr> nodes(const std::string &letters) const
    {
        std::vector<osg::AttachmentContainerPtr> result;
        for (const char letter : letters)
            result.push_back(letter == '-' ? osg::NodePtr() : node(letter));
        return result;
    }

    Command remove(const std::string &letters) const { return Command(aim, nodes(letters)); }

    /// Constraint objects for the nodes, with a weight of their own, whose handles descend.
    Objects objects(const std::string &letters) const
    {
        Objects result;
        for (std::size_t i = 0; i < letters.size(); ++i)
            result.push_back(osg::ConstraintObject::create());
        std::sort(result.begin(), result.end());
        std::reverse(result.begin(), result.end());
        for (std::size_t i = 0; i < letters.size(); ++i) {
            const osg::CPEditor edit(result[i], osg::FieldBits::AllFields);
            result[i]->setNode(node(letters[i]));
            result[i]->setWeight(static_cast<float>(letters[i]) / 3);
        }
        return result;
    }

    /// Gives a constraint sources whose handles descend.
    Objects addSources(const osg::AbstractConstraintPtr &constraint, const std::string &letters) const
    {
        Objects result = objects(letters);
        const osg::CPEditor edit(constraint, sourcesMask);
        for (const ConstraintObjectPtr &object : result)
            constraint->addSourceObject(object);
        return result;
    }

    /// Gives the aim constraint up vector objects whose handles descend.
    Objects addUpVectors(const std::string &letters) const
    {
        Objects result = objects(letters);
        const osg::CPEditor edit(aim, upVectorMask);
        for (const ConstraintObjectPtr &object : result)
            aim->addUpVectorObject(object);
        return result;
    }

    void setTarget(const osg::AbstractConstraintPtr &constraint, char letter) const
    {
        const osg::CPEditor edit(constraint, targetMask);
        constraint->setTarget(node(letter));
    }

    char letterOf(const FieldContainerPtr &container) const
    {
        for (char letter = 'A'; letter <= 'F'; ++letter)
            if (node(letter) == container)
                return letter;
        return container == osg::NullFC ? '-' : '?';
    }

    std::string letters(const osg::MFConstraintObjectPtr &list) const
    {
        std::string result;
        for (const ConstraintObjectPtr &object : list)
            result += letterOf(object->getNode());
        return result;
    }

    /// The nodes of the sources, the target and the nodes of the up vector objects.
    std::string state() const
    {
        return letters(aim->getSources()) + ' ' + letterOf(aim->getTarget()) + ' ' +
               letters(aim->getUpVectorSources());
    }
    std::string pointState() const
    {
        return letters(point->getSources()) + ' ' + letterOf(point->getTarget());
    }

    long long idOf(const FieldContainerPtr &container) const { return recorder.idOf(container); }
    osg::UInt32 aimId() const { return aim.get().getFieldContainerId(); }

    osg::AimConstraintRefPtr aim{ksWatched<osg::AimConstraint>::create()};
    osg::PointConstraintRefPtr point{ksWatched<osg::PointConstraint>::create()};
    std::vector<osg::NodeRefPtr> held;
};

} // namespace

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, RemovesANodeInAllThreeRolesAndPutsItBack)
{
    addSources(aim, "AB");
    addUpVectors("CA");
    setTarget(aim, 'A');
    Command command = remove("A");
    EXPECT_EQ(state(), "AB A CA") << "nothing happens before the command runs";
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_EQ(state(), "B - C");
        command.undo();
        EXPECT_EQ(state(), "BA A CA");
    }
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, RemovesEachNodeInTheRolesThatItHas)
{
    addSources(aim, "ABC");
    addUpVectors("CDE");
    setTarget(aim, 'F');
    Command command = remove("FDBC");
    command.redo();
    EXPECT_EQ(state(), "A - E");
    command.undo();
    EXPECT_EQ(state(), "ACB F EDC");
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, LeavesTheTargetThatIsNotListed)
{
    addSources(aim, "AB");
    setTarget(aim, 'C');
    Command command = remove("AB");
    forget();
    command.redo();
    EXPECT_EQ(state(), " C ");
    setTarget(aim, 'D');
    command.undo();
    EXPECT_EQ(aim->getTarget(), node('D'));
    command.redo();
    EXPECT_EQ(aim->getTarget(), node('D'));
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, LeavesAConstraintWithoutATargetWithoutOne)
{
    addSources(aim, "A");
    Command command = remove("-A");
    command.redo();
    setTarget(aim, 'B');
    command.undo();
    EXPECT_EQ(state(), "A B ");
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, PutsTheVerySameObjectsBack)
{
    Objects sources = addSources(aim, "ABC");
    Objects upVectors = addUpVectors("AB");
    const auto before = scene();
    Command command = remove("CAB");
    for (int i = 0; i < 2; ++i) {
        command.redo();
        command.undo();
        std::sort(sources.begin(), sources.end());
        std::sort(upVectors.begin(), upVectors.end());
        EXPECT_EQ(aim->getSources().getValues(), sources) << "in the order of their handles";
        EXPECT_EQ(aim->getUpVectorSources().getValues(), upVectors);
        auto after = scene();
        EXPECT_EQ(after.size(), before.size()) << "no container comes or goes";
        after[idOf(aim.get())] = before.at(idOf(aim.get()));
        EXPECT_EQ(after, before) << "with their settings";
    }
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, SettlesWhatToRemoveWhenItIsBuilt)
{
    addSources(aim, "AB");
    setTarget(aim, 'A');
    Command command = remove("AC");
    const Objects late = addSources(aim, "C");
    addUpVectors("A");
    setTarget(aim, 'C');
    aim->getSources()[1]->setNode(node('A'));
    command.redo();
    EXPECT_EQ(state(), "AC - A") << "the late ones stay; whatever the target is goes";
    command.undo();
    EXPECT_EQ(state(), "ACA A A");
    EXPECT_EQ(aim->getSources()[1], late.front());
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, FindsTheObjectsWhereverTheyStandThen)
{
    const Objects sources = addSources(aim, "ABC");
    const Objects upVectors = addUpVectors("ABC");
    Command command = remove("B");
    aim->removeSourceObject(sources[0]);
    aim->removeUpVectorObject(upVectors[0]);
    addSources(aim, "D");
    command.redo();
    EXPECT_EQ(state(), "CD - C");
    command.undo();
    EXPECT_EQ(state(), "CDB - CB");
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, RemovesTheFirstOfSeveralObjectsForANode)
{
    const Objects both = addSources(aim, "AA");
    Command command = remove("A");
    command.redo();
    EXPECT_THAT(aim->getSources().getValues(), testing::ElementsAre(both[1]));
    command.undo();
    EXPECT_THAT(aim->getSources().getValues(), testing::ElementsAre(both[1], both[0]));
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, TakesAnyContainerOfAttachmentsAsTarget)
{
    const osg::NodeCorePtr core = node('A')->getCore();
    aim->setTarget(core);
    Command command(aim, {core});
    command.redo();
    EXPECT_EQ(aim->getTarget(), osg::NullFC);
    command.undo();
    EXPECT_EQ(aim->getTarget(), core);
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, ReplaysItsStepsInAnyOrder)
{
    addSources(aim, "A");
    addUpVectors("A");
    setTarget(aim, 'A');
    Command command = remove("A");
    command.undo();
    EXPECT_EQ(state(), "A A A");
    command.redo();
    command.redo();
    EXPECT_EQ(state(), " - ");
    setTarget(aim, 'B');
    command.redo();
    EXPECT_EQ(state(), " - ") << "the target goes, whatever it is";
    command.undo();
    EXPECT_EQ(state(), "A A A");
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, RecordsItsReferencesAndItsStepsInOrder)
{
    const Objects sources = addSources(aim, "AB");
    const Objects upVectors = addUpVectors("BA");
    setTarget(aim, 'A');
    const auto recordsOf = [this](const std::vector<FieldContainerPtr> &containers,
                                  ksRecords &(ksRecords::*record)(long long)) {
        ksRecords records;
        for (const FieldContainerPtr &container : containers)
            (records.*record)(idOf(container));
        return records;
    };
    const auto stepOf = [&](ksRecords &(ksRecords::*record)(long long)) {
        return recordsOf({sources[1], sources[0], upVectors[1], upVectors[0], node('A')}, record)
            .change(idOf(aim.get()), sourcesMask)
            .change(idOf(aim.get()), upVectorMask)
            .change(idOf(aim.get()), targetMask);
    };
    forget();
    std::optional<Command> command(std::in_place, aim, nodes("BA"));
    EXPECT_EQ(recorder.take(),
              recordsOf({sources[1], upVectors[0], sources[0], node('A'), upVectors[1]}, &ksRecords::addRef))
        << "in the order of the nodes";
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_EQ(recorder.take(), stepOf(&ksRecords::subRef)) << "sources, up vector objects, target";
        command->undo();
        EXPECT_EQ(recorder.take(), stepOf(&ksRecords::addRef));
    }
    command.reset();
    EXPECT_EQ(recorder.take(),
              recordsOf({sources[1], sources[0], upVectors[1], upVectors[0], node('A')}, &ksRecords::subRef));
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, RecordsOnlyTheRolesThatItHas)
{
    const Objects sources = addSources(aim, "AB");
    const Objects upVectors = addUpVectors("CD");
    setTarget(aim, 'E');
    const auto recordedFor = [this](const std::string &letters) {
        Command command = remove(letters);
        forget();
        command.redo();
        ksRecords records = recorder.take();
        command.undo();
        return records;
    };
    EXPECT_EQ(recordedFor("A"), ksRecords().subRef(idOf(sources[0])).change(idOf(aim.get()), sourcesMask));
    EXPECT_EQ(recordedFor("D"), ksRecords().subRef(idOf(upVectors[1])).change(idOf(aim.get()), upVectorMask));
    EXPECT_EQ(recordedFor("E"), ksRecords().subRef(idOf(node('E'))).change(idOf(aim.get()), targetMask));
    EXPECT_EQ(recordedFor("F"), ksRecords());
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, AnnouncesStepsThatChangeNothing)
{
    addSources(aim, "A");
    addUpVectors("A");
    setTarget(aim, 'A');
    Command command = remove("A");
    command.redo();
    forget();
    command.redo();
    const ksRecords touches = ksRecords()
                                  .change(idOf(aim.get()), sourcesMask)
                                  .change(idOf(aim.get()), upVectorMask)
                                  .change(idOf(aim.get()), targetMask);
    EXPECT_EQ(recorder.take(), touches);
    command.undo();
    forget();
    command.undo();
    EXPECT_EQ(recorder.take(), touches);
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, CallsTheHandlerAfterEachOfTheThree)
{
    addSources(aim, "AB");
    addUpVectors("AC");
    setTarget(aim, 'A');
    ksHandlerCalls calls([this] { return state(); });
    Command command = remove("A");
    forget();
    command.redo();
    EXPECT_THAT(calls.take(), testing::ElementsAre(ksHandlerCall{aimId(), sourcesMask, 1, 1, "B A AC"},
                                                   ksHandlerCall{aimId(), upVectorMask, 1, 2, "B A C"},
                                                   ksHandlerCall{aimId(), targetMask, 1, 3, "B - C"}));
    forget();
    command.undo();
    EXPECT_THAT(calls.take(), testing::ElementsAre(ksHandlerCall{aimId(), sourcesMask, 1, 1, "BA - C"},
                                                   ksHandlerCall{aimId(), upVectorMask, 1, 2, "BA - CA"},
                                                   ksHandlerCall{aimId(), targetMask, 1, 3, "BA A CA"}));
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, HoldsOnceMoreForEachTimeThatANodeIsListed)
{
    const ConstraintObjectPtr source = addSources(aim, "A").front();
    const ConstraintObjectPtr upVector = addUpVectors("A").front();
    setTarget(aim, 'A');
    {
        Command command = remove("AA-A");
        EXPECT_EQ(countOf(source), 4);
        EXPECT_EQ(countOf(upVector), 4);
        EXPECT_EQ(countOf(node('A')), 5);
        forget();
        command.redo();
        EXPECT_EQ(state(), " - ");
        EXPECT_EQ(recorder.take(), ksRecords()
                                       .subRef(idOf(source))
                                       .change(idOf(aim.get()), sourcesMask)
                                       .subRef(idOf(upVector))
                                       .change(idOf(aim.get()), upVectorMask)
                                       .subRef(idOf(node('A')))
                                       .change(idOf(aim.get()), targetMask));
        command.undo();
        EXPECT_EQ(state(), "A A A");
    }
    EXPECT_EQ(countOf(source), 1);
    EXPECT_EQ(countOf(upVector), 1);
    EXPECT_EQ(countOf(node('A')), 2);
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, HoldsAnObjectOfBothListsTwice)
{
    const ConstraintObjectPtr both = addSources(aim, "A").front();
    aim->addUpVectorObject(both);
    {
        Command command = remove("A");
        EXPECT_EQ(countOf(both), 4);
        command.redo();
        EXPECT_EQ(state(), " - ");
        EXPECT_EQ(countOf(both), 2);
        command.undo();
        EXPECT_EQ(state(), "A - A");
    }
    EXPECT_EQ(countOf(both), 2);
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, IsIdleWithoutAnythingToRemove)
{
    addSources(aim, "A");
    addUpVectors("B");
    setTarget(aim, 'C');
    for (const char *letters : {"", "-", "DEF", "-D-"}) {
        forget();
        {
            Command command = remove(letters);
            expectIdle(command);
        }
        EXPECT_EQ(recorder.take(), ksRecords()) << letters;
    }
    const osg::AimConstraintRefPtr bare(osg::AimConstraint::create());
    Command command(bare, nodes("A-"));
    expectIdle(command);
}

TEST_F(ksDeleteConstraintReferenceUndoCommandTest, LeavesUpVectorObjectsOutWhileItsIdNamesAPlainConstraint)
{
    addSources(aim, "A");
    addUpVectors("A");
    setTarget(aim, 'A');
    Command command = remove("A");
    const ksSlotSwap swap(aimId(), point.get());
    forget();
    command.undo();
    EXPECT_EQ(pointState(), "A A");
    EXPECT_EQ(
        recorder.take().changed,
        ksRecords().change(idOf(point.get()), sourcesMask).change(idOf(point.get()), targetMask).changed);
    command.redo();
    EXPECT_EQ(pointState(), " -");
    EXPECT_EQ(state(), "A A A");
}
