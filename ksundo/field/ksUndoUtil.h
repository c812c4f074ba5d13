// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/ksExport.h>

#include <OpenSG/OSGNode.h>
#include <ksNodePtr.h>

#include <QString>

#include <string>
#include <utility>
#include <vector>

class QUndoCommand;

/// Factories that pick the command for a field's type, and names for command texts.
namespace ksUndoUtil {

/// Builds the command that sets the field of \a container called \a fieldName, an integer of any width or a
/// bool, to \a value. An integer field gets the low bits of \a value that it has room for, a bool field
/// whether \a value is not 0.
///
/// Without a \a parent the command is pushed onto ksUndoStack::get(0), which runs it; otherwise it is left to
/// the parent, which owns it. Nothing is built for NullFC, an unknown name, or a field of another class.
KSUNDO_EXPORT void makeIntTypeCommand(const QString &text, osg::FieldContainerPtr container,
                                      const std::string &fieldName, long long value,
                                      QUndoCommand *parent = nullptr);

/// The same for a field of type float, which gets the float nearest to \a value, or double.
KSUNDO_EXPORT void makeFloatTypeCommand(const QString &text, osg::FieldContainerPtr container,
                                        const std::string &fieldName, double value,
                                        QUndoCommand *parent = nullptr);

/// The name of \a node in apostrophes, two apostrophes when it has none. Unlike the lists below, this takes
/// the name as Latin-1.
KSUNDO_EXPORT QString makeNameList(const osg::NodePtr &node);
/// The same.
inline QString makeNameList(const ksNodePtr &node)
{
    return makeNameList(node.getNodePtr());
}

/// The names of the first \a maxCount of \a nodes, each in apostrophes, separated by commas, with an ellipsis
/// when there are more: 'A', 'B', ... and, for none of some, '', ... Null handles are left out; nodes without
/// a name are listed as ''. No nodes give two apostrophes.
KSUNDO_EXPORT QString makeNameList(const std::vector<osg::NodePtr> &nodes, unsigned long maxCount);
/// The same.
KSUNDO_EXPORT QString makeNameList(const std::vector<ksNodePtr> &nodes, unsigned long maxCount);

/// The same for all of \a nodes: 'A', 'B', 'C'.
inline QString makeNameList(const std::vector<osg::NodePtr> &nodes)
{
    return makeNameList(nodes, nodes.size());
}

/// The same.
inline QString makeNameList(const std::vector<ksNodePtr> &nodes)
{
    return makeNameList(nodes, nodes.size());
}

/// The same for nodes each with the index of one of its transform variants: where that variant has a name,
/// the node's name stands twice, to tell the entry from one of the node itself. Empty entries are left out.
KSUNDO_EXPORT QString makeNameList(const std::vector<std::pair<osg::NodePtr, int>> &nodes,
                                   unsigned long maxCount);

} // namespace ksUndoUtil
