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
using Further = ksFurtherContainer;

const QString text = QStringLiteral("Edit");

FieldContainerPtr probeOf(const Scene &scene)
{
    return scene.probe;
}

NodePtr boxOf(const Scene &scene)
{
    return scene.box;
}

/// What is next to the box.
Handles boxImpostors(const Scene &scene)
{
    return {scene.box->getCore()};
}

FieldContainerPtr lampOf(const Scene &scene)
{
    return scene.lamp;
}

/// A group, which is a core and no other one.
FieldContainerPtr groupOf(const Scene &scene)
{
    return scene.mark->getCore();
}

FieldContainerPtr componentOf(const Scene &scene)
{
    return scene.component;
}

/// A class whose command is built from the scene and its target.
template <class Target>
ksFaultKind kind(std::string name, const std::function<QUndoCommand *(Scene &, Target)> &make,
                 Target (*target)(const Scene &))
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
    const auto oldImage = [](const Scene &scene) -> FieldContainerPtr { return scene.component->getImage(); };
    const auto newImage = [](const Scene &scene) -> FieldContainerPtr { return scene.newImage; };
    const auto noImage = [](const Scene &scene) { return scene.fieldState(scene.component, "image", "0"); };
    const auto material = [](const Scene &scene) -> FieldContainerPtr { return scene.material; };
    image.held = [=](const Scene &scene) { return Handles{oldImage(scene), newImage(scene)}; };
    image.released = [=](const Scene &scene) { return Handles{newImage(scene), oldImage(scene)}; };
    image.goneWhenDone = [=](const Scene &scene) { return Handles{oldImage(scene)}; };
    image.further = {
        {"newImage", newImage, noImage, {}, {"notified"}, {"notified"}, {}, material},
        {"oldImage", oldImage, {}, noImage, {"notified"}, {"notified"}, {}, material},
    };
    kinds.push_back(image);

    ksFaultKind noImages = kind<FieldContainerPtr>(
        "ksImageFieldUndoCommand_null",
        [](Scene &, FieldContainerPtr target) -> QUndoCommand * {
            return new ksImageFieldUndoCommand(target, "image", NullFC);
        },
        componentOf);
    noImages.held = noImages.goneWhenDone = image.goneWhenDone;
    kinds.push_back(noImages);

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

/// What is required of a command on the box's transform.
void editsTransform(ksFaultKind &kind)
{
    kind.impostors = boxImpostors;
    kind.handlerFields = {"matrix"};
}

