// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksFieldReferences.h>
#include <editor/scene/ksMesh.h>
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptRegistry.h>

#include <ksundo/core/ksUndoCommand.h>

#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>

namespace {

const ksScriptRegistry::Wrapper<osg::FieldContainerPtr, ksScriptContainer> wrapper;

/// The core of \a container, a node, or of the first of its children that has one of the class of \a PtrT; or
/// \a container itself, if that is one.
template <class PtrT>
PtrT findCore(const osg::FieldContainerPtr &container)
{
    if (const PtrT core = PtrT::dcast(container))
        return core;
    const osg::NodePtr node = osg::NodePtr::dcast(container);
    if (node == osg::NullFC)
        return osg::NullFC;
    if (const PtrT core = PtrT::dcast(node->getCore()))
        return core;
    for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
        if (const PtrT core = PtrT::dcast(node->getChild(i)->getCore()))
            return core;
    return osg::NullFC;
}

osg::FieldContainerPtr findMaterial(const osg::FieldContainerPtr &container)
{
    const osg::ksMeshPtr mesh = findCore<osg::ksMeshPtr>(container);
    return mesh == osg::NullFC ? osg::FieldContainerPtr() : osg::FieldContainerPtr(mesh->getMaterial());
}

/// The image of \a container, a colour component, or of the first component of a material that has one.
osg::ImagePtr findImage(const osg::FieldContainerPtr &container)
{
    if (const auto component = osg::ColorComponentPtr::dcast(container))
        return component->getImage();
    if (const auto material = osg::UberMaterialPtr::dcast(container))
        for (const osg::ColorComponentPtr &component : material->getColorComponentData())
            if (component->getImage() != osg::NullFC)
                return component->getImage();
    return osg::NullFC;
}

} // namespace

ksScriptContainer::ksScriptContainer(ksScriptHost &scriptHost, osg::UInt32 id)
    : host(scriptHost)
    , containerId(id)
{}

osg::FieldContainerPtr ksScriptContainer::container() const
{
    const osg::FieldContainerPtr found = osg::FieldContainerFactory::the()->getContainer(containerId);
    if (found == osg::NullFC)
        throw ksEditorError("the container " + std::to_string(containerId) + " has gone");
    return found;
}

QString ksScriptContainer::type() const
{
    return guarded([](const osg::FieldContainerPtr &container) {
        return QString::fromLatin1(container->getTypeName());
    });
}

QString ksScriptContainer::name() const
{
    return guarded(&ksContainers::nameOf);
}

QStringList ksScriptContainer::fields() const
{
    return guarded([](const osg::FieldContainerPtr &container) {
        QStringList names;
        const osg::FieldContainerType &containerType = container->getType();
        for (osg::UInt32 id = 1; id <= containerType.getNumFieldDescs(); ++id)
            names += QString::fromLatin1(containerType.getFieldDescription(id)->getCName());
        return names;
    });
}

QJSValue ksScriptContainer::fieldValue(const char *name) const
{
    return guarded([this, name](const osg::FieldContainerPtr &container) {
        osg::Field *field = container->getField(name);
        return field == nullptr ? QJSValue(QJSValue::NullValue) : host.value(*field);
    });
}

QJSValue ksScriptContainer::parent() const
{
    return fieldValue("parent");
}

QJSValue ksScriptContainer::children() const
{
    return fieldValue("children");
}

QJSValue ksScriptContainer::core() const
{
    return fieldValue("core");
}

QJSValue ksScriptContainer::attachments() const
{
    return fieldValue("attachments");
}

QJSValue ksScriptContainer::material() const
{
    return guarded(
        [this](const osg::FieldContainerPtr &container) { return host.object(findMaterial(container)); });
}

QJSValue ksScriptContainer::light() const
{
    return guarded([this](const osg::FieldContainerPtr &container) {
        return host.object(findCore<osg::UberLightPtr>(container));
    });
}

QJSValue ksScriptContainer::image() const
{
    return guarded([this](const osg::FieldContainerPtr &container) {
        const osg::FieldContainerPtr material = findMaterial(container);
        return host.object(findImage(material != osg::NullFC ? material : container));
    });
}

QJSValue ksScriptContainer::attachment(const QString &wanted) const
{
    return guarded([this, &wanted](const osg::FieldContainerPtr &container) {
        QJSValue found(QJSValue::NullValue);
        if (const osg::Field *field = container->getField("attachments"))
            ksFieldReferences::visit(*field, [this, &wanted, &found](const osg::FieldContainerPtr &attached) {
                if (wanted == QLatin1String(attached->getTypeName()))
                    found = host.object(attached);
            });
        return found;
    });
}

QJSValue ksScriptContainer::get(const QString &fieldName) const
{
    return guarded([this, &fieldName](const osg::FieldContainerPtr &container) {
        osg::Field *field = container->getField(fieldName.toLatin1().constData());
        if (field == nullptr)
            throw ksEditorError(ksContainers::label(container) + QStringLiteral(" has no field '") +
                                fieldName + QLatin1Char('\''));
        return host.value(*field);
    });
}

void ksScriptContainer::set(const QString &field, const QJSValue &value, const QString &text)
{
    host.guard([&] { host.history().add(make(field, value, text, ksMerging::Never)); });
}

void ksScriptContainer::drag(const QString &field, const QJSValue &values, const QJSValue &text)
{
    host.guard([&] {
        const QString title = titleFrom(text);
        addDrag(values,
                [&](const QJSValue &value, ksMerging merging) { return make(field, value, title, merging); });
    });
}

void ksScriptContainer::addDrag(
    const QJSValue &values,
    const std::function<QUndoCommand *(const QJSValue &value, ksMerging merging)> &make)
{
    if (!values.isArray())
        throw ksEditorError("the values of a drag are an array");
    host.history().drag(values.property(QStringLiteral("length")).toInt(), [&](int event) {
        return make(values.property(static_cast<quint32>(event)), ksMergingOfEvent(event));
    });
}

QUndoCommand *ksScriptContainer::make(const QString &field, const QJSValue &value, const QString &text,
                                      ksMerging merging) const
{
    const osg::FieldContainerPtr target = container();
    const QString title = text.isEmpty() ? ksFieldEdits::defaultText(target, field) : text;
    return ksFieldEdits::make(title, target, field, value.toVariant(), merging);
}
