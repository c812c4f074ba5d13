// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksTourPart.h>
#include <editor/edits/ksFieldEdits.h>

#include <QUndoCommand>

#include <algorithm>

ksTourPart::ksTourPart(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                       const ksTourExtras &tourExtras)
    : history(checkedHistory)
    , targets(chosenTargets)
    , extras(tourExtras)
{}

QString ksTourPart::text(const osg::FieldContainerPtr &container, const char *field)
{
    return ksFieldEdits::defaultText(container, QString::fromLatin1(field));
}

void ksTourPart::add(QUndoCommand *command, int grown)
{
    const int before = history.stack()->count();
    history.add(command);
    verifyGrowth(before, grown);
}

void ksTourPart::drag(int events, const std::function<QUndoCommand *(int event)> &make)
{
    const int before = history.stack()->count();
    history.drag(events, make);
    verifyGrowth(before, 1);
}

void ksTourPart::verifyGrowth(int before, int grown)
{
    history.verify(history.stack()->count() == before + grown,
                   grown == 0 ? QStringLiteral("it merged into the step before")
                              : QStringLiteral("it is a step of its own"));
}

void ksTourPart::verifyCalls(ksCallLog &log, const ksCallLog::Lines &expected)
{
    const ksCallLog::Lines actual = log.take();
    const auto [wrong, right] = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    const auto shown = [](const ksCallLog::Lines &lines, ksCallLog::Lines::const_iterator line) {
        return line == lines.end() ? QStringLiteral("nothing") : QString::fromStdString(*line);
    };
    history.verify(actual == expected, QStringLiteral("the call is \"") + shown(expected, right) +
                                           QStringLiteral("\", not \"") + shown(actual, wrong) +
                                           QLatin1Char('"'));
}
