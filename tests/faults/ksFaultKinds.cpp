// SPDX-License-Identifier: MIT
#include "ksFaultKind.h"

#include <ksundo/ksundo.h>

#include <transform/ksTransformValueRow.h>

namespace {

using osg::FieldContainerPtr;
using osg::NodePtr;
using osg::NullFC;
using osg::Vec3f;
using Scene = ksFaultScene;
using Events = Scene::Events;
using Handles = std::vector<FieldContainerPtr>;

const QString text = QStringLiteral("Edit");

FieldContainerPtr probeOf(const Scene &scene)
{
    return scene.probe;
}

FieldContainerPtr boxOf(const Scene &scene)
{
    return scene.box;
}

FieldContainerPtr lampOf(const Scene &scene)
{
    return scene.lamp;
}

FieldContainerPtr componentOf(const Scene &scene)
{
    return scene.component;
}

/// A class whose command is built from the scene and its target.
template <class Target>
ksFaultKind kind(std::string name, QUndoCommand *(*make)(Scene &, Target), Target (*target)(const Scene &))
{
    return {std::move(name), [=](Scene &scene) { return make(scene, target(scene)); },
            [=](Scene &scene) { return make(scene, NullFC); },
            [=](const Scene &scene) -> FieldContainerPtr { return target(scene); }};
}

template <class T>
ksFaultKind fieldKind(std::string name, const char *fieldName)
{
    ksFaultKind result;
    result.name = "ksFieldUndoCommand_" + name;
    const auto make = [fieldName](const FieldContainerPtr &container) {
        return new ksFieldUndoCommand<T>(text, container, fieldName, T(7));
    };
    result.make = [make](Scene &scene) { return make(scene.probe); };
    result.makeWithoutTarget = [make](Scene &) { return make(NullFC); };
    result.target = probeOf;
    return result;
}

void addFieldKinds(std::vector<ksFaultKind> &kinds)
{
    kinds.push_back(fieldKind<long long>("int64", "int64"));
    kinds.push_back(fieldKind<unsigned long long>("uint64", "uint64"));
    kinds.push_back(fieldKind<int>("int32", "int32"));
    kinds.push_back(fieldKind<unsigned int>("uint32", "uint32"));
    kinds.push_back(fieldKind<short>("int16", "int16"));
    kinds.push_back(fieldKind<unsigned short>("uint16", "uint16"));
    kinds.push_back(fieldKind<signed char>("int8", "int8"));
    kinds.push_back(fieldKind<unsigned char>("uint8", "uint8"));
    kinds.push_back(fieldKind<float>("real32", "real32"));
    kinds.push_back(fieldKind<double>("real64", "real64"));
    kinds.push_back(kind<FieldContainerPtr>(
        "ksBoolFieldUndoCommand",
        [](Scene &, FieldContainerPtr target) -> QUndoCommand * {
            return new ksBoolFieldUndoCommand(target, "flag", true);
        },
        probeOf));
    kinds.push_back(kind<FieldContainerPtr>(
        "ksStringFieldUndoCommand",
        [](Scene &, FieldContainerPtr target) -> QUndoCommand * {
            return new ksStringFieldUndoCommand(target, "text", "new");
        },
        probeOf));
    // The list is that of an attachment, which goes with its node.
    ksFaultKind strings = kind<FieldContainerPtr>(
        "ksStringsFieldUndoCommand",
        [](Scene &, FieldContainerPtr target) -> QUndoCommand * {
            return new ksStringsFieldUndoCommand(target, "userTags", osg::MField<std::string>({"new"}));
        },
        [](const Scene &scene) -> FieldContainerPtr { return scene.tags(); });
    kinds.push_back(strings);

    ksFaultKind image = kind<FieldContainerPtr>(
        "ksImageFieldUndoCommand",
        [](Scene &scene, FieldContainerPtr target) -> QUndoCommand * {
            auto *command = new ksImageFieldUndoCommand(target, "image", scene.newImage);
            command->setNotifyFunction([&scene] { scene.log("notified"); });
            return command;
        },
        componentOf);
    image.redoEvents = image.undoEvents = {"notified"};
    image.held = [](const Scene &scene) { return Handles{scene.component->getImage(), scene.newImage}; };
    kinds.push_back(image);

    ksFaultKind invoke = kind<FieldContainerPtr>(
        "ksInvokeBoolFieldUndoCommand",
        [](Scene &scene, FieldContainerPtr target) -> QUndoCommand * {
            return new ksInvokeBoolFieldUndoCommand(target, "flag", true, &scene.listener, "switched(bool)");
        },
        probeOf);
    invoke.redoEvents = invoke.idleRedoEvents = {"switched"};
    invoke.undoIsEmpty = true;
    kinds.push_back(invoke);
}

void addCompositeKinds(std::vector<ksFaultKind> &kinds)
{
    ksFaultKind multi = kind<FieldContainerPtr>(
        "ksMultiCommand",
        [](Scene &scene, FieldContainerPtr target) -> QUndoCommand * {
            auto *command = new ksMultiCommand(text, [&scene] { scene.log("action"); });
            new ksFieldUndoCommand<int>(text, target, "int32", 7, command);
            return command;
        },
        probeOf);
    multi.redoEvents = multi.undoEvents = multi.idleRedoEvents = multi.idleUndoEvents = {"action"};
    kinds.push_back(multi);

    ksFaultKind invoke = kind<FieldContainerPtr>(
        "ksInvokeMultiCommand",
        [](Scene &scene, FieldContainerPtr target) -> QUndoCommand * {
            auto *command = new ksInvokeMultiCommand(text, &scene.listener, "finished()");
            new ksFieldUndoCommand<int>(text, target, "int32", 7, command);
            return command;
        },
        probeOf);
    invoke.redoEvents = invoke.undoEvents = invoke.idleRedoEvents = invoke.idleUndoEvents = {"finished"};
    kinds.push_back(invoke);
}

template <class Command>
void reportSync(Scene *scene)
{
    if (scene == nullptr)
        Command::setSyncFunction({});
    else
        Command::setSyncFunction([scene](const auto &...) { scene->log("synced"); });
}

void addTransformKinds(std::vector<ksFaultKind> &kinds)
{
    for (const ksTransformValueRow &row : ksTransformValueRows::all) {
        const auto make = [&row](Scene &scene, const NodePtr &node) {
            ksTransformValueForm form;
            form.callback = [&scene](unsigned int, const ksTransformValue &, int) { scene.log("called"); };
            return row.make(node, Vec3f(3, 0.5f, -2), form);
        };
        ksFaultKind result;
        result.name = row.className;
        result.make = [make](Scene &scene) { return make(scene, scene.box); };
        result.makeWithoutTarget = [make](Scene &scene) { return make(scene, NullFC); };
        result.target = boxOf;
        result.redoEvents = result.undoEvents =
            row.hasCallback ? Events{"called", "synced"} : Events{"synced"};
        result.reportSync = [&row](Scene *scene) {
            row.setSync(scene == nullptr ? ksTransformValueRow::Sync()
                                         : [scene](const auto &...) { scene->log("synced"); });
        };
        kinds.push_back(result);
    }

    ksFaultKind order = kind<NodePtr>(
        "ksEulerRotationOrderUndoCommand",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksEulerRotationOrderUndoCommand(
                target, "ZXY", nullptr,
                [&scene](unsigned int, const std::string &, int) { scene.log("called"); });
        },
        [](const Scene &scene) { return scene.box; });
    order.redoEvents = order.undoEvents = {"called", "synced"};
    order.reportSync = reportSync<ksEulerRotationOrderUndoCommand>;
    kinds.push_back(order);

