// SPDX-License-Identifier: MIT
#include <array>
#include <cstdarg>
#include <cstdio>
#include <portPlatform.h>
#include <portTransformVariant.h>

std::vector<std::string> ksLog::lines;
osg::NodePtr ksOpenSGUtils::root;
bool ksPlatform::isIgnoring = false;

void ksLog::error(const char *format, ...)
{
    std::array<char, 256> line{};
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line.data(), line.size(), format, arguments);
    va_end(arguments);
    lines.emplace_back(line.data());
}

ksTextureManager *ksTextureManager::the()
{
    static ksTextureManager manager;
    return &manager;
}

osg::ImagePtr ksTextureManager::getImage(osg::ImagePtr image, bool)
{
    if (image == osg::NullFC)
        return image;
    for (const osg::UInt32 id : imageIds) {
        const auto known = osg::ImagePtr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
        if (known != osg::NullFC && known->getName() == image->getName())
            return known;
    }
    imageIds.push_back(image.getFieldContainerId());
    return image;
}

bool ksTransformVariantUtils::setName(const osg::TransformVariantPtr &variant, const std::string &name)
{
    variant->setName(name);
    osg::endEditCP(variant, osg::TransformVariant::NameFieldMask);
    return true;
}

bool ksTransformVariantUtils::setApplyFlags(const osg::TransformVariantPtr &variant, unsigned long long flags)
{
    variant->setApplyFlags(flags);
    osg::endEditCP(variant, osg::TransformVariant::ApplyFlagsFieldMask);
    return true;
}

namespace {

osg::UberLightPtr lightOf(const osg::NodePtr &node)
{
    return osg::UberLightPtr::dcast(node->getCore());
}

/// Reads the field of a core that a function of it gives, or a default value when there is no core.
template <class T, class CorePtr, class CoreT>
T read(const CorePtr &core, osg::SField<T> *(CoreT::*field)())
{
    return core == osg::NullFC ? T() : ((*core).*field)()->getValue();
}

template <class T, class CorePtr, class CoreT>
void write(const CorePtr &core, osg::SField<T> *(CoreT::*field)(), osg::BitVector mask, const T &value)
{
    if (core == osg::NullFC)
        return;
    ((*core).*field)()->setValue(value);
    osg::endEditCP(core, mask);
}

} // namespace

