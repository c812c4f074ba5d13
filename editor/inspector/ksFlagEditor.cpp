// SPDX-License-Identifier: MIT
#include <editor/inspector/ksFlagEditor.h>

#include <QCheckBox>
#include <QGridLayout>

ksFlagEditor::ksFlagEditor(const QStringList &texts, QWidget *parent)
    : ksValueEditor(parent)
{
    constexpr int Columns = 2;
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(2);
    const bool isSingle = texts.size() == 1;
    for (int i = 0; i < texts.size(); ++i) {
        auto *box = new QCheckBox(texts[i], this);
        layout->addWidget(box, i / Columns, i % Columns);
        connect(box, &QCheckBox::clicked, this, [this, part = isSingle ? -1 : i](bool checked) {
            Q_EMIT edited(checked, part);
            Q_EMIT finished();
        });
        tame(box);
        boxes.push_back(box);
    }
}

void ksFlagEditor::showValue(const QVariant &value)
{
    if (boxes.size() == 1) {
        boxes.front()->setChecked(value.toBool());
        return;
    }
    const QVariantList flags = value.toList();
    for (int i = 0; i < flags.size(); ++i)
        boxes[static_cast<std::size_t>(i)]->setChecked(flags[i].toBool());
}

void ksFlagEditor::showMixed(bool isMixed)
{
    ksValueEditor::showMixed(isMixed);
    if (boxes.size() > 1)
        return;
    boxes.front()->setTristate(isMixed);
    if (isMixed)
        boxes.front()->setCheckState(Qt::PartiallyChecked);
}

void ksFlagEditor::setName(const QString &name)
{
    for (QCheckBox *box : boxes)
        box->setAccessibleName(box->text().isEmpty() ? name : name + QLatin1Char(' ') + box->text());
}
