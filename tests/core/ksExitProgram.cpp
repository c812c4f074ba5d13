// SPDX-License-Identifier: MIT
#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/core/ksUndoStack.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Leaves, in the way that its only argument says, with the history windows open and with commands in both
/// stacks that hold the last references on parts of the scene.

namespace {

class HoldingCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(HoldingCommand)

public:
    HoldingCommand(const QString &text, const osg::NodePtr &node)
        : ksUndoCommand(text)
        , held(node)
    {}

    ~HoldingCommand() override { std::printf("%s\n", qPrintable(text())); }

private:
    ksHeldReference<osg::NodePtr> held;
};

osg::NodePtr makeNode()
{
    const osg::NodePtr node = osg::Node::create();
    const osg::NodePtr child = osg::Node::create();
    node->setCore(osg::Group::create());
    child->setCore(osg::Group::create());
    node->addChild(child);
    return node;
}

/// Prints everything but what the platform without a display has to say about raised windows.
void print(QtMsgType, const QMessageLogContext &, const QString &line)
{
    if (line != QLatin1String("This plugin does not support raise()"))
        std::fprintf(stderr, "%s\n", qPrintable(line));
}

} // namespace

int main(int argc, char **argv)
{
    const std::string_view way = argc > 1 ? argv[1] : "";

    qInstallMessageHandler(&print);
    if (way == "stack-first")
        ksUndoStack::get(0);
    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
    QApplication application(argc, argv);

    for (const unsigned int which : {0u, 1u}) {
        ksUndoStack *stack = ksUndoStack::get(which);
        stack->add(new HoldingCommand(QStringLiteral("done in %1").arg(which), makeNode()));
        stack->add(new HoldingCommand(QStringLiteral("undone in %1").arg(which), makeNode()));
        stack->undo();
        if (way != "one-window" || which == 0)
            stack->showHistory();
    }
    QCoreApplication::processEvents();
    if (way == "exit")
        std::exit(0);
    return 0;
}
