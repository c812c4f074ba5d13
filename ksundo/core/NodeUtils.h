// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/ksExport.h>

#include <OpenSG/OSGNode.h>

#include <QString>

/// Helpers on nodes that commands share.
namespace NodeUtils {

/// The name by which command texts call \a node, in UTF-8: the node's own name, else that of its core, else
/// the name of the core's type. Null for NullFC and for a node without a core, named or not. The string
/// belongs to the scene graph and is valid until the name changes.
KSUNDO_EXPORT const char *getName(const osg::NodePtr &node);

/// The same name as a text; empty when there is none.
KSUNDO_EXPORT QString displayName(const osg::NodePtr &node);

} // namespace NodeUtils
