// SPDX-License-Identifier: MIT
#include <editor/edits/ksConstraintEdits.h>
#include <editor/history/ksCheckedHistory.h>
#include <editor/history/ksFieldReader.h>

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>

#include <algorithm>

namespace {

/// New objects for \a nodes, in the order of their handles, in which several come back.
std::vector<osg::ConstraintObjectPtr> makeObjects(const std::vector<osg::NodePtr> &nodes)
{
    std::vector<osg::ConstraintObjectPtr> objects;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        objects.push_back(osg::ConstraintObject::create());
    std::sort(objects.begin(), objects.end());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        CPEdit(objects[i], osg::ConstraintObject::NodeIdFieldMask);
        objects[i]->setNode(nodes[i]);
    }
    return objects;
}

/// The sources of \a constraint after \a nodes have been removed and put back.
osg::MFConstraintObjectPtr restoredSources(const osg::AbstractConstraintPtr &constraint,
                                           const std::vector<osg::NodePtr> &nodes)
{
    osg::MFConstraintObjectPtr sources = constraint->getSources();
    std::vector<osg::ConstraintObjectPtr> removed;
    for (const osg::NodePtr &node : nodes) {
        const auto found = sources.find(constraint->findSourceConstraintObject(node));
        if (found != sources.end()) {
            removed.push_back(*found);
            sources.erase(found);
        }
    }
    std::sort(removed.begin(), removed.end());
    for (const osg::ConstraintObjectPtr &object : removed)
        sources.push_back(object);
    return sources;
}

} // namespace

osg::AimConstraintPtr ksConstraintEdits::makeAim(const osg::NodePtr &target,
                                                 const std::vector<osg::NodePtr> &sources,
                                                 const std::vector<osg::NodePtr> &upVectors)
{
    const osg::AimConstraintPtr aim = osg::AimConstraint::create();
    CPEdit(aim, osg::AimConstraint::SourcesFieldMask | osg::AimConstraint::UpVectorSourcesFieldMask |
                    osg::AimConstraint::TargetFieldMask);
    for (const osg::ConstraintObjectPtr &object : makeObjects(sources))
        aim->addSourceObject(object);
    for (const osg::ConstraintObjectPtr &object : makeObjects(upVectors))
        aim->addUpVectorObject(object);
    aim->setTarget(target);
    return aim;
}

void ksConstraintEdits::remove(ksCheckedHistory &history, const osg::AbstractConstraintPtr &constraint,
                               const std::vector<osg::NodePtr> &nodes)
{
    history.expect(ksExpectedDifference{constraint.getFieldContainerId(),
                                        osg::AbstractConstraint::SourcesFieldId,
                                        ksFieldReader::text(constraint->getSources()),
                                        ksFieldReader::text(restoredSources(constraint, nodes)),
                                        QStringLiteral("a constraint adds sources at the end")});
    history.add(new ksDeleteConstraintReferenceUndoCommand(constraint, {nodes.begin(), nodes.end()}));
}
