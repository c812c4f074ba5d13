// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksWarn.h>

struct aiScene;

/// Makes something sound of what readers hand over, where nothing but the unsound is lost by that.
namespace ksModelRepair {

/// Takes away nodes of \a scene that are missing; meshes that no node has after that go to the root. Numbers
/// that are not finite become 0, a matrix with some the identity, and a property of a material with some
/// goes. Each is reported to \a warn.
void repair(aiScene &scene, const ksWarn &warn);

} // namespace ksModelRepair
