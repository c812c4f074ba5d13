// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksCommandKind.h>
#include <ksundo/core/ksMultiCommand.h>

#include <typeinfo>
#include <unordered_map>

namespace ksDetail {

ksCommandKind ksKindOf(const QUndoCommand &command)
{
    static std::unordered_map<const std::type_info *, ksCommandKind> kinds;

    const auto [entry, isNew] = kinds.try_emplace(&typeid(command), ksCommandKind::plain);
    if (isNew && dynamic_cast<const ksUndoCommand *>(&command) != nullptr)
        entry->second = ksCommandKind::single;
    else if (isNew && dynamic_cast<const ksMultiCommand *>(&command) != nullptr)
        entry->second = ksCommandKind::multi;
    return entry->second;
}

} // namespace ksDetail
