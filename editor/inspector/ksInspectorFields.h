// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksInspectorPages.h>

#include <ksundo/core/ksFindContainer.h>

#include <OSGTransformVariant.h>
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

/// The text of a step that sets \a field of \a target.
QString textOf(const osg::FieldContainerPtr &target, const QString &field);

/// That of ksFieldEdits.
QUndoCommand *make(const osg::FieldContainerPtr &target, const QString &field, const QVariant &value,
                   QUndoCommand *parent);

/// The value of \a field, as editors have it: numbers as double, those of 64 bits as text; vectors and
/// colours as lists of numbers; texts, lists of texts and flags as they are. Invalid for other fields.
QVariant read(osg::Field &field);

/// What people call the field \a name: its words, or what these are in their language.
QString label(const QString &name);

/// What people call \a container: its name, or what there is instead.
QString titleOf(const osg::FieldContainerPtr &container);

/// Adds what the name of \a container depends on to \a watches.
void watchName(ksWatches &watches, const osg::AttachmentContainerPtr &container);

/// Adds what the variants of \a node, and the fields \a mask of each, depend on to \a watches.
void watchVariants(ksWatches &watches, const osg::NodePtr &node, osg::BitVector mask);

/// The index of the variant \a meant of \a node, or else of the first one that is called like it; -1 when
/// there is none.
int indexOfVariant(const osg::NodePtr &node, const osg::TransformVariantPtr &meant);

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

/// \a node, or one of its first children, whose core is of the class of \a PtrT.
template <class PtrT>
osg::NodePtr nodeNear(const osg::NodePtr &node)
{
    constexpr osg::UInt32 MostChildren = 8;
    if (PtrT::dcast(node->getCore()) != osg::NullFC)
        return node;
    for (osg::UInt32 i = 0; i < std::min(node->getNChildren(), MostChildren); ++i)
        if (PtrT::dcast(node->getChild(i)->getCore()) != osg::NullFC)
            return node->getChild(i);
    return osg::NullFC;
}

/// The core of that node.
template <class PtrT>
PtrT coreNear(const osg::NodePtr &node)
{
    const osg::NodePtr found = nodeNear<PtrT>(node);
    return found == osg::NullFC ? PtrT() : PtrT::dcast(found->getCore());
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
