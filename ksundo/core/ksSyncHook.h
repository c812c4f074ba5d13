// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

/// Gives a command class a function of its own that its commands call after writing, by which the application
/// mirrors their changes elsewhere: the type SyncFunction, for the signature given, a static s_sync, which is
/// empty at first, and a static setSyncFunction() that replaces it by a copy of its argument. An empty
/// function switches syncing off. Setting it reaches all commands of the class, also those already on a
/// stack; it is to be done on the thread that runs them, and not within the function that is replaced.
///
/// To be placed at the top of the class, which defines s_sync in its source file; what follows is private.
#define KS_SYNC_HOOK(...)                                     \
public:                                                       \
    using SyncFunction = std::function<__VA_ARGS__>;          \
    static void setSyncFunction(const SyncFunction &function) \
    {                                                         \
        SyncFunction(function).swap(s_sync);                  \
    }                                                         \
                                                              \
protected:                                                    \
    static SyncFunction s_sync;                               \
                                                              \
private:
