// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksInspectorRow.h>

#include <OpenSG/OSGNode.h>

#include <QString>

#include <functional>
#include <vector>

class ksInspectorSection;

/// What a page of the inspector is about.
struct ksInspectorSubjects
{
    /// The ids of the containers whose values it has, one for each selected node that has them, that of the
    /// current node last. None when the current node has no such thing.
    std::vector<osg::UInt32> ids;

    /// Further ids, with which the rows differ.
    std::vector<osg::UInt32> parts;

    /// What all these ids depend on.
    ksWatches watches;
};

/// A page of the inspector: which of the selection it is about, and its rows.
struct ksInspectorPage
{
    QString title;
    bool isFolded;
    std::function<ksInspectorSubjects(const std::vector<osg::NodePtr> &selection)> subjects;
    std::function<void(ksInspectorSection &section, const ksInspectorSubjects &subjects)> build;
};

/// The pages, in their order.
namespace ksInspectorPages {

ksInspectorPage node();
ksInspectorPage transform();
ksInspectorPage variants();
ksInspectorPage light();
ksInspectorPage links();
ksInspectorPage mesh();
ksInspectorPage material();
ksInspectorPage tags();
ksInspectorPage constraint();
ksInspectorPage allFields();

} // namespace ksInspectorPages
