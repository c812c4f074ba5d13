// SPDX-License-Identifier: MIT
#pragma once

#include <ksCommandList.h>

#include <type_traits>

/// The name of a command class in the list of commands; null for a class that is not there.
template <class Command>
inline constexpr const char *ksClassName = nullptr;

#define KS_CLASS_NAME(Class) \
    template <>              \
    inline constexpr const char *ksClassName<Class> = #Class;
KS_COMMAND_LIST(KS_CLASS_NAME)
#undef KS_CLASS_NAME

/// Whether a command class has a sync function.
template <class Command, class = void>
inline constexpr bool ksHasSync = false;
template <class Command>
inline constexpr bool ksHasSync<Command, std::void_t<decltype(Command::setSyncFunction(nullptr))>> = true;
