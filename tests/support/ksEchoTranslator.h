// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// Translates every text to its context and itself, Context|Text, for as long as it lives.
class ksEchoTranslator : public QTranslator
{
public:
    ksEchoTranslator() { QCoreApplication::installTranslator(this); }
    ~ksEchoTranslator() override { QCoreApplication::removeTranslator(this); }

    QString translate(const char *context, const char *sourceText, const char *, int) const override
    {
        return QLatin1String(context) + QLatin1Char('|') + QLatin1String(sourceText);
    }

    bool isEmpty() const override { return false; }
};
