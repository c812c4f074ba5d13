// SPDX-License-Identifier: MIT
#include "ksScriptNode.h"

#include "ksCheckedHistory.h"
#include "ksContainers.h"
#include "ksFieldReader.h"
#include "ksScriptHost.h"
#include "ksScriptTags.h"
#include "ksScriptValues.h"
#include "ksScriptVariants.h"
#include "ksTransformEdits.h"
#include "ksWorldRounding.h"

#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>

#include <ksNodeUtils.h>

#include <QJSValueIterator>

#include <array>
#include <map>

using namespace ksScriptValues;

namespace {

std::string orderFrom(const QString &order)
{
    static const QStringList orders = {QStringLiteral("XYZ"), QStringLiteral("XZY"), QStringLiteral("YXZ"),
                                       QStringLiteral("YZX"), QStringLiteral("ZXY"), QStringLiteral("ZYX")};
    if (!orders.contains(order))
        refuse(QLatin1Char('\'') + order + QStringLiteral("' is no order of rotations: these are ") +
               orders.join(QStringLiteral(", ")));
    return order.toStdString();
}

const ksTransformProperty &propertyFrom(const QString &name)
{
    const ksTransformProperty *property = ksTransformEdits::find(name);
    if (property == nullptr)
        refuse(QStringLiteral("transforms have no '") + name + QLatin1Char('\''));
    return *property;
}

/// Calls \a take with the name and value of every member of \a object.
template <class Take>
void visitMembers(const QJSValue &object, const Take &take)
{
    if (!object.isObject() || object.isArray())
        refuse(QLatin1Char('\'') + object.toString() + QStringLiteral("' is no object with members"));
    for (QJSValueIterator member(object); member.next();)
        take(member.name(), member.value());
}

/// Sets the member of \a values called \a name.
void assign(ksTransformation &values, const QString &name, const QJSValue &value)
{
    static const std::map<QString, osg::Vec3f ksTransformation::*> vectors = {
        {QStringLiteral("translation"), &ksTransformation::translation},
        {QStringLiteral("eulerRotation"), &ksTransformation::rotation},
        {QStringLiteral("scale"), &ksTransformation::scale},
        {QStringLiteral("shear"), &ksTransformation::shear},
        {QStringLiteral("scalePivot"), &ksTransformation::scalePivot},
        {QStringLiteral("rotatePivot"), &ksTransformation::rotatePivot},
        {QStringLiteral("scalePivotTranslation"), &ksTransformation::scalePivotTranslation},
        {QStringLiteral("rotatePivotTranslation"), &ksTransformation::rotatePivotTranslation},
        {QStringLiteral("rotationDirection"), &ksTransformation::rotationDirection}};
    if (const auto vector = vectors.find(name); vector != vectors.end())
        values.*vector->second = vectorFrom(value, name);
    else if (name == QLatin1String("inheritType"))
        values.inheritType = numberFrom<int>(value, name);
    else if (name == QLatin1String("eulerRotationOrder"))
        values.eulerRotationOrder = orderFrom(value.toString());
    else if (name == QLatin1String("rotationDirectionOn"))
        values.rotationDirectionOn = flagFrom(value, name);
    else if (name == QLatin1String("rotationDirectionMode"))
        values.rotationDirectionMode = numberFrom<int>(value, name);
    else
        refuse(QStringLiteral("a transformation has no '") + name + QLatin1Char('\''));
}

} // namespace

ksScriptNode::ksScriptNode(ksScriptHost &scriptHost, osg::UInt32 id)
    : ksScriptContainer(scriptHost, id)
    , variantList(new ksScriptVariants(scriptHost, *this))
    , tagLists(new ksScriptTags(scriptHost, *this))
{}

osg::NodePtr ksScriptNode::node() const
{
    return osg::NodePtr::dcast(container());
}

ksTransformTarget ksScriptNode::target(const QJSValue &options) const
{
    ksTransformTarget result;
    result.node = node();
    const auto take = [&result](const QString &name, const QJSValue &value) {
        if (name == QLatin1String("index"))
            result.index = numberFrom<int>(value, name);
        else if (name == QLatin1String("world"))
            result.world = flagFrom(value, name);
        else
            refuse(QStringLiteral("there is no option '") + name + QLatin1Char('\''));
    };
    if (!options.isUndefined())
        visitMembers(options, take);
    const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(result.node, result.index);
    if (transform == osg::NullFC)
        refuse(ksContainers::label(result.node) +
               (result.index == -1 ? QStringLiteral(" has no transform")
                                   : QStringLiteral(" has no transform %1").arg(result.index)));
    // An edit of the direction restores neither of these when it is undone.
    result.directionAxis = transform->getRotationDirectionMode();
    result.directionOn = transform->getRotationDirectionOn();
    return result;
}

