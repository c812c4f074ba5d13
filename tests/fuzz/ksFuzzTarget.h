// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <string_view>

/// Something that must stand any input, known by its name. Targets are objects that live as long as the
/// program.
class ksFuzzTarget
{
public:
    /// Throws nothing, and ends the process by ksRequire() when something does not hold.
    using Function = void (*)(std::string_view input);

    ksFuzzTarget(const char *name, Function function) { all()[name] = function; }

    /// By name.
    static std::map<std::string, Function> &all();
};

/// Ends the process, after it has said \a what, unless \a holds.
void ksRequire(bool holds, std::string_view what);

/// The same unless \a actual is \a expected; both are shown.
void ksRequireEqual(const std::string &actual, const std::string &expected, std::string_view what);

/// The entry of \a map for \a name; any one when there is none.
template <class Map>
typename Map::const_reference ksFuzzChoice(const Map &map, const std::string &name)
{
    const auto found = map.find(name);
    return found != map.end()
               ? *found
               : *std::next(map.begin(),
                            static_cast<std::ptrdiff_t>(std::hash<std::string>()(name) % map.size()));
}

/// An input, read from its start to its end, behind which there are zeros.
class ksFuzzInput
{
public:
    explicit ksFuzzInput(std::string_view input)
        : left(input)
    {}

    bool isAtEnd() const { return left.empty(); }

    std::size_t byte();

    /// A number below \a count, which is not 0.
    std::size_t below(std::size_t count) { return byte() % count; }

    /// What comes before the next line feed, which is passed over.
    std::string line();

    /// All that is left.
    std::string rest();

private:
    std::string_view left;
};
