// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaMethod>

#include <string>

class QObject;

namespace ksDetail {

/// A method of an object that commands call, found by its signature in the object's meta-object.
///
/// The object is not owned and not watched: the caller keeps it alive as long as the method may be called.
class ksInvokedMethod
{
public:
    /// Looks for the method of \a object, which must not be null, with \a signature: its name and the types
    /// of its parameters in parentheses. When there is none, "Method not found: class::signature" is logged
    /// and the calls do nothing.
    ksInvokedMethod(QObject *object, const char *signature);

    /// Calls the method without arguments.
    void call() const;

    /// Calls the method with \a argument when it takes exactly one parameter, which is a bool or an integer;
    /// without arguments otherwise. A type that Qt does not know must be another name of one of these.
    void call(bool argument) const;

private:
    void invoke(QGenericArgument argument) const;

    QObject *object;
    QMetaMethod method;
    std::string parameterType;
};

} // namespace ksDetail
