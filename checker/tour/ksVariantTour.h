// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

#include <string>

class ksTransformTour;

/// The part of a tour with the commands on transform variants: on two nodes, variants are added, renamed,
/// given other flags and transforms, moved, and removed, until the attachment goes, too. What the commands
/// call back is checked.
class ksVariantTour : private ksTourPart
{
public:
    /// \a transformTour edits the variants' transforms. All must outlive the part.
    ksVariantTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                  const ksTourExtras &tourExtras, ksTransformTour &transformTour);

    void run();

private:
    void visit(const osg::NodePtr &node);
    void addVariants(const osg::NodePtr &node);
    void describeVariants(const osg::NodePtr &node);
    void moveVariants(const osg::NodePtr &node);
    void removeVariants(const osg::NodePtr &node);

    void insert(const osg::NodePtr &node, const char *name, unsigned long index, const std::string &names);
    void remove(const osg::NodePtr &node, unsigned long index, const std::string &names);

    /// Adds \a command and takes it back and forth. After each run, the variants' names must be \a names, and
    /// \a call is what was called back; after the undo, variants and attachment must be what they were, and
    /// \a callBack is what was called back.
    void edit(const osg::NodePtr &node, QUndoCommand *command, const std::string &names,
              const std::string &call, const std::string &callBack);

    ksTransformTour &transforms;
    ksCallLog log;
};
