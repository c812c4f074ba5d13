// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/scene/ksContainers.h>
#include <editor/window/ksOutline.h>
#include <editor/window/ksOutlineModel.h>

#include <ksundo/core/ksFindContainer.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>
#include <QVector>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace {

/// The node that shows that the fields \a mask of the container with the id \a id have changed; NullFC when
/// there is none, and for fields of a node that follow from edits of others.
osg::NodePtr changedNode(osg::UInt32 id, osg::BitVector mask)
{
    const auto container = ksFindContainer<osg::FieldContainerPtr>(id);
    const osg::NodePtr node = osg::NodePtr::dcast(container);
    constexpr osg::BitVector Own = osg::Node::TravMaskFieldMask | osg::Node::AttachmentsFieldMask |
                                   osg::Node::CoreFieldMask | osg::Node::ParentFieldMask;
    if (node != osg::NullFC)
        return (mask & Own) != 0 ? node : osg::NodePtr();
    return container == osg::NullFC ? osg::NodePtr() : ksContainers::ownerOf(container);
}

/// A tree whose rows are of one height.
class Tree : public QTreeView
{
public:
    using QTreeView::QTreeView;

protected:
    /// QTreeView looks for the row among all that are open, to see whether its height is another one, and for
    /// the place of a single cell. Whole rows are drawn along with the others that can be seen.
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QVector<int> &roles) override
    {
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QAbstractItemView::dataChanged(topLeft.siblingAtColumn(ksOutlineModel::NameColumn),
                                       bottomRight.siblingAtColumn(ksOutlineModel::VisibilityColumn), roles);
    }
};

} // namespace

ksOutline::ksOutline(ksDocument &shownDocument, QWidget *parent)
    : QWidget(parent)
    , document(shownDocument)
    , outline(new ksOutlineModel(shownDocument, this))
    , filtered(new QSortFilterProxyModel(this))
    , filter(new QLineEdit(this))
    , view(new Tree(this))
{
    // The view forgets what goes, and chooses something else, but a step back, or another filter, brings it
    // back selected. These must be told before the view is.
    connect(filtered, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this] { isSyncing = true; });
    connect(filtered, &QAbstractItemModel::rowsRemoved, this, [this] {
        isSyncing = false;
        isStale = true;
    });
    connect(filtered, &QAbstractItemModel::rowsInserted, this, [this] { isStale = true; });
    filtered->setRecursiveFilteringEnabled(true);
    filtered->setFilterCaseSensitivity(Qt::CaseInsensitive);
    filtered->setFilterKeyColumn(ksOutlineModel::NameColumn);
    filtered->setSourceModel(outline);
    filter->setPlaceholderText(tr("Filter by name"));
    filter->setAccessibleName(tr("Filter of the outline"));
    filter->setClearButtonEnabled(true);

    view->setModel(filtered);
    view->setAccessibleName(tr("Outline"));
    view->setUniformRowHeights(true);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    view->setDragDropMode(QAbstractItemView::InternalMove);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    view->header()->setStretchLastSection(false);
    view->header()->setSectionResizeMode(ksOutlineModel::NameColumn, QHeaderView::Stretch);
    view->header()->setSectionResizeMode(ksOutlineModel::VisibilityColumn, QHeaderView::Fixed);
    view->header()->resizeSection(ksOutlineModel::VisibilityColumn,
                                  view->header()->sectionSizeHint(ksOutlineModel::VisibilityColumn));
    view->header()->setAccessibleName(tr("Columns of the outline"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(filter);
    layout->addWidget(view);

    connect(filter, &QLineEdit::textChanged, this, [this](const QString &text) {
        {
            const QScopedValueRollback<bool> guard(isSyncing, true);
            filtered->setFilterFixedString(text);
            if (text.isEmpty())
                view->expandToDepth(0);
            else
                view->expandAll();
        }
        showSelection();
        scrollToSelection();
    });
    connect(outline, &ksOutlineModel::refused, this, &ksOutline::refused);
    connect(filtered, &QAbstractItemModel::modelReset, this, [this] { view->expandToDepth(0); });
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ksOutline::takeSelection);
    connect(&document.selection(), &ksSelection::changed, this, [this] {
        // What the user clicks on stays where it is.
        if (isSyncing)
            return;
        showSelection();
        scrollToSelection();
    });
    connect(&document, &ksDocument::changed, this, &ksOutline::noteEdited);
    connect(&document, &ksDocument::stepped, this, [this](bool isReturn) {
        // Nothing has changed in a step of which the document tells nothing.
        if (const osg::UInt32 changed = std::exchange(edited, 0); isReturn && changed != 0)
            reveal(changed);
    });
    view->expandToDepth(0);
}

