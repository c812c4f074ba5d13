// SPDX-License-Identifier: MIT
#include "OSGAbstractConstraint.h"

#include <algorithm>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_ABSTRACT_CONTAINER(AbstractConstraint, NodeCore, "", OSG_ABSTRACT_CONSTRAINT_FIELDS)

AbstractConstraint::AbstractConstraint(const AbstractConstraint &source)
    : Inherited(source)
{
    _mfSources.clear();
    _sfTarget.setValue(NullFC);
}

AbstractConstraint::~AbstractConstraint(void)
{
    releaseObjects(_mfSources);
    setTarget(NullFC);
}

ConstraintObjectPtr AbstractConstraint::findSourceConstraintObject(const AttachmentContainerPtr &node) const
{
    return findObject(_mfSources, node);
}

void AbstractConstraint::addSourceObject(ConstraintObjectPtr object)
{
    addObject(_mfSources, object);
}

void AbstractConstraint::removeSourceObject(ConstraintObjectPtr object)
{
    removeObject(_mfSources, object);
}

bool AbstractConstraint::hasTarget(const AttachmentContainerPtr &node) const
{
    return node != NullFC && getTarget() == node;
}

void AbstractConstraint::setTarget(const AttachmentContainerPtr &target)
{
    setRefdCP(_sfTarget.getValue(), target);
}

ConstraintObjectPtr AbstractConstraint::findObject(const MFConstraintObjectPtr &objects,
                                                   const AttachmentContainerPtr &node)
{
    if (node == NullFC) {
        return NullFC;
    }
    const UInt32 id = node.getFieldContainerId();
    const auto found = std::find_if(objects.begin(), objects.end(), [id](const ConstraintObjectPtr &object) {
        return object != NullFC && object->getNodeId() == id;
    });
    return found != objects.end() ? *found : ConstraintObjectPtr();
}

void AbstractConstraint::addObject(MFConstraintObjectPtr &objects, const ConstraintObjectPtr &object)
{
    if (object != NullFC && objects.find(object) == objects.end()) {
        addRefCP(object);
        objects.push_back(object);
    }
}

void AbstractConstraint::removeObject(MFConstraintObjectPtr &objects, const ConstraintObjectPtr &object)
{
    const auto found = objects.find(object);
    if (object != NullFC && found != objects.end()) {
        const ConstraintObjectPtr leaving = *found;
        objects.erase(found);
        subRefCP(leaving);
    }
}

void AbstractConstraint::releaseObjects(const MFConstraintObjectPtr &objects)
{
    for (const ConstraintObjectPtr &object : objects) {
        subRefCP(object);
    }
}

OSG_END_NAMESPACE
