// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>

#include <string>

/// Reads fields of every type, for comparisons and for showing them.
class ksFieldReader
{
public:
    ksFieldReader() = delete;

    /// All that \a field holds, as bytes that are the same for two fields of one type exactly when these hold
    /// the same. Containers count by their id.
    static std::string content(const osg::Field &field);

    /// Whether content(\a field) is \a known, without building it where it is large.
    static bool holds(const osg::Field &field, const std::string &known);

    /// What \a field holds, in a form made for reading: containers with their class, long lists cut short.
    static std::string text(const osg::Field &field);
};
