// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/tag/ksTagUndoCommands.h>

#include <OSGTagAttachment.h>
#include <OpenSG/OSGGroup.h>

#include <memory>
#include <set>
#include <support/ksEchoTranslator.h>
#include <support/ksSceneFixture.h>
#include <support/ksSlotSwap.h>
#include <support/ksStackRecorder.h>
#include <support/ksVirtualSlot.h>
#include <support/ksWatched.h>
#include <thread>
#include <type_traits>
#include <vector>

static_assert(std::is_abstract_v<ksTagUndoCommand>);
static_assert(std::is_base_of_v<ksUndoCommand, ksTagUndoCommand>);
static_assert(std::is_base_of_v<ksTagUndoCommand, ksAttachedTagUndoCommand>);
static_assert(std::is_base_of_v<ksTagUndoCommand, ksEmptyTagUndoCommand>);
static_assert(!std::is_base_of_v<ksAttachedTagUndoCommand, ksEmptyTagUndoCommand>);
static_assert(sizeof(ksTagUndoCommand::TAG_TYPE) == 4);

/// Whether tag commands of one class can be built with the further arguments \a More.
template <class Command, class... More>
constexpr bool isAttachedBuiltWith =
    std::is_constructible_v<Command, QString, osg::AttachmentContainerPtr, osg::BitVector, osg::UInt32,
                            std::string, osg::MField<std::string> *, osg::MField<osg::UInt64>,
                            osg::MField<osg::UInt64>, More...>;
template <class Command, class... More>
constexpr bool isEmptyBuiltWith =
    std::is_constructible_v<Command, QString, std::string, ksTagUndoCommand::TAG_TYPE, More...>;

// They have no parent.
static_assert(isAttachedBuiltWith<ksAddTagUndoCommand> && isAttachedBuiltWith<ksSubTagUndoCommand>);
static_assert(!isAttachedBuiltWith<ksAddTagUndoCommand, QUndoCommand *>);
static_assert(!isAttachedBuiltWith<ksSubTagUndoCommand, QUndoCommand *>);
static_assert(isEmptyBuiltWith<ksAddEmptyTagUndoCommand> && isEmptyBuiltWith<ksSubEmptyTagUndoCommand>);
static_assert(!isEmptyBuiltWith<ksAddEmptyTagUndoCommand, QUndoCommand *>);
static_assert(!isEmptyBuiltWith<ksSubEmptyTagUndoCommand, QUndoCommand *>);

namespace {

using osg::TagAttachment;
using Strings = std::vector<std::string>;
using Values = std::vector<osg::UInt64>;

constexpr osg::UInt32 systemTags = 3;
constexpr osg::UInt32 userTags = 4;
constexpr osg::UInt32 layerTags = 5;

constexpr osg::BitVector userMask = TagAttachment::UserTagsFieldMask | TagAttachment::TagValuesFieldMask;

/// What a command on tags is built from, apart from its text.
struct Args
{
    osg::AttachmentContainerPtr container;
    osg::UInt32 fieldId = userTags;
    osg::BitVector mask = userMask;
    std::string tag = "new";
    Strings newStrings = {"old", "new"};
    Values oldValues = {1, 2};
    Values newValues = {3, ~osg::UInt64(0)};
};

/// One of the two classes of commands that do the same.
struct Kind
{
    const char *name;
    std::unique_ptr<ksAttachedTagUndoCommand> (*make)(const Args &args, const QString &text);
    int (*commandId)();

    friend std::ostream &operator<<(std::ostream &stream, const Kind &kind) { return stream << kind.name; }
};

template <class Command>
std::unique_ptr<ksAttachedTagUndoCommand> make(const Args &args, const QString &text)
{
    osg::MField<std::string> newStrings(args.newStrings);
    auto command = std::make_unique<Command>(text, args.container, args.mask, args.fieldId, args.tag,
                                             &newStrings, osg::MField<osg::UInt64>(args.oldValues),
                                             osg::MField<osg::UInt64>(args.newValues));
    newStrings.push_back("too late");
    return command;
}

/// A node (with its core the records 1 and 2) whose tag attachment (record 3) can be watched.
class ksTagUndoCommandsTest : public ksSceneFixture, public testing::WithParamInterface<Kind>
{
protected:
    using Command = std::unique_ptr<ksAttachedTagUndoCommand>;

