// SPDX-License-Identifier: MIT
#pragma once

#include <checker/history/ksExpectations.h>

#include <OpenSG/OSGNode.h>

#include <functional>

class QUndoCommand;

/// What undoing a command does not bring back bit for bit, although the command does what it should: values
/// in world space, the angles of a turn by a quaternion, a rotation whose angles were edited, the order of a
/// constraint's sources, a flag that calls a method.
namespace ksInexactUndo {

/// To be called before \a command runs, which is about to edit the scene below \a root. The function that it
/// returns is to be called after that; it answers what will not come back.
std::function<ksExpectations()> watch(const QUndoCommand &command, const osg::NodePtr &root);

} // namespace ksInexactUndo