    ksFaultKind quaternion = kind<NodePtr>(
        "ksRotationAsQuaternionUndoCommand",
        [](Scene &, NodePtr target) -> QUndoCommand * {
            return new ksRotationAsQuaternionUndoCommand(text, target,
                                                         osg::Quaternion(0.5f, 0.5f, -0.5f, 0.5f));
        },
        [](const Scene &scene) { return scene.box; });
    quaternion.derivedField = "eulerRotation";
    kinds.push_back(quaternion);

    ksFaultKind transformation = kind<NodePtr>(
        "ksTransformationUndoCommand",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksTransformationUndoCommand(
                target, Vec3f(1, 2, 3), Vec3f(11, 12, 13), Vec3f(2, 3, 4), Vec3f(0.5f, 0.25f, 0.75f),
                Vec3f(4, 5, 6), Vec3f(5, 6, 7), Vec3f(6, 7, 8), Vec3f(7, 8, 9), 8, "ZXY", true,
                Vec3f(9, 1, 2), 2, true, nullptr, [&scene](int) { scene.log("called"); }, -1);
        },
        [](const Scene &scene) { return scene.box; });
    transformation.redoEvents = transformation.undoEvents = {"called", "synced"};
    transformation.reportSync = reportSync<ksTransformationUndoCommand>;
    kinds.push_back(transformation);
}

