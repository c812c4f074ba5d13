// SPDX-License-Identifier: MIT
#include <ksLights.h>

#include <gtest/gtest.h>

#include <functional>
#include <support/ksAspects.h>
#include <support/ksRecords.h>
#include <vector>

namespace {

using osg::NodePtr;
using osg::NullFC;
using osg::UberLight;
using osg::Vec3f;

/// A node (id 1) whose core is a light (id 2), and a node (id 3) with a group.
class ksLightsTest : public testing::Test
{
protected:
    ksLightsTest()
    {
        node->setCore(light);
        group->setCore(osg::Group::create());
        osg::endEditCP(light);
        ksSyncAspects();
    }
    ~ksLightsTest() override
    {
        node = NullFC;
        group = NullFC;
        recorder.take();
    }

    ksRecorder recorder;
    osg::NodeRefPtr node{osg::Node::create()};
    osg::UberLightPtr light{UberLight::create()};
    osg::NodeRefPtr group{osg::Node::create()};
};

/// A value of lights: the field, a value for it, its getter and its setter.
template <class T>
struct Property
{
    osg::SField<T> *(UberLight::*field)();
    osg::BitVector mask;
    T value;
    T (*get)(const NodePtr &);
    std::function<void(const NodePtr &, T)> set;
};

template <class T>
class Properties
{
public:
    static const std::vector<Property<T>> all;
};

template <>
const std::vector<Property<Vec3f>> Properties<Vec3f>::all = {
    {&UberLight::getSFDiffuse, UberLight::DiffuseFieldMask, Vec3f(0.1f, 2, -3), &ksLights::getDiffuse,
     &ksLights::setDiffuse},
    {&UberLight::getSFGlossy, UberLight::GlossyFieldMask, Vec3f(0.4f, 5, -6), &ksLights::getGlossy,
     &ksLights::setGlossy}};

template <>
const std::vector<Property<float>> Properties<float>::all = {
    {&UberLight::getSFIntensity, UberLight::IntensityFieldMask, 0.1f, &ksLights::getLightValue,
     &ksLights::setLightValue},
    {&UberLight::getSFPenumbraAngle, UberLight::PenumbraAngleFieldMask, 0.2f, &ksLights::getPenumbraAngle,
     &ksLights::setPenumbraAngle},
    {&UberLight::getSFConeAngle, UberLight::ConeAngleFieldMask, 0.3f, &ksLights::getConeAngle,
     &ksLights::setConeAngle}};

template <class T>
class ksLightsPropertyTest : public ksLightsTest
{};

using PropertyTypes = testing::Types<Vec3f, float>;
TYPED_TEST_SUITE(ksLightsPropertyTest, PropertyTypes);

TYPED_TEST(ksLightsPropertyTest, SetterIsOneEditOfTheFieldThatTheGetterReads)
{
    for (const Property<TypeParam> &property : Properties<TypeParam>::all) {
        property.set(this->node, property.value);

        EXPECT_EQ(property.get(this->node), property.value);
        EXPECT_EQ(((*this->light).*property.field)()->getValue(), property.value);
        EXPECT_EQ(this->recorder.read(*osg::Thread::getCurrentChangeList()),
                  ksRecords().change(2, property.mask));
        ksExpectSync(this->light);
    }
}

TYPED_TEST(ksLightsPropertyTest, SameValueIsAnEditAsWell)
{
    for (const Property<TypeParam> &property : Properties<TypeParam>::all) {
        property.set(this->node, property.get(this->node));

        EXPECT_EQ(this->recorder.take(), ksRecords().change(2, property.mask));
    }
}

TYPED_TEST(ksLightsPropertyTest, OtherNodesHaveZeroAndStay)
{
    const osg::NodeRefPtr bare(osg::Node::create());
    this->recorder.take();
    for (const Property<TypeParam> &property : Properties<TypeParam>::all)
        for (const NodePtr &other : {NodePtr(), this->group.get(), bare.get()}) {
            property.set(other, property.value);

            EXPECT_EQ(property.get(other), TypeParam());
            EXPECT_EQ(this->recorder.take(), ksRecords());
        }
}

TEST_F(ksLightsTest, AttenuationAndIntensityAreOneEdit)
{
    ksLights::setLightValue(node, 2);
    recorder.take();

    ksLights::setAttenuation(node, UberLight::Quadratic);

    EXPECT_EQ(ksLights::getAttenuation(node), UberLight::Quadratic);
    EXPECT_FLOAT_EQ(ksLights::getLightValue(node), 18) << "as bright as before at distance 3";
    EXPECT_EQ(recorder.read(*osg::Thread::getCurrentChangeList()),
              ksRecords().change(2, UberLight::AttenuationFieldMask | UberLight::IntensityFieldMask));
    ksExpectSync(light);
}

TEST_F(ksLightsTest, IntensityThatIsPutBackStaysExact)
{
    ksLights::setLightValue(node, 0.7f);
    for (const auto mode : {UberLight::Linear, UberLight::Quadratic, UberLight::None}) {
        const float intensity = ksLights::getLightValue(node);
        ksLights::setAttenuation(node, mode);
        EXPECT_NE(ksLights::getLightValue(node), intensity);
        ksLights::setLightValue(node, intensity);
        EXPECT_EQ(ksLights::getLightValue(node), 0.7f);
    }
}

TEST_F(ksLightsTest, OtherNodesHaveNoAttenuation)
{
    for (const NodePtr &other : {NodePtr(), group.get()}) {
        ksLights::setAttenuation(other, UberLight::Linear);

        EXPECT_EQ(ksLights::getAttenuation(other), UberLight::None);
        EXPECT_EQ(recorder.take(), ksRecords());
    }
}

TEST_F(ksLightsTest, InstanceIsABitOfTheExternalFlags)
{
    EXPECT_FALSE(ksLights::isInstance(node));
    EXPECT_FALSE(ksLights::isInstance(NullFC));

    node->setInternalFlags(0xFFFFFFFF);
    node->setExternalFlags(~0x2u);
    EXPECT_FALSE(ksLights::isInstance(node));

    node->setInternalFlags(0);
    node->setExternalFlags(0x2);
    EXPECT_TRUE(ksLights::isInstance(node));
}

TEST_F(ksLightsTest, ExclusionFromSubstitutionIsABitOfTheInternalFlags)
{
    EXPECT_FALSE(ksLights::isExcludedFromInstanceSubstitution(node));
    EXPECT_FALSE(ksLights::isExcludedFromInstanceSubstitution(NullFC));

    node->setExternalFlags(0xFFFFFFFF);
    node->setInternalFlags(~0x1000u);
    EXPECT_FALSE(ksLights::isExcludedFromInstanceSubstitution(node));

    node->setExternalFlags(0);
    node->setInternalFlags(0x1000);
    EXPECT_TRUE(ksLights::isExcludedFromInstanceSubstitution(node));
}

} // namespace
