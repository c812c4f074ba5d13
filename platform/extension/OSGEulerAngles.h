// SPDX-License-Identifier: MIT
#pragma once

#include "OSGPrecision.h"

#include <string>

OSG_BEGIN_NAMESPACE

/// @file
/// Rotations as three turns about the axes x, y and z. An order names the axes as the turns follow each
/// other: XYZ turns about x first, then about y, then about z, all three being the fixed axes of the space
/// around. So its matrix is Rz * Ry * Rx. The orders are XYZ, XZY, YXZ, YZX, ZXY and ZYX; any other text
/// means XYZ. Angles are in radians and stand in the vector by axis, whatever the order.

/// The rotation that @p angles give; its length is 1.
Quaterniond quatFromEuler(const Vec3d &angles, const std::string &order);

/// The angles that give the rotation @p rotation, which need not have length 1 (of length 0 it counts as the
/// identity). The first and the last turn are within -pi to pi, the middle one within -pi/2 to pi/2. Where
/// the middle one leaves the other two about the same axis (gimbal lock, to a millionth), the last is 0.
Vec3d eulerFromQuat(const Quaterniond &rotation, const std::string &order);

OSG_END_NAMESPACE
