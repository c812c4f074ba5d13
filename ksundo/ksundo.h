// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Everything public of the library: stack, bases of commands, what one's own commands are made of, factories,
/// and every command class.

#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksTouch.h>
#include <ksundo/core/ksUndoMacro.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksUndoUtil.h>
#include <ksundo/ksCommands.h>
