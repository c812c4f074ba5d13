// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QString>

#include <string>
#include <vector>

/// A difference that is right: going back, the field \a field of the container \a container holds \a actual
/// where it once held \a expected, both as ksFieldReader::text() gives them.
struct ksExpectedDifference
{
    osg::UInt32 container;
    osg::UInt32 field;
    std::string expected;
    std::string actual;

    /// Why that is right, for the transcript.
    QString reason;
};

/// A difference that is right: the numbers in single precision that the field \a field of the container \a
/// container holds are calculated by each step, and come back only as far as that carries.
struct ksExpectedRounding
{
    osg::UInt32 container;
    osg::UInt32 field;

    /// How far each number may be from what it was, as a part of the largest one of the value, which of a
    /// matrix is each column.
    double tolerance;

    /// What it is a part of where that is more: the length of the value where it is calculated. Of a matrix
    /// it counts for the translation only.
    double length;

    /// Where the numbers come from, for the transcript.
    QString reason;
};

/// All differences that are right.
struct ksExpectations
{
    std::vector<ksExpectedDifference> differences;
    std::vector<ksExpectedRounding> roundings;
};