    ksTagUndoCommandsTest()
    {
        {
            const osg::CPEditor edit(tags, osg::FieldBits::AllFields);
            tags->getSystemTags().setValues(Strings{"system"});
            tags->getUserTags().setValues(Strings{"old", "K\xc3\xb6rper"});
            tags->getLayerTags().setValues(Strings{"front"});
            tags->getTagValues().setValues(Values{7, 8, 9});
        }
        const osg::CPEditor edit(node, osg::Node::AttachmentsFieldMask);
        node->addAttachment(tags);
    }

    Command make(const Args &args) const { return GetParam().make(args, QStringLiteral("Tag %1")); }
    Command make() const { return make({node}); }

    /// A command on the field \a fieldId. What that prints goes to \a printed.
    Command make(osg::UInt32 fieldId, std::string &printed) const
    {
        testing::internal::CaptureStdout();
        Command command = make({node, fieldId});
        printed = testing::internal::GetCapturedStdout();
        return command;
    }

    /// The attachment's lists.
    std::string state() const { return stateOf(tags); }

    static std::string stateOf(const osg::TagAttachmentPtr &attachment)
    {
        const ksFieldTexts texts = ksFieldTextsOf(attachment);
        return texts.at("systemTags") + " | " + texts.at("userTags") + " | " + texts.at("layerTags") + " | " +
               texts.at("tagValues");
    }

    long long idOf(const osg::FieldContainerPtr &container) const { return recorder.idOf(container); }

    void detach(const osg::TagAttachmentPtr &attachment)
    {
        const osg::CPEditor edit(node, osg::Node::AttachmentsFieldMask);
        node->subAttachment(attachment);
    }

    const char *before = "system | old, K\xc3\xb6rper | front | 7, 8, 9";
    const char *done = "system | old, new | front | 3, 18446744073709551615";
    const char *undone = "system | old, K\xc3\xb6rper | front | 1, 2";

    osg::NodeRefPtr node{nodeWith(osg::Group::create())};
    osg::TagAttachmentRefPtr tags{ksWatched<TagAttachment>::create()};
};

using ksEmptyTagCommands = ksSceneFixture;

} // namespace

INSTANTIATE_TEST_SUITE_P(
    , ksTagUndoCommandsTest,
    testing::Values(Kind{"add", &make<ksAddTagUndoCommand>, &ksAddTagUndoCommand::commandId},
                    Kind{"sub", &make<ksSubTagUndoCommand>, &ksSubTagUndoCommand::commandId}),
    [](const auto &info) { return info.param.name; });

TEST_P(ksTagUndoCommandsTest, WritesTheNewAndTheOldLists)
{
    const Command command = make();
    EXPECT_EQ(state(), before) << "nothing happens before the command runs";
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_EQ(state(), done);
        command->undo();
        EXPECT_EQ(state(), undone);
    }
}

TEST_P(ksTagUndoCommandsTest, WritesTheTagsOfTheLayers)
{
    const Command command = make({node, layerTags});
    command->redo();
    EXPECT_EQ(state(), "system | old, K\xc3\xb6rper | old, new | 3, 18446744073709551615");
    command->undo();
    EXPECT_EQ(state(), "system | old, K\xc3\xb6rper | front | 1, 2");
}

TEST_P(ksTagUndoCommandsTest, WritesAlsoTagsThatItSaysAreNotSupported)
{
    std::string printed;
    const Command command = make(systemTags, printed);
    command->redo();
    EXPECT_EQ(state(), "old, new | old, K\xc3\xb6rper | front | 3, 18446744073709551615");
    command->undo();
    EXPECT_EQ(state(), "system | old, K\xc3\xb6rper | front | 1, 2");
}

