// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGUberMaterial.h>

#include <gtest/gtest.h>

#include <support/ksAspects.h>
#include <support/ksRecords.h>

namespace {

using namespace osg;

constexpr BitVector Data = UberMaterialBase::ColorComponentDataFieldMask;

/// A material (id 1) with a red component of weight 3 (id 2) and a blue one of weight 1 (id 3), the same in
/// both aspects.
class OSGUberMaterialTest : public testing::Test
{
protected:
    OSGUberMaterialTest()
    {
        red = add(Vec3f(1, 0, 0), 3);
        blue = add(Vec3f(0, 0, 1), 1);
        touch();
        ksSyncAspects();
    }
    ~OSGUberMaterialTest() override
    {
        material = NullFC;
        recorder.take();
    }

    ColorComponentPtr add(const Vec3f &color, Real32 weight)
    {
        const ColorComponentPtr component = ColorComponent::create();
        component->setColor(color);
        component->setWeight(weight);
        endEditCP(component);
        material->addColorComponent(component);
        return component;
    }

    void touch() { endEditCP(material, Data); }

    ksRecorder recorder;
    UberMaterialRefPtr material{UberMaterial::create()};
    ColorComponentPtr red;
    ColorComponentPtr blue;
};

TEST_F(OSGUberMaterialTest, IsAMaterialWithTheseFields)
{
    EXPECT_EQ(UberMaterial::getClassType().getParent(), &Material::getClassType());
    EXPECT_EQ(ksFieldTableOf<UberMaterial>(),
              (std::vector<std::string>{"colorComponentData MFColorComponentPtr = ",
                                        "componentSettings SFColorComponentSettingsPtr = 0"}));
}

TEST_F(OSGUberMaterialTest, BlendsTheColorsByTheirWeights)
{
    EXPECT_EQ(material->getBlendedColor(), Vec3f(0.75f, 0, 0.25f));
}

TEST_F(OSGUberMaterialTest, LeavesOutWhatIsDisabledOrHasNoWeight)
{
    blue->setWeight(-1);
    touch();
    EXPECT_EQ(material->getBlendedColor(), Vec3f(1, 0, 0));

    red->setEnabled(false);
    touch();
    EXPECT_EQ(material->getBlendedColor(), Vec3f(1, 1, 1)) << "nothing is left to blend";
}

TEST_F(OSGUberMaterialTest, IsWhiteWithoutComponents)
{
    EXPECT_EQ(UberMaterialRefPtr(UberMaterial::create())->getBlendedColor(), Vec3f(1, 1, 1));

    EXPECT_TRUE(material->subColorComponent(red));
    EXPECT_TRUE(material->subColorComponent(blue));
    touch();
    EXPECT_EQ(material->getBlendedColor(), Vec3f(1, 1, 1));
}

TEST_F(OSGUberMaterialTest, BlendsAgainOnlyWithAnEditOfTheData)
{
    red->setColor(Vec3f(0, 1, 0));
    endEditCP(red, ColorComponent::ColorFieldMask);
    endEditCP(material, FieldBits::AllFields & ~Data);
    EXPECT_EQ(material->getBlendedColor(), Vec3f(0.75f, 0, 0.25f));

    recorder.take();
    touch();
    EXPECT_EQ(material->getBlendedColor(), Vec3f(0, 0.75f, 0.25f));
    EXPECT_EQ(recorder.take(), ksRecords().change(1, Data)) << "the blended colour is no field";
}

TEST_F(OSGUberMaterialTest, EveryAspectBlendsByItself)
{
    const auto blendedInOtherAspect = [this] {
        const AspectScope other(1);
        return material->getBlendedColor();
    };
    EXPECT_EQ(blendedInOtherAspect(), Vec3f(0.75f, 0, 0.25f));

    blue->setColor(Vec3f(0, 1, 0));
    endEditCP(blue, ColorComponent::ColorFieldMask);
    touch();
    EXPECT_EQ(blendedInOtherAspect(), Vec3f(0.75f, 0, 0.25f));

    ksSyncAspects();
    EXPECT_EQ(blendedInOtherAspect(), Vec3f(0.75f, 0.25f, 0));
}

TEST_F(OSGUberMaterialTest, TellsWhetherAComponentWasRemoved)
{
    const ColorComponentRefPtr other(ColorComponent::create());

    EXPECT_FALSE(material->subColorComponent(other));
    EXPECT_FALSE(material->subColorComponent(NullFC));
    EXPECT_TRUE(material->subColorComponent(red));
    EXPECT_FALSE(material->subColorComponent(red));
}

TEST_F(OSGUberMaterialTest, ComponentMayBeListedTwice)
{
    const Int32 before = red.getRefCount();
    material->addColorComponent(red);
    EXPECT_EQ(red.getRefCount(), before + 1);

    EXPECT_TRUE(material->subColorComponent(red));

    EXPECT_EQ(red.getRefCount(), before);
    EXPECT_EQ(material->getColorComponentData().getValues(), (std::vector<ColorComponentPtr>{blue, red}));
}

} // namespace