void addVariantKinds(std::vector<ksFaultKind> &kinds)
{
    const auto add = [&kinds](ksFaultKind kind) {
        kind.redoEvents = kind.undoEvents = {"notified"};
        kinds.push_back(std::move(kind));
    };
    const auto addRequiringTarget = [&add](ksFaultKind kind) {
        kind.makeWithoutTarget = {};
        add(std::move(kind));
    };
    addRequiringTarget(kind<osg::TransformVariantPtr>(
        "ksTransformVariantOptionsUndoCommand",
        [](Scene &scene, osg::TransformVariantPtr target) -> QUndoCommand * {
            return new ksTransformVariantOptionsUndoCommand(target, 3, nullptr,
                                                            [&scene] { scene.log("notified"); });
        },
        [](const Scene &scene) { return scene.variant(1); }));
    addRequiringTarget(kind<osg::TransformVariantPtr>(
        "ksTransformVariantNameUndoCommand",
        [](Scene &scene, osg::TransformVariantPtr target) -> QUndoCommand * {
            return new ksTransformVariantNameUndoCommand(
                target, "new", nullptr,
                [&scene](const std::string &, const std::string &) { scene.log("notified"); });
        },
        [](const Scene &scene) { return scene.variant(1); }));
    add(kind<NodePtr>(
        "ksTransformVariantMoveCommand_one",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksTransformVariantMoveCommand(
                target, 0, 2, nullptr,
                [&scene](unsigned int, const QList<int> &, const QList<int> &) { scene.log("notified"); });
        },
        [](const Scene &scene) { return scene.box; }));
    add(kind<NodePtr>(
        "ksTransformVariantMoveCommand_several",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksTransformVariantMoveCommand(
                target, std::vector<int>{2, 1}, 0, nullptr,
                [&scene](unsigned int, const QList<int> &, const QList<int> &) { scene.log("notified"); });
        },
        [](const Scene &scene) { return scene.box; }));

    ksFaultKind insertion = kind<NodePtr>(
        "ksAddTransformVariantUndoCommand",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksAddTransformVariantUndoCommand(
                target, scene.looseVariant, 1, nullptr,
                [&scene](unsigned int, int) { scene.log("notified"); });
        },
        [](const Scene &scene) { return scene.box; });
    insertion.held = [](const Scene &scene) { return Handles{scene.looseVariant}; };
    add(insertion);

    ksFaultKind removal = kind<NodePtr>(
        "ksRemoveTransformSwitchVariantUndoCommand",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksRemoveTransformSwitchVariantUndoCommand(
                target, 1, nullptr, [&scene](unsigned int, int) { scene.log("notified"); });
        },
        [](const Scene &scene) { return scene.box; });
    removal.held = [](const Scene &scene) {
        return Handles{scene.variant(1), ksNodeUtils::getTransformVariantsAttachment(scene.box)};
    };
    add(removal);
}

