// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <checker/session/ksCheckedScript.h>
#include <checker/session/ksCheckedSession.h>
#include <checker/tour/ksCommandClasses.h>
#include <checker/tour/ksTour.h>
#include <editor/history/ksRecord.h>
#include <editor/ksEditorError.h>
#include <editor/session/ksEditorOptions.h>
#include <editor/session/ksOpenScene.h>
#include <editor/session/ksVerdict.h>

#include <OpenSG/OSGFieldContainerFactory.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>

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
    differences = 0;
    return ksHeadlessSession::run(options);
}

const char *ksCheckedSession::ownStatusHelp() const
{
    return "  4  the scene differed from the history, or was not released at the end\n";
}

int ksCheckedSession::edit(osg::NodeRefPtr root, const ksEditorOptions &options, ksRecord &record,
                           ksVerdict &verdict)
{
    ksTranscript transcript(record);
    int tolerated = 0;
    int containers = 0;
    QString classes;
    std::exception_ptr failure;
    const auto attempt = [&failure](const auto &work) {
        try {
            work();
        } catch (...) {
            failure = failure == nullptr ? std::current_exception() : failure;
        }
    };
    {
        const ksOpenScene scene(root.get());
        ksCheckedHistory history(root.get(), transcript);
        root = osg::NodeRefPtr();
        containers = history.containerCount();
        attempt([&] {
            runEdits(history, options, record, transcript);
            if (options.script.isEmpty())
                classes = QStringLiteral("%1 of %2 command classes")
                              .arg(ksCommandClasses::countIn(history))
                              .arg(ksCommandClasses::all().size());
        });
        attempt([&] {
            if (record.failure().isEmpty())
                history.check();
            transcript.finish();
        });
        differences = history.differenceCount();
        tolerated = history.toleratedCount();
        attempt([&] {
            if (failure == nullptr && differences == 0)
                saveOutput(history.root(), options, record);
        });
    }

    if (const std::ptrdiff_t left = livingSince(firstId); left != 0) {
        record.line(QStringLiteral("NOT RELEASED: ") + ksRecord::counted(static_cast<int>(left),
                                                                         QStringLiteral("container"),
                                                                         QStringLiteral("containers")),
                    ksRecord::Tone::Bad);
        record.object({{QStringLiteral("event"), QStringLiteral("notReleased")},
                       {QStringLiteral("containers"), static_cast<int>(left)}});
        ++differences;
    }
    verdict.count(transcript.stepCount(), QStringLiteral("step"), QStringLiteral("steps"));
    verdict.count(containers, QStringLiteral("container"), QStringLiteral("containers"));
    verdict.count(differences, QStringLiteral("difference"), QStringLiteral("differences"));
    verdict.count(tolerated, QStringLiteral("within tolerance"), QStringLiteral("within tolerance"),
                  QStringLiteral("withinTolerance"));
    if (!classes.isEmpty())
        verdict.remark(classes);
    if (failure != nullptr)
        std::rethrow_exception(failure);
    return exitCodeAfter(Done);
}

int ksCheckedSession::exitCodeAfter(int exitCode) const
{
    return differences == 0 ? exitCode : DifferenceFound;
}

void ksCheckedSession::runEdits(ksCheckedHistory &history, const ksEditorOptions &options, ksRecord &record,
                                ksTranscript &transcript)
{
    if (options.script.isEmpty()) {
        std::atomic<bool> isInterrupted = false;
        const auto goOn = [&isInterrupted] {
            if (isInterrupted)
                throw ksScriptError("interrupted");
        };
        runInterruptibly(
            options, [&isInterrupted] { isInterrupted = true; },
            [&history, &goOn] { ksTour(history, goOn).run(); });
        return;
    }
    runScript(
        options,
        [&record, &transcript, &history](const QString &line) {
            // What is printed within a step stands before it.
            if (history.isBetweenSteps())
                transcript.finishStep();
            record.print(line);
        },
        [&history](std::ostream &prints) { return std::make_unique<ksCheckedScript>(history, prints); });
}
