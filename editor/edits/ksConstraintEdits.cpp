// SPDX-License-Identifier: MIT
#include <editor/edits/ksConstraintEdits.h>

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