template <class Command, class T>
ksFaultKind lightKind(std::string name, T value)
{
    ksFaultKind result;
    result.name = std::move(name);
    result.make = [value](Scene &scene) { return new Command(text, scene.lamp, value); };
    result.makeWithoutTarget = [value](Scene &) { return new Command(text, NullFC, value); };
    result.target = lampOf;
    return result;
}

void addLightKinds(std::vector<ksFaultKind> &kinds)
{
    kinds.push_back(lightKind<ksLightDiffuseUndoCommand>("ksLightDiffuseUndoCommand", Vec3f(0, 0.5f, 1)));
    kinds.push_back(lightKind<ksLightGlossyUndoCommand>("ksLightGlossyUndoCommand", Vec3f(0, 0.5f, 1)));
    kinds.push_back(lightKind<ksLightIntensityUndoCommand>("ksLightIntensityUndoCommand", 0.3f));
    kinds.push_back(lightKind<ksLightPenumbraAngleUndoCommand>("ksLightPenumbraAngleUndoCommand", 5.f));
    kinds.push_back(lightKind<ksLightConeAngleUndoCommand>("ksLightConeAngleUndoCommand", 40.f));
    kinds.push_back(
        lightKind<ksLightAttenuationUndoCommand>("ksLightAttenuationUndoCommand", osg::UberLight::Quadratic));
    kinds.push_back(kind<osg::UberLightPtr>(
        "ksAddNodeAsVisibilityReferenceUndoCommand",
        [](Scene &scene, osg::UberLightPtr target) -> QUndoCommand * {
            return new ksAddNodeAsVisibilityReferenceUndoCommand(target, scene.mark, false);
        },
        [](const Scene &scene) { return scene.light(); }));
    kinds.push_back(kind<osg::LightLinkSetPtr>(
        "ksAddNodeToLightLinkSetUndoCommand_add",
        [](Scene &scene, osg::LightLinkSetPtr target) -> QUndoCommand * {
            return new ksAddNodeToLightLinkSetUndoCommand(target, scene.lamp, 3, false);
        },
        [](const Scene &scene) { return scene.linkSet(); }));
    kinds.push_back(kind<osg::LightLinkSetPtr>(
        "ksAddNodeToLightLinkSetUndoCommand_remove",
        [](Scene &scene, osg::LightLinkSetPtr target) -> QUndoCommand * {
            return new ksAddNodeToLightLinkSetUndoCommand(target, {scene.mark, scene.listed}, 0, true);
        },
        [](const Scene &scene) { return scene.linkSet(); }));
}

ksRecords materialTouches(const Scene &scene)
{
    return ksRecords()
        .change(scene.recorder.idOf(scene.settings), osg::ColorComponentSettings::PlanarProjectionFieldMask)
        .change(scene.recorder.idOf(scene.material), osg::UberMaterial::ColorComponentDataFieldMask);
}

