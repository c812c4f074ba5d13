// SPDX-License-Identifier: MIT
#include "ksSuiteHost.h"

#include <portConstraintObject.h>
#include <portPlatform.h>
#include <utility>

void ksSuiteHost::start(int argc, char **argv)
{
    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
}

osg::FieldContainerPtr ksSuiteHost::makeProbe()
{
    return osg::Probe::create();
}

osg::FieldContainerPtr ksSuiteHost::makeImageHolder()
{
    return osg::Probe::create();
}

osg::ConstraintObjectPtr ksSuiteHost::makeConstraintObject(const osg::NodePtr &node)
{
    const auto object = osg::ConstraintObject::create();
    object->setReferred(node.getFieldContainerId());
    return object;
}

ksNodePtr ksSuiteHost::handleOf(const osg::NodePtr &node)
{
    return {node};
}

void ksSuiteHost::setRoot(const osg::NodePtr &root)
{
    ksOpenSGUtils::root = root;
}

void ksSuiteHost::exclude(const osg::NodePtr &node)
{
    node->setMarks(node->getMarks() | ksPlatform::excludedMark);
}

void ksSuiteHost::ignoreChanges(bool ignore)
{
    ksPlatform::isIgnoring = ignore;
}

int ksSuiteHost::takeCalls()
{
    return std::exchange(osg::Probe::calls, 0);
}

std::map<std::string, boost::any> ksSuiteHost::entriesOf(const ksMessage &message)
{
    return {message.entries.begin(), message.entries.end()};
}

std::vector<std::string> ksSuiteHost::takeErrors()
{
    return std::exchange(ksLog::lines, {});
}
