// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFSysTypes.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace osg;

static_assert(std::is_same_v<SFUInt32::ArgumentType, UInt32>);
static_assert(std::is_same_v<SFString::ArgumentType, const std::string &>);
static_assert(std::is_same_v<SFString::StoredType, std::string>);
static_assert(std::is_same_v<MFString::StorageType, std::vector<std::string>>);
static_assert(!std::is_default_constructible_v<Field>);

TEST(OSGSField, HoldsOneValue)
{
    SFUInt32 field(3);
    const SFUInt32 &seen = field;

    EXPECT_EQ(SFUInt32().getValue(), 0u);
    EXPECT_EQ(seen.getValue(), 3u);
    field.getValue() = 4;
    EXPECT_EQ(seen.getValue(), 4u);
    field.setValue(5);
    EXPECT_EQ(seen.getValue(), 5u);
    field.setValue(SFUInt32(6));
    EXPECT_EQ(seen.getValue(), 6u);
    field.syncWith(SFUInt32(7));
    EXPECT_EQ(seen.getValue(), 7u);
    EXPECT_FALSE(field.isEmpty());
    EXPECT_EQ(field.getSize(), 1u);
    EXPECT_TRUE(field == SFUInt32(7));
    EXPECT_TRUE(field != SFUInt32(8));
}

TEST(OSGSField, ReadsAndWritesText)
{
    std::string text("old");
    SFInt32 number(-12);
    EXPECT_EQ(number.getValueByStr(text), "-12");
    EXPECT_EQ(text, "-12");
    number.pushValueByStr("40");
    EXPECT_EQ(number.getValue(), 40);
    number.pushValueByStr("4x");
    EXPECT_EQ(number.getValue(), 4) << "as far as it is a number";
    number.pushValueByStr("");
    EXPECT_EQ(number.getValue(), 0);
}

TEST(OSGMField, BehavesLikeAVector)
{
    MFInt32 field;
    EXPECT_TRUE(field.empty());
    EXPECT_TRUE(field.isEmpty());
    field.reserve(8);
    EXPECT_GE(field.capacity(), 8u);
    field.push_back(1);
    field.addValue(3);
    EXPECT_EQ(*field.insert(field.begin() + 1, 2), 2);
    EXPECT_EQ(field.size(), 3u);
    EXPECT_EQ(field.getSize(), 3u);
    EXPECT_EQ(field.front(), 1);
    EXPECT_EQ(field.back(), 3);
    EXPECT_EQ(field[1], 2);
    EXPECT_EQ(*field.rbegin(), 3);
    EXPECT_EQ(std::vector<Int32>(field.rbegin(), field.rend()), (std::vector<Int32>{3, 2, 1}));
    EXPECT_EQ(field.find(3) - field.begin(), 2);
    EXPECT_TRUE(field.find(4) == field.end());
    EXPECT_EQ(*field.erase(field.begin()), 2);
    field.setValue(9, 0);
    EXPECT_EQ(field.getValue(0), 9);
    field.resize(4, 5);
    EXPECT_EQ(field.getValues(), (std::vector<Int32>{9, 3, 5, 5}));
    eraseFirst(field, 5);
    eraseFirst(field, 77);
    EXPECT_EQ(field.getValues(), (std::vector<Int32>{9, 3, 5}));

    MFInt32 other;
    other.setValues(std::vector<Int32>{4});
    field.swap(other);
    EXPECT_EQ(field.getValues(), (std::vector<Int32>{4}));
    field.setValues(other);
    EXPECT_TRUE(field == other);
    field.clear();
    EXPECT_TRUE(field != other);
    field.syncWith(other);
    EXPECT_TRUE(field == other);
}

TEST(OSGMField, ReadsAndWritesText)
{
    std::string text("old ");
    MFInt32 field;
    EXPECT_EQ(field.getValueByStr(text), "old ");
    field.pushValueByStr("4");
    field.pushValueByStr("-5");
    field.pushValueByStr("six");
    EXPECT_EQ(field.getValueByStr(text), "old 4, -5, 0");
}

TEST(OSGMField, IsMadeWithASize)
{
    EXPECT_EQ(MFInt32(3u).getValues(), (std::vector<Int32>{0, 0, 0}));
}

TEST(OSGMField, HoldsFlags)
{
    MFBool flags;
    flags.push_back(true);
    flags.push_back(false);
    flags[1] = true;
    std::string text;
    EXPECT_EQ(flags.getValueByStr(text), "TRUE, TRUE");
}

