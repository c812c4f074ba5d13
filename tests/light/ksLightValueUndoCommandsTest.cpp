// SPDX-License-Identifier: MIT
#include "ksLightFixture.h"

#include <ksundo/light/ksLightValueUndoCommands.h>

#include <ksLights.h>

#include <array>
#include <support/ksSlotSwap.h>
#include <type_traits>
#include <vector>

static_assert(std::is_same_v<decltype(std::declval<ksLightDiffuseUndoCommand &>().get(osg::NodePtr())),
                             osg::Vector<float, 3u>>);
static_assert(std::is_base_of_v<ksFunctionUndoCommand<osg::Vector<float, 3u>>,
                                ksLightUndoCommand<osg::Vector<float, 3u>>>);
static_assert(std::is_base_of_v<ksFunctionUndoCommand<float>, ksLightUndoCommand<float>>);
static_assert(sizeof(osg::UberLight::LightAttenuation) == 4);

namespace {

using osg::UberLight;
using Color = osg::Vector<float, 3u>;

/// Values to write that differ from each other, and from what lights start with.
template <class T>
std::array<T, 3> samples();

template <>
std::array<Color, 3> samples()
{
    return {Color(0.1f, 0.2f, 0.3f), Color(0.9f, -0.0f, 3.3f), Color(-1, 0, 1e30f)};
}

template <>
std::array<float, 3> samples()
{
    return {0.1f, 33.3f, -7.7f};
}

template <>
std::array<UberLight::LightAttenuation, 3> samples()
{
    return {UberLight::Quadratic, UberLight::Linear, static_cast<UberLight::LightAttenuation>(77)};
}

/// One of the six classes: its application's getter and setter, and the light's field.
template <class CommandT, class ValueT, auto getter, auto setter, const char *name>
struct Property
{
    using Command = CommandT;
    using Value = ValueT;

    static ValueT read(const osg::NodePtr &node) { return getter(node); }
    static void write(const osg::NodePtr &node, ValueT value) { setter(node, value); }
    static const char *field() { return name; }
};

constexpr char diffuse[] = "diffuse";
constexpr char glossy[] = "glossy";
constexpr char intensity[] = "intensity";
constexpr char penumbraAngle[] = "penumbraAngle";
constexpr char coneAngle[] = "coneAngle";
constexpr char attenuation[] = "attenuation";

using Properties = testing::Types<
    Property<ksLightDiffuseUndoCommand, Color, &ksLights::getDiffuse, &ksLights::setDiffuse, diffuse>,
    Property<ksLightGlossyUndoCommand, Color, &ksLights::getGlossy, &ksLights::setGlossy, glossy>,
    Property<ksLightIntensityUndoCommand, float, &ksLights::getLightValue, &ksLights::setLightValue,
             intensity>,
    Property<ksLightPenumbraAngleUndoCommand, float, &ksLights::getPenumbraAngle, &ksLights::setPenumbraAngle,
             penumbraAngle>,
    Property<ksLightConeAngleUndoCommand, float, &ksLights::getConeAngle, &ksLights::setConeAngle, coneAngle>,
    Property<ksLightAttenuationUndoCommand, UberLight::LightAttenuation, &ksLights::getAttenuation,
             &ksLights::setAttenuation, attenuation>>;

template <class PropertyT>
class ksLightValueUndoCommandsTest : public ksLightFixture
{
protected:
    using Command = typename PropertyT::Command;
    using Value = typename PropertyT::Value;

    ksLightValueUndoCommandsTest() { PropertyT::write(lamp, first); }

    const Value first = samples<Value>()[0];
    const Value second = samples<Value>()[1];
    const Value third = samples<Value>()[2];
    Command command{QString(), lamp, second};
};

struct PropertyName
{
    template <class PropertyT>
    static std::string GetName(int)
    {
        return PropertyT::field();
    }
};

using ksLightAttenuationUndoCommandTest = ksLightFixture;

} // namespace

TYPED_TEST_SUITE(ksLightValueUndoCommandsTest, Properties, PropertyName);

TYPED_TEST(ksLightValueUndoCommandsTest, ChangesOnlyItsFieldAndBringsTheLightBack)
{
    const auto before = this->scene();
    const long long core = this->recorder.idOf(this->lamp->getCore());
    for (int i = 0; i < 2; ++i) {
        this->command.redo();
        EXPECT_EQ(TypeParam::read(this->lamp), this->second);
        auto after = this->scene();
        after.at(core).at(TypeParam::field()) = before.at(core).at(TypeParam::field());
        EXPECT_EQ(after, before);
        this->command.undo();
        EXPECT_EQ(this->scene(), before);
    }
}

TYPED_TEST(ksLightValueUndoCommandsTest, ReadsAndWritesThroughTheApplicationTheNodeThatItIsGiven)
{
    EXPECT_EQ(this->command.get(this->lamp), this->first);
    TypeParam::write(this->torch, this->third);
    EXPECT_EQ(this->command.get(this->torch), this->third);
    this->command.set(this->torch, this->second);
    EXPECT_EQ(TypeParam::read(this->torch), this->second);
    EXPECT_EQ(TypeParam::read(this->lamp), this->first);
}

TYPED_TEST(ksLightValueUndoCommandsTest, FindsNothingInANodeThatIsNoLight)
{
    typename TypeParam::Command command(QString(), this->root, this->second);
    this->expectIdle(command);
    const ksSlotSwap swap(this->root.get().getFieldContainerId(), this->lamp.get());
    command.redo();
    EXPECT_EQ(TypeParam::read(this->lamp), typename TypeParam::Value()) << "what such a node has is nothing";
}

TEST_F(ksLightAttenuationUndoCommandTest, KeepsTheIntensityThatTheApplicationDisturbs)
{
    ksLights::setLightValue(lamp, 0.7f);
    ksLights::setAttenuation(lamp, UberLight::Linear);
    const float disturbed = ksLights::getLightValue(lamp);
    ASSERT_NE(disturbed, 0.7f);

    ksLightAttenuationUndoCommand command(QString(), lamp, UberLight::Quadratic);
    command.redo();
    EXPECT_EQ(ksLights::getLightValue(lamp), disturbed);
    ksLights::setLightValue(lamp, 0.1f);
    command.undo();
    EXPECT_EQ(ksLights::getAttenuation(lamp), UberLight::Linear);
    EXPECT_EQ(ksLights::getLightValue(lamp), 0.1f) << "as it was before this step, not before the redo";
}

TEST_F(ksLightAttenuationUndoCommandTest, WritesTheModeAndThenTheIntensityBack)
{
    ksLights::setLightValue(lamp, 0.7f);
    ksHandlerCalls calls([this] {
        const ksFieldTexts texts = ksFieldTextsOf(lamp->getCore());
        return texts.at("attenuation") + (ksLights::getLightValue(lamp) == 0.7f ? " kept" : " disturbed");
    });
    ksLightAttenuationUndoCommand command(QString(), lamp, UberLight::Quadratic);
    const auto found = [&calls] {
        std::vector<std::string> result;
        for (const ksHandlerCall &call : calls.take())
            result.push_back(call.found);
        return result;
    };
    command.redo();
    EXPECT_THAT(found(), testing::ElementsAre("2 disturbed", "2 kept"));
    command.undo();
    EXPECT_THAT(found(), testing::ElementsAre("0 disturbed", "0 kept"));
}
