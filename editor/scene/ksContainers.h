// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksNodeSettings.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <QString>

#include <functional>
#include <string>
#include <unordered_set>

/// What the editor asks containers of any class.
namespace ksContainers {

/// How many nodes there may be from the root to a leaf: the scene graph takes trees apart by calls within
/// each other.
constexpr int MostLevels = 1000;

/// The node that \a container belongs to: a node itself, the first node that has it as core or attachment.
/// NullFC when there is none.
osg::NodePtr ownerOf(const osg::FieldContainerPtr &container);

/// The name that the user knows \a container by: its own, or that of the node that it belongs to. Empty when
/// there is none.
QString nameOf(const osg::FieldContainerPtr &container);

/// The name of \a container itself, in UTF-8; empty when it has none, and for NullFC.
std::string ownNameOf(const osg::AttachmentContainerPtr &container);

/// How messages call \a container: its type, its id, and its name if there is one. "nothing" for NullFC.
QString label(const osg::FieldContainerPtr &container);

/// Calls \a visit with \a root and all nodes below it, parents before their children.
void visitNodes(const osg::NodePtr &root, const std::function<void(const osg::NodePtr &)> &visit);

/// Whether a node above \a node, which is not above itself, has one of \a ids.
bool isBelowAny(const osg::NodePtr &node, const std::unordered_set<osg::UInt32> &ids);

/// A new name, to be attached to a container, that is \a name in UTF-8.
osg::RefPtr<osg::NamePtr> createName(const std::string &name);

/// A new node with \a core and \a settings, called \a name unless that is empty.
osg::NodePtr createNode(const std::string &name, const osg::NodeCorePtr &core,
                        const osg::ksNodeSettingsPtr &settings = osg::ksNodeSettings::create());

} // namespace ksContainers
