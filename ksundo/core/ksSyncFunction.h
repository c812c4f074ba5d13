// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/ksExport.h>

#include <functional>
#include <utility>

/// Gives a command class a function of its own that its commands call after writing, by which the application
/// mirrors their changes elsewhere. Setting it reaches all commands of the class, also those already on a
/// stack. To be set on the thread that runs the commands.
///
/// A class declares its instance extern and has it instantiated once, in the library, so that all modules of
/// a process share the function.
///
/// \tparam Command the class
/// \tparam Signature what the function takes
template <class Command, class Signature>
class KSUNDO_EXPORT ksSyncFunction
{
public:
    /// Replaces the function; an empty one switches syncing off.
    static void setSyncFunction(const std::function<Signature> &function)
    {
        std::function<Signature>(function).swap(s_sync);
    }

protected:
    template <class... Arguments>
    static void sync(Arguments &&...arguments)
    {
        if (s_sync)
            s_sync(std::forward<Arguments>(arguments)...);
    }

    static std::function<Signature> s_sync;
};

template <class Command, class Signature>
std::function<Signature> ksSyncFunction<Command, Signature>::s_sync;
