// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdlib>
#include <portGraph.h>
#include <thread>

namespace osg {

namespace {

// None of these ever goes, so that it does not matter who comes last.
auto &theFactory = *new FieldContainerFactory;
auto &theChanges = *new ChangeList;
std::thread::id theThread;
bool isRunning = false;
bool isReadWriteDefault = false;

UInt32 keyOf(UInt32 groupId, UInt16 binding)
{
    return groupId << 16 | binding;
}

template <class T>
void removeFrom(MField<T> &list, const FieldContainerPtrBase &container)
{
    const auto place = std::find(list.begin(), list.end(), container);
    if (place != list.end())
        list.erase(place);
}

} // namespace

const NullFieldContainerPtr NullFC;

TypeBase::TypeBase(const Char8 *name)
    : _name(name)
{
    static UInt32 lastId = 0;
    _id = ++lastId;
}

FieldContainerType::FieldContainerType(
    const Char8 *name, const FieldContainerType *parent,
    const std::vector<std::pair<const Char8 *, FieldDescription::Access>> &fields)
    : TypeBase(name)
    , _parent(parent)
{
    if (parent != nullptr)
        _descriptions = parent->_descriptions;
    for (const auto &[fieldName, access] : fields)
        _descriptions.emplace_back(fieldName, getNumFieldDescs() + 1, access);
}

FieldContainerFactory *FieldContainerFactory::the()
{
    return &theFactory;
}

FieldContainerPtr FieldContainerFactory::getContainer(UInt32 id) const
{
    if (!isRunning)
        std::abort();
    FieldContainerPtr container;
    if (id < _store.size())
        container._target = _store[id];
    return container;
}

void FieldContainerFactory::registerFieldContainer(FieldContainer &object)
{
    object._id = static_cast<UInt32>(_store.size());
    _store.push_back(&object);
}

void ChangeList::clearAll()
{
    _changed.clear();
    _addRefd = _subRefd = _destroyed = 0;
}

void ChangeList::setReadWriteDefault(bool readWrite)
{
    isReadWriteDefault = readWrite;
}

ChangeList *PThreadBase::getCurrentChangeList()
{
    return std::this_thread::get_id() == theThread ? &theChanges : nullptr;
}

bool osgInit(Int32, Char8 **)
{
    theThread = std::this_thread::get_id();
    theChanges._isReadOnly = !isReadWriteDefault;
    isRunning = true;
    return std::atexit([] { osgExit(); }) == 0;
}

bool osgExit()
{
    isRunning = false;
    return true;
}

void addRefCP(const FieldContainerPtrBase &container)
{
    if (!container)
        return;
    ++container._target->_references;
    theChanges.addAddRefd(container);
}

void subRefCP(const FieldContainerPtrBase &container)
{
    if (!container)
        return;
    FieldContainer *object = container._target;
    if (--object->_references > 0) {
        theChanges.addSubRefd(container);
        return;
    }
    theChanges.addDestroyed(object->_id);
    theFactory._store[object->_id] = nullptr;
    delete object;
    const_cast<FieldContainerPtrBase &>(container)._target = nullptr;
}

void setRefdCP(FieldContainerPtrBase &target, const FieldContainerPtrBase &source)
{
    if (target == source)
        return;
    subRefCP(target);
    target = source;
    addRefCP(target);
}

void beginEditCP(const FieldContainerPtr &, BitVector)
{}

void endEditCP(const FieldContainerPtr &container, BitVector mask)
{
    theChanges.addChanged(container, mask);
    container->changed(mask, ChangedOrigin::External);
}

const FieldContainerType &FieldContainer::getClassType()
{
    static const FieldContainerType type("FieldContainer", nullptr, {});
    return type;
}

PORT_TYPE(AttachmentContainer, FieldContainer, {"attachments", &Self::accessAttachments})
PORT_TYPE(Attachment, FieldContainer, {"parents", &Self::accessParents}, {"internal", &Self::accessInternal})
PORT_CREATED_TYPE(Name, Attachment, {"name", &Self::accessName})
PORT_TYPE(NodeCore, AttachmentContainer, {"parents", &Self::accessParents})
PORT_CREATED_TYPE(Node, AttachmentContainer, {"volume", &Self::accessVolume},
                  {"travMask", &Self::accessTravMask}, {"parent", &Self::accessParent},
                  {"children", &Self::accessChildren}, {"core", &Self::accessCore},
                  {"marks", &Self::accessMarks})
PORT_CREATED_TYPE(Group, NodeCore, )
PORT_CREATED_TYPE(Transform, Group, )
PORT_CREATED_TYPE(Image, AttachmentContainer, {"name", &Self::accessName})
PORT_TYPE(Material, AttachmentContainer, )

AttachmentContainer::~AttachmentContainer()
{
    for (const auto &[key, attachment] : getAttachments()) {
        removeFrom(attachment->getParents(), FieldContainerPtr(*this));
        subRefCP(attachment);
    }
}

AttachmentPtr AttachmentContainer::findAttachment(UInt32 groupId, UInt16 binding)
{
    const auto &attachments = getAttachments();
    const auto entry = attachments.find(keyOf(groupId, binding));
    return entry == attachments.end() ? AttachmentPtr() : entry->second;
}

void AttachmentContainer::addAttachment(const AttachmentPtr &attachment, UInt16 binding)
{
    addRefCP(attachment);
    subAttachment(attachment, binding);
    attachment->getParents().push_back(FieldContainerPtr(*this));
    _sfAttachments.getValue()[keyOf(attachment->getType().getGroupId(), binding)] = attachment;
}

void AttachmentContainer::subAttachment(const AttachmentPtr &attachment, UInt16 binding)
{
    auto &attachments = _sfAttachments.getValue();
    const auto entry = attachments.find(keyOf(attachment->getType().getGroupId(), binding));
    if (entry == attachments.end())
        return;
    removeFrom(entry->second->getParents(), FieldContainerPtr(*this));
    subRefCP(entry->second);
    attachments.erase(entry);
}

const Char8 *getName(const AttachmentContainerPtr &container)
{
    const AttachmentPtr name = container->findAttachment(Name::getClassGroupId());
    return name == NullFC ? nullptr : NamePtr::dcast(name)->getName().c_str();
}

void setName(const AttachmentContainerPtr &container, const std::string &name)
{
    const NamePtr attachment = Name::create();
    attachment->setName(name);
    container->addAttachment(attachment);
}

Node::~Node()
{
    leaveCore();
    for (const NodePtr &child : getChildren()) {
        child->_sfParent.setValue(NodePtr());
        subRefCP(child);
    }
}

void Node::leaveCore()
{
    if (getCore() == NullFC)
        return;
    removeFrom(getCore()->getParents(), NodePtr(*this));
    subRefCP(getCore());
}

void Node::setCore(const NodeCorePtr &core)
{
    addRefCP(core);
    leaveCore();
    _sfCore.setValue(core);
    core->getParents().push_back(NodePtr(*this));
}

void Node::addChild(const NodePtr &child)
{
    addRefCP(child);
    child->_sfParent.setValue(NodePtr(*this));
    _mfChildren.push_back(child);
}

void Node::subChild(const NodePtr &child)
{
    child->_sfParent.setValue(NodePtr());
    removeFrom(_mfChildren, child);
    subRefCP(child);
}

} // namespace osg
