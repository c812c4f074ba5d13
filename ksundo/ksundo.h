// SPDX-License-Identifier: MIT
#pragma once

/// Everything public of the library.

#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksTouch.h>
#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/core/ksUndoMacro.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldBaseUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>
