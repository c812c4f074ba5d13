// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksInvokeTour.h>
#include <checker/tour/ksTourExtras.h>
#include <editor/edits/ksFieldEdits.h>
#include <editor/scene/ksFieldReader.h>

#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>
#include <ksundo/field/ksInvokeMultiCommand.h>

void ksInvokeTour::run()
{
    switchFlag();
    editBatch();
}

void ksInvokeTour::switchFlag()
{
    const osg::ksNodeSettingsPtr settings = extras.settings();
    const std::string off = ksFieldReader::text(osg::SFBool(false));
    const std::string on = ksFieldReader::text(osg::SFBool(true));
    const osg::UInt32 id = settings.getFieldContainerId();
    const QString reason =
        QStringLiteral("undoing a flag that calls a method does nothing, redoing it swaps the flag");
    history.expect({id, osg::ksNodeSettings::LockedFieldId, off, on, reason});
    history.expect({id, osg::ksNodeSettings::LockedFieldId, on, off, reason});

    const auto verifyLocked = [&](bool locked, const ksCallLog::Lines &calls) {
        history.verify(settings->getLocked() == locked, QStringLiteral("the flag is as expected"));
        verifyCalls(receiver.log(), calls);
    };
    add(new ksInvokeBoolFieldUndoCommand(text(settings, "locked"), settings, "locked", true, &receiver,
                                         "setLocked( bool )"),
        1);
    verifyLocked(true, {"setLocked 1"});
    history.undo();
    verifyLocked(true, {});
    history.redo();
    verifyLocked(false, {"setLocked 0"});
    history.undo();
    verifyLocked(false, {});
    history.redo();
    verifyLocked(true, {"setLocked 1"});
}

void ksInvokeTour::editBatch()
{
    const auto make = [this](float opacity, ksMerging merging) {
        auto *batch = new ksInvokeMultiCommand(QStringLiteral("Fade and refresh"), &receiver, "refresh()");
        for (const osg::ksNodeSettingsPtr &settings : targets.settings)
            ksFieldEdits::make(QString(), settings, QStringLiteral("opacity"), opacity, merging, batch);
        return batch;
    };
    add(make(0.25F, ksMerging::Never), 1);
    verifyCalls(receiver.log(), {"refresh"});
    add(make(0.5F, ksMerging::WithPrevious), 0);
    verifyCalls(receiver.log(), {"refresh"});
    history.undo();
    verifyCalls(receiver.log(), {"refresh"});
    history.redo();
    verifyCalls(receiver.log(), {"refresh"});
    history.verify(targets.settings.back()->getOpacity() == 0.5F, QStringLiteral("the last value is back"));
}
