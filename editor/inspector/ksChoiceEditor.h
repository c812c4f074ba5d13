// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksValueEditor.h>

#include <functional>
#include <utility>
#include <vector>

class QComboBox;
class QPushButton;

/// Edits a value that is one of several: a number or a text of an enumeration, or the id of a container.
class ksChoiceEditor : public ksValueEditor
{
    Q_OBJECT

public:
    using Choices = std::vector<std::pair<QString, QVariant>>;

    /// \a choices is asked when the user is about to choose; \a textOf for the text of a value that is none
    /// of those.
    ksChoiceEditor(std::function<Choices()> choices, std::function<QString(const QVariant &)> textOf,
                   QWidget *parent = nullptr);

    /// For those that are always the same.
    explicit ksChoiceEditor(const Choices &choices, QWidget *parent = nullptr);

    /// Adds a button that takes what \a pick gives, unless that is invalid.
    void addButton(const QString &text, const std::function<QVariant()> &pick);

    void showValue(const QVariant &value) override;
    void setName(const QString &name) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fill();

    QComboBox *box;
    std::vector<QPushButton *> buttons;
    std::function<Choices()> choicesNow;
    std::function<QString(const QVariant &)> text;
    QVariant shown;

    /// Whether the choices may be others by now.
    bool isStale = true;
};
