// SPDX-License-Identifier: MIT
#include "OSGEulerAngles.h"

#include <array>
#include <cmath>

OSG_BEGIN_NAMESPACE

namespace {

/// The axes in the order of the turns.
struct TurnOrder
{
    std::array<UInt32, 3> axes;

    explicit TurnOrder(const std::string &order)
        : axes{0, 1, 2}
    {
        std::string sorted(order);
        std::sort(sorted.begin(), sorted.end());
        if (sorted == "XYZ") {
            std::transform(order.begin(), order.end(), axes.begin(),
                           [](Char8 axis) { return static_cast<UInt32>(axis - 'X'); });
        }
    }

    /// Whether each axis follows the one before it in the cycle x, y, z.
    bool isCyclic(void) const { return (axes[0] + 1) % 3 == axes[1]; }
};

Quaterniond turnAbout(UInt32 axis, Real64 angle)
{
    Quaterniond result;
    result[axis] = std::sin(angle / 2);
    result[3] = std::cos(angle / 2);
    return result;
}

} // namespace

Quaterniond quatFromEuler(const Vec3d &angles, const std::string &order)
{
    Quaterniond result;
    for (const UInt32 axis : TurnOrder(order).axes) {
        result = turnAbout(axis, angles[axis]) * result;
    }
    return result;
}

Vec3d eulerFromQuat(const Quaterniond &rotation, const std::string &order)
{
    constexpr Real64 gimbalLock = 1e-6;

    Matrix4d matrix;
    matrix.setRotate(unitOf(rotation));

    // Seen in axes named by the order, every rotation is one of order XYZ. Axes that do not follow the cycle
    // are left-handed, where all turns go the other way.
    const TurnOrder turns(order);
    const auto element = [&](UInt32 row, UInt32 column) {
        return matrix[turns.axes[column]][turns.axes[row]];
    };
    const Real64 cosine = std::hypot(element(0, 0), element(1, 0));
    const bool locked = cosine < gimbalLock;
    const Real64 first =
        locked ? std::atan2(-element(1, 2), element(1, 1)) : std::atan2(element(2, 1), element(2, 2));
    const Real64 middle = std::atan2(-element(2, 0), cosine);
    const Real64 last = locked ? 0 : std::atan2(element(1, 0), element(0, 0));

    const Real64 hand = turns.isCyclic() ? 1 : -1;
    Vec3d angles;
    angles[turns.axes[0]] = hand * first;
    angles[turns.axes[1]] = hand * middle;
    angles[turns.axes[2]] = hand * last;
    return angles;
}

OSG_END_NAMESPACE