void addTransformKinds(std::vector<ksFaultKind> &kinds)
{
    for (const ksTransformValueRow &row : ksTransformValueRows::all) {
        const auto make = [&row](Scene &scene, const NodePtr &node) {
            ksTransformValueForm form;
            form.callback = [&scene](unsigned int, const osg::Vec3f &, int) { scene.log("called"); };
            return row.make(node, Vec3f(3, 0.5f, -2), form);
        };
        ksFaultKind result;
        result.name = row.className;
        result.make = [make](Scene &scene) { return make(scene, scene.box); };
        result.makeWithoutTarget = [make](Scene &scene) { return make(scene, NullFC); };
        result.target = boxOf;
        editsTransform(result);
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
        boxOf);
    editsTransform(order);
    order.redoEvents = order.undoEvents = {"called", "synced"};
    order.reportSync = reportSync<ksEulerRotationOrderUndoCommand>;
    kinds.push_back(order);

    ksFaultKind quaternion = kind<NodePtr>(
        "ksRotationAsQuaternionUndoCommand",
        [](Scene &, NodePtr target) -> QUndoCommand * {
            return new ksRotationAsQuaternionUndoCommand(text, target,
                                                         osg::Quaternion(0.5f, 0.5f, -0.5f, 0.5f));
        },
        boxOf);
    editsTransform(quaternion);
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
        boxOf);
    editsTransform(transformation);
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
        kind.impostors = [](const Scene &scene) {
            return Handles{ksNodeUtils::getTransformVariantsAttachment(scene.box),
                           scene.variant(0)->getTransform()};
        };
        add(std::move(kind));
    };
    const auto variantsOf = [](const Scene &scene, const std::vector<unsigned long> &indexes) {
        Handles variants;
        for (const unsigned long index : indexes)
            variants.push_back(scene.variant(index));
        return scene.fieldState(ksNodeUtils::getTransformVariantsAttachment(scene.box), "variants", variants);
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
    ksFaultKind move = kind<NodePtr>(
        "ksTransformVariantMoveCommand_one",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksTransformVariantMoveCommand(
                target, 0, 2, nullptr,
                [&scene](unsigned int, const QList<int> &, const QList<int> &) { scene.log("notified"); });
        },
        boxOf);
    move.impostors = boxImpostors;
    const auto transformOf = [](const Scene &scene) -> FieldContainerPtr { return scene.box->getCore(); };
    move.further = {
        {"variant",
         [](const Scene &scene) -> FieldContainerPtr { return scene.variant(0); },
         Further::nothing,
         Further::nothing,
         {"notified"},
         {"notified"},
         {},
         transformOf},
    };
    add(move);

    ksFaultKind moves = kind<NodePtr>(
        "ksTransformVariantMoveCommand_several",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksTransformVariantMoveCommand(
                target, std::vector<int>{2, 1}, 0, nullptr,
                [&scene](unsigned int, const QList<int> &, const QList<int> &) { scene.log("notified"); });
        },
        boxOf);
    moves.impostors = boxImpostors;
    // Redo makes c b a of a b c; b alone stays in its place, and c alone is what moves.
    moves.further = {
        {"b",
         [](const Scene &scene) -> FieldContainerPtr { return scene.variant(1); },
         [=](const Scene &scene) {
             return variantsOf(scene, {2, 0, 1});
         },
         [=](const Scene &scene) {
             return variantsOf(scene, {1, 0, 2});
         },
         {"notified"},
         {"notified"},
         {},
         transformOf},
    };
    add(moves);

    ksFaultKind insertion = kind<NodePtr>(
        "ksAddTransformVariantUndoCommand",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksAddTransformVariantUndoCommand(
                target, scene.looseVariant, 1, nullptr,
                [&scene](unsigned int, int) { scene.log("notified"); });
        },
        boxOf);
    const auto looseVariant = [](const Scene &scene) -> FieldContainerPtr { return scene.looseVariant; };
    const auto attachment = [](const Scene &scene) -> FieldContainerPtr {
        return ksNodeUtils::getTransformVariantsAttachment(scene.box);
    };
    insertion.impostors = boxImpostors;
    insertion.held = [=](const Scene &scene) { return Handles{looseVariant(scene)}; };
    insertion.further = {
        {"variant", looseVariant, Further::nothing, {}, {}, {"notified"}, {}, attachment},
    };
    add(insertion);

    ksFaultKind removal = kind<NodePtr>(
        "ksRemoveTransformSwitchVariantUndoCommand",
        [](Scene &scene, NodePtr target) -> QUndoCommand * {
            return new ksRemoveTransformSwitchVariantUndoCommand(
                target, 1, nullptr, [&scene](unsigned int, int) { scene.log("notified"); });
        },
        boxOf);
    const auto secondVariant = [](const Scene &scene) -> FieldContainerPtr { return scene.variant(1); };
    removal.impostors = boxImpostors;
    removal.held = [=](const Scene &scene) { return Handles{secondVariant(scene), attachment(scene)}; };
    removal.goneWhenDone = [](const Scene &scene) {
        return Handles{scene.variant(1), scene.variant(1)->getTransform()};
    };
    removal.further = {
        {"variant", secondVariant, {}, Further::nothing, {"notified"}, {}, {}, attachment},
        {"attachment",
         attachment,
         {},
         Further::nothing,
         {"notified"},
         {},
         {},
         [](const Scene &scene) -> FieldContainerPtr { return scene.tags(); }},
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
    result.impostors = [](const Scene &scene) { return Handles{scene.light()}; };
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
    const auto idleWithout = [](NodePtr Scene::*node) -> Further {
        return {"node",
                [=](const Scene &scene) -> FieldContainerPtr { return scene.*node; },
                Further::nothing,
                Further::nothing,
                {},
                {},
                [](const Scene &) { return ksRecords(); },
                groupOf};
    };
    const auto add = [&kinds](ksFaultKind kind, const std::vector<Further> &further) {
        kind.impostors = [](const Scene &scene) {
            return Handles{groupOf(scene), scene.constraint(), scene.lamp};
        };
        kind.further = further;
        kinds.push_back(std::move(kind));
    };
    add(kind<osg::UberLightPtr>(
            "ksAddNodeAsVisibilityReferenceUndoCommand_add",
            [](Scene &scene, osg::UberLightPtr target) -> QUndoCommand * {
                return new ksAddNodeAsVisibilityReferenceUndoCommand(target, scene.mark, false);
            },
            [](const Scene &scene) { return scene.light(); }),
        {idleWithout(&Scene::mark)});
    add(kind<osg::UberLightPtr>(
            "ksAddNodeAsVisibilityReferenceUndoCommand_remove",
            [](Scene &scene, osg::UberLightPtr target) -> QUndoCommand * {
                return new ksAddNodeAsVisibilityReferenceUndoCommand(target, scene.shade, true);
            },
            [](const Scene &scene) { return scene.spotLight(); }),
        {idleWithout(&Scene::shade)});
    add(kind<osg::LightLinkSetPtr>(
            "ksAddNodeToLightLinkSetUndoCommand_add",
            [](Scene &scene, osg::LightLinkSetPtr target) -> QUndoCommand * {
                return new ksAddNodeToLightLinkSetUndoCommand(target, scene.lamp, 3, false);
            },
            [](const Scene &scene) { return scene.linkSet(); }),
        {idleWithout(&Scene::lamp)});

    add(kind<osg::LightLinkSetPtr>(
            "ksAddNodeToLightLinkSetUndoCommand_remove",
            [](Scene &scene, osg::LightLinkSetPtr target) -> QUndoCommand * {
                return new ksAddNodeToLightLinkSetUndoCommand(target, {scene.mark, scene.listed}, 0, true);
            },
            [](const Scene &scene) { return scene.linkSet(); }),
        {{"node",
          [](const Scene &scene) -> FieldContainerPtr { return scene.mark; },
          [](const Scene &scene) {
              return scene.fieldState(scene.linkSet(), "sceneNodes", {scene.constrained, scene.mark});
          },
          [](const Scene &scene) {
              return scene.fieldState(scene.linkSet(), "sceneNodes", {scene.listed, scene.constrained});
          },
          {},
          {},
          {},
          groupOf}});
}

