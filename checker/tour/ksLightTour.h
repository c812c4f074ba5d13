// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

class ksTourExtras;
struct ksLightProperty;

/// The part of a tour with the commands on lights: drags of every value, the lists of a link set, visibility
/// references.
class ksLightTour : private ksTourPart
{
public:
    /// The extras, which must be in the scene, must outlive the part.
    ksLightTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                const ksTourExtras &tourExtras);

    void run();

private:
    void dragValue(const ksLightProperty &property, const osg::NodePtr &light);
    void linkLights();
    void linkNodes();
    void unlinkNodes();
    void referToVisibility(const osg::NodePtr &light, const osg::NodePtr &reference);

    const ksTourExtras &extras;
};
