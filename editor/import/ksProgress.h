// SPDX-License-Identifier: MIT
#pragma once

#include <editor/ksEditorError.h>

#include <functional>

/// Is asked now and then, with what has been done from 0 to 1, whether to go on.
using ksProgress = std::function<bool(double)>;

/// Somebody who was asked has said no.
class ksCancelled : public ksEditorError
{
public:
    using ksEditorError::ksEditorError;
};
