// SPDX-License-Identifier: MIT
#include <editor/inspector/ksChoiceEditor.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>

#include <algorithm>

ksChoiceEditor::ksChoiceEditor(std::function<Choices()> choices,
                               std::function<QString(const QVariant &)> textOf, QWidget *parent)
    : ksValueEditor(parent)
    , box(new QComboBox(this))
    , choicesNow(std::move(choices))
    , text(std::move(textOf))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(box, 1);
    // As narrow as the page, however long the names are.
    constexpr int FewestLetters = 6;
    box->setMinimumContentsLength(FewestLetters);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    tame(box);
    setFocusProxy(box);
    connect(box, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        Q_EMIT edited(box->itemData(index), -1);
        Q_EMIT finished();
    });
}

ksChoiceEditor::ksChoiceEditor(const Choices &choices, QWidget *parent)
    : ksChoiceEditor([choices] { return choices; },
                     [choices](const QVariant &value) {
                         const auto found =
                             std::find_if(choices.begin(), choices.end(),
                                          [&value](const auto &choice) { return choice.second == value; });
                         return found == choices.end() ? value.toString() : found->first;
                     },
                     parent)
{
    fill();
}

void ksChoiceEditor::addButton(const QString &text, const std::function<QVariant()> &pick)
{
    auto *button = new QPushButton(text, this);
    layout()->addWidget(button);
    buttons.push_back(button);
    connect(button, &QPushButton::clicked, this, [this, pick] {
        if (const QVariant picked = pick(); picked.isValid())
            Q_EMIT edited(picked, -1);
        Q_EMIT finished();
    });
}

void ksChoiceEditor::fill()
{
    box->clear();
    for (const auto &[name, value] : choicesNow())
        box->addItem(name, value);
    if (shown.isValid())
        showValue(shown);
}

bool ksChoiceEditor::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    const bool isChoosing = type == QEvent::KeyPress || type == QEvent::Wheel;
    if (watched == box && type == QEvent::FocusIn)
        isStale = true;
    else if (watched == box && (type == QEvent::MouseButtonPress || (isChoosing && isStale))) {
        isStale = false;
        fill();
    }
    return ksValueEditor::eventFilter(watched, event);
}

void ksChoiceEditor::showValue(const QVariant &value)
{
    shown = value;
    if (box->findData(value) < 0)
        box->addItem(text(value), value);
    const int index = box->findData(value);
    box->setItemText(index, text(value));
    box->setCurrentIndex(index);
}

void ksChoiceEditor::setName(const QString &name)
{
    box->setAccessibleName(name);
    nameArea(box->view(), name);
    for (QPushButton *button : buttons)
        button->setAccessibleName(name + QLatin1String(": ") + button->text());
}
