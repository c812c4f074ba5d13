// SPDX-License-Identifier: MIT
#include "ksFaultKind.h"

#include <algorithm>
#include <transform/ksFillTransform.h>
#include <transform/ksTransformValueRow.h>

namespace {

using osg::FieldContainerPtr;
using osg::NodePtr;
using osg::NullFC;
using osg::Vec3f;
using Scene = ksFaultScene;
using Events = Scene::Events;
using Further = ksFurtherContainer;
using Kind = ksFaultKind;
using Kinds = std::vector<Kind>;
using Keys = Kind::Keys;
using Places = Kind::Places;

const QString text = QString::fromLatin1(Kind::anyText);

std::string keyOf(const char *key, const FieldContainerPtr &container)
{
    return key + ("=uint:" + std::to_string(container.getFieldContainerId()));
}

/// The message of commands that tell their target.
auto tellsTarget(const char *key, const Keys &more = {})
{
    return [=](const Scene &, const FieldContainerPtr &target) {
        Keys keys = more;
        keys.push_back(keyOf(key, target));
        return keys;
    };
}

/// Steps that edit the fields \a mask of one container \a count times.
auto edits(const ksPlace &container, osg::BitVector mask, int count = 1)
{
    return [=](const Scene &scene, bool) {
        ksRecords records;
        for (int i = 0; i < count; ++i)
            records.change(scene.recorder.idOf(container(scene)), mask);
        return records;
    };
}

/// The same, once, with a reference more on each of \a taken and one less on each of \a released.
auto exchanges(const ksPlace &container, osg::BitVector mask, const Places &taken, const Places &released)
{
    return [=](const Scene &scene, bool undoing) {
        ksRecords records = edits(container, mask)(scene, undoing);
        for (const ksPlace &place : undoing ? released : taken)
            records.addRef(scene.recorder.idOf(place(scene)));
        for (const ksPlace &place : undoing ? taken : released)
            records.subRef(scene.recorder.idOf(place(scene)));
        return records;
    };
}

/// What is required of a command on one field of \a container.
void editsField(Kind &kind, const ksPlace &container, osg::UInt32 fieldId)
{
    kind.records = edits(container, osg::BitVector(1) << fieldId);
    kind.keys = [=](const Scene &, const FieldContainerPtr &target) {
        return Keys{keyOf("container", target),
                    "fieldId=uint:" + std::to_string(target == NullFC ? 0 : fieldId)};
    };
}

template <class T>
void addNumberKind(Kinds &kinds, const char *fieldName, osg::UInt32 fieldId)
{
    Kind kind = ksFaultKindOf<ksFieldUndoCommand<T>>(
        &Scene::probe, [=](Scene &, const FieldContainerPtr &target, QUndoCommand *parent) {
            return new ksFieldUndoCommand<T>(text, target, fieldName, T(7), parent);
        });
    kind.merging = Kind::Merging::runs;
    editsField(kind, &Scene::probe, fieldId);
    kinds.push_back(kind);
}

void addFieldKinds(Kinds &kinds)
{
    using osg::ProbeContainer;
    addNumberKind<long long>(kinds, "int64", ProbeContainer::Int64FieldId);
    addNumberKind<unsigned long long>(kinds, "uint64", ProbeContainer::UInt64FieldId);
    addNumberKind<int>(kinds, "int32", ProbeContainer::Int32FieldId);
    addNumberKind<unsigned int>(kinds, "uint32", ProbeContainer::UInt32FieldId);
    addNumberKind<short>(kinds, "int16", ProbeContainer::Int16FieldId);
    addNumberKind<unsigned short>(kinds, "uint16", ProbeContainer::UInt16FieldId);
    addNumberKind<signed char>(kinds, "int8", ProbeContainer::Int8FieldId);
    addNumberKind<unsigned char>(kinds, "uint8", ProbeContainer::UInt8FieldId);
    addNumberKind<float>(kinds, "real32", ProbeContainer::Real32FieldId);
    addNumberKind<double>(kinds, "real64", ProbeContainer::Real64FieldId);

    Kind flag = ksFaultKindOf<ksBoolFieldUndoCommand>(
        &Scene::probe, [](Scene &, const FieldContainerPtr &target, QUndoCommand *parent) {
            return new ksBoolFieldUndoCommand(text, target, "flag", true, parent);
        });
    editsField(flag, &Scene::probe, ProbeContainer::FlagFieldId);
    kinds.push_back(flag);

    Kind invoke = ksFaultKindOf<ksInvokeBoolFieldUndoCommand>(
        &Scene::probe, [](Scene &scene, const FieldContainerPtr &target, QUndoCommand *parent) {
            return new ksInvokeBoolFieldUndoCommand(text, target, "flag", true, &scene.listener,
                                                    "switched(bool)", parent);
        });
    editsField(invoke, &Scene::probe, ProbeContainer::FlagFieldId);
    invoke.redoEvents = invoke.idleRedoEvents = {"switched"};
    invoke.undoIsEmpty = true;
    kinds.push_back(invoke);

    Kind string = ksFaultKindOf<ksStringFieldUndoCommand>(
        &Scene::probe, [](Scene &, const FieldContainerPtr &target, QUndoCommand *parent) {
            return new ksStringFieldUndoCommand(text, target, "text", "new", parent);
        });
    string.merging = Kind::Merging::runs;
    editsField(string, &Scene::probe, ProbeContainer::TextFieldId);
    kinds.push_back(string);

    // The list is that of an attachment, which goes with its node.
    Kind strings = ksFaultKindOf<ksStringsFieldUndoCommand>(
        &Scene::tags, [](Scene &, const FieldContainerPtr &target, QUndoCommand *parent) {
            return new ksStringsFieldUndoCommand(text, target, "userTags", osg::MField<std::string>({"new"}),
                                                 parent);
        });
    strings.merging = Kind::Merging::runs;
    editsField(strings, &Scene::tags, osg::TagAttachment::UserTagsFieldId);
    kinds.push_back(strings);
}

void addImageKinds(Kinds &kinds)
{
    constexpr osg::BitVector imageMask = osg::ColorComponent::ImageFieldMask;
    const auto noImage = [](const Scene &scene) { return scene.fieldState(scene.component, "image", "0"); };
    Kind image = ksFaultKindOf<ksImageFieldUndoCommand>(
        &Scene::component, [](Scene &scene, const FieldContainerPtr &target, QUndoCommand *parent) {
            auto *command = new ksImageFieldUndoCommand(target, "image", scene.newImage, parent);
            command->setNotifyFunction([&scene] { scene.log("notified"); });
            return command;
        });
    image.text = "Set Texture";
    image.isTranslated = true;
    editsField(image, &Scene::component, osg::ColorComponent::ImageFieldId);
    image.records = exchanges(&Scene::component, imageMask, {&Scene::newImage}, {&Scene::oldImage});
    image.redoEvents = image.undoEvents = {"notified"};
    image.held = {&Scene::oldImage, &Scene::newImage};
    image.released = {&Scene::newImage, &Scene::oldImage};
    image.goneWhenDone = {&Scene::oldImage};
    image.further = {
        {"newImage", &Scene::newImage, &Scene::material, noImage, {}, {}, {"notified"}, {"notified"}},
        {"oldImage", &Scene::oldImage, &Scene::material, {}, noImage, {}, {"notified"}, {"notified"}},
    };
    kinds.push_back(image);

    Kind noImages = ksFaultKindOf<ksImageFieldUndoCommand>(
        &Scene::component,
        [](Scene &, const FieldContainerPtr &target, QUndoCommand *parent) {
            return new ksImageFieldUndoCommand(target, "image", NullFC, parent);
        },
        "null");
    noImages.text = image.text;
    noImages.isTranslated = true;
    noImages.keys = image.keys;
    noImages.records = exchanges(&Scene::component, imageMask, {}, {&Scene::oldImage});
    noImages.held = noImages.goneWhenDone = {&Scene::oldImage};
    kinds.push_back(noImages);
}

/// A composite with one command on the probe as its child, whose message it has.
template <class Command, class Make>
void addCompositeKind(Kinds &kinds, Make make, const std::string &event)
{
    Kind kind = ksFaultKindOf<Command>(&Scene::probe,
                                       [=](Scene &scene, const FieldContainerPtr &target, QUndoCommand *) {
                                           Command *command = make(scene);
                                           new ksFieldUndoCommand<int>(text, target, "int32", 7, command);
                                           return command;
                                       });
    kind.isTopLevel = true;
    kind.merging = Kind::Merging::runs;
    kind.messageId = &ksFieldUndoCommand<int>::commandId;
    editsField(kind, &Scene::probe, osg::ProbeContainer::Int32FieldId);
    kind.redoEvents = kind.undoEvents = kind.idleRedoEvents = kind.idleUndoEvents = {event};
    kinds.push_back(kind);
}

void addCompositeKinds(Kinds &kinds)
{
    addCompositeKind<ksMultiCommand>(
        kinds, [](Scene &scene) { return new ksMultiCommand(text, [&scene] { scene.log("action"); }); },
        "action");
    addCompositeKind<ksInvokeMultiCommand>(
        kinds, [](Scene &scene) { return new ksInvokeMultiCommand(text, &scene.listener, "finished()"); },
        "finished");
}

/// What is required of a command on the box's transform.
void editsTransform(Kind &kind, osg::BitVector mask)
{
    kind.impostors = {&Scene::boxCore};
    kind.handlerFields = {"matrix"};
    kind.records = edits(&Scene::boxCore, mask);
}

template <class Command>
void addTransformValueKind(Kinds &kinds)
{
    const ksTransformValueRow &row = ksTransformValueRows::of(ksClassName<Command>);
    Kind kind = ksFaultKindOf<Command>(
        &Scene::box, [&row](Scene &scene, const NodePtr &target, QUndoCommand *parent) {
            ksTransformValueForm form;
            form.callback = [&scene](unsigned int, const Vec3f &, int) { scene.log("called"); };
            form.parent = parent;
            return row.make(target, Vec3f(3, 0.5f, -2), form);
        });
    kind.text = row.verb + std::string(" '*'");
    kind.isTranslated = true;
    kind.keys = tellsTarget("node", {"transformCommand=bool:true"});
    kind.merging = Kind::Merging::runs;
    editsTransform(kind, row.mask);
    kind.redoEvents = kind.undoEvents = row.hasCallback ? Events{"called", "synced"} : Events{"synced"};
    kinds.push_back(kind);
}

void addTransformKinds(Kinds &kinds)
{
    addTransformValueKind<ksTranslationUndoCommand>(kinds);
    addTransformValueKind<ksRotationUndoCommand>(kinds);
    addTransformValueKind<ksScaleUndoCommand>(kinds);
    addTransformValueKind<ksScalePivotUndoCommand>(kinds);
    addTransformValueKind<ksRotationPivotUndoCommand>(kinds);
    addTransformValueKind<ksScalePivotTranslationUndoCommand>(kinds);
    addTransformValueKind<ksRotationPivotTranslationUndoCommand>(kinds);
    addTransformValueKind<ksRotationPivotOrientationUndoCommand>(kinds);
    addTransformValueKind<ksRotationPivotDirectionUndoCommand>(kinds);
    addTransformValueKind<ksShearUndoCommand>(kinds);

    Kind order = ksFaultKindOf<ksEulerRotationOrderUndoCommand>(
        &Scene::box, [](Scene &scene, const NodePtr &target, QUndoCommand *parent) {
            return new ksEulerRotationOrderUndoCommand(
                target, "ZXY", parent,
                [&scene](unsigned int, const std::string &, int) { scene.log("called"); });
        });
    order.text = "Translate '*'";
    order.isTranslated = true;
    order.keys = tellsTarget("node", {"transformCommand=bool:true"});
    order.merging = Kind::Merging::runs;
    editsTransform(order,
                   osg::Transform3D::EulerRotationOrderFieldMask | osg::Transform3D::RotationFieldMask);
    order.redoEvents = order.undoEvents = {"called", "synced"};
    kinds.push_back(order);

    Kind quaternion = ksFaultKindOf<ksRotationAsQuaternionUndoCommand>(
        &Scene::box, [](Scene &, const NodePtr &target, QUndoCommand *parent) {
            return new ksRotationAsQuaternionUndoCommand(text, target,
                                                         osg::Quaternion(0.5f, 0.5f, -0.5f, 0.5f), parent);
        });
    quaternion.keys = [](const Scene &, const FieldContainerPtr &) {
        return Keys{"transformCommand=bool:true"};
    };
    quaternion.merging = Kind::Merging::runs;
    editsTransform(quaternion,
                   osg::Transform3D::RotationFieldMask | osg::Transform3D::EulerRotationFieldMask);
    quaternion.derivedField = "eulerRotation";
    kinds.push_back(quaternion);

    Kind transformation = ksFaultKindOf<ksTransformationUndoCommand>(
        &Scene::box, [](Scene &scene, const NodePtr &target, QUndoCommand *parent) {
            return new ksTransformationUndoCommand(target, ksTransformation::of(scene.looseTransform()), true,
                                                   parent, [&scene](int) { scene.log("called"); });
        });
    transformation.text = "Apply transformation to *";
    editsTransform(transformation, ksTransformationMask);
    transformation.redoEvents = transformation.undoEvents = {"called", "synced"};
    kinds.push_back(transformation);
}

constexpr osg::BitVector variantsMask = osg::TransformVariantsAttachment::VariantsFieldMask;

/// Steps that take variants out and put them back, both in the order \a redone, on undo in the opposite one.
auto moves(const Places &redone)
{
    return [=](const Scene &scene, bool undoing) {
        Places places = redone;
        if (undoing)
            std::reverse(places.begin(), places.end());
        const int count = static_cast<int>(2 * places.size());
        ksRecords records = edits(&Scene::variants, variantsMask, count)(scene, undoing);
        for (int i = 0; i < 2; ++i)
            for (const ksPlace &place : places) {
                const long long id = scene.recorder.idOf(place(scene));
                records.addRef(id).subRef(id);
            }
        return records;
    };
}

void addVariantKinds(Kinds &kinds)
{
    const auto add = [&kinds](Kind kind, const std::string &historyText) {
        kind.text = historyText;
        kind.redoEvents = kind.undoEvents = {"notified"};
        kinds.push_back(std::move(kind));
    };
    const auto addOfVariant = [&](Kind kind, const std::string &historyText, osg::BitVector mask) {
        kind.makeWithoutTarget = {};
        kind.isTranslated = true;
        kind.records = edits(&Scene::variantB, mask);
        kind.impostors = {&Scene::variants, &Scene::looseTransform};
        add(std::move(kind), historyText);
    };
    const auto addOfNode = [&](Kind kind, const std::string &historyText) {
        kind.impostors = {&Scene::boxCore};
        add(std::move(kind), historyText);
    };
    const auto variantsAre = [](const osg::TransformVariantPtr Scene::*first,
                                const osg::TransformVariantPtr Scene::*second,
                                const osg::TransformVariantPtr Scene::*third) {
        return [=](const Scene &scene) {
            return scene.fieldState(scene.variants(), "variants",
                                    {scene.*first, scene.*second, scene.*third});
        };
    };

    addOfVariant(ksFaultKindOf<ksTransformVariantOptionsUndoCommand>(
                     &Scene::variantB,
                     [](Scene &scene, const osg::TransformVariantPtr &target, QUndoCommand *parent) {
                         return new ksTransformVariantOptionsUndoCommand(target, 3, parent,
                                                                         [&scene] { scene.log("notified"); });
                     }),
                 "Transform Variant Options", osg::TransformVariant::ApplyFlagsFieldMask);
    addOfVariant(ksFaultKindOf<ksTransformVariantNameUndoCommand>(
                     &Scene::variantB,
                     [](Scene &scene, const osg::TransformVariantPtr &target, QUndoCommand *parent) {
                         return new ksTransformVariantNameUndoCommand(
                             target, "new", parent,
                             [&scene](const std::string &, const std::string &) { scene.log("notified"); });
                     }),
                 "Transform Variant Name", osg::TransformVariant::NameFieldMask);

    Kind move = ksFaultKindOf<ksTransformVariantMoveCommand>(
        &Scene::box,
        [](Scene &scene, const NodePtr &target, QUndoCommand *parent) {
            return new ksTransformVariantMoveCommand(
                target, 0, 2, parent,
                [&scene](unsigned int, const QList<int> &, const QList<int> &) { scene.log("notified"); });
        },
        "one");
    move.records = moves({&Scene::variantA});
    move.further = {
        {"a",
         &Scene::variantA,
         &Scene::boxCore,
         Further::nothing,
         Further::nothing,
         {},
         {"notified"},
         {"notified"}},
    };
    addOfNode(move, "Move transform variant '*'");

    Kind several = ksFaultKindOf<ksTransformVariantMoveCommand>(
        &Scene::box,
        [](Scene &scene, const NodePtr &target, QUndoCommand *parent) {
            return new ksTransformVariantMoveCommand(
                target, std::vector<int>{2, 1}, 0, parent,
                [&scene](unsigned int, const QList<int> &, const QList<int> &) { scene.log("notified"); });
        },
        "several");
    several.records = moves({&Scene::variantC, &Scene::variantB});
    // Redo makes c b a of a b c; b alone stays in its place, and c alone is what moves.
    several.further = {
        {"b",
         &Scene::variantB,
         &Scene::boxCore,
         variantsAre(&Scene::variantC, &Scene::variantA, &Scene::variantB),
         variantsAre(&Scene::variantB, &Scene::variantA, &Scene::variantC),
         {},
         {"notified"},
         {"notified"}},
    };
    addOfNode(several, "Move transform variant '*'");

    Kind insertion = ksFaultKindOf<ksAddTransformVariantUndoCommand>(&Scene::box, [](Scene &scene,
                                                                                     const NodePtr &target,
                                                                                     QUndoCommand *parent) {
        return new ksAddTransformVariantUndoCommand(target, scene.looseVariant, 1, parent,
                                                    [&scene](unsigned int, int) { scene.log("notified"); });
    });
    insertion.held = {&Scene::looseVariant};
    insertion.records = exchanges(&Scene::variants, variantsMask, {&Scene::looseVariant}, {});
    insertion.further = {
        {"variant", &Scene::looseVariant, &Scene::variants, Further::nothing, {}, {}, {}, {"notified"}},
    };
    addOfNode(insertion, "Insert transform variant '*'");

    Kind removal = ksFaultKindOf<ksRemoveTransformSwitchVariantUndoCommand>(
        &Scene::box, [](Scene &scene, const NodePtr &target, QUndoCommand *parent) {
            return new ksRemoveTransformSwitchVariantUndoCommand(
                target, 1, parent, [&scene](unsigned int, int) { scene.log("notified"); });
        });
    removal.held = {&Scene::variantB, &Scene::variants};
    removal.goneWhenDone = {&Scene::variantB,
                            [](const Scene &scene) { return scene.variantB->getTransform(); }};
    removal.records = exchanges(&Scene::variants, variantsMask, {}, {&Scene::variantB});
    removal.further = {
        {"variant", &Scene::variantB, &Scene::variants, {}, Further::nothing, {}, {"notified"}, {}},
        {"attachment", &Scene::variants, &Scene::tags, {}, Further::nothing, {}, {"notified"}, {}},
    };
    addOfNode(removal, "Remove transform variant '*'");
}

/// A command on the value of a light that edits \a masks after each other.
template <class Command, class T>
void addLightValueKind(Kinds &kinds, T value, const std::vector<osg::BitVector> &masks)
{
    Kind kind =
        ksFaultKindOf<Command>(&Scene::lamp, [=](Scene &, const NodePtr &target, QUndoCommand *parent) {
            return new Command(text, target, value, parent);
        });
    kind.keys = [](const Scene &, const FieldContainerPtr &) { return Keys{"lightCommand=bool:true"}; };
    kind.merging = Kind::Merging::runs;
    kind.impostors = {&Scene::light};
    kind.records = [=](const Scene &scene, bool) {
        ksRecords records;
        for (const osg::BitVector mask : masks)
            records.change(scene.recorder.idOf(scene.light()), mask);
        return records;
    };
    kinds.push_back(kind);
}

void addLightKinds(Kinds &kinds)
{
    using osg::UberLight;
    addLightValueKind<ksLightDiffuseUndoCommand>(kinds, Vec3f(0, 0.5f, 1), {UberLight::DiffuseFieldMask});
    addLightValueKind<ksLightGlossyUndoCommand>(kinds, Vec3f(0, 0.5f, 1), {UberLight::GlossyFieldMask});
    addLightValueKind<ksLightIntensityUndoCommand>(kinds, 0.3f, {UberLight::IntensityFieldMask});
    addLightValueKind<ksLightPenumbraAngleUndoCommand>(kinds, 5.f, {UberLight::PenumbraAngleFieldMask});
    addLightValueKind<ksLightConeAngleUndoCommand>(kinds, 40.f, {UberLight::ConeAngleFieldMask});
    // The application disturbs the intensity, which is written back.
    addLightValueKind<ksLightAttenuationUndoCommand>(
        kinds, UberLight::Quadratic,
        {UberLight::AttenuationFieldMask | UberLight::IntensityFieldMask, UberLight::IntensityFieldMask});
}

/// Steps by which a node becomes the visibility reference of a light, which tells of the node before and
/// after the light, or is that no longer, which tells of it only after the light.
auto refers(const ksPlace &light, const ksPlace &node, bool adding)
{
    return [=](const Scene &scene, bool undoing) {
        const long long id = scene.recorder.idOf(node(scene));
        ksRecords records;
        if (undoing != adding)
            records.addRef(id).change(id, osg::Node::ExternalFlagsFieldMask);
        else
            records.subRef(id);
        return records.change(scene.recorder.idOf(light(scene)), osg::UberLight::VisibilityReferenceFieldMask)
            .change(id, osg::Node::ExternalFlagsFieldMask);
    };
}

void addLinkKinds(Kinds &kinds)
{
    const auto add = [&kinds](Kind kind, const std::string &historyText, const char *key) {
        kind.text = historyText;
        kind.keys = tellsTarget(key);
        kind.impostors = {&Scene::group, &Scene::constraint, &Scene::lamp};
        kinds.push_back(std::move(kind));
    };
    const auto idleWithout = [](const ksPlace &node) -> std::vector<Further> {
        return {{"node", node, &Scene::group, Further::nothing, Further::nothing,
                 [](const Scene &) { return ksRecords(); }}};
    };

    Kind reference = ksFaultKindOf<ksAddNodeAsVisibilityReferenceUndoCommand>(
        &Scene::light,
        [](Scene &scene, const osg::UberLightPtr &target, QUndoCommand *parent) {
            return new ksAddNodeAsVisibilityReferenceUndoCommand(target, scene.mark, false, parent);
        },
        "add");
    reference.records = refers(&Scene::light, &Scene::mark, true);
    reference.further = idleWithout(&Scene::mark);
    add(reference, "Add Node as Visibility Reference", "lightCommand");

    Kind noReference = ksFaultKindOf<ksAddNodeAsVisibilityReferenceUndoCommand>(
        &Scene::spotLight,
        [](Scene &scene, const osg::UberLightPtr &target, QUndoCommand *parent) {
            return new ksAddNodeAsVisibilityReferenceUndoCommand(target, scene.shade, true, parent);
        },
        "remove");
    noReference.records = refers(&Scene::spotLight, &Scene::shade, false);
    noReference.further = idleWithout(&Scene::shade);
    add(noReference, "Add Node as Visibility Reference", "lightCommand");

    Kind link = ksFaultKindOf<ksAddNodeToLightLinkSetUndoCommand>(
        &Scene::linkSet,
        [](Scene &scene, const osg::LightLinkSetPtr &target, QUndoCommand *parent) {
            return new ksAddNodeToLightLinkSetUndoCommand(target, scene.lamp, 3, false, parent);
        },
        "add");
    link.records = exchanges(&Scene::linkSet, osg::LightLinkSet::LightsFieldMask, {&Scene::lamp}, {});
    link.further = idleWithout(&Scene::lamp);
    add(link, "Add Node to Light Link Set", "lightlinkset");

    Kind unlink = ksFaultKindOf<ksAddNodeToLightLinkSetUndoCommand>(
        &Scene::linkSet,
        [](Scene &scene, const osg::LightLinkSetPtr &target, QUndoCommand *parent) {
            return new ksAddNodeToLightLinkSetUndoCommand(target, {scene.mark, scene.listed}, 0, true,
                                                          parent);
        },
        "remove");
    unlink.records = [](const Scene &scene, bool undoing) { // one edit for each node
        constexpr osg::BitVector mask = osg::LightLinkSet::SceneNodesFieldMask;
        return exchanges(&Scene::linkSet, mask, {}, {&Scene::mark, &Scene::listed})(scene, undoing)
            .change(scene.recorder.idOf(scene.linkSet()), mask);
    };
    unlink.further = {
        {"node", &Scene::mark, &Scene::group,
         [](const Scene &scene) {
             return scene.fieldState(scene.linkSet(), "sceneNodes", {scene.constrained, scene.mark});
         },
         [](const Scene &scene) {
             return scene.fieldState(scene.linkSet(), "sceneNodes", {scene.listed, scene.constrained});
         }}};
    add(unlink, "Add Nodes to Light Link Set", "lightlinkset");
}

/// The records of an edit of the weight, if there is one, and of touches of the settings and the material.
auto weightRecords(bool weight, bool settings, bool material)
{
    return [=](const Scene &scene) {
        const auto idOf = [&scene](const FieldContainerPtr &container) {
            return scene.recorder.idOf(container);
        };
        ksRecords records;
        if (weight)
            records.change(idOf(scene.component), osg::ColorComponent::WeightFieldMask);
        if (settings)
            records.change(idOf(scene.settings), osg::ColorComponentSettings::PlanarProjectionFieldMask);
        if (material)
            records.change(idOf(scene.material), osg::UberMaterial::ColorComponentDataFieldMask);
        return records;
    };
}

/// A command on the weight of a component, which merges with another one whenever that was built.
ksFieldUndoCommand<float> *weightCommand(const FieldContainerPtr &component)
{
    auto *command = new ksFieldUndoCommand<float>(text, component, "weight", 0.3f);
    command->setMergeResponseDelta(-1.0);
    return command;
}

/// What is required of a command that touches the settings and the material after an edit of the weight.
/// Neither is needed for the weight; the other one is touched.
void touchesMaterial(Kind &kind)
{
    kind.records = [](const Scene &scene, bool) { return weightRecords(true, true, true)(scene); };
    kind.idleRecords = weightRecords(false, true, true);
    kind.further = {
        {"material", &Scene::material, {}, {}, {}, weightRecords(true, true, false)},
        {"settings", &Scene::settings, {}, {}, {}, weightRecords(true, false, true)},
    };
}

void addMaterialKinds(Kinds &kinds)
{
    Kind material = ksFaultKindOf<ksMaterialUndoCommand>(
        &Scene::component, [](Scene &scene, const FieldContainerPtr &target, QUndoCommand *parent) {
            return new ksMaterialUndoCommand(text, weightCommand(target), scene.material, scene.settings,
                                             parent);
        });
    material.merging = Kind::Merging::runs;
    material.keys = [](const Scene &scene, const FieldContainerPtr &target) {
        return Keys{keyOf("container", target), keyOf("material", scene.material),
                    keyOf("componentSettings", scene.settings)};
    };
    touchesMaterial(material);
    kinds.push_back(material);

    Kind component = ksFaultKindOf<ksColorComponentUndoCommand>(
        &Scene::component, [](Scene &scene, const FieldContainerPtr &target, QUndoCommand *parent) {
            return new ksColorComponentUndoCommand(text, weightCommand(target), scene.component,
                                                   scene.material, parent);
        });
    component.merging = Kind::Merging::runs;
    component.keys = [](const Scene &scene, const FieldContainerPtr &target) {
        return Keys{keyOf("container", target), keyOf("component", scene.component),
                    keyOf("parent", scene.material)};
    };
    component.records = edits(&Scene::component, osg::ColorComponent::WeightFieldMask);
    component.further = {
        {"parent", &Scene::material, {}, {}, {}, weightRecords(true, false, false)},
    };
    kinds.push_back(component);

    Kind multi = ksFaultKindOf<ksMaterialMultiUndoCommand>(
        &Scene::component, [](Scene &scene, const FieldContainerPtr &target, QUndoCommand *) {
            auto *command = new ksMaterialMultiUndoCommand(text, scene.material, scene.settings);
            new ksFieldUndoCommand<float>(text, target, "weight", 0.3f, command);
            return command;
        });
    multi.isTopLevel = true;
    multi.merging = Kind::Merging::runs;
    multi.messageId = &ksFieldUndoCommand<float>::commandId;
    editsField(multi, &Scene::component, osg::ColorComponent::WeightFieldId);
    multi.keys = [childKeys = multi.keys](const Scene &scene, const FieldContainerPtr &target) {
        Keys keys = childKeys(scene, target);
        keys.push_back(keyOf("material", scene.material));
        keys.push_back(keyOf("componentSettings", scene.settings));
        return keys;
    };
    touchesMaterial(multi);
    kinds.push_back(multi);

    Kind environment = ksFaultKindOf<ksSetEnvironmentUndoCommand>(
        &Scene::brdf, [](Scene &scene, const osg::UBRDFMaterialPtr &target, QUndoCommand *parent) {
            return new ksSetEnvironmentUndoCommand(target, scene.newEnvironment, parent);
        });
    environment.makeWithoutTarget = {};
    environment.text = "Change Environment";
    environment.isTranslated = true;
    environment.keys = tellsTarget("material");
    environment.records = exchanges(&Scene::brdf, osg::UBRDFMaterial::EnvironmentFieldMask,
                                    {&Scene::newEnvironment}, {&Scene::environment});
    environment.impostors = {&Scene::environment, &Scene::material};
    const auto none = [](const Scene &scene) { return scene.fieldState(scene.brdf, "environment", "0"); };
    environment.further = {
        {"newEnvironment", &Scene::newEnvironment, &Scene::settings, none},
        {"oldEnvironment", &Scene::environment, &Scene::settings, {}, none},
    };
    kinds.push_back(environment);
}

/// A command on the list of tags with the id \a fieldId.
template <class Command>
void addTagKind(Kinds &kinds, osg::UInt32 fieldId, const std::string &variation)
{
    const osg::BitVector mask = osg::BitVector(1) << fieldId | osg::TagAttachment::TagValuesFieldMask;
    Kind kind = ksFaultKindOf<Command>(
        &Scene::tagged,
        [=](Scene &scene, const osg::AttachmentContainerPtr &target, QUndoCommand *) {
            osg::MField<std::string> tags({"old", "new"});
            return new Command(text, target, mask, fieldId, "new", &tags, *scene.tags()->getMFTagValues(),
                               osg::MField<osg::UInt64>({1, 2}));
        },
        variation);
    kind.isTopLevel = true;
    kind.merging = Kind::Merging::unsupported;
    kind.records = edits(&Scene::tags, mask, 2);
    kind.held = {&Scene::tagged};
    kind.impostors = {&Scene::tags};
    kinds.push_back(kind);
}

template <class Command>
void addEmptyTagKind(Kinds &kinds)
{
    Kind kind = ksFaultKindOf<Command>();
    kind.make = [](Scene &, QUndoCommand *) { return new Command(text, "new", ksTagUndoCommand::USER_TAG); };
    kind.target = &Scene::tagged;
    kind.isTopLevel = true;
    kind.merging = Kind::Merging::unsupported;
    kind.isEmpty = true;
    kinds.push_back(kind);
}

void addTagKinds(Kinds &kinds)
{
    using osg::TagAttachment;
    addTagKind<ksAddTagUndoCommand>(kinds, TagAttachment::UserTagsFieldId, "user");
    addTagKind<ksAddTagUndoCommand>(kinds, TagAttachment::LayerTagsFieldId, "layer");
    addTagKind<ksSubTagUndoCommand>(kinds, TagAttachment::UserTagsFieldId, "user");
    addTagKind<ksSubTagUndoCommand>(kinds, TagAttachment::LayerTagsFieldId, "layer");
    addEmptyTagKind<ksAddEmptyTagUndoCommand>(kinds);
    addEmptyTagKind<ksSubEmptyTagUndoCommand>(kinds);
}

void addConstraintKinds(Kinds &kinds)
{
    using osg::AbstractConstraintPtr;
    constexpr osg::BitVector sourcesMask = osg::AbstractConstraintBase::SourcesFieldMask;
    constexpr osg::BitVector upVectorsMask = osg::AimConstraintBase::UpVectorSourcesFieldMask;
    constexpr osg::BitVector targetMask = osg::AbstractConstraintBase::TargetFieldMask;
    const auto make = [](Scene &scene, const AbstractConstraintPtr &target, QUndoCommand *parent) {
        return new ksDeleteConstraintReferenceUndoCommand(target, {scene.source}, parent);
    };
    /// The aim constraint with what is given of its sources, up vector objects and target.
    const auto with = [](const std::vector<std::pair<const char *, ksPlace>> &fields) {
        return [=](const Scene &scene) {
            Scene::State state;
            for (const auto &[field, place] : fields)
                state.merge(place ? scene.fieldState(scene.constraint(), field, {place(scene)})
                                  : scene.fieldState(scene.constraint(), field,
                                                     std::string(field) == "target" ? "0" : ""));
            return state;
        };
    };

    Kind aim = ksFaultKindOf<ksDeleteConstraintReferenceUndoCommand>(&Scene::constraint, make, "aim");
    aim.text = "Remove References from Constraint";
    aim.records = [](const Scene &scene, bool undoing) {
        const long long id = scene.recorder.idOf(scene.constraint());
        return exchanges(&Scene::constraint, sourcesMask, {},
                         {&Scene::aimSource, &Scene::aimUpVector, &Scene::source})(scene, undoing)
            .change(id, upVectorsMask)
            .change(id, targetMask);
    };
    aim.impostors = {&Scene::linkSet, &Scene::group};
    aim.held = {&Scene::aimSource, &Scene::source, &Scene::aimUpVector};
    aim.released = {&Scene::aimSource, &Scene::aimUpVector, &Scene::source};
    aim.goneWhenDone = {&Scene::aimSource, &Scene::aimUpVector};
    aim.further = {
        {"source", &Scene::aimSource, &Scene::source, with({{"upVectorSources", {}}, {"target", {}}}),
         with({{"upVectorSources", &Scene::aimUpVector}, {"target", &Scene::source}})},
        {"upVector", &Scene::aimUpVector, &Scene::source, with({{"sources", {}}, {"target", {}}}),
         with({{"sources", &Scene::aimSource}, {"target", &Scene::source}})},
        {"target",
         &Scene::source,
         &Scene::tags,
         {},
         with({{"sources", &Scene::aimSource}, {"upVectorSources", &Scene::aimUpVector}})},
    };
    kinds.push_back(aim);

    Kind point =
        ksFaultKindOf<ksDeleteConstraintReferenceUndoCommand>(&Scene::pointConstraint, make, "point");
    point.text = aim.text;
    point.records = [](const Scene &scene, bool undoing) {
        return exchanges(&Scene::pointConstraint, sourcesMask, {},
                         {&Scene::pointSource, &Scene::source})(scene, undoing)
            .change(scene.recorder.idOf(scene.pointConstraint()), targetMask);
    };
    point.impostors = aim.impostors;
    point.held = {&Scene::pointSource, &Scene::source};
    point.goneWhenDone = {&Scene::pointSource};
    kinds.push_back(point);
}

} // namespace

Kinds ksFaultKinds()
{
    Kinds kinds;
    addFieldKinds(kinds);
    addImageKinds(kinds);
    addCompositeKinds(kinds);
    addTransformKinds(kinds);
    addVariantKinds(kinds);
    addLightKinds(kinds);
    addLinkKinds(kinds);
    addMaterialKinds(kinds);
    addTagKinds(kinds);
    addConstraintKinds(kinds);
    return kinds;
}
