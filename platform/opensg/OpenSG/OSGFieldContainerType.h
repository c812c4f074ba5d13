// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainer.h>
