// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

/// Receives one line of text about something that is left out, while the work goes on.
using ksWarn = std::function<void(const QString &)>;
