// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/core/ksUndoStack.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <cstdio>

/// A plugin with a command class of its own.

namespace {

class NumberCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(NumberCommand)

public:
    explicit NumberCommand(int number)
        : ksUndoCommand(QString::number(number))
    {}
    ~NumberCommand() override { say("gone"); }

    void redo() override { say("done"); }
    void undo() override { say("undone"); }

private:
    void say(const char *what) const { std::printf("%s %s\n", qPrintable(text()), what); }
};

} // namespace

/// Fills the history of a program that has none, and undoes a step of one that there is.
extern "C" __attribute__((visibility("default"))) void run()
{
    ksUndoStack *stack = ksUndoStack::get(0);
    if (!stack->isEmpty()) {
        stack->undo();
        return;
    }
    osg::osgInit(0, nullptr);
    stack->add(new NumberCommand(1));
    stack->add(new NumberCommand(2));
}
