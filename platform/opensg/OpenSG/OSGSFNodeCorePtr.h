// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGContainerPtrFieldTypes.h>
