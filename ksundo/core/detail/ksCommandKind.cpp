// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksCommandKind.h>
#include <ksundo/core/ksMultiCommand.h>

#include <typeinfo>
#include <unordered_map>

namespace ksDetail {

namespace {

ksCommandKind kindOf(const QUndoCommand &command)
{
    if (dynamic_cast<const ksUndoCommand *>(&command) != nullptr)
        return ksCommandKind::single;
    const bool isMulti = dynamic_cast<const ksMultiCommand *>(&command) != nullptr;
    return isMulti ? ksCommandKind::multi : ksCommandKind::plain;
}

} // namespace

ksCommandKind ksKindOf(const QUndoCommand &command)
{
    // Never destroyed, since the stacks may outlive static objects.
    static auto &kinds = *new std::unordered_map<const std::type_info *, ksCommandKind>;
    // Commands of one class often come in a row, as the children of a composite.
    static const std::type_info *latestType = nullptr;
    static ksCommandKind latestKind;

    const std::type_info *type = &typeid(command);
    if (latestType != type) {
        const auto entry = kinds.find(type);
        latestKind = entry != kinds.end() ? entry->second : kinds[type] = kindOf(command);
        latestType = type;
    }
    return latestKind;
}

} // namespace ksDetail
