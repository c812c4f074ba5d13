// SPDX-License-Identifier: MIT
#include "ksLightFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/light/ksLightValueUndoCommands.h>

#include <ksLights.h>

#include <array>
#include <memory>
#include <set>
#include <support/ksEchoTranslator.h>
#include <support/ksStackRecorder.h>
#include <support/ksVirtualSlot.h>
#include <thread>
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

/// One of the six classes: its application's getter and setter, the light's field, and what each of a step's
/// edits names.
template <class CommandT, class ValueT, auto getter, auto setter, const char *name, osg::BitVector... masks>
struct Property
{
    using Command = CommandT;
    using Value = ValueT;

    static ValueT read(const osg::NodePtr &node) { return getter(node); }
    static void write(const osg::NodePtr &node, ValueT value) { setter(node, value); }
    static const char *field() { return name; }
    static std::vector<osg::BitVector> edits() { return {masks...}; }
};

constexpr char diffuse[] = "diffuse";
constexpr char glossy[] = "glossy";
constexpr char intensity[] = "intensity";
constexpr char penumbraAngle[] = "penumbraAngle";
constexpr char coneAngle[] = "coneAngle";
constexpr char attenuation[] = "attenuation";

using Diffuse = Property<ksLightDiffuseUndoCommand, Color, &ksLights::getDiffuse, &ksLights::setDiffuse,
                         diffuse, UberLight::DiffuseFieldMask>;
using Glossy = Property<ksLightGlossyUndoCommand, Color, &ksLights::getGlossy, &ksLights::setGlossy, glossy,
                        UberLight::GlossyFieldMask>;
using Intensity = Property<ksLightIntensityUndoCommand, float, &ksLights::getLightValue,
                           &ksLights::setLightValue, intensity, UberLight::IntensityFieldMask>;
using PenumbraAngle = Property<ksLightPenumbraAngleUndoCommand, float, &ksLights::getPenumbraAngle,
                               &ksLights::setPenumbraAngle, penumbraAngle, UberLight::PenumbraAngleFieldMask>;
using ConeAngle = Property<ksLightConeAngleUndoCommand, float, &ksLights::getConeAngle,
                           &ksLights::setConeAngle, coneAngle, UberLight::ConeAngleFieldMask>;
using Attenuation =
    Property<ksLightAttenuationUndoCommand, UberLight::LightAttenuation, &ksLights::getAttenuation,
             &ksLights::setAttenuation, attenuation,
             UberLight::AttenuationFieldMask | UberLight::IntensityFieldMask, UberLight::IntensityFieldMask>;

template <class PropertyT>
class ksLightValueUndoCommandsTest : public ksLightFixture
{
protected:
    using Command = typename PropertyT::Command;
    using Value = typename PropertyT::Value;

    ksLightValueUndoCommandsTest() { PropertyT::write(lamp, first); }

    static Command command(const osg::NodePtr &node, Value value, QUndoCommand *parent = nullptr)
    {
        return Command(QStringLiteral("Set %1 of 'light'"), node, value, parent);
    }

    Value read() const { return PropertyT::read(lamp); }

    /// All fields of the lamp's light.
    ksFieldTexts light() const { return ksFieldTextsOf(lamp->getCore()); }

    /// The records of one step.
    ksRecords step() const
    {
        ksRecords records;
        for (const osg::BitVector mask : PropertyT::edits())
            records.change(recorder.idOf(lamp->getCore()), mask);
        return records;
    }

    const Value first = samples<Value>()[0];
    const Value second = samples<Value>()[1];
    const Value third = samples<Value>()[2];
};

using Properties = testing::Types<Diffuse, Glossy, Intensity, PenumbraAngle, ConeAngle, Attenuation>;

struct PropertyName
{
    template <class PropertyT>
    static std::string GetName(int)
    {
        return PropertyT::field();
    }
};

using ksLightCommands = ksLightFixture;

} // namespace

TYPED_TEST_SUITE(ksLightValueUndoCommandsTest, Properties, PropertyName);

TYPED_TEST(ksLightValueUndoCommandsTest, ExchangesTheValueAtEveryStep)
{
    auto command = this->command(this->lamp, this->second);
    EXPECT_EQ(this->read(), this->first) << "nothing is written before the command runs";
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_EQ(this->read(), this->second);
        command.undo();
        EXPECT_EQ(this->read(), this->first);
    }
}

TYPED_TEST(ksLightValueUndoCommandsTest, ExchangesAsWellWhenUndoComesFirst)
{
    auto command = this->command(this->lamp, this->second);
    command.undo();
    EXPECT_EQ(this->read(), this->second);
    command.redo();
    EXPECT_EQ(this->read(), this->first);
}

