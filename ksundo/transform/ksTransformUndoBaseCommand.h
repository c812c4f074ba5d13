// SPDX-License-Identifier: MIT
#pragma once

/// Marks a command as one that changes a transform.
class ksTransformUndoBaseCommand
{};
