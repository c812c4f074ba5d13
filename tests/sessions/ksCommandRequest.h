// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>
#include <string>
#include <vector>

/// Which command a session is to build: its class, one of the targets of the class (the last of every eight
/// is null), a number from which its values follow, a number for what it is told about merging, and the
/// commands that it consists of.
struct ksCommandRequest
{
    std::string className;
    int target = 0;
    int value = 0;
    int merging = 0;
    std::vector<ksCommandRequest> parts{};

    friend std::ostream &operator<<(std::ostream &stream, const ksCommandRequest &request)
    {
        stream << "{\"" << request.className << "\", " << request.target << ", " << request.value;
        if (request.merging != 0 || !request.parts.empty())
            stream << ", " << request.merging;
        if (!request.parts.empty()) {
            stream << ", {";
            for (const ksCommandRequest &part : request.parts)
                stream << (&part == &request.parts.front() ? "" : ", ") << part;
            stream << '}';
        }
        return stream << '}';
    }
};
