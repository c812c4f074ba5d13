// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksValueEditor.h>

class QLineEdit;

/// Edits a text, a QString. A gesture is what is typed until Return, or until the focus leaves.
class ksTextEditor : public ksValueEditor
{
    Q_OBJECT

public:
    /// When edits are told.
    enum class Telling
    {
        WhileTyping,
        AtTheEnd,

        /// Never: the text is to be read only.
        Never
    };

    explicit ksTextEditor(Telling telling, QWidget *parent = nullptr);

    void showValue(const QVariant &value) override;
    void setName(const QString &name) override;

private:
    QLineEdit *line;
    QString shown;
};
