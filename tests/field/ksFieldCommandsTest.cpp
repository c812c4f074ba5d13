// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"
#include "ksMethodReceiver.h"

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>
#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <OSGColorComponent.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGLog.h>

#include <memory>
#include <support/ksDescribe.h>

namespace {

using Command = std::unique_ptr<ksFieldBaseUndoCommand>;

/// A class of field commands, and of which class a field must be.
struct Kind
{
    const char *name;
    Command (*make)(const osg::FieldContainerPtr &container, const std::string &fieldName,
                    ksMethodReceiver &receiver);
    bool (*takes)(const osg::Field &field);

    friend std::ostream &operator<<(std::ostream &stream, const Kind &kind) { return stream << kind.name; }
};

template <class... Fields>
bool isOneOf(const osg::Field &field)
{
    return ((typeid(field) == typeid(Fields)) || ...);
}

template <class T>
Kind numberKind(const char *name)
{
    return {name,
            [](const osg::FieldContainerPtr &container, const std::string &fieldName,
               ksMethodReceiver &) -> Command {
                return std::make_unique<ksFieldUndoCommand<T>>(QString(), container, fieldName, T(9));
            },
            &isOneOf<osg::SField<T>>};
}

constexpr auto isFlag =
    &isOneOf<osg::SField<bool, 2>, osg::SField<long long>, osg::SField<unsigned long long>, osg::SField<int>,
             osg::SField<unsigned int>, osg::SField<short>, osg::SField<unsigned short>,
             osg::SField<signed char>, osg::SField<unsigned char>>;

const std::vector<Kind> kinds = {
    numberKind<long long>("int64"),
    numberKind<unsigned long long>("uint64"),
    numberKind<int>("int32"),
    numberKind<unsigned int>("uint32"),
    numberKind<short>("int16"),
    numberKind<unsigned short>("uint16"),
    numberKind<signed char>("int8"),
    numberKind<unsigned char>("uint8"),
    numberKind<float>("real32"),
    numberKind<double>("real64"),
    {"flag",
     [](const osg::FieldContainerPtr &container, const std::string &fieldName, ksMethodReceiver &)
         -> Command { return std::make_unique<ksBoolFieldUndoCommand>(container, fieldName, true); },
     isFlag},
    {"invoke",
     [](const osg::FieldContainerPtr &container, const std::string &fieldName,
        ksMethodReceiver &receiver) -> Command {
         return std::make_unique<ksInvokeBoolFieldUndoCommand>(container, fieldName, true, &receiver,
                                                               "takeNothing()");
     },
     isFlag},
    {"text",
     [](const osg::FieldContainerPtr &container, const std::string &fieldName, ksMethodReceiver &)
         -> Command { return std::make_unique<ksStringFieldUndoCommand>(container, fieldName, "new"); },
     &isOneOf<osg::SField<std::string>>},
    {"words",
     [](const osg::FieldContainerPtr &container, const std::string &fieldName,
        ksMethodReceiver &) -> Command {
         return std::make_unique<ksStringsFieldUndoCommand>(container, fieldName, osg::MFString({"new"}));
     },
     &isOneOf<osg::MFString>},
    {"image",
     [](const osg::FieldContainerPtr &container, const std::string &fieldName, ksMethodReceiver &)
         -> Command { return std::make_unique<ksImageFieldUndoCommand>(container, fieldName, osg::NullFC); },
     &isOneOf<osg::SFImagePtr>},
};

/// A container that tells of one field, but not how to reach it.
class ksSecretive : public osg::ProbeContainer
{
public:
    static osg::ProbeContainerPtr create() { return newContainer<ksSecretive>(); }

    osg::FieldContainerType &getType() override { return type; }
    const osg::FieldContainerType &getType() const override { return type; }

private:
    static osg::FieldDescription secret;
    static osg::FieldDescription *descriptions[];
    static osg::FieldContainerType type;
};

osg::FieldDescription ksSecretive::secret(osg::SFInt32::getClassType(), "secret", 1, 2, false,
                                          osg::FieldAccessMethod(nullptr));
osg::FieldDescription *ksSecretive::descriptions[] = {&secret};
osg::FieldContainerType ksSecretive::type("ksSecretive", "FieldContainer", "", nullptr, nullptr, descriptions,
                                          sizeof(descriptions));

/// Commands that find no field, or not of their class.
class ksFieldCommandsTest : public ksFieldFixture, public testing::WithParamInterface<Kind>
{
protected:
    Command make(const char *fieldName) { return GetParam().make(container(), fieldName, receiver); }

