// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/session/ksEditorOptions.h>

namespace {

/// The file that follows the option at the position \a i, which moves to it. \a known is the one given
/// before.
QString fileAfter(const QStringList &arguments, int &i, const QString &known)
{
    const QString &option = arguments[i];
    if (!known.isEmpty())
        throw ksEditorError(QStringLiteral("more than one ") + option.mid(2));
    if (++i == arguments.size() || arguments[i].isEmpty())
        throw ksEditorError(option + QStringLiteral(" needs a file"));
    return arguments[i];
}

} // namespace

QString ksEditorOptions::usage()
{
    return QStringLiteral("--headless MODEL [--script FILE] [--output FILE]");
}

QString ksEditorOptions::help()
{
    return QStringLiteral("  --headless     run without a window\n"
                          "  MODEL          a file of any format that Assimp reads\n"
                          "  --script FILE  run a script, written in JavaScript, on the model\n"
                          "  --output FILE  save the edited model in a file, .gltf or .glb\n"
                          "  --help         show this help and exit\n"
                          "  --version      show the version and exit\n"
                          "\n"
                          "Exit status:\n"
                          "  0  all went well\n"
                          "  1  the model cannot be read\n"
                          "  2  the arguments are wrong\n"
                          "  3  the script cannot be read, or ended by an error\n"
                          "  5  the edited model cannot be saved\n");
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
        else if (argument == QLatin1String("--script"))
            options.script = fileAfter(arguments, i, options.script);
        else if (argument == QLatin1String("--output"))
            options.output = fileAfter(arguments, i, options.output);
        else if (argument.startsWith(QLatin1Char('-')))
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
