// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/edits/ksFieldRanges.h>
#include <editor/edits/ksLightEdits.h>
#include <editor/scene/ksContainers.h>
#include <editor/script/ksScriptLight.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <OpenSG/OSGSFBaseTypes.h>

using namespace ksScriptValues;

namespace {

const ksScriptRegistry::Wrapper<osg::UberLightPtr, ksScriptLight> wrapper;

const QLatin1String VisibilityReference("visibilityReference");

} // namespace

QJSValue ksScriptLight::value(const char *name) const
{
    return guarded([&](const osg::FieldContainerPtr &light) { return host.value(*light->getField(name)); });
}

void ksScriptLight::setValue(const char *name, const QJSValue &value)
{
    set(QLatin1String(name), value);
}

void ksScriptLight::setVisibilityReference(const QJSValue &node)
{
    host.guard([&] { perform({VisibilityReference, node, {}, {}}); });
}

void ksScriptLight::drag(const QString &property, const QJSValue &values, const QJSValue &text)
{
    ksScriptContainer::drag(property, values, text);
}

osg::NodePtr ksScriptLight::node() const
{
    const osg::NodePtr owner = ksContainers::ownerOf(container());
    if (owner == osg::NullFC)
        throw ksEditorError(ksContainers::label(container()) + QStringLiteral(" belongs to no node"));
    return owner;
}

ksLightValue ksScriptLight::valueFrom(const ksLightProperty &property, const QJSValue &value) const
{
    const QString name = QString::fromLatin1(property.name);
    const ksLightValue wanted =
        property.components == 3 ? tupleFrom<osg::Vec3f>(value, name, ksValueKinds::ofField(osg::SFColor3f()))
                                 : ksLightValue(numberFrom<float>(value, name), 0, 0);
    if (!property.accepts(wanted))
        ksValueKinds::refuse(name, QStringLiteral("0, 1 or 2"), shown(value));
    std::vector<double> numbers;
    for (int i = 0; i < property.components; ++i)
        numbers.push_back(wanted[static_cast<osg::UInt32>(i)]);
    ksFieldRanges::check(container(), name, numbers);
    return wanted;
}

QUndoCommand *ksScriptLight::makeEdit(const ksScriptEdit &edit) const
{
    if (edit.name == VisibilityReference && edit.options.isUndefined())
        return ksLightEdits::makeVisibilityReference(osg::UberLightPtr::dcast(container()),
                                                     containerOrNone<osg::NodePtr>(edit.value, "node"),
                                                     host.index().lights());
    const ksLightProperty *property = ksLightEdits::find(edit.name);
    if (property == nullptr || !edit.options.isUndefined())
        return ksScriptContainer::makeEdit(edit);
    const QString title = edit.text.isEmpty() ? ksFieldEdits::defaultText(node(), edit.name) : edit.text;
    return ksMergingAs(edit.merging,
                       property->make(title, node(), valueFrom(*property, edit.value), host.parent()));
}

bool ksScriptLight::holds(const ksScriptEdit &edit) const
{
    if (edit.name == VisibilityReference)
        return osg::UberLightPtr::dcast(container())->getVisibilityReference() ==
               containerOrNone<osg::NodePtr>(edit.value, "node");
    const ksLightProperty *property = ksLightEdits::find(edit.name);
    if (property == nullptr)
        return ksScriptContainer::holds(edit);
    return property->read(node()).isSame(valueFrom(*property, edit.value));
}

bool ksScriptLight::merges(const QString &name) const
{
    return name != VisibilityReference && ksScriptContainer::merges(name);
}
