// SPDX-License-Identifier: MIT
#pragma once

#include <editor/document/ksSceneChanges.h>

#include <OpenSG/OSGNode.h>

#include <QAbstractItemModel>
#include <QString>

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

class ksDocument;

/// The tree of the document's nodes: names, which can be edited, and whether they are shown. Rows can be
/// dragged to other places of the tree.
///
/// The model follows the document row by row, and touches none that an edit leaves as it is.
class ksOutlineModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        VisibilityColumn,
        ColumnCount
    };

    /// \a shownDocument must outlive the model.
    explicit ksOutlineModel(ksDocument &shownDocument, QObject *parent = nullptr);
    ~ksOutlineModel() override;

    /// The node that \a index is of; NullFC when there is none.
    osg::NodePtr nodeAt(const QModelIndex &index) const;

    /// Where the node with the id \a id is; invalid when it is not in the tree.
    QModelIndex indexOf(osg::UInt32 id) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

Q_SIGNALS:
    /// An edit that the user asked for is not possible.
    void refused(const QString &reason);

private:
    struct Row;
    using Rows = std::vector<std::unique_ptr<Row>>;

    static Row *rowOf(const QModelIndex &index);
    QModelIndex indexOf(const Row &row, int column = NameColumn) const;

    void reload();
    void follow(const ksSceneChanges &changes);
    void followNode(osg::UInt32 id, osg::BitVector mask);
    void removeMissing(Row &parent);
    void arrangeChildren(Row &parent);
    void insertChildren(Row &parent, std::size_t at, const std::vector<osg::NodePtr> &nodes);
    void moveChild(Row &parent, std::size_t from, std::size_t to);
    void noteChange(const Row &row);

    std::unique_ptr<Row> makeRow(const osg::NodePtr &node, Row *parent);
    void forget(const Row &row);
    static void number(Rows &rows, std::size_t from);

    ksDocument &document;
    std::unique_ptr<Row> top;
    std::unordered_map<osg::UInt32, Row *> rows;
};