constexpr osg::BitVector settingsMask = osg::ColorComponentSettings::PlanarProjectionFieldMask;
constexpr osg::BitVector materialMask = osg::UberMaterial::ColorComponentDataFieldMask;

ksRecords materialTouches(const Scene &scene)
{
    return ksRecords()
        .change(scene.recorder.idOf(scene.settings), settingsMask)
        .change(scene.recorder.idOf(scene.material), materialMask);
}

ksRecords weightRecord(const Scene &scene)
{
    return ksRecords().change(scene.recorder.idOf(scene.component), osg::ColorComponent::WeightFieldMask);
}

/// Neither the material nor the settings are needed for the weight; the other one is touched.
std::vector<Further> touchedContainers()
{
    return {
        {"material",
         [](const Scene &scene) -> FieldContainerPtr { return scene.material; },
         {},
         {},
         {},
         {},
         [](const Scene &scene) {
             return weightRecord(scene).change(scene.recorder.idOf(scene.settings), settingsMask);
         }},
        {"settings",
         [](const Scene &scene) -> FieldContainerPtr { return scene.settings; },
         {},
         {},
         {},
         {},
         [](const Scene &scene) {
             return weightRecord(scene).change(scene.recorder.idOf(scene.material), materialMask);
         }},
    };
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
    material.further = touchedContainers();
    kinds.push_back(material);

    ksFaultKind component = kind<FieldContainerPtr>(
        "ksColorComponentUndoCommand",
        [](Scene &scene, FieldContainerPtr target) -> QUndoCommand * {
            return new ksColorComponentUndoCommand(
                text, new ksFieldUndoCommand<float>(text, target, "weight", 0.3f), target, scene.material);
        },
        componentOf);
    component.further = {
        {"parent",
         [](const Scene &scene) -> FieldContainerPtr { return scene.material; },
         {},
         {},
         {},
         {},
         weightRecord},
    };
    kinds.push_back(component);

    ksFaultKind multi = kind<FieldContainerPtr>(
        "ksMaterialMultiUndoCommand",
        [](Scene &scene, FieldContainerPtr target) -> QUndoCommand * {
            auto *command = new ksMaterialMultiUndoCommand(text, scene.material, scene.settings);
            new ksFieldUndoCommand<float>(text, target, "weight", 0.3f, command);
            return command;
        },
        componentOf);
    multi.idleRecords = materialTouches;
    multi.further = touchedContainers();
    kinds.push_back(multi);

    ksFaultKind environment = kind<osg::UBRDFMaterialPtr>(
        "ksSetEnvironmentUndoCommand",
        [](Scene &scene, osg::UBRDFMaterialPtr target) -> QUndoCommand * {
            return new ksSetEnvironmentUndoCommand(target, scene.newEnvironment);
        },
        [](const Scene &scene) { return scene.brdf; });
    environment.makeWithoutTarget = {};
    environment.impostors = [](const Scene &scene) { return Handles{scene.environment, scene.material}; };
    const auto noEnvironment = [](const Scene &scene) {
        return scene.fieldState(scene.brdf, "environment", "0");
    };
    const auto componentSettings = [](const Scene &scene) -> FieldContainerPtr { return scene.settings; };
    environment.further = {
        {"newEnvironment",
         [](const Scene &scene) -> FieldContainerPtr { return scene.newEnvironment; },
         noEnvironment,
         {},
         {},
         {},
         {},
         componentSettings},
        {"oldEnvironment",
         [](const Scene &scene) -> FieldContainerPtr { return scene.environment; },
         {},
         noEnvironment,
         {},
         {},
         {},
         componentSettings},
    };
    kinds.push_back(environment);
}

