// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksAttachUndoCommand.h>
#include <editor/edits/ksFieldEdits.h>
#include <editor/edits/ksTreeEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <OSGTransform3D.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <QCoreApplication>

#include <algorithm>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("ksNodeEdits", text);
}

/// \a nodes without the root and without those that are below others of them.
std::vector<osg::NodePtr> topmost(const std::vector<osg::NodePtr> &nodes)
{
    std::vector<osg::NodePtr> result;
    const auto isIn = [&nodes](const osg::NodePtr &node) {
        return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
    };
    for (const osg::NodePtr &node : nodes) {
        osg::NodePtr above = node->getParent();
        if (above == osg::NullFC)
            continue;
        while (above->getParent() != osg::NullFC && !isIn(above))
            above = above->getParent();
        if (above->getParent() == osg::NullFC)
            result.push_back(node);
    }
    return result;
}

QString textOf(const char *what, const std::vector<osg::NodePtr> &nodes)
{
    constexpr int LongestList = 3;
    return tr(what) + QLatin1Char(' ') + ksUndoUtil::makeNameList(nodes, LongestList);
}

} // namespace

void ksNodeEdits::asOneStep(ksDocument &document, const QString &text, const std::function<void()> &work)
{
    ksEditHistory &history = document.history();
    history.beginMacro(text);
    try {
        work();
    } catch (...) {
        history.endMacro(false);
        throw;
    }
    history.endMacro();
}

void ksNodeEdits::rename(ksDocument &document, const osg::NodePtr &node, const QString &name)
{
    const QString text = tr("Rename '%1'").arg(ksContainers::nameOf(node));
    if (const osg::AttachmentPtr known = node->findAttachment(osg::Name::getClassType())) {
        if (!ksFieldEdits::holds(known, QStringLiteral("name"), name))
            document.add(ksFieldEdits::make(text, known, QStringLiteral("name"), name, ksMerging::Never));
        return;
    }
    if (name.isEmpty())
        return;
    const osg::NamePtr made = osg::Name::create();
    {
        CPEdit(made, osg::Name::SimpleFieldMask);
        made->getFieldPtr()->setValue(name.toStdString());
    }
    document.add(new ksAttachUndoCommand(node, made));
}

void ksNodeEdits::show(ksDocument &document, const std::vector<osg::NodePtr> &nodes, bool isShown)
{
    auto command = std::make_unique<ksMultiCommand>(textOf(isShown ? "Show" : "Hide", nodes));
    for (const osg::NodePtr &node : nodes)
        if ((node->getTravMask() != 0) != isShown)
            ksFieldEdits::make(QString(), node, QStringLiteral("travMask"), isShown ? 0xffffffffU : 0U,
                               ksMerging::Never, command.get());
    if (command->childCount() > 0)
        document.add(command.release());
}

void ksNodeEdits::move(ksDocument &document, const std::vector<osg::NodePtr> &nodes,
                       const osg::NodePtr &parent, int row)
{
    const std::vector<osg::NodePtr> moved = topmost(nodes);
    const osg::NodePtr next = row >= 0 && row < static_cast<int>(parent->getNChildren())
                                  ? parent->getChild(static_cast<osg::UInt32>(row))
                                  : osg::NodePtr();
    asOneStep(document, textOf("Move", moved), [&] {
        for (const osg::NodePtr &node : moved) {
            if (node == next)
                continue;
            int place = next == osg::NullFC ? -1 : static_cast<int>(parent->findChild(next));
            // Places are counted without the node itself.
            if (place >= 0 && node->getParent() == parent &&
                static_cast<int>(parent->findChild(node)) < place)
                --place;
            document.add(ksTreeEdits::makeMove(node, parent, place));
        }
    });
}

void ksNodeEdits::remove(ksDocument &document, const std::vector<osg::NodePtr> &nodes)
{
    const std::vector<osg::NodePtr> removed = topmost(nodes);
    if (!removed.empty())
        asOneStep(document, textOf("Remove", removed), [&] {
            for (const osg::NodePtr &node : removed)
                document.add(ksTreeEdits::makeRemove(node));
        });
}

osg::NodePtr ksNodeEdits::add(ksDocument &document, const osg::NodePtr &parent)
{
    const osg::NodePtr node = ksContainers::createNode(tr("Node").toStdString(), osg::Transform3D::create());
    document.add(ksTreeEdits::makeAdd(parent, node));
    return node;
}

std::vector<osg::NodePtr> ksNodeEdits::duplicate(ksDocument &document, const std::vector<osg::NodePtr> &nodes)
{
    std::vector<osg::NodePtr> copies;
    const std::vector<osg::NodePtr> originals = topmost(nodes);
    if (!originals.empty())
        asOneStep(document, textOf("Duplicate", originals), [&] {
            for (const osg::NodePtr &node : originals) {
                copies.push_back(ksTreeEdits::copy(node));
                document.add(ksTreeEdits::makeAdd(node->getParent(), copies.back()));
            }
        });
    return copies;
}
