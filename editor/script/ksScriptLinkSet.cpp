// SPDX-License-Identifier: MIT
#include <editor/edits/ksLightEdits.h>
#include <editor/scene/ksContainers.h>
#include <editor/script/ksScriptLinkSet.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

using namespace ksScriptValues;

namespace {

const ksScriptRegistry::Wrapper<osg::LightLinkSetPtr, ksScriptLinkSet> wrapper;

} // namespace

void ksScriptLinkSet::add(const QJSValue &nodes)
{
    edit(nodes, false, false);
}

void ksScriptLinkSet::addLights(const QJSValue &nodes)
{
    edit(nodes, true, false);
}

void ksScriptLinkSet::remove(const QJSValue &nodes)
{
    edit(nodes, false, true);
}

void ksScriptLinkSet::removeLights(const QJSValue &nodes)
{
    edit(nodes, true, true);
}

void ksScriptLinkSet::edit(const QJSValue &nodes, bool lights, bool removing)
{
    host.guard([&] {
        const auto set = osg::LightLinkSetPtr::dcast(container());
        const std::vector<osg::NodePtr> given = nodesFrom(nodes);
        bool changes = false;
        for (const osg::NodePtr &node : given) {
            const bool isReplaced =
                lights && (node->getExternalFlags() & osg::NodeExternalFlags::Instance) != 0;
            const bool isListed = lights ? set->containsLight(node) : set->containsSceneNode(node);
            if (removing && !isReplaced && !isListed)
                throw ksEditorError(ksContainers::label(node) + QStringLiteral(" is not linked"));
            changes = changes || removing || isReplaced || !isListed;
        }
        if (!changes)
            return;
        const unsigned int list = lights ? ksLightEdits::LightList : ksLightEdits::SceneNodeList;
        host.add(nodes.isArray()
                     ? new ksAddNodeToLightLinkSetUndoCommand(set, given, list, removing)
                     : new ksAddNodeToLightLinkSetUndoCommand(set, given.front(), list, removing));
    });
}