/// A command on the list of tags with the id \a fieldId.
template <class Command>
ksFaultKind tagKind(std::string name, osg::UInt32 fieldId)
{
    ksFaultKind result = kind<osg::AttachmentContainerPtr>(
        std::move(name),
        [fieldId](Scene &scene, osg::AttachmentContainerPtr target) -> QUndoCommand * {
            osg::MField<std::string> tags({"old", "new"});
            return new Command(
                text, target, osg::BitVector(1) << fieldId | osg::TagAttachment::TagValuesFieldMask, fieldId,
                "new", &tags, *scene.tags()->getMFTagValues(), osg::MField<osg::UInt64>({1, 2}));
        },
        [](const Scene &scene) -> osg::AttachmentContainerPtr { return scene.tagged; });
    result.held = [](const Scene &scene) { return Handles{scene.tagged}; };
    result.impostors = [](const Scene &scene) { return Handles{scene.tags()}; };
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
    constexpr osg::UInt32 userTags = osg::TagAttachment::UserTagsFieldId;
    constexpr osg::UInt32 layerTags = osg::TagAttachment::LayerTagsFieldId;
    kinds.push_back(tagKind<ksAddTagUndoCommand>("ksAddTagUndoCommand_user", userTags));
    kinds.push_back(tagKind<ksAddTagUndoCommand>("ksAddTagUndoCommand_layer", layerTags));
    kinds.push_back(tagKind<ksSubTagUndoCommand>("ksSubTagUndoCommand_user", userTags));
    kinds.push_back(tagKind<ksSubTagUndoCommand>("ksSubTagUndoCommand_layer", layerTags));
    kinds.push_back(emptyTagKind<ksAddEmptyTagUndoCommand>("ksAddEmptyTagUndoCommand"));
    kinds.push_back(emptyTagKind<ksSubEmptyTagUndoCommand>("ksSubEmptyTagUndoCommand"));
}

