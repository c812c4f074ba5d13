// SPDX-License-Identifier: MIT
#include "ksLiveStacks.h"

#include <OSGAimConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGTagAttachment.h>
#include <OSGTransform3D.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGImage.h>
#include <ksLog.h>

#include <QApplication>
#include <QList>
#include <QString>
#include <QUndoView>
#include <QWidget>

#include <functional>
#include <support/ksClassNames.h>
#include <support/ksCommandTime.h>
#include <support/ksDescribe.h>
#include <support/ksQtWarnings.h>
#include <type_traits>

namespace {

using ksPlain::Command;
using ksPlain::Events;
using ksPlain::List;
using ksPlain::Mechanics;
using ksPlain::Value;
using ksPlain::Vec;
using osg::NodePtr;

QString textOf(const Command &command)
{
    return QString::fromStdString(command.text);
}

osg::Vec3f vecOf(const Value &value)
{
    const Vec &vec = std::get<Vec>(value);
    return osg::Vec3f(static_cast<float>(vec[0]), static_cast<float>(vec[1]), static_cast<float>(vec[2]));
}

osg::Quaternion quaternionOf(const Value &value)
{
    const Vec &vec = std::get<Vec>(value);
    return osg::Quaternion(static_cast<float>(vec[0]), static_cast<float>(vec[1]), static_cast<float>(vec[2]),
                           static_cast<float>(vec[3]));
}

std::string stringOf(const Value &value)
{
    return std::get<std::string>(value);
}

double numberOf(const Value &value)
{
    return std::get<double>(value);
}

osg::MField<std::string> stringsOf(const Value &value)
{
    osg::MField<std::string> strings;
    for (const std::string &string : std::get<ksPlain::Texts>(value))
        strings.push_back(string);
    return strings;
}

osg::MField<osg::UInt64> numbersOf(const Value &value)
{
    osg::MField<osg::UInt64> numbers;
    for (const int number : std::get<List>(value))
        numbers.push_back(static_cast<osg::UInt64>(number));
    return numbers;
}

/// A value as events have it.
std::string textOf(const osg::Vec3f &vec)
{
    return ksPlain::textOf(Value(Vec{vec.x(), vec.y(), vec.z(), 0}));
}

std::string textOf(const std::string &text)
{
    return text;
}

std::string textOf(bool flag)
{
    return flag ? "1" : "0";
}

std::string textOf(const QList<int> &places)
{
    return ksPlain::textOf(Value(List(places.begin(), places.end())));
}

/// What a builder has to do with.
struct Building
{
    const Command &command;
    QUndoCommand *parent;
    const ksPlain::Scene &plain;
    const ksLiveScene &scene;
    Events &events;
    ksHearer &hearer;
    std::function<std::unique_ptr<QUndoCommand>(const Command &)> buildInner;

    osg::FieldContainerPtr target() const { return scene.at(command.target); }
    NodePtr node() const { return scene.at<NodePtr>(command.target); }
    QString text() const { return textOf(command); }

    const char *fieldName() const
    {
        using ksPlain::Kind;
        const Kind kind = command.target != 0 ? plain.kindOf(command.target) : Kind::probe;
        return ksPlain::fieldsOf(kind)[static_cast<std::size_t>(command.field)].name;
    }

    std::function<void()> logger(const char *event) const
    {
        return [&events = events, event] { events.push_back(event); };
    }

    auto variantLogger() const
    {
        return [&events = events, &scene = scene](unsigned int id, int index) {
            events.push_back("variant " + std::to_string(scene.numberOf(id)) + ' ' + std::to_string(index));
        };
    }

