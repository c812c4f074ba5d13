// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGContainerMacros.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFSysTypes.h>

OSG_BEGIN_NAMESPACE

OSG_CONTAINER_POINTER(ksNodeSettings, AttachmentPtr)

// layer             display layer, 0 to 255, which the user shows and hides as a whole
// lodBias           shifts the level of detail: each step down doubles the detail, each step up halves it
// renderOrder       nodes of a higher number are drawn later; 0 leaves the order to the renderer
// stencilReference  value that the node's pixels leave in the stencil buffer
// pickId            what a click on the node reports instead of the node's id; 0 for none
// sortKey           position among its siblings in the editor's lists, lowest first
// userFlags         64 flags that belong to the user's scripts
// revision          number of the last revision of the model that touched the node; negative for drafts
// opacity           0 (invisible) to 1
// timeOffset        seconds by which the node's animation is ahead of the scene's clock
// locked            the node cannot be picked
// comment           whatever the user wants to keep with the node
#define KS_NODE_SETTINGS_FIELDS(SF, MF)                 \
    SF(SFUInt8, layer, Layer, 0)                        \
    SF(SFInt8, lodBias, LodBias, 0)                     \
    SF(SFInt16, renderOrder, RenderOrder, 0)            \
    SF(SFUInt16, stencilReference, StencilReference, 0) \
    SF(SFUInt32, pickId, PickId, 0)                     \
    SF(SFInt32, sortKey, SortKey, 0)                    \
    SF(SFUInt64, userFlags, UserFlags, 0)               \
    SF(SFInt64, revision, Revision, 0)                  \
    SF(SFReal32, opacity, Opacity, 1)                   \
    SF(SFReal64, timeOffset, TimeOffset, 0)             \
    SF(SFBool, locked, Locked, false)                   \
    SF(SFString, comment, Comment, "")

OSG_CONTAINER_BASE(ksNodeSettings, Attachment, KS_NODE_SETTINGS_FIELDS)

/// The editor's settings of one node: how it is displayed, picked and handled by the pipeline. Attached to
/// the node; every node that the editor loads has its own.
class ksNodeSettings : public ksNodeSettingsBase
{
    OSG_CONTAINER(ksNodeSettings)
};

OSG_END_NAMESPACE
