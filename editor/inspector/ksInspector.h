// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksInspectorPages.h>

#include <QWidget>

#include <cstddef>
#include <vector>

class QLabel;
class ksDocument;
class ksInspectorEdits;
class ksInspectorSection;

/// Shows the values of the current node, the last one of the document's selection, in sections that can be
/// folded. An edit is one step, and goes for all selected nodes that have the same field.
///
/// The rows follow the document's changes: those that a change concerns are read again, whoever made it, and
/// no others.
class ksInspector : public QWidget
{
    Q_OBJECT

public:
    /// \a shownDocument must outlive the inspector.
    explicit ksInspector(ksDocument &shownDocument, QWidget *parent = nullptr);

    /// How many rows have been read so far.
    std::size_t readCount() const;

Q_SIGNALS:
    /// An edit that the user asked for is not possible.
    void refused(const QString &reason);

private:
    struct Page
    {
        ksInspectorPage page;
        ksInspectorSection *section;
        ksInspectorSubjects subjects;

        /// Whether the rows are there.
        bool isBuilt;
    };

    void reload();
    void follow(const ksSceneChanges &changes);
    void change(Page &page, const ksInspectorSubjects &subjects);
    static void build(Page &page);

    ksDocument &document;
    ksInspectorEdits *edits;
    QLabel *hint;
    std::vector<Page> pages;

    /// The nodes that the pages are about.
    std::vector<osg::NodePtr> nodes;
};