    /// The change callback of a command on a transform.
    template <class T>
    std::function<void(unsigned int, const T &, int)> changeLogger() const
    {
        if (!command.calls)
            return {};
        const bool isRotation = command.type->field == ksPlain::eulerRotation;
        return [&events = events, &scene = scene, isRotation](unsigned int id, const T &value, int index) {
            events.push_back("changed " + std::to_string(scene.numberOf(id)) + ' ' +
                             (isRotation ? std::string() : textOf(value)) + ' ' + std::to_string(index));
        };
    }
};

using Builder = QUndoCommand *(*)(const Building &);

template <class T>
QUndoCommand *number(const Building &b)
{
    return new ksFieldUndoCommand<T>(b.text(), b.target(), b.fieldName(),
                                     static_cast<T>(numberOf(b.command.value)), b.parent);
}

template <class Class>
QUndoCommand *plainTransform(const Building &b)
{
    return new Class(b.node(), vecOf(b.command.value), b.parent, b.command.index);
}

template <class Class>
QUndoCommand *worldTransform(const Building &b)
{
    return new Class(b.node(), vecOf(b.command.value), b.command.mode, b.parent, b.command.index);
}

template <class Class>
QUndoCommand *callingTransform(const Building &b)
{
    return new Class(b.node(), vecOf(b.command.value), b.parent, b.changeLogger<osg::Vec3f>(),
                     b.command.index);
}

QUndoCommand *translation(const Building &b)
{
    return new ksTranslationUndoCommand(b.node(), vecOf(b.command.value), b.command.mode, b.parent,
                                        b.changeLogger<osg::Vec3f>(), b.command.index);
}

QUndoCommand *direction(const Building &b)
{
    return new ksRotationPivotDirectionUndoCommand(b.node(), vecOf(b.command.value),
                                                   b.command.positions.front(), b.command.isOn, b.parent,
                                                   b.command.index);
}

QUndoCommand *order(const Building &b)
{
    return new ksEulerRotationOrderUndoCommand(b.node(), stringOf(b.command.value), b.parent,
                                               b.changeLogger<std::string>(), b.command.index);
}

QUndoCommand *transformation(const Building &b)
{
    const std::vector<Value> &v = b.command.values;
    ksTransformationUndoCommand::Notification notification;
    if (b.command.calls)
        notification = [&events = b.events](int index) {
            events.push_back("changed " + std::to_string(index));
        };
    return new ksTransformationUndoCommand(
        b.node(), vecOf(v[0]), vecOf(v[1]), vecOf(v[2]), vecOf(v[3]), vecOf(v[4]), vecOf(v[5]), vecOf(v[6]),
        vecOf(v[7]), static_cast<int>(numberOf(v[8])), stringOf(v[9]), numberOf(v[10]) != 0, vecOf(v[11]),
        static_cast<int>(numberOf(v[12])), b.command.isOn, b.parent, notification, b.command.index);
}

QUndoCommand *image(const Building &b)
{
    const int shade = b.command.given.front();
    const osg::ImagePtr given = shade < 3 ? ksMakeImage("shade" + std::to_string(shade)) : osg::ImagePtr();
    return new ksImageFieldUndoCommand(b.target(), b.fieldName(), given, b.parent);
}

QUndoCommand *addVariant(const Building &b)
{
    const bool isNew = b.command.other != 0 && !b.scene.at(b.command.other);
    const auto variant = isNew ? ksMakeVariant("new") : b.scene.at<osg::TransformVariantPtr>(b.command.other);
    return new ksAddTransformVariantUndoCommand(
        b.node(), variant, static_cast<unsigned long>(b.command.index), b.parent, b.variantLogger());
}

QUndoCommand *moveVariant(const Building &b)
{
    const auto log = [&events = b.events, &scene = b.scene](unsigned int id, const QList<int> &from,
                                                            const QList<int> &to) {
        events.push_back("moved " + std::to_string(scene.numberOf(id)) + ' ' + textOf(from) + ' ' +
                         textOf(to));
    };
    if (b.command.ids.size() == 1)
        return new ksTransformVariantMoveCommand(b.node(), b.command.ids.front(), b.command.index, b.parent,
                                                 log);
    return new ksTransformVariantMoveCommand(b.node(), b.command.ids, b.command.index, b.parent, log);
}

QUndoCommand *nameVariant(const Building &b)
{
    const auto log = [&events = b.events](const std::string &from, const std::string &to) {
        events.push_back("named " + from + ' ' + to);
    };
    return new ksTransformVariantNameUndoCommand(b.scene.at<osg::TransformVariantPtr>(b.command.target),
                                                 stringOf(b.command.value), b.parent, log);
}

template <class Class, class T>
QUndoCommand *lightNumber(const Building &b)
{
    return new Class(b.text(), b.node(), static_cast<T>(static_cast<int>(numberOf(b.command.value))),
                     b.parent);
}

template <class Class>
QUndoCommand *lightColour(const Building &b)
{
    return new Class(b.text(), b.node(), vecOf(b.command.value), b.parent);
}

QUndoCommand *links(const Building &b)
{
    constexpr unsigned int lightList = 3;
    const unsigned int list = b.command.field == ksPlain::lights ? lightList : 0;
    const auto set = b.scene.at<osg::LightLinkSetPtr>(b.command.target);
    std::vector<NodePtr> nodes;
    for (const int number : b.command.given)
        nodes.push_back(b.scene.at<NodePtr>(number));
    if (b.command.mode)
        return new ksAddNodeToLightLinkSetUndoCommand(set, nodes, list, b.command.isOn, b.parent);
    return new ksAddNodeToLightLinkSetUndoCommand(set, nodes.front(), list, b.command.isOn, b.parent);
}

template <class Class>
QUndoCommand *wrapper(const Building &b)
{
    auto *inner = static_cast<ksFieldBaseUndoCommand *>(b.buildInner(*b.command.parts.front()).release());
    return new Class(b.text(), inner, b.scene.at(b.command.other), b.scene.at(b.command.third), b.parent);
}

template <class Class>
QUndoCommand *tag(const Building &b)
{
    const bool exists = b.command.field != -1;
    osg::UInt32 fieldId = osg::TagAttachment::NextFieldId;
    if (exists)
        fieldId = b.command.field == ksPlain::userTags ? osg::TagAttachment::UserTagsFieldId
                                                       : osg::TagAttachment::LayerTagsFieldId;
    const osg::BitVector mask = osg::BitVector(1) << fieldId |
                                (b.command.isOn ? osg::TagAttachment::TagValuesFieldMask : osg::BitVector());
    osg::MField<std::string> strings = stringsOf(b.command.values[0]);
    return new Class(b.text(), b.scene.at<osg::AttachmentContainerPtr>(b.command.target), mask, fieldId,
                     "tag", &strings, exists ? numbersOf(b.command.olds[1]) : osg::MField<osg::UInt64>(),
                     numbersOf(b.command.values[1]));
}

template <class Class>
QUndoCommand *emptyTag(const Building &b)
{
    return new Class(b.text(), "tag", ksTagUndoCommand::USER_TAG);
}

const std::map<std::string, Builder> &builders()
{
    static const std::map<std::string, Builder> all = {
        {"ksMultiCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksMultiCommand(b.text(),
                                       b.command.calls ? b.logger("action") : std::function<void()>());
         }},
        {"ksInvokeMultiCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksInvokeMultiCommand(b.text(), &b.hearer,
                                             b.command.calls ? "finished()" : "missing()");
         }},
        {"ksMaterialMultiUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksMaterialMultiUndoCommand(b.text(), b.scene.at(b.command.other),
                                                   b.scene.at(b.command.third));
         }},
        {"ksFieldUndoCommand<long long>", &number<long long>},
        {"ksFieldUndoCommand<unsigned long long>", &number<unsigned long long>},
        {"ksFieldUndoCommand<int>", &number<int>},
        {"ksFieldUndoCommand<unsigned int>", &number<unsigned int>},
        {"ksFieldUndoCommand<short>", &number<short>},
        {"ksFieldUndoCommand<unsigned short>", &number<unsigned short>},
        {"ksFieldUndoCommand<signed char>", &number<signed char>},
        {"ksFieldUndoCommand<unsigned char>", &number<unsigned char>},
        {"ksFieldUndoCommand<float>", &number<float>},
        {"ksFieldUndoCommand<double>", &number<double>},
        {"ksBoolFieldUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksBoolFieldUndoCommand(b.text(), b.target(), b.fieldName(),
                                               numberOf(b.command.value) != 0, b.parent);
         }},
        {"ksInvokeBoolFieldUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksInvokeBoolFieldUndoCommand(
                 b.text(), b.target(), b.fieldName(), numberOf(b.command.value) != 0, &b.hearer,
                 b.command.calls ? "switched( bool )" : "missing(bool)", b.parent);
         }},
        {"ksStringFieldUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksStringFieldUndoCommand(b.text(), b.target(), b.fieldName(),
                                                 stringOf(b.command.value), b.parent);
         }},
        {"ksStringsFieldUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksStringsFieldUndoCommand(b.text(), b.target(), b.fieldName(),
                                                  stringsOf(b.command.value), b.parent);
         }},
        {"ksImageFieldUndoCommand", &image},
        {"ksTranslationUndoCommand", &translation},
        {"ksRotationUndoCommand", &callingTransform<ksRotationUndoCommand>},
        {"ksScaleUndoCommand", &callingTransform<ksScaleUndoCommand>},
        {"ksScalePivotUndoCommand", &worldTransform<ksScalePivotUndoCommand>},
        {"ksRotationPivotUndoCommand", &worldTransform<ksRotationPivotUndoCommand>},
        {"ksScalePivotTranslationUndoCommand", &plainTransform<ksScalePivotTranslationUndoCommand>},
        {"ksRotationPivotTranslationUndoCommand", &plainTransform<ksRotationPivotTranslationUndoCommand>},
        {"ksRotationPivotOrientationUndoCommand", &plainTransform<ksRotationPivotOrientationUndoCommand>},
        {"ksRotationPivotDirectionUndoCommand", &direction},
        {"ksShearUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksShearUndoCommand(b.node(), vecOf(b.command.value), b.parent);
         }},
        {"ksEulerRotationOrderUndoCommand", &order},
        {"ksRotationAsQuaternionUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksRotationAsQuaternionUndoCommand(b.text(), b.node(), quaternionOf(b.command.value),
                                                          b.parent);
         }},
        {"ksTransformationUndoCommand", &transformation},
        {"ksAddTransformVariantUndoCommand", &addVariant},
        {"ksRemoveTransformSwitchVariantUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksRemoveTransformSwitchVariantUndoCommand(
                 b.node(), static_cast<unsigned long>(b.command.index), b.parent, b.variantLogger());
         }},
        {"ksTransformVariantMoveCommand", &moveVariant},
        {"ksTransformVariantNameUndoCommand", &nameVariant},
        {"ksTransformVariantOptionsUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksTransformVariantOptionsUndoCommand(
                 b.scene.at<osg::TransformVariantPtr>(b.command.target),
                 static_cast<unsigned long long>(numberOf(b.command.value)), b.parent, b.logger("options"));
         }},
        {"ksLightDiffuseUndoCommand", &lightColour<ksLightDiffuseUndoCommand>},
        {"ksLightGlossyUndoCommand", &lightColour<ksLightGlossyUndoCommand>},
        {"ksLightIntensityUndoCommand", &lightNumber<ksLightIntensityUndoCommand, float>},
        {"ksLightPenumbraAngleUndoCommand", &lightNumber<ksLightPenumbraAngleUndoCommand, float>},
        {"ksLightConeAngleUndoCommand", &lightNumber<ksLightConeAngleUndoCommand, float>},
        {"ksLightAttenuationUndoCommand",
         &lightNumber<ksLightAttenuationUndoCommand, osg::UberLight::LightAttenuation>},
        {"ksAddNodeToLightLinkSetUndoCommand", &links},
        {"ksAddNodeAsVisibilityReferenceUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksAddNodeAsVisibilityReferenceUndoCommand(
                 b.scene.at<osg::UberLightPtr>(b.command.target), b.scene.at<NodePtr>(b.command.other),
                 b.command.isOn, b.parent);
         }},
        {"ksMaterialUndoCommand", &wrapper<ksMaterialUndoCommand>},
        {"ksColorComponentUndoCommand", &wrapper<ksColorComponentUndoCommand>},
        {"ksSetEnvironmentUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksSetEnvironmentUndoCommand(b.scene.at<osg::UBRDFMaterialPtr>(b.command.target),
                                                    b.scene.at<osg::MaterialPtr>(b.command.other), b.parent);
         }},
        {"ksAddTagUndoCommand", &tag<ksAddTagUndoCommand>},
        {"ksSubTagUndoCommand", &tag<ksSubTagUndoCommand>},
        {"ksAddEmptyTagUndoCommand", &emptyTag<ksAddEmptyTagUndoCommand>},
        {"ksSubEmptyTagUndoCommand", &emptyTag<ksSubEmptyTagUndoCommand>},
        {"ksDeleteConstraintReferenceUndoCommand",
         [](const Building &b) -> QUndoCommand * {
             return new ksDeleteConstraintReferenceUndoCommand(
                 b.scene.at<osg::AbstractConstraintPtr>(b.command.target),
                 {osg::NullFC, b.scene.at<osg::AttachmentContainerPtr>(b.command.given.front())}, b.parent);
         }},
        {"QUndoCommand",
         [](const Building &b) -> QUndoCommand * { return new QUndoCommand(b.text(), b.parent); }},
    };
    return all;
}

