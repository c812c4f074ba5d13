// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>

#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSimpleAttachments.h>

const char *NodeUtils::getName(const osg::NodePtr &node)
{
    if (node == osg::NullFC)
        return nullptr;
    const osg::NodeCorePtr core = node->getCore();
    if (core == osg::NullFC)
        return nullptr;
    if (const char *name = osg::getName(node))
        return name;
    if (const char *name = osg::getName(core))
        return name;
    return core->getType().getCName();
}

QString NodeUtils::displayName(const osg::NodePtr &node)
{
    return QString::fromUtf8(getName(node));
}
