// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGDataType.h>
#include <OpenSG/OSGFieldContainerPtrDecl.h>

#include <vector>

OSG_BEGIN_NAMESPACE

class FieldDescription;
class NodeCore;

typedef FieldContainerPtr (*PrototypeCreateF)(void);
typedef void (*InitContainerF)(void);

/// The type of a container: its place in the class tree, its fields, and its prototype, which new containers
/// are copied from. Parent, inherited fields and prototype are there from osgInit() on, and can be used by
/// all threads; they are changed while no other thread uses the type.
class FieldContainerType : public DataType
{
public:
    /// Registers the type with the container factory and runs @p initMethod.
    ///
    /// @param parentName       null for the root of the class tree
    /// @param groupName        containers of one group replace each other as attachments; empty: the type's
    /// own name
    /// @param prototypeCreate  null for an abstract type
    /// @param initMethod       may be null
    /// @param descriptions     the type's own fields in the order of their ids; they stay with the caller and
    /// must
    ///                         outlive the type
    /// @param descByteCount    size of @p descriptions in bytes
    /// @param descsAddable     whether addDescription() works
    FieldContainerType(const Char8 *name, const Char8 *parentName, const Char8 *groupName,
                       PrototypeCreateF prototypeCreate, InitContainerF initMethod,
                       FieldDescription **descriptions, UInt32 descByteCount, bool descsAddable = false);
    ~FieldContainerType(void) override;

    /// Null for the root of the class tree.
    FieldContainerType *getParent(void) const { return _parent; }
    UInt16 getGroupId(void) const { return _groupId; }

    using DataType::isDerivedFrom;

    /// True for the type itself and all above it.
    bool isDerivedFrom(const FieldContainerType &other) const;

    /// Number of fields, inherited ones included.
    UInt32 getNumFieldDescs(void) const { return static_cast<UInt32>(_descriptions.size()); }

    /// The description of the field with that id, from 1; null if there is none.
    FieldDescription *getFieldDescription(UInt32 id) const;
    FieldDescription *findFieldDescription(const Char8 *name) const;

    /// Appends a field and returns its id; 0 if the type allows none or the description's id is not the next
    /// one. The description stays with the caller and must outlive the type. Types derived before do not get
    /// the field.
    UInt32 addDescription(FieldDescription &description);

    /// The container that new ones are copied from; null for an abstract type. Setting it releases the
    /// previous one.
    FieldContainerPtr getPrototype(void) const { return _prototype; }
    bool setPrototype(const FieldContainerPtr &prototype);

    bool isAbstract(void) const { return _prototype == NullFC; }
    bool isNode(void) const { return _baseType == IsNode; }
    bool isNodeCore(void) const { return _baseType == IsNodeCore; }
    bool isAttachment(void) const { return _baseType == IsAttachment; }

    /// A new container; null if the type is abstract or, for the last three, of another kind.
    FieldContainerPtr createFieldContainer(void) const;
    NodePtr createNode(void) const;
    FCPtr<AttachmentContainerPtr, NodeCore> createNodeCore(void) const;
    AttachmentPtr createAttachment(void) const;

private:
    friend class FieldContainerFactory;

    enum BaseType
    {
        IsFieldContainer,
        IsNode,
        IsNodeCore,
        IsAttachment
    };

    bool isInitialized(void) const { return _initialized; }

    /// Takes over what @p parent (null for the root) knows, then makes the prototype.
    void initialize(FieldContainerType *parent);
    void makePrototype(void);
    void releasePrototype(void);

    const PrototypeCreateF _prototypeCreate;
    const bool _descsAddable;
    const UInt16 _groupId;
    std::vector<FieldDescription *> _descriptions;
    FieldContainerType *_parent = nullptr;
    FieldContainerPtr _prototype;
    BaseType _baseType = IsFieldContainer;
    bool _initialized = false;
};

OSG_END_NAMESPACE
