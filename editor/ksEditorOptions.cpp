// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/ksEditorOptions.h>

namespace {

[[noreturn]] void refuse(const QString &reason)
{
    throw ksEditorError(reason.toStdString());
}

} // namespace

QString ksEditorOptions::usage()
{
    return QStringLiteral("usage: ks-editor --headless MODEL [--script FILE]\n");
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
                refuse(QStringLiteral("more than one script"));
            if (++i == arguments.size() || arguments[i].isEmpty())
                refuse(QStringLiteral("--script needs a file"));
            options.script = arguments[i];
        } else if (argument.startsWith(QLatin1Char('-')))
            refuse(QStringLiteral("unknown option ") + argument);
        else if (!options.model.isEmpty())
            refuse(QStringLiteral("more than one model"));
        else
            options.model = argument;
    }
    if (!headless)
        refuse(QStringLiteral("--headless is missing"));
    if (options.model.isEmpty())
        refuse(QStringLiteral("no model is given"));
    return options;
}