TYPED_TEST(ksLightValueUndoCommandsTest, ExchangesWithWhateverIsThere)
{
    auto command = this->command(this->lamp, this->second);
    command.redo();
    TypeParam::write(this->lamp, this->third);
    command.undo();
    EXPECT_EQ(this->read(), this->first);
    command.redo();
    EXPECT_EQ(this->read(), this->third);
}

TYPED_TEST(ksLightValueUndoCommandsTest, ChangesOnlyItsFieldAndBringsTheLightBack)
{
    const auto before = this->scene();
    const long long core = this->recorder.idOf(this->lamp->getCore());
    auto command = this->command(this->lamp, this->second);
    command.redo();
    auto after = this->scene();
    EXPECT_NE(after, before);
    after.at(core).at(TypeParam::field()) = before.at(core).at(TypeParam::field());
    EXPECT_EQ(after, before);
    command.undo();
    EXPECT_EQ(this->scene(), before);
}

TYPED_TEST(ksLightValueUndoCommandsTest, ReadsAndWritesThroughTheApplicationTheNodeThatItIsGiven)
{
    auto command = this->command(this->lamp, this->second);
    EXPECT_EQ(command.get(this->lamp), this->first);
    TypeParam::write(this->torch, this->third);
    EXPECT_EQ(command.get(this->torch), this->third);
    command.set(this->torch, this->second);
    EXPECT_EQ(TypeParam::read(this->torch), this->second);
    EXPECT_EQ(this->read(), this->first);
}

TYPED_TEST(ksLightValueUndoCommandsTest, RecordsItsEditsAtEveryStep)
{
    auto command = this->command(this->lamp, this->second);
    auto unchanging = this->command(this->lamp, this->first);
    this->forget();
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_EQ(this->recorder.take(), this->step());
        command.undo();
        EXPECT_EQ(this->recorder.take(), this->step());
    }
    unchanging.redo();
    EXPECT_EQ(this->recorder.take(), this->step()) << "what is there already is written as well";
}

TYPED_TEST(ksLightValueUndoCommandsTest, CallsTheChangeHandlerForEachEdit)
{
    ksHandlerCalls calls([this] { return this->light()[TypeParam::field()]; });
    const std::string before = this->light()[TypeParam::field()];
    auto command = this->command(this->lamp, this->second);
    const auto expected = [this](const std::string &value) {
        std::vector<ksHandlerCall> result;
        for (const osg::BitVector mask : TypeParam::edits())
            result.push_back({this->lamp->getCore().getFieldContainerId(), mask, 1,
                              static_cast<osg::UInt32>(result.size()) + 1, value});
        return result;
    };
    this->forget();
    command.redo();
    EXPECT_EQ(calls.take(), expected(this->light()[TypeParam::field()]));
    this->forget();
    command.undo();
    EXPECT_EQ(calls.take(), expected(before));
}

TYPED_TEST(ksLightValueUndoCommandsTest, OnlyRecordsWhileChangesAreIgnored)
{
    ksHandlerCalls calls([] { return ""; });
    auto command = this->command(this->lamp, this->second);
    this->forget();
    osg::FieldContainerPtr::_ignore_change = true;
    command.redo();
    EXPECT_EQ(this->recorder.take(), this->step());
    EXPECT_THAT(calls.take(), testing::IsEmpty());
    EXPECT_EQ(this->read(), this->second);
}

TYPED_TEST(ksLightValueUndoCommandsTest, OnlyCallsTheHandlerOnAThreadWithoutAList)
{
    ksHandlerCalls calls([] { return ""; });
    auto command = this->command(this->lamp, this->second);
    this->forget();
    std::thread([&command] { command.redo(); }).join();
    EXPECT_EQ(this->recorder.take(), ksRecords());
    EXPECT_EQ(calls.take().size(), TypeParam::edits().size());
    EXPECT_EQ(this->read(), this->second);
}

TYPED_TEST(ksLightValueUndoCommandsTest, ReachesTheOtherAspect)
{
    this->expectAspectsInStep();
    auto command = this->command(this->lamp, this->second);
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_NE(this->scene(1), this->scene());
        this->expectAspectsInStep();
        command.undo();
        EXPECT_NE(this->scene(1), this->scene());
        this->expectAspectsInStep();
    }
}

