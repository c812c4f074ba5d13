// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksFindContainer.h>

#include <OSGTransform3D.h>
#include <OSGTransformVariant.h>
#include <OSGTransformVariantsAttachment.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <ksNodeUtils.h>

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <support/ksSceneFixture.h>
#include <support/ksSlotSwap.h>
#include <utility>
#include <vector>

/// What happened, in order, each event as one line.
using ksTransformEvents = std::vector<std::string>;

/// The components of \a value as exact texts: 1 2.5 -3.
inline std::string ksTextOf(const osg::Vec3f &value)
{
    std::string text;
    osg::ValueText<osg::Vec3f>::putToString(value, text);
    return text;
}

/// A small scene to edit. Every transform has a value of its own in every component.
///
///     root        a transform
///       group     without a transform
///         node    a transform, named Box
///           child a transform
class ksTransformFixture : public ksSceneFixture
{
protected:
    ksTransformFixture()
    {
        append(group, node);
        append(root, group);
        append(node, child);
        fill(ownTransformOf(root), 1);
        fill(ownTransformOf(node), 2);
        fill(ownTransformOf(child), 3);
        osg::setName(node.get(), "Box");
    }

    static osg::Transform3DPtr ownTransformOf(const osg::NodePtr &owner)
    {
        return osg::Transform3DPtr::dcast(owner->getCore());
    }

    static void fill(const osg::Transform3DPtr &transform, float seed)
    {
        const osg::CPEditor edit(transform, osg::FieldBits::AllFields);
        transform->setTranslation(osg::Vec3f(seed, -2, 0.5f));
        transform->setEulerRotation(osg::Vec3f(10 * seed, -20, 30));
        transform->setEulerRotationOrder("YZX");
        transform->updateRotation();
        transform->setScale(osg::Vec3f(1 + seed / 4, 1.5f, 0.75f));
        transform->setShear(osg::Vec3f(0.25f, seed / 8, -0.5f));
        transform->setScalePivot(osg::Vec3f(0.1f, seed, 0.3f));
        transform->setScalePivotTranslation(osg::Vec3f(0.4f, 0.5f, seed));
        transform->setRotatePivot(osg::Vec3f(seed, 0.7f, 0.8f));
        transform->setRotatePivotTranslation(osg::Vec3f(0.9f, seed, 1.1f));
        transform->setRotationOrientation(osg::Vec3f(5, 6 * seed, 7));
        transform->setRotationDirection(osg::Vec3f(seed, 1, 2));
        transform->setRotationDirectionMode(1);
        transform->setInheritType(static_cast<int>(seed));
    }

    /// Gives \a owner variants of these one-letter names, each with a transform of its own.
    static void addVariants(const osg::NodePtr &owner, const std::string &names)
    {
        ksNodeUtils::createTransformVariantsAttachment(owner);
        for (const char name : names)
            ksNodeUtils::insertTransformVariant(owner, ksNodeUtils::getTransformVariantCount(owner),
                                                variant(std::string(1, name)));
    }

    static osg::TransformVariantPtr variant(const std::string &name)
    {
        const osg::Transform3DPtr transform = osg::Transform3D::create();
        fill(transform, 4 + static_cast<float>(name.front() % 8) / 2);
        const osg::TransformVariantPtr result = osg::TransformVariant::create();
        const osg::CPEditor edit(result, osg::FieldBits::AllFields);
        result->setName(name);
        result->setTransform(transform);
        return result;
    }

    /// The names of the variants of \a owner in their order.
    static std::string order(const osg::NodePtr &owner)
    {
        std::string names;
        for (osg::UInt32 i = 0; i < ksNodeUtils::getTransformVariantCount(owner); ++i)
            names += ksNodeUtils::getTransformVariantName(owner, static_cast<int>(i));
        return names;
    }

    /// Takes the node out of the scene, which destroys it.
    void destroyNode()
    {
        const osg::UInt32 id = nodeId();
        {
            const osg::CPEditor edit(group, osg::Node::ChildrenFieldMask);
            group->subChild(node);
        }
        node = osg::NullFC;
        ASSERT_EQ(ksFindContainer<osg::FieldContainerPtr>(id), osg::NullFC);
    }

    osg::UInt32 nodeId() const { return node.get().getFieldContainerId(); }

    osg::NodeRefPtr root{nodeWith(osg::Transform3D::create())};
    osg::NodeRefPtr group{nodeWith(osg::Group::create())};
    osg::NodeRefPtr node{nodeWith(osg::Transform3D::create())};
    osg::NodeRefPtr child{nodeWith(osg::Transform3D::create())};
};
