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
    /// away from the parent it has, whose children it edits. Null is not added.
    void addChild(const NodePtr &child);
    void insertChild(UInt32 index, const NodePtr &child);

    /// Puts @p child in the place of another, which loses its parent. False, and no change, if that other is
    /// no child of this node or @p child is null.
    bool replaceChild(UInt32 index, const NodePtr &child);
    bool replaceChildBy(const NodePtr &oldChild, const NodePtr &child);

    /// Takes a child away, which may destroy it. If there is no such child, just the volume becomes invalid,
    /// as it does in any case.
    void subChild(const NodePtr &child);
    void subChild(UInt32 index);

    /// Whether the traversal mask has any bit; sets all or none.
    bool getActive(void) const { return getTravMask() != 0; }
    void setActive(bool active);

    using Inherited::getVolume;

    /// The volume, brought up to date before if @p update is set.
    const DynamicVolume &getVolume(bool update);

    /// The matrix from the coordinates of the core, and of the children, to those of the world.
    void getToWorld(Matrix &result) const;
    Matrix getToWorld(void) const;

    /// Computes the volume from core and children, and theirs, unless it is valid or the traversal mask is 0.
    /// Edits the volume of every node that it computes.
    void updateVolume(void);

    /// Makes the volume, and those of the parents, invalid as far up as they are valid and not static. Edits
    /// each.
    void invalidateVolume(void);

    /// A new core or new children make the volume invalid, a new traversal mask that of the parent (without
    /// one, its own).
    void changed(BitVector whichField, UInt32 origin) override;

    /// The node, its core and all below it.
    void dump(UInt32 indent = 0, const BitVector whichField = FieldBits::NoField) const override;

    /// A copy has the same core and, as that is set, an invalid volume.
    void onCreate(const FieldContainer *source = nullptr) override;
    void onCreateAspect(const FieldContainer *created, const FieldContainer *source = nullptr) override;

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

    /// Takes the child at @p index away.
    void remove(UInt32 index);

    /// This node's handle, marked with the field that holds the core.
    NodePtr asParentOfCore(void) const;

    void setParentOf(const NodePtr &child, const NodePtr &parent) const;
};

/// A copy of the node and all below it, with the same cores and attachments. Ends the edits that it takes.
NodePtr cloneTree(const NodePtr &root);

/// A copy of the node and all below it that shares neither cores nor attachments with it, just what those
/// refer to.
NodePtr deepCloneTree(const NodePtr &root);

/// The same for a node, for another container a copy that shares no attachments.
FieldContainerPtr deepClone(const FieldContainerPtr &source);

/// A new node with that core.
NodePtr makeCoredNode(const NodeCorePtr &core);

/// A new node with a new core of class @a CoreT, which is written to @p core unless that is null.
template <class CoreT>
NodePtr makeCoredNode(typename CoreT::Ptr *core = nullptr)
{
    const typename CoreT::Ptr created = CoreT::create();
    if (core != nullptr) {
        *core = created;
    }
    return makeCoredNode(created);
}

OSG_END_NAMESPACE
