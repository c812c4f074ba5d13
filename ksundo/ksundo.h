// SPDX-License-Identifier: MIT
#pragma once

/// Everything public of the library.

#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksSyncFunction.h>
#include <ksundo/core/ksTouch.h>
#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/core/ksUndoMacro.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldBaseUndoCommand.h>
#include <ksundo/field/ksFieldCast.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>
#include <ksundo/field/ksInvokeMultiCommand.h>
#include <ksundo/field/ksInvokedMethod.h>
#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>
#include <ksundo/field/ksTextFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>
#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>
#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksFunctionUndoCommand.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>
#include <ksundo/transform/ksTransformUndoBaseCommand.h>
#include <ksundo/transform/ksTransformUndoCommand.h>
#include <ksundo/transform/ksTransformValueUndoCommands.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>
#include <ksundo/transform/ksTransformationUndoCommand.h>
