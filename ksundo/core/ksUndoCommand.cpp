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
