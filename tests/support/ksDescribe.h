// SPDX-License-Identifier: MIT
#pragma once

#include <ksMessage.h>

#include <boost/any.hpp>

#include <string>

/// A value of a message with its exact type: int:3, bool:true, string:A, uint:7; ?<type> for any other.
inline std::string ksDescribe(const boost::any &value)
{
    if (const int *number = boost::any_cast<int>(&value))
        return "int:" + std::to_string(*number);
    if (const unsigned int *number = boost::any_cast<unsigned int>(&value))
        return "uint:" + std::to_string(*number);
    if (const bool *flag = boost::any_cast<bool>(&value))
        return *flag ? "bool:true" : "bool:false";
    if (const std::string *text = boost::any_cast<std::string>(&value))
        return "string:" + *text;
    return std::string("?") + value.type().name();
}

/// All values of a message, by key: id=int:3 index=int:0.
inline std::string ksDescribe(const ksMessage &message)
{
    std::string result;
    for (const auto &[key, value] : message.values())
        result += (result.empty() ? "" : " ") + key + '=' + ksDescribe(value);
    return result;
}

/// What \a command says about itself in a message.
template <class Command>
std::string ksMessageOf(const Command &command)
{
    ksMessage message;
    command.makeMessage(message);
    return ksDescribe(message);
}
