// SPDX-License-Identifier: MIT
#include <editor/inspector/ksNumberBox.h>

#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

QString plainText(const QString &typed)
{
    QString text = typed.trimmed();
    return text.replace(QLatin1Char(','), QLatin1Char('.'));
}

} // namespace

ksNumberBox::ksNumberBox(const ksNumberKind &kind, QWidget *parent)
    : QDoubleSpinBox(parent)
    , kind(kind)
{
    constexpr int ManyDecimals = 40;
    constexpr int NarrowestBox = 34;
    setDecimals(kind.type == ksNumberKind::Type::Integer ? 0 : ManyDecimals);
    setRange(-std::numeric_limits<float>::max(), std::numeric_limits<float>::max());
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setKeyboardTracking(false);
    setMinimumWidth(NarrowestBox);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { isTyped = hasAcceptableInput(); });
}

double ksNumberBox::rounded(double number) const
{
    switch (kind.type) {
    case ksNumberKind::Type::Integer:
        return std::round(number);
    case ksNumberKind::Type::Float:
        return static_cast<double>(static_cast<float>(number));
    default:
        return number;
    }
}

double ksNumberBox::stepped(double start, double steps) const
{
    // What is outside already is not pushed further, nor pulled in.
    const double least = std::min(kind.least, start);
    const double most = std::max(kind.most, start);
    // Sums of steps are as short as people write them.
    const double sum = std::round((start + steps * kind.step) * 1e6) / 1e6;
    return rounded(std::clamp(std::abs(start) < 1e6 ? sum : start + steps * kind.step, least, most));
}

void ksNumberBox::showNumber(double number)
{
    const QSignalBlocker blocker(this);
    if (value() != number)
        setValue(number);
    else if (lineEdit()->text() != textFromValue(number))
        lineEdit()->setText(textFromValue(number));
    isTyped = false;
}

bool ksNumberBox::takeTyped()
{
    return std::exchange(isTyped, false);
}

void ksNumberBox::stepBy(int steps)
{
    interpretText();
    setValue(stepped(value(), steps));
    selectAll();
}

QString ksNumberBox::textFromValue(double number) const
{
    if (kind.type == ksNumberKind::Type::Integer)
        return QString::number(number, 'f', 0);
    constexpr int FloatDigits = 6;
    constexpr int DoubleDigits = 12;
    constexpr double Large = 1e6;
    const bool isFloat = kind.type == ksNumberKind::Type::Float;
    const bool isLarge = isFloat && std::abs(number) >= Large;
    return QString::number(number, 'g', isFloat && !isLarge ? FloatDigits : DoubleDigits);
}

double ksNumberBox::valueFromText(const QString &text) const
{
    // What is shown stands for the number, all of its digits.
    return text == textFromValue(value()) ? value() : rounded(plainText(text).toDouble());
}

QValidator::State ksNumberBox::validate(QString &text, int &) const
{
    bool isNumber = false;
    const double number = plainText(text).toDouble(&isNumber);
    const bool fits = isNumber && std::isfinite(rounded(number)) &&
                      (kind.type != ksNumberKind::Type::Integer || number == rounded(number));
    return fits ? QValidator::Acceptable : QValidator::Intermediate;
}
