// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksInspectorPages.h>

#include <ksundo/core/ksFindContainer.h>

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGNode.h>

#include <algorithm>

class ksValueEditor;

/// What the pages of the inspector have in common.
namespace ksInspectorFields {

/// A new command that sets the field of \a target called \a field to \a value.
using Make = std::function<QUndoCommand *(const osg::FieldContainerPtr &target, const QString &field,
                                          const QVariant &value, QUndoCommand *parent)>;

/// That of ksFieldEdits.
QUndoCommand *make(const osg::FieldContainerPtr &target, const QString &field, const QVariant &value,
                   QUndoCommand *parent);

/// The value of \a field, as editors have it: numbers as double, those of 64 bits as text; vectors and
/// colours as lists of numbers; texts, lists of texts and flags as they are. Invalid for other fields.
QVariant read(osg::Field &field);

/// What people call the field \a name: its words.
QString label(const QString &name);

/// What people call \a container: its name, or what there is instead.
QString titleOf(const osg::FieldContainerPtr &container);

/// Adds what the name of \a container depends on to \a watches.
void watchName(ksWatches &watches, const osg::AttachmentContainerPtr &container);

/// The mask of the field with the id \a field.
constexpr osg::BitVector maskOf(osg::UInt32 field)
{
    return osg::BitVector(1) << field;
}

/// The reading of a field of the targets, and what it depends on.
ksInspectorField fieldOf(const std::vector<osg::UInt32> &targets, const QString &field);

/// The widget for the field \a name of \a container; one that is read only for what cannot be edited.
ksValueEditor *makeEditor(const osg::FieldContainerPtr &container, const QString &name);

/// Adds a row for the field \a name that \a targets have in common.
void add(ksInspectorSection &section, const std::vector<osg::UInt32> &targets, const QString &name,
         const Make &makeCommand = &make);

/// Adds a row for every field of them but those that \a leavesOut names.
void addAll(ksInspectorSection &section, const std::vector<osg::UInt32> &targets,
            const QStringList &leavesOut = {}, const Make &makeCommand = &make);

/// The ids of \a containers, each once, the last one last; none when that is null.
std::vector<osg::UInt32> idsOf(const std::vector<osg::FieldContainerPtr> &containers);

/// What find() gives for each of \a nodes, as subjects that depend on the node's core, children and
/// attachments.
ksInspectorSubjects subjects(const std::vector<osg::NodePtr> &nodes,
                             const std::function<osg::FieldContainerPtr(const osg::NodePtr &)> &find);

/// The core of \a node, or that of one of its first children, which is of the class of \a PtrT.
template <class PtrT>
PtrT coreNear(const osg::NodePtr &node)
{
    constexpr osg::UInt32 MostChildren = 8;
    if (const PtrT own = PtrT::dcast(node->getCore()))
        return own;
    for (osg::UInt32 i = 0; i < std::min(node->getNChildren(), MostChildren); ++i)
        if (const PtrT core = PtrT::dcast(node->getChild(i)->getCore()))
            return core;
    return osg::NullFC;
}

/// Those of the containers \a ids that are of the class of \a PtrT.
template <class PtrT>
std::vector<PtrT> findAll(const std::vector<osg::UInt32> &ids)
{
    std::vector<PtrT> found;
    for (const osg::UInt32 id : ids)
        if (const auto container = ksFindContainer<PtrT>(id); container != osg::NullFC)
            found.push_back(container);
    return found;
}

} // namespace ksInspectorFields
