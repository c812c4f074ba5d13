// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksValueEditor.h>

class QLabel;
class QPushButton;

/// Shows an image, a QImage, which is null for none. What the user wants is the path of a file, or an empty
/// text for no image.
class ksImageEditor : public ksValueEditor
{
    Q_OBJECT

public:
    explicit ksImageEditor(QWidget *parent = nullptr);

    void showValue(const QVariant &value) override;
    void setName(const QString &name) override;

private:
    void load();

    QLabel *thumbnail;
    QPushButton *loading;
    QPushButton *removing;
};
