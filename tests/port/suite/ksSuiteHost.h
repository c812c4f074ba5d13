// SPDX-License-Identifier: MIT
#pragma once

#include <OSGAimConstraint.h>
#include <OpenSG/OSGNode.h>
#include <ksMessage.h>
#include <ksNodePtr.h>

#include <boost/any.hpp>

#include <map>
#include <string>
#include <vector>

/// What the suite needs of a platform besides OpenSG 1.8 and what the library needs. Each platform has its
/// own.
namespace ksSuiteHost {

/// Starts the scene graph with change lists that record.
void start(int argc, char **argv);

/// A container with the fields int64, uint64, int32 ... uint8, real32, real64, flag, text and words.
osg::FieldContainerPtr makeProbe();

/// A container with a field image.
osg::FieldContainerPtr makeImageHolder();

/// An object by which a constraint refers to \a node.
osg::ConstraintObjectPtr makeConstraintObject(const osg::NodePtr &node);

/// An application's handle on \a node.
ksNodePtr handleOf(const osg::NodePtr &node);

/// Makes \a root the root of everything and of the first scene.
void setRoot(const osg::NodePtr &root);

/// Makes \a node one that cannot stand for the instances of its core.
void exclude(const osg::NodePtr &node);

/// Whether the end of an edit is to call no change handler.
void ignoreChanges(bool ignore);

/// How often change handlers of probes have been called since the last time.
int takeCalls();

/// What \a message holds.
std::map<std::string, boost::any> entriesOf(const ksMessage &message);

/// The errors logged since the last time.
std::vector<std::string> takeErrors();

} // namespace ksSuiteHost
