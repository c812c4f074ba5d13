// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/session/ksEditorOptions.h>

QString ksEditorOptions::usage()
{
    return QStringLiteral("--headless MODEL [--script FILE]");
}

QString ksEditorOptions::help()
{
    return QStringLiteral("  --headless     run without a window\n"
                          "  MODEL          a file of any format that Assimp reads\n"
                          "  --script FILE  run a script, written in JavaScript, on the model\n"
                          "  --help         show this help and exit\n"
                          "  --version      show the version and exit\n"
                          "\n"
                          "Exit status:\n"
                          "  0  all went well\n"
                          "  1  the model cannot be read\n"
                          "  2  the arguments are wrong\n"
                          "  3  the script cannot be read, or ended by an error\n");
}

ksEditorOptions ksEditorOptions::parse(const QStringList &arguments)
{
    ksEditorOptions options;
    bool headless = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (argument == QLatin1String("--help")) {
            options.task = ShowHelp;
            return options;
        }
        if (argument == QLatin1String("--version")) {
            options.task = ShowVersion;
            return options;
        }
        if (argument == QLatin1String("--headless"))
            headless = true;
        else if (argument == QLatin1String("--script")) {
            if (!options.script.isEmpty())
                throw ksEditorError("more than one script");
            if (++i == arguments.size() || arguments[i].isEmpty())
                throw ksEditorError("--script needs a file");
            options.script = arguments[i];
        } else if (argument.startsWith(QLatin1Char('-')))
            throw ksEditorError(QStringLiteral("unknown option ") + argument);
        else if (!options.model.isEmpty())
            throw ksEditorError("more than one model");
        else
            options.model = argument;
    }
    if (!headless)
        throw ksEditorError("--headless is missing");
    if (options.model.isEmpty())
        throw ksEditorError("no model is given");
    return options;
}
