// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/scene/ksFieldReferences.h>
#include <editor/scene/ksNumericFields.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGSFAttachmentMap.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFVecTypes.h>

#include <QScopeGuard>

#include <cmath>

namespace {

/// The integers up to this size are numbers of a script without loss: no other integer becomes the same
/// number.
constexpr double LargestExact = 9007199254740991.0;

template <class T>
QJSValue numberValue(T number)
{
    const auto real = static_cast<double>(number);
    if constexpr (std::is_integral_v<T>)
        if (std::abs(real) > LargestExact)
            return QJSValue(QString::number(number));
    return QJSValue(real);
}

constexpr const char *DefineMember = R"((function(object, name, member) {
    Object.defineProperty(object, name, {
        get: function() { return member; },
        set: function() { throw new TypeError('Cannot assign to read-only property "' + name + '"'); }
    });
}))";

} // namespace

ksScriptHost::ksScriptHost(QJSEngine &engine, ksEditHistory &history, std::ostream &out)
    : scriptEngine(engine)
    , editHistory(history)
    , output(out)
    , defineMember(engine.evaluate(QString::fromLatin1(DefineMember), ownFileName()))
{}

QJSValue ksScriptHost::object(const osg::FieldContainerPtr &container)
{
    if (container == osg::NullFC)
        return QJSValue(QJSValue::NullValue);
    const osg::UInt32 id = container.getFieldContainerId();
    const auto known = objects.find(id);
    if (known != objects.end())
        return known->second;

    QObject *made = ksScriptRegistry::makeObject(*this, container);
    const QJSValue object = scriptEngine.newQObject(made);
    ksScriptRegistry::makeParts(*this, container, *made, [this, &object](const char *name, QObject *part) {
        defineMember.call({object, QLatin1String(name), scriptEngine.newQObject(part)});
    });
    return objects.emplace(id, object).first->second;
}

QJSValue ksScriptHost::value(osg::Field &field)
{
    QJSValue result;
    const auto takeNumber = [&result](const auto &typed) { result = numberValue(typed.getValue()); };
    const auto takeTuple = [this, &result](const auto &typed) {
        using T = typename std::decay_t<decltype(typed)>::StoredType;
        result = scriptEngine.newArray(T::Size);
        for (osg::UInt32 i = 0; i < T::Size; ++i)
            result.setProperty(i, numberValue(typed.getValue().getValues()[i]));
    };
    if (ksNumericFields::visit(field, takeNumber) ||
        ksNumericFields::visitAs<osg::Vec2f, osg::Vec3f, osg::Vec4f, osg::Pnt3f, osg::Color3f, osg::Color4f,
                                 osg::Quaternion, osg::Matrix>(field, takeTuple))
        return result;
    if (const auto *flag = dynamic_cast<const osg::SFBool *>(&field))
        return QJSValue(flag->getValue());
    if (const auto *text = dynamic_cast<const osg::SFString *>(&field))
        return QJSValue(QString::fromStdString(text->getValue()));
    if (ksFieldReferences::arePossibleIn(field))
        return containers(field);
    std::string text;
    return QJSValue(QString::fromStdString(field.getValueByStr(text)));
}

QJSValue ksScriptHost::containers(const osg::Field &field)
{
    QJSValue list = scriptEngine.newArray();
    osg::UInt32 count = 0;
    ksFieldReferences::visit(field, [this, &list, &count](const osg::FieldContainerPtr &container) {
        list.setProperty(count++, object(container));
    });
    if (field.getCardinality() == osg::FieldType::MULTI_FIELD ||
        field.getType() == osg::SFAttachmentMap::getClassType())
        return list;
    return count > 0 ? list.property(0) : QJSValue(QJSValue::NullValue);
}

void ksScriptHost::guard(const std::function<void()> &work) const
{
    try {
        work();
    } catch (const std::exception &error) {
        scriptEngine.throwError(QString::fromUtf8(error.what()));
    }
}

void ksScriptHost::beginMacro(const QString &text)
{
    editHistory.beginMacro(text);
    openMacros.push_back(scriptEngine.newErrorObject(
        QJSValue::GenericError, QStringLiteral("the macro '") + text + QStringLiteral("' is not ended")));
}

void ksScriptHost::endMacro()
{
    if (openMacros.empty())
        throw ksEditorError("there is no open macro");
    // It may end and throw, or not end.
    const int depth = editHistory.macroDepth();
    const auto forget = qScopeGuard([this, depth] {
        if (editHistory.macroDepth() < depth)
            openMacros.pop_back();
    });
    editHistory.endMacro();
}

QJSValue ksScriptHost::endMacrosLeft()
{
    QJSValue first = openMacros.empty() ? QJSValue() : openMacros.front();
    while (!openMacros.empty())
        endMacro();
    return first;
}
