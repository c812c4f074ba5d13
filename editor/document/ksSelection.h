// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

#include <QObject>

#include <vector>

/// The nodes that the user has selected, in the order in which they were; the last one is the one whose
/// values are shown. They are known by their ids: an undo that brings a node back finds it selected again.
class ksSelection : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    using Ids = std::vector<osg::UInt32>;

    /// Begins anew, with nothing selected, in the scene below \a scene, on which it keeps no reference.
    void begin(const osg::NodePtr &scene);

    /// The ids, of which some nodes may have gone or be out of the scene.
    const Ids &ids() const { return selected; }

    /// Those that are nodes in the scene now.
    std::vector<osg::NodePtr> nodes() const;

    /// The last one of them; NullFC when there is none.
    osg::NodePtr current() const;

    bool contains(osg::UInt32 id) const;

    void set(const Ids &ids);
    void set(const osg::NodePtr &node) { set(Ids{node.getFieldContainerId()}); }
    void clear() { set(Ids()); }

    /// Adds a node, or takes it away.
    void toggle(osg::UInt32 id);

Q_SIGNALS:
    /// Not for the same nodes in the same order.
    void changed();

private:
    /// The node with the id \a id; NullFC when it is not in the scene.
    osg::NodePtr nodeInScene(osg::UInt32 id) const;

    osg::NodePtr root;
    Ids selected;
};
