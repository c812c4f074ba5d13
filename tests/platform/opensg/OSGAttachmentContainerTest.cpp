// SPDX-License-Identifier: MIT
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <gtest/gtest.h>

namespace {

using namespace osg;

class OSGAttachmentContainerTest : public testing::Test
{
protected:
    const NodeRefPtr node{Node::create()};
    const NodeRefPtr other{Node::create()};
    const NameRefPtr name{Name::create()};
    const NameRefPtr name2{Name::create()};
    const UInt16 group = Name::getClassGroupId();
};

TEST_F(OSGAttachmentContainerTest, FindsByGroupAndBinding)
{
    node->addAttachment(name.get());
    node->addAttachment(name2.get(), 3);

    EXPECT_TRUE(node->findAttachment(group) == name.get());
    EXPECT_TRUE(node->findAttachment(group, 3) == name2.get());
    EXPECT_TRUE(node->findAttachment(Name::getClassType()) == name.get());
    EXPECT_TRUE(node->findAttachment(Name::getClassType(), 3) == name2.get());
    EXPECT_TRUE(node->findAttachment(group, 1) == NullFC);
    EXPECT_TRUE(node->findAttachment(Node::getClassType()) == NullFC);
    EXPECT_TRUE(node->getAttachments() ==
                (AttachmentMap{{UInt32(group) << 16, name.get()}, {UInt32(group) << 16 | 3, name2.get()}}));
}

TEST_F(OSGAttachmentContainerTest, HoldsOneReferenceAndIsKnownToTheAttachment)
{
    node->addAttachment(name.get());
    other->addAttachment(name.get());

    EXPECT_EQ(name.get().getRefCount(), 3);
    EXPECT_EQ(name->getParents().size(), 2u);
    EXPECT_EQ(name->findParent(node.get()), 0);
    EXPECT_EQ(name->findParent(other.get()), 1);
    EXPECT_EQ(name->findParent(NullFC), -1);
    EXPECT_EQ(name->getMFParents()->size(), 2u);

    node->subAttachment(name.get());
    EXPECT_EQ(name.get().getRefCount(), 2);
    EXPECT_EQ(name->findParent(node.get()), -1);
    EXPECT_EQ(name->findParent(other.get()), 0);
    EXPECT_TRUE(node->getAttachments().empty());
}

TEST_F(OSGAttachmentContainerTest, ReplacesTheOneWithTheSameKey)
{
    node->addAttachment(name.get());
    node->addAttachment(name2.get());

    EXPECT_TRUE(node->findAttachment(group) == name2.get());
    EXPECT_EQ(name.get().getRefCount(), 1);
    EXPECT_TRUE(name->getParents().empty());
    EXPECT_EQ(name2.get().getRefCount(), 2);
}

TEST_F(OSGAttachmentContainerTest, AddingAgainChangesNothing)
{
    node->addAttachment(name.get());
    node->addAttachment(node->findAttachment(group));

    EXPECT_TRUE(node->findAttachment(group) == name.get());
    EXPECT_EQ(name.get().getRefCount(), 2);
    EXPECT_EQ(name->getParents().size(), 1u);
}

TEST_F(OSGAttachmentContainerTest, SubAttachmentGoesByGroup)
{
    node->addAttachment(name.get());
    node->subAttachment(name2.get());

    EXPECT_TRUE(node->getAttachments().empty());
    EXPECT_EQ(name.get().getRefCount(), 1);
    EXPECT_TRUE(name->getParents().empty());
    EXPECT_EQ(name2.get().getRefCount(), 1);
}

TEST_F(OSGAttachmentContainerTest, SubAttachmentOfAnotherBindingChangesNothing)
{
    node->addAttachment(name.get());
    node->subAttachment(name.get(), 1);
    node->subAttachment(NullFC);
    node->addAttachment(NullFC);

    EXPECT_TRUE(node->findAttachment(group) == name.get());
    EXPECT_EQ(name.get().getRefCount(), 2);
    EXPECT_EQ(node->getAttachments().size(), 1u);
}

TEST_F(OSGAttachmentContainerTest, AttachmentHeldByItAloneGoes)
{
    node->addAttachment(Name::create());
    AttachmentPtr attachment = node->findAttachment(group);
    const UInt32 id = attachment.getFieldContainerId();

    node->subAttachment(attachment);

    EXPECT_TRUE(FieldContainerFactory::the()->getContainer(id) == NullFC);
}

TEST_F(OSGAttachmentContainerTest, CoresHaveAttachmentsToo)
{
    const GroupRefPtr core(Group::create());
    core->addAttachment(name.get());
    EXPECT_TRUE(core->findAttachment(group) == name.get());
    EXPECT_EQ(name->findParent(core.get()), 0);
}

TEST_F(OSGAttachmentContainerTest, InternalIsAFieldOfTheAttachment)
{
    EXPECT_FALSE(name->getInternal().getValue());
    name->setInternal(true);
    EXPECT_TRUE(name->getInternal().getValue());
    EXPECT_EQ(&name->getInternal(), name->getSFInternal());
}

} // namespace
