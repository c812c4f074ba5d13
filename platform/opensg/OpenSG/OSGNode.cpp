// SPDX-License-Identifier: MIT
#include <OpenSG/OSGNode.h>

#include <algorithm>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(Node, AttachmentContainer, "", OSG_NODE_FIELDS)

Node::Node(const Node &source)
    : Inherited(source)
{
    _sfParent.setValue(NullFC);
    _mfChildren.clear();
    _sfCore.setValue(NullFC);
}

Node::~Node(void)
{
    const NodePtr self(*this);
    NodeCorePtr core = getCore();
    if (core != NullFC) {
        {
            const CPEditor edit(core, NodeCore::ParentsFieldMask);
            core->subParent(self);
        }
        subRefCP(core);
    }
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
}

void Node::onCreate(const FieldContainer *source)
{
    Inherited::onCreate(source);
    if (source != nullptr) {
        setCore(static_cast<const Node *>(source)->getCore());
    }
}

void Node::onCreateAspect(const FieldContainer *created, const FieldContainer *source)
{
    Inherited::onCreateAspect(created, source);
    if (created == this || source == nullptr) {
        return;
    }
    const Node &first = *static_cast<const Node *>(created);
    _sfVolume.setValue(first._sfVolume);
    _sfCore.setValue(first._sfCore);
    if (getCore() != NullFC) {
        addRefOfCopy(getCore());
        getCore()->addParent(asParentOfCore());
    }
}

NodePtr Node::asParentOfCore(void) const
{
    NodePtr self(*this);
    self.setParentFieldPos(CoreFieldId);
    return self;
}

void Node::setCore(const NodeCorePtr &core)
{
    const NodePtr self = asParentOfCore();
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
}

void Node::addChild(const NodePtr &child)
{
    if (child != NullFC) {
        insertChild(TypeTraits<UInt32>::Max, child);
    }
}

void Node::insertChild(UInt32 index, const NodePtr &child)
{
    // By value: the caller's handle may lie in the list that the child is taken from.
    const NodePtr coming = child;
    if (coming != NullFC) {
        adopt(coming);
        place(index, coming);
    }
    invalidateVolume();
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
    remove(index);
    place(index, coming);
    invalidateVolume();
    return true;
}

void Node::remove(UInt32 index)
{
    NodePtr child = getChild(index);
    setParentOf(child, NullFC);
    _mfChildren.erase(_mfChildren.begin() + index);
    subRefCP(child);
}

void Node::subChild(const NodePtr &child)
{
    subChild(static_cast<UInt32>(findChild(child)));
}

void Node::subChild(UInt32 index)
{
    if (index < getNChildren()) {
        remove(index);
    }
    invalidateVolume();
}

void Node::setActive(bool active)
{
    setTravMask(active ? TypeTraits<UInt32>::Max : 0);
}

const DynamicVolume &Node::getVolume(bool update)
{
    if (update) {
        updateVolume();
    }
    return getVolume();
}

void Node::getToWorld(Matrix &result) const
{
    if (getParent() != NullFC) {
        getParent()->getToWorld(result);
    } else {
        result.setIdentity();
    }
    if (getCore() != NullFC) {
        getCore()->accumulateMatrix(result);
    }
}

Matrix Node::getToWorld(void) const
{
    Matrix result;
    getToWorld(result);
    return result;
}

void Node::dump(UInt32 indent, const BitVector whichField) const
{
    constexpr UInt32 step = 4;
    Inherited::dump(indent, whichField);
    if (getCore() != NullFC) {
        getCore()->dump(indent + step, whichField);
    }
    for (const NodePtr &child : _mfChildren) {
        child->dump(indent + step, whichField);
    }
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
    if (whichField & TravMaskFieldMask) {
        const NodePtr parent = getParent();
        if (parent == NullFC) {
            invalidateVolume();
        } else {
            const CPEditor edit(parent, VolumeFieldMask);
            parent->invalidateVolume();
        }
    }
    Inherited::changed(whichField, origin);
}

namespace {

NodePtr copyOf(const NodePtr &node)
{
    return NodePtr(static_cast<Node *>(node->shallowCopy().getCPtr()));
}

void addCopiesOfChildren(const NodePtr &source, const NodePtr &copy, NodePtr (*copyTree)(const NodePtr &))
{
    if (source->getNChildren() > 0) {
        const CPEditor edit(copy, Node::ChildrenFieldMask);
        for (const NodePtr &child : source->getChildren().getValues()) {
            copy->addChild(copyTree(child));
        }
    }
}

void replaceAttachmentsByCopies(const AttachmentContainerPtr &container)
{
    const AttachmentMap shared = container->getAttachments();
    if (!shared.empty()) {
        const CPEditor edit(container, AttachmentContainer::AttachmentsFieldMask);
        for (const auto &[key, attachment] : shared) {
            container->addAttachment(AttachmentPtr::dcast(deepClone(attachment)), static_cast<UInt16>(key));
        }
    }
}

} // namespace

NodePtr cloneTree(const NodePtr &root)
{
    if (root == NullFC) {
        return NullFC;
    }
    const NodePtr copy = copyOf(root);
    addCopiesOfChildren(root, copy, &cloneTree);
    return copy;
}

NodePtr deepCloneTree(const NodePtr &root)
{
    if (root == NullFC) {
        return NullFC;
    }
    const NodePtr copy = copyOf(root);
    replaceAttachmentsByCopies(copy);
    if (copy->getCore() != NullFC) {
        const CPEditor edit(copy, Node::CoreFieldMask);
        copy->setCore(NodeCorePtr::dcast(deepClone(copy->getCore())));
    }
    addCopiesOfChildren(root, copy, &deepCloneTree);
    return copy;
}

FieldContainerPtr deepClone(const FieldContainerPtr &source)
{
    if (source == NullFC) {
        return NullFC;
    }
    if (const NodePtr node = NodePtr::dcast(source)) {
        return deepCloneTree(node);
    }
    const FieldContainerPtr copy = source->shallowCopy();
    if (const AttachmentContainerPtr container = AttachmentContainerPtr::dcast(copy)) {
        replaceAttachmentsByCopies(container);
    }
    return copy;
}

NodePtr makeCoredNode(const NodeCorePtr &core)
{
    const NodePtr node = Node::create();
    const CPEditor edit(node, Node::CoreFieldMask);
    node->setCore(core);
    return node;
}

OSG_END_NAMESPACE