ksTransformTarget ksScriptNode::target(const ksTransformProperty &property, const QJSValue &options) const
{
    const ksTransformTarget result = target(options);
    const QString name = QLatin1Char('\'') + QString::fromLatin1(property.name) + QLatin1Char('\'');
    if (result.world && !property.hasSpace)
        refuse(name + QStringLiteral(" has no world space"));
    if (result.index >= 0 && !property.hasIndex)
        refuse(name + QStringLiteral(" can be edited in the node's own transform only"));
    return result;
}

QString ksScriptNode::rotationOrder() const
{
    return guarded([](const osg::FieldContainerPtr &container) {
        return QString::fromStdString(
            ksNodeUtils::getTransformNodeEulerRotationOrder(osg::NodePtr::dcast(container), -1));
    });
}

void ksScriptNode::setRotationOrder(const QString &order)
{
    host.guard([&] {
        const ksTransformTarget own = target(QJSValue());
        host.history().add(
            ksMergingAs(ksMerging::Never, new ksEulerRotationOrderUndoCommand(own.node, orderFrom(order))));
    });
}

QObject *ksScriptNode::variants() const
{
    return variantList;
}

QObject *ksScriptNode::tags() const
{
    return tagLists;
}

void ksScriptNode::translate(const QJSValue &value, const QJSValue &options)
{
    setTransform(QStringLiteral("translation"), value, options);
}

void ksScriptNode::rotate(const QJSValue &value, const QJSValue &options)
{
    setTransform(QStringLiteral("eulerRotation"), value, options);
}

void ksScriptNode::scale(const QJSValue &value, const QJSValue &options)
{
    setTransform(QStringLiteral("scale"), value, options);
}

void ksScriptNode::shear(const QJSValue &value, const QJSValue &options)
{
    setTransform(QStringLiteral("shear"), value, options);
}

QJSValue ksScriptNode::getTransform(const QString &property, const QJSValue &options) const
{
    return guarded([&](const osg::FieldContainerPtr &) {
        const ksTransformProperty &wanted = propertyFrom(property);
        osg::SFVec3f value(wanted.read(target(wanted, options)));
        return host.value(value);
    });
}

void ksScriptNode::setTransform(const QString &property, const QJSValue &value, const QJSValue &options)
{
    host.guard([&] {
        const ksTransformProperty &wanted = propertyFrom(property);
        edit(wanted, target(wanted, options), value, ksMerging::Never);
    });
}

void ksScriptNode::drag(const QString &property, const QJSValue &values, const QJSValue &options)
{
    const ksTransformProperty *wanted = ksTransformEdits::find(property);
    if (wanted == nullptr) {
        ksScriptContainer::drag(property, values, options);
        return;
    }
    host.guard([&] {
        const ksTransformTarget aim = target(*wanted, options);
        forEachOf(values,
                  [&](const QJSValue &value, ksMerging merging) { edit(*wanted, aim, value, merging); });
    });
}

void ksScriptNode::edit(const ksTransformProperty &property, const ksTransformTarget &aim,
                        const QJSValue &value, ksMerging merging)
{
    const osg::Vec3f before = property.read(aim);
    const osg::Vec3f after = vectorFrom(value, QString::fromLatin1(property.name));
    host.history().add(ksMergingAs(merging, property.make(aim, after, {})));
    if (aim.world)
        ksWorldRounding(property, aim, before).expectIn(host.history());
}

void ksScriptNode::turn(const QJSValue &quaternion)
{
    host.guard([&] {
        const ksTransformTarget own = target(QJSValue());
        const std::array<float, 4> q = numbersFrom<4>(quaternion, QStringLiteral("quaternion"));
        expectAnglesAnew(own);
        const QString text = QStringLiteral("Turn '") + ksContainers::nameOf(own.node) + QLatin1Char('\'');
        host.history().add(ksMergingAs(
            ksMerging::Never,
            new ksRotationAsQuaternionUndoCommand(text, own.node, osg::Quaternion(q[0], q[1], q[2], q[3]))));
    });
}

void ksScriptNode::expectAnglesAnew(const ksTransformTarget &own)
{
    const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(own.node, -1);
    const osg::SFVec3f anew(transform->convertQuatToEuler(transform->getRotation(), true));
    host.history().expect(
        ksExpectedDifference{transform.getFieldContainerId(), osg::Transform3D::EulerRotationFieldId,
                             ksFieldReader::text(*transform->getSFEulerRotation()), ksFieldReader::text(anew),
                             QStringLiteral("undoing a turn by a quaternion calculates the angles anew")});
}

void ksScriptNode::apply(const QJSValue &values, const QJSValue &options)
{
    host.guard([&] {
        const ksTransformTarget aim = target(options);
        if (aim.world)
            refuse(QStringLiteral("a transformation has no world space"));
        auto applied = ksTransformation::of(ksNodeUtils::getTransform3D(aim.node, aim.index));
        visitMembers(
            values, [&applied](const QString &name, const QJSValue &value) { assign(applied, name, value); });
        host.history().add(ksTransformEdits::makeApply(aim.node, applied, aim.index, true, {}));
    });
}
