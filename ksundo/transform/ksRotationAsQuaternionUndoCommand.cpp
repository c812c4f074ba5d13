// SPDX-License-Identifier: MIT
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>

#include <OSGTransform3D.h>

namespace {

osg::Transform3DPtr transformOf(const osg::NodePtr &node)
{
    return node == osg::NullFC ? osg::Transform3DPtr() : osg::Transform3DPtr::dcast(node->getCore());
}

} // namespace

void ksRotationAsQuaternionUndoCommand::makeMessage(ksMessage &message) const
{
    // The node stays out of this message. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    ksUndoCommand::makeMessage(message);
    message.set("transformCommand", true, true);
}

osg::QuaternionBase<float> ksRotationAsQuaternionUndoCommand::get(osg::NodePtr node)
{
    const osg::Transform3DPtr transform = transformOf(node);
    return transform == osg::NullFC ? osg::QuaternionBase<float>() : transform->getRotation();
}

void ksRotationAsQuaternionUndoCommand::set(osg::NodePtr node, osg::QuaternionBase<float> rotation)
{
    const osg::Transform3DPtr transform = transformOf(node);
    if (transform != osg::NullFC)
        transform->setRotationAsQuaternion(rotation);
}
