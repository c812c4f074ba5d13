// SPDX-License-Identifier: MIT
#include "ksLiveScene.h"

#include <OSGAimConstraint.h>
#include <OSGConstraintObject.h>
#include <OSGLightLinkSet.h>
#include <OSGPointConstraint.h>
#include <OSGTagAttachment.h>
#include <OSGTransform3D.h>
#include <OSGTransformVariant.h>
#include <OSGTransformVariantsAttachment.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleMaterial.h>
#include <OpenSG/OSGThread.h>
#include <OpenSG/OSGTransform.h>
#include <ksNodeUtils.h>
#include <ksOpenSGUtils.h>
#include <ksSceneDataManager.h>
#include <ksTextureManager.h>

#include <algorithm>
#include <cmath>
#include <support/OSGProbeContainer.h>
#include <type_traits>

namespace {

using ksPlain::Kind;
using ksPlain::List;
using ksPlain::Value;
using ksPlain::Vec;
using PlaceKind = ksPlain::Place::Kind;

/// The types of the kinds, after null. All their containers are watched from now on.
template <class... Types>
std::vector<osg::FieldContainerType *> watchedTypes()
{
    (ksWatched<Types>::watchType(), ...);
    return {nullptr, &Types::getClassType()...};
}

osg::FieldContainerType &typeOf(Kind kind)
{
    static const std::vector<osg::FieldContainerType *> types = [] {
        using namespace osg;
        return watchedTypes<osg::Transform, Group, Node, Name, Transform3D, TransformVariantsAttachment,
                            TransformVariant, UberLight, LightLinkSet, AimConstraint, PointConstraint,
                            ConstraintObject, TagAttachment, ProbeContainer, UberMaterial, ColorComponent,
                            ColorComponentSettings, Image, UBRDFMaterial, SimpleMaterial>();
    }();
    return *types[static_cast<std::size_t>(kind)];
}

// Whether a field holds a plain value. Containers count from the one after before.

template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
bool equals(Number number, const Value &value, osg::UInt32 before, bool)
{
    const double *expected = std::get_if<double>(&value);
    if (expected != nullptr)
        return static_cast<double>(number) == *expected;
    return static_cast<double>(number) - before == std::get<List>(value).front();
}

template <class Vector>
bool equalVectors(const Vector &vector, std::size_t size, const Value &value, bool isApproximate)
{
    const Vec &expected = std::get<Vec>(value);
    for (std::size_t i = 0; i < size; ++i) {
        const double difference =
            std::fabs(static_cast<double>(vector[static_cast<osg::UInt32>(i)]) - expected[i]);
        if (!(difference <= (isApproximate ? 1e-2 : 0)))
            return false;
    }
    return true;
}

bool equals(const osg::Vec3f &vector, const Value &value, osg::UInt32, bool isApproximate)
{
    return equalVectors(vector, 3, value, isApproximate);
}

bool equals(const osg::Quaternion &quaternion, const Value &value, osg::UInt32, bool isApproximate)
{
    return equalVectors(quaternion.getValues(), 4, value, isApproximate);
}

bool equals(const std::string &text, const Value &value, osg::UInt32, bool)
{
    return text == std::get<std::string>(value);
}

bool equals(const osg::FieldContainerPtrBase &container, const Value &value, osg::UInt32 before, bool)
{
    const List &expected = std::get<List>(value);
    const osg::UInt32 id = container.getFieldContainerId();
    return expected.empty() ? id == 0 : id == before + static_cast<osg::UInt32>(expected.front());
}

bool equals(const osg::AttachmentMap &attachments, const Value &value, osg::UInt32 before, bool)
{
    List ids;
    for (const auto &[key, attachment] : attachments)
        ids.push_back(static_cast<int>(attachment.getFieldContainerId() - before));
    std::sort(ids.begin(), ids.end());
    return ids == std::get<List>(value);
}

bool equals(const osg::MFString &texts, const Value &value, osg::UInt32, bool)
{
    const ksPlain::Texts &expected = std::get<ksPlain::Texts>(value);
    return std::equal(texts.begin(), texts.end(), expected.begin(), expected.end());
}

osg::UInt32 entryOf(const osg::FieldContainerPtrBase &container, osg::UInt32 before)
{
    return container.getFieldContainerId() - before;
}

osg::UInt32 entryOf(osg::UInt64 number, osg::UInt32)
{
    return static_cast<osg::UInt32>(number);
}

template <class T, osg::Int32 space>
bool equals(const osg::MField<T, space> &entries, const Value &value, osg::UInt32 before, bool)
{
    const List &expected = std::get<List>(value);
    return std::equal(entries.begin(), entries.end(), expected.begin(), expected.end(),
                      [before](const T &entry, int number) {
                          return entryOf(entry, before) == static_cast<osg::UInt32>(number);
                      });
}

using Comparison = bool (*)(const osg::Field &, const Value &, osg::UInt32, bool);

template <class T, osg::Int32 space>
bool holds(const osg::SField<T, space> &field, const Value &value, osg::UInt32 before, bool isApproximate)
{
    return equals(field.getValue(), value, before, isApproximate);
}

template <class T, osg::Int32 space>
bool holds(const osg::MField<T, space> &field, const Value &value, osg::UInt32 before, bool isApproximate)
{
    return equals(field, value, before, isApproximate);
}

template <class... Fields>
std::map<osg::UInt32, Comparison> comparisonsOf()
{
    return {{Fields::getClassType().getId(),
             [](const osg::Field &field, const Value &value, osg::UInt32 before, bool isApproximate) {
                 return holds(static_cast<const Fields &>(field), value, before, isApproximate);
             }}...};
}

struct FieldOf
{
    osg::UInt32 id;
    osg::BitVector mask;
    Comparison comparison;
};

/// The fields of a kind in their places, found by name in \a container.
const std::vector<FieldOf> &liveFieldsOf(Kind kind, const osg::FieldContainerPtr &container)
{
    static const std::map<osg::UInt32, Comparison> comparisons = [] {
        using namespace osg;
        return comparisonsOf<SFInt64, SFUInt64, SFInt32, SFUInt32, SFInt16, SFUInt16, SFInt8, SFUInt8,
                             SFReal32, SFReal64, SFBool, SFString, SFVec3f, SFQuaternion, SFAttachmentMap,
                             SFNodePtr, SFNodeCorePtr, SFAttachmentContainerPtr, SFTransform3DPtr, SFImagePtr,
                             SFMaterialPtr, SFColorComponentSettingsPtr, MFNodePtr, MFString, MFUInt64,
                             MFTransformVariantPtr, MFConstraintObjectPtr, MFColorComponentPtr>();
    }();
    static std::map<Kind, std::vector<FieldOf>> all;
    const auto [entry, isNew] = all.try_emplace(kind);
    if (isNew)
        for (const ksPlain::Field &field : ksPlain::fieldsOf(kind)) {
            const osg::FieldDescription *description = typeOf(kind).findFieldDescription(field.name);
            const osg::UInt32 id = description->getFieldId();
            entry->second.push_back({id, description->getFieldMask(),
                                     comparisons.at(container->getField(id)->getType().getId())});
        }
    return entry->second;
}

osg::ConstraintObjectPtr objectFor(const osg::NodePtr &node)
{
    const osg::ConstraintObjectPtr object = osg::ConstraintObject::create();
    object->setNode(node);
    return object;
}

} // namespace

