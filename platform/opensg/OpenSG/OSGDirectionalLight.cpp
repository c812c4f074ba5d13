// SPDX-License-Identifier: MIT
#include <OpenSG/OSGDirectionalLight.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(DirectionalLight, Light, "", OSG_DIRECTIONAL_LIGHT_FIELDS)

OSG_END_NAMESPACE
