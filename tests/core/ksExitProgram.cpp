// SPDX-License-Identifier: MIT
#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/core/ksUndoStack.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

/// Leaves, in the way that its only argument says, with commands in both stacks that hold the last references
/// on parts of the scene, and mostly with the history windows open.

namespace {

/// Says when it goes, and how many children its node has got by then, none without a node.
class HoldingCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(HoldingCommand)

public:
    HoldingCommand(const QString &text, const osg::NodePtr &node)
        : ksUndoCommand(text)
        , held(node)
    {}

    ~HoldingCommand() override
    {
        const osg::NodePtr node = held.get();
        std::printf("%s %u\n", qPrintable(text()), node == osg::NullFC ? 0 : node->getNChildren());
    }

    void redo() override
    {
        if (const osg::NodePtr node = held.get(); node != osg::NullFC)
            node->addChild(osg::Node::create());
    }
    void undo() override
    {
        if (const osg::NodePtr node = held.get(); node != osg::NullFC)
            node->subChild(osg::UInt32(0));
    }

private:
    ksHeldReference<osg::NodePtr> held;
};

/// What an application may have among its static objects. These are made before the stacks, and go after
/// them.
struct Statics
{
    std::unique_ptr<QUndoCommand> command;
    osg::NodeRefPtr node;
} statics;

osg::NodePtr makeNode()
{
    const osg::NodePtr node = osg::Node::create();
    node->setCore(osg::Group::create());
    node->addChild(osg::Node::create());
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
    osg::ChangeList::setReadWriteDefault();
    if (way == "stack-first")
        ksUndoStack::get(0)->add(new HoldingCommand(QStringLiteral("without a scene"), osg::NullFC));
    osg::osgInit(argc, argv);
    std::optional<QApplication> application;
    if (way != "no-application")
        application.emplace(argc, argv);
    if (way == "statics") {
        statics.node = makeNode();
        statics.command = std::make_unique<HoldingCommand>(QStringLiteral("static"), statics.node);
    }

    for (const unsigned int which : {0u, 1u}) {
        ksUndoStack *stack = ksUndoStack::get(which);
        stack->add(new HoldingCommand(QStringLiteral("done in %1").arg(which), makeNode()));
        stack->add(new HoldingCommand(QStringLiteral("undone in %1").arg(which), makeNode()));
        stack->undo();
        if (application && (way != "one-window" || which == 0))
            stack->showHistory();
    }
    if (application)
        QCoreApplication::processEvents();

    if (way == "application-gone") {
        application.reset();
        ksUndoStack::get(0)->undo();
        ksUndoStack::get(0)->add(new HoldingCommand(QStringLiteral("late"), makeNode()));
    }
    if (way == "scene-gone" || way == "scene-gone-cleared" || way == "scene-again")
        osg::osgExit();
    if (way == "scene-gone")
        ksUndoStack::get(0)->undo(); // which makes nothing, and takes away what is there
    if (way == "scene-gone-cleared")
        ksUndoStack::clearAll();
    if (way == "scene-again") {
        osg::osgInit(argc, argv);
        ksUndoStack::get(0)->redo();
        ksUndoStack::get(1)->add(new HoldingCommand(QStringLiteral("added"), makeNode()));
    }
    if (way == "exit")
        std::exit(0);
    return 0;
}
