// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptValues.h>

QString ksScriptValues::shown(const QJSValue &value)
{
    if (value.isArray())
        return QStringLiteral("an array");
    if (value.isCallable())
        return QStringLiteral("a function");
    if (const auto *object = qobject_cast<const ksScriptContainer *>(value.toQObject()))
        return object->label();
    return value.isObject() ? QStringLiteral("an object") : value.toString();
}

QVariant ksScriptValues::plainFrom(const QJSValue &value)
{
    if (!value.isArray())
        return value.isNumber() || value.isBool() || value.isString() ? value.toVariant() : QVariant();
    QVariantList list;
    const quint32 count = lengthOf(value);
    for (quint32 i = 0; i < count; ++i)
        list += plainFrom(value.property(i));
    return list;
}

quint32 ksScriptValues::lengthOf(const QJSValue &array)
{
    return array.property(QStringLiteral("length")).toUInt();
}

bool ksScriptValues::flagFrom(const QJSValue &value, const QString &name)
{
    if (!value.isBool())
        throw ksEditorError(QLatin1Char('\'') + name + QStringLiteral("' is true or false"));
    return value.toBool();
}

QString ksScriptValues::textFrom(const QJSValue &value, const QString &name)
{
    if (!value.isString())
        throw ksEditorError(QLatin1Char('\'') + name + QStringLiteral("' is a text"));
    return value.toString();
}

osg::Vec3f ksScriptValues::vectorFrom(const QJSValue &value, const QString &name)
{
    const std::array<float, 3> numbers = numbersFrom<3>(value, name);
    return {numbers[0], numbers[1], numbers[2]};
}

osg::FieldContainerPtr ksScriptValues::containerFrom(const QJSValue &value)
{
    if (value.isNull())
        return osg::NullFC;
    const auto *object = qobject_cast<const ksScriptContainer *>(value.toQObject());
    if (object == nullptr)
        throw ksEditorError(QLatin1Char('\'') + shown(value) + QStringLiteral("' is no container"));
    return object->container();
}

std::vector<osg::NodePtr> ksScriptValues::nodesFrom(const QJSValue &value)
{
    if (!value.isArray())
        return {containerFrom<osg::NodePtr>(value, "node")};
    std::vector<osg::NodePtr> nodes;
    const quint32 count = lengthOf(value);
    for (quint32 i = 0; i < count; ++i)
        nodes.push_back(containerFrom<osg::NodePtr>(value.property(i), "node"));
    return nodes;
}