TEST_P(ksTagUndoCommandsTest, ReplacesTheListsWholeWhateverHappenedToThem)
{
    const Command command = make();
    tags->getUserTags().setValues(Strings{"x", "y", "z"});
    tags->getTagValues().clear();
    command->redo();
    EXPECT_EQ(state(), done);
    tags->getUserTags().clear();
    tags->getTagValues().push_back(5);
    command->undo();
    EXPECT_EQ(state(), undone);
    tags->getUserTags().push_back("x");
    command->undo();
    EXPECT_EQ(state(), undone);
    command->redo();
    command->redo();
    EXPECT_EQ(state(), done);
}

TEST_P(ksTagUndoCommandsTest, UndoesAsWellWhenThatComesFirst)
{
    const Command command = make();
    command->undo();
    EXPECT_EQ(state(), undone);
}

TEST_P(ksTagUndoCommandsTest, EmptiesTheLists)
{
    const Command command = make({node, userTags, userMask, "last", {}, {}, {}});
    command->redo();
    EXPECT_EQ(state(), "system |  | front | ");
    command->undo();
    EXPECT_EQ(state(), "system | old, K\xc3\xb6rper | front | ");
}

TEST_P(ksTagUndoCommandsTest, TellsTypeAndTagByTheField)
{
    const char *warning = "Tag type is not Undo Redo supported!";
    std::string printed;
    const auto told = [&](osg::UInt32 fieldId) {
        const Command command = make(fieldId, printed);
        return std::to_string(command->getTagType()) + ' ' + command->getTagString();
    };
    EXPECT_EQ(told(userTags), "0 new");
    EXPECT_EQ(printed, "");
    EXPECT_EQ(told(layerTags), "1 new");
    EXPECT_EQ(printed, "");
    for (const osg::UInt32 unsupported : {systemTags, 1u, 2u, 6u}) {
        EXPECT_EQ(told(unsupported), "1 new");
        EXPECT_EQ(printed, warning) << "without a line end";
    }
    for (const osg::UInt32 unknown : {0u, 7u, 1000u, ~0u}) {
        EXPECT_EQ(told(unknown), "0 ");
        EXPECT_EQ(printed, "");
    }
}

TEST_P(ksTagUndoCommandsTest, IsIdleWithAFieldThatHoldsNoTags)
{
    ASSERT_EQ(TagAttachment::getClassType().getNumFieldDescs(), 6u);
    for (const osg::UInt32 fieldId : {0u, 1u, 2u, 6u, 7u, 1000u, ~0u}) {
        std::string printed;
        const Command command = make(fieldId, printed);
        expectIdle(*command);
        EXPECT_EQ(countOf(node.get()), 2) << "which it holds all the same";
    }
}

TEST_P(ksTagUndoCommandsTest, NeedsNoNewTagsWithoutAField)
{
    ksAddTagUndoCommand command(QString(), node, userMask, 7, "new", nullptr, {}, {});
    expectIdle(command);
    EXPECT_EQ(command.getTagString(), "");
}

