// SPDX-License-Identifier: MIT
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using namespace osg;

/// Collects the log.
class OSGFieldDescriptionTest : public testing::Test
{
protected:
    OSGFieldDescriptionTest()
        : _previous(setLogSink([this](const std::string &line) { lines.push_back(line); }))
    {}
    ~OSGFieldDescriptionTest() override { setLogSink(_previous); }

    const NodeRefPtr node{Node::create()};
    std::vector<std::string> lines;

private:
    const LogSink _previous;
};

const FieldDescription &descriptionOf(const FieldContainerType &type, const char *name)
{
    return *type.findFieldDescription(name);
}

TEST_F(OSGFieldDescriptionTest, SaysWhatWasGiven)
{
    const FieldDescription description(SFUInt32::getClassType(), "number", 5, BitVector(1) << 5, true,
                                       FieldAccessMethod(nullptr), "17");

    EXPECT_TRUE(description.getName() == IDString("number"));
    EXPECT_STREQ(description.getCName(), "number");
    EXPECT_EQ(description.getFieldId(), 5u);
    EXPECT_EQ(description.getFieldMask(), BitVector(32));
    EXPECT_TRUE(description.getFieldType() == SFUInt32::getClassType());
    EXPECT_EQ(description.getTypeId(), SFUInt32::getClassType().getId());
    EXPECT_STREQ(description.getDefaultValue(), "17");
    EXPECT_TRUE(description.isInternal());
    EXPECT_TRUE(description.isValid());
}

TEST_F(OSGFieldDescriptionTest, WithoutIdOrNameIsNotValid)
{
    const FieldDescription noId(SFUInt32::getClassType(), "number", 0, 1, false, FieldAccessMethod(nullptr));
    const FieldDescription noName(SFUInt32::getClassType(), "", 1, 2, false, FieldAccessMethod(nullptr));

    EXPECT_FALSE(noId.isValid());
    EXPECT_FALSE(noName.isValid());
    EXPECT_EQ(noId.getDefaultValue(), nullptr);
}

TEST_F(OSGFieldDescriptionTest, GivesTheFieldOfAnObjectAndOfAHandle)
{
    const FieldDescription &flags = descriptionOf(Node::getClassType(), "externalFlags");

    EXPECT_EQ(flags.getField(*node), node->getSFExternalFlags());
    EXPECT_EQ(flags.getField(node.get()), node->getSFExternalFlags());
    EXPECT_EQ(node->getField(7), node->getSFExternalFlags());
    EXPECT_EQ(node->getField("externalFlags"), node->getSFExternalFlags());
    EXPECT_EQ(flags.getField(FieldContainerPtr()), nullptr);
    EXPECT_EQ(node->getField(0u), nullptr);
    EXPECT_EQ(node->getField(Node::NextFieldId), nullptr);
    EXPECT_EQ(node->getField("ExternalFlags"), nullptr);
    EXPECT_TRUE(lines.empty());
}

TEST_F(OSGFieldDescriptionTest, GivesTheCallingThreadsCopyOfAHandlesField)
{
    const FieldDescription &flags = descriptionOf(Node::getClassType(), "externalFlags");
    const Field *here = flags.getField(node.get());
    const AspectScope other(1);
    EXPECT_NE(flags.getField(node.get()), here);
}

TEST_F(OSGFieldDescriptionTest, WithoutAccessMethodWarns)
{
    const FieldDescription blind(SFUInt32::getClassType(), "blind", 9, 512, false,
                                 FieldAccessMethod(nullptr));

    EXPECT_EQ(blind.getField(*node), nullptr);
    EXPECT_THAT(lines, testing::ElementsAre("WARNING: field 'blind' has no access method"));
    EXPECT_EQ(blind.getField(node.get()), nullptr);
    EXPECT_EQ(lines.size(), 2u);
    EXPECT_EQ(blind.getField(FieldContainerPtr()), nullptr);
    EXPECT_EQ(lines.size(), 2u) << "a null handle has no fields at all";
}

TEST_F(OSGFieldDescriptionTest, PassesItsIdToAnIndexMethod)
{
    const auto byId = static_cast<Field *(FieldContainer::*)(UInt32)>(&FieldContainer::getField);
    const FieldDescription description(SFUInt32::getClassType(), "any", Node::TravMaskFieldId,
                                       Node::TravMaskFieldMask, false, FieldIndexAccessMethod(byId));

    EXPECT_EQ(description.getField(*node), node->getSFTravMask());
}

TEST_F(OSGFieldDescriptionTest, MayDeclareAnotherTypeThanTheField)
{
    const FieldDescription &travMask = descriptionOf(Node::getClassType(), "travMask");
    EXPECT_TRUE(travMask.getFieldType() == SFBool::getClassType());
    EXPECT_TRUE(travMask.getField(*node)->getType() == SFUInt32::getClassType());

    const NameRefPtr name(Name::create());
    const FieldDescription &parents = descriptionOf(Name::getClassType(), "parents");
    EXPECT_TRUE(parents.getFieldType() == MFNodePtr::getClassType());
    EXPECT_TRUE(parents.getField(*name)->getType() == MFFieldContainerPtr::getClassType());
}

TEST_F(OSGFieldDescriptionTest, LogGoesToStandardErrorWithoutASink)
{
    const LogSink mine = setLogSink(LogSink());
    testing::internal::CaptureStderr();
    const FieldDescription blind(SFUInt32::getClassType(), "blind", 9, 512, false,
                                 FieldAccessMethod(nullptr));
    blind.getField(*node);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "WARNING: field 'blind' has no access method\n");
    setLogSink(mine);
}

} // namespace
