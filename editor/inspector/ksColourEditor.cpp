// SPDX-License-Identifier: MIT
#include <editor/inspector/ksColourEditor.h>
#include <editor/inspector/ksNumbersEditor.h>

#include <QColorDialog>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

#include <algorithm>

namespace {

/// What the colour is brighter than a screen shows it.
double excess(const QVariantList &colour)
{
    double most = 1;
    for (int i = 0; i < std::min(colour.size(), 3); ++i)
        most = std::max(most, colour[i].toDouble());
    return most;
}

QColor onScreen(const QVariantList &colour)
{
    const double factor = excess(colour);
    const auto component = [&](int i) { return std::clamp(colour.value(i).toDouble() / factor, 0.0, 1.0); };
    QColor result = QColor::fromRgbF(component(0), component(1), component(2));
    if (colour.size() > 3)
        result.setAlphaF(std::clamp(colour[3].toDouble(), 0.0, 1.0));
    return result;
}

} // namespace

ksColourEditor::ksColourEditor(int components, QWidget *parent)
    : ksValueEditor(parent)
    , button(new QToolButton(this))
{
    ksNumberKind kind;
    kind.least = 0;
    kind.step = 0.01;
    const QStringList labels = {tr("R"), tr("G"), tr("B"), tr("A")};
    numbers = new ksNumbersEditor(kind, labels.mid(0, components), this);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(button);
    layout->addWidget(numbers, 1);
    button->setIconSize(QSize(28, 16));
    button->setToolTip(tr("Choose a colour"));
    connect(button, &QToolButton::clicked, this, &ksColourEditor::choose);
    connect(numbers, &ksNumbersEditor::edited, this, &ksColourEditor::edited);
    connect(numbers, &ksNumbersEditor::finished, this, &ksColourEditor::finished);
    connect(numbers, &ksNumbersEditor::cancelled, this, &ksColourEditor::cancelled);
}

void ksColourEditor::choose()
{
    if (dialog != nullptr) {
        dialog->raise();
        return;
    }
    const QVariantList before = shown;
    dialog = new QColorDialog(onScreen(before), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    dialog->setOption(QColorDialog::ShowAlphaChannel, before.size() > 3);
    dialog->setWindowTitle(title);
    connect(dialog, &QColorDialog::currentColorChanged, this, [this, before](const QColor &colour) {
        const double factor = excess(before);
        QVariantList wanted;
        for (const double component : {colour.redF(), colour.greenF(), colour.blueF()})
            wanted += static_cast<double>(static_cast<float>(component * factor));
        if (before.size() > 3)
            wanted += static_cast<double>(static_cast<float>(colour.alphaF()));
        Q_EMIT edited(wanted, -1);
    });
    connect(dialog, &QColorDialog::accepted, this, &ksColourEditor::finished);
    connect(dialog, &QColorDialog::rejected, this, &ksColourEditor::cancelled);
    dialog->open();
}

void ksColourEditor::showValue(const QVariant &value)
{
    shown = value.toList();
    numbers->showValue(value);
    paint();
}

void ksColourEditor::paint()
{
    QPixmap swatch(button->iconSize());
    const QColor colour = onScreen(shown);
    swatch.fill(QColor(colour.red(), colour.green(), colour.blue()));
    QPainter painter(&swatch);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(swatch.rect().adjusted(0, 0, -1, -1));
    painter.end();
    button->setIcon(QIcon(swatch));
}

void ksColourEditor::setName(const QString &name)
{
    title = name;
    button->setAccessibleName(tr("%1, choose a colour").arg(name));
    numbers->setName(name);
}
