// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

/// The application's whole scene graph.
class ksOpenSGUtils
{
public:
    ksOpenSGUtils() = delete;

    /// The root of the whole scene graph. Null before one is set and after it has gone.
    static osg::NodePtr getRoot();

    /// Makes \a root the root; null for none. It takes no reference: the application keeps the root alive.
    static void setRoot(osg::NodePtr root);
};