/// The names of the command classes by their ids.
const std::map<int, std::string> &namesById()
{
#define KS_NAME_BY_ID(Class) {Class::commandId(), #Class},
    static const std::map<int, std::string> names = {KS_COMMAND_LIST(KS_NAME_BY_ID)};
#undef KS_NAME_BY_ID
    return names;
}

/// Lets the commands of a class call \a log with their arguments, or nothing if it is empty.
template <class Class>
void setSyncOf(const std::function<void(const NodePtr &, const std::string &)> &log)
{
    if constexpr (ksHasSync<Class>) {
        if (!log)
            return Class::setSyncFunction({});
        constexpr bool isRotation = std::is_same_v<Class, ksRotationUndoCommand>;
        Class::setSyncFunction([log](const NodePtr &node, const auto &...values) {
            std::string text;
            int place = 0;
            ((text += ' ' + (isRotation && place++ == 0 ? std::string() : textOf(values))), ...);
            log(node, text);
        });
    }
}

using SyncSetter = void (*)(const std::function<void(const NodePtr &, const std::string &)> &);

const std::map<std::string, SyncSetter> &syncSetters()
{
#define KS_SYNC_SETTER(Class) {#Class, &setSyncOf<Class>},
    static const std::map<std::string, SyncSetter> setters = {KS_COMMAND_LIST(KS_SYNC_SETTER)};
#undef KS_SYNC_SETTER
    return setters;
}

