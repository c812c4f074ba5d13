// SPDX-License-Identifier: MIT
#include <ksundo/field/detail/ksInvokedMethod.h>

#include <ksLog.h>

#include <QObject>

#include <array>
#include <cstddef>

namespace {

/// Whether a parameter of the type \a type, as Qt knows it, can be given a flag. Of a type that nobody has
/// told Qt of, such as another name of an integer, only the caller knows.
bool takesFlag(int type)
{
    switch (type) {
    case QMetaType::UnknownType:
    case QMetaType::Bool:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

} // namespace

namespace ksDetail {

ksInvokedMethod::ksInvokedMethod(QObject *object, const char *signature)
    : object(object)
{
    Q_ASSERT(object != nullptr);
    const QMetaObject *meta = object->metaObject();
    int index = meta->indexOfMethod(signature); // most signatures are in Qt's form as they are
    if (index < 0) {
        const QByteArray normalized = QMetaObject::normalizedSignature(signature);
        index = meta->indexOfMethod(normalized.constData());
        if (index < 0)
            ksLog::error("Method not found: %s::%s", meta->className(), normalized.constData());
    }
    method = meta->method(index);
    if (!method.isValid()) {
        this->object = nullptr;
    } else if (method.parameterCount() == 1 && takesFlag(method.parameterType(0))) {
        const char *registered = QMetaType::typeName(method.parameterType(0)); // needs no list
        parameterType = registered ? registered : method.parameterTypes().constFirst().toStdString();
    }
}

void ksInvokedMethod::call() const
{
    invoke(QGenericArgument());
}

void ksInvokedMethod::call(bool argument) const
{
    // An integer parameter reads more than a bool.
    alignas(std::max_align_t) const std::array<bool, sizeof(std::max_align_t)> room{argument};
    invoke(parameterType.empty() ? QGenericArgument() : QGenericArgument(parameterType.c_str(), room.data()));
}

void ksInvokedMethod::invoke(QGenericArgument argument) const
{
    if (object == nullptr)
        return;
    if (!method.invoke(object, Qt::AutoConnection, argument))
        ksLog::error("Could not invoke: %s::%s", object->metaObject()->className(),
                     method.methodSignature().constData());
}

} // namespace ksDetail
