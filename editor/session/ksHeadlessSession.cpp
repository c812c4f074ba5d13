// SPDX-License-Identifier: MIT
#include <editor/export/ksSceneExporter.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/session/ksEditorOptions.h>
#include <editor/session/ksHeadlessSession.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdlib>
#include <iostream>

namespace {

/// What Qt and the image readers behind it have to say, in the form of the program's own warnings.
void showQtMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    std::cerr << QCoreApplication::applicationName().toStdString() << ": warning: " << text.toStdString()
              << std::endl;
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

int countNodes(const osg::NodePtr &root)
{
    int count = 0;
    ksContainers::visitNodes(root, [&count](const osg::NodePtr &) { ++count; });
    return count;
}

} // namespace

ksHeadlessSession::ksHeadlessSession(const char *program, const char *summary, std::ostream &record,
                                     std::ostream &errorStream)
    : out(record)
    , name(program)
    , purpose(summary)
    , errors(errorStream)
{}

int ksHeadlessSession::start(int argc, char **argv)
{
    ksEditorOptions options;
    try {
        options = ksEditorOptions::parse(argumentsOf(argc, argv));
    } catch (const ksEditorError &error) {
        errors << name << ": " << error.what() << "\nusage: " << usage() << '\n';
        return UsageError;
    }
    if (options.task == ksEditorOptions::ShowHelp) {
        out << "Usage: " << usage() << "\n\n" << purpose << "\n\n" << ksEditorOptions::help().toStdString();
        return Done;
    }
    if (options.task == ksEditorOptions::ShowVersion) {
        out << name << ' ' << KSUNDO_VERSION << '\n';
        return Done;
    }

    QCoreApplication::setApplicationName(QString::fromLatin1(name));
    qInstallMessageHandler(showQtMessage);
    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
    int applicationArguments = 1;
    const QCoreApplication application(applicationArguments, argv);
    const int exitCode = run(options);
    osg::osgExit();
    return exitCode;
}

std::string ksHeadlessSession::usage() const
{
    return std::string(name) + ' ' + ksEditorOptions::usage().toStdString();
}

int ksHeadlessSession::run(const ksEditorOptions &options)
{
    const auto fail = [this](const ksEditorError &error, ExitCode code) {
        errors << name << ": " << error.what() << '\n';
        return static_cast<int>(code);
    };
    output = options.output;
    try {
        // Not only when all the work is done.
        if (!output.isEmpty())
            ksSceneExporter::checkPath(output);
        return edit(load(options.model), options.script);
    } catch (const ksScriptError &error) {
        return fail(error, ScriptError);
    } catch (const ksOutputError &error) {
        return fail(error, OutputError);
    } catch (const ksEditorError &error) {
        return fail(error, ModelError);
    }
}

osg::NodeRefPtr ksHeadlessSession::load(const QString &model) const
{
    const ksSceneImporter importer(
        [this](const QString &warning) { errors << name << ": warning: " << warning.toStdString() << '\n'; });
    osg::NodeRefPtr root(importer.load(model));
    out << "model " << QFileInfo(model).fileName().toStdString() << ": " << countNodes(root.get())
        << " nodes\n";
    return root;
}

void ksHeadlessSession::saveOutput(const osg::NodePtr &root) const
{
    if (output.isEmpty())
        return;
    ksSceneExporter::save(root, output);
    out << "saved " << QFileInfo(output).fileName().toStdString() << '\n';
}