TYPED_TEST(ksLightValueUndoCommandsTest, HoldsNoReference)
{
    const int nodeCount = this->countOf(this->lamp.get());
    const int coreCount = this->countOf(this->lamp->getCore());
    const auto expectCounts = [&] {
        EXPECT_EQ(this->countOf(this->lamp.get()), nodeCount);
        EXPECT_EQ(this->countOf(this->lamp->getCore()), coreCount);
    };
    {
        this->forget();
        auto command = this->command(this->lamp, this->second);
        EXPECT_EQ(this->recorder.take(), ksRecords());
        expectCounts();
        command.redo();
        expectCounts();
        command.undo();
        expectCounts();
        this->forget();
    }
    EXPECT_EQ(this->recorder.take(), ksRecords());
    expectCounts();
}

TYPED_TEST(ksLightValueUndoCommandsTest, TakesItsTextAsItStands)
{
    const ksEchoTranslator translator;
    EXPECT_EQ(this->command(this->lamp, this->second).text(), QStringLiteral("Set %1 of 'light'"));
    EXPECT_EQ(typename TypeParam::Command(QString(), this->lamp, this->second).text(), QString());
}

TYPED_TEST(ksLightValueUndoCommandsTest, TellsThatItIsALightCommandAndNoNode)
{
    const auto command = this->command(this->lamp, this->second);
    EXPECT_EQ(ksMessageOf(command),
              "id=int:" + std::to_string(command.commandId()) + " lightCommand=bool:true");
}

TYPED_TEST(ksLightValueUndoCommandsTest, HasTheIdOfItsClass)
{
    const auto command = this->command(this->lamp, this->second);
    EXPECT_EQ(command.id(), TypeParam::Command::commandId());
    EXPECT_EQ(command.id(), this->command(this->torch, this->third).id());
    EXPECT_EQ(command.id(), ksUndoCommand::makeId(typeid(command)));
}

TYPED_TEST(ksLightValueUndoCommandsTest, BelongsToItsParent)
{
    QUndoCommand parent;
    const auto *command = new typename TypeParam::Command(QString(), this->lamp.get(), this->second, &parent);
    ASSERT_EQ(parent.childCount(), 1);
    EXPECT_EQ(parent.child(0), command);
}

TYPED_TEST(ksLightValueUndoCommandsTest, KeepsItsVirtualFunctionsInOrder)
{
    using Command = typename TypeParam::Command;
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&Command::canMergeWith), 7u);
    EXPECT_EQ(ksVirtualSlot(&Command::get), 8u);
    EXPECT_EQ(ksVirtualSlot(&Command::set), 9u);
}

TYPED_TEST(ksLightValueUndoCommandsTest, MergesOnTheSameLightWithinTheWindow)
{
    auto older = this->command(this->lamp, this->second);
    auto newer = this->command(this->lamp, this->third);
    ksCommandTime::of(older) = 0.0;
    ksCommandTime::of(newer) = 0.3;
    EXPECT_TRUE(older.canMergeWith(&newer));
    EXPECT_TRUE(older.mergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(older), 0.3);
    older.redo();
    EXPECT_EQ(this->read(), this->second) << "the value of the older one stays";

    ksCommandTime::of(older) = 0.0;
    ksCommandTime::of(newer) = 0.4;
    EXPECT_FALSE(older.mergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(older), 0.0);
}

TYPED_TEST(ksLightValueUndoCommandsTest, DoesNotMergeWhenTheNewcomerIsSwitchedOff)
{
    auto older = this->command(this->lamp, this->second);
    auto newer = this->command(this->lamp, this->third);
    ksCommandTime::of(newer) = ksCommandTime::of(older);
    older.setMergeEnabled(false);
    EXPECT_TRUE(older.canMergeWith(&newer));
    newer.setMergeEnabled(false);
    this->expectNoMerge(older, newer);
}

TYPED_TEST(ksLightValueUndoCommandsTest, DoesNotMergeOnAnotherLight)
{
    auto older = this->command(this->lamp, this->second);
    auto newer = this->command(this->torch, this->third);
    this->expectNoMerge(older, newer);
}

TYPED_TEST(ksLightValueUndoCommandsTest, UndoesADragAtOnceHoweverLongItIs)
{
    ksUndoStack stack;
    const auto add = [&](double time, auto value) {
        auto *command = new typename TypeParam::Command(QStringLiteral("drag"), this->lamp.get(), value);
        ksCommandTime::of(*command) = time;
        stack.add(command);
    };
    double time = 1000;
    for (int i = 0; i < 50; ++i)
        add(time += 0.3, i % 2 == 0 ? this->third : this->second);
    EXPECT_EQ(stack.count(), 1);
    add(time += 0.5, this->third);
    EXPECT_EQ(stack.count(), 2) << "a gap starts a new step";
    stack.undo();
    EXPECT_EQ(this->read(), this->second);
    stack.undo();
    EXPECT_EQ(this->read(), this->first);
    stack.redo();
    EXPECT_EQ(this->read(), this->second);
}

