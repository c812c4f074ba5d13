// SPDX-License-Identifier: MIT
#pragma once

#include <OSGTransform3D.h>
#include <OSGTransformVariantsAttachment.h>
#include <OpenSG/OSGNode.h>

#include <string>

/// Operations on the nodes of the application's scene.
///
/// **Transforms.** The accessors of transform components take a node and an \a index that tells which of its
/// transforms is meant: -1 the node's own, its core, if that is an osg::Transform3D; 0 and up the one stored
/// by the variant at that place. Where there is none (a null node, another core, a place without a variant, a
/// variant without a transform, an index below -1), getters answer with zeros or an empty text, and setters
/// do nothing.
///
/// Values are the fields of osg::Transform3D and are kept bit for bit. A setter is one edit that names the
/// fields it wrote, also when the value was there before.
///
/// **Space.** Translation and pivots can be read and written in world space (\a world true): the value is
/// taken for a point of the parent's space, and carried to the world by the matrices of the ancestors that
/// are osg::Transform or derived from it. A variant's transform counts as standing where the node's own does.
/// While the ancestors' matrices together have no inverse, nothing can be written in world space, and such a
/// setter does nothing.
class ksNodeUtils
{
public:
    ksNodeUtils() = delete;

    /// The node itself or its nearest ancestor whose core is an osg::Transform3D. Null if there is none, and
    /// for a null node.
    static osg::NodePtr findTransform(osg::NodePtr node);

    /// Whether \a ancestor is the node's parent, or further above it. A node is not above itself. False for
    /// null nodes.
    static bool hasParent(const osg::NodePtr &node, const osg::NodePtr &ancestor);

    /// The transform that \a index means, or null.
    static osg::Transform3DPtr getTransform3D(const osg::NodePtr &node, int index);

    static osg::Vec3f getTransformNodeTranslation(const osg::NodePtr &node, bool world, int index);
    static void setTransformNodeTranslation(const osg::NodePtr &node, float x, float y, float z, bool world,
                                            int index);

    /// The Euler angles, in degrees. Setting them sets the quaternion in the same edit.
    static osg::Vec3f getTransformNodeRotation(const osg::NodePtr &node, int index);
    static void setTransformNodeRotation(const osg::NodePtr &node, float x, float y, float z, int index);

    static osg::Vec3f getTransformNodeScale(const osg::NodePtr &node, int index);
    static void setTransformNodeScale(const osg::NodePtr &node, float x, float y, float z, int index);

    static osg::Vec3f getTransformNodeShear(const osg::NodePtr &node);
    static void setTransformNodeShear(const osg::NodePtr &node, float x, float y, float z);

    static osg::Vec3f getTransformNodeScalePivot(const osg::NodePtr &node, bool world, int index);
    static void setTransformNodeScalePivot(const osg::NodePtr &node, float x, float y, float z, bool world,
                                           int index);

    static osg::Vec3f getTransformNodeRotatePivot(const osg::NodePtr &node, bool world, int index);
    static void setTransformNodeRotatePivot(const osg::NodePtr &node, float x, float y, float z, bool world,
                                            int index);

    static osg::Vec3f getTransformNodeScalePivotTranslation(const osg::NodePtr &node, int index);
    static void setTransformNodeScalePivotTranslation(const osg::NodePtr &node, float x, float y, float z,
                                                      int index);

    static osg::Vec3f getTransformNodeRotatePivotTranslation(const osg::NodePtr &node, int index);
    static void setTransformNodeRotatePivotTranslation(const osg::NodePtr &node, float x, float y, float z,
                                                       int index);

    /// The orientation's angles, in degrees.
    static osg::Vec3f getTransformNodeRotationOrientation(const osg::NodePtr &node, int index);
    static void setTransformNodeRotationOrientation(const osg::NodePtr &node, float x, float y, float z,
                                                    int index);

    /// With \a axis -1 the rotation direction as it was set. With 0, 1 or 2 where the orientation in effect
    /// makes x, y or z point; zeros with any other axis.
    static osg::Vec3f getTransformNodeRotationDirection(const osg::NodePtr &node, int index, int axis);

    /// Sets the rotation direction, the axis that it is for (0 x, 1 y, 2 z; any other has no effect on the
    /// transform) and whether it is on.
    static void setTransformNodeRotationDirection(const osg::NodePtr &node, float x, float y, float z,
                                                  int directionAxis, bool directionFlag, int index);

    /// The order of the Euler angles, see OSGEulerAngles.h. Setting it leaves the angles and sets the
    /// quaternion that they now give in the same edit. Texts that are no order are kept and mean XYZ.
    static std::string getTransformNodeEulerRotationOrder(const osg::NodePtr &node, int index);
    static void setTransformNodeEulerRotationOrder(const osg::NodePtr &node, std::string order, int index);

    /// Sets all of these at once, in one edit, in parent space: the vectors as named, \a rotation in degrees;
    /// the inherit type; the order of the Euler angles; the rotation direction's switch, values and mode. The
    /// rotation orientation stays; the quaternion becomes what the angles give.
    static void setTransformNodeValues(const osg::NodePtr &node, const osg::Vec3f &translation,
                                       const osg::Vec3f &rotation, const osg::Vec3f &scale,
                                       const osg::Vec3f &shear, const osg::Vec3f &scalePivot,
                                       const osg::Vec3f &rotatePivot, const osg::Vec3f &scalePivotTranslation,
                                       const osg::Vec3f &rotatePivotTranslation, int inheritType,
                                       const std::string &eulerRotationOrder, bool rotationDirectionOn,
                                       const osg::Vec3f &rotationDirection, int rotationDirectionMode,
                                       int index);

    /// The attachment that holds the node's variants, or null.
    static osg::TransformVariantsAttachmentPtr getTransformVariantsAttachment(const osg::NodePtr &node);

    /// Attaches a new empty attachment and returns it. A node that has one keeps it, and it is returned. Null
    /// for a null node.
    static osg::TransformVariantsAttachmentPtr createTransformVariantsAttachment(const osg::NodePtr &node);

    /// Attaches \a attachment in place of the one that the node has, if any, whose reference is released.
    /// Does nothing if it is attached already, and for null arguments.
    static void setTransformVariantsAttachment(const osg::NodePtr &node,
                                               const osg::TransformVariantsAttachmentPtr &attachment);

    /// Detaches the attachment and releases its reference, which destroys it unless somebody holds another,
    /// and with it the variants that nobody holds. Does nothing if there is none.
    static void removeTransformVariantsAttachment(const osg::NodePtr &node);

    /// Inserts \a variant before the place \a index, at the end when there are not as many. The list takes a
    /// reference on it. Does nothing for a node without the attachment and for null arguments.
    static void insertTransformVariant(const osg::NodePtr &node, unsigned long index,
                                       const osg::TransformVariantPtr &variant);

    /// Removes the variant at the place \a index and releases its reference, which destroys it unless
    /// somebody holds another. Does nothing if there is none.
    static void removeTransformVariant(const osg::NodePtr &node, int index);

    /// The variant at the place \a index, or null.
    static osg::TransformVariantPtr getTransformVariant(const osg::NodePtr &node, unsigned long index);

    /// 0 for a null node and a node without the attachment.
    static osg::UInt32 getTransformVariantCount(const osg::NodePtr &node);

    /// The name of \a node's transform variant \a index, counted from 0. Empty for a null node, a node
    /// without a variants attachment, and an index that is not one of its variants (-1, the node's own
    /// transform, included).
    static std::string getTransformVariantName(const osg::NodePtr &node, int index);
};
