// SPDX-License-Identifier: MIT
#include <editor/scene/ksLooseNumber.h>

#include <QString>

namespace {

/// The powers of two that bound the 64-bit integers, which a double holds exactly.
constexpr double TwoTo63 = 9223372036854775808.0;
constexpr double TwoTo64 = 18446744073709551616.0;

bool isReal(const QVariant &value)
{
    const int type = value.userType();
    return type == QMetaType::Double || type == QMetaType::Float;
}

bool isInteger(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

bool isWhole(double number)
{
    return std::floor(number) == number;
}

} // namespace

std::optional<long long> ksLooseNumber::toSigned(const QVariant &value)
{
    if (isReal(value)) {
        const double number = value.toDouble();
        if (!isWhole(number) || number < -TwoTo63 || number >= TwoTo63)
            return std::nullopt;
        return static_cast<long long>(number);
    }
    if (value.userType() == QMetaType::ULongLong &&
        value.toULongLong() > std::numeric_limits<long long>::max())
        return std::nullopt;
    bool valid = isInteger(value) || value.userType() == QMetaType::QString;
    const long long number = valid ? value.toLongLong(&valid) : 0;
    return valid ? std::optional<long long>(number) : std::nullopt;
}

std::optional<unsigned long long> ksLooseNumber::toUnsigned(const QVariant &value)
{
    if (isReal(value)) {
        const double number = value.toDouble();
        if (!isWhole(number) || number < 0 || number >= TwoTo64)
            return std::nullopt;
        return static_cast<unsigned long long>(number);
    }
    if (isInteger(value) && value.userType() != QMetaType::ULongLong && value.toLongLong() < 0)
        return std::nullopt;
    bool valid = isInteger(value) || value.userType() == QMetaType::QString;
    const unsigned long long number = valid ? value.toULongLong(&valid) : 0;
    return valid ? std::optional<unsigned long long>(number) : std::nullopt;
}

std::optional<double> ksLooseNumber::toReal(const QVariant &value)
{
    if (isReal(value) || isInteger(value))
        return value.toDouble();
    return std::nullopt;
}
