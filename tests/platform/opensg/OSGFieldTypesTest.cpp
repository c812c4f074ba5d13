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
#include <OpenSG/OSGSpotLight.h>

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
    EXPECT_STREQ(FieldFactory::the().getFieldType("SFBool")->getContentType().getCName(), "bool");
    EXPECT_STREQ(FieldFactory::the().getFieldType("MFString")->getContentType().getCName(), "string");
    for (const char *name : {"SFGroupPtr", "MFGroupPtr", "SFStateChunkPtr", "SFNamePtr", "SFSpotLightPtr"}) {
        EXPECT_NE(FieldFactory::the().getFieldType(name), nullptr) << name;
    }
}

TEST(OSGFieldTypes, EqualValueTypesHaveFieldTypesOfTheirOwn)
{
    EXPECT_TRUE(SFTime::getClassType() != SFReal64::getClassType());
    EXPECT_TRUE(SFBitVector::getClassType() != SFUInt64::getClassType());
    EXPECT_TRUE(SFGLenum::getClassType() != SFUInt32::getClassType());
    EXPECT_TRUE(MFGLenum::getClassType() != MFUInt32::getClassType());
    EXPECT_STREQ(SFTime::getClassType().getContentType().getCName(), "Time");
}

/// The text of \a value gives the value back, exactly: it has the same text again.
template <class FieldT>
void expectRoundTrip(const typename FieldT::StoredType &value, const std::string &expectedText)
{
    const FieldT field(value);
    std::string text;
    EXPECT_EQ(field.getValueByStr(text), expectedText);
    FieldT copy;
    copy.pushValueByStr(text.c_str());
    EXPECT_TRUE(copy == field) << text;
    std::string textOfCopy;
    EXPECT_EQ(copy.getValueByStr(textOfCopy), text);
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
    expectRoundTrip<SFString>("two words", "\"two words\"");
    expectRoundTrip<SFString>("", "\"\"");
    expectRoundTrip<SFString>("\"", "\"\"\"");
    expectRoundTrip<SFVec3f>(Vec3f(1, -2.5, 1e30), "1 -2.5 1e+30");
    expectRoundTrip<SFPnt2f>(Pnt2f(1, 2), "1 2");
    expectRoundTrip<SFColor4f>(Color4f(0, 0.5, 1, 1), "0 0.5 1 1");
    expectRoundTrip<SFQuaternion>(Quaternion(0.5, 0.5, 0.5, -0.5), "0.5 0.5 0.5 -0.5");
    Matrix matrix;
    matrix.setTranslate(1, 2, 3);
    expectRoundTrip<SFMatrix>(matrix, "1 0 0 1 0 1 0 2 0 0 1 3 0 0 0 1");
    DynamicVolume volume;
    volume.setBounds(Pnt3f(-1, -2, -3), Pnt3f(1, 2, 3));
    expectRoundTrip<SFDynamicVolume>(volume, "-1 -2 -3 1 2 3");
}

TEST(OSGFieldTypes, BitVectorsHaveNoText)
{
    SFBitVector field(5);
    std::string text("old");
    EXPECT_EQ(field.getValueByStr(text), "");
    field.pushValueByStr("6");
    EXPECT_EQ(field.getValue(), 5u);
}

TEST(OSGFieldTypes, ListsOfTextAreQuotedOneByOne)
{
    MFString field;
    field.pushValueByStr("bare");
    field.pushValueByStr("\"in quotes\"");
    std::string text;
    EXPECT_EQ(field.getValueByStr(text), "\"bare\", \"in quotes\"");
}

/// The value that \a text is read as, by a field that holds \a before.
template <class FieldT>
typename FieldT::StoredType valueOf(const char *text, const typename FieldT::StoredType &before = {})
{
    FieldT field(before);
    field.pushValueByStr(text);
    return field.getValue();
}

TEST(OSGFieldTypes, NumbersAreReadAsFarAsTheyGo)
{
    EXPECT_EQ(valueOf<SFInt32>("0x10"), 16);
    EXPECT_EQ(valueOf<SFUInt32>("010"), 8u);
    EXPECT_EQ(valueOf<SFInt32>(" -7 more"), -7);
    EXPECT_EQ(valueOf<SFInt32>("more", 5), 0);
    EXPECT_EQ(valueOf<SFUInt64>("0xffffffffffffffff"), std::numeric_limits<UInt64>::max());
    EXPECT_EQ(valueOf<SFReal32>("1,5"), 1);
    EXPECT_EQ(valueOf<SFReal32>(" +2.5x"), 2.5f);
    EXPECT_EQ(valueOf<SFReal64>("x", 5), 0);
}

TEST(OSGFieldTypes, FlagsAreReadInLettersOfAnyCase)
{
    for (const char *word : {"TRUE", "true", "True", "truely"}) {
        EXPECT_TRUE(valueOf<SFBool>(word, false)) << word;
    }
    for (const char *word : {"FALSE", "false", "fAlSe", "false alarm"}) {
        EXPECT_FALSE(valueOf<SFBool>(word, true)) << word;
    }
    for (const char *word : {"1", "0", "no", "", "tru"}) {
        EXPECT_TRUE(valueOf<SFBool>(word, true)) << word;
        EXPECT_FALSE(valueOf<SFBool>(word, false)) << word;
    }
}

TEST(OSGFieldTypes, MissingComponentsAreZero)
{
    const Vec3f before(1, 1, 1);
    EXPECT_EQ(valueOf<SFVec3f>("4 5", before), Vec3f(4, 5, 0));
    EXPECT_EQ(valueOf<SFVec3f>("4, 5, 6, 7", before), Vec3f(4, 5, 6));
    EXPECT_EQ(valueOf<SFVec3f>("4 x 6", before), Vec3f(4, 0, 0));
    EXPECT_EQ(valueOf<SFMatrix>("1 2")[1][0], 2);
    EXPECT_EQ(valueOf<SFMatrix>("1 2")[3][3], 0);
    EXPECT_EQ(valueOf<SFDynamicVolume>("0 0 0 1 2").getMax(), Pnt3f(1, 2, 0));
}

TEST(OSGFieldTypes, WrongElementsOfAListAreZero)
{
    MFBool flags;
    flags.pushValueByStr("no");
    MFNodePtr nodes;
    nodes.pushValueByStr("4000000000");
    EXPECT_EQ(flags.getValues(), (std::vector<bool>{false}));
    EXPECT_EQ(nodes.getValues(), (std::vector<NodePtr>{NullFC}));
}

/// \a text is no value of the field: it keeps the one it has.
template <class FieldT>
void expectRefused(const typename FieldT::StoredType &value, const char *text)
{
    EXPECT_TRUE(FieldT(valueOf<FieldT>(text, value)) == FieldT(value)) << text;
}

TEST(OSGFieldTypes, HandlesAreTextByIdAndChecked)
{
    const NodeRefPtr node(Node::create());
    const GroupRefPtr group(Group::create());
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
    const NameRefPtr name(Name::create());
    const std::string id = std::to_string(name.get().getFieldContainerId());

    expectRoundTrip<SFAttachmentMap>({{7, name.get()}, {9, AttachmentPtr()}}, "7 " + id + " 9 0");
    expectRoundTrip<SFAttachmentMap>({}, "");
    expectRefused<SFAttachmentMap>(AttachmentMap{{1, AttachmentPtr()}}, "5");
    expectRefused<SFAttachmentMap>(AttachmentMap{{1, AttachmentPtr()}}, "5 x");
}

} // namespace
