// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/ksEditorOptions.h>
#include <editor/session/ksHeadlessSession.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>

#include <QCoreApplication>

#include <cstdlib>
#include <iostream>

namespace {

constexpr int UsageError = 2;

/// What Qt and the image readers behind it have to say, in the form of the editor's own warnings.
void showQtMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    std::cerr << "ks-editor: warning: " << text.toStdString() << std::endl;
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

} // namespace

int main(int argc, char **argv)
{
    ksEditorOptions options;
    try {
        options = ksEditorOptions::parse(argumentsOf(argc, argv));
    } catch (const ksEditorError &error) {
        std::cerr << "ks-editor: " << error.what() << '\n' << ksEditorOptions::usage().toStdString();
        return UsageError;
    }

    qInstallMessageHandler(showQtMessage);
    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
    int applicationArguments = 1;
    const QCoreApplication application(applicationArguments, argv);
    const int exitCode = ksHeadlessSession(std::cout, std::cerr).run(options);
    osg::osgExit();
    return exitCode;
}
