// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/session/ksEditorOptions.h>

QString ksEditorOptions::usage()
{
    return QStringLiteral("--headless MODEL [--script FILE]");
}

ksEditorOptions ksEditorOptions::parse(const QStringList &arguments)
{
    ksEditorOptions options;
    bool headless = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
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