TEST(OSGField, CopiesOnlyItsOwnType)
{
    SFUInt32 field(1);
    MFUInt32 list;
    list.push_back(7);
    Field &abstract = field;

    abstract.setAbstrValue(SFUInt32(2));
    EXPECT_EQ(field.getValue(), 2u);
    abstract.setAbstrValue(SFInt32(3));
    EXPECT_EQ(field.getValue(), 2u);
    abstract.setAbstrValue(SFGLenum(4));
    EXPECT_EQ(field.getValue(), 2u);
    abstract.setAbstrValue(list);
    EXPECT_EQ(field.getValue(), 2u);

    MFUInt32 copy;
    static_cast<Field &>(copy).setAbstrValue(list);
    EXPECT_TRUE(copy == list);
    static_cast<Field &>(copy).setAbstrValue(field);
    EXPECT_TRUE(copy == list);
}

TEST(OSGField, CopyingHandlesCountsNoReference)
{
    const NodeRefPtr node(Node::create());
    const SFNodePtr source(node);
    SFNodePtr field;

    static_cast<Field &>(field).setAbstrValue(source);

    EXPECT_TRUE(field.getValue() == node.get());
    EXPECT_EQ(node.get().getRefCount(), 1);
}

TEST(OSGField, IsKnownByItsTypeAtRunTime)
{
    const std::unique_ptr<Field> field = std::make_unique<SFUInt32>(1u);

    EXPECT_TRUE(field->getType() == SFUInt32::getClassType());
    EXPECT_FALSE(field->getType() == SFGLenum::getClassType());
    EXPECT_STREQ(field->getType().getCName(), "SFUInt32");
    EXPECT_STREQ(field->getContentType().getCName(), "UInt32");
    EXPECT_EQ(field->getCardinality(), FieldType::SINGLE_FIELD);
    EXPECT_EQ(MFUInt32().getCardinality(), FieldType::MULTI_FIELD);
    EXPECT_NE(dynamic_cast<SFUInt32 *>(field.get()), nullptr);
    EXPECT_EQ(dynamic_cast<SFGLenum *>(field.get()), nullptr);
    EXPECT_EQ(dynamic_cast<SFInt32 *>(field.get()), nullptr);
}

TEST(OSGField, HandleFieldsAreExactlyTheirOwnClass)
{
    const std::unique_ptr<Field> field = std::make_unique<SFNodeCorePtr>();

    EXPECT_NE(dynamic_cast<SFNodeCorePtr *>(field.get()), nullptr);
    EXPECT_EQ(dynamic_cast<SFFieldContainerPtr *>(field.get()), nullptr);
    EXPECT_NE(std::string(field->getType().getCName()).find("Ptr"), std::string::npos);
}

TEST(OSGField, DumpsTypeAndValue)
{
    std::string line;
    const LogSink previous = setLogSink([&](const std::string &text) { line = text; });
    SFInt32(5).dump();
    setLogSink(previous);
    EXPECT_EQ(line, "SFInt32: 5");
}

TEST(OSGFieldFactory, MakesFieldsByIdAndName)
{
    FieldFactory &factory = FieldFactory::the();
    const SFString source("text");

    const std::unique_ptr<Field> copy(factory.createField(source.getType().getId()));
    copy->setAbstrValue(source);
    const std::unique_ptr<Field> named(factory.createField("MFInt32"));

    ASSERT_NE(dynamic_cast<SFString *>(copy.get()), nullptr);
    EXPECT_TRUE(static_cast<SFString &>(*copy) == source);
    EXPECT_NE(dynamic_cast<MFInt32 *>(named.get()), nullptr);
    EXPECT_EQ(factory.createField(0u), nullptr);
    EXPECT_EQ(factory.createField("SFNoSuchType"), nullptr);
    EXPECT_EQ(factory.createField(static_cast<const Char8 *>(nullptr)), nullptr);
    EXPECT_EQ(factory.getFieldType("SFString"), &SFString::getClassType());
    EXPECT_EQ(factory.getFieldType(SFString::getClassType().getId()), &SFString::getClassType());
    FieldType *type = FieldFactory::getFieldType("SFString");
    EXPECT_EQ(type, &SFString::getClassType());
    EXPECT_GE(factory.getNFieldTypes(), 60u);
}

} // namespace
