// SPDX-License-Identifier: MIT
#include "ksSuiteHost.h"

#include <OSGColorComponent.h>
#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>
#include <ksLog.h>
#include <ksOpenSGUtils.h>
#include <ksSceneDataManager.h>

#include <support/OSGProbeContainer.h>
#include <utility>

namespace {

std::vector<std::string> errors;

} // namespace

void ksSuiteHost::start(int argc, char **argv)
{
    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
    ksLog::setErrorHandler([](const std::string &line) { errors.push_back(line); });
}

osg::FieldContainerPtr ksSuiteHost::makeProbe()
{
    return osg::ProbeContainer::create();
}

osg::FieldContainerPtr ksSuiteHost::makeImageHolder()
{
    return osg::ColorComponent::create();
}

osg::ConstraintObjectPtr ksSuiteHost::makeConstraintObject(const osg::NodePtr &node)
{
    const auto object = osg::ConstraintObject::create();
    object->setNode(node);
    return object;
}

ksNodePtr ksSuiteHost::handleOf(const osg::NodePtr &node)
{
    return ksNodePtr(node);
}

void ksSuiteHost::setRoot(const osg::NodePtr &root)
{
    ksOpenSGUtils::setRoot(root);
    ksSceneDataManager::setSceneRoot(0, root);
}

void ksSuiteHost::exclude(const osg::NodePtr &node)
{
    node->setInternalFlags(osg::NodeInternalFlags::ExcludedFromInstanceSubstitution);
}

void ksSuiteHost::ignoreChanges(bool ignore)
{
    osg::FieldContainerPtr::_ignore_change = ignore;
}

int ksSuiteHost::takeCalls()
{
    return static_cast<int>(osg::ProbeContainer::takeCalls().size());
}

std::map<std::string, boost::any> ksSuiteHost::entriesOf(const ksMessage &message)
{
    return message.values();
}

std::vector<std::string> ksSuiteHost::takeErrors()
{
    return std::exchange(errors, {});
}
