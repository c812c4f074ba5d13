// SPDX-License-Identifier: MIT
#pragma once

/// What the library asks of an application's scene graph and services. What is missing, or has another
/// signature, is said here, once, before anything else is compiled.

#include <ksundo/core/ksHandles.h>

#include <OSGAimConstraint.h>
#include <OSGColorComponentSettings.h>
#include <OSGConstraintObject.h>
#include <OSGLightLinkSet.h>
#include <OSGTagAttachment.h>
#include <OSGTransform3D.h>
#include <OSGTransformVariant.h>
#include <OSGTransformVariantsAttachment.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGThread.h>
#include <OpenSG/OSGVector.h>
#include <ksLights.h>
#include <ksLog.h>
#include <ksMessage.h>
#include <ksNodePtr.h>
#include <ksNodeUtils.h>
#include <ksOpenSGUtils.h>
#include <ksPlatform.h>
#include <ksSceneDataManager.h>
#include <ksTextureManager.h>
#include <ksTransformVariantUtils.h>

#include <string>
#include <type_traits>

// One that no header has is incomplete, which is said in the same way. They may as well be structs.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmismatched-tags"
class ksLights;
class ksLog;
class ksMessage;
class ksNodePtr;
class ksNodeUtils;
class ksOpenSGUtils;
class ksPlatform;
class ksSceneDataManager;
class ksTextureManager;
class ksTransformVariantUtils;
namespace osg {
class AbstractConstraintBase;
class AimConstraint;
class AimConstraintBase;
class ColorComponentSettingsBase;
class LightLinkSet;
class TagAttachment;
class Transform3D;
class UBRDFMaterial;
class UBRDFMaterialBase;
class UberLight;
class UberLightBase;
class UberMaterialBase;
} // namespace osg
#pragma GCC diagnostic pop

