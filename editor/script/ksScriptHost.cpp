// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/scene/ksFieldReferences.h>
#include <editor/scene/ksNumericFields.h>
#include <editor/script/ksScriptCall.h>
#include <editor/script/ksScriptConsole.h>
#include <editor/script/ksScriptDescription.h>
#include <editor/script/ksScriptFunction.h>
#include <editor/script/ksScriptHistory.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptPrelude.h>
#include <editor/script/ksScriptRegistry.h>

#include <ksundo/core/ksFindContainer.h>
#include <ksundo/field/ksInvokeMultiCommand.h>

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGSFAttachmentMap.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFVecTypes.h>

#include <QDir>
#include <QFileInfo>
#include <QJSValueIterator>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iterator>
#include <memory>
#include <ostream>
#include <thread>

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

/// A description of \a member for ksScriptPrelude.
QJSValue describe(QJSEngine &engine, const ksScriptMember &member)
{
    QJSValue object = engine.newObject();
    object.setProperty(QStringLiteral("name"), member.name);
    object.setProperty(QStringLiteral("signature"), member.signature);
    object.setProperty(QStringLiteral("about"), member.about);
    object.setProperty(QStringLiteral("isProperty"), member.isProperty);
    object.setProperty(QStringLiteral("type"), member.type);
    object.setProperty(QStringLiteral("isWritable"), member.isWritable);
    object.setProperty(QStringLiteral("least"), member.least);
    object.setProperty(QStringLiteral("isVariadic"), member.isVariadic);
    QJSValue parameters = engine.newArray(static_cast<uint>(member.parameters.size()));
    quint32 index = 0;
    for (const ksScriptKind &parameter : member.parameters) {
        QJSValue entry = engine.newObject();
        entry.setProperty(QStringLiteral("name"), parameter.name);
        entry.setProperty(QStringLiteral("type"), parameter.type);
        parameters.setProperty(index++, entry);
    }
    object.setProperty(QStringLiteral("parameters"), parameters);
    return object;
}

} // namespace

ksScriptHost::ksScriptHost(QJSEngine &engine, ksEditHistory &history, std::ostream &out)
    : scriptEngine(engine)
    , editHistory(history)
    , output(out)
    , sceneIndex(history.root())
{
    const QJSValue console = engine.newQObject(new ksScriptConsole(*this));
    const QJSValue goOn = engine.newQObject(new ksScriptFunction(
        *this,
        [this] {
            if (isToEnd.exchange(false))
                scriptEngine.setInterrupted(true);
        },
        &engine));
    const QJSValue goOnSetting = engine.newQObject(new ksScriptFunction(
        *this,
        [this] {
            if (isToEnd)
                scriptEngine.throwError(QStringLiteral("interrupted"));
        },
        &engine));
    preludeFunctions =
        engine.evaluate(QString::fromLatin1(ksScriptPrelude), ownFileName())
            .call({console.property(QStringLiteral("write")), goOn.property(QStringLiteral("call")),
                   goOnSetting.property(QStringLiteral("call"))});
    history.setObserver([this] { sceneIndex.noteChanges(); });
}

ksScriptHost::~ksScriptHost()
{
    editHistory.setObserver({});
}

void ksScriptHost::setWarningHandler(std::function<void(const QString &)> handler)
{
    warningHandler = std::move(handler);
}

void ksScriptHost::warn(const QString &text) const
{
    if (warningHandler)
        warningHandler(text);
    else
        output << "warning: " << text.toStdString() << '\n';
}

QString ksScriptHost::pathFrom(const QString &name) const
{
    return QFileInfo(scriptFile).absoluteDir().absoluteFilePath(name);
}

QJSValue ksScriptHost::prelude(const char *name) const
{
    return preludeFunctions.property(QLatin1String(name));
}

QJSValue ksScriptHost::object(const osg::FieldContainerPtr &container)
{
    if (container == osg::NullFC)
        return QJSValue(QJSValue::NullValue);
    const osg::UInt32 id = container.getFieldContainerId();
    const auto known = objects.find(id);
    if (known != objects.end())
        return known->second;

    if (objects.size() >= mostObjects)
        letGoOfObjects();
    QObject *made = ksScriptRegistry::makeObject(*this, container);
    QJSValue parts = scriptEngine.newObject();
    ksScriptRegistry::makeParts(*this, container, *made, [this, &parts](const char *name, QObject *part) {
        parts.setProperty(QLatin1String(name), object(part, scriptEngine.newObject()));
    });
    return objects.emplace(id, object(made, parts)).first->second;
}

void ksScriptHost::letGoOfObjects()
{
    for (auto each = objects.begin(); each != objects.end();)
        each = ksFindContainer<osg::FieldContainerPtr>(each->first) == osg::NullFC ? objects.erase(each)
                                                                                   : std::next(each);
    mostObjects = 2 * std::max(mostObjects / 2, objects.size());
}

QJSValue ksScriptHost::object(QObject *native, const QJSValue &parts)
{
    QStringList names;
    for (QJSValueIterator part(parts); part.next();)
        names += part.name();
    return prelude("wrap").call({scriptEngine.newQObject(native), type(*native->metaObject(), names), parts});
}

