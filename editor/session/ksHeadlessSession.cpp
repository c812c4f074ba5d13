// SPDX-License-Identifier: MIT
#include <editor/export/ksSceneExporter.h>
#include <editor/history/ksPrintStream.h>
#include <editor/history/ksRecord.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/session/ksEditorOptions.h>
#include <editor/session/ksHeadlessSession.h>
#include <editor/session/ksInterrupter.h>
#include <editor/session/ksMemory.h>
#include <editor/session/ksVerdict.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <csignal>
#include <cstdlib>
#include <new>
#include <ostream>
#include <unistd.h>
#include <utility>

namespace {

/// Takes what Qt and the image readers behind it have to say, while a program runs.
std::function<void(const QString &)> qtMessages;

void takeQtMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    // One of the image readers says so of every image that is another's.
    if (!text.startsWith(QLatin1String("QTgaHandler::canRead()")))
        qtMessages(text);
    if (type == QtFatalMsg)
        std::abort();
}

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    return arguments;
}

/// Whether what is written to the file \a descriptor is to be coloured, see https://no-color.org.
bool showsColours(int descriptor)
{
    return isatty(descriptor) != 0 && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
}

/// What the edits are those of.
QString subjectOf(const ksEditorOptions &options)
{
    return options.script.isEmpty() ? options.model : options.script;
}

int countNodes(const osg::NodePtr &root)
{
    int count = 0;
    ksContainers::visitNodes(root, [&count](const osg::NodePtr &) { ++count; });
    return count;
}

} // namespace

ksHeadlessSession::ksHeadlessSession(const char *program, const char *summary, std::ostream &record,
                                     std::ostream &errorStream)
    : name(program)
    , purpose(summary)
    , out(record)
    , errors(errorStream)
{}

int ksHeadlessSession::start(int argc, char **argv)
{
    // Who closes the other end of a pipe makes a write fail, which is an error like others.
    std::signal(SIGPIPE, SIG_IGN);
    // So does a file that would become larger than files may.
    std::signal(SIGXFSZ, SIG_IGN);
    colouredErrors = showsColours(STDERR_FILENO);
    ksEditorOptions options;
    try {
        options = ksEditorOptions::parse(argumentsOf(argc, argv), window());
    } catch (const ksEditorError &error) {
        complain(QString::fromUtf8(error.what()));
        errors << "usage: " << usage().toStdString() << '\n';
        return UsageError;
    }
    if (options.task == ksEditorOptions::ShowHelp)
        return show(QStringLiteral("Usage: ") + usage() + QStringLiteral("\n\n") + QLatin1String(purpose) +
                    QStringLiteral("\n\n") + ksEditorOptions::help(window(), QLatin1String(ownStatusHelp())));
    if (options.task == ksEditorOptions::ShowVersion)
        return show(QLatin1String(name) + QStringLiteral(" " KSUNDO_VERSION "\n"));

    options.record.colours = showsColours(STDOUT_FILENO);
    QCoreApplication::setApplicationName(QString::fromLatin1(name));
    QCoreApplication::setApplicationVersion(QStringLiteral(KSUNDO_VERSION));
    qtMessages = [this](const QString &text) { warn(text); };
    qInstallMessageHandler(takeQtMessage);
    const auto resetHandler = qScopeGuard([] { qInstallMessageHandler(nullptr); });
    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
    const auto exit = qScopeGuard([] { osg::osgExit(); });
    if (options.task == ksEditorOptions::ShowWindow)
        return showWindow(options, argv);
    int applicationArguments = 1;
    const QCoreApplication application(applicationArguments, argv);
    return run(options);
}

int ksHeadlessSession::showWindow(const ksEditorOptions &, char **)
{
    return UsageError;
}

QString ksHeadlessSession::usage() const
{
    return ksEditorOptions::usage(QLatin1String(name), window());
}

int ksHeadlessSession::show(const QString &text)
{
    out << text.toStdString() << std::flush;
    if (out)
        return Done;
    complain(QStringLiteral("this cannot be written"));
    return OutputError;
}

void ksHeadlessSession::warn(const QString &text)
{
    ++warnings;
    try {
        if (sessionRecord != nullptr && sessionRecord->failure().isEmpty() &&
            sessionRecord->style().detail != ksRecordStyle::Quiet)
            sessionRecord->object(
                {{QStringLiteral("event"), QStringLiteral("warning")}, {QStringLiteral("text"), text}});
    } catch (const ksOutputError &) {
        // Those who warn stand no exception. The record knows of its failure, which ends the session.
    }
    const QString label = QStringLiteral("warning:");
    errors << name << ": "
           << (colouredErrors ? ksRecord::coloured(label, ksRecord::Tone::Doubtful) : label).toStdString()
           << ' ' << ksRecord::escaped(text).toStdString() << std::endl;
}

void ksHeadlessSession::complain(const QString &text) const
{
    // One line, and those of a call stack.
    const QString ofStack = QStringLiteral("\n    ");
    QStringList lines = text.split(ofStack);
    for (QString &line : lines)
        line = ksRecord::escaped(line);
    const QString shown = lines.join(ofStack);
    errors << name << ": "
           << (colouredErrors ? ksRecord::coloured(shown, ksRecord::Tone::Bad) : shown).toStdString()
           << std::endl;
}

