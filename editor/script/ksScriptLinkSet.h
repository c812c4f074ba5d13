// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptContainer.h>

/// A light link set in a script: what a container has, among it the fields "lights" and "sceneNodes", and the
/// edits of these two. All take a node or an array of nodes. Instances of lights are replaced by the light,
/// and the root of the scene is left out.
class ksScriptLinkSet : public ksScriptContainer
{
    Q_OBJECT
    Q_CLASSINFO("add(nodes)", "adds nodes that are shone on; those that are already are left out")
    Q_CLASSINFO("remove(nodes)", "removes nodes that are shone on; one that is not is an error")
    Q_CLASSINFO("addLights(nodes)", "adds lights; those that are there already are left out")
    Q_CLASSINFO("removeLights(nodes)", "removes lights; one that is not there is an error")

public:
    using ksScriptContainer::ksScriptContainer;

    Q_INVOKABLE void add(const QJSValue &nodes);
    Q_INVOKABLE void addLights(const QJSValue &nodes);

    /// Nodes that are not listed are an error in the script, except instances of lights.
    Q_INVOKABLE void remove(const QJSValue &nodes);
    Q_INVOKABLE void removeLights(const QJSValue &nodes);

private:
    void edit(const QJSValue &nodes, bool lights, bool removing);
};
