// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGNode.h>

#include <QJsonArray>
#include <QJsonValue>
#include <QString>

#include <deque>
#include <functional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Writes what a file keeps of the containers of a scene beyond glTF, see ksGltfNames::extras().
class ksExtrasWriter
{
public:
    /// Tells whether the file holds the field with that id of the container in another place.
    using IsElsewhere = std::function<bool(const osg::FieldContainerPtr &, osg::UInt32 fieldId)>;

    /// \a nodes are those that the file has a node of each for.
    ksExtrasWriter(const std::vector<osg::NodePtr> &nodes, IsElsewhere isElsewhere);

    /// What the file keeps with \a node, one of the nodes: that node, and all that it leads to but other
    /// nodes of these and what has been written before.
    QString textOf(const osg::NodePtr &node);

    /// The id of \a container in the file; 0 for NullFC.
    int idOf(const osg::FieldContainerPtr &container);

private:
    QJsonArray write(const osg::FieldContainerPtr &container);
    QJsonValue references(const osg::Field &field);
    QJsonValue attachments(const osg::Field &field);
    QJsonValue parents(const osg::Field &field);
    int reach(osg::UInt32 id);

    /// What the fields of a new container of \a type have, by their ids.
    const std::vector<QJsonValue> &valuesWhenNew(const osg::FieldContainerType &type);

    const IsElsewhere isElsewhere;
    std::unordered_map<osg::UInt32, int> ids;
    std::unordered_set<osg::UInt32> placed;
    std::unordered_set<osg::UInt32> known;
    std::unordered_map<const osg::FieldContainerType *, std::vector<QJsonValue>> newValues;
    std::deque<osg::FieldContainerPtr> pending;
};