/// What the stacks hold, which their windows show. They live as long as the process.
std::array<const QUndoStack *, 2> findHistories()
{
    const ksQtWarnings warnings; // of what the platform's windows lack
    std::array<const QUndoStack *, 2> histories{};
    for (const unsigned int which : {0u, 1u}) {
        ksUndoStack::get(which)->showHistory();
        for (QWidget *window : QApplication::topLevelWidgets())
            if (auto *view = qobject_cast<QUndoView *>(window)) {
                histories[which] = view->stack();
                delete view;
            }
    }
    return histories;
}

std::string differenceOf(const QUndoCommand &command, const Command &expected)
{
    if (command.text().toStdString() != expected.text)
        return "'" + command.text().toStdString() + "' instead of '" + expected.text + '\'';
    const Mechanics mechanics = expected.type->mechanics;
    if (mechanics != Mechanics::plain && mechanics != Mechanics::composite)
        return {};
    if (command.childCount() != static_cast<int>(expected.parts.size()))
        return std::to_string(command.childCount()) + " children of '" + expected.text + "' instead of " +
               std::to_string(expected.parts.size());
    for (int i = 0; i < command.childCount(); ++i) {
        std::string difference =
            differenceOf(*command.child(i), *expected.parts[static_cast<std::size_t>(i)]);
        if (!difference.empty())
            return difference;
    }
    return {};
}

} // namespace