osg::TransformVariantPtr ksMakeVariant(const std::string &name)
{
    const osg::TransformVariantPtr variant = osg::TransformVariant::create();
    variant->setName(name);
    variant->setTransform(osg::Transform3D::create());
    osg::endEditCP(variant);
    osg::endEditCP(variant->getTransform());
    return variant;
}

osg::ImagePtr ksMakeImage(const std::string &name)
{
    const osg::ImagePtr image = osg::Image::create();
    image->setName(name);
    osg::endEditCP(image);
    return image;
}

ksLiveScene::ksLiveScene(const ksPlain::Scene &plain)
    : plain(plain)
    , isWatched(typeOf(Kind::node).isNode())
    , before(static_cast<osg::UInt32>(osg::FieldContainerFactory::the()->getFieldContainerStore()->size()) -
             1)
{
    osg::Thread::getCurrentChangeList()->clearAll();
    ksTextureManager::the()->clear();
    const osg::TransformPtr core = osg::Transform::create();
    const Vec &offset = ksPlain::Scene::rootTranslation;
    core->getMatrix().setTranslate(static_cast<float>(offset[0]), static_cast<float>(offset[1]),
                                   static_cast<float>(offset[2]));
    root = osg::Node::create();
    root->setCore(core);
    osg::endEditCP(core);
    osg::endEditCP(osg::NodePtr(root));
    ksOpenSGUtils::setRoot(root);
    ksSceneDataManager::setSceneRoot(0, root);
    for (std::size_t place = 0; place < plain.places.size(); ++place)
        make(place);
}

ksLiveScene::~ksLiveScene()
{
    ksOpenSGUtils::setRoot(osg::NullFC);
    ksSceneDataManager::setSceneRoot(0, osg::NullFC);
    ksTextureManager::the()->clear();
    kept.clear();
    root = osg::NullFC;
    sync();
}