int ksHeadlessSession::run(const ksEditorOptions &options)
{
    warnings = 0;
    ksRecord record(out, options.record);
    const QScopedValueRollback<ksRecord *> recording(sessionRecord, &record);
    ksVerdict verdict;
    QString error;
    int exitCode = runSteps(options, record, verdict, error);
    if (!record.failure().isEmpty()) {
        complain(record.failure());
        return OutputError;
    }
    if (!error.isEmpty())
        complain(error);
    verdict.count(warnings, QStringLiteral("warning"), QStringLiteral("warnings"));
    try {
        verdict.write(record, exitCode == Done, error);
    } catch (const ksOutputError &failure) {
        complain(QString::fromUtf8(failure.what()));
        exitCode = OutputError;
    }
    return exitCode;
}

int ksHeadlessSession::runSteps(const ksEditorOptions &options, ksRecord &record, ksVerdict &verdict,
                                QString &error)
{
    // What an error is about, where it does not say so itself, and what it makes the program exit with.
    QString subject = options.model;
    int exitCode = ModelError;
    bool isLoaded = false;
    const auto fail = [&error, &subject](const char *reason) {
        error = subject + QStringLiteral(": ") + QString::fromUtf8(reason);
    };
    try {
        ksInterrupter watching;
        const QScopedValueRollback<ksInterrupter *> guard(interrupter, &watching);
        // Not only when all the work is done.
        if (!options.output.isEmpty())
            ksSceneExporter::checkPath(options.output);
        osg::NodeRefPtr root = load(options, record);
        exitCode = ScriptError;
        isLoaded = true;
        refuseInterruption(options);
        subject = subjectOf(options);
        const int result = edit(std::exchange(root, {}), options, record, verdict);
        refuseInterruption(options);
        return result;
    } catch (const ksOutputError &failure) {
        error = QString::fromUtf8(failure.what());
        exitCode = OutputError;
    } catch (const ksEditorError &failure) {
        error = QString::fromUtf8(failure.what());
    } catch (const std::bad_alloc &) {
        fail("out of memory");
    } catch (const std::exception &failure) {
        fail(failure.what());
    }
    if (isLoaded)
        return exitCodeAfter(exitCode);
    verdict.remark(QStringLiteral("no scene"));
    return exitCode;
}

osg::NodeRefPtr ksHeadlessSession::load(const ksEditorOptions &options, ksRecord &record)
{
    const ksMemoryGuard guard(ksMemory::limit(options.memoryLimit, QFileInfo(options.model).size()));
    QString leftOut;
    const ksSceneImporter importer([this](const QString &warning) { warn(warning); },
                                   [&leftOut](const QString &what) { leftOut = what; });
    osg::NodeRefPtr root(importer.load(options.model));
    const QString file = QFileInfo(options.model).fileName();
    const int nodes = countNodes(root.get());
    if (options.record.detail != ksRecordStyle::Quiet) {
        record.line(QStringLiteral("model %1: %2 nodes").arg(file).arg(nodes) +
                    (leftOut.isEmpty() ? QString() : QStringLiteral("; left out: ") + leftOut));
        record.object({{QStringLiteral("event"), QStringLiteral("model")},
                       {QStringLiteral("file"), file},
                       {QStringLiteral("leftOut"), leftOut},
                       {QStringLiteral("nodes"), nodes}});
    }
    return root;
}

void ksHeadlessSession::runScript(const ksEditorOptions &options,
                                  const std::function<void(const QString &)> &print,
                                  const std::function<std::unique_ptr<ksScriptEngine>(std::ostream &)> &make)
{
    ksScriptEngine *running = nullptr;
    ksPrintStream prints(print, [&running] { running->interruptAtOnce(); });
    const std::unique_ptr<ksScriptEngine> engine = make(prints);
    running = engine.get();
    engine->setArguments(options.scriptArguments);
    engine->setWarningHandler([this](const QString &text) { warn(text); });
    runInterruptibly(
        options, [&engine] { engine->interrupt(); }, [&engine, &options] { engine->run(options.script); });
}

void ksHeadlessSession::runInterruptibly(const ksEditorOptions &options,
                                         const std::function<void()> &interrupt,
                                         const std::function<void()> &work)
{
    interrupter->start(options.timeLimit, ksMemory::limit(options.memoryLimit), interrupt,
                       [this, &options](const QString &reason) { endByForce(options, reason); });
    const auto stop = qScopeGuard([this] { interrupter->stop(); });
    try {
        work();
    } catch (const ksEditorError &) {
        refuseInterruption(options);
        throw;
    }
    // It may have come at the very end.
    refuseInterruption(options);
}

void ksHeadlessSession::endByForce(const ksEditorOptions &options, const QString &reason) const
{
    const QString error = subjectOf(options) + QStringLiteral(": ") + reason;
    complain(error);
    ksRecord record(out, options.record);
    ksVerdict verdict;
    verdict.remark(QStringLiteral("ended by force"));
    int exitCode = ScriptError;
    try {
        verdict.write(record, false, error);
    } catch (const std::exception &) {
        exitCode = OutputError;
    }
    std::_Exit(exitCode);
}

void ksHeadlessSession::refuseInterruption(const ksEditorOptions &options) const
{
    if (const QString reason = interrupter->reason(); !reason.isEmpty())
        throw ksScriptError(subjectOf(options) + QStringLiteral(": ") + reason);
}

void ksHeadlessSession::saveOutput(const osg::NodePtr &root, const ksEditorOptions &options, ksRecord &record)
{
    if (options.output.isEmpty() || !record.failure().isEmpty())
        return;
    refuseInterruption(options);
    ksSceneExporter::save(root, options.output);
    if (options.record.detail == ksRecordStyle::Quiet)
        return;
    const QString file = QFileInfo(options.output).fileName();
    record.line(QStringLiteral("saved ") + file);
    record.object({{QStringLiteral("event"), QStringLiteral("saved")}, {QStringLiteral("file"), file}});
}
