// SPDX-License-Identifier: MIT
#include "OSGShelf.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <string>
#include <type_traits>

OSG_BEGIN_NAMESPACE

#define OSG_HEATER_FIELDS(SF, MF) SF(SFUInt32, stage, Stage, 1)

OSG_CONTAINER_POINTER(Heater, LampPtr)
OSG_CONTAINER_BASE(Heater, Lamp, OSG_HEATER_FIELDS)

/// A lamp that heats even more: a class with a start of its own below one without.
class Heater : public HeaterBase
{
    OSG_CONTAINER(Heater)

public:
    static int &starts()
    {
        static int count;
        return count;
    }

private:
    static void initMethod() { ++starts(); }
};

OSG_DEFINE_CONTAINER(Heater, Lamp, "warmth", OSG_HEATER_FIELDS)

#define OSG_TAPE_FIELDS(SF, MF) SF(SFLampPtr, lamp, Lamp, NullFC) MF(MFLampPtr, lamps, Lamps)

OSG_CONTAINER_POINTER(Tape, FieldContainerPtr)
OSG_CONTAINER_BASE(Tape, FieldContainer, OSG_TAPE_FIELDS)

/// A container that derives from the base of all.
class Tape : public TapeBase
{
    OSG_CONTAINER(Tape)
};

OSG_DEFINE_CONTAINER(Tape, FieldContainer, "", OSG_TAPE_FIELDS)

OSG_END_NAMESPACE

