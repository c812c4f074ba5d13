// SPDX-License-Identifier: MIT
#include <checker/history/ksTranscript.h>

#include <ostream>

namespace {
constexpr int LabelWidth = 9;
}

ksTranscript::ksTranscript(std::ostream &stream)
    : out(stream)
{}

void ksTranscript::step(const QString &what)
{
    ++steps;
    line(QStringLiteral("step %1: ").arg(steps) + what);
}

void ksTranscript::note(const QString &label, const QString &text)
{
    line(QStringLiteral("  ") + label.leftJustified(LabelWidth) + text);
}

void ksTranscript::line(const QString &text)
{
    out << text.toStdString() << '\n';
}
