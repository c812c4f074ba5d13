// SPDX-License-Identifier: MIT
#include <editor/edits/ksTagEdits.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/tag/ksTagUndoCommands.h>

namespace {

using testing::ElementsAre;

using ksTagEdits::LayerTags;
using ksTagEdits::UserTags;

class ksTagEditsTest : public ksEditorFixture
{
protected:
    ksTagEditsTest()
    {
        CPEdit(child, osg::Node::AttachmentsFieldMask);
        child->addAttachment(tags);
    }
    ~ksTagEditsTest() override { stack.clear(); }

    void edit(osg::UInt32 field, const char *tag, bool adding)
    {
        stack.add(ksTagEdits::make(child, field, tag, adding));
    }

    const osg::TagAttachmentPtr tags = osg::TagAttachment::create();
    ksUndoStack stack;
};

} // namespace

TEST_F(ksTagEditsTest, AttachTheListsWithTheFirstTag)
{
    const auto tagsOfRoot = [this] {
        return osg::TagAttachmentPtr::dcast(root->findAttachment(osg::TagAttachment::getClassType()));
    };
    for (const osg::UInt32 field : {UserTags, LayerTags}) {
        stack.add(ksTagEdits::makeFirst(root, field, "wood"));
        EXPECT_EQ(stack.undoText(), QStringLiteral("Add tag 'wood'"));
        ASSERT_NE(tagsOfRoot(), osg::NullFC);
        EXPECT_THAT(ksTagEdits::listOf(tagsOfRoot(), field).getValues(), ElementsAre("wood"));
        EXPECT_THAT(tagsOfRoot()->getTagValues().getValues(), ElementsAre(4u));
        stack.add(ksTagEdits::make(root, field, "wood", false));
        EXPECT_TRUE(tagsOfRoot()->getTagValues().empty());
        stack.undo();
        stack.undo();
        EXPECT_EQ(tagsOfRoot(), osg::NullFC);
    }
}

TEST_F(ksTagEditsTest, KeepTheListsAndTheirValuesTogether)
{
    edit(UserTags, "wood", true);
    edit(LayerTags, "ground", true);
    EXPECT_THAT(tags->getUserTags().getValues(), ElementsAre("wood"));
    EXPECT_THAT(tags->getLayerTags().getValues(), ElementsAre("ground"));
    EXPECT_THAT(tags->getTagValues().getValues(), ElementsAre(4u, 6u));
    EXPECT_TRUE(ksTagEdits::hasTag(tags, UserTags, "wood"));
    EXPECT_FALSE(ksTagEdits::hasTag(tags, LayerTags, "wood"));
    edit(UserTags, "wood", false);
    EXPECT_TRUE(tags->getUserTags().empty());
    EXPECT_THAT(tags->getTagValues().getValues(), ElementsAre(6u));
    EXPECT_EQ(stack.undoText(), QStringLiteral("Remove tag 'wood'"));
    stack.undo();
    EXPECT_THAT(tags->getTagValues().getValues(), ElementsAre(4u, 6u));
}

TEST_F(ksTagEditsTest, RemoveATagWithoutAValue)
{
    edit(UserTags, "wood", true);
    {
        CPEdit(tags, osg::TagAttachment::UserTagsFieldMask);
        tags->getUserTags().getValues() = {"wood", "walnut"};
    }
    edit(UserTags, "walnut", false);
    EXPECT_THAT(tags->getUserTags().getValues(), ElementsAre("wood"));
    EXPECT_THAT(tags->getTagValues().getValues(), ElementsAre(4u));
}

TEST_F(ksTagEditsTest, SayWhetherATagComesOrGoes)
{
    edit(UserTags, "wood", true);
    EXPECT_EQ(stack.currentCommand()->id(), ksAddTagUndoCommand::commandId());
    edit(UserTags, "wood", false);
    EXPECT_EQ(stack.currentCommand()->id(), ksSubTagUndoCommand::commandId());
}

/// Aspect 1 has both lists.
TEST_F(ksTagEditsTest, AnnounceBothLists)
{
    ksSyncAspects();
    edit(LayerTags, "ground", true);
    ksExpectSync(tags);
}