osg::FieldContainerPtr ksLiveScene::find(int number) const
{
    return osg::FieldContainerFactory::the()->getContainer(before + static_cast<osg::UInt32>(number));
}

osg::NodePtr ksLiveScene::addNode(const std::string &name, const osg::NodeCorePtr &core) const
{
    const osg::NodePtr node = osg::Node::create();
    node->setCore(core);
    osg::setName(node, name);
    return node;
}

void ksLiveScene::make(std::size_t place)
{
    if (kept.count(place) > 0)
        return;
    const auto present = [this](PlaceKind kind, std::size_t which) {
        osg::FieldContainerPtr found;
        for (std::size_t i = 0; i < plain.places.size(); ++i)
            if (plain.places[i].kind == kind && which-- == 0 && kept.count(i) > 0)
                found = kept.at(i);
        return osg::NodePtr::dcast(found);
    };
    const osg::UInt32 first =
        static_cast<osg::UInt32>(osg::FieldContainerFactory::the()->getFieldContainerStore()->size());
    const std::string number = std::to_string(place);
    osg::FieldContainerPtr made;
    switch (plain.places[place].kind) {
    case PlaceKind::box: {
        const osg::NodePtr box = addNode("Box" + number, osg::Transform3D::create());
        if (place % 2 == 0) {
            ksNodeUtils::createTransformVariantsAttachment(box);
            for (unsigned long i = 0; i < 3; ++i)
                ksNodeUtils::insertTransformVariant(
                    box, i, ksMakeVariant(std::string(1, static_cast<char>('a' + i))));
        }
        made = box;
        break;
    }
    case PlaceKind::lamp:
        made = addNode("Lamp" + number, osg::UberLight::create());
        break;
    case PlaceKind::twin: {
        const osg::NodePtr lamp = present(PlaceKind::lamp, 0);
        const osg::NodePtr twin =
            addNode("Twin", lamp ? lamp->getCore() : osg::NodeCorePtr(osg::UberLight::create()));
        twin->setExternalFlags(osg::NodeExternalFlags::Instance);
        made = twin;
        break;
    }
    case PlaceKind::mark:
        made = addNode("M\xc3\xa4rk" + number, osg::Group::create());
        break;
    case PlaceKind::links:
        made = addNode("Links", osg::LightLinkSet::create());
        break;
    case PlaceKind::tagged: {
        const osg::NodePtr tagged = addNode("Tagged", osg::Group::create());
        tagged->addAttachment(osg::TagAttachment::create());
        made = tagged;
        break;
    }
    case PlaceKind::aim:
    case PlaceKind::point: {
        const bool aims = plain.places[place].kind == PlaceKind::aim;
        osg::AbstractConstraintPtr constraint;
        if (aims)
            constraint = osg::AimConstraint::create();
        else
            constraint = osg::PointConstraint::create();
        made = addNode("Constraint", constraint);
        for (const std::size_t which : {0u, 1u})
            if (const osg::NodePtr mark = present(PlaceKind::mark, which)) {
                constraint->addSourceObject(objectFor(mark));
                constraint->setTarget(mark);
                if (aims)
                    osg::AimConstraintPtr::dcast(constraint)->addUpVectorObject(objectFor(mark));
            }
        break;
    }
    case PlaceKind::probe:
        made = osg::ProbeContainer::create();
        break;
    case PlaceKind::material: {
        const osg::UberMaterialPtr material = osg::UberMaterial::create();
        material->addColorComponent(osg::ColorComponent::create());
        material->setComponentSettings(osg::ColorComponentSettings::create());
        made = material;
        break;
    }
    case PlaceKind::brdf:
        made = osg::UBRDFMaterial::create();
        break;
    case PlaceKind::environment:
        made = osg::SimpleMaterial::create();
        break;
    }
    kept.emplace(place, made);
    const auto &store = *osg::FieldContainerFactory::the()->getFieldContainerStore();
    for (osg::UInt32 id = first; id < store.size(); ++id)
        osg::endEditCP(store[id]);
    attach(place);
}

void ksLiveScene::drop(std::size_t place)
{
    detach(place);
    kept.erase(place);
}

void ksLiveScene::attach(std::size_t place)
{
    const auto entry = kept.find(place);
    const auto node =
        entry == kept.end() ? osg::NodePtr() : osg::NodePtr::dcast(osg::FieldContainerPtr(entry->second));
    if (!node || node->getParent())
        return;
    const osg::CPEditor edit(osg::NodePtr(root), osg::Node::ChildrenFieldMask);
    root->addChild(node);
}

