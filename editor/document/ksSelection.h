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

    /// The ids, of which some nodes may have gone or be out of the scene.
    const Ids &ids() const { return selected; }

    /// Those that are nodes now.
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
    Ids selected;
};
