// SPDX-License-Identifier: MIT
#pragma once

#include <QDoubleSpinBox>

#include <limits>

/// What numbers a number editor is for.
struct ksNumberKind
{
    enum class Type
    {
        Integer,
        Float,
        Double
    };

    Type type = Type::Float;

    /// What dragging and stepping stay within. Others can be typed, and may be refused.
    double least = -std::numeric_limits<float>::max();
    double most = std::numeric_limits<float>::max();

    double step = 0.1;
};

/// A box for one number, of which it shows as many digits as people care for, and keeps all.
class ksNumberBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit ksNumberBox(const ksNumberKind &kind, QWidget *parent = nullptr);

    /// The number that is \a steps steps from \a start, within the kind's limits.
    double stepped(double start, double steps) const;

    /// Shows \a number, and drops what is being typed.
    void showNumber(double number);

    /// Whether a number has been typed since it was last asked, or shown a number.
    bool takeTyped();

    void stepBy(int steps) override;
    QString textFromValue(double number) const override;
    double valueFromText(const QString &text) const override;
    QValidator::State validate(QString &text, int &position) const override;

private:
    double rounded(double number) const;

    const ksNumberKind kind;
    bool isTyped = false;
};
