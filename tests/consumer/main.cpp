// SPDX-License-Identifier: MIT
// An application outside the tree: hides a node, takes that back, and hears of both.
#include <ksundo/ksundo.h>

#include <OSGTransform3D.h>
#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <ksMessage.h>

#include <QApplication>

#include <iostream>
#include <string>

namespace {

std::string heard;

bool hear(const char *name, ksMessage &, int)
{
    heard += std::string(name) + ' ';
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
    const QApplication application(argc, argv);

    const osg::NodeRefPtr node(osg::Node::create());
    node->setCore(osg::Transform3D::create());
    const osg::UInt32 shown = node->getTravMask();
    ksUndoStack stack;
    stack.setMessageCallback(&hear);

    stack.add(new ksFieldUndoCommand<osg::UInt32>(QStringLiteral("Hide"), node.get(), "travMask", 0));
    const bool hidden = node->getTravMask() == 0;
    stack.undo();
    const bool passed =
        hidden && node->getTravMask() == shown && heard == "ksURManager::redo ksURManager::undo ";
    std::cout << (passed ? "passed" : "failed") << ": " << heard << '\n';
    return passed ? 0 : 1;
}
