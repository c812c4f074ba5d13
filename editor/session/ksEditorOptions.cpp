// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/session/ksEditorOptions.h>

#include <cmath>

namespace {

/// Reads arguments one after the other.
class Reader
{
public:
    Reader(const QStringList &line, ksEditorOptions::Window offered)
        : arguments(line)
        , window(offered)
    {}

    ksEditorOptions read()
    {
        while (at < arguments.size() && options.task == ksEditorOptions::EditModel)
            readOne(arguments[at++]);
        if (options.task == ksEditorOptions::EditModel)
            check();
        return options;
    }

private:
    void readOne(const QString &argument)
    {
        if (argument == QLatin1String("--help"))
            options.task = ksEditorOptions::ShowHelp;
        else if (argument == QLatin1String("--version"))
            options.task = ksEditorOptions::ShowVersion;
        else if (argument == QLatin1String("--headless"))
            isHeadless = true;
        else if (argument == QLatin1String("--quiet"))
            setDetail(ksRecordStyle::Quiet);
        else if (argument == QLatin1String("--verbose"))
            setDetail(ksRecordStyle::Verbose);
        else if (argument == QLatin1String("--json"))
            options.record.json = true;
        else if (argument == QLatin1String("--screenshot"))
            setOnce(options.screenshot, valueOf(argument, "a file"), "screenshot");
        else if (argument == QLatin1String("--select"))
            setOnce(options.selected, valueOf(argument, "a name"), "selection");
        else if (argument == QLatin1String("--script"))
            setOnce(options.script, valueOf(argument, "a file"), "script");
        else if (argument == QLatin1String("--output"))
            setOnce(options.output, valueOf(argument, "a file"), "output");
        else if (argument == QLatin1String("--time-limit"))
            setLimit(options.timeLimit, numberOf(argument, "a number of seconds"), "time limit");
        else if (argument == QLatin1String("--memory-limit"))
            setLimit(options.memoryLimit, numberOf(argument, "a number of megabytes"), "memory limit");
        else if (argument == QLatin1String("--")) {
            options.scriptArguments = arguments.mid(at);
            hasScriptArguments = true;
            at = arguments.size();
        } else if (argument.startsWith(QLatin1Char('-')))
            throw ksEditorError(QStringLiteral("unknown option ") + argument);
        else
            setOnce(options.model, argument, "model");
    }

    QString valueOf(const QString &option, const char *what)
    {
        if (at == arguments.size() || arguments[at].isEmpty() ||
            arguments[at].startsWith(QLatin1String("--")))
            throw ksEditorError(option + QStringLiteral(" needs ") + QLatin1String(what));
        return arguments[at++];
    }

    double numberOf(const QString &option, const char *what)
    {
        bool isNumber = false;
        const double number = valueOf(option, what).toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number) || number <= 0)
            throw ksEditorError(option + QStringLiteral(" needs ") + QLatin1String(what) +
                                QStringLiteral(" above 0"));
        return number;
    }

    static void setOnce(QString &target, const QString &value, const char *what)
    {
        if (!target.isEmpty())
            throw ksEditorError(QStringLiteral("more than one ") + QLatin1String(what));
        target = value;
    }

    static void setLimit(double &target, double value, const char *what)
    {
        if (target > 0)
            throw ksEditorError(QStringLiteral("more than one ") + QLatin1String(what));
        target = value;
    }

    void setDetail(ksRecordStyle::Detail detail)
    {
        if (options.record.detail != ksRecordStyle::Short && options.record.detail != detail)
            throw ksEditorError("--quiet and --verbose exclude each other");
        options.record.detail = detail;
    }

    void check()
    {
        if (!isHeadless && window == ksEditorOptions::Window::Offered) {
            options.task = ksEditorOptions::ShowWindow;
            refuseOptionsOfHeadless();
            if (!options.selected.isEmpty() && options.model.isEmpty())
                throw ksEditorError("--select is for a model, and none is given");
            return;
        }
        if (!isHeadless)
            throw ksEditorError("--headless is missing");
        if (!options.screenshot.isEmpty() || !options.selected.isEmpty())
            throw ksEditorError(
                "--screenshot and --select are for the window, which --headless goes without");
        if (options.model.isEmpty())
            throw ksEditorError("no model is given");
        if (hasScriptArguments && options.script.isEmpty())
            throw ksEditorError("there are arguments for a script, but there is no script");
    }

    void refuseOptionsOfHeadless() const
    {
        const bool isAsIs = options.script.isEmpty() && options.output.isEmpty() && !hasScriptArguments &&
                            options.record.detail == ksRecordStyle::Short && !options.record.json &&
                            options.timeLimit == 0 && options.memoryLimit == 0;
        if (!isAsIs)
            throw ksEditorError("--headless is missing, which the other options need");
    }

    const QStringList arguments;
    const ksEditorOptions::Window window;
    int at = 0;
    ksEditorOptions options;
    bool isHeadless = false;
    bool hasScriptArguments = false;
};

} // namespace

QString ksEditorOptions::usage(const QString &program, Window window)
{
    const QString headless =
        program +
        QStringLiteral(" --headless MODEL [OPTION...] [--output FILE] [--script FILE [-- ARGUMENT...]]");
    return window == Window::None ? headless
                                  : program +
                                        QStringLiteral(" [MODEL] [--select NODE] [--screenshot FILE]\n"
                                                       "       ") +
                                        headless;
}

QString ksEditorOptions::help(Window window, const QString &ownStatus)
{
    const QString ofWindow =
        window == Window::None
            ? QString()
            : QStringLiteral("  --select NODE           select the node of that name in the window\n"
                             "  --screenshot FILE       write a picture of the window, and exit\n");
    return QStringLiteral("  MODEL                   a file of any format that Assimp reads\n") + ofWindow +
           QStringLiteral(
               "  --headless              run without a window\n"
               "  --script FILE           run a script, written in JavaScript, on the model\n"
               "  --output FILE           save the edited model in a file, .gltf or .glb\n"
               "  -- ARGUMENT...          what the script finds in its array \"args\"\n"
               "  --quiet                 write what the script prints and the verdict only\n"
               "  --verbose               write all there is to say of each step\n"
               "  --json                  write one JSON object a line\n"
               "  --time-limit SECONDS    end the edits after that time\n"
               "  --memory-limit MB       take no more memory than that; by default, leave some of\n"
               "                          what the machine has\n"
               "  --help                  show this help and exit\n"
               "  --version               show the version and exit\n"
               "\n"
               "Exit status:\n"
               "  0  all went well\n"
               "  1  the model cannot be read\n"
               "  2  the arguments are wrong\n"
               "  3  the script cannot be read or ended by an error, or the work was ended\n") +
           ownStatus + QStringLiteral("  5  something that was to be written cannot be\n") +
           (window == Window::None
                ? QString()
                : QStringLiteral(
                      "  6  there is no screen to show the window on, or no OpenGL to draw its picture\n"));
}

ksEditorOptions ksEditorOptions::parse(const QStringList &arguments, Window window)
{
    return Reader(arguments, window).read();
}
