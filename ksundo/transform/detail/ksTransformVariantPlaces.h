// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

#include <map>

namespace ksDetail {

/// Where the transform variants that a command moves are in their list, on one side of the move.
struct ksTransformVariantPlaces
{
    /// Ids of variants, by index.
    std::map<int, unsigned int> ids;

    /// The indexes in the order in which the other side has them.
    QList<int> indexes{};
};

} // namespace ksDetail
