// SPDX-License-Identifier: MIT
#pragma once

#include <boost/any.hpp>

#include <map>
#include <string>

/// A record of named values that parts of the application hand to each other.
///
/// Keys are unique and kept in alphabetical order. A message owns its values; copying it copies them.
class ksMessage
{
public:
    using Values = std::map<std::string, boost::any>;

    /// Stores \a value under \a key. When the key exists already, \a overwrite tells whether the new value
    /// replaces the old one (true) or is dropped (false).
    void set(const std::string &key, const boost::any &value, bool overwrite);

    /// The same for a key and a value that the caller has no more use for.
    void set(std::string &&key, boost::any &&value, bool overwrite);

    /// True when a value is stored under \a key.
    bool has(const std::string &key) const;

    /// The value stored under \a key, or null when the key is absent or holds another type than \a T.
    /// The pointer is valid until the message changes.
    template <class T>
    const T *get(const std::string &key) const
    {
        const auto entry = entries.find(key);
        return entry == entries.end() ? nullptr : boost::any_cast<T>(&entry->second);
    }

    /// All values, by key.
    const Values &values() const { return entries; }

private:
    Values entries;
};
