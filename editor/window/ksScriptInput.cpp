// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptDescription.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/window/ksScriptInput.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringListModel>

#include <algorithm>
#include <utility>

namespace {

/// The members and parts of the classes of scripts: of the one called \a name, of all when there is none.
QStringList membersOf(const QString &name)
{
    QStringList own;
    QStringList all;
    ksScriptRegistry::visitClasses([&](const QMetaObject &type, const QStringList &parts) {
        QStringList members = parts;
        for (const QMetaObject *base = &type; base != nullptr; base = base->superClass())
            for (const ksScriptMember &member : ksScriptDescription::ownMembersOf(*base))
                members += member.name;
        all += members;
        if (ksScriptDescription::nameOf(type).compare(name, Qt::CaseInsensitive) == 0)
            own += members;
    });
    return own.isEmpty() ? all : own;
}

/// What is being written at the end of \a text: a name, after an object and a dot if there are.
QRegularExpressionMatch lastName(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("(?:(\\w*)\\)?(\\.))?(\\w*)$"));
    return pattern.match(text);
}

} // namespace

ksScriptInput::ksScriptInput(std::function<QStringList()> globals, QWidget *parent)
    : QLineEdit(parent)
    , globalNames(std::move(globals))
    , completer(new QCompleter(new QStringListModel(this), this))
{
    completer->setWidget(this);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    completer->popup()->setAccessibleName(tr("Completions"));
    // What it lists is of what was written when it came.
    connect(this, &QLineEdit::textEdited, completer->popup(), &QWidget::hide);
    connect(completer, QOverload<const QString &>::of(&QCompleter::activated), this,
            &ksScriptInput::insertName);
}

QString ksScriptInput::take()
{
    const QString line = text();
    if (!line.isEmpty() && (lines.isEmpty() || lines.last() != line))
        lines += line;
    shown = lines.size();
    written.clear();
    clear();
    return line;
}

QStringList ksScriptInput::completionsOf(const QString &text) const
{
    const QRegularExpressionMatch match = lastName(text);
    const QString begun = match.captured(3);
    QStringList names = match.captured(2).isEmpty() ? globalNames() : membersOf(match.captured(1));
    names.erase(std::remove_if(names.begin(), names.end(),
                               [&begun](const QString &name) { return !name.startsWith(begun); }),
                names.end());
    names.sort();
    names.removeDuplicates();
    return names;
}

bool ksScriptInput::complete()
{
    const QString before = text().left(cursorPosition());
    const QRegularExpressionMatch match = lastName(before);
    if (match.captured(0).isEmpty())
        return false;
    const QStringList names = completionsOf(before);
    if (names.isEmpty())
        return true;
    // As much as they have in common.
    QString common = names.first();
    while (!names.last().startsWith(common))
        common.chop(1);
    if (common.size() > match.captured(3).size() || names.size() == 1) {
        insertName(common);
        return true;
    }
    static_cast<QStringListModel *>(completer->model())->setStringList(names);
    QAbstractItemView &list = *completer->popup();
    list.setMinimumWidth(list.sizeHintForColumn(0) + list.verticalScrollBar()->sizeHint().width());
    completer->complete();
    return true;
}

bool ksScriptInput::event(QEvent *event)
{
    // It would move the focus.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Tab &&
        complete())
        return true;
    return QLineEdit::event(event);
}

void ksScriptInput::keyPressEvent(QKeyEvent *event)
{
    const bool isChoice =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Escape;
    // The list hands its keys on before it heeds them.
    if (isChoice && completer->popup()->isVisible())
        event->ignore();
    else if (event->key() == Qt::Key_Up)
        recall(-1);
    else if (event->key() == Qt::Key_Down)
        recall(1);
    else
        QLineEdit::keyPressEvent(event);
}

void ksScriptInput::recall(int offset)
{
    const int next = shown + offset;
    if (next < 0 || next > lines.size())
        return;
    if (shown == lines.size())
        written = text();
    shown = next;
    setText(next == lines.size() ? written : lines[next]);
}

void ksScriptInput::insertName(const QString &name)
{
    const int cursor = cursorPosition();
    const int begun = lastName(text().left(cursor)).captured(3).size();
    setText(text().left(cursor - begun) + name + text().mid(cursor));
    setCursorPosition(cursor - begun + name.size());
}
