// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <QString>
#include <QWidget>

class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;
class ksDocument;
class ksOutlineModel;
struct ksSceneChanges;

/// The tree of the document's nodes, and a line that filters them by their names. What is selected in it is
/// what is selected in the document, both ways.
class ksOutline : public QWidget
{
    Q_OBJECT

public:
    /// \a shownDocument must outlive it.
    explicit ksOutline(ksDocument &shownDocument, QWidget *parent = nullptr);
    ~ksOutline() override;

    QTreeView *tree() const { return view; }
    ksOutlineModel &model() const { return *outline; }

    /// Selects every node but the root.
    void selectAll();

    /// Begins to edit the name of the current node.
    void editName();

    /// Opens the branches that the node with the id \a id is in, and scrolls to it.
    void reveal(osg::UInt32 id);

Q_SIGNALS:
    /// An edit that the user asked for is not possible.
    void refused(const QString &reason);

private:
    void showSelection();
    void scrollToSelection();
    void takeSelection();
    void noteEdited(const ksSceneChanges &changes);
    QModelIndex proxyIndexOf(osg::UInt32 id) const;

    ksDocument &document;
    ksOutlineModel *outline;
    QSortFilterProxyModel *filtered;
    QLineEdit *filter;
    QTreeView *view;

    /// The node that the last step has changed; 0 when there is none.
    osg::UInt32 edited = 0;

    /// Whether the selections are being made equal.
    bool isSyncing = false;

    /// Whether rows have come or gone since they were made equal.
    bool isStale = false;
};
