// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGTagAttachment.h>
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>

#include <support/ksAspects.h>

namespace {

using namespace osg;

TEST(OSGTagAttachmentTest, IsAnAttachmentWithTheseFieldsAndAGroupOfItsOwn)
{
    EXPECT_EQ(TagAttachment::getClassType().getParent(), &Attachment::getClassType());
    EXPECT_STREQ(FieldContainerFactory::the()->findGroupName(TagAttachment::getClassGroupId()),
                 "TagAttachment");
    EXPECT_EQ(ksFieldTableOf<TagAttachment>(),
              (std::vector<std::string>{"systemTags MFString = ", "userTags MFString = ",
                                        "layerTags MFString = ", "tagValues MFUInt64 = "}));
    static_assert(TagAttachment::SystemTagsFieldId == 3 && TagAttachment::UserTagsFieldId == 4);
    static_assert(TagAttachment::LayerTagsFieldId == 5 && TagAttachment::TagValuesFieldId == 6);
}

TEST(OSGTagAttachmentTest, IsFoundOnItsContainerByItsGroup)
{
    const NodeRefPtr node(Node::create());
    const TagAttachmentPtr tags = TagAttachment::create();
    node->addAttachment(tags);

    EXPECT_TRUE(node->findAttachment(TagAttachment::getClassGroupId(), 0) == tags);
}

TEST(OSGTagAttachmentTest, EditsReachTheOtherAspect)
{
    const TagAttachmentRefPtr tags(TagAttachment::create());
    ksSyncAspects();
    {
        const CPEditor edit(tags, TagAttachment::UserTagsFieldMask | TagAttachment::TagValuesFieldMask);
        tags->getUserTags().push_back("B\xC3\xA4r");
        tags->getTagValues().push_back(0xFEDCBA9876543210);
    }
    ksExpectSync(tags);
    EXPECT_EQ(tags->getTagValues(0), 0xFEDCBA9876543210);
}

} // namespace
