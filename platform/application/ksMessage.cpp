// SPDX-License-Identifier: MIT
#include "ksMessage.h"

void ksMessage::set(const std::string &key, const boost::any &value, bool overwrite)
{
    if (overwrite)
        entries.insert_or_assign(key, value);
    else
        entries.emplace(key, value);
}

bool ksMessage::has(const std::string &key) const
{
    return entries.find(key) != entries.end();
}
