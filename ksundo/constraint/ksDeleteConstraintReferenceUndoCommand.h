// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/core/ksHandles.h>
#include <ksundo/core/ksHeldReference.h>

#include <OSGAimConstraint.h>
#include <OSGConstraintObject.h>

#include <vector>

/// Removes nodes from a constraint that refers to them: as its sources, as its target, and, if it is an aim
/// constraint, as its up vector objects. "Remove References from Constraint".
///
/// What refers to the nodes is settled when the command is built. It keeps those constraint objects and the
/// target alive. Redo takes the objects out wherever they stand then, and the target away, whichever it is
/// then; undo puts the very same ones back, where the constraint's add operations put them. A constraint that
/// has gone, or was null, makes a step a silent no-op. The command never merges.
class KSUNDO_EXPORT ksDeleteConstraintReferenceUndoCommand
    : public ksContainerUndoCommand<ksDeleteConstraintReferenceUndoCommand, osg::AbstractConstraintPtr, bool>
{
    KS_UNDO_COMMAND(ksDeleteConstraintReferenceUndoCommand)

public:
    /// Each of \a nodes stands there once; null ones are passed over.
    ksDeleteConstraintReferenceUndoCommand(osg::AbstractConstraintPtr constraint,
                                           const std::vector<osg::AttachmentContainerPtr> &nodes,
                                           QUndoCommand *parent = nullptr);

private:
    friend ksContainerUndoCommand;

    /// One reference for each time that a container was found: constraint objects in the order of their
    /// handles, and always the same target.
    template <class PtrT>
    using References = std::vector<ksHeldReference<PtrT>>;

    void apply(const osg::AbstractConstraintPtr &constraint, bool, bool removing) const;

    References<osg::AttachmentContainerPtr> targets;
    References<osg::ConstraintObjectPtr> upVectorObjects;
    References<osg::ConstraintObjectPtr> sources;
};
