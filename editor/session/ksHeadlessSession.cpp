// SPDX-License-Identifier: MIT
#include <editor/history/ksCheckedHistory.h>
#include <editor/history/ksTranscript.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/ksEditorError.h>
#include <editor/ksEditorOptions.h>
#include <editor/scene/ksContainers.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/session/ksCommandClasses.h>
#include <editor/session/ksHeadlessSession.h>
#include <editor/session/ksOpenScene.h>
#include <editor/session/ksTour.h>

#include <OpenSG/OSGFieldContainerFactory.h>

#include <QFileInfo>

#include <algorithm>
#include <ostream>

namespace {

const osg::FieldContainerFactory::FieldContainerStore &allContainers()
{
    return *osg::FieldContainerFactory::the()->getFieldContainerStore();
}

/// The number of containers that are left of those made when the next id was \a first.
std::ptrdiff_t livingSince(std::size_t first)
{
    return std::count_if(allContainers().begin() + static_cast<std::ptrdiff_t>(first), allContainers().end(),
                         [](const osg::FieldContainerPtr &container) { return container != osg::NullFC; });
}

int countNodes(const osg::NodePtr &root)
{
    int count = 0;
    ksContainers::visitNodes(root, [&count](const osg::NodePtr &) { ++count; });
    return count;
}

} // namespace

ksHeadlessSession::ksHeadlessSession(std::ostream &record, std::ostream &errorStream)
    : out(record)
    , errors(errorStream)
{}

int ksHeadlessSession::run(const ksEditorOptions &options)
{
    try {
        return runChecked(options);
    } catch (const ksEditorError &error) {
        errors << "ks-editor: " << error.what() << '\n';
        return 1;
    }
}

int ksHeadlessSession::runChecked(const ksEditorOptions &options)
{
    const std::size_t firstId = allContainers().size();
    ksTranscript transcript(out);
    int differences = 0;
    int containers = 0;
    QString classes;
    {
        const ksSceneImporter importer([this](const QString &warning) {
            errors << "ks-editor: warning: " << warning.toStdString() << '\n';
        });
        osg::NodeRefPtr root = importer.load(options.model);
        transcript.line(QStringLiteral("model %1: %2 nodes")
                            .arg(QFileInfo(options.model).fileName())
                            .arg(countNodes(root.get())));

        const ksOpenScene scene(root.get());
        ksCheckedHistory history(root.get(), transcript);
        root = osg::NodeRefPtr();
        containers = history.containerCount();
        if (options.script.isEmpty()) {
            ksTour(history).run();
            classes = QStringLiteral(", %1 of %2 command classes")
                          .arg(ksCommandClasses::countIn(history))
                          .arg(ksCommandClasses::all().size());
        } else
            ksScriptEngine(history, transcript).run(options.script);
        history.check();
        differences = history.differenceCount();
    }

    if (const std::ptrdiff_t left = livingSince(firstId); left != 0) {
        transcript.line(QStringLiteral("NOT RELEASED: %1 containers").arg(left));
        ++differences;
    }
    transcript.line(QStringLiteral("%1: %2 steps, %3 containers, %4 differences%5")
                        .arg(differences == 0 ? QStringLiteral("OK") : QStringLiteral("FAILED"))
                        .arg(transcript.stepCount())
                        .arg(containers)
                        .arg(differences)
                        .arg(classes));
    return differences == 0 ? 0 : 1;
}
