// SPDX-License-Identifier: MIT
#include "ksOpenSGUtils.h"

namespace {

osg::UInt32 rootId = 0;

} // namespace

osg::NodePtr ksOpenSGUtils::getRoot()
{
    return osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(rootId));
}

void ksOpenSGUtils::setRoot(osg::NodePtr root)
{
    rootId = root.getFieldContainerId();
}
