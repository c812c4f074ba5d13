// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Everything public of the library.

// The history.
#include <ksundo/core/ksUndoGesture.h>
#include <ksundo/core/ksUndoMacro.h>
#include <ksundo/core/ksUndoStack.h>

// What one's own commands are made of.
#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/ksBeforeAfterUndoCommand.h>
#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksHandles.h>
#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksNonMergingUndoCommand.h>
#include <ksundo/core/ksSyncHook.h>
#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/field/ksFieldBaseUndoCommand.h>
#include <ksundo/field/ksTextFieldUndoCommand.h>
#include <ksundo/transform/ksFunctionUndoCommand.h>
#include <ksundo/transform/ksTransformUndoCommand.h>

// Every command class, and factories for some.
#include <ksundo/field/ksUndoUtil.h>
#include <ksundo/ksCommands.h>
