// SPDX-License-Identifier: MIT
#include <editor/inspector/ksListEditor.h>

#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

/// Names the editor of an entry after the list.
class NamingDelegate : public QStyledItemDelegate
{
public:
    explicit NamingDelegate(QListWidget *list)
        : QStyledItemDelegate(list)
        , list(list)
    {}

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override
    {
        QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
        editor->setAccessibleName(list->accessibleName());
        return editor;
    }

private:
    const QListWidget *list;
};

} // namespace

ksListEditor::ksListEditor(int abilities, QWidget *parent)
    : ksValueEditor(parent)
    , list(new QListWidget(this))
    , tellsChanges((abilities & TellChanges) != 0)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(list);
    auto *below = new QHBoxLayout;
    below->setSpacing(4);
    column->addLayout(below);
    tame(list);
    if ((abilities & TypeNew) != 0) {
        constexpr int NarrowestLine = 60;
        line = new QLineEdit(this);
        line->setMinimumWidth(NarrowestLine);
        tame(line);
        below->addWidget(line, 1);
        connect(line, &QLineEdit::returnPressed, this, &ksListEditor::addTyped);
        connect(addButton(tr("Add"), tr("add")), &QToolButton::clicked, this, &ksListEditor::addTyped);
    }
    if ((abilities & AddOther) != 0)
        connect(addButton(tr("Add selected"), tr("add the other selected nodes")), &QToolButton::clicked,
                this, [this] {
                    want({ksListChange::Kind::Add, -1, -1, {}});
                });
    if ((abilities & ApplyEntry) != 0) {
        applying = addButton(tr("Apply"), tr("apply"));
        connect(applying, &QToolButton::clicked, this, [this] {
            want({ksListChange::Kind::Apply, list->currentRow(), -1, {}});
        });
    }
    if ((abilities & RemoveEntry) != 0) {
        removing = addButton(tr("Remove"), tr("remove"));
        connect(removing, &QToolButton::clicked, this, [this] {
            want({ksListChange::Kind::Remove, list->currentRow(), -1, {}});
        });
        auto *key = new QShortcut(QKeySequence::Delete, list, nullptr, nullptr, Qt::WidgetShortcut);
        connect(key, &QShortcut::activated, removing, &QToolButton::click);
    }
    if ((abilities & MoveEntry) != 0) {
        const auto moveBy = [this](int by) {
            const int row = list->currentRow();
            const QStringList before = shown;
            want({ksListChange::Kind::Move, row, row + by, {}});
            if (shown != before)
                list->setCurrentRow(row + by);
        };
        raising = addButton(tr("Up"), tr("move up"));
        lowering = addButton(tr("Down"), tr("move down"));
        connect(raising, &QToolButton::clicked, this, [moveBy] { moveBy(-1); });
        connect(lowering, &QToolButton::clicked, this, [moveBy] { moveBy(1); });
        list->setDragDropMode(QAbstractItemView::InternalMove);
        connect(list->model(), &QAbstractItemModel::rowsMoved, this,
                [this](const QModelIndex &, int from, int, const QModelIndex &, int to) {
                    if (!isShowing)
                        want({ksListChange::Kind::Move, from, to > from ? to - 1 : to, {}});
                });
    }
    if (line == nullptr)
        below->addStretch();
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    if ((abilities & RenameEntry) != 0) {
        list->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
        list->setItemDelegate(new NamingDelegate(list));
        connect(list, &QListWidget::itemChanged, this, [this](const QListWidgetItem *item) {
            if (!isShowing)
                want({ksListChange::Kind::Rename, list->row(item), -1, item->text()});
        });
    }
    connect(list, &QListWidget::currentRowChanged, this, [this] {
        enableButtons();
        if (!isShowing)
            Q_EMIT currentChanged();
    });
    enableButtons();
}

QToolButton *ksListEditor::addButton(const QString &text, const QString &meaning)
{
    auto *button = new QToolButton(this);
    button->setText(text);
    layout()->itemAt(1)->layout()->addWidget(button);
    buttons.emplace_back(button, meaning);
    return button;
}

void ksListEditor::want(const ksListChange &wanted)
{
    QStringList texts = shown;
    switch (wanted.kind) {
    case ksListChange::Kind::Add:
        texts += wanted.text;
        break;
    case ksListChange::Kind::Remove:
        texts.removeAt(wanted.row);
        break;
    case ksListChange::Kind::Rename:
        texts[wanted.row] = wanted.text;
        break;
    case ksListChange::Kind::Move:
        texts.move(wanted.row, wanted.to);
        break;
    case ksListChange::Kind::Apply:
        break;
    }
    Q_EMIT edited(tellsChanges ? QVariant::fromValue(wanted) : QVariant(texts), -1);
    Q_EMIT finished();
}

void ksListEditor::addTyped()
{
    const QString text = line->text();
    if (text.isEmpty())
        return;
    const QStringList before = shown;
    want({ksListChange::Kind::Add, -1, -1, text});
    // What has been refused is there to be mended.
    if (shown != before)
        line->clear();
}

int ksListEditor::currentRow() const
{
    return list->currentRow();
}

void ksListEditor::enableButtons()
{
    const int row = list->currentRow();
    for (QToolButton *button : {applying, removing})
        if (button != nullptr)
            button->setEnabled(row >= 0);
    if (raising != nullptr) {
        raising->setEnabled(row > 0);
        lowering->setEnabled(row >= 0 && row + 1 < list->count());
    }
}

void ksListEditor::showValue(const QVariant &value)
{
    const QStringList texts = value.toStringList();
    shown = texts;
    const int before = list->currentRow();
    {
        const QScopedValueRollback<bool> guard(isShowing, true);
        while (list->count() > texts.size())
            delete list->takeItem(list->count() - 1);
        for (int row = 0; row < texts.size(); ++row) {
            if (row == list->count())
                list->addItem(QString());
            QListWidgetItem *item = list->item(row);
            if (item->text() != texts[row])
                item->setText(texts[row]);
            Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
            if (list->editTriggers() != QAbstractItemView::NoEditTriggers)
                flags |= Qt::ItemIsEditable;
            if (raising != nullptr)
                flags |= Qt::ItemIsDragEnabled;
            item->setFlags(flags);
        }
        if (list->currentRow() < 0 && !texts.isEmpty())
            list->setCurrentRow(0);
    }
    // As tall as its entries, from one to five.
    constexpr int MostRows = 5;
    const int rowHeight = fontMetrics().height() + 4;
    list->setFixedHeight(std::clamp(texts.size(), 1, MostRows) * rowHeight + 2 * list->frameWidth() + 2);
    enableButtons();
    if (list->currentRow() != before)
        Q_EMIT currentChanged();
}

void ksListEditor::setName(const QString &name)
{
    nameArea(list, name);
    if (line != nullptr)
        line->setAccessibleName(tr("%1, what to add").arg(name));
    for (const auto &[button, meaning] : buttons)
        button->setAccessibleName(name + QLatin1String(", ") + meaning);
}
