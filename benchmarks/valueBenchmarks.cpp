// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Receiver.h"
#include "Topics.h"

#include <ksundo/core/NodeUtils.h>
#include <ksundo/ksCommands.h>

#include <OSGColorComponent.h>
#include <OSGTransformVariant.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSwitch.h>
#include <ksLights.h>
#include <ksNodeUtils.h>
#include <ksTransformVariantUtils.h>

#include <QCoreApplication>

#include <array>
#include <memory>
#include <utility>

namespace {

template <class PtrT>
PtrT found(osg::UInt32 id)
{
    return PtrT::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

/// The text of a command, as an application gives it.
QString translatedText()
{
    return QCoreApplication::translate("Editor", "Change '%1'").arg(QStringLiteral("Table"));
}

/// A command on one value of one container by hand: \a Exchange(id, value) swaps the container's value and
/// the stored one and ends the edit.
template <class T, class Exchange>
class HandWrittenValue : public HandWrittenBase
{
public:
    HandWrittenValue(const QString &text, osg::UInt32 containerId, T value, const Exchange &exchange)
        : HandWrittenBase(text)
        , containerId(containerId)
        , value(std::move(value))
        , exchange(exchange)
        , time(std::chrono::steady_clock::now())
    {}

    void undo() override { exchange(containerId, value); }
    void redo() override { exchange(containerId, value); }
    int id() const override { return 3; }

    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *newer = static_cast<const HandWrittenValue *>(other);
        const std::chrono::duration<double> delay = newer->time - time;
        if (newer->containerId != containerId || delay.count() >= longMergeWindow)
            return false;
        time = newer->time;
        return true;
    }

    void describe(ksMessage &message) const override
    {
        message.set("id", id(), true);
        message.set("node", containerId, true);
    }

private:
    osg::UInt32 containerId;
    T value;
    Exchange exchange;
    std::chrono::steady_clock::time_point time;
};

template <class T, class Exchange>
QUndoCommand *handWritten(const QString &text, const osg::FieldContainerPtr &container, T value,
                          const Exchange &exchange)
{
    return new HandWrittenValue<T, Exchange>(text, container.getFieldContainerId(), std::move(value),
                                             exchange);
}

/// What a command on a node needs besides the node and the value.
struct NodeOptions
{
    int index;
    std::function<void(unsigned int, const osg::Vec3f &, int)> changed;
};

/// Exchanges a value of a node by the application's getter and setter.
template <class Get, class Set>
auto byAccessors(Get get, Set set)
{
    return [get, set](osg::UInt32 id, auto &value) {
        const auto node = found<osg::NodePtr>(id);
        if (node == osg::NullFC)
            return;
        auto previous = get(node);
        set(node, value);
        value = std::move(previous);
    };
}

/// Exchanges the value of a field.
template <class FieldT>
auto byField(osg::UInt32 fieldId, osg::BitVector mask)
{
    return [fieldId, mask](osg::UInt32 id, auto &value) {
        const auto container = found<osg::FieldContainerPtr>(id);
        if (container == osg::NullFC)
            return;
        auto *field = dynamic_cast<FieldT *>(container->getField(fieldId));
        if (field == nullptr)
            return;
        auto previous = field->getValue();
        field->setValue(value);
        value = std::move(previous);
        osg::endEditCP(container, mask);
    };
}

/// The text of a command on a node.
QString textFor(const char *context, const char *verb, const osg::NodePtr &node)
{
    return QCoreApplication::translate(context, verb) + QStringLiteral(" '") +
           QString::fromUtf8(NodeUtils::getName(node)) + QLatin1Char('\'');
}

/// Two of each kind of container, which successive steps edit in turn.
struct Targets
{
    Targets()
    {
        for (int i = 0; i < 2; ++i) {
            transforms.at(i) = makeNode(osg::Transform3D::create());
            lights.at(i) = makeNode(osg::UberLight::create());
            ksLights::setLightValue(lights.at(i), 1);
            materials.at(i) = osg::SimpleMaterial::create();
            switches.at(i) = osg::Switch::create();
            components.at(i) = osg::ColorComponent::create();
            variants.at(i) = osg::TransformVariant::create();
        }
    }

    template <class PtrT>
    using Pair = std::array<osg::RefPtr<PtrT>, 2>;

