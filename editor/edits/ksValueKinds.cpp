// SPDX-License-Identifier: MIT
#include <editor/edits/ksValueKinds.h>
#include <editor/ksEditorError.h>

#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSFVecTypes.h>

#include <QLocale>

#include <cmath>
#include <map>

QString ksValueKinds::ofField(const osg::Field &field)
{
    static const std::map<const osg::FieldType *, QString> kinds = {
        {&osg::SFInt8::getClassType(), ofNumber<osg::Int8>()},
        {&osg::SFUInt8::getClassType(), ofNumber<osg::UInt8>()},
        {&osg::SFInt16::getClassType(), ofNumber<osg::Int16>()},
        {&osg::SFUInt16::getClassType(), ofNumber<osg::UInt16>()},
        {&osg::SFInt32::getClassType(), ofNumber<osg::Int32>()},
        {&osg::SFUInt32::getClassType(), ofNumber<osg::UInt32>()},
        {&osg::SFInt64::getClassType(), ofNumber<osg::Int64>()},
        {&osg::SFUInt64::getClassType(), ofNumber<osg::UInt64>()},
        {&osg::SFReal32::getClassType(), ofNumber<float>()},
        {&osg::SFReal64::getClassType(), ofNumber<double>()},
        {&osg::SFBool::getClassType(), QStringLiteral("true or false")},
        {&osg::SFString::getClassType(), QStringLiteral("a text")},
        {&osg::MFString::getClassType(), QStringLiteral("an array of texts")},
        {&osg::SFVec2f::getClassType(), QStringLiteral("an array [x, y] of numbers")},
        {&osg::SFVec3f::getClassType(), QStringLiteral("an array [x, y, z] of numbers")},
        {&osg::SFPnt3f::getClassType(), QStringLiteral("an array [x, y, z] of numbers")},
        {&osg::SFVec4f::getClassType(), QStringLiteral("an array [x, y, z, w] of numbers")},
        {&osg::SFColor3f::getClassType(), QStringLiteral("a colour [r, g, b]")},
        {&osg::SFColor4f::getClassType(), QStringLiteral("a colour [r, g, b, a]")},
    };
    const auto kind = kinds.find(&field.getType());
    return kind != kinds.end() ? kind->second : QString();
}

QString ksValueKinds::shown(const QVariant &value)
{
    constexpr int LongestText = 60;
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return QStringLiteral("undefined");
    case QMetaType::Nullptr:
        return QStringLiteral("null");
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return QStringLiteral("an array of %1").arg(value.toList().size());
    case QMetaType::QVariantMap:
        return QStringLiteral("an object");
    case QMetaType::Float:
    case QMetaType::Double: {
        const double number = value.toDouble();
        if (std::isnan(number))
            return QStringLiteral("NaN");
        if (std::isinf(number))
            return number < 0 ? QStringLiteral("-Infinity") : QStringLiteral("Infinity");
        return QString::number(number, 'g', QLocale::FloatingPointShortest) +
               (std::abs(number) > std::numeric_limits<float>::max() ? QStringLiteral(", which is too large")
                                                                     : QString());
    }
    case QMetaType::QString: {
        const QString text = value.toString();
        return QLatin1Char('\'') +
               (text.size() > LongestText ? text.left(LongestText - 3) + QStringLiteral("...") : text) +
               QLatin1Char('\'');
    }
    default:
        return value.toString();
    }
}

void ksValueKinds::refuse(const QString &name, const QString &kind, const QString &given)
{
    throw ksEditorError(QLatin1Char('\'') + name + QStringLiteral("' is ") + kind + QStringLiteral(", not ") +
                        given);
}
