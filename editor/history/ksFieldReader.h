// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainerPtr.h>

#include <cstddef>
#include <functional>
#include <string>

/// Reads fields of every type, for comparisons and for showing them.
class ksFieldReader
{
public:
    ksFieldReader() = delete;

    /// A number that differs, as good as always, between fields of one type that hold different things.
    /// Containers count by their id.
    static std::size_t hash(const osg::Field &field);

    /// What \a field holds, in a form made for reading: containers with their class, long lists cut short.
    static std::string text(const osg::Field &field);

    /// Whether \a field is one of container handles, single or as a list.
    static bool refersToContainers(const osg::Field &field);

    /// Calls \a visit with every container that \a field refers to, attachments included, null handles left
    /// out.
    static void visitContainers(const osg::Field &field,
                                const std::function<void(const osg::FieldContainerPtr &)> &visit);
};
