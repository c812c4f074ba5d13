// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

/// Circles of containers that hold references on each other, none of which would ever be released.
namespace ksReferenceCycles {

/// Whether \a holder would hold a reference on itself, directly or through others, if it held one on \a held.
/// A node holds one on its children, core and attachments; these hold none on it.
bool wouldClose(const osg::FieldContainerPtr &holder, const osg::FieldContainerPtr &held);

/// Throws ksEditorError when it would.
void refuse(const osg::FieldContainerPtr &holder, const osg::FieldContainerPtr &held);

/// Takes away the references of lights, link sets, constraints and materials that close such a circle in the
/// scene below \a root, which is about to be let go of.
void release(const osg::NodePtr &root);

} // namespace ksReferenceCycles
