// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGPointLight.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>

#include <gmock/gmock.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace osg;

TEST(OSGTypeBase, TypesHaveIdsOfTheirOwnAcrossAllKinds)
{
    std::set<UInt32> ids;
    UInt32 types = 0;
    FieldContainerFactory &factory = *FieldContainerFactory::the();
    for (auto type = factory.beginTypes(); type != factory.endTypes(); ++type, ++types) {
        EXPECT_EQ(type->first, type->second->getId());
        ids.insert(type->first);
    }
    for (const FieldType *type :
         {&SFUInt32::getClassType(), &MFUInt32::getClassType(), &SFGLenum::getClassType()}) {
        ids.insert(type->getId());
        ids.insert(type->getContentType().getId());
        types += 1;
    }
    // UInt32 is the content of two of the fields.
    EXPECT_EQ(ids.size(), types + 2);
    EXPECT_EQ(ids.count(0), 0u);
}

TEST(OSGTypeBase, OnlyContainerTypesKnowDerivation)
{
    const TypeBase &field = SFUInt32::getClassType();
    const TypeBase &content = SFUInt32::getClassType().getContentType();

    EXPECT_FALSE(field.isDerivedFrom(field));
    EXPECT_FALSE(content.isDerivedFrom(content));
    EXPECT_FALSE(static_cast<const TypeBase &>(Node::getClassType()).isDerivedFrom(field));
    EXPECT_TRUE(field == SFUInt32::getClassType());
    EXPECT_TRUE(field != MFUInt32::getClassType());
}

TEST(OSGTypeBase, TypesHaveNames)
{
    EXPECT_STREQ(Transform::getClassType().getCName(), "Transform");
    EXPECT_TRUE(Transform::getClassType().getName() == IDString("Transform"));
    EXPECT_STREQ(Transform::getClassType().getCParentName(), "Group");
    EXPECT_TRUE(FieldContainer::getClassType().getParentName().isEmpty());
    EXPECT_EQ(Transform::getClassType().getParentName().length(), 5u);
}

TEST(OSGFieldContainerType, DerivationFollowsTheClassTree)
{
    const FieldContainerType &transform = Transform::getClassType();

    EXPECT_TRUE(transform.isDerivedFrom(transform));
    EXPECT_TRUE(transform.isDerivedFrom(Group::getClassType()));
    EXPECT_TRUE(transform.isDerivedFrom(NodeCore::getClassType()));
    EXPECT_TRUE(transform.isDerivedFrom(FieldContainer::getClassType()));
    EXPECT_FALSE(transform.isDerivedFrom(Node::getClassType()));
    EXPECT_FALSE(transform.isDerivedFrom(Attachment::getClassType()));
    EXPECT_FALSE(Group::getClassType().isDerivedFrom(transform));

    EXPECT_EQ(transform.getParent(), &Group::getClassType());
    EXPECT_EQ(FieldContainer::getClassType().getParent(), nullptr);
}

TEST(OSGFieldContainerType, KnowsItsKind)
{
    EXPECT_TRUE(Node::getClassType().isNode());
    EXPECT_FALSE(Node::getClassType().isNodeCore());
    EXPECT_TRUE(Transform::getClassType().isNodeCore());
    EXPECT_FALSE(Transform::getClassType().isNode());
    EXPECT_TRUE(Name::getClassType().isAttachment());
    EXPECT_FALSE(Name::getClassType().isNodeCore());
    EXPECT_FALSE(AttachmentContainer::getClassType().isNode());
    EXPECT_FALSE(FieldContainer::getClassType().isAttachment());
}

TEST(OSGFieldContainerType, GroupIsTheOwnNameUnlessGiven)
{
    const FieldContainerFactory &factory = *FieldContainerFactory::the();

    EXPECT_STREQ(factory.findGroupName(Transform::getClassType().getGroupId()), "Transform");
    EXPECT_STREQ(factory.findGroupName(Name::getClassType().getGroupId()), "name");
    EXPECT_EQ(factory.findGroupId("name"), Name::getClassGroupId());
    EXPECT_EQ(factory.findGroupId("Name"), 0);
    EXPECT_EQ(factory.findGroupId(nullptr), 0);
    EXPECT_EQ(factory.findGroupName(0), nullptr);
    EXPECT_EQ(factory.findGroupName(0xFFFF), nullptr);
    EXPECT_NE(Node::getClassType().getGroupId(), Group::getClassType().getGroupId());
}

