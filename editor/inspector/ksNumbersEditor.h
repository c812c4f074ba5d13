// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksNumberBox.h>
#include <editor/inspector/ksValueEditor.h>

#include <QStringList>

#include <vector>

class QHBoxLayout;
class ksScrubLabel;

/// Edits a number, a double, or several, a list of them. The labels change them by dragging: a drag is a
/// gesture, and so is what is typed or stepped until Return, or until the focus leaves.
class ksNumbersEditor : public ksValueEditor
{
    Q_OBJECT

public:
    /// For one number. Its label, with the text \a label, is to be shown beside the editor.
    ksNumbersEditor(const ksNumberKind &kind, const QString &label, QWidget *parent = nullptr);

    /// For as many as there are \a labels.
    ksNumbersEditor(const ksNumberKind &kind, const QStringList &labels, QWidget *parent = nullptr);

    void showValue(const QVariant &value) override;
    void setName(const QString &name) override;
    QLabel *ownLabel() override;

private:
    void add(const ksNumberKind &kind, int part, ksScrubLabel *label);

    QHBoxLayout *row;
    std::vector<ksNumberBox *> boxes;
    std::vector<ksScrubLabel *> labels;
    bool isSingle;
    double start = 0;
};
