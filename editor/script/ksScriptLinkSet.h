// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptContainer.h>

/// A light link set in a script: what a container has, among it the fields "lights" and "sceneNodes", and the
/// edits of these two. All take a node or an array of nodes. Instances of lights are replaced by the light,
/// and the root of the scene is left out.
class ksScriptLinkSet : public ksScriptContainer
{
    Q_OBJECT

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
