// SPDX-License-Identifier: MIT
#include "ksScriptConstraint.h"

#include "ksConstraintEdits.h"
#include "ksScriptValues.h"

void ksScriptConstraint::remove(const QJSValue &nodes)
{
    host.guard([&] {
        ksConstraintEdits::remove(host.history(), osg::AbstractConstraintPtr::dcast(container()),
                                  ksScriptValues::nodesFrom(nodes));
    });
}
