// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldRanges.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/edits/ksTreeEdits.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksNodePaths.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptNode.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>

#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <ksNodeUtils.h>

#include <QJSValueIterator>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

using namespace ksScriptValues;

namespace {

const ksScriptRegistry::Wrapper<osg::NodePtr, ksScriptNode> wrapper;

const QLatin1String Rotation("rotation");
const QLatin1String RotationOrder("rotationOrder");

std::string orderFrom(const QString &order)
{
    static const QStringList orders = {QStringLiteral("XYZ"), QStringLiteral("XZY"), QStringLiteral("YXZ"),
                                       QStringLiteral("YZX"), QStringLiteral("ZXY"), QStringLiteral("ZYX")};
    if (!orders.contains(order))
        throw ksEditorError(QLatin1Char('\'') + order +
                            QStringLiteral("' is no order of rotations: these are ") +
                            orders.join(QStringLiteral(", ")));
    return order.toStdString();
}

const ksTransformProperty &propertyFrom(const QString &name)
{
    const ksTransformProperty *property = ksTransformEdits::find(name);
    if (property == nullptr)
        throw ksEditorError(QStringLiteral("transforms have no '") + name + QLatin1Char('\''));
    return *property;
}

/// Calls \a take with the name and value of every member of \a object.
template <class Take>
void visitMembers(const QJSValue &object, const Take &take)
{
    if (!object.isObject() || object.isArray())
        throw ksEditorError(shown(object) + QStringLiteral(" is no object with members"));
    for (QJSValueIterator member(object); member.next();)
        take(member.name(), member.value());
}

/// The members that are vectors.
const std::map<QString, osg::Vec3f ksTransformation::*> &vectors()
{
    static const std::map<QString, osg::Vec3f ksTransformation::*> all = {
        {QStringLiteral("translation"), &ksTransformation::translation},
        {QStringLiteral("eulerRotation"), &ksTransformation::rotation},
        {QStringLiteral("scale"), &ksTransformation::scale},
        {QStringLiteral("shear"), &ksTransformation::shear},
        {QStringLiteral("scalePivot"), &ksTransformation::scalePivot},
        {QStringLiteral("rotatePivot"), &ksTransformation::rotatePivot},
        {QStringLiteral("scalePivotTranslation"), &ksTransformation::scalePivotTranslation},
        {QStringLiteral("rotatePivotTranslation"), &ksTransformation::rotatePivotTranslation},
        {QStringLiteral("rotationDirection"), &ksTransformation::rotationDirection}};
    return all;
}

/// Sets the member of \a values called \a name.
void assign(ksTransformation &values, const QString &name, const QJSValue &value)
{
    if (const auto vector = vectors().find(name); vector != vectors().end())
        values.*vector->second = vectorFrom(value, name);
    else if (name == QLatin1String("inheritType"))
        values.inheritType = numberFrom<int>(value, name);
    else if (name == QLatin1String("eulerRotationOrder"))
        values.eulerRotationOrder = orderFrom(textFrom(value, name));
    else if (name == QLatin1String("rotationDirectionOn"))
        values.rotationDirectionOn = flagFrom(value, name);
    else if (name == QLatin1String("rotationDirectionMode"))
        values.rotationDirectionMode = numberFrom<int>(value, name);
    else
        throw ksEditorError(QStringLiteral("a transformation has no '") + name + QLatin1Char('\''));
}

bool areSame(const osg::Vec3f &left, const osg::Vec3f &right)
{
    return left.isSame(right);
}

bool areSame(const ksTransformation &left, const ksTransformation &right)
{
    return std::all_of(vectors().begin(), vectors().end(),
                       [&](const auto &each) { return areSame(left.*each.second, right.*each.second); }) &&
           left.inheritType == right.inheritType && left.eulerRotationOrder == right.eulerRotationOrder &&
           left.rotationDirectionOn == right.rotationDirectionOn &&
           left.rotationDirectionMode == right.rotationDirectionMode;
}

} // namespace

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
            throw ksEditorError(QStringLiteral("there is no option '") + name + QLatin1Char('\''));
    };
    if (!options.isUndefined())
        visitMembers(options, take);
    const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(result.node, result.index);
    if (transform == osg::NullFC)
        throw ksEditorError(ksContainers::label(result.node) +
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
        throw ksEditorError(name + QStringLiteral(" has no world space"));
    if (result.index >= 0 && !property.hasIndex)
        throw ksEditorError(name + QStringLiteral(" can be edited in the node's own transform only"));
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
    host.guard([&] { perform({RotationOrder, order, {}, {}}); });
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
        propertyFrom(property);
        perform({property, value, options, {}});
    });
}

void ksScriptNode::drag(const QString &property, const QJSValue &values, const QJSValue &options)
{
    if (ksTransformEdits::find(property) == nullptr)
        ksScriptContainer::drag(property, values, options);
    else
        host.guard([&] { performDrag({property, {}, options, {}}, values); });
}

void ksScriptNode::turn(const QJSValue &quaternion)
{
    host.guard([&] { perform({Rotation, quaternion, {}, {}}); });
}

