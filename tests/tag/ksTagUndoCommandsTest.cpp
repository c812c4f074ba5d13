// SPDX-License-Identifier: MIT
#include <ksundo/tag/ksTagUndoCommands.h>

#include <OSGTagAttachment.h>
#include <OpenSG/OSGGroup.h>

#include <algorithm>
#include <memory>
#include <support/ksSceneFixture.h>
#include <support/ksWatched.h>
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

/// A node whose tag attachment can be watched. Of the classes that do the same, one is tried.
class ksTagUndoCommandsTest : public ksSceneFixture
{
protected:
    using Command = std::unique_ptr<ksAddTagUndoCommand>;

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

    static Command make(const Args &args)
    {
        osg::MField<std::string> newStrings(args.newStrings);
        auto command = std::make_unique<ksAddTagUndoCommand>(
            QString(), args.container, args.mask, args.fieldId, args.tag, &newStrings,
            osg::MField<osg::UInt64>(args.oldValues), osg::MField<osg::UInt64>(args.newValues));
        newStrings.push_back("too late");
        return command;
    }
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
        std::string state = texts.at("systemTags") + " | " + texts.at("userTags") + " | " +
                            texts.at("layerTags") + " | " + texts.at("tagValues");
        // Tags are quoted there, which does not make the states here easier to read.
        state.erase(std::remove(state.begin(), state.end(), '"'), state.end());
        return state;
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

} // namespace

TEST_F(ksTagUndoCommandsTest, WritesAlsoTagsThatItSaysAreNotSupported)
{
    std::string printed;
    const Command command = make(systemTags, printed);
    command->redo();
    EXPECT_EQ(state(), "old, new | old, K\xc3\xb6rper | front | 3, 18446744073709551615");
    command->undo();
    EXPECT_EQ(state(), "system | old, K\xc3\xb6rper | front | 1, 2");
}

TEST_F(ksTagUndoCommandsTest, ReplacesTheListsWholeWhateverHappenedToThem)
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

TEST_F(ksTagUndoCommandsTest, EmptiesTheLists)
{
    const Command command = make({node, userTags, userMask, "last", {}, {}, {}});
    command->redo();
    EXPECT_EQ(state(), "system |  | front | ");
    command->undo();
    EXPECT_EQ(state(), "system | old, K\xc3\xb6rper | front | ");
}

TEST_F(ksTagUndoCommandsTest, TellsTypeAndTagByTheField)
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

TEST_F(ksTagUndoCommandsTest, IsIdleWithAFieldThatHoldsNoTags)
{
    ASSERT_EQ(TagAttachment::getClassType().getNumFieldDescs(), 6u);
    for (const osg::UInt32 fieldId : {0u, 1u, 2u, 6u, 7u, 1000u, ~0u}) {
        std::string printed;
        const Command command = make(fieldId, printed);
        expectIdle(*command);
        EXPECT_EQ(countOf(node.get()), 2) << "which it holds all the same";
    }
}

TEST_F(ksTagUndoCommandsTest, NeedsNoNewTagsWithoutAField)
{
    ksAddTagUndoCommand command(QString(), node, userMask, 7, "new", nullptr, {}, {});
    expectIdle(command);
    EXPECT_EQ(command.getTagString(), "");
}

TEST_F(ksTagUndoCommandsTest, AnnouncesBothWritesWithTheMaskThatItIsGiven)
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

TEST_F(ksTagUndoCommandsTest, TakesAnyContainerOfAttachments)
{
    const osg::NodeCorePtr core = node->getCore();
    core->addAttachment(tags);
    detach(tags);
    const Command command = make({core});
    command->redo();
    EXPECT_EQ(state(), done);
}

TEST_F(ksTagUndoCommandsTest, HasNoTagsOfAContainerWithoutTheAttachment)
{
    detach(tags);
    const Command command = make({node, layerTags});
    EXPECT_EQ(command->getTagString(), "");
    EXPECT_EQ(command->getTagType(), ksTagUndoCommand::USER_TAG);
    expectIdle(*command);
}

TEST_F(ksTagUndoCommandsTest, IsIdleWhileTheAttachmentIsAway)
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

TEST_F(ksTagUndoCommandsTest, WritesToTheAttachmentThatIsThereThen)
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

TEST_F(ksTagUndoCommandsTest, FindsOnlyTheAttachmentOfTheFirstBinding)
{
    detach(tags);
    node->addAttachment(tags, 1);
    const Command command = make();
    EXPECT_EQ(command->getTagString(), "");
    expectIdle(*command);
}

TEST(ksEmptyTagCommands, TellWhatTheyWereBuiltWith)
{
    const ksAddEmptyTagUndoCommand add(QString(), "K\xc3\xb6rper", ksTagUndoCommand::LAYER_TAG);
    const ksSubEmptyTagUndoCommand sub(QString(), "", ksTagUndoCommand::USER_TAG);
    EXPECT_EQ(add.getTagString(), "K\xc3\xb6rper");
    EXPECT_EQ(add.getTagType(), 1);
    EXPECT_EQ(sub.getTagString(), "");
    EXPECT_EQ(sub.getTagType(), 0);
    EXPECT_EQ(ksEmptyTagUndoCommand(QString(), "", ksTagUndoCommand::USER_TAG).id(), -1);
}
