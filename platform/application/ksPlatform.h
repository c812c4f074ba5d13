// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>
#include <ksLights.h>
#include <ksNodeUtils.h>

/// What the library needs of the scene graph and the application beyond OpenSG 1.8, each under one name. An
/// application that brings its own scene graph says here how it is done there.
class ksPlatform
{
public:
    ksPlatform() = delete;

    /// The id of \a container; 0 for a null handle, which a scene graph need not be able to ask.
    template <class PtrT>
    static osg::UInt32 idOf(const PtrT &container)
    {
        return container.getFieldContainerId();
    }

    /// Whether the end of an edit is to call no change handler, for as long as the application says so.
    static bool ignoresChanges() { return osg::FieldContainerPtr::_ignore_change; }

    /// Announces a change of a node's external flags.
    static constexpr osg::BitVector externalFlagsMask = osg::Node::ExternalFlagsFieldMask;

    /// The external flags of \a node, which must not be null: bit 0x2 marks instances, bit 0x10 the
    /// visibility references of lights.
    static osg::UInt32 externalFlags(const osg::NodePtr &node) { return node->getExternalFlags(); }

    /// Sets the external flags of \a node, which must not be null. The edit is up to the caller.
    static void setExternalFlags(const osg::NodePtr &node, osg::UInt32 flags)
    {
        node->setExternalFlags(flags);
    }

    /// Whether \a node, which must not be null, cannot stand for the instances of its core in lists of
    /// lights.
    static bool isExcludedFromInstanceSubstitution(const osg::NodePtr &node)
    {
        return ksLights::isExcludedFromInstanceSubstitution(node);
    }

    /// Writes all components of the transform \a index of \a node. \a values has each of them as a member of
    /// its name, so that their order is known here alone.
    template <class Values>
    static void setTransformation(const osg::NodePtr &node, const Values &values, int index)
    {
        ksNodeUtils::setTransformNodeValues(
            node, values.translation, values.rotation, values.scale, values.shear, values.scalePivot,
            values.rotatePivot, values.scalePivotTranslation, values.rotatePivotTranslation,
            values.inheritType, values.eulerRotationOrder, values.rotationDirectionOn,
            values.rotationDirection, values.rotationDirectionMode, index);
    }
};
