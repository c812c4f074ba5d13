// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksValueEditor.h>

#include <QPointer>

class QColorDialog;
class QToolButton;
class ksNumbersEditor;

/// Edits a colour, a list of three or four numbers, which may be above 1. The colours that are tried in the
/// dialog are one gesture; they are as bright as the colour was.
class ksColourEditor : public ksValueEditor
{
    Q_OBJECT

public:
    explicit ksColourEditor(int components, QWidget *parent = nullptr);

    void showValue(const QVariant &value) override;
    void setName(const QString &name) override;

private:
    void choose();
    void paint();

    QToolButton *button;
    ksNumbersEditor *numbers;
    QPointer<QColorDialog> dialog;
    QVariantList shown;
    QString title;
};
