// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>

namespace ksDetail {

/// What a command throws after its step, which stays done, when the notification that it requires is missing.
struct ksMissingNotification : std::bad_function_call
{};

/// Calls \a notification, a std::function, which must not be empty.
template <class Notification, class... Arguments>
void ksNotify(const Notification &notification, const Arguments &...arguments)
{
    if (!notification)
        throw ksMissingNotification();
    notification(arguments...);
}

/// Calls \a back, which takes back a part of a step. Of what the application throws within it, Qt warns: the
/// exception that ended the step is the one to be heard of.
template <class Back>
void ksTakeBack(Back back) noexcept
{
    try {
        back();
    } catch (...) {
        qWarning("ksundo: an exception of the application was dropped, as another one was on its way");
    }
}

/// Calls \a step and, when the application throws within it, \a back, which takes back what has been done by
/// then. The exception passes on.
template <class Step, class Back>
void ksStep(Step step, Back back)
{
    try {
        step();
    } catch (const ksMissingNotification &) {
        throw;
    } catch (...) {
        ksTakeBack(back);
        throw;
    }
}

/// Calls \a tell, by which the application hears of a step that is done. When it throws, \a back takes the
/// step back, and the application is told again.
template <class Tell, class Back>
void ksTell(Tell tell, Back back)
{
    ksStep(tell, [&] {
        back();
        tell();
    });
}

} // namespace ksDetail
