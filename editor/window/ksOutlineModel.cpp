// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/window/ksOutlineModel.h>

#include <ksundo/core/ksFindContainer.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace {

const char *const MimeType = "application/x-ksundo-nodes";

osg::MFNodePtr childrenOf(osg::UInt32 id)
{
    const auto node = ksFindContainer<osg::NodePtr>(id);
    return node != osg::NullFC ? *node->getMFChildren() : osg::MFNodePtr();
}

} // namespace

struct ksOutlineModel::Row
{
    osg::UInt32 id;
    Row *parent;
    int position;
    Rows children;
};

ksOutlineModel::ksOutlineModel(ksDocument &shownDocument, QObject *parent)
    : QAbstractItemModel(parent)
    , document(shownDocument)
{
    connect(&document, &ksDocument::replaced, this, &ksOutlineModel::reload);
    connect(&document, &ksDocument::changed, this, &ksOutlineModel::follow);
    reload();
}

ksOutlineModel::~ksOutlineModel() = default;

osg::NodePtr ksOutlineModel::nodeAt(const QModelIndex &index) const
{
    const Row *row = rowOf(index);
    return row == nullptr ? osg::NodePtr() : ksFindContainer<osg::NodePtr>(row->id);
}

QModelIndex ksOutlineModel::indexOf(osg::UInt32 id) const
{
    const auto found = rows.find(id);
    return found == rows.end() ? QModelIndex() : indexOf(*found->second);
}

QModelIndex ksOutlineModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    Row *parentRow = rowOf(parent);
    return createIndex(row, column,
                       parentRow == nullptr ? top.get()
                                            : parentRow->children[static_cast<std::size_t>(row)].get());
}

QModelIndex ksOutlineModel::parent(const QModelIndex &index) const
{
    const Row *row = rowOf(index);
    return row == nullptr || row->parent == nullptr ? QModelIndex() : indexOf(*row->parent);
}

int ksOutlineModel::rowCount(const QModelIndex &parent) const
{
    if (parent.column() > 0)
        return 0;
    const Row *row = rowOf(parent);
    return row == nullptr ? 1 : static_cast<int>(row->children.size());
}

int ksOutlineModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QVariant ksOutlineModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == NameColumn ? tr("Node") : tr("Shown");
}

QVariant ksOutlineModel::data(const QModelIndex &index, int role) const
{
    const osg::NodePtr node = nodeAt(index);
    if (node == osg::NullFC)
        return {};
    const QString name = ksContainers::nameOf(node);
    if (index.column() == NameColumn && role == Qt::EditRole)
        return name;
    if (index.column() == NameColumn && role == Qt::DisplayRole)
        return name.isEmpty() ? tr("(unnamed)") : name;
    if (index.column() == VisibilityColumn && role == Qt::CheckStateRole)
        return node->getTravMask() != 0 ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::AccessibleTextRole) {
        const QString shown = name.isEmpty() ? tr("(unnamed)") : name;
        return index.column() == NameColumn ? shown : tr("%1 is shown").arg(shown);
    }
    return {};
}

bool ksOutlineModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const osg::NodePtr node = nodeAt(index);
    if (node == osg::NullFC)
        return false;
    try {
        if (index.column() == NameColumn && role == Qt::EditRole)
            ksNodeEdits::rename(document, node, value.toString());
        else if (index.column() == VisibilityColumn && role == Qt::CheckStateRole)
            ksNodeEdits::show(document, {node}, value.toInt() == Qt::Checked);
        else
            return false;
    } catch (const ksEditorError &error) {
        Q_EMIT refused(QString::fromUtf8(error.what()));
        return false;
    }
    return true;
}

Qt::ItemFlags ksOutlineModel::flags(const QModelIndex &index) const
{
    const Row *row = rowOf(index);
    if (row == nullptr)
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    flags |= index.column() == NameColumn ? Qt::ItemIsEditable : Qt::ItemIsUserCheckable;
    if (row->parent != nullptr)
        flags |= Qt::ItemIsDragEnabled;
    return flags;
}

