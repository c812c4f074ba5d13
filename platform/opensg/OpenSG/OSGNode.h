// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSysFieldTypes.h>

OSG_BEGIN_NAMESPACE

/// Bits of a node's external flags. The others are free for applications.
namespace NodeExternalFlags {

/// The node stands for another one whose core it shares.
constexpr UInt32 Instance = 0x2;

/// The node is the visibility reference of a light.
constexpr UInt32 VisibilityReference = 0x10;

} // namespace NodeExternalFlags

/// Bits of a node's internal flags, which are the application's own marks.
namespace NodeInternalFlags {

/// The node must not take the place of an instance that shares its core.
constexpr UInt32 ExcludedFromInstanceSubstitution = 0x1000;

} // namespace NodeInternalFlags

typedef DeclaredField<SFUInt32, SFBool> NodeTravMaskField;

#define OSG_NODE_FIELDS(SF, MF)                                        \
    SF(SFDynamicVolume, volume, Volume, DynamicVolume())               \
    SF(NodeTravMaskField, travMask, TravMask, TypeTraits<UInt32>::Max) \
    SF(InternalField<SFNodePtr>, parent, Parent, NullFC)               \
    MF(MFNodePtr, children, Children)                                  \
    SF(SFNodeCorePtr, core, Core, NullFC)                              \
    SF(SFUInt32, externalFlags, ExternalFlags, 0)                      \
    SF(SFUInt32, internalFlags, InternalFlags, 0)

OSG_CONTAINER_BASE(Node, AttachmentContainer, OSG_NODE_FIELDS)

/// A place in the scene's tree: a core that says what it is, a parent and children.
///
/// The operations on core and children take and release references and edit the other containers involved.
/// The edit of this node's own core or children is up to the caller, around the call.
class Node : public NodeBase
{
    OSG_CONTAINER_MEMBERS(Node)

public:
    /// Replaces the core; null takes it away.
    void setCore(const NodeCorePtr &core);

    UInt32 getNChildren(void) const { return _mfChildren.size(); }

    /// @p index must be less than getNChildren().
    NodePtr getChild(UInt32 index) const { return _mfChildren[index]; }

    /// Position of the first such child; -1 if there is none.
    Int32 findChild(const NodePtr &child) const;

    /// Adds @p child at the end, or before the child at @p index (at the end if there is none), taking it
    /// away from the parent it has, whose children it edits. Null does nothing.
    void addChild(const NodePtr &child);
    void insertChild(UInt32 index, const NodePtr &child);

    /// Puts @p child in the place of another, which loses its parent. False, and no change, if that other is
    /// no child of this node or @p child is null.
    bool replaceChild(UInt32 index, const NodePtr &child);
    bool replaceChildBy(const NodePtr &oldChild, const NodePtr &child);

    /// Takes a child away, which may destroy it. Nothing happens if there is no such child.
    void subChild(const NodePtr &child);
    void subChild(UInt32 index);

    /// Computes the volume from core and children, and theirs, unless it is valid or the traversal mask is 0.
    /// Edits the volume of every node that it computes.
    void updateVolume(void);

    /// Makes the volume, and those of the parents, invalid as far up as they are valid and not static. Edits
    /// each.
    void invalidateVolume(void);

    /// A new core or new children make the volume invalid, a new traversal mask that of the parent.
    void changed(BitVector whichField, UInt32 origin) override;

protected:
    Node(void) = default;
    Node(const Node &source);
    ~Node(void) override;

private:
    using Inherited::setParent;

    /// Takes the reference for a child to be and removes it from its parent.
    void adopt(const NodePtr &child);

    /// Gives an adopted child its place.
    void place(UInt32 index, const NodePtr &child);

    void setParentOf(const NodePtr &child, const NodePtr &parent) const;
};

OSG_END_NAMESPACE
