// SPDX-License-Identifier: MIT
#include <OpenSG/OSGNode.h>

#include <algorithm>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(Node, AttachmentContainer, "", OSG_NODE_FIELDS)

Node::Node(const Node &source)
    : Inherited(source)
{
    _sfVolume.getValue().setValid(_sfVolume.getValue().isValid() && _sfVolume.getValue().isStatic());
    _sfParent.setValue(NullFC);
    _mfChildren.clear();
    _sfCore.setValue(NullFC);
}

Node::~Node(void)
{
    const NodePtr self(*this);
    for (NodePtr child : _mfChildren) {
        {
            const CPEditor edit(child, ParentFieldMask);
            // The other aspects' copies may have given the child away already.
            if (child->getParent() == self) {
                child->setParent(NullFC);
            }
        }
        subRefCP(child);
    }
    NodeCorePtr core = getCore();
    if (core != NullFC) {
        {
            const CPEditor edit(core, NodeCore::ParentsFieldMask);
            core->subParent(self);
        }
        subRefCP(core);
    }
}

void Node::setCore(const NodeCorePtr &core)
{
    const NodePtr self(*this);
    NodeCorePtr previous = getCore();
    addRefCP(core);
    if (previous != NullFC) {
        {
            const CPEditor edit(previous, NodeCore::ParentsFieldMask);
            previous->subParent(self);
        }
        subRefCP(previous);
    }
    _sfCore.setValue(core);
    if (core != NullFC) {
        const CPEditor edit(core, NodeCore::ParentsFieldMask);
        core->addParent(self);
    }
    invalidateVolume();
}

Int32 Node::findChild(const NodePtr &child) const
{
    const auto found = _mfChildren.find(child);
    return found != _mfChildren.end() ? static_cast<Int32>(found - _mfChildren.begin()) : -1;
}

void Node::setParentOf(const NodePtr &child, const NodePtr &parent) const
{
    const CPEditor edit(child, ParentFieldMask);
    child->setParent(parent);
}

void Node::adopt(const NodePtr &child)
{
    addRefCP(child);
    const NodePtr parent = child->getParent();
    if (parent != NullFC) {
        const CPEditor edit(parent, ChildrenFieldMask);
        parent->subChild(child);
    }
}

void Node::place(UInt32 index, const NodePtr &child)
{
    _mfChildren.insert(_mfChildren.begin() + std::min(index, getNChildren()), child);
    setParentOf(child, NodePtr(*this));
    invalidateVolume();
}

void Node::addChild(const NodePtr &child)
{
    insertChild(TypeTraits<UInt32>::Max, child);
}

void Node::insertChild(UInt32 index, const NodePtr &child)
{
    // By value: the caller's handle may lie in the list that the child is taken from.
    const NodePtr coming = child;
    if (coming != NullFC) {
        adopt(coming);
        place(index, coming);
    }
}

bool Node::replaceChild(UInt32 index, const NodePtr &child)
{
    return index < getNChildren() && replaceChildBy(getChild(index), child);
}

bool Node::replaceChildBy(const NodePtr &oldChild, const NodePtr &child)
{
    if (child == NullFC || findChild(oldChild) < 0) {
        return false;
    }
    if (child == oldChild) {
        return true;
    }
    // By value, as in insertChild().
    const NodePtr leaving = oldChild;
    const NodePtr coming = child;
    adopt(coming);
    const UInt32 index = static_cast<UInt32>(findChild(leaving));
    subChild(index);
    place(index, coming);
    return true;
}

void Node::subChild(const NodePtr &child)
{
    const Int32 index = findChild(child);
    if (index >= 0) {
        subChild(static_cast<UInt32>(index));
    }
}

void Node::subChild(UInt32 index)
{
    if (index >= getNChildren()) {
        return;
    }
    NodePtr child = getChild(index);
    setParentOf(child, NullFC);
    _mfChildren.erase(_mfChildren.begin() + index);
    subRefCP(child);
}

void Node::updateVolume(void)
{
    if (_sfVolume.getValue().isValid() || getTravMask() == 0) {
        return;
    }
    DynamicVolume volume = _sfVolume.getValue();
    volume.setEmpty();
    for (const NodePtr &child : _mfChildren) {
        if (child->getTravMask() != 0) {
            child->updateVolume();
            volume.extendBy(child->getVolume());
        }
    }
    if (getCore() != NullFC) {
        getCore()->adjustVolume(volume);
    }
    volume.setValid(true);
    const CPEditor edit(NodePtr(*this), VolumeFieldMask);
    _sfVolume.setValue(volume);
}

void Node::invalidateVolume(void)
{
    DynamicVolume &volume = _sfVolume.getValue();
    if (!volume.isValid() || volume.isStatic()) {
        return;
    }
    {
        const CPEditor edit(NodePtr(*this), VolumeFieldMask);
        volume.setValid(false);
    }
    if (getParent() != NullFC) {
        getParent()->invalidateVolume();
    }
}

void Node::changed(BitVector whichField, UInt32 origin)
{
    if (whichField & (CoreFieldMask | ChildrenFieldMask)) {
        invalidateVolume();
    }
    const NodePtr parent = getParent();
    if ((whichField & TravMaskFieldMask) && parent != NullFC) {
        {
            const CPEditor edit(parent, VolumeFieldMask);
            DynamicVolume &volume = parent->getVolume();
            volume.setValid(volume.isValid() && volume.isStatic());
        }
        if (parent->getParent() != NullFC) {
            parent->getParent()->invalidateVolume();
        }
    }
    Inherited::changed(whichField, origin);
}

OSG_END_NAMESPACE
