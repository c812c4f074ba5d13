// SPDX-License-Identifier: MIT
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

using namespace osg;

static_assert(std::is_same_v<Name, SimpleAttachment<NameAttachmentDesc>>);
static_assert(std::is_same_v<NamePtr, FCPtr<AttachmentPtr, Name>>);

TEST(OSGSimpleAttachments, NameHasOneFieldOfItsOwn)
{
    const FieldContainerType &type = Name::getClassType();
    ASSERT_EQ(type.getNumFieldDescs(), 3u);
    EXPECT_EQ(UInt32(Name::SimpleFieldId), 3u);
    EXPECT_EQ(Name::SimpleFieldMask, BitVector(8));
    EXPECT_STREQ(type.getFieldDescription(3)->getCName(), "name");
    EXPECT_TRUE(type.getFieldDescription(3)->getFieldType() == SFString::getClassType());
    EXPECT_FALSE(type.getFieldDescription(3)->isInternal());

    const NameRefPtr name(Name::create());
    EXPECT_EQ(name->getField(3), name->getFieldPtr());
    EXPECT_EQ(&name->getField(), name->getFieldPtr());
    EXPECT_EQ(name->getContainerSize(), sizeof(Name));
    name->getField().setValue("text");
    const NameRefPtr copy(NamePtr::dcast(name->shallowCopy()));
    EXPECT_EQ(copy->getField().getValue(), "text");
}

TEST(OSGSimpleAttachments, SetNameNamesAndRenames)
{
    const NodeRefPtr node(Node::create());
    EXPECT_EQ(getName(node), nullptr);

    setName(node, "first");
    EXPECT_STREQ(getName(node), "first");
    const AttachmentPtr name = node->findAttachment(Name::getClassType());
    EXPECT_EQ(name.getRefCount(), 1);

    setName(node, std::string("second"));
    EXPECT_STREQ(getName(node), "second");
    EXPECT_TRUE(node->findAttachment(Name::getClassType()) == name);
    setName(node, "");
    EXPECT_STREQ(getName(node), "");
}

TEST(OSGSimpleAttachments, SetNameToNullTakesItAway)
{
    const GroupRefPtr group(Group::create());
    setName(group.get(), nullptr);
    EXPECT_EQ(getName(group.get()), nullptr);
    setName(group.get(), "core");
    setName(group.get(), nullptr);
    EXPECT_EQ(getName(group.get()), nullptr);
    EXPECT_TRUE(group->getAttachments().empty());
}

TEST(OSGSimpleAttachments, NullContainerHasNoName)
{
    EXPECT_EQ(getName(NullFC), nullptr);
    setName(NullFC, "name");
    setName(NullFC, std::string("name"));
    setName(NullFC, nullptr);
}

} // namespace