ksOutline::~ksOutline() = default;

void ksOutline::selectAll()
{
    ksSelection::Ids ids;
    ksContainers::visitNodes(document.root(), [this, &ids](const osg::NodePtr &node) {
        if (node != document.root())
            ids.push_back(node.getFieldContainerId());
    });
    document.selection().set(ids);
}

void ksOutline::editName()
{
    const osg::NodePtr node = document.selection().current();
    if (node == osg::NullFC)
        return;
    reveal(node.getFieldContainerId());
    if (const QModelIndex index = proxyIndexOf(node.getFieldContainerId()); index.isValid()) {
        view->setFocus();
        view->edit(index);
    }
}

void ksOutline::reveal(osg::UInt32 id)
{
    if (const QModelIndex index = proxyIndexOf(id); index.isValid())
        view->scrollTo(index);
}

QModelIndex ksOutline::proxyIndexOf(osg::UInt32 id) const
{
    return filtered->mapFromSource(outline->indexOf(id));
}

void ksOutline::showSelection()
{
    if (isSyncing)
        return;
    const QScopedValueRollback<bool> guard(isSyncing, true);
    struct Chosen
    {
        QModelIndex parent;
        QModelIndex index;
    };
    std::vector<Chosen> chosen;
    for (const osg::UInt32 id : document.selection().ids())
        if (const QModelIndex index = proxyIndexOf(id); index.isValid())
            chosen.push_back({index.parent(), index});
    if (!chosen.empty())
        view->selectionModel()->setCurrentIndex(chosen.back().index, QItemSelectionModel::NoUpdate);
    // Rows that follow each other as one range, since all ranges are looked through for each row.
    std::sort(chosen.begin(), chosen.end(), [](const Chosen &left, const Chosen &right) {
        return left.parent == right.parent ? left.index.row() < right.index.row()
                                           : left.parent < right.parent;
    });
    QItemSelection selection;
    for (auto first = chosen.begin(); first != chosen.end();) {
        auto last = first;
        while (last + 1 != chosen.end() && (last + 1)->parent == first->parent &&
               (last + 1)->index.row() == last->index.row() + 1)
            ++last;
        selection.append(
            QItemSelectionRange(first->index, last->index.siblingAtColumn(ksOutlineModel::VisibilityColumn)));
        first = last + 1;
    }
    view->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void ksOutline::scrollToSelection()
{
    if (const osg::NodePtr node = document.selection().current(); node != osg::NullFC)
        reveal(node.getFieldContainerId());
}

void ksOutline::takeSelection()
{
    if (isSyncing)
        return;
    const QScopedValueRollback<bool> guard(isSyncing, true);
    // Those that were selected already keep their order, so that the last one is the latest.
    ksSelection::Ids chosen;
    for (const QItemSelectionRange &range : view->selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const QModelIndex index = filtered->index(row, ksOutlineModel::NameColumn, range.parent());
            chosen.push_back(outline->nodeAt(filtered->mapToSource(index)).getFieldContainerId());
        }
    std::sort(chosen.begin(), chosen.end());
    ksSelection::Ids ids;
    const auto isChosen = [&chosen](osg::UInt32 id) {
        return std::binary_search(chosen.begin(), chosen.end(), id);
    };
    std::copy_if(document.selection().ids().begin(), document.selection().ids().end(),
                 std::back_inserter(ids), isChosen);
    ksSelection::Ids known = ids;
    std::sort(known.begin(), known.end());
    std::set_difference(chosen.begin(), chosen.end(), known.begin(), known.end(), std::back_inserter(ids));
    document.selection().set(ids);
}

void ksOutline::noteEdited(const ksSceneChanges &changes)
{
    if (std::exchange(isStale, false))
        showSelection();
    // The first of several, whatever their order is here.
    edited = 0;
    for (const auto &[id, mask] : changes.fields)
        if (const osg::NodePtr node = changedNode(id, mask); node != osg::NullFC) {
            const osg::UInt32 found = node.getFieldContainerId();
            if (outline->indexOf(found).isValid() && (edited == 0 || found < edited))
                edited = found;
        }
}
