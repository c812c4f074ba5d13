// SPDX-License-Identifier: MIT
#include <ksundo/field/detail/ksInvokedMethod.h>

#include <ksLog.h>

#include <QObject>

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

namespace ksDetail {

namespace {

/// A method of a class, as it was when it was looked for.
struct Known
{
    int index;
    QByteArray name;
    QByteArray parameterType; ///< empty unless there is exactly one parameter
};

/// The method \a known of \a meta; an invalid one when that has another method in its place: classes that are
/// made at run time go, and another one may be where they were.
QMetaMethod methodOf(const QMetaObject &meta, const Known &known)
{
    const QMetaMethod method = meta.method(known.index); // invalid beyond the last
    const bool isSame = method.isValid() && method.name() == known.name &&
                        (method.parameterCount() == 1) != known.parameterType.isEmpty();
    return isSame ? method : QMetaMethod();
}

} // namespace

ksInvokedMethod::ksInvokedMethod(QObject *object, const char *signature)
    : object(object)
{
    static std::unordered_map<const QMetaObject *, std::map<std::string, Known, std::less<>>> classes;

    Q_ASSERT(object != nullptr);
    const QMetaObject &meta = *object->metaObject();
    auto &methods = classes[&meta];
    const auto entry = methods.find(std::string_view(signature));
    if (entry != methods.end())
        method = methodOf(meta, entry->second);
    if (method.isValid()) {
        parameterType = entry->second.parameterType;
        return;
    }
    const QByteArray normalized = QMetaObject::normalizedSignature(signature);
    method = meta.method(meta.indexOfMethod(normalized.constData()));
    if (!method.isValid()) {
        ksLog::error("Method not found: %s::%s", meta.className(), normalized.constData());
        this->object = nullptr;
        return;
    }
    if (method.parameterCount() == 1)
        parameterType = method.parameterTypes().constFirst();
    methods.insert_or_assign(signature, Known{method.methodIndex(), method.name(), parameterType});
}

void ksInvokedMethod::call() const
{
    invoke(QGenericArgument());
}

void ksInvokedMethod::call(bool argument) const
{
    // An integer parameter reads more than a bool.
    alignas(std::max_align_t) const std::array<bool, sizeof(std::max_align_t)> room{argument};
    invoke(parameterType.isEmpty() ? QGenericArgument()
                                   : QGenericArgument(parameterType.constData(), room.data()));
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