TEST(OSGFieldContainerType, DescriptionsCountFromOneWithInheritedFirst)
{
    const FieldContainerType &type = PointLight::getClassType();

    ASSERT_EQ(type.getNumFieldDescs(), 13u);
    EXPECT_EQ(type.getFieldDescription(0), nullptr);
    EXPECT_EQ(type.getFieldDescription(14), nullptr);
    EXPECT_EQ(type.getFieldDescription(0xFFFFFFFFu), nullptr);
    EXPECT_STREQ(type.getFieldDescription(1)->getCName(), "attachments");
    EXPECT_STREQ(type.getFieldDescription(2)->getCName(), "parents");
    EXPECT_STREQ(type.getFieldDescription(13)->getCName(), "position");
    for (UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        EXPECT_EQ(type.getFieldDescription(id)->getFieldId(), id);
        EXPECT_EQ(type.getFieldDescription(id)->getFieldMask(), BitVector(1) << id);
        EXPECT_EQ(type.findFieldDescription(type.getFieldDescription(id)->getCName()),
                  type.getFieldDescription(id));
    }
    EXPECT_EQ(type.findFieldDescription("Position"), nullptr);
    EXPECT_EQ(type.findFieldDescription(nullptr), nullptr);
    EXPECT_EQ(FieldContainer::getClassType().getNumFieldDescs(), 0u);
}

TEST(OSGFieldContainerType, AbstractTypesHaveNoPrototype)
{
    for (const FieldContainerType *type :
         {&FieldContainer::getClassType(), &AttachmentContainer::getClassType(), &NodeCore::getClassType(),
          &Attachment::getClassType(), &Light::getClassType()}) {
        EXPECT_TRUE(type->isAbstract()) << type->getCName();
        EXPECT_TRUE(type->getPrototype() == NullFC) << type->getCName();
        EXPECT_TRUE(type->createFieldContainer() == NullFC) << type->getCName();
    }
    EXPECT_FALSE(Node::getClassType().isAbstract());
    EXPECT_TRUE(&Node::getClassType().getPrototype()->getType() == &Node::getClassType());
    EXPECT_EQ(Node::getClassType().getPrototype().getRefCount(), 1);
}

TEST(OSGFieldContainerType, ContainersAreCopiesOfThePrototype)
{
    FieldContainerType &type = Transform::getClassType();
    const FieldContainerPtr original = type.getPrototype();
    addRefCP(original);
    const TransformPtr prototype = Transform::createEmpty();
    prototype->getMatrix().setTranslate(1, 2, 3);

    type.setPrototype(prototype);
    EXPECT_EQ(original.getRefCount(), 1);
    EXPECT_EQ(prototype.getRefCount(), 1);
    const TransformRefPtr copy(Transform::create());
    type.setPrototype(original);
    FieldContainerPtr release = original;
    subRefCP(release);

    EXPECT_EQ(copy->getMatrix()[3], Vec4f(1, 2, 3, 1));
    EXPECT_EQ(type.getPrototype().getRefCount(), 1);
    const TransformRefPtr plain(Transform::create());
    EXPECT_EQ(plain->getMatrix(), Matrix());
}

TEST(OSGFieldContainerType, CreatesContainersOfItsKindOnly)
{
    const NodeRefPtr node(Node::getClassType().createNode());
    const NodeCoreRefPtr core(Group::getClassType().createNodeCore());
    const AttachmentRefPtr attachment(Name::getClassType().createAttachment());

    EXPECT_TRUE(node != NullFC);
    EXPECT_TRUE(GroupPtr::dcast(core.get()) != NullFC);
    EXPECT_TRUE(NamePtr::dcast(attachment.get()) != NullFC);
    EXPECT_TRUE(Group::getClassType().createNode() == NullFC);
    EXPECT_TRUE(Node::getClassType().createNodeCore() == NullFC);
    EXPECT_TRUE(Node::getClassType().createAttachment() == NullFC);
}

/// Types that are registered after the start, as those of a library that is loaded later.
class OSGLateFieldContainerType : public testing::Test
{
protected:
    FieldContainerFactory &factory = *FieldContainerFactory::the();
};

TEST_F(OSGLateFieldContainerType, WaitsForInitialisation)
{
    FieldContainerType derived("LateDerived", "LateBase", "", nullptr, nullptr, nullptr, 0);
    FieldContainerType base(
        "LateBase", "Group", "", [] { return FieldContainerPtr(Group::createEmpty()); }, nullptr, nullptr, 0);

    EXPECT_EQ(base.getParent(), nullptr);
    EXPECT_TRUE(base.isAbstract());
    EXPECT_EQ(factory.findType("LateBase"), &base);
    EXPECT_EQ(factory.findType(derived.getId()), &derived);

    factory.initializePendingTypes();

    EXPECT_EQ(derived.getParent(), &base);
    EXPECT_EQ(derived.getNumFieldDescs(), 2u);
    EXPECT_TRUE(derived.isNodeCore());
    EXPECT_TRUE(derived.isDerivedFrom(Group::getClassType()));
    EXPECT_FALSE(base.isAbstract());
    factory.initializePendingTypes();
    EXPECT_EQ(base.getNumFieldDescs(), 2u) << "a second time changes nothing";
}