QJSValue ksScriptHost::type(const QMetaObject &type, const QStringList &parts)
{
    const auto known = types.find({&type, parts});
    if (known != types.end())
        return known->second;

    std::vector<const QMetaObject *> line;
    for (const QMetaObject *base = &type; base != nullptr; base = base->superClass())
        line.insert(line.begin(), base);
    QJSValue members = scriptEngine.newArray();
    quint32 count = 0;
    for (const QMetaObject *base : line)
        for (const ksScriptMember &member : ksScriptDescription::ownMembersOf(*base))
            members.setProperty(count++, describe(scriptEngine, member));
    const QJSValue made =
        prelude("makeType")
            .call({ksScriptDescription::nameOf(type), members, scriptEngine.toScriptValue(parts)});
    if (&type == &ksScriptHistory::staticMetaObject)
        prelude("addMacro").call({made});
    if (&type == &ksScriptConsole::staticMetaObject)
        prelude("addConsole").call({made});
    return types.emplace(std::make_pair(&type, parts), made).first->second;
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
    if (const auto *texts = dynamic_cast<const osg::MFString *>(&field)) {
        QStringList list;
        for (const std::string &text : texts->getValues())
            list += QString::fromStdString(text);
        return scriptEngine.toScriptValue(list);
    }
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
        const QString message = QString::fromUtf8(error.what());
        if (dynamic_cast<const ksOutputError *>(&error) != nullptr)
            outputFailure = message;
        scriptEngine.throwError(message);
    }
    // It is that of the outermost, which has run the step.
    if (calls > 0 || failureOfCall.isUndefined())
        return;
    prelude("fail").call({std::exchange(failureOfCall, QJSValue())});
    scriptEngine.throwError(QStringLiteral("a function of the script has failed"));
}

void ksScriptHost::interrupt()
{
    constexpr int Looks = 100;
    isToEnd = true;
    for (int i = 0; i < Looks && isToEnd; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    if (isToEnd.exchange(false))
        scriptEngine.setInterrupted(true);
}

bool ksScriptHost::isOutputFailure(const QJSValue &error) const
{
    // That of a function that a step called has more before it.
    return !outputFailure.isEmpty() &&
           error.property(QStringLiteral("message")).toString().endsWith(outputFailure);
}

void ksScriptHost::add(QUndoCommand *command)
{
    std::unique_ptr<QUndoCommand> owned(command);
    refuseWithinCall();
    if (command == nullptr)
        return;
    if (batch != nullptr)
        batch->add(owned.release());
    else
        editHistory.add(owned.release());
}

void ksScriptHost::refuseWithinCall() const
{
    if (calls > 0)
        throw ksEditorError("not possible within another step");
}

void ksScriptHost::call(const QJSValue &function)
{
    if (isEnding)
        return;
    const QScopedValueRollback<int> calling(calls, calls + 1);
    const QJSValue result = prelude("run").call({function});
    if (!result.isUndefined() && failureOfCall.isUndefined())
        failureOfCall = result.isError() ? result : result.property(QStringLiteral("error"));
}

void ksScriptHost::refuseWithinBatch() const
{
    if (batch != nullptr)
        throw ksEditorError("not possible within a batch");
}

void ksScriptHost::openBatch(const QString &text, ksMerging merging, const QJSValue &action)
{
    refuseWithinCall();
    refuseWithinBatch();
    batch = std::make_unique<ksScriptBatch>(
        action.isUndefined()
            ? std::make_unique<ksMultiCommand>(text)
            : std::make_unique<ksInvokeMultiCommand>(text, ksScriptCall::make(*this, action), "call()"));
    batchMerging = merging;
}

void ksScriptHost::closeBatch(bool succeeded)
{
    const std::unique_ptr<ksScriptBatch> ended = std::move(batch);
    batchMerging = ksMerging::Never;
    if (ended != nullptr && succeeded)
        add(ended->finish().release());
}

void ksScriptHost::open(const QString &text, bool isOfFunction)
{
    refuseWithinBatch();
    editHistory.beginMacro(text);
    macros.push_back(
        {text,
         scriptEngine.newErrorObject(QJSValue::GenericError,
                                     QStringLiteral("the macro '") + text + QStringLiteral("' is not ended")),
         isOfFunction,
         {}});
}

void ksScriptHost::close(bool keep)
{
    // It may end and throw, or not end.
    const int depth = editHistory.macroDepth();
    const Macro last = macros.back();
    const auto forget = qScopeGuard([this, depth] {
        if (editHistory.macroDepth() < depth)
            macros.pop_back();
    });
    if (!keep && macros.size() > 1)
        macros[macros.size() - 2].failure =
            last.failure.isEmpty()
                ? QStringLiteral("the macro '") + last.text + QStringLiteral("' has failed")
                : last.failure;
    editHistory.endMacro(keep);
}

void ksScriptHost::beginMacro(const QString &text)
{
    open(text, false);
}

void ksScriptHost::endMacro()
{
    refuseWithinBatch();
    if (macros.empty())
        throw ksEditorError("there is no open macro");
    if (macros.back().isOfFunction)
        throw ksEditorError(QStringLiteral("the macro '") + macros.back().text +
                            QStringLiteral("' ends with its function"));
    const QString failure = macros.back().failure;
    close(failure.isEmpty());
    if (!failure.isEmpty())
        throw ksEditorError(failure);
}

void ksScriptHost::openMacro(const QString &text)
{
    open(text, true);
}

void ksScriptHost::closeMacro(bool succeeded)
{
    QString failure;
    while (!macros.back().isOfFunction) {
        failure = macros.back().opened.property(QStringLiteral("message")).toString();
        close(false);
    }
    if (!macros.back().failure.isEmpty())
        failure = failure.isEmpty() ? macros.back().failure : failure;
    close(succeeded && failure.isEmpty());
    // The error that the function ended by says more.
    if (succeeded && !failure.isEmpty())
        throw ksEditorError(failure);
}

QJSValue ksScriptHost::endWhatIsLeft()
{
    const QJSValue first = macros.empty() ? QJSValue() : macros.front().opened;
    const QScopedValueRollback<bool> ending(isEnding, true);
    closeBatch(false);
    while (!macros.empty())
        close(false);
    return first;
}