void addMaterialKinds(std::vector<ksFaultKind> &kinds)
{
    ksFaultKind material = kind<FieldContainerPtr>(
        "ksMaterialUndoCommand",
        [](Scene &scene, FieldContainerPtr target) -> QUndoCommand * {
            return new ksMaterialUndoCommand(text,
                                             new ksFieldUndoCommand<float>(text, target, "weight", 0.3f),
                                             scene.material, scene.settings);
        },
        componentOf);
    material.idleRecords = materialTouches;
    kinds.push_back(material);

    kinds.push_back(kind<FieldContainerPtr>(
        "ksColorComponentUndoCommand",
        [](Scene &scene, FieldContainerPtr target) -> QUndoCommand * {
            return new ksColorComponentUndoCommand(
                text, new ksFieldUndoCommand<float>(text, target, "weight", 0.3f), target, scene.material);
        },
        componentOf));

    ksFaultKind multi = kind<FieldContainerPtr>(
        "ksMaterialMultiUndoCommand",
        [](Scene &scene, FieldContainerPtr target) -> QUndoCommand * {
            auto *command = new ksMaterialMultiUndoCommand(text, scene.material, scene.settings);
            new ksFieldUndoCommand<float>(text, target, "weight", 0.3f, command);
            return command;
        },
        componentOf);
    multi.idleRecords = materialTouches;
    kinds.push_back(multi);

    ksFaultKind environment = kind<osg::UBRDFMaterialPtr>(
        "ksSetEnvironmentUndoCommand",
        [](Scene &scene, osg::UBRDFMaterialPtr target) -> QUndoCommand * {
            return new ksSetEnvironmentUndoCommand(target, scene.environment);
        },
        [](const Scene &scene) { return scene.brdf; });
    environment.makeWithoutTarget = {};
    kinds.push_back(environment);
}

template <class Command>
ksFaultKind tagKind(std::string name)
{
    ksFaultKind result = kind<osg::AttachmentContainerPtr>(
        std::move(name),
        [](Scene &scene, osg::AttachmentContainerPtr target) -> QUndoCommand * {
            osg::MField<std::string> tags({"old", "new"});
            return new Command(text, target,
                               osg::TagAttachment::UserTagsFieldMask | osg::TagAttachment::TagValuesFieldMask,
                               osg::TagAttachment::UserTagsFieldId, "new", &tags,
                               *scene.tags()->getMFTagValues(), osg::MField<osg::UInt64>({1, 2}));
        },
        [](const Scene &scene) -> osg::AttachmentContainerPtr { return scene.tagged; });
    result.held = [](const Scene &scene) { return Handles{scene.tagged}; };
    return result;
}

template <class Command>
ksFaultKind emptyTagKind(std::string name)
{
    ksFaultKind result;
    result.name = std::move(name);
    result.make = [](Scene &) { return new Command(text, "new", ksTagUndoCommand::USER_TAG); };
    result.target = [](const Scene &scene) -> FieldContainerPtr { return scene.tagged; };
    result.isEmpty = true;
    return result;
}

void addTagKinds(std::vector<ksFaultKind> &kinds)
{
    kinds.push_back(tagKind<ksAddTagUndoCommand>("ksAddTagUndoCommand"));
    kinds.push_back(tagKind<ksSubTagUndoCommand>("ksSubTagUndoCommand"));
    kinds.push_back(emptyTagKind<ksAddEmptyTagUndoCommand>("ksAddEmptyTagUndoCommand"));
    kinds.push_back(emptyTagKind<ksSubEmptyTagUndoCommand>("ksSubEmptyTagUndoCommand"));
}

void addConstraintKinds(std::vector<ksFaultKind> &kinds)
{
    ksFaultKind deletion = kind<osg::AbstractConstraintPtr>(
        "ksDeleteConstraintReferenceUndoCommand",
        [](Scene &scene, osg::AbstractConstraintPtr target) -> QUndoCommand * {
            return new ksDeleteConstraintReferenceUndoCommand(target, {scene.source});
        },
        [](const Scene &scene) -> osg::AbstractConstraintPtr { return scene.constraint(); });
    deletion.held = [](const Scene &scene) {
        const osg::AimConstraintPtr constraint = scene.constraint();
        return Handles{constraint->getSources()[0], constraint->getUpVectorSources()[0], scene.source};
    };
    kinds.push_back(deletion);
}

} // namespace

std::vector<ksFaultKind> ksFaultKinds()
{
    std::vector<ksFaultKind> kinds;
    addFieldKinds(kinds);
    addCompositeKinds(kinds);
    addTransformKinds(kinds);
    addVariantKinds(kinds);
    addLightKinds(kinds);
    addMaterialKinds(kinds);
    addTagKinds(kinds);
    addConstraintKinds(kinds);
    return kinds;
}
