// SPDX-License-Identifier: MIT
#include "ksMessage.h"

#include <utility>

void ksMessage::set(const std::string &key, const boost::any &value, bool overwrite)
{
    if (overwrite)
        entries.insert_or_assign(key, value);
    else
        entries.emplace(key, value);
}

void ksMessage::set(std::string &&key, boost::any &&value, bool overwrite)
{
    if (overwrite)
        entries.insert_or_assign(std::move(key), std::move(value));
    else
        entries.try_emplace(std::move(key), std::move(value));
}

bool ksMessage::has(const std::string &key) const
{
    return entries.find(key) != entries.end();
}
