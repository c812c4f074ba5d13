// SPDX-License-Identifier: MIT
#include "ksSuiteKinds.h"

#include <ksundo/ksundo.h>

namespace {

using Scene = ksSuiteScene;
using Kind = ksSuiteKind;
using Kinds = std::vector<Kind>;
using Containers = std::vector<osg::FieldContainerPtr>;
using osg::FieldContainerPtr;
using osg::NodePtr;
using osg::NullFC;
using osg::Vec3f;

const QString text = QStringLiteral("Edit");

auto dropNode(const NodePtr Scene::*node)
{
    return [=](Scene &scene) { scene.dropNode(scene.*node); };
}

template <class PtrT>
auto tellsTarget(const char *key, const PtrT Scene::*target)
{
    return [=](const Scene &scene) { return Kind::Keys{{key, ksPlatform::idOf(scene.*target)}}; };
}

template <class Command>
Kind kindOf(const char *name)
{
    Kind kind;
    kind.name = name;
    kind.id = &Command::commandId;
    return kind;
}

/// A kind whose commands \a make builds of the scene and its target, null for none.
template <class Command, class PtrT, class Make>
Kind kindOf(const char *name, const PtrT Scene::*target, Make make)
{
    Kind kind = kindOf<Command>(name);
    kind.make = [=](Scene &scene, bool hasTarget) { return make(scene, hasTarget ? scene.*target : PtrT()); };
    return kind;
}

/// A kind of commands on the probe.
template <class Command, class Make>
Kind probeKind(const char *name, Make make)
{
    Kind kind = kindOf<Command>(name, &Scene::probe, make);
    kind.tells = tellsTarget("container", &Scene::probe);
    kind.flags = {"fieldId"};
    kind.dropTarget = [](Scene &scene) { scene.drop(scene.probe); };
    return kind;
}

template <class T>
void addNumber(Kinds &kinds, const char *name, const char *field)
{
    kinds.push_back(probeKind<ksFieldUndoCommand<T>>(name, [field](Scene &, const FieldContainerPtr &target) {
        return new ksFieldUndoCommand<T>(text, target, field, T(65));
    }));
    kinds.back().merges = true;
}

void addFields(Kinds &kinds)
{
    addNumber<osg::Int64>(kinds, "ksFieldUndoCommand<long long>", "int64");
    addNumber<osg::UInt64>(kinds, "ksFieldUndoCommand<unsigned long long>", "uint64");
    addNumber<int>(kinds, "ksFieldUndoCommand<int>", "int32");
    addNumber<unsigned int>(kinds, "ksFieldUndoCommand<unsigned int>", "uint32");
    addNumber<short>(kinds, "ksFieldUndoCommand<short>", "int16");
    addNumber<unsigned short>(kinds, "ksFieldUndoCommand<unsigned short>", "uint16");
    addNumber<signed char>(kinds, "ksFieldUndoCommand<signed char>", "int8");
    addNumber<unsigned char>(kinds, "ksFieldUndoCommand<unsigned char>", "uint8");
    addNumber<float>(kinds, "ksFieldUndoCommand<float>", "real32");
    addNumber<double>(kinds, "ksFieldUndoCommand<double>", "real64");

    for (const char *field :
         {"flag", "int64", "uint64", "int32", "uint32", "int16", "uint16", "int8", "uint8"})
        kinds.push_back(probeKind<ksBoolFieldUndoCommand>(
            "ksBoolFieldUndoCommand", [field](Scene &, const FieldContainerPtr &target) {
                return new ksBoolFieldUndoCommand(text, target, field, true);
            }));

    Kind invoke = probeKind<ksInvokeBoolFieldUndoCommand>(
        "ksInvokeBoolFieldUndoCommand", [](Scene &scene, const FieldContainerPtr &target) {
            return new ksInvokeBoolFieldUndoCommand(text, target, "flag", true, &scene, "switched(bool)");
        });
    invoke.events = invoke.idleEvents = {"called"};
    invoke.undoIsEmpty = true;
    kinds.push_back(invoke);

    kinds.push_back(probeKind<ksStringFieldUndoCommand>(
        "ksStringFieldUndoCommand", [](Scene &, const FieldContainerPtr &target) {
            return new ksStringFieldUndoCommand(text, target, "text", "new");
        }));
    kinds.back().merges = true;
    kinds.push_back(probeKind<ksStringsFieldUndoCommand>(
        "ksStringsFieldUndoCommand", [](Scene &, const FieldContainerPtr &target) {
            osg::MField<std::string> words;
            words.push_back("new");
            return new ksStringsFieldUndoCommand(text, target, "words", words);
        }));
    kinds.back().merges = true;

    Kind image = kindOf<ksImageFieldUndoCommand>(
        "ksImageFieldUndoCommand", &Scene::holder, [](Scene &scene, const FieldContainerPtr &target) {
            auto *command = new ksImageFieldUndoCommand(target, "image", scene.newImage);
            command->setNotifyFunction([&scene] { scene.log("called"); });
            return command;
        });
    image.tells = tellsTarget("container", &Scene::holder);
    image.flags = {"fieldId"};
    image.dropTarget = [](Scene &scene) { scene.drop(scene.holder); };
    image.held = [](const Scene &scene) { return Containers{scene.newImage}; };
    image.events = {"called"};
    kinds.push_back(image);
}

void addChild(Scene &, const FieldContainerPtr &target, QUndoCommand *parent)
{
    new ksFieldUndoCommand<int>(text, target, "int32", 65, parent);
}

void addComposites(Kinds &kinds)
{
    const auto add = [&](Kind kind) {
        kind.id = &ksFieldUndoCommand<int>::commandId;
        kind.merges = true;
        kinds.push_back(std::move(kind));
    };
    Kind multi =
        probeKind<ksMultiCommand>("ksMultiCommand", [](Scene &scene, const FieldContainerPtr &target) {
            auto *command = new ksMultiCommand(text, [&scene] { scene.log("called"); });
            addChild(scene, target, command);
            return command;
        });
    multi.events = multi.idleEvents = {"called"};
    add(multi);

    Kind invoke = probeKind<ksInvokeMultiCommand>(
        "ksInvokeMultiCommand", [](Scene &scene, const FieldContainerPtr &target) {
            auto *command = new ksInvokeMultiCommand(text, &scene, "finished()");
            addChild(scene, target, command);
            return command;
        });
    invoke.events = invoke.idleEvents = {"called"};
    add(invoke);

    // A material without settings, too.
    Kind material = probeKind<ksMaterialMultiUndoCommand>(
        "ksMaterialMultiUndoCommand", [](Scene &scene, const FieldContainerPtr &target) {
            auto *command = new ksMaterialMultiUndoCommand(text, scene.material, NullFC);
            addChild(scene, target, command);
            return command;
        });
    material.tells = [](const Scene &scene) {
        return Kind::Keys{{"container", ksPlatform::idOf(scene.probe)},
                          {"material", ksPlatform::idOf(scene.material)}};
    };
    add(material);
}

template <class Command>
Kind transformKind(const char *name, std::function<Command *(Scene &, const NodePtr &)> make)
{
    Kind kind = kindOf<Command>(name, &Scene::box, make);
    kind.tells = tellsTarget("node", &Scene::box);
    kind.flags = {"transformCommand"};
    kind.dropTarget = dropNode(&Scene::box);
    kind.merges = true;
    kind.events = {"synced"};
    kind.setSync = [](Scene *scene) {
        if (scene == nullptr)
            Command::setSyncFunction({});
        else
            Command::setSyncFunction([scene](const auto &...) { scene->log("synced"); });
    };
    return kind;
}

template <class Command, class... Mode>
void addValue(Kinds &kinds, const char *name, Mode... mode)
{
    kinds.push_back(transformKind<Command>(name, [=](Scene &, const NodePtr &target) {
        return new Command(target, Vec3f(3, 0.5f, -2), mode...);
    }));
}

template <class Command, class... Mode>
void addCallingValue(Kinds &kinds, const char *name, Mode... mode)
{
    kinds.push_back(transformKind<Command>(name, [=](Scene &scene, const NodePtr &target) {
        return new Command(target, Vec3f(3, 0.5f, -2), mode..., nullptr,
                           [&scene](unsigned int, const Vec3f &, int) { scene.log("called"); });
    }));
    kinds.back().events = {"called", "synced"};
}

void addTransforms(Kinds &kinds)
{
    addCallingValue<ksTranslationUndoCommand>(kinds, "ksTranslationUndoCommand", false);
    addCallingValue<ksRotationUndoCommand>(kinds, "ksRotationUndoCommand");
    addCallingValue<ksScaleUndoCommand>(kinds, "ksScaleUndoCommand");
    addValue<ksScalePivotUndoCommand>(kinds, "ksScalePivotUndoCommand", false);
    addValue<ksRotationPivotUndoCommand>(kinds, "ksRotationPivotUndoCommand", false);
    addValue<ksScalePivotTranslationUndoCommand>(kinds, "ksScalePivotTranslationUndoCommand");
    addValue<ksRotationPivotTranslationUndoCommand>(kinds, "ksRotationPivotTranslationUndoCommand");
    addValue<ksRotationPivotOrientationUndoCommand>(kinds, "ksRotationPivotOrientationUndoCommand");
    addValue<ksRotationPivotDirectionUndoCommand>(kinds, "ksRotationPivotDirectionUndoCommand", 0, false);
    addValue<ksShearUndoCommand>(kinds, "ksShearUndoCommand");

    Kind order = transformKind<ksEulerRotationOrderUndoCommand>(
        "ksEulerRotationOrderUndoCommand", [](Scene &scene, const NodePtr &target) {
            return new ksEulerRotationOrderUndoCommand(
                target, "ZXY", nullptr,
                [&scene](unsigned int, const std::string &, int) { scene.log("called"); });
        });
    order.events = {"called", "synced"};
    kinds.push_back(order);

    Kind quaternion = kindOf<ksRotationAsQuaternionUndoCommand>(
        "ksRotationAsQuaternionUndoCommand", &Scene::box, [](Scene &, const NodePtr &target) {
            return new ksRotationAsQuaternionUndoCommand(text, target, osg::Quaternion(Vec3f(0, 0, 1), 0.5f));
        });
    quaternion.flags = {"transformCommand"};
    quaternion.dropTarget = dropNode(&Scene::box);
    quaternion.derivedField = "eulerRotation";
    quaternion.merges = true;
    kinds.push_back(quaternion);

    Kind all = transformKind<ksTransformationUndoCommand>(
        "ksTransformationUndoCommand", [](Scene &scene, const NodePtr &target) {
            ksTransformation values;
            values.translation = Vec3f(1, 2, 3);
            values.scale = Vec3f(4, 5, 6);
            values.rotatePivot = Vec3f(7, 8, 9);
            values.eulerRotationOrder = "ZXY";
            return new ksTransformationUndoCommand(target, values, true, nullptr,
                                                   [&scene](int) { scene.log("called"); });
        });
    all.tells = {};
    all.flags = {};
    all.merges = false;
    all.events = {"called", "synced"};
    kinds.push_back(all);
}

void addVariants(Kinds &kinds)
{
    const auto add = [&](Kind kind) {
        if (!kind.dropTarget)
            kind.dropTarget = dropNode(&Scene::box);
        kind.events = {"called"};
        kinds.push_back(std::move(kind));
    };
    const auto dropVariant = [](Scene &scene) { ksNodeUtils::removeTransformVariant(scene.box, 0); };

    Kind insertion = kindOf<ksAddTransformVariantUndoCommand>(
        "ksAddTransformVariantUndoCommand", &Scene::box, [](Scene &scene, const NodePtr &target) {
            return new ksAddTransformVariantUndoCommand(target, scene.looseVariant, 1, nullptr,
                                                        [&scene](unsigned int, int) { scene.log("called"); });
        });
    insertion.held = [](const Scene &scene) { return Containers{scene.looseVariant}; };
    add(insertion);

    // One that makes the list and takes it away again.
    Kind first = kindOf<ksAddTransformVariantUndoCommand>(
        "ksAddTransformVariantUndoCommand", &Scene::mark, [](Scene &scene, const NodePtr &target) {
            return new ksAddTransformVariantUndoCommand(target, scene.looseVariant, 0, nullptr,
                                                        [&scene](unsigned int, int) { scene.log("called"); });
        });
    first.dropTarget = dropNode(&Scene::mark);
    first.held = insertion.held;
    add(first);

    Kind removal = kindOf<ksRemoveTransformSwitchVariantUndoCommand>(
        "ksRemoveTransformSwitchVariantUndoCommand", &Scene::box, [](Scene &scene, const NodePtr &target) {
            return new ksRemoveTransformSwitchVariantUndoCommand(
                target, 1, nullptr, [&scene](unsigned int, int) { scene.log("called"); });
        });
    removal.held = [](const Scene &scene) {
        return Containers{scene.variantB, ksNodeUtils::getTransformVariantsAttachment(scene.box)};
    };
    add(removal);

    add(kindOf<ksTransformVariantMoveCommand>(
        "ksTransformVariantMoveCommand", &Scene::box, [](Scene &scene, const NodePtr &target) {
            return new ksTransformVariantMoveCommand(
                target, 0, 1, nullptr,
                [&scene](unsigned int, const QList<int> &, const QList<int> &) { scene.log("called"); });
        }));

    Kind name = kindOf<ksTransformVariantNameUndoCommand>(
        "ksTransformVariantNameUndoCommand", &Scene::variantA,
        [](Scene &scene, const osg::TransformVariantPtr &target) {
            return new ksTransformVariantNameUndoCommand(
                target, "new", nullptr,
                [&scene](const std::string &, const std::string &) { scene.log("called"); });
        });
    name.needsTarget = true;
    name.dropTarget = dropVariant;
    add(name);

    Kind options = kindOf<ksTransformVariantOptionsUndoCommand>(
        "ksTransformVariantOptionsUndoCommand", &Scene::variantA,
        [](Scene &scene, const osg::TransformVariantPtr &target) {
            return new ksTransformVariantOptionsUndoCommand(target, 3, nullptr,
                                                            [&scene] { scene.log("called"); });
        });
    options.needsTarget = true;
    options.dropTarget = dropVariant;
    add(options);
}

template <class Command, class T>
void addLightValue(Kinds &kinds, const char *name, T value)
{
    Kind kind = kindOf<Command>(
        name, &Scene::lamp, [=](Scene &, const NodePtr &target) { return new Command(text, target, value); });
    kind.flags = {"lightCommand"};
    kind.dropTarget = dropNode(&Scene::lamp);
    kind.merges = true;
    kinds.push_back(kind);
}

void addLights(Kinds &kinds)
{
    addLightValue<ksLightDiffuseUndoCommand>(kinds, "ksLightDiffuseUndoCommand", Vec3f(0, 0.5f, 0.25f));
    addLightValue<ksLightGlossyUndoCommand>(kinds, "ksLightGlossyUndoCommand", Vec3f(0, 0.5f, 0.25f));
    addLightValue<ksLightIntensityUndoCommand>(kinds, "ksLightIntensityUndoCommand", 0.3f);
    addLightValue<ksLightPenumbraAngleUndoCommand>(kinds, "ksLightPenumbraAngleUndoCommand", 5.0f);
    addLightValue<ksLightConeAngleUndoCommand>(kinds, "ksLightConeAngleUndoCommand", 40.0f);
    addLightValue<ksLightAttenuationUndoCommand>(kinds, "ksLightAttenuationUndoCommand",
                                                 osg::UberLight::LightAttenuation(1));

    for (const unsigned int list : {0u, 3u}) {
        Kind link = kindOf<ksAddNodeToLightLinkSetUndoCommand>("ksAddNodeToLightLinkSetUndoCommand");
        link.make = [list](Scene &scene, bool hasTarget) {
            return new ksAddNodeToLightLinkSetUndoCommand(
                hasTarget ? scene.linkSet() : osg::LightLinkSetPtr(), {scene.lamp, scene.mark}, list, false);
        };
        link.tells = [](const Scene &scene) {
            return Kind::Keys{{"lightlinkset", ksPlatform::idOf(scene.linkSet())}};
        };
        link.dropTarget = dropNode(&Scene::linked);
        kinds.push_back(link);
    }

    Kind reference =
        kindOf<ksAddNodeAsVisibilityReferenceUndoCommand>("ksAddNodeAsVisibilityReferenceUndoCommand");
    reference.make = [](Scene &scene, bool hasTarget) {
        return new ksAddNodeAsVisibilityReferenceUndoCommand(hasTarget ? scene.light() : osg::UberLightPtr(),
                                                             scene.mark, false);
    };
    reference.tells = [](const Scene &scene) {
        return Kind::Keys{{"lightCommand", ksPlatform::idOf(scene.light())}};
    };
    reference.dropTarget = dropNode(&Scene::lamp);
    kinds.push_back(reference);
}

void addMaterials(Kinds &kinds)
{
    const auto add = [&](Kind kind, const char *first, const char *second) {
        kind.tells = [=](const Scene &scene) {
            return Kind::Keys{{"container", ksPlatform::idOf(scene.probe)},
                              {first, ksPlatform::idOf(scene.material)},
                              {second, ksPlatform::idOf(scene.settings)}};
        };
        kind.flags = {};
        kind.merges = true;
        kinds.push_back(std::move(kind));
    };
    const auto innerOf = [](const FieldContainerPtr &target) {
        auto *inner = new ksFieldUndoCommand<int>(text, target, "int32", 65);
        inner->setMergeResponseDelta(-1.0);
        return inner;
    };
    add(probeKind<ksMaterialUndoCommand>("ksMaterialUndoCommand",
                                         [=](Scene &scene, const FieldContainerPtr &target) {
                                             return new ksMaterialUndoCommand(text, innerOf(target),
                                                                              scene.material, scene.settings);
                                         }),
        "material", "componentSettings");
    add(probeKind<ksColorComponentUndoCommand>("ksColorComponentUndoCommand",
                                               [=](Scene &scene, const FieldContainerPtr &target) {
                                                   return new ksColorComponentUndoCommand(
                                                       text, innerOf(target), scene.material, scene.settings);
                                               }),
        "component", "parent");

    Kind environment = kindOf<ksSetEnvironmentUndoCommand>(
        "ksSetEnvironmentUndoCommand", &Scene::brdf, [](Scene &scene, const osg::UBRDFMaterialPtr &target) {
            return new ksSetEnvironmentUndoCommand(target, scene.environment);
        });
    environment.tells = tellsTarget("material", &Scene::brdf);
    environment.dropTarget = [](Scene &scene) { scene.drop(scene.brdf); };
    environment.needsTarget = true;
    kinds.push_back(environment);
}

template <class Command>
void addTag(Kinds &kinds, const char *name)
{
    Kind kind =
        kindOf<Command>(name, &Scene::tagged, [](Scene &scene, const osg::AttachmentContainerPtr &target) {
            osg::MField<std::string> tags = *scene.userTags();
            tags.push_back("new");
            osg::MField<osg::UInt64> values;
            values.push_back(1);
            values.push_back(2);
            return new Command(text, target, osg::BitVector(1) << 4, 4, "new", &tags,
                               *scene.tags->getMFTagValues(), values);
        });
    kind.dropTarget = dropNode(&Scene::tagged); // which the command keeps alive
    kind.held = [](const Scene &scene) { return Containers{scene.tagged}; };
    kinds.push_back(kind);
}

template <class Command>
void addEmptyTag(Kinds &kinds, const char *name)
{
    Kind kind = kindOf<Command>(name);
    kind.make = [](Scene &, bool) { return new Command(text, "new", ksTagUndoCommand::USER_TAG); };
    kind.changesNothing = true;
    kinds.push_back(kind);
}

void addOthers(Kinds &kinds)
{
    addTag<ksAddTagUndoCommand>(kinds, "ksAddTagUndoCommand");
    addTag<ksSubTagUndoCommand>(kinds, "ksSubTagUndoCommand");
    addEmptyTag<ksAddEmptyTagUndoCommand>(kinds, "ksAddEmptyTagUndoCommand");
    addEmptyTag<ksSubEmptyTagUndoCommand>(kinds, "ksSubEmptyTagUndoCommand");

    Kind constraint =
        kindOf<ksDeleteConstraintReferenceUndoCommand>("ksDeleteConstraintReferenceUndoCommand");
    constraint.make = [](Scene &scene, bool hasTarget) {
        return new ksDeleteConstraintReferenceUndoCommand(hasTarget ? osg::AbstractConstraintPtr(scene.aim())
                                                                    : osg::AbstractConstraintPtr(),
                                                          {scene.source});
    };
    constraint.dropTarget = dropNode(&Scene::constrained);
    constraint.held = [](const Scene &scene) {
        return Containers{scene.source, scene.aim()->findSourceConstraintObject(scene.source),
                          scene.aim()->findUpVectorConstraintObject(scene.source)};
    };
    kinds.push_back(constraint);
}

} // namespace

std::vector<ksSuiteKind> ksSuiteKinds()
{
    Kinds kinds;
    addFields(kinds);
    addComposites(kinds);
    addTransforms(kinds);
    addVariants(kinds);
    addLights(kinds);
    addMaterials(kinds);
    addOthers(kinds);
    return kinds;
}