    Pair<osg::NodePtr> transforms;
    Pair<osg::NodePtr> lights;
    Pair<osg::SimpleMaterialPtr> materials;
    Pair<osg::SwitchPtr> switches;
    Pair<osg::ColorComponentPtr> components;
    Pair<osg::TransformVariantPtr> variants;
    Receiver receiver;

private:
    static osg::NodePtr makeNode(const osg::NodeCorePtr &core)
    {
        const osg::NodePtr node = osg::Node::create();
        CPEditAll(node);
        node->setCore(core);
        osg::setName(node, "Table");
        return node;
    }
};

/// Builds the command of the step \a step.
using Make = QUndoCommand *(*)(Targets &targets, int step);

int heard = 0;

template <class Edits>
void pushValues(Meter &meter, Make make)
{
    Targets targets;
    Edits edits;
    edits.listen(heard);
    const auto push = [&](int i) { edits.push(make(targets, i)); };
    push(0);
    push(1);
    heard = 0;
    meter.measure(stepCount, push);
    meter.require(edits.count() == stepCount + 2 && heard == stepCount, "a command is missing");
}

enum class Direction
{
    undo,
    redo
};

template <class Edits>
void stepThrough(Meter &meter, Make make, Direction direction)
{
    Targets targets;
    Edits edits;
    edits.listen(heard);
    for (int i = 0; i < stepCount; ++i)
        edits.push(make(targets, i));
    for (int i = 0; i < stepCount; ++i)
        edits.undo();
    for (int i = 0; i < stepCount; ++i)
        edits.redo();
    if (direction == Direction::redo)
        for (int i = 0; i < stepCount; ++i)
            edits.undo();
    heard = 0;
    meter.measure(stepCount, [&](int) { direction == Direction::undo ? edits.undo() : edits.redo(); });
    meter.require(edits.index() == (direction == Direction::undo ? 0 : stepCount) && heard == stepCount,
                  "a step is missing");
}

void addValue(const std::string &name, Make byLibrary, Make byHand, Direction direction = Direction::undo)
{
    const std::string prefix = "value/" + name;
    addCase(
        prefix + "/push", [=](Meter &meter) { pushValues<ByLibrary>(meter, byLibrary); },
        [=](Meter &meter) { pushValues<ByHand>(meter, byHand); });
    addCase(
        prefix + (direction == Direction::undo ? "/undo" : "/redo"),
        [=](Meter &meter) { stepThrough<ByLibrary>(meter, byLibrary, direction); },
        [=](Meter &meter) { stepThrough<ByHand>(meter, byHand, direction); });
}

osg::Vec3f vectorOf(int step)
{
    return osg::Vec3f(static_cast<float>(step), 1, 2);
}

void addFields()
{
    addValue(
        "float",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksFieldUndoCommand<float>(translatedText(), t.materials.at(i % 2), fieldName,
                                                 float(i));
        },
        [](Targets &t, int i) -> QUndoCommand * {
            return new HandWrittenCommand<float>(translatedText(), t.materials.at(i % 2), fieldName,
                                                 float(i));
        });
    addValue(
        "bool",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksBoolFieldUndoCommand(translatedText(), t.components.at(i % 2), "enabled", i % 4 > 1);
        },
        [](Targets &t, int i) {
            const auto *field = t.components.at(i % 2)->getType().findFieldDescription("enabled");
            return handWritten(translatedText(), t.components.at(i % 2), i % 4 > 1,
                               byField<osg::SFBool>(field->getFieldId(), field->getFieldMask()));
        });
    addValue(
        "bool on an integer",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksBoolFieldUndoCommand(translatedText(), t.switches.at(i % 2), "choice", i % 4 > 1);
        },
        [](Targets &t, int i) {
            const auto *field = t.switches.at(i % 2)->getType().findFieldDescription("choice");
            return handWritten(translatedText(), t.switches.at(i % 2), i % 4 > 1,
                               byField<osg::SFInt32>(field->getFieldId(), field->getFieldMask()));
        });
    addValue(
        "string",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksStringFieldUndoCommand(translatedText(), t.variants.at(i % 2), "name",
                                                std::to_string(i));
        },
        [](Targets &t, int i) {
            const auto *field = t.variants.at(i % 2)->getType().findFieldDescription("name");
            const osg::UInt32 id = field->getFieldId();
            const osg::BitVector mask = field->getFieldMask();
            const std::string &before = t.variants.at(i % 2)->getName();
            return handWritten(translatedText(), t.variants.at(i % 2),
                               std::pair(before, std::string(std::to_string(i))),
                               [id, mask](osg::UInt32 container, auto &texts) {
                                   auto &[now, next] = texts;
                                   byField<osg::SFString>(id, mask)(container, next);
                               });
        });
}

