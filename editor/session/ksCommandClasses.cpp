// SPDX-License-Identifier: MIT
#include <editor/history/ksCheckedHistory.h>
#include <editor/session/ksCommandClasses.h>

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>
#include <ksundo/field/ksInvokeMultiCommand.h>
#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>
#include <ksundo/light/ksAddNodeAsVisibilityReferenceUndoCommand.h>
#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>
#include <ksundo/light/ksLightValueUndoCommands.h>
#include <ksundo/material/ksColorComponentUndoCommand.h>
#include <ksundo/material/ksMaterialMultiUndoCommand.h>
#include <ksundo/material/ksMaterialUndoCommand.h>
#include <ksundo/material/ksSetEnvironmentUndoCommand.h>
#include <ksundo/tag/ksTagUndoCommands.h>
#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>
#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>
#include <ksundo/transform/ksTransformValueUndoCommands.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>
#include <ksundo/transform/ksTransformationUndoCommand.h>

#include <algorithm>

#define KS_COMMAND_CLASS(Class)   \
    {                             \
#Class, &Class::commandId \
    }

const std::vector<ksCommandClass> &ksCommandClasses::all()
{
    static const std::vector<ksCommandClass> classes = {
        KS_COMMAND_CLASS(ksMultiCommand),
        KS_COMMAND_CLASS(ksBoolFieldUndoCommand),
        KS_COMMAND_CLASS(ksFieldUndoCommand<long long>),
        KS_COMMAND_CLASS(ksFieldUndoCommand<unsigned long long>),
        KS_COMMAND_CLASS(ksFieldUndoCommand<int>),
        KS_COMMAND_CLASS(ksFieldUndoCommand<unsigned int>),
        KS_COMMAND_CLASS(ksFieldUndoCommand<short>),
        KS_COMMAND_CLASS(ksFieldUndoCommand<unsigned short>),
        KS_COMMAND_CLASS(ksFieldUndoCommand<signed char>),
        KS_COMMAND_CLASS(ksFieldUndoCommand<unsigned char>),
        KS_COMMAND_CLASS(ksFieldUndoCommand<float>),
        KS_COMMAND_CLASS(ksFieldUndoCommand<double>),
        KS_COMMAND_CLASS(ksImageFieldUndoCommand),
        KS_COMMAND_CLASS(ksInvokeBoolFieldUndoCommand),
        KS_COMMAND_CLASS(ksInvokeMultiCommand),
        KS_COMMAND_CLASS(ksStringFieldUndoCommand),
        KS_COMMAND_CLASS(ksStringsFieldUndoCommand),
        KS_COMMAND_CLASS(ksAddTransformVariantUndoCommand),
        KS_COMMAND_CLASS(ksEulerRotationOrderUndoCommand),
        KS_COMMAND_CLASS(ksRemoveTransformSwitchVariantUndoCommand),
        KS_COMMAND_CLASS(ksRotationAsQuaternionUndoCommand),
        KS_COMMAND_CLASS(ksTranslationUndoCommand),
        KS_COMMAND_CLASS(ksRotationUndoCommand),
        KS_COMMAND_CLASS(ksScaleUndoCommand),
        KS_COMMAND_CLASS(ksScalePivotUndoCommand),
        KS_COMMAND_CLASS(ksRotationPivotUndoCommand),
        KS_COMMAND_CLASS(ksScalePivotTranslationUndoCommand),
        KS_COMMAND_CLASS(ksRotationPivotTranslationUndoCommand),
        KS_COMMAND_CLASS(ksRotationPivotOrientationUndoCommand),
        KS_COMMAND_CLASS(ksRotationPivotDirectionUndoCommand),
        KS_COMMAND_CLASS(ksShearUndoCommand),
        KS_COMMAND_CLASS(ksTransformVariantMoveCommand),
        KS_COMMAND_CLASS(ksTransformVariantNameUndoCommand),
        KS_COMMAND_CLASS(ksTransformVariantOptionsUndoCommand),
        KS_COMMAND_CLASS(ksTransformationUndoCommand),
        KS_COMMAND_CLASS(ksAddNodeAsVisibilityReferenceUndoCommand),
        KS_COMMAND_CLASS(ksAddNodeToLightLinkSetUndoCommand),
        KS_COMMAND_CLASS(ksLightDiffuseUndoCommand),
        KS_COMMAND_CLASS(ksLightGlossyUndoCommand),
        KS_COMMAND_CLASS(ksLightIntensityUndoCommand),
        KS_COMMAND_CLASS(ksLightPenumbraAngleUndoCommand),
        KS_COMMAND_CLASS(ksLightConeAngleUndoCommand),
        KS_COMMAND_CLASS(ksLightAttenuationUndoCommand),
        KS_COMMAND_CLASS(ksColorComponentUndoCommand),
        KS_COMMAND_CLASS(ksMaterialMultiUndoCommand),
        KS_COMMAND_CLASS(ksMaterialUndoCommand),
        KS_COMMAND_CLASS(ksSetEnvironmentUndoCommand),
        KS_COMMAND_CLASS(ksAddTagUndoCommand),
        KS_COMMAND_CLASS(ksSubTagUndoCommand),
        KS_COMMAND_CLASS(ksAddEmptyTagUndoCommand),
        KS_COMMAND_CLASS(ksSubEmptyTagUndoCommand),
        KS_COMMAND_CLASS(ksDeleteConstraintReferenceUndoCommand),
    };
    return classes;
}

int ksCommandClasses::countIn(const ksCheckedHistory &history)
{
    return static_cast<int>(
        std::count_if(all().begin(), all().end(), [&history](const ksCommandClass &commandClass) {
            return history.hasAdded(commandClass.id());
        }));
}

void ksCommandClasses::verifyIn(ksCheckedHistory &history)
{
    for (const ksCommandClass &commandClass : all())
        history.verify(history.hasAdded(commandClass.id()),
                       QStringLiteral("there is a ") + QString::fromLatin1(commandClass.name));
}
