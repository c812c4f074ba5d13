// SPDX-License-Identifier: MIT
#include <editor/edits/ksConstraintEdits.h>
#include <editor/script/ksScriptConstraint.h>
#include <editor/script/ksScriptValues.h>

void ksScriptConstraint::remove(const QJSValue &nodes)
{
    host.guard([&] {
        ksConstraintEdits::remove(host.history(), osg::AbstractConstraintPtr::dcast(container()),
                                  ksScriptValues::nodesFrom(nodes));
    });
}