TEST_P(ksTagUndoCommandsTest, AnnouncesBothWritesWithTheMaskThatItIsGiven)
{
    ksHandlerCalls calls([this] { return state(); });
    const osg::UInt32 id = tags.get().getFieldContainerId();
    for (const osg::BitVector mask :
         {userMask, osg::BitVector(TagAttachment::UserTagsFieldMask), ~osg::BitVector(0)}) {
        tags->getUserTags().setValues(Strings{"old", "K\xc3\xb6rper"});
        tags->getTagValues().setValues(Values{7, 8, 9});
        const Command command = make({node, userTags, mask});
        const ksRecords twice = ksRecords().change(idOf(tags.get()), mask).change(idOf(tags.get()), mask);
        forget();
        command->redo();
        EXPECT_THAT(calls.take(),
                    testing::ElementsAre(ksHandlerCall{id, mask, 1, 1, "system | old, new | front | 7, 8, 9"},
                                         ksHandlerCall{id, mask, 1, 2, done}));
        EXPECT_EQ(recorder.take(), twice);
        command->undo();
        EXPECT_THAT(calls.take(),
                    testing::ElementsAre(
                        ksHandlerCall{id, mask, 1, 1,
                                      "system | old, K\xc3\xb6rper | front | 3, 18446744073709551615"},
                        ksHandlerCall{id, mask, 1, 2, undone}));
        EXPECT_EQ(recorder.take(), twice);
    }
}

TEST_P(ksTagUndoCommandsTest, OnlyRecordsWhileChangesAreIgnored)
{
    ksHandlerCalls calls([] { return ""; });
    const Command command = make();
    forget();
    osg::FieldContainerPtr::_ignore_change = true;
    command->redo();
    EXPECT_EQ(state(), done);
    EXPECT_THAT(calls.take(), testing::IsEmpty());
    EXPECT_EQ(recorder.take(),
              ksRecords().change(idOf(tags.get()), userMask).change(idOf(tags.get()), userMask));
}

TEST_P(ksTagUndoCommandsTest, OnlyCallsTheHandlerOnAThreadWithoutAList)
{
    ksHandlerCalls calls([] { return ""; });
    const osg::UInt32 id = tags.get().getFieldContainerId();
    const Command command = make();
    forget();
    std::thread([&command] { command->redo(); }).join();
    EXPECT_EQ(state(), done);
    EXPECT_THAT(calls.take(), testing::ElementsAre(ksHandlerCall{id, userMask, 1, 0, ""},
                                                   ksHandlerCall{id, userMask, 1, 0, ""}));
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_P(ksTagUndoCommandsTest, ReachesTheOtherAspectWithAMaskOfBothLists)
{
    expectAspectsInStep();
    const Command command = make();
    expectAspectsInStep();
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_NE(scene(1), scene());
        expectAspectsInStep();
        command->undo();
        EXPECT_NE(scene(1), scene());
        expectAspectsInStep();
    }
}

TEST_P(ksTagUndoCommandsTest, HoldsItsContainer)
{
    EXPECT_EQ(countOf(node.get()), 1);
    EXPECT_EQ(countOf(tags.get()), 2);
    forget();
    Command command = make();
    EXPECT_EQ(recorder.take(), ksRecords().addRef(idOf(node.get())));
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo, &QUndoCommand::redo}) {
        EXPECT_EQ(countOf(node.get()), 2);
        EXPECT_EQ(countOf(tags.get()), 2) << "the node and the test";
        (command.get()->*step)();
    }
    forget();
    command.reset();
    EXPECT_EQ(recorder.take(), ksRecords().subRef(idOf(node.get())));
    EXPECT_EQ(countOf(node.get()), 1);
    make().reset();
    EXPECT_EQ(countOf(node.get()), 1);
}

TEST_P(ksTagUndoCommandsTest, KeepsItsContainerAliveUntilItGoes)
{
    Command command = make();
    const long long nodeId = idOf(node.get());
    const osg::UInt32 id = node.get().getFieldContainerId();
    node = osg::NullFC;
    command->redo();
    EXPECT_EQ(state(), done);
    command->undo();
    EXPECT_EQ(state(), undone);
    forget();
    command.reset();
    EXPECT_THAT(recorder.take().destroyed, testing::Contains(nodeId));
    EXPECT_EQ(ksFindContainer<osg::NodePtr>(id), osg::NullFC);
    EXPECT_EQ(countOf(tags.get()), 1);
}

