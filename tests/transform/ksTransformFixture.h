// SPDX-License-Identifier: MIT
#pragma once

#include "ksFillTransform.h"

#include <ksundo/core/ksFindContainer.h>

#include <OSGTransform3D.h>
#include <OSGTransformVariant.h>
#include <OSGTransformVariantsAttachment.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <ksNodeUtils.h>

#include <gmock/gmock.h>

#include <string>
#include <support/ksSceneFixture.h>
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
        ksFillTransform(ownTransformOf(root), 1);
        ksFillTransform(ownTransformOf(node), 2);
        ksFillTransform(ownTransformOf(child), 3);
        osg::setName(node.get(), "Box");
    }

    static osg::Transform3DPtr ownTransformOf(const osg::NodePtr &owner)
    {
        return osg::Transform3DPtr::dcast(owner->getCore());
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
        ksFillTransform(transform, 4 + static_cast<float>(name.front() % 8) / 2);
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
