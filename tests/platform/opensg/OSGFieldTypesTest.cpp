// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFFieldContainerPtr.h>
#include <OpenSG/OSGMFMathTypes.h>
#include <OpenSG/OSGMFNodePtr.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSFAttachmentMap.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFFieldContainerPtr.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFNodeCorePtr.h>
#include <OpenSG/OSGSFNodePtr.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSFVecTypes.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

namespace {

using namespace osg;

static_assert(std::is_same_v<SField<long long>, SFInt64>);
static_assert(std::is_same_v<SField<unsigned long long>, SFUInt64>);
static_assert(std::is_same_v<SField<int>, SFInt32>);
static_assert(std::is_same_v<SField<unsigned int>, SFUInt32>);
static_assert(std::is_same_v<SField<short>, SFInt16>);
static_assert(std::is_same_v<SField<unsigned short>, SFUInt16>);
static_assert(std::is_same_v<SField<signed char>, SFInt8>);
static_assert(std::is_same_v<SField<unsigned char>, SFUInt8>);
static_assert(std::is_same_v<SField<float>, SFReal32>);
static_assert(std::is_same_v<SField<double>, SFReal64>);
static_assert(std::is_same_v<SField<std::string>, SFString>);
static_assert(std::is_same_v<SField<bool, 2>, SFBool> && std::is_same_v<MField<bool, 2>, MFBool>);
static_assert(std::is_same_v<SField<double, 1>, SFTime> && std::is_same_v<MField<double, 1>, MFTime>);
static_assert(std::is_same_v<SField<unsigned long long, 1>, SFBitVector>);
static_assert(std::is_same_v<SField<unsigned int, 1>, SFGLenum>);
static_assert(std::is_same_v<SField<Vector<float, 3u>>, SFVec3f>);
static_assert(std::is_same_v<SField<QuaternionBase<float>>, SFQuaternion>);
static_assert(std::is_same_v<SField<std::map<UInt32, AttachmentPtr>>, SFAttachmentMap>);
static_assert(!std::is_same_v<SFTime, SFReal64> && !std::is_same_v<SFBitVector, SFUInt64>);

TEST(OSGFieldTypes, AreKnownByName)
{
    for (const char *name : {"Int8",          "UInt8",
                             "Int16",         "UInt16",
                             "Int32",         "UInt32",
                             "Int64",         "UInt64",
                             "Real32",        "Real64",
                             "Bool",          "String",
                             "Time",          "GLenum",
                             "BitVector",     "Color3f",
                             "Color4f",       "Vec2f",
                             "Vec3f",         "Vec4f",
                             "Pnt2f",         "Pnt3f",
                             "Pnt4f",         "Matrix",
                             "NodePtr",       "Quaternion",
                             "DynamicVolume", "FieldContainerPtr",
                             "AttachmentPtr", "AttachmentContainerPtr",
                             "NodeCorePtr"}) {
        for (const char *prefix : {"SF", "MF"}) {
            const std::string full = std::string(prefix) + name;
            const FieldType *type = FieldFactory::the().getFieldType(full.c_str());
            ASSERT_NE(type, nullptr) << full;
            EXPECT_EQ(type->getCName(), full);
            EXPECT_STREQ(type->getContentType().getCName(), name);
        }
    }
    EXPECT_NE(FieldFactory::the().getFieldType("SFAttachmentMap"), nullptr);
}

TEST(OSGFieldTypes, EqualValueTypesHaveFieldTypesOfTheirOwn)
{
    EXPECT_TRUE(SFTime::getClassType() != SFReal64::getClassType());
    EXPECT_TRUE(SFBitVector::getClassType() != SFUInt64::getClassType());
    EXPECT_TRUE(SFGLenum::getClassType() != SFUInt32::getClassType());
    EXPECT_TRUE(MFGLenum::getClassType() != MFUInt32::getClassType());
    EXPECT_STREQ(SFTime::getClassType().getContentType().getCName(), "Time");
}

/// The text of \a value gives the value back, exactly.
template <class FieldT>
void expectRoundTrip(const typename FieldT::StoredType &value, const std::string &expectedText)
{
    const FieldT field(value);
    std::string text;
    EXPECT_EQ(field.getValueByStr(text), expectedText);
    FieldT copy;
    copy.pushValueByStr(text.c_str());
    EXPECT_TRUE(copy == field) << text;
}

TEST(OSGFieldTypes, TextGivesTheValueBack)
{
    expectRoundTrip<SFInt8>(-128, "-128");
    expectRoundTrip<SFUInt8>(65, "65");
    expectRoundTrip<SFInt64>(std::numeric_limits<Int64>::min(), "-9223372036854775808");
    expectRoundTrip<SFUInt64>(std::numeric_limits<UInt64>::max(), "18446744073709551615");
    expectRoundTrip<SFReal32>(0.1f, "0.1");
    expectRoundTrip<SFReal64>(1.0 / 3.0, "0.3333333333333333");
    expectRoundTrip<SFBool>(true, "TRUE");
    expectRoundTrip<SFString>("two words", "two words");
    expectRoundTrip<SFVec3f>(Vec3f(1, -2.5, 1e30), "1 -2.5 1e+30");
    expectRoundTrip<SFPnt2f>(Pnt2f(1, 2), "1 2");
    expectRoundTrip<SFColor4f>(Color4f(0, 0.5, 1, 1), "0 0.5 1 1");
    expectRoundTrip<SFQuaternion>(Quaternion(0.5, 0.5, 0.5, -0.5), "0.5 0.5 0.5 -0.5");
    Matrix matrix;
    matrix.setTranslate(1, 2, 3);
    expectRoundTrip<SFMatrix>(matrix, "1 0 0 0 0 1 0 0 0 0 1 0 1 2 3 1");
    DynamicVolume volume;
    expectRoundTrip<SFDynamicVolume>(volume, "0 0 0 0 0 0 TRUE FALSE FALSE");
    volume.setBounds(Pnt3f(-1, -2, -3), Pnt3f(1, 2, 3));
    volume.setValid();
    volume.setStatic();
    expectRoundTrip<SFDynamicVolume>(volume, "-1 -2 -3 1 2 3 FALSE TRUE TRUE");
}

TEST(OSGFieldTypes, FlagsReadSeveralWords)
{
    SFBool flag;
    for (const char *word : {"TRUE", "true", "1"}) {
        flag.setValue(false);
        flag.pushValueByStr(word);
        EXPECT_TRUE(flag.getValue()) << word;
    }
    for (const char *word : {"FALSE", "false", "0"}) {
        flag.setValue(true);
        flag.pushValueByStr(word);
        EXPECT_FALSE(flag.getValue()) << word;
    }
}

/// \a text is no value of the field: it keeps the one it has.
template <class FieldT>
void expectRefused(const typename FieldT::StoredType &value, const char *text)
{
    FieldT field(value);
    field.pushValueByStr(text);
    EXPECT_TRUE(field == FieldT(value)) << text;
}

TEST(OSGFieldTypes, OtherTextChangesNothing)
{
    expectRefused<SFUInt8>(1, "256");
    expectRefused<SFUInt8>(1, "-1");
    expectRefused<SFReal32>(1, "1,5");
    expectRefused<SFBool>(true, "no");
    expectRefused<SFVec3f>(Vec3f(1, 2, 3), "1 2");
    expectRefused<SFVec3f>(Vec3f(1, 2, 3), "4 5 6 7");
    expectRefused<SFVec3f>(Vec3f(1, 2, 3), "4 5 z");
    DynamicVolume volume;
    volume.setValid();
    expectRefused<SFDynamicVolume>(volume, "0 0 0");
    expectRefused<SFDynamicVolume>(volume, "0 0 0 0 0 0 TRUE FALSE");
    expectRefused<SFDynamicVolume>(volume, "0 0 0 0 0 0 TRUE FALSE FALSE more");
    expectRefused<SFAttachmentMap>(AttachmentMap{{1, AttachmentPtr()}}, "5");
    expectRefused<SFAttachmentMap>(AttachmentMap{{1, AttachmentPtr()}}, "x 0");
}

TEST(OSGFieldTypes, HandlesAreTextByIdAndChecked)
{
    const NodeRefPtr node = Node::create();
    const GroupRefPtr group = Group::create();
    const std::string nodeId = std::to_string(node.get().getFieldContainerId());
    const std::string groupId = std::to_string(group.get().getFieldContainerId());

    expectRoundTrip<SFNodePtr>(node, nodeId);
    expectRoundTrip<SFNodePtr>(NullFC, "0");
    expectRoundTrip<SFNodeCorePtr>(group, groupId);
    expectRoundTrip<SFFieldContainerPtr>(node.get(), nodeId);
    expectRefused<SFNodePtr>(node, groupId.c_str());
    expectRefused<SFGroupPtr>(group, nodeId.c_str());
    expectRefused<SFNodePtr>(node, "4000000000");
    expectRefused<SFNodePtr>(node, "");
    EXPECT_EQ(node.get().getRefCount(), 1);

    SFNodePtr field(node);
    field.pushValueByStr("0");
    EXPECT_TRUE(field.getValue() == NullFC);
}

TEST(OSGFieldTypes, AttachmentsAreTextByKeyAndId)
{
    const NameRefPtr name = Name::create();
    const std::string id = std::to_string(name.get().getFieldContainerId());

    expectRoundTrip<SFAttachmentMap>({{7, name.get()}, {9, AttachmentPtr()}}, "7 " + id + " 9 0");
    expectRoundTrip<SFAttachmentMap>({}, "");
}

} // namespace