osg::Quaternion ksScriptNode::rotationFrom(const QJSValue &value) const
{
    const auto q = tupleFrom<osg::Vec4f>(value, QStringLiteral("quaternion"),
                                         QStringLiteral("an array [x, y, z, w] of numbers"));
    // In double precision, which has room for the squares of all numbers in single precision.
    const double length =
        std::sqrt(double(q[0]) * q[0] + double(q[1]) * q[1] + double(q[2]) * q[2] + double(q[3]) * q[3]);
    if (length == 0)
        throw ksEditorError("a quaternion of length 0 is no rotation");
    const auto part = [&](osg::UInt32 i) { return static_cast<float>(q[i] / length); };
    return {part(0), part(1), part(2), part(3)};
}

QUndoCommand *ksScriptNode::makeEdit(const ksScriptEdit &edit) const
{
    if (const ksTransformProperty *property = ksTransformEdits::find(edit.name)) {
        const ksTransformTarget edited = target(*property, edit.options);
        const osg::Vec3f value = vectorFrom(edit.value, edit.name);
        if (edited.world)
            ksTransformEdits::refuseUnreachable(edited.node, value);
        return ksMergingAs(edit.merging, property->make(edited, value, {}, host.parent()));
    }
    if (!edit.options.isUndefined() || (edit.name != Rotation && edit.name != RotationOrder))
        return ksScriptContainer::makeEdit(edit);
    const ksTransformTarget own = target(QJSValue());
    if (edit.name == RotationOrder)
        return ksMergingAs(edit.merging,
                           new ksEulerRotationOrderUndoCommand(
                               own.node, orderFrom(textFrom(edit.value, edit.name)), host.parent()));
    const QString text = QStringLiteral("Turn '") + ksContainers::nameOf(own.node) + QLatin1Char('\'');
    return ksMergingAs(edit.merging, new ksRotationAsQuaternionUndoCommand(
                                         text, own.node, rotationFrom(edit.value), host.parent()));
}

bool ksScriptNode::holds(const ksScriptEdit &edit) const
{
    if (const ksTransformProperty *property = ksTransformEdits::find(edit.name))
        return areSame(property->read(target(*property, edit.options)), vectorFrom(edit.value, edit.name));
    if (edit.name == RotationOrder)
        return ksNodeUtils::getTransformNodeEulerRotationOrder(target(QJSValue()).node, -1) ==
               orderFrom(textFrom(edit.value, edit.name));
    if (edit.name == Rotation)
        return ksNodeUtils::getTransform3D(target(QJSValue()).node, -1)->getRotation() ==
               rotationFrom(edit.value);
    return ksScriptContainer::holds(edit);
}

void ksScriptNode::apply(const QJSValue &values, const QJSValue &options)
{
    host.guard([&] {
        const ksTransformTarget aim = target(options);
        if (aim.world)
            throw ksEditorError("a transformation has no world space");
        const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(aim.node, aim.index);
        const auto before = ksTransformation::of(transform);
        ksTransformation applied = before;
        visitMembers(
            values, [&applied](const QString &name, const QJSValue &value) { assign(applied, name, value); });
        ksFieldRanges::check(transform, QStringLiteral("rotationDirectionMode"),
                             {static_cast<double>(applied.rotationDirectionMode)});
        if (!areSame(before, applied))
            host.add(ksTransformEdits::makeApply(aim.node, applied, aim.index, true, {}, host.parent()));
    });
}

QString ksScriptNode::path() const
{
    return guarded([this](const osg::FieldContainerPtr &container) {
        const auto own = osg::NodePtr::dcast(container);
        if (!host.index().isInScene(own))
            throw ksEditorError(ksContainers::label(own) + QStringLiteral(" is not in the scene"));
        return QString::fromStdString(ksNodePaths::of(own));
    });
}

QJSValue ksScriptNode::add(const QString &name)
{
    QJSValue added;
    host.guard([&] {
        const osg::NodePtr parent = node();
        // What is refused goes.
        const osg::NodeRefPtr made(ksContainers::createNode(name.toStdString(), osg::Transform3D::create()));
        host.add(ksTreeEdits::makeAdd(parent, made));
        added = host.object(made);
    });
    return added;
}

QJSValue ksScriptNode::copy(const QJSValue &parent, const QString &name)
{
    QJSValue added;
    host.guard([&] {
        const auto place = containerFrom<osg::NodePtr>(parent, "node");
        const osg::NodeRefPtr made(ksTreeEdits::copy(node()));
        if (!name.isEmpty())
            osg::setName(made.get(), name.toStdString());
        host.add(ksTreeEdits::makeAdd(place, made));
        added = host.object(made);
    });
    return added;
}

void ksScriptNode::moveTo(const QJSValue &parent, int index)
{
    host.guard(
        [&] { host.add(ksTreeEdits::makeMove(node(), containerFrom<osg::NodePtr>(parent, "node"), index)); });
}

void ksScriptNode::remove()
{
    host.guard([&] { host.add(ksTreeEdits::makeRemove(node())); });
}
