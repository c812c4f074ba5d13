// SPDX-License-Identifier: MIT
#include <editor/inspector/ksNumbersEditor.h>
#include <editor/inspector/ksScrubLabel.h>

#include <QHBoxLayout>
#include <QLineEdit>

ksNumbersEditor::ksNumbersEditor(const ksNumberKind &kind, const QString &label, QWidget *parent)
    : ksValueEditor(parent)
    , row(new QHBoxLayout(this))
    , isSingle(true)
{
    row->setContentsMargins(0, 0, 0, 0);
    add(kind, -1, new ksScrubLabel(label, this));
}

ksNumbersEditor::ksNumbersEditor(const ksNumberKind &kind, const QStringList &labels, QWidget *parent)
    : ksValueEditor(parent)
    , row(new QHBoxLayout(this))
    , isSingle(false)
{
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    for (int i = 0; i < labels.size(); ++i) {
        auto *label = new ksScrubLabel(labels[i], this);
        row->addWidget(label);
        add(kind, i, label);
    }
}

void ksNumbersEditor::add(const ksNumberKind &kind, int part, ksScrubLabel *label)
{
    auto *box = new ksNumberBox(kind, this);
    row->addWidget(box, 1);
    tame(box);
    boxes.push_back(box);
    labels.push_back(label);
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this, box, part](double number) {
                box->takeTyped();
                Q_EMIT edited(number, part);
            });
    connect(box, &QDoubleSpinBox::editingFinished, this, [this, box, part] {
        // Others may have another number than the one that is shown.
        if (box->takeTyped())
            Q_EMIT edited(box->value(), part);
        Q_EMIT finished();
    });
    connect(this, &ksNumbersEditor::cancelled, box, [box] { box->showNumber(box->value()); });
    connect(label, &ksScrubLabel::began, this, [this, box] {
        box->interpretText();
        Q_EMIT finished();
        start = box->value();
    });
    connect(label, &ksScrubLabel::moved, this, [this, box, part](double steps) {
        const double number = box->stepped(start, steps);
        box->showNumber(number);
        Q_EMIT edited(number, part);
    });
    connect(label, &ksScrubLabel::ended, this, &ksNumbersEditor::finished);
    connect(label, &ksScrubLabel::cancelled, this, [this, box] {
        box->showNumber(start);
        Q_EMIT cancelled();
    });
}

void ksNumbersEditor::showValue(const QVariant &value)
{
    const QVariantList numbers = isSingle ? QVariantList{value} : value.toList();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const double number = numbers.value(static_cast<int>(i)).toDouble();
        // What is being typed stays when the number is as before.
        if (!boxes[i]->hasFocus() || boxes[i]->value() != number)
            boxes[i]->showNumber(number);
    }
}

void ksNumbersEditor::setName(const QString &name)
{
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const QString own = isSingle ? name : name + QLatin1Char(' ') + labels[i]->text();
        boxes[i]->setAccessibleName(own);
        boxes[i]->findChild<QLineEdit *>()->setAccessibleName(own);
        labels[i]->setAccessibleName(tr("%1, drag to change").arg(own));
    }
}

QLabel *ksNumbersEditor::ownLabel()
{
    return isSingle ? labels.front() : nullptr;
}
