// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksInspectorRow.h>

#include <QWidget>

#include <vector>

class QGridLayout;
class QToolButton;
class ksInspectorEdits;

/// A part of the inspector that can be folded: a title, and rows below it.
class ksInspectorSection : public QWidget
{
    Q_OBJECT

public:
    /// \a ownEdits must outlive the section.
    ksInspectorSection(const QString &title, bool isFolded, ksInspectorEdits &ownEdits,
                       QWidget *parent = nullptr);

    ksInspectorEdits &edits() { return ownEdits; }

    bool isFolded() const;

    /// Shows the rows unless the section is folded.
    void showBody();

    /// Begins anew, without rows.
    void clear();

    /// Gives the control with the accessible name \a name the focus.
    void focus(const QString &name);

    /// Adds a row for \a field, edited by \a editor, which the section takes over.
    void addRow(const ksInspectorField &field, ksValueEditor *editor);

    /// Has a list, too tall to stand beside its name, stand below it.
    void addTallRow(const ksInspectorField &field, ksValueEditor *editor);

    /// Adds a heading for the rows that follow.
    void addHeading(const QString &text);

    /// Reads all rows again.
    void refresh();

    /// Reads those that \a changes concern again.
    void follow(const ksSceneChanges &changes);

Q_SIGNALS:
    void foldedChanged();

private:
    void tie(const ksInspectorField &field, ksValueEditor *editor);

    ksInspectorEdits &ownEdits;
    QToolButton *header;
    QWidget *body = nullptr;
    QGridLayout *grid = nullptr;
    QString heading;
    std::vector<ksInspectorRow *> rows;
};
