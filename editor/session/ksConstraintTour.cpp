// SPDX-License-Identifier: MIT
#include "ksConstraintTour.h"

#include "ksCheckedHistory.h"
#include "ksFieldReader.h"
#include "ksTourExtras.h"

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>

#include <algorithm>

ksConstraintTour::ksConstraintTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                                   const ksTourExtras &tourExtras)
    : ksTourPart(checkedHistory, chosenTargets)
    , extras(tourExtras)
{}

void ksConstraintTour::run()
{
    removeFromAllRoles();
    removeOthers();
    // A constraint that does not refer to the node.
    add(new ksDeleteConstraintReferenceUndoCommand(extras.constraint(), {extras.light()}), 1);
    history.undo();
    history.redo();
}

void ksConstraintTour::removeFromAllRoles()
{
    const osg::AimConstraintPtr constraint = extras.constraint();
    const osg::NodePtr node = extras.constrained().front();
    const osg::MFConstraintObjectPtr sources = constraint->getSources();
    const osg::MFConstraintObjectPtr upVectors = constraint->getUpVectorSources();
    osg::MFConstraintObjectPtr left = sources;
    left.erase(left.begin());
    osg::MFConstraintObjectPtr restored = left;
    restored.push_back(sources.front());
    const auto verifyRemoved = [&] {
        history.verify(constraint->getSources() == left && constraint->getUpVectorSources().empty() &&
                           constraint->getTarget() == osg::NullFC,
                       QStringLiteral("the constraint does not refer to the node"));
    };
    history.expect({constraint.getFieldContainerId(), osg::AimConstraint::SourcesFieldId,
                    ksFieldReader::text(sources), ksFieldReader::text(restored),
                    QStringLiteral("a constraint adds sources at the end")});
    add(new ksDeleteConstraintReferenceUndoCommand(constraint, {node, osg::NodePtr()}), 1);
    verifyRemoved();
    history.undo();
    history.verify(constraint->getSources() == restored && constraint->getUpVectorSources() == upVectors &&
                       constraint->getTarget() == node,
                   QStringLiteral("the same objects are back in all three roles"));
    history.redo();
    verifyRemoved();
}

void ksConstraintTour::removeOthers()
{
    const osg::AimConstraintPtr constraint = extras.constraint();
    const osg::MFConstraintObjectPtr sources = constraint->getSources();
    // They come back in the order of their handles, in which they have been since the beginning.
    add(new ksDeleteConstraintReferenceUndoCommand(
            constraint, {extras.constrained().begin() + 1, extras.constrained().end()}),
        1);
    history.verify(constraint->getSources().empty(), QStringLiteral("there is no source"));
    history.undo();
    history.verify(constraint->getSources() == sources, QStringLiteral("both are back"));
    history.redo();
}
