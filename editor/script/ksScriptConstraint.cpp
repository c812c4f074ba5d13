// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptConstraint.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>

namespace {

const ksScriptRegistry::Wrapper<osg::AbstractConstraintPtr, ksScriptConstraint> wrapper;

} // namespace

void ksScriptConstraint::remove(const QJSValue &nodes)
{
    host.guard([&] {
        const std::vector<osg::NodePtr> removed = ksScriptValues::nodesFrom(nodes);
        host.history().add(new ksDeleteConstraintReferenceUndoCommand(
            osg::AbstractConstraintPtr::dcast(container()), {removed.begin(), removed.end()}));
    });
}