TEST_P(ksTagUndoCommandsTest, TakesAnyContainerOfAttachments)
{
    const osg::NodeCorePtr core = node->getCore();
    core->addAttachment(tags);
    detach(tags);
    const Command command = make({core});
    command->redo();
    EXPECT_EQ(state(), done);
}

TEST_P(ksTagUndoCommandsTest, IsIdleWithoutAContainer)
{
    const Command command = make({osg::NullFC});
    EXPECT_EQ(command->getTagString(), "");
    EXPECT_EQ(command->getTagType(), ksTagUndoCommand::USER_TAG);
    expectIdle(*command);
}

TEST_P(ksTagUndoCommandsTest, HasNoTagsOfAContainerWithoutTheAttachment)
{
    detach(tags);
    const Command command = make({node, layerTags});
    EXPECT_EQ(command->getTagString(), "");
    EXPECT_EQ(command->getTagType(), ksTagUndoCommand::USER_TAG);
    expectIdle(*command);
}

TEST_P(ksTagUndoCommandsTest, IsIdleWhileTheAttachmentIsAway)
{
    const Command fresh = make();
    const Command applied = make();
    applied->redo();
    detach(tags);
    expectIdle(*fresh);
    expectIdle(*applied);
    node->addAttachment(tags);
    applied->undo();
    EXPECT_EQ(state(), undone);
}

TEST_P(ksTagUndoCommandsTest, WritesToTheAttachmentThatIsThereThen)
{
    const Command command = make();
    detach(tags);
    const osg::TagAttachmentRefPtr other(TagAttachment::create());
    node->addAttachment(other);
    command->redo();
    EXPECT_EQ(state(), before);
    EXPECT_EQ(stateOf(other), " | old, new |  | 3, 18446744073709551615");
    command->undo();
    EXPECT_EQ(stateOf(other), " | old, K\xc3\xb6rper |  | 1, 2");
}

TEST_P(ksTagUndoCommandsTest, FindsOnlyTheAttachmentOfTheFirstBinding)
{
    detach(tags);
    node->addAttachment(tags, 1);
    const Command command = make();
    EXPECT_EQ(command->getTagString(), "");
    expectIdle(*command);
}

TEST_P(ksTagUndoCommandsTest, IsIdleWhileItsIdNamesAnotherKindOfContainer)
{
    const Command command = make();
    for (const osg::FieldContainerPtr &other :
         {osg::FieldContainerPtr(tags.get()), osg::FieldContainerPtr()}) {
        const ksSlotSwap swap(node.get().getFieldContainerId(), other);
        expectIdle(*command);
    }
    command->redo();
    EXPECT_EQ(state(), done);
}

TEST_P(ksTagUndoCommandsTest, TakesItsTextAsItStands)
{
    const ksEchoTranslator translator;
    EXPECT_EQ(make()->text(), QStringLiteral("Tag %1"));
    EXPECT_EQ(GetParam().make({node}, QString())->text(), QString());
}

TEST_P(ksTagUndoCommandsTest, TellsNothingButItsId)
{
    const Command command = make();
    EXPECT_EQ(command->id(), GetParam().commandId());
    EXPECT_EQ(command->id(), ksUndoCommand::makeId(typeid(*command)));
    EXPECT_EQ(ksMessageOf(*command), "id=int:" + std::to_string(GetParam().commandId()));
}

TEST_P(ksTagUndoCommandsTest, NeverMerges)
{
    const Command older = make();
    const Command newer = make();
    newer->setMergeResponseDelta(-1.0);
    EXPECT_TRUE(older->canMergeWith(newer.get())) << "as far as the base class is concerned";
    EXPECT_FALSE(older->mergeWith(newer.get()));

    ksUndoStack stack;
    const std::string keys = "id=int:" + std::to_string(GetParam().commandId());
    for (const Strings &strings : {Strings{"a"}, Strings{"a", "b"}})
        stack.add(make({node, userTags, userMask, "tag", strings}).release());
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(state(), "system | a, b | front | 3, 18446744073709551615");
    ksStackRecorder events(stack);
    stack.undo();
    EXPECT_EQ(state(), "system | a | front | 1, 2");
    stack.undo();
    EXPECT_EQ(state(), undone);
    EXPECT_EQ(events.take(), ksStep::undone("Tag %1", 1, keys) + ksStep::undone("Tag %1", 0, keys));
}

