// SPDX-License-Identifier: MIT
#include "OSGShelf.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(Shelf, FieldContainer, "", OSG_SHELF_FIELDS)

OSG_END_NAMESPACE
