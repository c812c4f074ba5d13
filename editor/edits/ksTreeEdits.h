// SPDX-License-Identifier: MIT
#pragma once

#include <editor/edits/ksMoveNodeUndoCommand.h>

#include <OpenSG/OSGNode.h>

/// The edits of the scene's tree that the editor offers. All commands belong to the caller. What is not
/// possible throws ksEditorError: to move or remove the root, or a node below itself, or to nest nodes deeper
/// than ksContainers::MostLevels.
namespace ksTreeEdits {

/// A copy of \a node and all below it, with cores, settings, tags and variants of their own; materials and
/// images are shared. What the cores refer to elsewhere is not copied: visibility references, links and what
/// is constrained. The copy has no parent.
osg::NodePtr copy(const osg::NodePtr &node);

/// Adds \a child, which has no parent, below \a parent.
QUndoCommand *makeAdd(const osg::NodePtr &parent, const osg::NodePtr &child);

/// Takes \a node out of the tree.
QUndoCommand *makeRemove(const osg::NodePtr &node);

/// Moves \a node below \a parent, before the child at \a index of those that are there without it; -1 is the
/// end. Null when it is there already.
QUndoCommand *makeMove(const osg::NodePtr &node, const osg::NodePtr &parent, int index);

} // namespace ksTreeEdits
