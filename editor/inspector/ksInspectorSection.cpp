// SPDX-License-Identifier: MIT
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/inspector/ksValueEditor.h>

#include <QGridLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int NameWidth = 124;

} // namespace

ksInspectorSection::ksInspectorSection(const QString &title, bool isFolded, ksInspectorEdits &ownEdits,
                                       QWidget *parent)
    : QWidget(parent)
    , ownEdits(ownEdits)
    , header(new QToolButton(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    header->setText(title);
    header->setAccessibleName(title);
    header->setCheckable(true);
    header->setChecked(!isFolded);
    header->setAutoRaise(true);
    header->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    header->setFocusPolicy(Qt::StrongFocus);
    QFont font = header->font();
    font.setBold(true);
    header->setFont(font);
    const auto turnArrow = [this] {
        header->setArrowType(header->isChecked() ? Qt::DownArrow : Qt::RightArrow);
    };
    turnArrow();
    connect(header, &QToolButton::toggled, this, turnArrow);
    connect(header, &QToolButton::toggled, this, &ksInspectorSection::foldedChanged);
    clear();
}

bool ksInspectorSection::isFolded() const
{
    return !header->isChecked();
}

void ksInspectorSection::clear()
{
    for (ksInspectorRow *row : rows)
        row->retire();
    rows.clear();
    heading.clear();
    if (body != nullptr) {
        // It may be one of its controls that led here.
        body->hide();
        body->setParent(nullptr);
        body->deleteLater();
    }
    body = new QWidget(this);
    grid = new QGridLayout(body);
    grid->setContentsMargins(10, 4, 8, 8);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    grid->setColumnMinimumWidth(0, NameWidth);
    grid->setColumnStretch(1, 1);
    layout()->addWidget(body);
    showBody();
}

void ksInspectorSection::showBody()
{
    body->setVisible(!isFolded());
}

void ksInspectorSection::focus(const QString &name)
{
    for (QWidget *control : findChildren<QWidget *>())
        if (control->accessibleName() == name && control->focusPolicy() != Qt::NoFocus) {
            control->setFocus();
            return;
        }
}

void ksInspectorSection::addRow(const ksInspectorField &field, ksValueEditor *editor)
{
    const int row = grid->rowCount();
    QLabel *label = editor->ownLabel();
    if (label == nullptr)
        label = new QLabel(field.name, body);
    label->setToolTip(label->toolTip().isEmpty() ? field.name : label->toolTip());
    label->setFixedWidth(NameWidth);
    label->setWordWrap(true);
    grid->addWidget(label, row, 0, Qt::AlignTop);
    grid->addWidget(editor, row, 1);
    label->setMinimumHeight(editor->sizeHint().height() < 2 * label->sizeHint().height()
                                ? editor->sizeHint().height()
                                : label->sizeHint().height());
    tie(field, editor);
}

void ksInspectorSection::addTallRow(const ksInspectorField &field, ksValueEditor *editor)
{
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(field.name, body), row, 0, 1, 2);
    grid->addWidget(editor, row + 1, 0, 1, 2);
    tie(field, editor);
}

void ksInspectorSection::addHeading(const QString &text)
{
    heading = text;
    auto *label = new QLabel(text, body);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    grid->addWidget(label, grid->rowCount(), 0, 1, 2);
}

void ksInspectorSection::tie(const ksInspectorField &field, ksValueEditor *editor)
{
    editor->setName(heading.isEmpty() ? field.name : heading + QLatin1Char(' ') + field.name);
    rows.push_back(new ksInspectorRow(ownEdits, field, editor, this));
}

void ksInspectorSection::refresh()
{
    for (ksInspectorRow *row : rows)
        row->refresh();
}

void ksInspectorSection::follow(const ksSceneChanges &changes)
{
    for (ksInspectorRow *row : rows)
        if (row->isConcernedBy(changes))
            row->refresh();
}