QStringList ksOutlineModel::mimeTypes() const
{
    return {QString::fromLatin1(MimeType)};
}

QMimeData *ksOutlineModel::mimeData(const QModelIndexList &indexes) const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QModelIndex &index : indexes)
        if (index.column() == NameColumn)
            stream << quint32(rowOf(index)->id);
    auto *data = new QMimeData;
    data->setData(QString::fromLatin1(MimeType), bytes);
    return data;
}

bool ksOutlineModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int,
                                  const QModelIndex &parent)
{
    const osg::NodePtr target = nodeAt(parent);
    if (action != Qt::MoveAction || target == osg::NullFC || !data->hasFormat(mimeTypes().first()))
        return false;
    std::vector<osg::NodePtr> nodes;
    QDataStream stream(data->data(mimeTypes().first()));
    while (!stream.atEnd()) {
        quint32 id = 0;
        stream >> id;
        if (const auto node = ksFindContainer<osg::NodePtr>(id); node != osg::NullFC)
            nodes.push_back(node);
    }
    try {
        ksNodeEdits::move(document, nodes, target, row);
    } catch (const ksEditorError &error) {
        Q_EMIT refused(QString::fromUtf8(error.what()));
    }
    // The rows move when the document tells of it, so that the view has none to remove.
    return false;
}

ksOutlineModel::Row *ksOutlineModel::rowOf(const QModelIndex &index)
{
    return static_cast<Row *>(index.internalPointer());
}

QModelIndex ksOutlineModel::indexOf(const Row &row, int column) const
{
    return createIndex(row.position, column, const_cast<Row *>(&row));
}

void ksOutlineModel::reload()
{
    beginResetModel();
    rows.clear();
    top = makeRow(document.root(), nullptr);
    endResetModel();
}

void ksOutlineModel::follow(const ksSceneChanges &changes)
{
    // A node that moves must have left its place before it comes to the next one.
    std::vector<osg::UInt32> parents;
    for (const auto &[id, mask] : changes.fields)
        if ((mask & osg::Node::ChildrenFieldMask) != 0 && rows.count(id) > 0)
            parents.push_back(id);
    for (const osg::UInt32 id : parents)
        if (const auto found = rows.find(id); found != rows.end())
            removeMissing(*found->second);
    for (const osg::UInt32 id : parents)
        if (const auto found = rows.find(id); found != rows.end())
            arrangeChildren(*found->second);
    for (const auto &[id, mask] : changes.fields)
        followNode(id, mask);
}

void ksOutlineModel::followNode(osg::UInt32 id, osg::BitVector mask)
{
    if (const auto found = rows.find(id); found != rows.end()) {
        if ((mask & (osg::Node::TravMaskFieldMask | osg::Node::AttachmentsFieldMask)) != 0)
            noteChange(*found->second);
    } else if (const auto name = ksFindContainer<osg::NamePtr>(id); name != osg::NullFC) {
        const osg::NodePtr node = ksContainers::ownerOf(name);
        if (const auto named = rows.find(node.getFieldContainerId()); named != rows.end())
            noteChange(*named->second);
    }
}

void ksOutlineModel::removeMissing(Row &parent)
{
    std::unordered_set<osg::UInt32> present;
    for (const osg::NodePtr &child : childrenOf(parent.id))
        present.insert(child.getFieldContainerId());
    Rows &children = parent.children;
    const auto isMissing = [&present](const std::unique_ptr<Row> &row) {
        return present.count(row->id) == 0;
    };
    for (auto begin = std::find_if(children.begin(), children.end(), isMissing); begin != children.end();
         begin = std::find_if(begin, children.end(), isMissing)) {
        const auto end = std::find_if_not(begin, children.end(), isMissing);
        const auto first = static_cast<std::size_t>(begin - children.begin());
        beginRemoveRows(indexOf(parent), static_cast<int>(first),
                        static_cast<int>(end - children.begin()) - 1);
        std::for_each(begin, end, [this](const std::unique_ptr<Row> &row) { forget(*row); });
        begin = children.erase(begin, end);
        number(children, first);
        endRemoveRows();
    }
}

