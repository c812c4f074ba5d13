// SPDX-License-Identifier: MIT
#include <editor/inspector/ksImageEditor.h>

#include <QFileDialog>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int Side = 48;

} // namespace

ksImageEditor::ksImageEditor(QWidget *parent)
    : ksValueEditor(parent)
    , thumbnail(new QLabel(this))
    , loading(new QPushButton(tr("Load..."), this))
    , removing(new QPushButton(tr("Remove"), this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    thumbnail->setFixedSize(Side, Side);
    thumbnail->setAlignment(Qt::AlignCenter);
    thumbnail->setFrameShape(QFrame::StyledPanel);
    layout->addWidget(thumbnail);
    layout->addWidget(loading);
    layout->addWidget(removing);
    layout->addStretch();
    connect(loading, &QPushButton::clicked, this, &ksImageEditor::load);
    connect(removing, &QPushButton::clicked, this, [this] {
        Q_EMIT edited(QString(), -1);
        Q_EMIT finished();
    });
}

void ksImageEditor::load()
{
    auto *dialog = new QFileDialog(this, loading->accessibleName());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        Q_EMIT edited(path, -1);
        Q_EMIT finished();
    });
    dialog->open();
}

void ksImageEditor::showValue(const QVariant &value)
{
    const auto image = value.value<QImage>();
    removing->setEnabled(!image.isNull());
    if (image.isNull())
        thumbnail->setText(tr("none"));
    else
        thumbnail->setPixmap(
            QPixmap::fromImage(image.scaled(Side, Side, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}

void ksImageEditor::setName(const QString &name)
{
    thumbnail->setAccessibleName(name);
    loading->setAccessibleName(tr("%1, load from a file").arg(name));
    removing->setAccessibleName(tr("%1, remove").arg(name));
}