void ksLiveScene::detach(std::size_t place)
{
    const auto entry = kept.find(place);
    const auto node =
        entry == kept.end() ? osg::NodePtr() : osg::NodePtr::dcast(osg::FieldContainerPtr(entry->second));
    if (!node || !node->getParent())
        return;
    const osg::CPEditor edit(osg::NodePtr(root), osg::Node::ChildrenFieldMask);
    root->subChild(node);
}

int ksLiveScene::placeOf(Kind kind, osg::UInt32 fieldId)
{
    if (kind == Kind::null)
        return -1;
    const std::vector<ksPlain::Field> &fields = ksPlain::fieldsOf(kind);
    const osg::FieldDescription *description = typeOf(kind).getFieldDescription(fieldId);
    for (std::size_t place = 0; description != nullptr && place < fields.size(); ++place)
        if (description->getName() == fields[place].name)
            return static_cast<int>(place);
    return -1;
}

void ksLiveScene::addEdit(Edits &edits, osg::UInt32 id, osg::BitVector mask) const
{
    const int number = numberOf(id);
    const osg::FieldContainerPtr container = number > 0 ? find(number) : osg::FieldContainerPtr();
    if (!container)
        return;
    unsigned fields = 0;
    int place = 0;
    for (const FieldOf &field : liveFieldsOf(plain.kindOf(number), container)) {
        if (mask & field.mask)
            fields |= ksPlain::bit(place);
        ++place;
    }
    if (fields != 0)
        edits.emplace_back(number, fields);
}

ksLiveScene::Edits ksLiveScene::recordedEdits() const
{
    Edits edits;
    const osg::ChangeList &list = *osg::Thread::getCurrentChangeList();
    std::for_each(list.beginChanged(), list.endChanged(), [&](const osg::ChangeList::ChangeEntry &entry) {
        addEdit(edits, entry.first, entry.second);
    });
    return edits;
}

ksLiveScene::Edits ksLiveScene::takeHandledEdits()
{
    Edits edits;
    for (const ksHandlerCall &call : handlerCalls.take())
        if (call.origin == osg::ChangedOrigin::External)
            addEdit(edits, call.id, call.mask);
    return edits;
}

void ksLiveScene::sync()
{
    osg::Thread::getCurrentChangeList()->applyTo(1);
    handlerCalls.take();
}

std::string ksLiveScene::difference() const
{
    const auto &store = *osg::FieldContainerFactory::the()->getFieldContainerStore();
    if (store.size() - before != plain.containers.size())
        return std::to_string(store.size() - before - 1) + " containers have been made instead of " +
               std::to_string(plain.containers.size() - 1);
    for (std::size_t number = 1; number < plain.containers.size(); ++number) {
        const std::string difference = differenceOf(static_cast<int>(number));
        if (!difference.empty())
            return "container " + std::to_string(number) + ' ' + difference;
    }
    return {};
}

std::string ksLiveScene::differenceOf(int number) const
{
    const ksPlain::Container &expected = plain.containers[static_cast<std::size_t>(number)];
    const osg::FieldContainerPtr &container =
        (*osg::FieldContainerFactory::the()
              ->getFieldContainerStore())[before + static_cast<osg::UInt32>(number)];
    if ((container != osg::NullFC) != expected.lives)
        return expected.lives ? "has gone" : "still lives, with " + std::to_string(container.getRefCount());
    if (!expected.lives)
        return {};
    if (container->getType() != typeOf(expected.kind))
        return std::string("is a ") + container->getType().getCName();
    if (container.getRefCount() != expected.references)
        return std::string(container->getType().getCName()) + " has " +
               std::to_string(container.getRefCount()) + " references instead of " +
               std::to_string(expected.references);
    const std::vector<FieldOf> &fields = liveFieldsOf(expected.kind, container);
    for (osg::UInt32 aspect = 0; aspect < 2; ++aspect) {
        const osg::AspectScope scope(aspect);
        for (std::size_t place = 0; place < fields.size(); ++place) {
            const osg::Field &field = *container->getField(fields[place].id);
            const Value &value = expected.fields[aspect][place];
            const ksPlain::Field &name = ksPlain::fieldsOf(expected.kind)[place];
            if (fields[place].comparison(field, value, before, name.isApproximate))
                continue;
            std::string text;
            field.getValueByStr(text);
            return std::string(container->getType().getCName()) + " has in aspect " + std::to_string(aspect) +
                   " as " + name.name + ' ' + text + " (ids less " + std::to_string(before) +
                   ") instead of " + ksPlain::textOf(value);
        }
    }
    return {};
}
