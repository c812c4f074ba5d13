// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/inspector/ksInspector.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorSection.h>

#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

ksInspector::ksInspector(ksDocument &shownDocument, QWidget *parent)
    : QWidget(parent)
    , document(shownDocument)
    , edits(new ksInspectorEdits(document, this))
    , hint(new QLabel(tr("Nothing is selected."), this))
{
    auto *area = new QScrollArea(this);
    area->setAccessibleName(tr("Inspector"));
    area->verticalScrollBar()->setAccessibleName(tr("Inspector, scroll"));
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(area);
    auto *content = new QWidget(area);
    area->setWidget(content);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(4, 4, 4, 4);
    column->setSpacing(2);
    hint->setAlignment(Qt::AlignCenter);
    column->addWidget(hint);
    for (const auto &make : {&ksInspectorPages::node, &ksInspectorPages::transform,
                             &ksInspectorPages::variants, &ksInspectorPages::light, &ksInspectorPages::links,
                             &ksInspectorPages::mesh, &ksInspectorPages::material, &ksInspectorPages::tags,
                             &ksInspectorPages::constraint, &ksInspectorPages::allFields}) {
        const ksInspectorPage page = make();
        auto *section = new ksInspectorSection(page.title, page.isFolded, *edits, content);
        column->addWidget(section);
        const std::size_t place = pages.size();
        pages.push_back({page, section, {}, false});
        connect(section, &ksInspectorSection::foldedChanged, this, [this, place] { build(pages[place]); });
    }
    column->addStretch();
    connect(edits, &ksInspectorEdits::refused, this, &ksInspector::refused);
    connect(&document, &ksDocument::replaced, this, &ksInspector::reload);
    connect(&document, &ksDocument::changed, this, &ksInspector::follow);
    connect(&document.selection(), &ksSelection::changed, this, &ksInspector::reload);
    reload();
}

std::size_t ksInspector::readCount() const
{
    return edits->readCount();
}

void ksInspector::reload()
{
    edits->finish();
    nodes = document.selection().nodes();
    hint->setVisible(nodes.empty());
    for (Page &page : pages) {
        const ksInspectorSubjects subjects =
            nodes.empty() ? ksInspectorSubjects() : page.page.subjects(nodes);
        change(page, subjects);
    }
}

void ksInspector::follow(const ksSceneChanges &changes)
{
    // Selected nodes may have gone, or come back.
    if (document.selection().nodes() != nodes) {
        reload();
        return;
    }
    for (Page &page : pages) {
        if (ksConcern(changes, page.subjects.watches)) {
            const ksInspectorSubjects subjects = page.page.subjects(nodes);
            if (subjects.ids != page.subjects.ids || subjects.parts != page.subjects.parts) {
                change(page, subjects);
                continue;
            }
            page.subjects.watches = subjects.watches;
        }
        page.section->follow(changes);
    }
}

void ksInspector::change(Page &page, const ksInspectorSubjects &subjects)
{
    // The focus stays where it is, by name.
    const QWidget *focus = QApplication::focusWidget();
    const bool hasFocus = focus != nullptr && page.section->isAncestorOf(focus);
    const QString name = hasFocus ? focus->accessibleName() : QString();
    page.subjects = subjects;
    page.section->clear();
    page.isBuilt = false;
    page.section->setVisible(!subjects.ids.empty());
    build(page);
    if (hasFocus)
        page.section->focus(name);
}

void ksInspector::build(Page &page)
{
    page.section->showBody();
    if (page.isBuilt || page.section->isFolded() || page.subjects.ids.empty())
        return;
    page.page.build(*page.section, page.subjects);
    page.isBuilt = true;
}
