// SPDX-License-Identifier: MIT
#include <editor/edits/ksAttachUndoCommand.h>
#include <editor/edits/ksFieldEdits.h>
#include <editor/edits/ksMeshMaterialUndoCommand.h>
#include <editor/import/ksImageImporter.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksFieldReferences.h>
#include <editor/scene/ksMesh.h>
#include <editor/script/ksScriptCall.h>
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>

#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <memory>

using namespace ksScriptValues;

namespace {

const ksScriptRegistry::Wrapper<osg::FieldContainerPtr, ksScriptContainer> wrapper;

const QLatin1String Name("name");
const QLatin1String Material("material");

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
            if (component != osg::NullFC && component->getImage() != osg::NullFC)
                return component->getImage();
    return osg::NullFC;
}

/// The mesh whose material is meant by \a name as a value of \a container; NullFC when it is none. Throws
/// ksEditorError when a node has no mesh.
osg::ksMeshPtr meshOf(const osg::FieldContainerPtr &container, const QString &name)
{
    if (name != Material)
        return osg::NullFC;
    const osg::ksMeshPtr mesh = findCore<osg::ksMeshPtr>(container);
    if (mesh == osg::NullFC)
        throw ksEditorError(ksContainers::label(container) + QStringLiteral(" has no mesh"));
    return mesh;
}

/// The colour component whose image is meant by \a name as a value of \a container; NullFC when it is none.
osg::ColorComponentPtr componentOf(const osg::FieldContainerPtr &container, const QString &name)
{
    return name == QLatin1String("image") ? osg::ColorComponentPtr::dcast(container)
                                          : osg::ColorComponentPtr();
}

/// Whether the name of \a container, which has no field for it, is meant by \a name.
bool isName(const osg::FieldContainerPtr &container, const QString &name)
{
    return name == Name && container->getField("name") == nullptr;
}

/// What holds the name that is meant by \a name as a value of \a container; NullFC when it is none.
osg::NamePtr nameAttachmentOf(const osg::FieldContainerPtr &container, const QString &name)
{
    if (!isName(container, name))
        return osg::NullFC;
    const osg::NodePtr owner = ksContainers::ownerOf(container);
    const auto named = owner != osg::NullFC ? osg::AttachmentContainerPtr(owner)
                                            : osg::AttachmentContainerPtr::dcast(container);
    return named == osg::NullFC ? osg::NamePtr()
                                : osg::NamePtr::dcast(named->findAttachment(osg::Name::getClassType()));
}

/// The node that a name can be attached to.
osg::NodePtr namedOwnerOf(const osg::FieldContainerPtr &container)
{
    const osg::NodePtr owner = ksContainers::ownerOf(container);
    if (owner == osg::NullFC)
        throw ksEditorError(ksContainers::label(container) + QStringLiteral(" cannot be given a name"));
    return owner;
}

