// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseFieldTypes.h>