ksLiveStacks::ksLiveStacks(const ksPlain::Scene &plain)
    : scene(plain)
    , plain(plain)
    , stacks{ksUndoStack::get(0), ksUndoStack::get(1)}
    , histories([] {
        static const auto found = findHistories();
        return found;
    }())
    , hearer([this](const std::string &event) { events.push_back(event); })
    , previousHandler(qInstallMessageHandler(&warn))
{
    current = this;
    ksLog::setErrorHandler([this](const std::string &line) { events.push_back("error " + line); });
    for (const int which : {0, 1}) {
        ksUndoStack &stack = (*this)[which];
        const std::string name = std::to_string(which);
        const auto busyName = [&stack, name] {
            return name + " busy " + std::to_string(stack.getBusyDepth());
        };
        const auto textOf = [](const QUndoCommand *command) {
            return command == nullptr ? "null" : command->text().toStdString();
        };
        stack.clear();
        stack.setClean();
        stack.setUndoLimit(0);
        QObject::connect(&stack, &ksUndoStack::redoPerformed, &signalReceiver,
                         [=](const QUndoCommand *command, bool added) {
                             events.push_back(busyName() + " redone " + textOf(command) +
                                              (added ? " 1" : " 0"));
                         });
        QObject::connect(&stack, &ksUndoStack::undoPerformed, &signalReceiver,
                         [=](const QUndoCommand *command) {
                             events.push_back(busyName() + " undone " + textOf(command));
                         });
        QObject::connect(&stack, &ksUndoStack::cleared, &signalReceiver,
                         [=] { events.push_back(name + " cleared"); });
        setReceiver(which, 1);
    }
}

