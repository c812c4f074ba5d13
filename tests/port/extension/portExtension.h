// SPDX-License-Identifier: MIT
#pragma once

#include <portGraph.h>

// The application's own classes. Functions that change something return what they please.

namespace osg {

class Transform3D;
class TransformVariant; // whole in portTransformVariant.h
class TransformVariantsAttachment;
class UberLight;
class LightLinkSet;
class TagAttachment;
class ConstraintObject; // whole in portConstraintObject.h
class AbstractConstraint;
class AimConstraint;
class UBRDFMaterial;
class UberMaterial;
class ColorComponentSettings;
class Probe;

typedef FCPtr<TransformPtr, Transform3D> Transform3DPtr;
typedef FCPtr<FieldContainerPtr, TransformVariant> TransformVariantPtr;
typedef FCPtr<AttachmentPtr, TransformVariantsAttachment> TransformVariantsAttachmentPtr;
typedef FCPtr<GroupPtr, UberLight> UberLightPtr;
typedef FCPtr<NodeCorePtr, LightLinkSet> LightLinkSetPtr;
typedef FCPtr<AttachmentPtr, TagAttachment> TagAttachmentPtr;
typedef FCPtr<AttachmentContainerPtr, ConstraintObject> ConstraintObjectPtr;
typedef FCPtr<FCPtr<NodeCorePtr, AbstractConstraint>, AimConstraint> AimConstraintPtr;
typedef FCPtr<MaterialPtr, UBRDFMaterial> UBRDFMaterialPtr;
typedef FCPtr<MaterialPtr, UberMaterial> UberMaterialPtr;
typedef FCPtr<AttachmentContainerPtr, ColorComponentSettings> ColorComponentSettingsPtr;
typedef FCPtr<FieldContainerPtr, Probe> ProbePtr;

class Transform3DBase : public Transform
{
    PORT_FIELDS_OF(Transform3DBase)
    PORT_SF(SFString, EulerRotationOrder, 3)
    PORT_SF(SFVec3f, EulerRotation, 4)
    PORT_SF(SField<Quaternion>, Rotation, 5)
    PORT_SF(SFVec3f, Translation, 6)
    PORT_SF(SFVec3f, Scale, 7)
    PORT_SF(SFVec3f, Shear, 8)
    PORT_SF(SFVec3f, RotatePivot, 9)
    PORT_SF(SFVec3f, ScalePivot, 10)
    PORT_SF(SFVec3f, RotatePivotTranslation, 11)
    PORT_SF(SFVec3f, ScalePivotTranslation, 12)
    PORT_SF(SFVec3f, RotationOrientation, 13)
    PORT_SF(SFVec3f, RotationDirection, 14)
    PORT_SF(SFInt32, RotationDirectionMode, 15)
    PORT_SF(SFBool, RotationDirectionOn, 16)
    PORT_SF(SFInt32, InheritType, 17)
};

class Transform3D : public Transform3DBase
{
    PORT_CREATED_CLASS(Transform3D)

public:
    void setRotationAsQuaternion(const QuaternionBase<Real32> &rotation);
    Vec3f convertQuatToEuler(const QuaternionBase<Real32> &rotation, bool degrees) const;
    bool getRotationDirectionValues(Vec3f &direction, int &mode) const;
};

class TransformVariantsAttachment : public Attachment
{
    PORT_CREATED_CLASS(TransformVariantsAttachment)
    PORT_MF(MField<TransformVariantPtr>, Variants, 3)

protected:
    ~TransformVariantsAttachment() override;
};

class UberLightBase : public Group
{
    PORT_FIELDS_OF(UberLightBase)
    PORT_SF(SFNodePtr, VisibilityReference, 3)
    PORT_SF(SFVec3f, Diffuse, 4)
    PORT_SF(SFVec3f, Glossy, 5)
    PORT_SF_BEING(SFReal32, Intensity, 6, 1)
    PORT_SF(SFReal32, PenumbraAngle, 7)
    PORT_SF(SFReal32, ConeAngle, 8)
    PORT_SF(SFUInt32, Attenuation, 9)
};

class UberLight : public UberLightBase
{
    PORT_CREATED_CLASS(UberLight)

public:
    enum LightAttenuation
    {
        Constant,
        Falling
    };

protected:
    ~UberLight() override { subRefCP(getVisibilityReference()); }
};

class LightLinkSet : public NodeCore
{
    PORT_CREATED_CLASS(LightLinkSet)
    PORT_MF(MFNodePtr, SceneNodes, 3)
    PORT_MF(MFNodePtr, Lights, 4)

public:
    UInt32 addSceneNode(const NodePtr &node) { return insert(_mfSceneNodes, node, -1); }
    void addLight(const NodePtr &node) { insert(_mfLights, node, -1); }
    UInt32 insertSceneNode(const NodePtr &node, Int32 position)
    {
        return insert(_mfSceneNodes, node, position);
    }
    void insertLight(const NodePtr &node, Int32 position) { insert(_mfLights, node, position); }
    bool subSceneNode(const NodePtr &node) { return remove(_mfSceneNodes, node); }
    void subLight(const NodePtr &node) { remove(_mfLights, node); }

protected:
    ~LightLinkSet() override;

private:
    UInt32 insert(MFNodePtr &list, const NodePtr &node, Int32 position);
    bool remove(MFNodePtr &list, const NodePtr &node);
};

class TagAttachment : public Attachment
{
    PORT_CREATED_CLASS(TagAttachment)
    PORT_MF(MField<UInt64>, TagValues, 3)
    PORT_MF(MFString, UserTags, 4)
    PORT_MF(MFString, LayerTags, 5)
};

class AbstractConstraintBase : public NodeCore
{
    PORT_FIELDS_OF(AbstractConstraintBase)
    PORT_SF(SField<AttachmentContainerPtr>, Target, 3)
    PORT_MF(MField<ConstraintObjectPtr>, Sources, 4)
};

class AbstractConstraint : public AbstractConstraintBase
{
    PORT_CLASS(AbstractConstraint)

public:
    ConstraintObjectPtr findSourceConstraintObject(const AttachmentContainerPtr &node) const;
    bool addSourceObject(const ConstraintObjectPtr &object);
    void removeSourceObject(const ConstraintObjectPtr &object);
    bool hasTarget(const AttachmentContainerPtr &node) const { return getTarget() == node; }

protected:
    ~AbstractConstraint() override;
};

class AimConstraintBase : public AbstractConstraint
{
    PORT_FIELDS_OF(AimConstraintBase)
    PORT_MF(MField<ConstraintObjectPtr>, UpVectorSources, 5)
};

class AimConstraint : public AimConstraintBase
{
    PORT_CREATED_CLASS(AimConstraint)

public:
    ConstraintObjectPtr findUpVectorConstraintObject(const AttachmentContainerPtr &node) const;
    bool addUpVectorObject(const ConstraintObjectPtr &object);
    void removeUpVectorObject(const ConstraintObjectPtr &object);

protected:
    ~AimConstraint() override;
};

class UBRDFMaterialBase : public Material
{
    PORT_FIELDS_OF(UBRDFMaterialBase)
    PORT_SF(SFMaterialPtr, Environment, 2)
};

class UBRDFMaterial : public UBRDFMaterialBase
{
    PORT_CREATED_CLASS(UBRDFMaterial)

protected:
    ~UBRDFMaterial() override { subRefCP(getEnvironment()); }
};

class UberMaterialBase : public Material
{
    PORT_FIELDS_OF(UberMaterialBase)
    PORT_MF(MField<FieldContainerPtr>, ColorComponentData, 2)
};

class UberMaterial : public UberMaterialBase
{
    PORT_CREATED_CLASS(UberMaterial)
};

class ColorComponentSettingsBase : public AttachmentContainer
{
    PORT_FIELDS_OF(ColorComponentSettingsBase)
    PORT_SF(SFBool, PlanarProjection, 2)
};

class ColorComponentSettings : public ColorComponentSettingsBase
{
    PORT_CREATED_CLASS(ColorComponentSettings)
};

/// A container with a field of every class that commands are for.
class Probe : public FieldContainer
{
    PORT_CREATED_CLASS(Probe)
    PORT_SF(SField<Int64>, Int64, 1)
    PORT_SF(SField<UInt64>, UInt64, 2)
    PORT_SF(SFInt32, Int32, 3)
    PORT_SF(SFUInt32, UInt32, 4)
    PORT_SF(SField<Int16>, Int16, 5)
    PORT_SF(SField<UInt16>, UInt16, 6)
    PORT_SF(SField<Int8>, Int8, 7)
    PORT_SF(SField<UInt8>, UInt8, 8)
    PORT_SF(SFReal32, Real32, 9)
    PORT_SF(SField<Real64>, Real64, 10)
    PORT_SF(SFBool, Flag, 11)
    PORT_SF(SFString, Text, 12)
    PORT_MF(MFString, Words, 13)
    PORT_SF(SFImagePtr, Image, 14)

public:
    void changed(BitVector, osg::UInt32) override { ++calls; }

    static int calls;

protected:
    ~Probe() override { subRefCP(getImage()); }
};

} // namespace osg
