// SPDX-License-Identifier: MIT
#pragma once

#include <boost/any.hpp>

#include <portExtension.h>
#include <string>
#include <utility>
#include <vector>

// The application's services. None of them knows the world from the parent's space.

class ksMessage
{
public:
    void set(const std::string &key, const boost::any &value, bool) { entries.emplace_back(key, value); }

    std::vector<std::pair<std::string, boost::any>> entries;
};

struct ksLog
{
    static void error(const char *format, ...) __attribute__((format(printf, 1, 2)));

    static std::vector<std::string> lines;
};

struct ksNodePtr
{
    osg::NodePtr getNodePtr() const { return node; }

    osg::NodePtr node;
};

struct ksOpenSGUtils
{
    static osg::NodePtr getRoot() { return root; }

    static osg::NodePtr root;
};

struct ksSceneDataManager
{
    static osg::NodePtr getSceneRoot(int) { return ksOpenSGUtils::root; }
};

class ksTextureManager
{
public:
    static ksTextureManager *the();
    /// One image for each name.
    osg::ImagePtr getImage(osg::ImagePtr image, bool);

private:
    std::vector<osg::UInt32> imageIds;
};

struct ksTransformVariantUtils
{
    static bool setName(const osg::TransformVariantPtr &variant, const std::string &name);
    static bool setApplyFlags(const osg::TransformVariantPtr &variant, unsigned long long flags);
};

struct ksLights
{
    static osg::Vec3f getDiffuse(const osg::NodePtr &node);
    static void setDiffuse(const osg::NodePtr &node, const osg::Vec3f &color);
    static osg::Vec3f getGlossy(const osg::NodePtr &node);
    static void setGlossy(const osg::NodePtr &node, const osg::Vec3f &color);
    static float getLightValue(const osg::NodePtr &node);
    static void setLightValue(const osg::NodePtr &node, float value);
    static float getPenumbraAngle(const osg::NodePtr &node);
    static void setPenumbraAngle(const osg::NodePtr &node, float angle);
    static float getConeAngle(const osg::NodePtr &node);
    static void setConeAngle(const osg::NodePtr &node, float angle);
    static osg::UberLight::LightAttenuation getAttenuation(const osg::NodePtr &node);
    /// Halves the intensity, which callers are to mend.
    static void setAttenuation(const osg::NodePtr &node, osg::UberLight::LightAttenuation attenuation);
};

/// Results of functions are the application's own where they only have to be converted.
struct ksShear
{
    operator osg::Vec3f() const { return value; }

    osg::Vec3f value;
};
struct ksVariantsHandle : osg::TransformVariantsAttachmentPtr
{
    ksVariantsHandle(const osg::TransformVariantsAttachmentPtr &attachment)
        : osg::TransformVariantsAttachmentPtr(attachment)
    {}
};

#define PORT_VALUE(Name)                                                           \
    static osg::Vec3f getTransformNode##Name(const osg::NodePtr &node, int index); \
    static void setTransformNode##Name(const osg::NodePtr &node, float x, float y, float z, int index);

#define PORT_PLACED_VALUE(Name)                                                          \
    static osg::Vec3f getTransformNode##Name(const osg::NodePtr &node, bool, int index); \
    static void setTransformNode##Name(const osg::NodePtr &node, float x, float y, float z, bool, int index);

class ksNodeUtils
{
public:
    PORT_PLACED_VALUE(Translation)
    PORT_VALUE(Rotation)
    PORT_VALUE(Scale)
    PORT_PLACED_VALUE(ScalePivot)
    PORT_PLACED_VALUE(RotatePivot)
    PORT_VALUE(ScalePivotTranslation)
    PORT_VALUE(RotatePivotTranslation)
    PORT_VALUE(RotationOrientation)

    static ksShear getTransformNodeShear(osg::NodePtr node);
    static bool setTransformNodeShear(osg::NodePtr node, float x, float y, float z);
    static osg::Vec3f getTransformNodeRotationDirection(osg::NodePtr node, int index, int axis);
    static void setTransformNodeRotationDirection(const osg::NodePtr &node, float x, float y, float z,
                                                  int axis, bool isOn, int index);
    static const std::string &getTransformNodeEulerRotationOrder(osg::NodePtr node, int index);
    static bool setTransformNodeEulerRotationOrder(osg::NodePtr node, const std::string &order, int index);
    /// The order is another one than that of most applications.
    static bool setTransformNodeValues(const osg::NodePtr &node, int index, const osg::Vec3f &scale,
                                       const osg::Vec3f &rotation, const osg::Vec3f &translation,
                                       const osg::Vec3f &shear, const osg::Vec3f &rotatePivot,
                                       const osg::Vec3f &rotatePivotTranslation, const osg::Vec3f &scalePivot,
                                       const osg::Vec3f &scalePivotTranslation, const std::string &order,
                                       int inheritType, int directionMode, const osg::Vec3f &direction,
                                       bool isDirectionOn);

    static osg::NodePtr findTransform(osg::NodePtr node);
    static osg::Transform3DPtr getTransform3D(const osg::NodePtr &node, int index);
    static bool hasParent(osg::NodePtr node, osg::NodePtr ancestor);

    static ksVariantsHandle getTransformVariantsAttachment(osg::NodePtr node);
    static ksVariantsHandle createTransformVariantsAttachment(osg::NodePtr node);
    static bool setTransformVariantsAttachment(osg::NodePtr node,
                                               osg::TransformVariantsAttachmentPtr attachment);
    static bool removeTransformVariantsAttachment(osg::NodePtr node);
    static bool insertTransformVariant(osg::NodePtr node, unsigned long index,
                                       osg::TransformVariantPtr variant);
    static bool removeTransformVariant(osg::NodePtr node, int index);
    static osg::TransformVariantPtr getTransformVariant(osg::NodePtr node, unsigned long index);
    static unsigned long getTransformVariantCount(osg::NodePtr node);
    static const char *getTransformVariantName(osg::NodePtr node, int index);
};

#undef PORT_VALUE
#undef PORT_PLACED_VALUE
