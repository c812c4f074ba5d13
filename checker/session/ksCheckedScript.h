// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptEngine.h>

class ksCheckedHistory;

/// Runs JavaScript files whose steps are checked. Besides what ksScriptEngine has, scripts have the function
/// check(), which checks the scene and ends by an error when it differs from the history.
class ksCheckedScript : public ksScriptEngine
{
public:
    /// Both must outlive the engine.
    ksCheckedScript(ksCheckedHistory &history, std::ostream &out);
};
