// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptValues.h>

#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFVecTypes.h>

QString ksScriptValues::shown(const QJSValue &value)
{
    if (value.isCallable())
        return QStringLiteral("a function");
    if (const auto *object = qobject_cast<const ksScriptContainer *>(value.toQObject()))
        return object->label();
    return ksValueKinds::shown(plainFrom(value));
}

QVariant ksScriptValues::plainFrom(const QJSValue &value)
{
    if (value.isNull())
        return QVariant::fromValue(nullptr);
    if (!value.isArray())
        return value.isObject() ? QVariantMap() : value.toVariant();
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
        ksValueKinds::refuse(name, ksValueKinds::ofField(osg::SFBool()), shown(value));
    return value.toBool();
}

QString ksScriptValues::textFrom(const QJSValue &value, const QString &name)
{
    if (!value.isString())
        ksValueKinds::refuse(name, ksValueKinds::ofField(osg::SFString()), shown(value));
    return value.toString();
}

osg::Vec3f ksScriptValues::vectorFrom(const QJSValue &value, const QString &name)
{
    return tupleFrom<osg::Vec3f>(value, name, ksValueKinds::ofField(osg::SFVec3f()));
}

osg::FieldContainerPtr ksScriptValues::containerFrom(const QJSValue &value, const char *kind)
{
    if (value.isNull())
        return osg::NullFC;
    const auto *object = qobject_cast<const ksScriptContainer *>(value.toQObject());
    if (object == nullptr)
        throw ksEditorError(shown(value) + QStringLiteral(" is no ") + QLatin1String(kind));
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
