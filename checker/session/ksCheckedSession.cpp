// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <checker/session/ksCheckedScript.h>
#include <checker/session/ksCheckedSession.h>
#include <checker/tour/ksCommandClasses.h>
#include <checker/tour/ksTour.h>
#include <editor/session/ksOpenScene.h>

#include <OpenSG/OSGFieldContainerFactory.h>

#include <algorithm>

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

} // namespace

ksCheckedSession::ksCheckedSession(std::ostream &record, std::ostream &errorStream)
    : ksHeadlessSession("ks-checker",
                        "Edits a 3D model as a script says, or in every way there is, and checks the scene "
                        "after every step.",
                        record, errorStream)
{}

int ksCheckedSession::run(const ksEditorOptions &options)
{
    firstId = allContainers().size();
    return ksHeadlessSession::run(options);
}

int ksCheckedSession::edit(osg::NodeRefPtr root, const QString &script)
{
    ksTranscript transcript(out);
    int differences = 0;
    int tolerated = 0;
    int containers = 0;
    QString classes;
    {
        const ksOpenScene scene(root.get());
        ksCheckedHistory history(root.get(), transcript);
        root = osg::NodeRefPtr();
        containers = history.containerCount();
        if (script.isEmpty()) {
            ksTour(history).run();
            classes = QStringLiteral(", %1 of %2 command classes")
                          .arg(ksCommandClasses::countIn(history))
                          .arg(ksCommandClasses::all().size());
        } else
            ksCheckedScript(history, out).run(script);
        history.check();
        differences = history.differenceCount();
        tolerated = history.toleratedCount();
    }

    if (const std::ptrdiff_t left = livingSince(firstId); left != 0) {
        transcript.line(QStringLiteral("NOT RELEASED: %1 containers").arg(left));
        ++differences;
    }
    transcript.line(QStringLiteral("%1: %2 steps, %3 containers, %4 differences, %5 within tolerance%6")
                        .arg(differences == 0 ? QStringLiteral("OK") : QStringLiteral("FAILED"))
                        .arg(transcript.stepCount())
                        .arg(containers)
                        .arg(differences)
                        .arg(tolerated)
                        .arg(classes));
    return differences == 0 ? static_cast<int>(Done) : DifferenceFound;
}
