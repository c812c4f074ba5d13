// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksFieldUndoCommand.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGSimpleMaterial.h>
#include <ksMessage.h>

#include <QUndoStack>
#include <QUndoView>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

/// How many operations most cases measure.
constexpr int stepCount = 1000;

/// What all cases but the factories' edit: a float of a material. The text takes no allocation.
inline const std::string fieldName = "shininess";

inline QString editText()
{
    return QStringLiteral("Change Shininess");
}

/// A merge window that no stall of the machine outlasts, in seconds.
constexpr double longMergeWindow = 3600.0;

/// Containers to edit, which go with the scene.
template <class PtrT>
class Scene
{
public:
    explicit Scene(int size)
    {
        containers.reserve(static_cast<std::size_t>(size));
        for (int i = 0; i < size; ++i) {
            containers.push_back(PtrT::StoredObjectType::create());
            osg::addRefCP(containers.back());
        }
    }
    ~Scene()
    {
        for (PtrT &container : containers)
            osg::clearRefCP(container);
    }
    Q_DISABLE_COPY(Scene)

    /// The container for the step \a step. Successive steps have different ones, if there is more than one,
    /// so that they do not merge, and come to all parts of the scene.
    const PtrT &target(int step) const
    {
        constexpr std::size_t stride = 7919;
        return containers[static_cast<std::size_t>(step) * stride % containers.size()];
    }

private:
    std::vector<PtrT> containers;
};

using MaterialScene = Scene<osg::SimpleMaterialPtr>;

/// What a command tells the application about itself, when written by hand.
class HandWrittenBase : public QUndoCommand
{
public:
    using QUndoCommand::QUndoCommand;

    virtual void describe(ksMessage &message) const = 0;
};

/// The command on one field as a careful engineer writes it on Qt alone: it keeps ids, finds its container
/// once a step, exchanges the value, ends the edit, and merges with edits of the same field within a window.
template <class T>
class HandWrittenCommand : public HandWrittenBase
{
public:
    HandWrittenCommand(const QString &text, const osg::FieldContainerPtr &container,
                       const std::string &fieldName, T value, QUndoCommand *parent = nullptr)
        : HandWrittenBase(text, parent)
        , containerId(container.getFieldContainerId())
        , value(value)
        , time(std::chrono::steady_clock::now())
    {
        if (const auto *description = container->getType().findFieldDescription(fieldName.c_str())) {
            fieldId = description->getFieldId();
            fieldMask = description->getFieldMask();
        }
    }

    void undo() override { exchange(); }
    void redo() override { exchange(); }
    int id() const override { return 1; }

    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *newer = static_cast<const HandWrittenCommand *>(other);
        const std::chrono::duration<double> delay = newer->time - time;
        if (newer->containerId != containerId || newer->fieldId != fieldId ||
            delay.count() >= longMergeWindow)
            return false;
        time = newer->time;
        return true;
    }

    void describe(ksMessage &message) const override
    {
        message.set("id", id(), true);
        message.set("container", containerId, true);
        message.set("fieldId", fieldId, true);
    }

private:
    void exchange()
    {
        const auto container = osg::FieldContainerFactory::the()->getContainer(containerId);
        if (container == osg::NullFC)
            return;
        auto *field = dynamic_cast<osg::SField<T> *>(container->getField(fieldId));
        if (field == nullptr)
            return;
        const T previous = field->getValue();
        field->setValue(value);
        value = previous;
        osg::endEditCP(container, fieldMask);
    }

    osg::UInt32 containerId;
    osg::UInt32 fieldId = 0;
    osg::BitVector fieldMask = 0;
    T value;
    std::chrono::steady_clock::time_point time;
};

/// Edits by the library.
class ByLibrary
{
public:
    void push(QUndoCommand *command) { stack.add(command); }
    void undo() { stack.undo(); }
    void redo() { stack.redo(); }
    int count() const { return stack.count(); }
    int index() const { return stack.index(); }
    void setMessageCallback(ksUndoStack::MessageCallback callback) { stack.setMessageCallback(callback); }
    void sendMessage() const { stack.sendMessage("ksURManager::redo", stack.index() - 1, true); }

    /// Counts in \a heard the steps that a listener hears of.
    void listen(int &heard)
    {
        QObject::connect(&stack, &ksUndoStack::redoPerformed, [&heard] { ++heard; });
        QObject::connect(&stack, &ksUndoStack::undoPerformed, [&heard] { ++heard; });
    }

    void showHistory() { stack.showHistory(); }

    static QUndoCommand *makeMultiCommand() { return new ksMultiCommand(editText()); }

    static QUndoCommand *makeCommand(const osg::FieldContainerPtr &container, float value,
                                     QUndoCommand *parent = nullptr)
    {
        return new ksFieldUndoCommand<float>(editText(), container, fieldName, value, parent);
    }

    static QUndoCommand *makeMergingCommand(const osg::FieldContainerPtr &container, float value)
    {
        auto *command = new ksFieldUndoCommand<float>(editText(), container, fieldName, value);
        command->setMergeResponseDelta(longMergeWindow);
        return command;
    }

private:
    ksUndoStack stack;
};

/// The same edits by hand, on a bare QUndoStack, which is listened to only for messages.
class ByHand
{
public:
    void push(QUndoCommand *command)
    {
        isAdding = true;
        stack.push(command);
        isAdding = false;
    }
    void undo() { stack.undo(); }
    void redo() { stack.redo(); }
    int count() const { return stack.count(); }
    int index() const { return stack.index(); }

    void setMessageCallback(ksUndoStack::MessageCallback newCallback)
    {
        callback = newCallback;
        QObject::connect(&stack, &QUndoStack::indexChanged, [this](int index) {
            const bool isUndo = index < lastIndex;
            lastIndex = index;
            if (isUndo)
                sendMessage("ksURManager::undo", index, false);
            else
                sendMessage("ksURManager::redo", index - 1, isAdding);
        });
    }

    void sendMessage() const { sendMessage("ksURManager::redo", stack.index() - 1, true); }

    void listen(int &heard)
    {
        QObject::connect(&stack, &QUndoStack::indexChanged, [&heard] { ++heard; });
    }

    void showHistory()
    {
        view = std::make_unique<QUndoView>(&stack);
        view->resize(300, 100);
        view->show();
        view->raise();
    }

    static QUndoCommand *makeMultiCommand() { return new QUndoCommand(editText()); }

    static QUndoCommand *makeCommand(const osg::FieldContainerPtr &container, float value,
                                     QUndoCommand *parent = nullptr)
    {
        return new HandWrittenCommand<float>(editText(), container, fieldName, value, parent);
    }

    static QUndoCommand *makeMergingCommand(const osg::FieldContainerPtr &container, float value)
    {
        return makeCommand(container, value);
    }

private:
    void sendMessage(const char *name, int index, bool added) const
    {
        const QUndoCommand *command = stack.command(index);
        if (callback == nullptr || command == nullptr)
            return;
        ksMessage message;
        message.set("index", index, true);
        message.set("added", added, true);
        message.set("text", command->text().toStdString(), true);
        if (const auto *described = dynamic_cast<const HandWrittenBase *>(command))
            described->describe(message);
        callback(name, message, 0);
    }

    QUndoStack stack;
    std::unique_ptr<QUndoView> view;
    ksUndoStack::MessageCallback callback = nullptr;
    int lastIndex = 0;
    bool isAdding = false;
};
