// SPDX-License-Identifier: MIT
#include <editor/edits/ksPartUndoCommand.h>
#include <editor/scene/ksFieldReader.h>
#include <editor/script/ksScriptBatch.h>

#include <ksundo/core/ksFindContainer.h>
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>
#include <ksundo/tag/ksTagUndoCommands.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGThread.h>

#include <algorithm>
#include <set>

ksScriptBatch::ksScriptBatch(std::unique_ptr<ksMultiCommand> made)
    : command(std::move(made))
    , start(osg::Thread::getCurrentChangeList()->sizeChanged())
{}

ksScriptBatch::~ksScriptBatch()
{
    undo();
}

void ksScriptBatch::add(QUndoCommand *part)
{
    std::unique_ptr<QUndoCommand> whole(part);
    records = records || dynamic_cast<ksEmptyTagUndoCommand *>(part) != nullptr;
    const int count = command->childCount();
    if (count > 0 && command->child(count - 1) == part)
        static_cast<void>(whole.release());
    else
        part = new ksPartUndoCommand(std::move(whole), command.get());
    if (dynamic_cast<ksInvokeBoolFieldUndoCommand *>(part) != nullptr) {
        switchesFlags = true;
        return;
    }
    done.push_back(part);
    part->redo();
}

std::unique_ptr<QUndoCommand> ksScriptBatch::finish()
{
    const std::vector<Content> after = changed();
    undo();
    const bool counts =
        switchesFlags || records || std::any_of(after.begin(), after.end(), [](const Content &each) {
            const auto container = ksFindContainer<osg::FieldContainerPtr>(each.container);
            return container != osg::NullFC &&
                   !ksFieldReader::holds(*container->getField(each.field), each.content);
        });
    return counts ? std::move(command) : nullptr;
}

std::vector<ksScriptBatch::Content> ksScriptBatch::changed() const
{
    std::vector<Content> contents;
    std::set<std::pair<osg::UInt32, osg::UInt32>> known;
    const osg::ChangeList &changes = *osg::Thread::getCurrentChangeList();
    for (auto change = changes.beginChanged() + start; change != changes.endChanged(); ++change) {
        const auto container = ksFindContainer<osg::FieldContainerPtr>(change->first);
        if (container == osg::NullFC)
            continue;
        const osg::FieldContainerType &type = container->getType();
        for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id)
            if ((type.getFieldDescription(id)->getFieldMask() & change->second) != 0 &&
                known.emplace(change->first, id).second)
                contents.push_back({change->first, id, ksFieldReader::content(*container->getField(id))});
    }
    return contents;
}

void ksScriptBatch::undo()
{
    for (; !done.empty(); done.pop_back())
        done.back()->undo();
}
