// SPDX-License-Identifier: MIT
#include "Topics.h"

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>

#include <QApplication>
#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::AddCustomContext("compiler", KS_COMPILER);
    qputenv("QT_QPA_PLATFORM", "offscreen");

    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
    const QApplication application(argc, argv);
    // What a case leaves behind in the heap makes the next one's allocations dearer: small cases come first.
    addStackBenchmarks();
    addValueBenchmarks();
    addMessageBenchmarks();
    addFieldBenchmarks();
    addTransformBenchmarks();
    addLightBenchmarks();
    addTagBenchmarks();
    addMultiCommandBenchmarks();
    addGrowthBenchmarks();
    addHistoryWindowBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
