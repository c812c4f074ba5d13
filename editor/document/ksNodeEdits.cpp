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
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <QCoreApplication>

#include <algorithm>
#include <memory>
#include <unordered_set>

namespace {

struct NodeTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksNodeEdits)
};

/// \a nodes without the root and without those that are below others of them.
std::vector<osg::NodePtr> topmost(const std::vector<osg::NodePtr> &nodes)
{
    std::vector<osg::NodePtr> result;
    std::unordered_set<osg::UInt32> ids;
    for (const osg::NodePtr &node : nodes)
        if (node->getParent() != osg::NullFC)
            ids.insert(node.getFieldContainerId());
    for (const osg::NodePtr &node : nodes)
        if (node->getParent() != osg::NullFC && !ksContainers::isBelowAny(node, ids))
            result.push_back(node);
    return result;
}

QString textOf(const QString &what, const std::vector<osg::NodePtr> &nodes)
{
    constexpr int LongestList = 3;
    return what + QLatin1Char(' ') + ksUndoUtil::makeNameList(nodes, LongestList);
}

/// Makes \a nodes, which are to be below \a parent, follow each other before \a next, or at the end.
void place(ksDocument &document, const std::vector<osg::NodePtr> &nodes, const osg::NodePtr &parent,
           const osg::NodePtr &next)
{
    for (const osg::NodePtr &node : nodes) {
        int place = next == osg::NullFC ? -1 : static_cast<int>(parent->findChild(next));
        // Places are counted without the node itself.
        if (place >= 0 && node->getParent() == parent && static_cast<int>(parent->findChild(node)) < place)
            --place;
        document.add(ksTreeEdits::makeMove(node, parent, place));
    }
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
    const QString text = NodeTexts::tr("Rename '%1'").arg(ksContainers::nameOf(node));
    if (const osg::AttachmentPtr known = node->findAttachment(osg::Name::getClassType())) {
        if (!ksFieldEdits::holds(known, QStringLiteral("name"), name))
            document.add(ksFieldEdits::make(text, known, QStringLiteral("name"), name, ksMerging::Never));
        return;
    }
    if (name.isEmpty())
        return;
    auto *command = new ksAttachUndoCommand(node, ksContainers::createName(name.toStdString()).get());
    command->setText(text);
    document.add(command);
}

void ksNodeEdits::show(ksDocument &document, const std::vector<osg::NodePtr> &nodes, bool isShown)
{
    auto command = std::make_unique<ksMultiCommand>(
        textOf(isShown ? NodeTexts::tr("Show") : NodeTexts::tr("Hide"), nodes));
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
    const auto childAt = [&parent](int row) {
        return row >= 0 && row < static_cast<int>(parent->getNChildren())
                   ? parent->getChild(static_cast<osg::UInt32>(row))
                   : osg::NodePtr();
    };
    // The first behind them that stays.
    osg::NodePtr next = childAt(row);
    while (next != osg::NullFC && std::find(moved.begin(), moved.end(), next) != moved.end())
        next = childAt(++row);
    const int end = next == osg::NullFC ? static_cast<int>(parent->getNChildren()) : row;
    const int begin = end - static_cast<int>(moved.size());
    const auto isThere = [&childAt, place = begin](const osg::NodePtr &node) mutable {
        return childAt(place++) == node;
    };
    if (!std::all_of(moved.begin(), moved.end(), isThere))
        asOneStep(document, textOf(NodeTexts::tr("Move"), moved),
                  [&] { place(document, moved, parent, next); });
}

void ksNodeEdits::shift(ksDocument &document, const osg::NodePtr &node, Shift where)
{
    const osg::NodePtr parent = node->getParent();
    if (parent == osg::NullFC)
        return;
    const int row = parent->findChild(node);
    const osg::NodePtr above = parent->getParent();
    if (where == Shift::Up && row > 0)
        move(document, {node}, parent, row - 1);
    else if (where == Shift::Down)
        move(document, {node}, parent, row + 2);
    else if (where == Shift::Out && above != osg::NullFC)
        move(document, {node}, above, above->findChild(parent) + 1);
    else if (where == Shift::In && row > 0)
        move(document, {node}, parent->getChild(static_cast<osg::UInt32>(row - 1)));
}

void ksNodeEdits::remove(ksDocument &document, const std::vector<osg::NodePtr> &nodes)
{
    const std::vector<osg::NodePtr> removed = topmost(nodes);
    if (!removed.empty())
        asOneStep(document, textOf(NodeTexts::tr("Remove"), removed), [&] {
            for (const osg::NodePtr &node : removed)
                document.add(ksTreeEdits::makeRemove(node));
        });
}

osg::NodePtr ksNodeEdits::add(ksDocument &document, const osg::NodePtr &parent)
{
    const osg::NodeRefPtr node(
        ksContainers::createNode(NodeTexts::tr("Node").toStdString(), osg::Transform3D::create()));
    document.add(ksTreeEdits::makeAdd(parent, node.get()));
    return node.get();
}

std::vector<osg::NodePtr> ksNodeEdits::duplicate(ksDocument &document, const std::vector<osg::NodePtr> &nodes)
{
    std::vector<osg::NodePtr> copies;
    const std::vector<osg::NodePtr> originals = topmost(nodes);
    if (!originals.empty())
        asOneStep(document, textOf(NodeTexts::tr("Duplicate"), originals), [&] {
            for (const osg::NodePtr &node : originals) {
                copies.push_back(ksTreeEdits::copy(node));
                document.add(ksTreeEdits::makeAdd(node->getParent(), copies.back()));
            }
        });
    return copies;
}
