// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksSceneIndex.h>
#include <editor/window/ksDialogs.h>
#include <editor/window/ksMainWindow.h>

#include <ksundo/core/ksUndoStack.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>

#include <QApplication>
#include <QStringList>

/// What a person does: moves a node, renames it, hides it, takes some of that back. The name is that by which
/// edit_cost.py knows what to count. Rows that come or go make Qt's tree view lay all its open rows out anew,
/// which is painting's.
__attribute__((noinline)) void ksWindowCostEdit(ksDocument &document, const osg::NodePtr &node, int number)
{
    const ksTransformProperty &translation = *ksTransformEdits::find(QStringLiteral("translation"));
    document.add(translation.make({node}, osg::Vec3f(static_cast<float>(number), 0, 0), {}, nullptr));
    ksNodeEdits::rename(document, node, QString::number(number));
    ksNodeEdits::show(document, {node}, number % 2 == 0);
    document.stack().undo();
    document.stack().redo();
}

/// Opens a model in the window and edits one of its nodes: to count what an edit costs, see edit_cost.py.
/// usage: ks-window-cost MODEL NODE EDITS
int main(int argc, char **argv)
{
    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4)
        return 2;
    ksDocument document;
    ksDialogs dialogs;
    ksMainWindow window(document, dialogs);
    document.open(arguments[1]);
    const osg::NodePtr node = ksSceneIndex(document.root()).find(arguments[2].toStdString());
    document.selection().set(node);
    window.show();
    QCoreApplication::processEvents();
    for (int i = 1; i <= arguments[3].toInt(); ++i)
        ksWindowCostEdit(document, node, i);
    return 0;
}
