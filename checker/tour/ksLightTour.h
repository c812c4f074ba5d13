// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

struct ksLightProperty;

/// The part of a tour with the commands on lights: drags of every value, the lists of a link set, visibility
/// references.
class ksLightTour : private ksTourPart
{
public:
    using ksTourPart::ksTourPart;

    void run();

private:
    void dragValue(const ksLightProperty &property, const osg::NodePtr &light);
    void linkLights();
    void linkNodes();
    void unlinkNodes();
    void referToVisibility(const osg::NodePtr &light, const osg::NodePtr &reference);
};
