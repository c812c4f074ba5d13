// SPDX-License-Identifier: MIT
#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGNodeCore.h>

#include <cstring>

OSG_BEGIN_NAMESPACE

FieldContainerType::FieldContainerType(const Char8 *name, const Char8 *parentName, const Char8 *groupName,
                                       PrototypeCreateF prototypeCreate, InitContainerF initMethod,
                                       FieldDescription **descriptions, UInt32 descByteCount,
                                       bool descsAddable)
    : DataType(name, parentName)
    , _prototypeCreate(prototypeCreate)
    , _descsAddable(descsAddable)
    , _groupId(FieldContainerFactory::the()->registerGroup(
          groupName != nullptr && *groupName != '\0' ? groupName : name))
    , _descriptions(descriptions, descriptions + descByteCount / sizeof(*descriptions))
{
    FieldContainerFactory::the()->registerType(*this, initMethod);
}

FieldContainerType::~FieldContainerType(void)
{
    FieldContainerFactory::the()->unregisterType(*this);
    releasePrototype();
}

bool FieldContainerType::isDerivedFrom(const FieldContainerType &other) const
{
    for (const FieldContainerType *type = this; type != nullptr; type = type->_parent) {
        if (*type == other) {
            return true;
        }
    }
    return false;
}

FieldDescription *FieldContainerType::getFieldDescription(UInt32 id) const
{
    return id - 1 < getNumFieldDescs() ? _descriptions[id - 1] : nullptr;
}

FieldDescription *FieldContainerType::findFieldDescription(const Char8 *name) const
{
    if (name != nullptr) {
        for (FieldDescription *description : _descriptions) {
            if (std::strcmp(description->getCName(), name) == 0) {
                return description;
            }
        }
    }
    return nullptr;
}

UInt32 FieldContainerType::addDescription(FieldDescription &description)
{
    if (!_descsAddable || description.getFieldId() != getNumFieldDescs() + 1) {
        return 0;
    }
    _descriptions.push_back(&description);
    return description.getFieldId();
}

bool FieldContainerType::setPrototype(const FieldContainerPtr &prototype)
{
    setRefdCP(_prototype, prototype);
    return true;
}

FieldContainerPtr FieldContainerType::createFieldContainer(void) const
{
    return _prototype != NullFC ? _prototype->shallowCopy() : FieldContainerPtr();
}

NodePtr FieldContainerType::createNode(void) const
{
    return isNode() ? NodePtr::dcast(createFieldContainer()) : NodePtr();
}

NodeCorePtr FieldContainerType::createNodeCore(void) const
{
    return isNodeCore() ? NodeCorePtr::dcast(createFieldContainer()) : NodeCorePtr();
}

AttachmentPtr FieldContainerType::createAttachment(void) const
{
    return isAttachment() ? AttachmentPtr::dcast(createFieldContainer()) : AttachmentPtr();
}

void FieldContainerType::initialize(FieldContainerType *parent)
{
    _parent = parent;
    if (parent != nullptr) {
        _descriptions.insert(_descriptions.begin(), parent->_descriptions.begin(),
                             parent->_descriptions.end());
        _baseType = parent->_baseType;
    }
    if (*this == Node::getClassType()) {
        _baseType = IsNode;
    } else if (*this == NodeCore::getClassType()) {
        _baseType = IsNodeCore;
    } else if (*this == Attachment::getClassType()) {
        _baseType = IsAttachment;
    }
    if (getNumFieldDescs() > 64) {
        logWarning(std::string("type '") + getCName() + "' has more than 64 fields");
    }
    makePrototype();
    _initialized = true;
}

void FieldContainerType::makePrototype(void)
{
    if (_prototypeCreate != nullptr && _prototype == NullFC) {
        _prototype = _prototypeCreate();
        addRefCP(_prototype);
    }
}

void FieldContainerType::releasePrototype(void)
{
    clearRefCP(_prototype);
}

OSG_END_NAMESPACE
