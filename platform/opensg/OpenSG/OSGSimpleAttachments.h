// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachmentContainer.h>

OSG_BEGIN_NAMESPACE

/// Attachment with one field of its own. @a DescT says which: `FieldTypeT`, `getTypeName()`, `getFieldName()`
/// and `getGroupName()`.
template <class DescT>
class SimpleAttachment : public Attachment
{
    typedef Attachment Inherited;

public:
    typedef FCPtr<AttachmentPtr, SimpleAttachment> Ptr;
    typedef typename DescT::FieldTypeT FieldType;

    enum
    {
        SimpleFieldId = Inherited::NextFieldId,
        NextFieldId
    };

    static constexpr BitVector SimpleFieldMask = TypeTraits<BitVector>::One << SimpleFieldId;

    static FieldContainerType &getClassType(void) { return _type; }
    static UInt32 getClassTypeId(void) { return _type.getId(); }
    static UInt16 getClassGroupId(void) { return _type.getGroupId(); }
    FieldContainerType &getType(void) override { return _type; }
    const FieldContainerType &getType(void) const override { return _type; }
    UInt32 getContainerSize(void) const override { return sizeof(SimpleAttachment); }

    /// A copy of the prototype; null before osgInit().
    static Ptr create(void) { return Ptr::dcast(_type.createFieldContainer()); }

    /// A container as its constructor leaves it.
    static Ptr createEmpty(void) { return Inherited::template newContainer<SimpleAttachment>(); }

    FieldContainerPtr shallowCopy(void) const override
    {
        return Inherited::template newContainer<SimpleAttachment>(this);
    }

    using Inherited::getField;
    FieldType &getField(void) { return _field; }
    const FieldType &getField(void) const { return _field; }
    FieldType *getFieldPtr(void) { return &_field; }

protected:
    friend class FieldContainer;

    SimpleAttachment(void) = default;
    SimpleAttachment(const SimpleAttachment &) = default;
    ~SimpleAttachment(void) override = default;

    void executeSync(FieldContainer &other, const BitVector &whichField) override
    {
        Inherited::executeSync(other, whichField);
        if (whichField & SimpleFieldMask) {
            _field.syncWith(static_cast<const SimpleAttachment &>(other)._field);
        }
    }

private:
    static FieldContainerPtr createPrototype(void) { return createEmpty(); }

    static FieldDescription **descriptions(void)
    {
        static FieldDescription *field = new FieldDescription(
            FieldType::getClassType(), DescT::getFieldName(), SimpleFieldId, SimpleFieldMask, false,
            &SimpleAttachment::template accessField<&SimpleAttachment::getFieldPtr>);
        return &field;
    }

    static FieldContainerType _type;

    FieldType _field;
};

template <class DescT>
FieldContainerType SimpleAttachment<DescT>::_type(DescT::getTypeName(), "Attachment", DescT::getGroupName(),
                                                  &SimpleAttachment::createPrototype, nullptr, descriptions(),
                                                  sizeof(FieldDescription *));

struct NameAttachmentDesc
{
    typedef SFString FieldTypeT;

    static const Char8 *getTypeName(void) { return "Name"; }
    static const Char8 *getFieldName(void) { return "name"; }
    static const Char8 *getGroupName(void) { return "name"; }
};

/// The name of a node or another container.
typedef SimpleAttachment<NameAttachmentDesc> Name;
typedef Name::Ptr NamePtr;
typedef RefPtr<NamePtr> NameRefPtr;

extern template class SimpleAttachment<NameAttachmentDesc>;

OSG_FIELD_VALUE(FieldDataTraits, 0, NamePtr, NamePtr)

/// The text of the container's Name attachment, valid as long as it is not changed; null if there is none.
const Char8 *getName(AttachmentContainerPtr container);

/// Names the container: edits its Name attachment, or attaches one first and edits the container's
/// attachments for that. Null does nothing.
void setName(AttachmentContainerPtr container, const std::string &name);

/// The same; null takes the Name attachment away, where the edit of the container is up to the caller.
void setName(AttachmentContainerPtr container, const Char8 *name);

OSG_END_NAMESPACE
