// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGSysFieldTypes.h>
