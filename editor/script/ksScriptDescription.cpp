// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptDescription.h>

#include <QMetaClassInfo>
#include <QMetaMethod>
#include <QMetaProperty>

namespace {

QString typeName(int type)
{
    switch (type) {
    case QMetaType::QString:
        return QStringLiteral("text");
    case QMetaType::QStringList:
        return QStringLiteral("texts");
    case QMetaType::Bool:
        return QStringLiteral("flag");
    case QMetaType::Int:
        return QStringLiteral("index");
    default:
        return QStringLiteral("any");
    }
}

/// The method of \a type called \a name that takes most; invalid when it is not one of C++.
QMetaMethod longestMethod(const QMetaObject &type, const QString &name)
{
    QMetaMethod longest;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        const QMetaMethod method = type.method(i);
        if (name == QString::fromLatin1(method.name()) &&
            (!longest.isValid() || method.parameterCount() > longest.parameterCount()))
            longest = method;
    }
    return longest;
}

/// Reads the arguments of \a member from its signature, their types from \a type.
void addParameters(ksScriptMember &member, const QMetaObject &type)
{
    const QMetaMethod method = longestMethod(type, member.name);
    const int start = member.signature.indexOf(QLatin1Char('(')) + 1;
    const QString list = member.signature.mid(start, member.signature.size() - start - 1);
    if (list.isEmpty())
        return;
    for (QString name : list.split(QStringLiteral(", "))) {
        if (name.endsWith(QLatin1String("..."))) {
            member.isVariadic = true;
            return;
        }
        const bool isOptional = name.startsWith(QLatin1Char('['));
        if (isOptional)
            name = name.mid(1, name.size() - 2);
        else
            ++member.least;
        const auto index = static_cast<int>(member.parameters.size());
        const bool isTyped = method.isValid() && index < method.parameterCount();
        member.parameters.push_back(
            {name, isTyped ? typeName(method.parameterType(index)) : QStringLiteral("any")});
    }
}

} // namespace

QString ksScriptDescription::nameOf(const QMetaObject &type)
{
    const QString name = QString::fromLatin1(type.className());
    const QString prefix = QStringLiteral("ksScript");
    return name.startsWith(prefix) ? name.mid(prefix.size()) : name;
}

std::vector<ksScriptMember> ksScriptDescription::ownMembersOf(const QMetaObject &type)
{
    std::vector<ksScriptMember> members;
    for (int i = type.classInfoOffset(); i < type.classInfoCount(); ++i) {
        const QMetaClassInfo info = type.classInfo(i);
        ksScriptMember member;
        member.signature = QString::fromUtf8(info.name());
        member.about = QString::fromUtf8(info.value());
        member.name = member.signature.section(QLatin1Char('('), 0, 0);
        member.isProperty = member.name == member.signature;
        if (member.isProperty) {
            const QMetaProperty property = type.property(type.indexOfProperty(info.name()));
            member.type = typeName(property.userType());
            member.isWritable = property.isWritable();
        } else
            addParameters(member, type);
        members.push_back(member);
    }
    return members;
}
