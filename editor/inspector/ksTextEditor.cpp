// SPDX-License-Identifier: MIT
#include <editor/inspector/ksTextEditor.h>

#include <QHBoxLayout>
#include <QLineEdit>

#include <algorithm>

ksTextEditor::ksTextEditor(Telling telling, QWidget *parent)
    : ksValueEditor(parent)
    , line(new QLineEdit(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(line);
    line->setReadOnly(telling == Telling::Never);
    line->setFrame(telling != Telling::Never);
    tame(line);
    setFocusProxy(line);
    if (telling == Telling::Never)
        return;
    if (telling == Telling::WhileTyping)
        connect(line, &QLineEdit::textEdited, this, [this](const QString &text) { Q_EMIT edited(text, -1); });
    else
        connect(line, &QLineEdit::editingFinished, this, [this] {
            if (line->isModified()) {
                line->setModified(false);
                Q_EMIT edited(line->text(), -1);
            }
        });
    connect(line, &QLineEdit::editingFinished, this, &ksTextEditor::finished);
    connect(this, &ksTextEditor::cancelled, this, [this] {
        line->setModified(false);
        showValue(shown);
    });
}

void ksTextEditor::showValue(const QVariant &value)
{
    // What is being typed stays when the text is as before.
    const bool isSame = value.toString() == shown;
    shown = value.toString();
    if (line->text() == shown || (isSame && line->isModified()))
        return;
    const int cursor = line->hasFocus() ? line->cursorPosition() : 0;
    line->setText(shown);
    line->setCursorPosition(std::min(cursor, shown.size()));
}

void ksTextEditor::setName(const QString &name)
{
    line->setAccessibleName(name);
}