TYPED_TEST(ksLightValueUndoCommandsTest, IsReportedByTheStack)
{
    ksUndoStack stack;
    ksStackRecorder events(stack);
    const std::string keys = "id=int:" + std::to_string(TypeParam::Command::commandId());
    stack.add(new typename TypeParam::Command(QStringLiteral("light"), this->lamp.get(), this->second));
    const auto line = [&](const char *name, bool added) {
        return std::string(name) + "(added=bool:" + (added ? "true " : "false ") + keys +
               " index=int:0 lightCommand=bool:true text=string:light, 0)";
    };
    EXPECT_THAT(events.take(),
                testing::ElementsAre("redoPerformed(light, true)", line("ksURManager::redo", true)));
    stack.undo();
    EXPECT_THAT(events.take(),
                testing::ElementsAre("undoPerformed(light)", line("ksURManager::undo", false)));
}

TYPED_TEST(ksLightValueUndoCommandsTest, IsIdleWithANullNode)
{
    auto command = this->command(osg::NullFC, this->second);
    this->expectIdle(command);
}

TYPED_TEST(ksLightValueUndoCommandsTest, IsIdleWhenTheLightHasGone)
{
    auto fresh = this->command(this->lamp, this->second);
    auto applied = this->command(this->lamp, this->second);
    applied.redo();
    auto undone = this->command(this->lamp, this->third);
    undone.redo();
    undone.undo();
    this->destroy(this->lamp);
    for (auto *command : {&fresh, &applied, &undone})
        this->expectIdle(*command);
}

TYPED_TEST(ksLightValueUndoCommandsTest, KeepsItsValueWhileItsIdNamesAnotherKindOfContainer)
{
    auto command = this->command(this->lamp, this->second);
    for (const osg::FieldContainerPtr &other :
         {osg::FieldContainerPtr(this->lamp->getCore()), osg::FieldContainerPtr()}) {
        const ksSlotSwap swap(this->lampId(), other);
        this->expectIdle(command);
    }
    command.redo();
    EXPECT_EQ(this->read(), this->second);
}

TYPED_TEST(ksLightValueUndoCommandsTest, FindsNothingInANodeThatIsNoLight)
{
    auto command = this->command(this->root, this->second);
    this->expectIdle(command);
    {
        const ksSlotSwap swap(this->root.get().getFieldContainerId(), this->lamp.get());
        command.redo();
        EXPECT_EQ(this->read(), typename TypeParam::Value()) << "what such a node has is nothing";
    }
}

TEST_F(ksLightCommands, HaveSixIds)
{
    EXPECT_EQ(
        (std::set<int>{ksLightDiffuseUndoCommand::commandId(), ksLightGlossyUndoCommand::commandId(),
                       ksLightIntensityUndoCommand::commandId(), ksLightPenumbraAngleUndoCommand::commandId(),
                       ksLightConeAngleUndoCommand::commandId(), ksLightAttenuationUndoCommand::commandId()})
            .size(),
        6u);
}

TEST_F(ksLightCommands, OfTwoClassesNeverMerge)
{
    const std::array<std::unique_ptr<ksUndoCommand>, 6> commands{
        std::make_unique<ksLightDiffuseUndoCommand>(QString(), lamp.get(), Color()),
        std::make_unique<ksLightGlossyUndoCommand>(QString(), lamp.get(), Color()),
        std::make_unique<ksLightIntensityUndoCommand>(QString(), lamp.get(), 1.0f),
        std::make_unique<ksLightPenumbraAngleUndoCommand>(QString(), lamp.get(), 1.0f),
        std::make_unique<ksLightConeAngleUndoCommand>(QString(), lamp.get(), 1.0f),
        std::make_unique<ksLightAttenuationUndoCommand>(QString(), lamp.get(), UberLight::Linear)};
    for (const auto &older : commands)
        for (const auto &newer : commands)
            if (older != newer)
                expectNoMerge(*older, *newer);
}

TEST_F(ksLightCommands, OnIntensityInQuickSuccessionAreUndoneToBeforeTheFirst)
{
    ksLights::setLightValue(lamp, 0.7f);
    ksUndoStack stack;
    for (const float time : {0.0f, 0.3f}) {
        auto *command = new ksLightIntensityUndoCommand(QString(), lamp, 5 + time);
        ksCommandTime::of(*command) = time;
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(ksLights::getLightValue(lamp), 0.7f);
}

TEST_F(ksLightCommands, OnAttenuationKeepTheIntensityThatTheApplicationDisturbs)
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

TEST_F(ksLightCommands, OnAttenuationWriteTheModeAndThenTheIntensityBack)
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