void addTransforms()
{
    addValue(
        "translation",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksTranslationUndoCommand(t.transforms.at(i % 2), vectorOf(i), false);
        },
        [](Targets &t, int i) {
            const osg::NodePtr node = t.transforms.at(i % 2);
            return handWritten(textFor("ksTranslationUndoCommand", "Translate", node), node, vectorOf(i),
                               [options = NodeOptions{-1, {}}](osg::UInt32 id, osg::Vec3f &value) {
                                   byAccessors(
                                       [&](const auto &target) {
                                           return ksNodeUtils::getTransformNodeTranslation(target, false,
                                                                                           options.index);
                                       },
                                       [&](const auto &target, const osg::Vec3f &v) {
                                           ksNodeUtils::setTransformNodeTranslation(target, v[0], v[1], v[2],
                                                                                    false, options.index);
                                           if (options.changed)
                                               options.changed(id, v, options.index);
                                       })(id, value);
                               });
        });
    addValue(
        "rotation",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksRotationUndoCommand(t.transforms.at(i % 2), vectorOf(i));
        },
        [](Targets &t, int i) {
            const osg::NodePtr node = t.transforms.at(i % 2);
            return handWritten(
                textFor("ksRotationUndoCommand", "Rotate", node), node, vectorOf(i),
                [options = NodeOptions{-1, {}}](osg::UInt32 id, osg::Vec3f &value) {
                    byAccessors(
                        [&](const auto &target) {
                            return ksNodeUtils::getTransformNodeRotation(target, options.index);
                        },
                        [&](const auto &target, const osg::Vec3f &v) {
                            ksNodeUtils::setTransformNodeRotation(target, v[0], v[1], v[2], options.index);
                            if (options.changed)
                                options.changed(id, v, options.index);
                        })(id, value);
                });
        });
    addValue(
        "shear",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksShearUndoCommand(t.transforms.at(i % 2), vectorOf(i));
        },
        [](Targets &t, int i) {
            const osg::NodePtr node = t.transforms.at(i % 2);
            return handWritten(
                textFor("ksShearUndoCommand", "Shear", node), node, vectorOf(i),
                byAccessors(&ksNodeUtils::getTransformNodeShear, [](const auto &target, const osg::Vec3f &v) {
                    ksNodeUtils::setTransformNodeShear(target, v[0], v[1], v[2]);
                }));
        });
    addValue(
        "variant name",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksTransformVariantNameUndoCommand(t.variants.at(i % 2), std::to_string(i), nullptr,
                                                         [](auto &&...) {});
        },
        [](Targets &t, int i) {
            const osg::TransformVariantPtr variant = t.variants.at(i % 2);
            const std::function<void(const std::string &, const std::string &)> notify = [](auto &&...) {};
            return handWritten(
                QCoreApplication::translate("ksTransformVariantNameUndoCommand", "Transform Variant Name"),
                variant, std::pair(variant->getName(), std::string(std::to_string(i))),
                [notify](osg::UInt32 id, auto &names) {
                    const auto target = found<osg::TransformVariantPtr>(id);
                    if (target == osg::NullFC)
                        return;
                    auto &[before, after] = names;
                    ksTransformVariantUtils::setName(target, after);
                    notify(before, after);
                    before.swap(after);
                });
        });
}

void addLights()
{
    addValue(
        "light colour",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksLightDiffuseUndoCommand(translatedText(), t.lights.at(i % 2), vectorOf(i));
        },
        [](Targets &t, int i) {
            return handWritten(translatedText(), t.lights.at(i % 2), vectorOf(i),
                               byAccessors(&ksLights::getDiffuse, &ksLights::setDiffuse));
        });
    addValue(
        "light intensity",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksLightIntensityUndoCommand(translatedText(), t.lights.at(i % 2), float(i));
        },
        [](Targets &t, int i) {
            return handWritten(translatedText(), t.lights.at(i % 2), float(i),
                               byAccessors(&ksLights::getLightValue, &ksLights::setLightValue));
        });
}

void addInvokers()
{
    addValue(
        "invoked bool",
        [](Targets &t, int i) -> QUndoCommand * {
            return new ksInvokeBoolFieldUndoCommand(translatedText(), t.components.at(i % 2), "enabled",
                                                    i % 4 > 1, &t.receiver, "setShown(bool)");
        },
        [](Targets &t, int i) {
            const auto *field = t.components.at(i % 2)->getType().findFieldDescription("enabled");
            const QMetaObject *meta = t.receiver.metaObject();
            const QMetaMethod method = meta->method(meta->indexOfMethod("setShown(bool)"));
            return handWritten(translatedText(), t.components.at(i % 2), i % 4 > 1,
                               [set = byField<osg::SFBool>(field->getFieldId(), field->getFieldMask()),
                                receiver = &t.receiver, method = method](osg::UInt32 id, bool &value) {
                                   const bool written = value;
                                   set(id, value);
                                   method.invoke(receiver, Qt::AutoConnection, Q_ARG(bool, written));
                               });
        },
        Direction::redo);
}

} // namespace

void addValueBenchmarks()
{
    addFields();
    addTransforms();
    addLights();
    addInvokers();
}
