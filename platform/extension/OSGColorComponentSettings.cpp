// SPDX-License-Identifier: MIT
#include "OSGColorComponentSettings.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(ColorComponentSettings, AttachmentContainer, "", OSG_COLOR_COMPONENT_SETTINGS_FIELDS)

OSG_END_NAMESPACE