namespace ksDetail::ksPortCheck {

/// Whether \a Use, which takes a pointer to it, compiles for \a Class.
template <class Class, class Use>
constexpr bool offers(Use)
{
    return std::is_invocable_v<Use, Class *>;
}

/// Whether a result is what is asked for. What a function returns besides does not matter.
template <class Result, class Asked>
using Fits = std::enable_if_t<std::is_void_v<Asked> || std::is_convertible_v<Result, Asked>>;

/// The members of a transformation.
struct Values
{
    osg::Vec3f translation, rotation, scale, shear, scalePivot, rotatePivot, scalePivotTranslation,
        rotatePivotTranslation;
    int inheritType;
    std::string eulerRotationOrder;
    bool rotationDirectionOn;
    osg::Vec3f rotationDirection;
    int rotationDirectionMode;
};

// Arguments of calls that are never made.
extern const osg::NodePtr &node;
extern const osg::AttachmentContainerPtr &object;
extern const osg::FieldContainerPtr &container;
extern const osg::ImagePtr &image;
extern const osg::ConstraintObjectPtr &constraintObject;
extern const osg::TransformVariantPtr &variant;
extern const osg::TransformVariantsAttachmentPtr &variants;
extern const osg::QuaternionBase<float> &quaternion;
extern const osg::Vec3f &vector;
extern const Values &values;
extern const std::string &text;
extern const osg::UInt32 id;
extern const osg::BitVector mask;
extern const int number;
extern const unsigned long place;
extern const unsigned long long flags;
extern osg::Vec3f vectorOut;
extern int numberOut;

#define KS_SAY_MISSING(Class, what) \
#Class "::" what " is missing or has another signature: see \"" #Class "\" in docs/integrating.md"

/// \a Class has a member, function or not, that can be used like this and gives what converts to \a Result.
#define KS_NEEDS(Class, Result, use)                                               \
    static_assert(offers<Class>([](auto *x) -> Fits<decltype(x->use), Result> {}), \
                  KS_SAY_MISSING(Class, #use));

/// The same, without an object.
#define KS_NEEDS_STATIC(Class, Result, use)                                                               \
    static_assert(                                                                                        \
        offers<Class>([](auto *x) -> Fits<decltype(std::remove_pointer_t<decltype(x)>::use), Result> {}), \
        KS_SAY_MISSING(Class, #use));

/// The same, of a constant one.
#define KS_NEEDS_CONST(Class, Result, use)                                               \
    static_assert(offers<const Class>([](auto *x) -> Fits<decltype(x->use), Result> {}), \
                  KS_SAY_MISSING(Class, #use));

/// \a Class has a static function of exactly this type.
#define KS_NEEDS_FUNCTION(Class, name, ...)                                                           \
    static_assert(offers<Class>([](auto *x) -> decltype(static_cast<void>(                            \
                                                static_cast<std::add_pointer_t<__VA_ARGS__>>(         \
                                                    &std::remove_pointer_t<decltype(x)>::name))) {}), \
                  KS_SAY_MISSING(Class, #name ", " #__VA_ARGS__ ","));

static_assert(std::is_same_v<osg::UInt32, unsigned int>, "ids go into messages as unsigned int");
static_assert(sizeof(osg::BitVector) == 8, "see \"OpenSG 1.8\" in docs/integrating.md");

// The services.

KS_NEEDS(ksMessage, void, set("key", 1, true))
KS_NEEDS(ksMessage, void, set("key", text, true))
static_assert(std::is_default_constructible_v<ksMessage>, "see \"ksMessage\" in docs/integrating.md");

KS_NEEDS_FUNCTION(ksLog, error, void(const char *, ...))

KS_NEEDS_CONST(ksNodePtr, osg::NodePtr, getNodePtr())

KS_NEEDS_STATIC(ksOpenSGUtils, osg::NodePtr, getRoot())
KS_NEEDS_STATIC(ksSceneDataManager, osg::NodePtr, getSceneRoot(0))

KS_NEEDS_STATIC(ksTextureManager, ksTextureManager *, the())
KS_NEEDS(ksTextureManager, osg::ImagePtr, getImage(image, true))

KS_NEEDS_STATIC(ksTransformVariantUtils, void, setName(variant, text))
KS_NEEDS_STATIC(ksTransformVariantUtils, void, setApplyFlags(variant, flags))

KS_NEEDS_FUNCTION(ksLights, getDiffuse, osg::Vec3f(const osg::NodePtr &))
KS_NEEDS_FUNCTION(ksLights, setDiffuse, void(const osg::NodePtr &, const osg::Vec3f &))
KS_NEEDS_FUNCTION(ksLights, getGlossy, osg::Vec3f(const osg::NodePtr &))
KS_NEEDS_FUNCTION(ksLights, setGlossy, void(const osg::NodePtr &, const osg::Vec3f &))
KS_NEEDS_FUNCTION(ksLights, getLightValue, float(const osg::NodePtr &))
KS_NEEDS_FUNCTION(ksLights, setLightValue, void(const osg::NodePtr &, float))
KS_NEEDS_FUNCTION(ksLights, getPenumbraAngle, float(const osg::NodePtr &))
KS_NEEDS_FUNCTION(ksLights, setPenumbraAngle, void(const osg::NodePtr &, float))
KS_NEEDS_FUNCTION(ksLights, getConeAngle, float(const osg::NodePtr &))
KS_NEEDS_FUNCTION(ksLights, setConeAngle, void(const osg::NodePtr &, float))
KS_NEEDS_FUNCTION(ksLights, getAttenuation, osg::UberLight::LightAttenuation(const osg::NodePtr &))
KS_NEEDS_FUNCTION(ksLights, setAttenuation, void(const osg::NodePtr &, osg::UberLight::LightAttenuation))

#define KS_NEEDS_VALUE(Name, ...)                                                                         \
    KS_NEEDS_FUNCTION(ksNodeUtils, getTransformNode##Name, osg::Vec3f(const osg::NodePtr &, __VA_ARGS__)) \
    KS_NEEDS_FUNCTION(ksNodeUtils, setTransformNode##Name,                                                \
                      void(const osg::NodePtr &, float, float, float, __VA_ARGS__))
KS_NEEDS_VALUE(Translation, bool, int)
KS_NEEDS_VALUE(Rotation, int)
KS_NEEDS_VALUE(Scale, int)
KS_NEEDS_VALUE(ScalePivot, bool, int)
KS_NEEDS_VALUE(RotatePivot, bool, int)
KS_NEEDS_VALUE(ScalePivotTranslation, int)
KS_NEEDS_VALUE(RotatePivotTranslation, int)
KS_NEEDS_VALUE(RotationOrientation, int)
#undef KS_NEEDS_VALUE
KS_NEEDS_STATIC(ksNodeUtils, osg::Vec3f, getTransformNodeShear(node))
KS_NEEDS_STATIC(ksNodeUtils, void, setTransformNodeShear(node, 1.0f, 1.0f, 1.0f))
KS_NEEDS_STATIC(ksNodeUtils, osg::Vec3f, getTransformNodeRotationDirection(node, number, number))
KS_NEEDS_FUNCTION(ksNodeUtils, setTransformNodeRotationDirection,
                  void(const osg::NodePtr &, float, float, float, int, bool, int))
KS_NEEDS_STATIC(ksNodeUtils, std::string, getTransformNodeEulerRotationOrder(node, number))
KS_NEEDS_STATIC(ksNodeUtils, void, setTransformNodeEulerRotationOrder(node, text, number))
KS_NEEDS_STATIC(ksNodeUtils, osg::NodePtr, findTransform(node))
KS_NEEDS_STATIC(ksNodeUtils, osg::Transform3DPtr, getTransform3D(node, number))
KS_NEEDS_STATIC(ksNodeUtils, bool, hasParent(node, node))
KS_NEEDS_STATIC(ksNodeUtils, osg::TransformVariantsAttachmentPtr, getTransformVariantsAttachment(node))
KS_NEEDS_STATIC(ksNodeUtils, osg::TransformVariantsAttachmentPtr, createTransformVariantsAttachment(node))
KS_NEEDS_STATIC(ksNodeUtils, void, setTransformVariantsAttachment(node, variants))
KS_NEEDS_STATIC(ksNodeUtils, void, removeTransformVariantsAttachment(node))
KS_NEEDS_STATIC(ksNodeUtils, void, insertTransformVariant(node, place, variant))
KS_NEEDS_STATIC(ksNodeUtils, void, removeTransformVariant(node, number))
KS_NEEDS_STATIC(ksNodeUtils, osg::TransformVariantPtr, getTransformVariant(node, place))
KS_NEEDS_STATIC(ksNodeUtils, osg::UInt32, getTransformVariantCount(node))
KS_NEEDS_STATIC(ksNodeUtils, std::string, getTransformVariantName(node, number))

KS_NEEDS_STATIC(ksPlatform, osg::UInt32, idOf(container))
KS_NEEDS_STATIC(ksPlatform, osg::UInt32, idOf(node))
KS_NEEDS_STATIC(ksPlatform, bool, ignoresChanges())
KS_NEEDS_STATIC(ksPlatform, osg::BitVector, externalFlagsMask)
KS_NEEDS_STATIC(ksPlatform, osg::UInt32, externalFlags(node))
KS_NEEDS_STATIC(ksPlatform, void, setExternalFlags(node, id))
KS_NEEDS_STATIC(ksPlatform, bool, isExcludedFromInstanceSubstitution(node))
KS_NEEDS_STATIC(ksPlatform, void, setTransformation(node, values, number))

// The application's own scene-graph classes.

KS_NEEDS(osg::Transform3D, osg::Vec3f, getTranslation())
KS_NEEDS(osg::Transform3D, osg::Vec3f, getEulerRotation())
KS_NEEDS(osg::Transform3D, osg::Vec3f, getScale())
KS_NEEDS(osg::Transform3D, osg::Vec3f, getShear())
KS_NEEDS(osg::Transform3D, osg::Vec3f, getScalePivot())
KS_NEEDS(osg::Transform3D, osg::Vec3f, getRotatePivot())
KS_NEEDS(osg::Transform3D, osg::Vec3f, getScalePivotTranslation())
KS_NEEDS(osg::Transform3D, osg::Vec3f, getRotatePivotTranslation())
KS_NEEDS(osg::Transform3D, int, getInheritType())
KS_NEEDS(osg::Transform3D, std::string, getEulerRotationOrder())
KS_NEEDS(osg::Transform3D, bool, getRotationDirectionValues(vectorOut, numberOut))
KS_NEEDS(osg::Transform3D, osg::QuaternionBase<float>, getRotation())
KS_NEEDS(osg::Transform3D, void, setRotation(quaternion))
KS_NEEDS(osg::Transform3D, void, setEulerRotation(vector))
KS_NEEDS(osg::Transform3D, void, setRotationAsQuaternion(quaternion))
KS_NEEDS(osg::Transform3D, osg::Vec3f, convertQuatToEuler(quaternion, true))
KS_NEEDS(osg::Transform3D, osg::BitVector, RotationFieldMask)
KS_NEEDS(osg::Transform3D, osg::BitVector, EulerRotationFieldMask)

KS_NEEDS(osg::TransformVariant, std::string, getName())
KS_NEEDS(osg::TransformVariant, unsigned long long, getApplyFlags())

KS_NEEDS(osg::UberLight, osg::NodePtr &, getSFVisibilityReference()->getValue())
KS_NEEDS(osg::UberLightBase, osg::BitVector, VisibilityReferenceFieldMask)

KS_NEEDS(osg::LightLinkSet, osg::MFNodePtr *, getMFLights())
KS_NEEDS(osg::LightLinkSet, osg::MFNodePtr *, getMFSceneNodes())
KS_NEEDS(osg::LightLinkSet, void, addLight(node))
KS_NEEDS(osg::LightLinkSet, void, addSceneNode(node))
KS_NEEDS(osg::LightLinkSet, void, insertLight(node, osg::Int32()))
KS_NEEDS(osg::LightLinkSet, void, insertSceneNode(node, osg::Int32()))
KS_NEEDS(osg::LightLinkSet, void, subLight(node))
KS_NEEDS(osg::LightLinkSet, void, subSceneNode(node))

KS_NEEDS(osg::TagAttachment, osg::MField<osg::UInt64> *, getMFTagValues())
KS_NEEDS_STATIC(osg::TagAttachment, osg::UInt32, getClassGroupId())

KS_NEEDS_CONST(osg::AbstractConstraint, osg::ConstraintObjectPtr, findSourceConstraintObject(object))
KS_NEEDS_CONST(osg::AbstractConstraint, bool, hasTarget(object))
KS_NEEDS(osg::AbstractConstraint, osg::AttachmentContainerPtr, getTarget())
KS_NEEDS(osg::AbstractConstraint, osg::AttachmentContainerPtr &, getSFTarget()->getValue())
KS_NEEDS(osg::AbstractConstraint, void, addSourceObject(constraintObject))
KS_NEEDS(osg::AbstractConstraint, void, removeSourceObject(constraintObject))
KS_NEEDS(osg::AbstractConstraintBase, osg::BitVector, SourcesFieldMask)
KS_NEEDS(osg::AbstractConstraintBase, osg::BitVector, TargetFieldMask)

KS_NEEDS_CONST(osg::AimConstraint, osg::ConstraintObjectPtr, findUpVectorConstraintObject(object))
KS_NEEDS(osg::AimConstraint, void, addUpVectorObject(constraintObject))
KS_NEEDS(osg::AimConstraint, void, removeUpVectorObject(constraintObject))
KS_NEEDS(osg::AimConstraintBase, osg::BitVector, UpVectorSourcesFieldMask)

KS_NEEDS(osg::UBRDFMaterial, osg::MaterialPtr, getEnvironment())
KS_NEEDS(osg::UBRDFMaterial, osg::MaterialPtr &, getSFEnvironment()->getValue())
KS_NEEDS(osg::UBRDFMaterialBase, osg::BitVector, EnvironmentFieldMask)

KS_NEEDS(osg::UberMaterialBase, osg::BitVector, ColorComponentDataFieldMask)
KS_NEEDS(osg::ColorComponentSettingsBase, osg::BitVector, PlanarProjectionFieldMask)

static_assert(std::is_base_of_v<osg::AttachmentContainer, osg::ConstraintObject>,
              "see \"osg::ConstraintObject\" in docs/integrating.md");
static_assert(std::is_base_of_v<osg::AbstractConstraint, osg::AimConstraint>,
              "see \"osg::AimConstraint\" in docs/integrating.md");

using osg::AimConstraintPtr; // see "Scene graph" in docs/integrating.md
using osg::LightLinkSetPtr;  // see "Scene graph" in docs/integrating.md
using osg::TagAttachmentPtr; // see "Scene graph" in docs/integrating.md
using osg::Transform3DPtr;   // see "Scene graph" in docs/integrating.md
using osg::UberLightPtr;     // see "Scene graph" in docs/integrating.md
using osg::UBRDFMaterialPtr; // see "Scene graph" in docs/integrating.md

// OpenSG 1.8.

KS_NEEDS_STATIC(osg::PThreadBase, osg::ChangeList *, getCurrentChangeList())
KS_NEEDS(osg::ChangeList, void, addChanged(container, mask))
KS_NEEDS_STATIC(osg::FieldContainerFactory, osg::FieldContainerPtr, the()->getContainer(id))
KS_NEEDS(osg::FieldContainer, const osg::FieldContainerType &, getType())
KS_NEEDS(osg::FieldContainer, osg::Field *, getField(id))
KS_NEEDS(osg::FieldContainer, void, changed(mask, osg::ChangedOrigin::External))
KS_NEEDS_CONST(osg::FieldContainerType, const osg::FieldDescription *, getFieldDescription(id))
KS_NEEDS_CONST(osg::FieldContainerType, osg::UInt32, getNumFieldDescs())
KS_NEEDS_CONST(osg::FieldContainerType, const char *, getCName())
KS_NEEDS_CONST(osg::FieldDescription, const char *, getCName())
KS_NEEDS_CONST(osg::FieldDescription, osg::UInt32, getFieldId())
KS_NEEDS_CONST(osg::FieldDescription, osg::BitVector, getFieldMask())
KS_NEEDS_CONST(osg::Field, const osg::FieldType &, getType())
KS_NEEDS(osg::AttachmentContainer, osg::AttachmentPtr, findAttachment(id))
KS_NEEDS(osg::Node, osg::NodeCorePtr, getCore())
KS_NEEDS_STATIC(osg::Node, const osg::FieldContainerType &, getClassType())
KS_NEEDS(osg::Node, osg::BitVector, VolumeFieldMask)
KS_NEEDS(osg::NodeCore, osg::MFNodePtr &, getParents())
KS_NEEDS(osg::Image, const osg::FieldContainerType &, getType())
KS_NEEDS(osg::Material, const osg::FieldContainerType &, getType())

/// \a expression of \a x, a pointer to \a Class, compiles and gives what converts to \a Result.
#define KS_NEEDS_OPENSG(Class, Result, expression)                                        \
    static_assert(offers<Class>([](auto *x) -> Fits<decltype(expression), Result> {}),    \
                  #expression " for an x of type " #Class " * is missing or has another " \
                              "signature: see \"OpenSG 1.8\" in docs/integrating.md");

KS_NEEDS_OPENSG(const osg::NodePtr, void, addRefCP(*x))
KS_NEEDS_OPENSG(const osg::NodePtr, void, subRefCP(*x))
KS_NEEDS_OPENSG(osg::NodePtr, void, setRefdCP(*x, *x))
KS_NEEDS_OPENSG(const osg::AttachmentContainerPtr, const char *, getName(*x))
KS_NEEDS_OPENSG(const osg::NodePtr, bool, *x == *x && *x != osg::NullFC && *x < *x)
KS_NEEDS_OPENSG(const osg::NodePtr, osg::NodePtr, x->dcast(container))
KS_NEEDS_OPENSG(const osg::FieldContainerType, bool, *x == *x)
KS_NEEDS_OPENSG(const osg::Vec3f, float, (*x)[0])
KS_NEEDS_OPENSG(osg::MField<std::string>, void, (x->begin(), x->end(), x->size(), x->clear(), x->resize(id)))
KS_NEEDS_OPENSG(osg::MField<std::string>, void, x->push_back(text))
static_assert(std::is_constructible_v<osg::Vec3f, float, float, float> &&
                  std::is_default_constructible_v<osg::QuaternionBase<float>>,
              "vectors and quaternions: see \"OpenSG 1.8\" in docs/integrating.md");
static_assert(std::is_constructible_v<osg::Transform3DPtr, osg::Transform3D &> &&
                  std::is_constructible_v<osg::NodePtr, decltype((osg::NullFC))>,
              "handles: see \"OpenSG 1.8\" in docs/integrating.md");

#define KS_NEEDS_SFIELD(FieldT, Value)                                 \
    KS_NEEDS_OPENSG(FieldT, bool, (x->getType() == x->getClassType())) \
    KS_NEEDS_OPENSG(FieldT, const Value &, x->getValue())              \
    KS_NEEDS_OPENSG(FieldT, void, x->setValue(x->getValue()))
KS_NEEDS_SFIELD(osg::SField<osg::Int64>, osg::Int64)
KS_NEEDS_SFIELD(osg::SField<osg::UInt64>, osg::UInt64)
KS_NEEDS_SFIELD(osg::SField<int>, int)
KS_NEEDS_SFIELD(osg::SField<unsigned int>, unsigned int)
KS_NEEDS_SFIELD(osg::SField<short>, short)
KS_NEEDS_SFIELD(osg::SField<unsigned short>, unsigned short)
KS_NEEDS_SFIELD(osg::SField<signed char>, signed char)
KS_NEEDS_SFIELD(osg::SField<unsigned char>, unsigned char)
KS_NEEDS_SFIELD(osg::SField<float>, float)
KS_NEEDS_SFIELD(osg::SField<double>, double)
KS_NEEDS_SFIELD(osg::SFBool, bool)
KS_NEEDS_SFIELD(osg::SField<std::string>, std::string)
KS_NEEDS_SFIELD(osg::SFImagePtr, osg::ImagePtr)
#undef KS_NEEDS_SFIELD
#undef KS_NEEDS_OPENSG
#undef KS_NEEDS
#undef KS_NEEDS_CONST
#undef KS_NEEDS_STATIC
#undef KS_NEEDS_FUNCTION
#undef KS_SAY_MISSING

} // namespace ksDetail::ksPortCheck
