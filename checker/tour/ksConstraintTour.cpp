// SPDX-License-Identifier: MIT

#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksConstraintTour.h>
#include <checker/tour/ksTourExtras.h>

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>

void ksConstraintTour::run()
{
    removeFromAllRoles();
    removeOthers();
    // A constraint that does not refer to the node.
    remove({extras.light()});
    history.undo();
    history.redo();
}

void ksConstraintTour::remove(const std::vector<osg::NodePtr> &nodes)
{
    const int count = history.stack()->count();
    history.add(
        new ksDeleteConstraintReferenceUndoCommand(extras.constraint(), {nodes.begin(), nodes.end()}));
    history.verify(history.stack()->count() == count + 1, QStringLiteral("it is a step of its own"));
}

void ksConstraintTour::removeFromAllRoles()
{
    const osg::AimConstraintPtr constraint = extras.constraint();
    const osg::NodePtr node = extras.constrained().front();
    const osg::MFConstraintObjectPtr sources = constraint->getSources();
    const osg::MFConstraintObjectPtr upVectors = constraint->getUpVectorSources();
    osg::MFConstraintObjectPtr left;
    for (const osg::ConstraintObjectPtr &source : sources)
        if (source->getNode() != node)
            left.push_back(source);
    osg::MFConstraintObjectPtr restored = left;
    restored.push_back(sources.front());
    const auto verifyRemoved = [&] {
        history.verify(constraint->getSources() == left && constraint->getUpVectorSources().empty() &&
                           constraint->getTarget() == osg::NullFC,
                       QStringLiteral("the constraint does not refer to the node"));
    };
    remove({node});
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
    remove({extras.constrained().begin() + 1, extras.constrained().end()});
    history.verify(constraint->getSources().empty(), QStringLiteral("there is no source"));
    history.undo();
    history.verify(constraint->getSources() == sources, QStringLiteral("both are back"));
    history.redo();
}
