// SPDX-License-Identifier: MIT
#include "OSGAimConstraint.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(AimConstraint, AbstractConstraint, "", OSG_AIM_CONSTRAINT_FIELDS)

AimConstraint::AimConstraint(const AimConstraint &source)
    : Inherited(source)
{
    _mfUpVectorSources.clear();
}

AimConstraint::~AimConstraint(void)
{
    releaseObjects(_mfUpVectorSources);
}

ConstraintObjectPtr AimConstraint::findUpVectorConstraintObject(const AttachmentContainerPtr &node) const
{
    return findObject(_mfUpVectorSources, node);
}

void AimConstraint::addUpVectorObject(ConstraintObjectPtr object)
{
    addObject(_mfUpVectorSources, object);
}

void AimConstraint::removeUpVectorObject(ConstraintObjectPtr object)
{
    removeObject(_mfUpVectorSources, object);
}

OSG_END_NAMESPACE
