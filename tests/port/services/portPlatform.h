// SPDX-License-Identifier: MIT
#pragma once

#include <portServices.h>

struct ksPlatform
{
    static constexpr osg::UInt32 excludedMark = 0x100;

    template <class PtrT>
    static osg::UInt32 idOf(const PtrT &container)
    {
        return container == osg::NullFC ? 0 : container.getFieldContainerId();
    }

    static bool ignoresChanges() { return isIgnoring; }
    static bool isIgnoring;

    inline static const osg::BitVector externalFlagsMask = osg::Node::MarksFieldMask;
    static osg::UInt32 externalFlags(const osg::NodePtr &node) { return node->getMarks(); }
    static bool setExternalFlags(const osg::NodePtr &node, osg::UInt32 flags)
    {
        return node->setMarks(flags);
    }

    static bool isExcludedFromInstanceSubstitution(const osg::NodePtr &node)
    {
        return (node->getMarks() & excludedMark) != 0;
    }

    template <class Values>
    static bool setTransformation(const osg::NodePtr &node, const Values &values, int index)
    {
        return ksNodeUtils::setTransformNodeValues(
            node, index, values.scale, values.rotation, values.translation, values.shear, values.rotatePivot,
            values.rotatePivotTranslation, values.scalePivot, values.scalePivotTranslation,
            values.eulerRotationOrder, values.inheritType, values.rotationDirectionMode,
            values.rotationDirection, values.rotationDirectionOn);
    }
};
