// SPDX-License-Identifier: MIT
#include <algorithm>
#include <portConstraintObject.h>
#include <portTransformVariant.h>

namespace osg {

namespace {

constexpr Real32 degreesPerRadian = 57.2957795f;

template <class PtrT>
void releaseAll(MField<PtrT> &list)
{
    for (const PtrT &container : list)
        subRefCP(container);
}

bool release(MField<ConstraintObjectPtr> &list, const ConstraintObjectPtr &object)
{
    const auto place = std::find(list.begin(), list.end(), object);
    if (place == list.end())
        return false;
    list.erase(place);
    subRefCP(object);
    return true;
}

bool hold(MField<ConstraintObjectPtr> &list, const ConstraintObjectPtr &object)
{
    addRefCP(object);
    list.push_back(object);
    return true;
}

ConstraintObjectPtr find(const MField<ConstraintObjectPtr> &list, const AttachmentContainerPtr &node)
{
    const auto refersToIt = [&](const ConstraintObjectPtr &object) {
        return object->getReferred() == node.getFieldContainerId();
    };
    const auto place = std::find_if(list.begin(), list.end(), refersToIt);
    return place == list.end() ? ConstraintObjectPtr() : *place;
}

} // namespace

PORT_CREATED_TYPE(Transform3D, Transform, {"eulerRotationOrder", &Self::accessEulerRotationOrder},
                  {"eulerRotation", &Self::accessEulerRotation}, {"rotation", &Self::accessRotation},
                  {"translation", &Self::accessTranslation}, {"scale", &Self::accessScale},
                  {"shear", &Self::accessShear}, {"rotatePivot", &Self::accessRotatePivot},
                  {"scalePivot", &Self::accessScalePivot},
                  {"rotatePivotTranslation", &Self::accessRotatePivotTranslation},
                  {"scalePivotTranslation", &Self::accessScalePivotTranslation},
                  {"rotationOrientation", &Self::accessRotationOrientation},
                  {"rotationDirection", &Self::accessRotationDirection},
                  {"rotationDirectionMode", &Self::accessRotationDirectionMode},
                  {"rotationDirectionOn", &Self::accessRotationDirectionOn},
                  {"inheritType", &Self::accessInheritType})
PORT_CREATED_TYPE(TransformVariant, FieldContainer, {"name", &Self::accessName},
                  {"applyFlags", &Self::accessApplyFlags})
PORT_CREATED_TYPE(TransformVariantsAttachment, Attachment, {"variants", &Self::accessVariants})
PORT_CREATED_TYPE(UberLight, Group, {"visibilityReference", &Self::accessVisibilityReference},
                  {"diffuse", &Self::accessDiffuse}, {"glossy", &Self::accessGlossy},
                  {"intensity", &Self::accessIntensity}, {"penumbraAngle", &Self::accessPenumbraAngle},
                  {"coneAngle", &Self::accessConeAngle}, {"attenuation", &Self::accessAttenuation})
PORT_CREATED_TYPE(LightLinkSet, NodeCore, {"sceneNodes", &Self::accessSceneNodes},
                  {"lights", &Self::accessLights})
PORT_CREATED_TYPE(TagAttachment, Attachment, {"tagValues", &Self::accessTagValues},
                  {"userTags", &Self::accessUserTags}, {"layerTags", &Self::accessLayerTags})
PORT_CREATED_TYPE(ConstraintObject, AttachmentContainer, {"referred", &Self::accessReferred})
PORT_TYPE(AbstractConstraint, NodeCore, {"target", &Self::accessTarget}, {"sources", &Self::accessSources})
PORT_CREATED_TYPE(AimConstraint, AbstractConstraint, {"upVectorSources", &Self::accessUpVectorSources})
PORT_CREATED_TYPE(UBRDFMaterial, Material, {"environment", &Self::accessEnvironment})
PORT_CREATED_TYPE(UberMaterial, Material, {"colorComponentData", &Self::accessColorComponentData})
PORT_CREATED_TYPE(ColorComponentSettings, AttachmentContainer,
                  {"planarProjection", &Self::accessPlanarProjection})
PORT_CREATED_TYPE(Probe, FieldContainer, {"int64", &Self::accessInt64}, {"uint64", &Self::accessUInt64},
                  {"int32", &Self::accessInt32}, {"uint32", &Self::accessUInt32},
                  {"int16", &Self::accessInt16}, {"uint16", &Self::accessUInt16}, {"int8", &Self::accessInt8},
                  {"uint8", &Self::accessUInt8}, {"real32", &Self::accessReal32},
                  {"real64", &Self::accessReal64}, {"flag", &Self::accessFlag}, {"text", &Self::accessText},
                  {"words", &Self::accessWords}, {"image", &Self::accessImage})

int Probe::calls = 0;

Vec3f Transform3D::convertQuatToEuler(const QuaternionBase<Real32> &q, bool degrees) const
{
    const Real32 factor = degrees ? degreesPerRadian : 1;
    const Real32 sine = 2 * (q.w() * q.y() - q.z() * q.x());
    return Vec3f(
        factor * std::atan2(2 * (q.w() * q.x() + q.y() * q.z()), 1 - 2 * (q.x() * q.x() + q.y() * q.y())),
        factor * std::asin(std::clamp(sine, -1.0f, 1.0f)),
        factor * std::atan2(2 * (q.w() * q.z() + q.x() * q.y()), 1 - 2 * (q.y() * q.y() + q.z() * q.z())));
}

bool Transform3D::getRotationDirectionValues(Vec3f &direction, int &mode) const
{
    direction = getRotationDirection();
    mode = getRotationDirectionMode();
    return getRotationDirectionOn();
}

TransformVariantsAttachment::~TransformVariantsAttachment()
{
    releaseAll(_mfVariants);
}

UInt32 LightLinkSet::insert(MFNodePtr &list, const NodePtr &node, Int32 position)
{
    const bool isPlace = position >= 0 && static_cast<UInt32>(position) < list.size();
    addRefCP(node);
    list.insert(isPlace ? list.begin() + position : list.end(), node);
    endEditCP(LightLinkSetPtr(*this), &list == &_mfLights ? LightsFieldMask : SceneNodesFieldMask);
    return list.size();
}

bool LightLinkSet::remove(MFNodePtr &list, const NodePtr &node)
{
    const auto place = std::find(list.begin(), list.end(), node);
    if (place == list.end())
        return false;
    const NodePtr removed = *place;
    list.erase(place);
    subRefCP(removed);
    endEditCP(LightLinkSetPtr(*this), &list == &_mfLights ? LightsFieldMask : SceneNodesFieldMask);
    return true;
}

LightLinkSet::~LightLinkSet()
{
    releaseAll(_mfSceneNodes);
    releaseAll(_mfLights);
}

ConstraintObjectPtr AbstractConstraint::findSourceConstraintObject(const AttachmentContainerPtr &node) const
{
    return find(_mfSources, node);
}

bool AbstractConstraint::addSourceObject(const ConstraintObjectPtr &object)
{
    return hold(_mfSources, object);
}

void AbstractConstraint::removeSourceObject(const ConstraintObjectPtr &object)
{
    release(_mfSources, object);
}

AbstractConstraint::~AbstractConstraint()
{
    releaseAll(_mfSources);
    subRefCP(getTarget());
}

ConstraintObjectPtr AimConstraint::findUpVectorConstraintObject(const AttachmentContainerPtr &node) const
{
    return find(_mfUpVectorSources, node);
}

bool AimConstraint::addUpVectorObject(const ConstraintObjectPtr &object)
{
    return hold(_mfUpVectorSources, object);
}

void AimConstraint::removeUpVectorObject(const ConstraintObjectPtr &object)
{
    release(_mfUpVectorSources, object);
}

AimConstraint::~AimConstraint()
{
    releaseAll(_mfUpVectorSources);
}

} // namespace osg
