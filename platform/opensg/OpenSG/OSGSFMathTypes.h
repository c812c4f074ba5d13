// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMathFieldTypes.h>