osg::RefPtr<osg::NamePtr> makeName(const QJSValue &value)
{
    return ksContainers::createName(textFrom(value, Name).toStdString());
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

QString ksScriptContainer::label() const
{
    return guarded(&ksContainers::label);
}

void ksScriptContainer::setName(const QString &name)
{
    host.guard([&] { perform({Name, name, {}, {}}); });
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

void ksScriptContainer::setMaterial(const QJSValue &material)
{
    host.guard([&] { perform({Material, material, {}, {}}); });
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
    host.guard([&] { perform({field, value, {}, text}); });
}

void ksScriptContainer::drag(const QString &field, const QJSValue &values, const QJSValue &text)
{
    host.guard([&] { performDrag({field, {}, {}, titleFrom(text)}, values); });
}

void ksScriptContainer::perform(ksScriptEdit edit)
{
    // A file is read once.
    osg::ImageRefPtr image;
    if (edit.value.isString() && componentOf(container(), edit.name) != osg::NullFC) {
        image = ksImageImporter::imageInFile(host.pathFrom(edit.value.toString()));
        edit.value = host.engine().newQObject(new ksScriptContainer(host, image.get().getFieldContainerId()));
    }
    // Batches merge when they have the same edits, whatever these change.
    if (host.parent() == nullptr && holds(edit))
        return;
    edit.merging = host.merging();
    QUndoCommand *const command = makeEdit(edit);
    if (command != nullptr && !edit.text.isEmpty())
        command->setText(edit.text);
    host.add(command);
}

void ksScriptContainer::performDrag(ksScriptEdit edit, const QJSValue &values)
{
    if (!merges(edit.name))
        throw ksEditorError(QLatin1Char('\'') + edit.name + QStringLiteral("' cannot be dragged"));
    addDrag(
        values,
        [&](const QJSValue &value, ksMerging merging) {
            edit.value = value;
            edit.merging = merging;
            return makeEdit(edit);
        },
        [&](const QJSValue &value) {
            edit.value = value;
            return holds(edit);
        });
}

void ksScriptContainer::switchFlag(const QString &field, bool value, const QJSValue &action)
{
    host.guard([&] {
        const QString title = ksFieldEdits::defaultText(container(), field);
        ksScriptCall::refuseUnlessFunction(action);
        if (!ksFieldEdits::holds(container(), field, value))
            host.add(new ksInvokeBoolFieldUndoCommand(title, container(), field.toStdString(), value,
                                                      ksScriptCall::make(host, action), "call()",
                                                      host.parent()));
    });
}

QString ksScriptContainer::titleFrom(const QJSValue &text)
{
    if (!text.isUndefined() && !text.isString())
        throw ksEditorError("the text of a step is a text");
    return text.isUndefined() ? QString() : text.toString();
}

void ksScriptContainer::addDrag(
    const QJSValue &values,
    const std::function<QUndoCommand *(const QJSValue &value, ksMerging merging)> &make,
    const std::function<bool(const QJSValue &value)> &isPresent)
{
    if (!values.isArray())
        throw ksEditorError("the values of a drag are an array");
    host.refuseWithinBatch();
    const quint32 count = lengthOf(values);
    // Commands may look at the value that they follow, so that these only tell whether the values fit.
    for (quint32 i = 0; i < count; ++i)
        std::unique_ptr<QUndoCommand>(make(values.property(i), ksMerging::Never));
    host.refuseWithinCall();
    if (count > 0 && !isPresent(values.property(count - 1)))
        host.history().drag(static_cast<int>(count), [&](int event) {
            return make(values.property(static_cast<quint32>(event)), ksMergingOfEvent(event));
        });
}

QUndoCommand *ksScriptContainer::makeEdit(const ksScriptEdit &edit) const
{
    const osg::FieldContainerPtr target = container();
    if (!edit.options.isUndefined())
        throw ksEditorError(QLatin1Char('\'') + edit.name + QStringLiteral("' takes no options"));
    if (edit.name == Name && edit.value.isString() && edit.value.toString().contains(QChar::Null))
        throw ksEditorError("'name' has a NUL character");
    if (const osg::ksMeshPtr mesh = meshOf(target, edit.name))
        return new ksMeshMaterialUndoCommand(mesh, containerOrNone<osg::MaterialPtr>(edit.value, "material"),
                                             host.parent());
    if (const osg::ColorComponentPtr component = componentOf(target, edit.name))
        return new ksImageFieldUndoCommand(
            component, "image", containerOrNone<osg::ImagePtr>(edit.value, "image"), host.parent());
    if (const osg::NamePtr known = nameAttachmentOf(target, edit.name))
        return ksFieldEdits::make(QStringLiteral("Rename '") + ksContainers::nameOf(target) +
                                      QLatin1Char('\''),
                                  known, Name, plainFrom(edit.value), edit.merging, host.parent());
    if (isName(target, edit.name))
        return new ksAttachUndoCommand(namedOwnerOf(target), makeName(edit.value).get(), host.parent());
    const QString title = edit.text.isEmpty() ? ksFieldEdits::defaultText(target, edit.name) : edit.text;
    return ksFieldEdits::make(title, target, edit.name, plainFrom(edit.value), edit.merging, host.parent());
}

bool ksScriptContainer::holds(const ksScriptEdit &edit) const
{
    const osg::FieldContainerPtr target = container();
    if (const osg::ksMeshPtr mesh = meshOf(target, edit.name))
        return mesh->getMaterial() == containerOrNone<osg::MaterialPtr>(edit.value, "material");
    if (const osg::ColorComponentPtr component = componentOf(target, edit.name))
        return component->getImage() == containerOrNone<osg::ImagePtr>(edit.value, "image");
    if (const osg::NamePtr known = nameAttachmentOf(target, edit.name))
        return ksFieldEdits::holds(known, Name, plainFrom(edit.value));
    if (isName(target, edit.name))
        return false;
    return ksFieldEdits::holds(target, edit.name, plainFrom(edit.value));
}

bool ksScriptContainer::merges(const QString &name) const
{
    const osg::FieldContainerPtr target = container();
    return meshOf(target, name) == osg::NullFC && componentOf(target, name) == osg::NullFC &&
           (!isName(target, name) || nameAttachmentOf(target, name) != osg::NullFC);
}
