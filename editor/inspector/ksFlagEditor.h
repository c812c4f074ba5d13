// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksValueEditor.h>

#include <QStringList>

#include <vector>

class QCheckBox;

/// Edits a flag, a bool, or several, a list of them.
class ksFlagEditor : public ksValueEditor
{
    Q_OBJECT

public:
    /// For one flag, which needs no text of its own.
    explicit ksFlagEditor(QWidget *parent = nullptr)
        : ksFlagEditor(QStringList(QString()), parent)
    {}

    /// For as many as there are \a texts.
    explicit ksFlagEditor(const QStringList &texts, QWidget *parent = nullptr);

    void showValue(const QVariant &value) override;
    void showMixed(bool isMixed) override;
    void setName(const QString &name) override;

private:
    std::vector<QCheckBox *> boxes;
};