ksLiveStacks::~ksLiveStacks()
{
    QObject::disconnect(stacks[0], nullptr, &signalReceiver, nullptr);
    QObject::disconnect(stacks[1], nullptr, &signalReceiver, nullptr);
    for (ksUndoStack *stack : stacks) {
        stack->setMessageCallback(nullptr);
        stack->clear();
    }
    for (const auto &[name, setSync] : syncSetters())
        setSync({});
    ksLog::setErrorHandler({});
    qInstallMessageHandler(previousHandler);
    current = nullptr;
}

std::unique_ptr<QUndoCommand> ksLiveStacks::build(const Command &command, QUndoCommand *parent)
{
    const auto buildInner = [this](const Command &inner) { return build(inner); };
    const Building building = {command, parent, plain, scene, events, hearer, buildInner};
    std::unique_ptr<QUndoCommand> built(builders().at(command.type->name)(building));
    const Mechanics mechanics = command.type->mechanics;
    if (mechanics == Mechanics::plain || mechanics == Mechanics::composite) {
        for (const auto &part : command.parts)
            build(*part, built.get()).release(); // the parent's
    } else {
        ksCommandTime::of(static_cast<ksUndoCommand &>(*built)) = command.time;
        tell(*built, command);
    }
    return built;
}

void ksLiveStacks::tell(QUndoCommand &command, const Command &plainCommand)
{
    const Mechanics mechanics = plainCommand.type->mechanics;
    if (mechanics == Mechanics::plain || mechanics == Mechanics::composite) {
        int place = 0;
        for (const auto &part : plainCommand.parts)
            tell(const_cast<QUndoCommand &>(*command.child(place++)), *part);
        return;
    }
    auto &single = static_cast<ksUndoCommand &>(command);
    single.setMergeEnabled(plainCommand.merges);
    single.setMergeResponseDelta(plainCommand.window);
    if (mechanics != Mechanics::image)
        return;
    std::function<void()> notify;
    if (const int function = plainCommand.notified)
        notify = [this, function] { events.push_back("notified " + std::to_string(function)); };
    static_cast<ksImageFieldUndoCommand &>(command).setNotifyFunction(notify);
}

