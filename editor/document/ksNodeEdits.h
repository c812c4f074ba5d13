// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

#include <QString>

#include <functional>
#include <vector>

class ksDocument;

/// Edits of whole nodes that several parts of the window offer. Each is one step, however many nodes it
/// concerns; none when it changes nothing. What is not possible throws ksEditorError and changes nothing.
namespace ksNodeEdits {

/// Runs \a work, which adds commands to the document, as one step called \a text. When it throws, what it has
/// done is taken back.
void asOneStep(ksDocument &document, const QString &text, const std::function<void()> &work);

void rename(ksDocument &document, const osg::NodePtr &node, const QString &name);

/// Shows \a nodes or hides them.
void show(ksDocument &document, const std::vector<osg::NodePtr> &nodes, bool isShown);

/// Moves \a nodes below \a parent, in their order, before the child that is at \a row now, or behind it if it
/// is one of them; -1 is the end.
void move(ksDocument &document, const std::vector<osg::NodePtr> &nodes, const osg::NodePtr &parent,
          int row = -1);

enum class Shift
{
    Up,
    Down,
    Out, ///< to behind its parent
    In   ///< to the children of the one before it
};

/// Moves \a node to a place beside its own, where there is one.
void shift(ksDocument &document, const osg::NodePtr &node, Shift where);

/// Takes \a nodes out of the scene, those that are below others along with these.
void remove(ksDocument &document, const std::vector<osg::NodePtr> &nodes);

/// Adds a node below \a parent. Returns it.
osg::NodePtr add(ksDocument &document, const osg::NodePtr &parent);

/// Adds a copy of each of \a nodes behind the last child of its parent. Returns the copies.
std::vector<osg::NodePtr> duplicate(ksDocument &document, const std::vector<osg::NodePtr> &nodes);

} // namespace ksNodeEdits
