// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGVecFieldTypes.h>