TEST_F(OSGLateFieldContainerType, LeavesTheFactoryAtItsEnd)
{
    UInt32 id;
    {
        const FieldContainerType type("LateGuest", "Group", "", nullptr, nullptr, nullptr, 0);
        id = type.getId();
    }
    EXPECT_EQ(factory.findType("LateGuest"), nullptr);
    EXPECT_EQ(factory.findType(id), nullptr);
}

TEST_F(OSGLateFieldContainerType, TakesItsPrototypeAlong)
{
    UInt32 id;
    {
        const FieldContainerType type(
            "LateGuest", "Group", "", [] { return FieldContainerPtr(Group::createEmpty()); }, nullptr,
            nullptr, 0);
        factory.initializePendingTypes();
        id = type.getPrototype().getFieldContainerId();
        EXPECT_TRUE(factory.getContainer(id) != NullFC);
    }
    EXPECT_TRUE(factory.getContainer(id) == NullFC);
}

TEST_F(OSGLateFieldContainerType, SharesAGroupByName)
{
    const FieldContainerType type("LateName", "Attachment", "name", nullptr, nullptr, nullptr, 0);
    EXPECT_EQ(type.getGroupId(), Name::getClassGroupId());
}

TEST_F(OSGLateFieldContainerType, RunsItsStartWhenItIsRegistered)
{
    static int starts;
    starts = 0;
    const FieldContainerType type(
        "LateStarter", "Group", "", nullptr, [] { ++starts; }, nullptr, 0);
    EXPECT_EQ(starts, 1);
}

TEST_F(OSGLateFieldContainerType, WarnsOfAnUnknownParent)
{
    std::vector<std::string> lines;
    const LogSink previous = setLogSink([&](const std::string &line) { lines.push_back(line); });
    {
        const FieldContainerType orphan("LateOrphan", "Nobody", "", nullptr, nullptr, nullptr, 0);
        const FieldContainerType child("LateOrphanChild", "LateOrphan", "", nullptr, nullptr, nullptr, 0);
        factory.initializePendingTypes();
        EXPECT_EQ(child.getParent(), nullptr);
    }
    setLogSink(previous);
    EXPECT_THAT(lines, testing::Contains("WARNING: type 'LateOrphan' has the unknown parent 'Nobody'"));
}

TEST_F(OSGLateFieldContainerType, WarnsOfMoreThan64Fields)
{
    std::vector<std::unique_ptr<FieldDescription>> fields;
    std::vector<FieldDescription *> list;
    for (UInt32 id = 2; id <= 66; ++id) {
        fields.push_back(std::make_unique<FieldDescription>(SFUInt32::getClassType(), "f", id, BitVector(0),
                                                            false, FieldAccessMethod(nullptr)));
        list.push_back(fields.back().get());
    }
    std::vector<std::string> lines;
    const LogSink previous = setLogSink([&](const std::string &line) { lines.push_back(line); });
    {
        const FieldContainerType type("LateLarge", "AttachmentContainer", "", nullptr, nullptr, list.data(),
                                      static_cast<UInt32>(list.size() * sizeof(list[0])));
        factory.initializePendingTypes();
        EXPECT_EQ(type.getNumFieldDescs(), 66u);
    }
    setLogSink(previous);
    EXPECT_THAT(lines, testing::ElementsAre("WARNING: type 'LateLarge' has more than 64 fields"));
}

TEST_F(OSGLateFieldContainerType, TakesMoreFieldsIfAllowed)
{
    FieldContainerType open("LateOpen", "AttachmentContainer", "", nullptr, nullptr, nullptr, 0, true);
    FieldContainerType closed("LateClosed", "AttachmentContainer", "", nullptr, nullptr, nullptr, 0);
    factory.initializePendingTypes();
    FieldDescription extra(SFUInt32::getClassType(), "extra", 2, 4, false, FieldAccessMethod(nullptr));
    FieldDescription far(SFUInt32::getClassType(), "far", 9, 4, false, FieldAccessMethod(nullptr));

    EXPECT_EQ(closed.addDescription(extra), 0u);
    EXPECT_EQ(open.addDescription(far), 0u);
    EXPECT_EQ(open.addDescription(extra), 2u);
    EXPECT_EQ(open.getFieldDescription(2), &extra);
    EXPECT_EQ(closed.getNumFieldDescs(), 1u);
}

} // namespace