TEST_F(ksEmptyTagCommands, ChangeNothingAndTellWhatTheyWereBuiltWith)
{
    const osg::NodeRefPtr node(nodeWith(osg::Group::create()));
    node->addAttachment(TagAttachment::create());
    ksAddEmptyTagUndoCommand add(QStringLiteral("Add %1"), "K\xc3\xb6rper", ksTagUndoCommand::LAYER_TAG);
    ksSubEmptyTagUndoCommand sub(QStringLiteral("Sub"), "", ksTagUndoCommand::USER_TAG);
    for (ksEmptyTagUndoCommand *command :
         {static_cast<ksEmptyTagUndoCommand *>(&add), static_cast<ksEmptyTagUndoCommand *>(&sub)})
        expectIdle(*command);
    EXPECT_EQ(add.text(), QStringLiteral("Add %1"));
    EXPECT_EQ(add.getTagString(), "K\xc3\xb6rper");
    EXPECT_EQ(add.getTagType(), 1);
    EXPECT_EQ(sub.text(), QStringLiteral("Sub"));
    EXPECT_EQ(sub.getTagString(), "");
    EXPECT_EQ(sub.getTagType(), 0);
}

TEST_F(ksEmptyTagCommands, TellNothingButTheirIdAndNeverMerge)
{
    ksAddEmptyTagUndoCommand older(QString(), "a", ksTagUndoCommand::USER_TAG);
    ksAddEmptyTagUndoCommand newer(QString(), "a", ksTagUndoCommand::USER_TAG);
    newer.setMergeResponseDelta(-1.0);
    EXPECT_EQ(ksMessageOf(older), "id=int:" + std::to_string(ksAddEmptyTagUndoCommand::commandId()));
    EXPECT_FALSE(older.mergeWith(&newer));
    const ksSubEmptyTagUndoCommand sub(QString(), "a", ksTagUndoCommand::USER_TAG);
    EXPECT_EQ(ksMessageOf(sub), "id=int:" + std::to_string(ksSubEmptyTagUndoCommand::commandId()));

    ksUndoStack stack;
    for (int i = 0; i < 2; ++i)
        stack.add(new ksSubEmptyTagUndoCommand(QString(), "a", ksTagUndoCommand::LAYER_TAG));
    EXPECT_EQ(stack.count(), 2);
}

TEST(ksTagCommandIds, AreAllDistinct)
{
    const std::set<int> ids{ksAddTagUndoCommand::commandId(), ksSubTagUndoCommand::commandId(),
                            ksAddEmptyTagUndoCommand::commandId(), ksSubEmptyTagUndoCommand::commandId()};
    EXPECT_EQ(ids.size(), 4u);
    EXPECT_GT(*ids.begin(), 0);
    EXPECT_EQ(ksEmptyTagUndoCommand(QString(), "", ksTagUndoCommand::USER_TAG).id(), -1);
}

TEST(ksTagCommands, KeepTheirVirtualFunctionsInOrder)
{
    EXPECT_EQ(ksVirtualSlot(&ksTagUndoCommand::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&ksTagUndoCommand::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&ksAttachedTagUndoCommand::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&ksAttachedTagUndoCommand::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&ksEmptyTagUndoCommand::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&ksEmptyTagUndoCommand::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&ksAddTagUndoCommand::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&ksSubTagUndoCommand::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&ksAddEmptyTagUndoCommand::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&ksSubEmptyTagUndoCommand::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&ksAddTagUndoCommand::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&ksAddTagUndoCommand::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&ksAddTagUndoCommand::canMergeWith), 7u);
}
