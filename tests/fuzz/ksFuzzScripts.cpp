// SPDX-License-Identifier: MIT
#include "ksFuzzTarget.h"
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <editor/history/ksRecord.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/session/ksInterrupter.h>
#include <editor/session/ksMemory.h>
#include <editor/session/ksOpenScene.h>
#include <tests/editor/ksEditorFixture.h>

#include <OSGTransform3D.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>

#include <sstream>
#include <string>

namespace {

constexpr double MostSeconds = 0.5;

/// A scene with something for the edits of each kind.
osg::NodeRefPtr makeScene()
{
    const auto add = [](const osg::NodePtr &parent, const osg::NodeCorePtr &core, const char *name) {
        const osg::NodePtr node = ksContainers::createNode(name, core);
        CPEdit(parent, osg::Node::ChildrenFieldMask);
        parent->addChild(node);
        return node;
    };
    osg::NodeRefPtr root(ksContainers::createNode("Root", osg::Transform3D::create()));
    const osg::NodePtr table = add(root, osg::Transform3D::create(), "Table");
    add(table, osg::UberLight::create(), "Lamp");
    const osg::UberMaterialPtr material = osg::UberMaterial::create();
    CPEdit(material, osg::FieldBits::AllFields);
    material->addColorComponent(osg::ColorComponent::create());
    material->setComponentSettings(osg::ColorComponentSettings::create());
    const osg::ksMeshPtr mesh = osg::ksMesh::create();
    CPEdit(mesh, osg::FieldBits::AllFields);
    mesh->getPositions().push_back(osg::Pnt3f(1, 2, 3));
    mesh->getIndices().push_back(0);
    mesh->setMaterial(material);
    add(table, mesh, "Plate");
    return root;
}

/// Runs \a script on \a history. It may end by an error, or be ended.
void runScript(ksCheckedHistory &history, const std::string &script)
{
    static const ksTestFolder folder;
    std::ostringstream out;
    ksScriptEngine engine(history, out);
    ksInterrupter interrupter;
    interrupter.start(MostSeconds, ksMemory::limit(0), [&engine] { engine.interrupt(); });
    const QString path = folder.write("script.js", script);
    const std::string error = ksErrorOf([&] { engine.run(path); });
    interrupter.stop();
    ksRequire(error.empty() || error.rfind(path.toStdString(), 0) == 0, "a script ends by " + error);
}

/// A script ends, and everything that it has done can be undone and redone.
void editByScript(std::string_view text)
{
    const std::ptrdiff_t living = ksLivingContainers();
    {
        std::ostringstream out;
        const osg::NodeRefPtr root = makeScene();
        const ksOpenScene scene(root.get());
        ksRecord record(out, {});
        ksTranscript transcript(record);
        ksUndoStack stack;
        ksCheckedHistory history(root, transcript, &stack);
        runScript(history, std::string(text));
        for (const bool undoing : {true, false, true})
            while (undoing ? stack.canUndo() : stack.canRedo())
                undoing ? history.undo() : history.redo();
        history.check();
        transcript.finish();
        ksRequire(history.differenceCount() == 0, "the scene differs from the history:\n" + out.str());
    }
    ksRequire(ksLivingContainers() == living, "containers are left");
}

const ksFuzzTarget scripts("scripts", &editByScript);

} // namespace
