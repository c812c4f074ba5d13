// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptContainer.h>

/// A constraint in a script: what a container has, among it the fields "sources" and "target", and the edit
/// that removes what it refers to.
class ksScriptConstraint : public ksScriptContainer
{
    Q_OBJECT
    Q_CLASSINFO("remove(nodes)", "removes a node, or those of an array, from the sources, the up vectors and "
                                 "the target; that there is nothing to remove is an error")

public:
    using ksScriptContainer::ksScriptContainer;

    Q_INVOKABLE void remove(const QJSValue &nodes);
};
