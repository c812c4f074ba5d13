// SPDX-License-Identifier: MIT
#include <editor/scene/ksNodeSettings.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(ksNodeSettings, Attachment, "", KS_NODE_SETTINGS_FIELDS)

OSG_END_NAMESPACE
