// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>
#include <string>
#include <vector>

/// Which command a session is to build: its class, one of the targets of the class (the last of every eight
/// is null), a number from which its values follow, a number for what it is told about merging, and the
/// commands that it consists of.
struct ksCommandSpec
{
    std::string className;
    int target = 0;
    int value = 0;
    int merging = 0;
    std::vector<ksCommandSpec> parts{};

    friend std::ostream &operator<<(std::ostream &stream, const ksCommandSpec &spec)
    {
        stream << "{\"" << spec.className << "\", " << spec.target << ", " << spec.value;
        if (spec.merging != 0 || !spec.parts.empty())
            stream << ", " << spec.merging;
        if (!spec.parts.empty()) {
            stream << ", {";
            for (const ksCommandSpec &part : spec.parts)
                stream << (&part == &spec.parts.front() ? "" : ", ") << part;
            stream << '}';
        }
        return stream << '}';
    }
};
