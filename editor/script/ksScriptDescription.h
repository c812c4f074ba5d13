// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaObject>
#include <QString>
#include <QStringList>

#include <vector>

/// What an argument or a property of a script's object may be.
struct ksScriptKind
{
    QString name;

    /// "text", "texts", "flag" or "index", which is a whole number; "any" is for the object itself to check.
    QString type;
};

/// A property or a method that scripts see.
struct ksScriptMember
{
    /// The name, and what the reference shows: for a method, its arguments as well, those in brackets being
    /// optional.
    QString name;
    QString signature;

    /// What it does, a line.
    QString about;

    /// Of a property: what it holds, and whether scripts may set it.
    bool isProperty = false;
    QString type;
    bool isWritable = false;

    /// Of a method: its arguments, and how many of them are needed.
    std::vector<ksScriptKind> parameters;
    int least = 0;

    /// Whether any number of arguments may follow.
    bool isVariadic = false;
};

/// The members that classes declare for scripts. A class says in its declaration, by Q_CLASSINFO, what each
/// of its members does; one that it does not describe is not for scripts:
///
/// \code
/// Q_CLASSINFO("width", "how wide it is")
/// Q_CLASSINFO("resize(width, [height])", "makes it as wide and high; a square by default")
/// \endcode
namespace ksScriptDescription {

/// What scripts call the class \a type: its name without "ksScript".
QString nameOf(const QMetaObject &type);

/// The members that \a type declares itself, in the order of their descriptions.
std::vector<ksScriptMember> ownMembersOf(const QMetaObject &type);

} // namespace ksScriptDescription