namespace {

using namespace osg;

static_assert(std::is_same_v<LampPtr, FCPtr<NodeCorePtr, Lamp>>);
static_assert(std::is_same_v<TapePtr, FCPtr<FieldContainerPtr, Tape>>);
static_assert(!std::is_default_constructible_v<Lamp> && !std::is_copy_constructible_v<Lamp>);
static_assert(!std::is_copy_assignable_v<Lamp> && !std::is_destructible_v<Lamp>);
static_assert(Lamp::PowerFieldId == 3 && Lamp::LabelsFieldId == 4 && Lamp::HeatFieldId == 5);
static_assert(Lamp::NextFieldId == 6 && Heater::StageFieldId == 6);
static_assert(Lamp::LabelsFieldMask == 0x10);

TEST(OSGContainerMacros, TypeHasNameParentGroupAndFields)
{
    const FieldContainerType &type = Lamp::getClassType();
    EXPECT_STREQ(type.getCName(), "Lamp");
    EXPECT_EQ(type.getParent(), &NodeCore::getClassType());
    EXPECT_EQ(Lamp::getClassTypeId(), type.getId());
    EXPECT_EQ(Lamp::getClassGroupId(), type.getGroupId());
    EXPECT_EQ(FieldContainerFactory::the()->findGroupId("Lamp"), type.getGroupId());
    EXPECT_TRUE(type.isNodeCore());

    EXPECT_EQ(type.getNumFieldDescs(), 5u);
    EXPECT_TRUE(type.findFieldDescription("power")->getFieldType() == SFReal32::getClassType());
    EXPECT_FALSE(type.findFieldDescription("power")->isInternal());
    EXPECT_TRUE(type.findFieldDescription("labels")->getFieldType() == MFString::getClassType());
    EXPECT_TRUE(type.findFieldDescription("heat")->isInternal());
    EXPECT_EQ(type.findFieldDescription("heat")->getDefaultValue(), nullptr);

    EXPECT_STREQ(FieldContainerFactory::the()->findGroupName(Heater::getClassGroupId()), "warmth");
    EXPECT_EQ(Heater::getClassType().getNumFieldDescs(), 6u);
    EXPECT_EQ(Heater::starts(), 1);
}

TEST(OSGContainerMacros, FieldsHaveAccessors)
{
    const LampRefPtr lamp(Lamp::create());
    const Lamp &seen = *lamp;

    EXPECT_EQ(lamp->getPower(), 40.0f);
    lamp->setPower(60.0f);
    EXPECT_EQ(seen.getPower(), 60.0f);
    lamp->getPower() = 75.0f;
    EXPECT_EQ(lamp->getSFPower()->getValue(), 75.0f);

    EXPECT_TRUE(lamp->getLabels().empty());
    lamp->getLabels().push_back("a");
    lamp->getLabels(0) = "b";
    EXPECT_EQ(seen.getLabels(0), "b");
    EXPECT_EQ(seen.getLabels().size(), 1u);
    EXPECT_EQ(lamp->getMFLabels(), &lamp->getLabels());

    EXPECT_EQ(lamp->getField("power"), lamp->getSFPower());
    EXPECT_EQ(lamp->getField(Lamp::LabelsFieldId), lamp->getMFLabels());
    EXPECT_EQ(lamp->getContainerSize(), sizeof(Lamp));
}

TEST(OSGContainerMacros, CopiesHaveTheValues)
{
    const LampRefPtr lamp(Lamp::create());
    lamp->setPower(60.0f);
    lamp->getLabels().push_back("a");

    const LampRefPtr copy(LampPtr::dcast(lamp->shallowCopy()));
    const LampRefPtr fresh(Lamp::createEmpty());

    EXPECT_EQ(copy->getPower(), 60.0f);
    EXPECT_EQ(copy->getLabels().size(), 1u);
    EXPECT_EQ(fresh->getPower(), 40.0f);
    EXPECT_EQ(&copy->getType(), &Lamp::getClassType());
}

TEST(OSGContainerMacros, ChangeHandlerRuns)
{
    const LampRefPtr lamp(Lamp::create());
    lamp->setPower(100.0f);
    EXPECT_EQ(lamp->getHeat(), 0.0f);
    endEditCP(lamp, Lamp::PowerFieldMask);
    EXPECT_EQ(lamp->getHeat(), 90.0f);
}

TEST(OSGContainerMacros, DerivedContainersAreOfBothClasses)
{
    const HeaterRefPtr heater(Heater::create());
    EXPECT_EQ(heater->getPower(), 40.0f);
    EXPECT_EQ(heater->getStage(), 1u);
    EXPECT_TRUE(LampPtr::dcast(heater.get()) == heater.get());
    EXPECT_TRUE(HeaterPtr::dcast(LampRefPtr(Lamp::create()).get()) == NullFC);
}

TEST(OSGContainerMacros, HandlesAreFieldValues)
{
    EXPECT_STREQ(SFLampPtr::getClassType().getCName(), "SFLampPtr");
    EXPECT_STREQ(MFLampPtr::getClassType().getCName(), "MFLampPtr");
    EXPECT_STREQ(SFLampPtr::getClassType().getContentType().getCName(), "LampPtr");

    const TapeRefPtr tape(Tape::create());
    const LampRefPtr lamp(Lamp::create());
    tape->setLamp(lamp);
    tape->getLamps().push_back(lamp);
    EXPECT_EQ(lamp.get().getRefCount(), 1) << "generated setters count nothing";
    EXPECT_TRUE(tape->getLamp() == lamp.get());
}

TEST(OSGContainerMacros, ContainersHoldReferences)
{
    const LampRefPtr lamp(Lamp::create());
    {
        const RefPtr<ShelfPtr> shelf(Shelf::create());
        shelf->addLamp(lamp);
        EXPECT_EQ(lamp.get().getRefCount(), 2);
        const RefPtr<ShelfPtr> copy(ShelfPtr::dcast(shelf->shallowCopy()));
        EXPECT_TRUE(copy->getLamps().empty());
    }
    EXPECT_EQ(lamp.get().getRefCount(), 1);
}

/// The text of a file of the repository.
std::string textOf(const std::string &path)
{
    std::ifstream file(std::string(KS_SOURCE_FOLDER) + '/' + path);
    EXPECT_TRUE(file) << path;
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

TEST(OSGContainerMacros, DocumentedExamplesAreThoseCompiledHere)
{
    const std::string documentation = textOf("docs/declaring-a-container.md");

    for (const char *file : {"OSGLamp.h", "OSGLamp.cpp"}) {
        const std::string code = textOf(std::string("tests/platform/opensg/") + file);
        EXPECT_THAT(documentation, testing::HasSubstr("```cpp\n" + code + "```")) << file;
    }
    const std::string shelf = textOf("tests/platform/opensg/OSGShelf.h");
    const std::string end = "};\n";
    const std::size_t first = shelf.find("class Shelf");
    ASSERT_NE(first, std::string::npos);
    const std::string shelfClass = shelf.substr(first, shelf.rfind(end) + end.size() - first);
    EXPECT_THAT(documentation, testing::HasSubstr("```cpp\n" + shelfClass + "```"));
}

} // namespace
