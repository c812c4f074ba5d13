// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

#include <OpenSG/OSGContainerMacros.h>

#include <string>

/// The part of a tour with the commands on tags: both lists of several nodes at once and of one, and tags of
/// nothing.
class ksTagTour : private ksTourPart
{
public:
    using ksTourPart::ksTourPart;

    void run();

private:
    void tagAll(osg::UInt32 list, const std::string &tag, bool adding);
    void tagOne();
    void tagNothing();
    QUndoCommand *make(std::size_t index, osg::UInt32 list, const std::string &tag, bool adding);
};
