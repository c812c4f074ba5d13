// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksPortCheck.h>
