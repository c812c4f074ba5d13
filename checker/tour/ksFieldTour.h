// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

#include <OpenSG/OSGFieldContainerPtr.h>

/// The part of a tour with the commands on single fields: numbers of all types, flags, and the factories.
class ksFieldTour : private ksTourPart
{
public:
    using ksTourPart::ksTourPart;

    void run();

private:
    void editNumbers();
    void editNumbersOf(const osg::FieldContainerPtr &container);
    void editFlags();
    void editFlagsOf(const osg::FieldContainerPtr &container);
    void editIntegerAsFlag();
    void useFactories();
};
