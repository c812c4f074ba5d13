// SPDX-License-Identifier: MIT
#pragma once

#include <editor/inspector/ksValueEditor.h>

#include <QMetaType>
#include <QStringList>

#include <utility>
#include <vector>

class QLineEdit;
class QListWidget;
class QToolButton;

/// What the user wants of a list.
struct ksListChange
{
    enum class Kind
    {
        Add,
        Remove,
        Rename,
        Move,
        Apply
    };

    Kind kind;

    /// The entry that is meant, and where it is to move.
    int row = -1;
    int to = -1;

    /// What is added, or the new name.
    QString text;
};

Q_DECLARE_METATYPE(ksListChange)

/// Edits a list of texts, a QStringList, entry by entry. What the user wants is another list, or a
/// ksListChange.
class ksListEditor : public ksValueEditor
{
    Q_OBJECT

public:
    /// What can be done, bits to be combined.
    enum Ability
    {
        TypeNew = 1,
        AddOther = 2,
        RemoveEntry = 4,
        RenameEntry = 8,
        MoveEntry = 16,

        /// Has no meaning to lists of texts.
        ApplyEntry = 32,

        /// Not a thing to do: changes are told, instead of lists.
        TellChanges = 64
    };

    explicit ksListEditor(int abilities, QWidget *parent = nullptr);

    /// The entry that is current; -1 for none.
    int currentRow() const;

    void showValue(const QVariant &value) override;
    void setName(const QString &name) override;

Q_SIGNALS:
    /// Another entry is current.
    void currentChanged();

private:
    QToolButton *addButton(const QString &text, const QString &meaning);
    void want(const ksListChange &wanted);
    void addTyped();
    void enableButtons();

    QListWidget *list;
    QStringList shown;
    bool tellsChanges;
    QLineEdit *line = nullptr;
    std::vector<std::pair<QToolButton *, QString>> buttons;
    QToolButton *applying = nullptr;
    QToolButton *removing = nullptr;
    QToolButton *raising = nullptr;
    QToolButton *lowering = nullptr;
    bool isShowing = false;
};
