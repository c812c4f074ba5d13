// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <sstream>
#include <string>
#include <utility>

/// Keeps what is written to it, and does something when a word comes in it the first time.
class ksWatchedText : public std::stringbuf
{
public:
    ksWatchedText(std::string awaitedWord, std::function<void()> whenItComes)
        : std::stringbuf(std::ios::out)
        , word(std::move(awaitedWord))
        , action(std::move(whenItComes))
    {}

    std::string text() const { return str(); }

private:
    /// Lines of records and errors are flushed.
    int sync() override
    {
        if (action && text().find(word) != std::string::npos)
            std::exchange(action, nullptr)();
        return 0;
    }

    const std::string word;
    std::function<void()> action;
};
