// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ksDetail {

/// Strings one behind the other in one piece of memory.
class ksPackedStrings
{
public:
    void push_back(std::string_view text)
    {
        characters += text;
        ends.push_back(static_cast<osg::UInt32>(characters.size()));
    }

    std::string_view operator[](std::size_t i) const
    {
        const std::size_t begin = i == 0 ? 0 : ends[i - 1];
        return std::string_view(characters).substr(begin, ends[i] - begin);
    }

    std::size_t size() const { return ends.size(); }

    void reserve(std::size_t count) { ends.reserve(count); }

    void shrink_to_fit()
    {
        characters.shrink_to_fit();
        ends.shrink_to_fit();
    }

private:
    std::string characters;
    std::vector<osg::UInt32> ends;
};

/// A list as it was before an edit and as it is after it. What both begin and end with is kept once.
///
/// \tparam Values the list that the values are kept in
template <class Values>
class ksListVersions
{
public:
    /// Two empty lists.
    ksListVersions() = default;

    /// Copies two fields with lists.
    template <class FieldT>
    ksListVersions(const FieldT &before, const FieldT &after)
    {
        auto [ownBefore, ownAfter] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
        auto beforeEnd = before.end();
        auto afterEnd = after.end();
        while (beforeEnd != ownBefore && afterEnd != ownAfter && *(beforeEnd - 1) == *(afterEnd - 1)) {
            --beforeEnd;
            --afterEnd;
        }
        values.reserve(before.size() + static_cast<std::size_t>(afterEnd - ownAfter));
        append(before.begin(), ownBefore);
        commonStart = values.size();
        append(ownBefore, beforeEnd);
        ownOfBefore = values.size() - commonStart;
        append(ownAfter, afterEnd);
        ownOfAfter = values.size() - commonStart - ownOfBefore;
        append(afterEnd, after.end());
        values.shrink_to_fit();
    }

    /// Makes \a field the list before the edit, or the one after it.
    template <class FieldT>
    void copyTo(FieldT &field, bool isAfter) const
    {
        const std::size_t skipped = isAfter ? commonStart : commonStart + ownOfBefore;
        const std::size_t next = skipped + (isAfter ? ownOfBefore : ownOfAfter);
        field.resize(static_cast<osg::UInt32>(skipped + values.size() - next));
        auto target = field.begin();
        const auto copy = [&](std::size_t from, std::size_t end) {
            for (; from < end; ++from, ++target)
                if (const auto &value = values[from]; *target != value)
                    *target = value;
        };
        copy(0, skipped);
        copy(next, values.size());
    }

private:
    template <class Iterator>
    void append(Iterator begin, Iterator end)
    {
        std::for_each(begin, end, [this](const auto &value) { values.push_back(value); });
    }

    /// The common start, what only the list before has, what only the one after has, the common end.
    Values values;
    std::size_t commonStart = 0;
    std::size_t ownOfBefore = 0;
    std::size_t ownOfAfter = 0;
};

} // namespace ksDetail