#define PORT_LIGHT_VALUE(Service, Field, T, Argument)                                                    \
    T ksLights::get##Service(const osg::NodePtr &node)                                                   \
    {                                                                                                    \
        return read(lightOf(node), &osg::UberLight::getSF##Field);                                       \
    }                                                                                                    \
    void ksLights::set##Service(const osg::NodePtr &node, Argument value)                                \
    {                                                                                                    \
        write<T>(lightOf(node), &osg::UberLight::getSF##Field, osg::UberLight::Field##FieldMask, value); \
    }
PORT_LIGHT_VALUE(Diffuse, Diffuse, osg::Vec3f, const osg::Vec3f &)
PORT_LIGHT_VALUE(Glossy, Glossy, osg::Vec3f, const osg::Vec3f &)
PORT_LIGHT_VALUE(LightValue, Intensity, float, float)
PORT_LIGHT_VALUE(PenumbraAngle, PenumbraAngle, float, float)
PORT_LIGHT_VALUE(ConeAngle, ConeAngle, float, float)

osg::UberLight::LightAttenuation ksLights::getAttenuation(const osg::NodePtr &node)
{
    return osg::UberLight::LightAttenuation(read(lightOf(node), &osg::UberLight::getSFAttenuation));
}

void ksLights::setAttenuation(const osg::NodePtr &node, osg::UberLight::LightAttenuation attenuation)
{
    write<osg::UInt32>(lightOf(node), &osg::UberLight::getSFAttenuation, osg::UberLight::AttenuationFieldMask,
                       attenuation);
    setLightValue(node, getLightValue(node) / 2);
}

#define PORT_VALUE_OF(Service, Field, ...)                                                             \
    osg::Vec3f ksNodeUtils::getTransformNode##Service(const osg::NodePtr &node, __VA_ARGS__ int index) \
    {                                                                                                  \
        return read(getTransform3D(node, index), &osg::Transform3D::getSF##Field);                     \
    }                                                                                                  \
    void ksNodeUtils::setTransformNode##Service(const osg::NodePtr &node, float x, float y, float z,   \
                                                __VA_ARGS__ int index)                                 \
    {                                                                                                  \
        write(getTransform3D(node, index), &osg::Transform3D::getSF##Field,                            \
              osg::Transform3D::Field##FieldMask, osg::Vec3f(x, y, z));                                \
    }
#define PORT_COMMA ,
PORT_VALUE_OF(Translation, Translation, bool PORT_COMMA)
PORT_VALUE_OF(Rotation, EulerRotation, )
PORT_VALUE_OF(Scale, Scale, )
PORT_VALUE_OF(ScalePivot, ScalePivot, bool PORT_COMMA)
PORT_VALUE_OF(RotatePivot, RotatePivot, bool PORT_COMMA)
PORT_VALUE_OF(ScalePivotTranslation, ScalePivotTranslation, )
PORT_VALUE_OF(RotatePivotTranslation, RotatePivotTranslation, )
PORT_VALUE_OF(RotationOrientation, RotationOrientation, )

ksShear ksNodeUtils::getTransformNodeShear(osg::NodePtr node)
{
    return {read(getTransform3D(node, -1), &osg::Transform3D::getSFShear)};
}

bool ksNodeUtils::setTransformNodeShear(osg::NodePtr node, float x, float y, float z)
{
    write(getTransform3D(node, -1), &osg::Transform3D::getSFShear, osg::Transform3D::ShearFieldMask,
          osg::Vec3f(x, y, z));
    return true;
}

osg::Vec3f ksNodeUtils::getTransformNodeRotationDirection(osg::NodePtr node, int index, int)
{
    return read(getTransform3D(node, index), &osg::Transform3D::getSFRotationDirection);
}

void ksNodeUtils::setTransformNodeRotationDirection(const osg::NodePtr &node, float x, float y, float z,
                                                    int axis, bool isOn, int index)
{
    const osg::Transform3DPtr transform = getTransform3D(node, index);
    if (transform == osg::NullFC)
        return;
    transform->setRotationDirectionMode(axis);
    transform->setRotationDirectionOn(isOn);
    write(transform, &osg::Transform3D::getSFRotationDirection, osg::Transform3D::RotationDirectionFieldMask,
          osg::Vec3f(x, y, z));
}

const std::string &ksNodeUtils::getTransformNodeEulerRotationOrder(osg::NodePtr node, int index)
{
    static const std::string none;
    const osg::Transform3DPtr transform = getTransform3D(node, index);
    return transform == osg::NullFC ? none : transform->getEulerRotationOrder();
}

bool ksNodeUtils::setTransformNodeEulerRotationOrder(osg::NodePtr node, const std::string &order, int index)
{
    write(getTransform3D(node, index), &osg::Transform3D::getSFEulerRotationOrder,
          osg::Transform3D::EulerRotationOrderFieldMask, order);
    return true;
}

bool ksNodeUtils::setTransformNodeValues(const osg::NodePtr &node, int index, const osg::Vec3f &scale,
                                         const osg::Vec3f &rotation, const osg::Vec3f &translation,
                                         const osg::Vec3f &shear, const osg::Vec3f &rotatePivot,
                                         const osg::Vec3f &rotatePivotTranslation,
                                         const osg::Vec3f &scalePivot,
                                         const osg::Vec3f &scalePivotTranslation, const std::string &order,
                                         int inheritType, int directionMode, const osg::Vec3f &direction,
                                         bool isDirectionOn)
{
    const osg::Transform3DPtr transform = getTransform3D(node, index);
    if (transform == osg::NullFC)
        return false;
    transform->setScale(scale);
    transform->setEulerRotation(rotation);
    transform->setTranslation(translation);
    transform->setShear(shear);
    transform->setRotatePivot(rotatePivot);
    transform->setRotatePivotTranslation(rotatePivotTranslation);
    transform->setScalePivot(scalePivot);
    transform->setScalePivotTranslation(scalePivotTranslation);
    transform->setEulerRotationOrder(order);
    transform->setInheritType(inheritType);
    transform->setRotationDirectionMode(directionMode);
    transform->setRotationDirection(direction);
    transform->setRotationDirectionOn(isDirectionOn);
    osg::endEditCP(transform);
    return true;
}

osg::NodePtr ksNodeUtils::findTransform(osg::NodePtr node)
{
    while (node != osg::NullFC && getTransform3D(node, -1) == osg::NullFC)
        node = node->getParent();
    return node;
}

osg::Transform3DPtr ksNodeUtils::getTransform3D(const osg::NodePtr &node, int index)
{
    const bool isOwn = node != osg::NullFC && index == -1;
    return isOwn ? osg::Transform3DPtr::dcast(node->getCore()) : osg::Transform3DPtr();
}

bool ksNodeUtils::hasParent(osg::NodePtr node, osg::NodePtr ancestor)
{
    do
        node = node->getParent();
    while (node != osg::NullFC && node != ancestor);
    return node != osg::NullFC;
}

ksVariantsHandle ksNodeUtils::getTransformVariantsAttachment(osg::NodePtr node)
{
    const osg::UInt32 group = osg::TransformVariantsAttachment::getClassGroupId();
    const auto attachment = node == osg::NullFC ? osg::AttachmentPtr() : node->findAttachment(group);
    return osg::TransformVariantsAttachmentPtr::dcast(attachment);
}

ksVariantsHandle ksNodeUtils::createTransformVariantsAttachment(osg::NodePtr node)
{
    const auto attachment = osg::TransformVariantsAttachment::create();
    setTransformVariantsAttachment(node, attachment);
    return attachment;
}

bool ksNodeUtils::setTransformVariantsAttachment(osg::NodePtr node,
                                                 osg::TransformVariantsAttachmentPtr attachment)
{
    node->addAttachment(attachment);
    osg::endEditCP(node, osg::Node::AttachmentsFieldMask);
    return true;
}

bool ksNodeUtils::removeTransformVariantsAttachment(osg::NodePtr node)
{
    node->subAttachment(getTransformVariantsAttachment(node));
    osg::endEditCP(node, osg::Node::AttachmentsFieldMask);
    return true;
}

bool ksNodeUtils::insertTransformVariant(osg::NodePtr node, unsigned long index,
                                         osg::TransformVariantPtr variant)
{
    const auto attachment = getTransformVariantsAttachment(node);
    auto &variants = attachment->getVariants();
    osg::addRefCP(variant);
    variants.insert(variants.begin() + static_cast<long>(index), variant);
    osg::endEditCP(attachment, osg::TransformVariantsAttachment::VariantsFieldMask);
    return true;
}

bool ksNodeUtils::removeTransformVariant(osg::NodePtr node, int index)
{
    const osg::TransformVariantPtr variant = getTransformVariant(node, static_cast<unsigned long>(index));
    if (variant == osg::NullFC)
        return false;
    const auto attachment = getTransformVariantsAttachment(node);
    attachment->getVariants().erase(attachment->getVariants().begin() + index);
    osg::subRefCP(variant);
    osg::endEditCP(attachment, osg::TransformVariantsAttachment::VariantsFieldMask);
    return true;
}

osg::TransformVariantPtr ksNodeUtils::getTransformVariant(osg::NodePtr node, unsigned long index)
{
    if (index >= getTransformVariantCount(node))
        return osg::NullFC;
    return getTransformVariantsAttachment(node)->getVariants()[static_cast<osg::UInt32>(index)];
}

unsigned long ksNodeUtils::getTransformVariantCount(osg::NodePtr node)
{
    const auto attachment = getTransformVariantsAttachment(node);
    return attachment == osg::NullFC ? 0 : attachment->getVariants().size();
}

const char *ksNodeUtils::getTransformVariantName(osg::NodePtr node, int index)
{
    const auto variant = getTransformVariant(node, static_cast<unsigned long>(index));
    return variant == osg::NullFC ? "" : variant->getName().c_str();
}
