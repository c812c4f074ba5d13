// SPDX-License-Identifier: MIT
#include <editor/scene/ksContainers.h>
#include <editor/script/ksScriptConstraint.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>

#include <OSGAimConstraint.h>

namespace {

const ksScriptRegistry::Wrapper<osg::AbstractConstraintPtr, ksScriptConstraint> wrapper;

bool refersTo(const osg::AbstractConstraintPtr &constraint, const osg::NodePtr &node)
{
    const auto aim = osg::AimConstraintPtr::dcast(constraint);
    return constraint->hasTarget(node) || constraint->findSourceConstraintObject(node) != osg::NullFC ||
           (aim != osg::NullFC && aim->findUpVectorConstraintObject(node) != osg::NullFC);
}

} // namespace

void ksScriptConstraint::remove(const QJSValue &nodes)
{
    host.guard([&] {
        const std::vector<osg::NodePtr> removed = ksScriptValues::nodesFrom(nodes);
        const auto constraint = osg::AbstractConstraintPtr::dcast(container());
        for (const osg::NodePtr &node : removed)
            if (!refersTo(constraint, node))
                throw ksEditorError(ksContainers::label(constraint) + QStringLiteral(" does not refer to ") +
                                    ksContainers::label(node));
        if (!removed.empty())
            host.add(new ksDeleteConstraintReferenceUndoCommand(constraint, {removed.begin(), removed.end()},
                                                                host.parent()));
    });
}