void ksOutlineModel::arrangeChildren(Row &parent)
{
    Rows &children = parent.children;
    const osg::MFNodePtr nodes = childrenOf(parent.id);
    std::unordered_map<osg::UInt32, std::size_t> places;
    for (std::size_t at = 0; at < nodes.size();) {
        const auto isNew = [this, &nodes](std::size_t i) {
            return i < nodes.size() && rows.count(nodes[i].getFieldContainerId()) == 0;
        };
        std::vector<osg::NodePtr> added;
        while (isNew(at + added.size()))
            added.push_back(nodes[at + added.size()]);
        if (!added.empty()) {
            insertChildren(parent, at, added);
            at += added.size();
            continue;
        }
        const osg::UInt32 id = nodes[at].getFieldContainerId();
        if (children[at]->id == id) {
            ++at;
            continue;
        }
        // Rather the one row that has left for a later place than all those that it has passed.
        if (places.empty())
            for (std::size_t i = 0; i < nodes.size(); ++i)
                places.emplace(nodes[i].getFieldContainerId(), i);
        const auto from = static_cast<std::size_t>(rows.at(id)->position);
        const std::size_t goal = places.at(children[at]->id);
        if (from == at + 1 && goal > from)
            moveChild(parent, at, std::min(goal, children.size() - 1));
        else
            moveChild(parent, from, at);
    }
}

void ksOutlineModel::insertChildren(Row &parent, std::size_t at, const std::vector<osg::NodePtr> &nodes)
{
    Rows added;
    for (const osg::NodePtr &node : nodes)
        added.push_back(makeRow(node, &parent));
    beginInsertRows(indexOf(parent), static_cast<int>(at), static_cast<int>(at + nodes.size()) - 1);
    parent.children.insert(parent.children.begin() + static_cast<std::ptrdiff_t>(at),
                           std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
    number(parent.children, at);
    endInsertRows();
}

void ksOutlineModel::moveChild(Row &parent, std::size_t from, std::size_t to)
{
    const QModelIndex index = indexOf(parent);
    const std::size_t before = to > from ? to + 1 : to;
    beginMoveRows(index, static_cast<int>(from), static_cast<int>(from), index, static_cast<int>(before));
    const auto at = [&parent](std::size_t place) {
        return parent.children.begin() + static_cast<std::ptrdiff_t>(place);
    };
    if (to > from)
        std::rotate(at(from), at(from + 1), at(before));
    else
        std::rotate(at(to), at(from), at(from + 1));
    number(parent.children, std::min(from, to));
    endMoveRows();
}

void ksOutlineModel::noteChange(const Row &row)
{
    Q_EMIT dataChanged(indexOf(row), indexOf(row, VisibilityColumn));
}

std::unique_ptr<ksOutlineModel::Row> ksOutlineModel::makeRow(const osg::NodePtr &node, Row *parent)
{
    auto row = std::make_unique<Row>(Row{node.getFieldContainerId(), parent, 0, {}});
    rows.emplace(row->id, row.get());
    for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
        row->children.push_back(makeRow(node->getChild(i), row.get()));
    number(row->children, 0);
    return row;
}

void ksOutlineModel::forget(const Row &row)
{
    rows.erase(row.id);
    for (const std::unique_ptr<Row> &child : row.children)
        forget(*child);
}

void ksOutlineModel::number(Rows &rows, std::size_t from)
{
    for (std::size_t i = from; i < rows.size(); ++i)
        rows[i]->position = static_cast<int>(i);
}
