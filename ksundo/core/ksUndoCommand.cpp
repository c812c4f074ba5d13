// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoCommand.h>

#include <ksMessage.h>

#include <sys/time.h>
#include <unordered_map>

namespace {

double now()
{
    timeval time;
    gettimeofday(&time, nullptr);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

} // namespace

ksUndoCommand::ksUndoCommand(const QString &text, QUndoCommand *parent)
    : QUndoCommand(text, parent)
    , creationTime(now())
{}

int ksUndoCommand::makeId(std::type_index type)
{
    static std::unordered_map<std::type_index, int> idMap;
    static int idCounter = 0;

    const auto [entry, isNew] = idMap.try_emplace(type, 0);
    if (isNew)
        entry->second = ++idCounter;
    return entry->second;
}

void ksUndoCommand::makeMessage(ksMessage &message) const
{
    message.set("id", id(), true);
}

bool ksUndoCommand::canMergeWith(const QUndoCommand *other) const
{
    const auto *newer = static_cast<const ksUndoCommand *>(other);
    if (!newer->mergeEnabled || newer->id() != id())
        return false;
    const double window = newer->mergeResponseDelta;
    const bool isLimited = window >= 0.0; // not a number is without limit, too
    return !isLimited || creationTime > newer->creationTime - window;
}

bool ksUndoCommand::absorb(const QUndoCommand *other)
{
    if (!canMergeWith(other))
        return false;
    creationTime = static_cast<const ksUndoCommand *>(other)->creationTime;
    return true;
}
