// SPDX-License-Identifier: MIT
#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>
#include <ksundo/core/ksEndEdit.h>

#include <algorithm>

namespace {

using Objects = std::vector<ksHeldReference<osg::ConstraintObjectPtr>>;

void hold(Objects &objects, const osg::ConstraintObjectPtr &found)
{
    if (found != osg::NullFC)
        objects.emplace_back(found);
}

void sort(Objects &objects)
{
    std::sort(objects.begin(), objects.end(),
              [](const auto &left, const auto &right) { return left.get() < right.get(); });
}

/// Calls \a operation once with each of the objects that still exist.
template <class Operation>
void forEach(const Objects &objects, Operation operation)
{
    osg::ConstraintObjectPtr previous;
    for (const auto &reference : objects) {
        const osg::ConstraintObjectPtr object = reference.get();
        if (object != osg::NullFC && object != previous)
            operation(object);
        previous = object;
    }
}

} // namespace

ksDeleteConstraintReferenceUndoCommand::ksDeleteConstraintReferenceUndoCommand(
    osg::AbstractConstraintPtr constraint, const std::vector<osg::AttachmentContainerPtr> &nodes,
    QUndoCommand *parent)
    : ksContainerUndoCommand(QStringLiteral("Remove References from Constraint"), constraint, false, true,
                             parent)
{
    if (constraint == osg::NullFC)
        return;
    const auto aim = osg::AimConstraintPtr::dcast(constraint);
    for (const osg::AttachmentContainerPtr &node : nodes) {
        if (node == osg::NullFC)
            continue;
        hold(sources, constraint->findSourceConstraintObject(node));
        if (constraint->hasTarget(node))
            targets.emplace_back(constraint->getTarget());
        if (aim != osg::NullFC)
            hold(upVectorObjects, aim->findUpVectorConstraintObject(node));
    }
    sort(sources);
    sort(upVectorObjects);
}

void ksDeleteConstraintReferenceUndoCommand::apply(const osg::AbstractConstraintPtr &constraint, bool,
                                                   bool removing) const
{
    if (!sources.empty()) {
        forEach(sources, [&](const osg::ConstraintObjectPtr &object) {
            if (removing)
                constraint->removeSourceObject(object);
            else
                constraint->addSourceObject(object);
        });
        ksEndEdit(constraint, osg::AbstractConstraintBase::SourcesFieldMask);
    }
    const auto aim = osg::AimConstraintPtr::dcast(constraint);
    if (!upVectorObjects.empty() && aim != osg::NullFC) {
        forEach(upVectorObjects, [&](const osg::ConstraintObjectPtr &object) {
            if (removing)
                aim->removeUpVectorObject(object);
            else
                aim->addUpVectorObject(object);
        });
        ksEndEdit(constraint, osg::AimConstraintBase::UpVectorSourcesFieldMask);
    }
    if (!targets.empty()) {
        osg::setRefdCP(constraint->getSFTarget()->getValue(),
                       removing ? osg::AttachmentContainerPtr() : targets.front().get());
        ksEndEdit(constraint, osg::AbstractConstraintBase::TargetFieldMask);
    }
}
