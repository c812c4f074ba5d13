// SPDX-License-Identifier: MIT
#include "OSGBystander.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(Bystander, FieldContainer, "", OSG_BYSTANDER_FIELDS)

OSG_END_NAMESPACE