void ksLiveStacks::retell(int which, const ksPlain::Stack &plainStack)
{
    const int place = plainStack.state().index - 1;
    if (place >= 0)
        tell(const_cast<QUndoCommand &>(*histories[static_cast<std::size_t>(which)]->command(place)),
             *plainStack.history()[static_cast<std::size_t>(place)]);
}

ksPlain::StackState ksLiveStacks::stateOf(int which) const
{
    const ksUndoStack &stack = *stacks[static_cast<std::size_t>(which)];
    ksPlain::StackState state;
    state.count = stack.count();
    state.index = stack.index();
    state.limit = stack.undoLimit();
    state.busyDepth = stack.getBusyDepth();
    state.isEmpty = stack.isEmpty();
    state.canUndo = stack.canUndo();
    state.canRedo = stack.canRedo();
    state.isClean = stack.isClean();
    state.undoText = stack.undoText().toStdString();
    state.redoText = stack.redoText().toStdString();
    if (const QUndoCommand *command = stack.currentCommand())
        state.current = command->text().toStdString();
    return state;
}

std::string ksLiveStacks::historyDifference(int which, const ksPlain::Stack &plainStack) const
{
    const QUndoStack &history = *histories[static_cast<std::size_t>(which)];
    int place = 0;
    for (const auto &command : plainStack.history()) {
        std::string difference = differenceOf(*history.command(place++), *command);
        if (!difference.empty())
            return difference;
    }
    return {};
}

void ksLiveStacks::setReceiver(int which, int receiver)
{
    static constexpr ksUndoStack::MessageCallback receivers[2][3] = {
        {nullptr, &receive<0, 1>, &receive<0, 2>}, {nullptr, &receive<1, 1>, &receive<1, 2>}};
    stacks[static_cast<std::size_t>(which)]->setMessageCallback(receivers[which][receiver]);
}

void ksLiveStacks::setSync(const std::string &className, int function)
{
    const auto entry = syncSetters().find(className);
    if (entry == syncSetters().end())
        return; // QUndoCommand
    if (function == 0)
        return entry->second({});
    entry->second([this, className, function](const NodePtr &node, const std::string &values) {
        events.push_back("sync " + std::to_string(function) + ' ' + className + ' ' +
                         std::to_string(scene.numberOf(node)) + values);
    });
}

std::vector<std::string> ksLiveStacks::classNames()
{
    std::vector<std::string> names;
    for (const auto &[name, builder] : builders())
        names.push_back(name);
    return names;
}

template <int which, int receiver>
bool ksLiveStacks::receive(const char *name, ksMessage &message, int option)
{
    const int depth = current->stacks[which]->getBusyDepth();
    current->events.push_back(std::to_string(which) + " busy " + std::to_string(depth) + " message" +
                              std::to_string(receiver) + ' ' + name + ' ' + std::to_string(option) +
                              current->textOf(message));
    return false;
}

void ksLiveStacks::warn(QtMsgType, const QMessageLogContext &, const QString &line)
{
    current->events.push_back(line.toStdString());
}

std::string ksLiveStacks::textOf(const ksMessage &message) const
{
    std::string line;
    for (const auto &[key, value] : message.values()) {
        line += ' ' + key + '=';
        const auto *number = boost::any_cast<int>(&value);
        const auto *id = boost::any_cast<unsigned int>(&value);
        const auto *flag = boost::any_cast<bool>(&value);
        const auto *text = boost::any_cast<std::string>(&value);
        if (number != nullptr && key == "id")
            line += namesById().at(*number);
        else if (number != nullptr)
            line += "int:" + std::to_string(*number);
        else if (id != nullptr && key == "fieldId") {
            const unsigned int container = *message.get<unsigned int>("container");
            line +=
                "field:" + std::to_string(ksLiveScene::placeOf(plain.kindOf(scene.numberOf(container)), *id));
        } else if (id != nullptr)
            line += "container:" + std::to_string(scene.numberOf(*id));
        else if (flag != nullptr)
            line += *flag ? "bool:1" : "bool:0";
        else if (text != nullptr)
            line += *text;
        else
            line += ksDescribe(value);
    }
    return line;
}