    void expectIdle(ksFieldBaseUndoCommand &command, const osg::FieldContainerPtr &container)
    {
        const ksFieldTexts before = ksFieldTextsOf(container);
        forget();
        for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo, &QUndoCommand::redo})
            (command.*step)();
        EXPECT_EQ(ksFieldTextsOf(container), before);
        expectNoEdit();
    }

    ksMethodReceiver receiver;
};

/// What the scene graph says when somebody asks for the field that cannot be reached.
class ksSecretFieldTest : public ksFieldFixture
{
protected:
    ~ksSecretFieldTest() override { osg::setLogSink(std::move(previous)); }

    /// Expects that the field was asked for, and that nothing came of it.
    void expectWarningsOnly()
    {
        EXPECT_THAT(std::exchange(lines, {}),
                    testing::AllOf(testing::SizeIs(testing::Ge(1u)),
                                   testing::Each("WARNING: field 'secret' has no access method")));
        expectNoEdit();
    }

    std::vector<std::string> lines;
    osg::LogSink previous{osg::setLogSink([this](const std::string &line) { lines.push_back(line); })};
    const osg::RefPtr<osg::ProbeContainerPtr> secretive{ksSecretive::create()};
};

class ksSecretFieldCommandsTest : public ksSecretFieldTest, public testing::WithParamInterface<Kind>
{};

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksFieldCommandsTest, testing::ValuesIn(kinds),
                         [](const auto &info) { return info.param.name; });

INSTANTIATE_TEST_SUITE_P(, ksSecretFieldCommandsTest, testing::ValuesIn(kinds),
                         [](const auto &info) { return info.param.name; });

TEST_P(ksFieldCommandsTest, HaveNoAimWithANameThatIsNoField)
{
    for (const char *name : {"", "unknown", "FLAG", "volume", "parent"}) {
        const Command command = make(name);
        EXPECT_EQ(ksMessageOf(*command),
                  "container=uint:0 fieldId=uint:0 id=int:" + std::to_string(command->id()));
        expectIdle(*command, container());
    }
}

TEST_P(ksFieldCommandsTest, LeaveFieldsOfAnyOtherClassAlone)
{
    const osg::RefPtr<osg::ColorComponentPtr> component(osg::ColorComponent::create());
    for (const osg::FieldContainerPtr &each : {container(), osg::FieldContainerPtr(component.get())})
        for (osg::UInt32 id = 1; id <= each->getType().getNumFieldDescs(); ++id) {
            SCOPED_TRACE(each->getType().getFieldDescription(id)->getCName());
            const Command command = make("flag");
            ksFieldTarget::idOfContainer(*command) = each.getFieldContainerId();
            ksFieldTarget::idOfField(*command) = id;
            if (!GetParam().takes(*each->getField(id)))
                expectIdle(*command, each);
        }
}

TEST_P(ksFieldCommandsTest, AreIdleWhenTheirFieldIsBeyondThoseOfTheContainer)
{
    const Command command = make("flag");
    for (const osg::UInt32 id : {0u, probe->getType().getNumFieldDescs() + 1, ~0u}) {
        ksFieldTarget::idOfField(*command) = id;
        expectIdle(*command, container());
    }
}

TEST_P(ksSecretFieldCommandsTest, AreIdle)
{
    ksMethodReceiver receiver;
    forget();
    const Command command = GetParam().make(secretive.get(), "secret", receiver);
    EXPECT_EQ(command->containerId(), secretive.get().getFieldContainerId()) << "it has an aim";
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo, &QUndoCommand::redo})
        (command.get()->*step)();
    expectWarningsOnly();
}

TEST_F(ksSecretFieldTest, LetsTheFactoriesMakeNothing)
{
    forget();
    ksMultiCommand parent{QString()};
    for (QUndoCommand *each : {static_cast<QUndoCommand *>(nullptr), static_cast<QUndoCommand *>(&parent)}) {
        ksUndoUtil::makeIntTypeCommand(QString(), secretive.get(), "secret", 1, each);
        expectWarningsOnly();
        ksUndoUtil::makeFloatTypeCommand(QString(), secretive.get(), "secret", 1.0, each);
        expectWarningsOnly();
    }
    EXPECT_EQ(parent.childCount(), 0);
    EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
}