void addConstraintKinds(std::vector<ksFaultKind> &kinds)
{
    const auto make = [](Scene &scene, osg::AbstractConstraintPtr target) -> QUndoCommand * {
        return new ksDeleteConstraintReferenceUndoCommand(target, {scene.source});
    };
    const auto source = [](const Scene &scene) -> FieldContainerPtr {
        return scene.constraint()->getSources()[0];
    };
    const auto upVector = [](const Scene &scene) -> FieldContainerPtr {
        return scene.constraint()->getUpVectorSources()[0];
    };
    const auto target = [](const Scene &scene) -> FieldContainerPtr { return scene.source; };
    const auto pointSource = [](const Scene &scene) -> FieldContainerPtr {
        return scene.pointConstraint()->getSources()[0];
    };
    const auto with = [](const Scene &scene, const char *field, const FieldContainerPtr &container) {
        return scene.fieldState(scene.constraint(), field, Handles{container});
    };
    const auto both = [](Scene::State one, const Scene::State &other) {
        one.insert(other.begin(), other.end());
        return one;
    };
    const auto empty = [](const Scene &scene, const char *field) {
        return scene.fieldState(scene.constraint(), field, std::string());
    };
    const auto noTarget = [](const Scene &scene) {
        return scene.fieldState(scene.constraint(), "target", "0");
    };
    const auto nodeOf = [](const Scene &scene) -> FieldContainerPtr { return scene.source; };
    const auto tagsOf = [](const Scene &scene) -> FieldContainerPtr { return scene.tags(); };

    ksFaultKind aim = kind<osg::AbstractConstraintPtr>(
        "ksDeleteConstraintReferenceUndoCommand_aim", make,
        [](const Scene &scene) -> osg::AbstractConstraintPtr { return scene.constraint(); });
    aim.impostors = [](const Scene &scene) { return Handles{scene.linkSet(), groupOf(scene)}; };
    aim.held = [=](const Scene &scene) { return Handles{source(scene), target(scene), upVector(scene)}; };
    aim.released = [=](const Scene &scene) { return Handles{source(scene), upVector(scene), target(scene)}; };
    aim.goneWhenDone = [=](const Scene &scene) { return Handles{source(scene), upVector(scene)}; };
    aim.further = {
        {"source",
         source,
         [=](const Scene &scene) { return both(empty(scene, "upVectorSources"), noTarget(scene)); },
         [=](const Scene &scene) {
             return both(with(scene, "upVectorSources", upVector(scene)),
                         with(scene, "target", target(scene)));
         },
         {},
         {},
         {},
         nodeOf},
        {"upVector",
         upVector,
         [=](const Scene &scene) { return both(empty(scene, "sources"), noTarget(scene)); },
         [=](const Scene &scene) {
             return both(with(scene, "sources", source(scene)), with(scene, "target", target(scene)));
         },
         {},
         {},
         {},
         nodeOf},
        {"target",
         target,
         {},
         [=](const Scene &scene) {
             return both(with(scene, "sources", source(scene)),
                         with(scene, "upVectorSources", upVector(scene)));
         },
         {},
         {},
         {},
         tagsOf},
    };
    kinds.push_back(aim);

    ksFaultKind point = kind<osg::AbstractConstraintPtr>(
        "ksDeleteConstraintReferenceUndoCommand_point", make,
        [](const Scene &scene) -> osg::AbstractConstraintPtr { return scene.pointConstraint(); });
    point.impostors = aim.impostors;
    point.held = [=](const Scene &scene) { return Handles{pointSource(scene), target(scene)}; };
    point.goneWhenDone = [=](const Scene &scene) { return Handles{pointSource(scene)}; };
    kinds.push_back(point);
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
