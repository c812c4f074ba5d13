// SPDX-License-Identifier: MIT
#include <editor/history/ksFieldReader.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksNumericFields.h>
#include <editor/script/ksScriptConstraint.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptLight.h>
#include <editor/script/ksScriptLinkSet.h>
#include <editor/script/ksScriptMaterial.h>
#include <editor/script/ksScriptNode.h>

#include <OSGAbstractConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGSFAttachmentMap.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFVecTypes.h>

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

/// A new object of the class \a Object when \a container is of the class of \a PtrT, null otherwise.
template <class PtrT, class Object>
QObject *makeAs(ksScriptHost &host, const osg::FieldContainerPtr &container)
{
    return PtrT::dcast(container) != osg::NullFC ? new Object(host, container.getFieldContainerId())
                                                 : nullptr;
}

QObject *makeObject(ksScriptHost &host, const osg::FieldContainerPtr &container)
{
    using Make = QObject *(*)(ksScriptHost &, const osg::FieldContainerPtr &);
    constexpr Make Makers[] = {&makeAs<osg::NodePtr, ksScriptNode>,
                               &makeAs<osg::UberLightPtr, ksScriptLight>,
                               &makeAs<osg::LightLinkSetPtr, ksScriptLinkSet>,
                               &makeAs<osg::UberMaterialPtr, ksScriptMaterial>,
                               &makeAs<osg::UBRDFMaterialPtr, ksScriptSurface>,
                               &makeAs<osg::AbstractConstraintPtr, ksScriptConstraint>,
                               &makeAs<osg::FieldContainerPtr, ksScriptContainer>};
    QObject *made = nullptr;
    for (const Make make : Makers)
        if (made == nullptr)
            made = make(host, container);
    return made;
}

} // namespace

ksScriptHost::ksScriptHost(QJSEngine &engine, ksCheckedHistory &history, ksTranscript &transcript)
    : scriptEngine(engine)
    , checkedHistory(history)
    , record(transcript)
{}

QJSValue ksScriptHost::object(const osg::FieldContainerPtr &container)
{
    if (container == osg::NullFC)
        return QJSValue(QJSValue::NullValue);
    const osg::UInt32 id = container.getFieldContainerId();
    const auto known = objects.find(id);
    if (known != objects.end())
        return known->second;
    return objects.emplace(id, scriptEngine.newQObject(makeObject(*this, container))).first->second;
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
    if (ksFieldReader::refersToContainers(field))
        return containers(field);
    return QJSValue(QString::fromStdString(ksFieldReader::text(field)));
}

QJSValue ksScriptHost::containers(const osg::Field &field)
{
    QJSValue list = scriptEngine.newArray();
    osg::UInt32 count = 0;
    ksFieldReader::visitContainers(field, [this, &list, &count](const osg::FieldContainerPtr &container) {
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
    } catch (const ksEditorError &error) {
        scriptEngine.throwError(QString::fromUtf8(error.what()));
    }
}
