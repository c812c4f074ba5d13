// SPDX-License-Identifier: MIT
#pragma once

#include <portContainers.h>

namespace osg {

class AttachmentContainer;
class Attachment;
class Name;
class NodeCore;
class Node;
class Group;
class Transform;
class Image;
class Material;

typedef FCPtr<FieldContainerPtr, AttachmentContainer> AttachmentContainerPtr;
typedef FCPtr<FieldContainerPtr, Attachment> AttachmentPtr;
typedef FCPtr<AttachmentPtr, Name> NamePtr;
typedef FCPtr<AttachmentContainerPtr, NodeCore> NodeCorePtr;
typedef FCPtr<AttachmentContainerPtr, Node> NodePtr;
typedef FCPtr<NodeCorePtr, Group> GroupPtr;
typedef FCPtr<GroupPtr, Transform> TransformPtr;
typedef FCPtr<AttachmentContainerPtr, Image> ImagePtr;
typedef FCPtr<AttachmentContainerPtr, Material> MaterialPtr;

typedef MField<NodePtr> MFNodePtr;
typedef SField<NodePtr> SFNodePtr;
typedef SField<ImagePtr> SFImagePtr;
typedef SField<MaterialPtr> SFMaterialPtr;

class AttachmentContainer : public FieldContainer
{
    typedef std::map<UInt32, AttachmentPtr> Attachments;

    PORT_CLASS(AttachmentContainer)
    PORT_SF(SField<Attachments>, Attachments, 1)

public:
    enum
    {
        NextFieldId = 2
    };

    AttachmentPtr findAttachment(UInt32 groupId, UInt16 binding = 0);
    void addAttachment(const AttachmentPtr &attachment, UInt16 binding = 0);
    void subAttachment(const AttachmentPtr &attachment, UInt16 binding = 0);

protected:
    AttachmentContainer() = default;
    ~AttachmentContainer() override;
};

class Attachment : public FieldContainer
{
    PORT_CLASS(Attachment)
    PORT_MF(MField<FieldContainerPtr>, Parents, 1)
    PORT_SF(SFBool, Internal, 2)

public:
    enum
    {
        NextFieldId = 3
    };
};

class Name : public Attachment
{
    PORT_CREATED_CLASS(Name)
    PORT_SF(SFString, Name, 3)
};

/// Null when there is none.
const Char8 *getName(const AttachmentContainerPtr &container);
void setName(const AttachmentContainerPtr &container, const std::string &name);

class NodeCore : public AttachmentContainer
{
    PORT_CLASS(NodeCore)
    PORT_MF(MFNodePtr, Parents, AttachmentContainer::NextFieldId)

public:
    enum
    {
        NextFieldId = ParentsFieldId + 1
    };
};

class Node : public AttachmentContainer
{
    PORT_CREATED_CLASS(Node)
    PORT_SF(SFInt32, Volume, 2)
    PORT_SF_BEING(SFUInt32, TravMask, 3, ~UInt32(0))
    PORT_SF(SFNodePtr, Parent, 4)
    PORT_MF(MFNodePtr, Children, 5)
    PORT_SF(SField<NodeCorePtr>, Core, 6)
    PORT_SF(SFUInt32, Marks, 7)

public:
    void setCore(const NodeCorePtr &core);
    void addChild(const NodePtr &child);
    void subChild(const NodePtr &child);

protected:
    ~Node() override;

private:
    void leaveCore();
};

class Group : public NodeCore
{
    PORT_CREATED_CLASS(Group)
};

class Transform : public Group
{
    PORT_CREATED_CLASS(Transform)
};

class Image : public AttachmentContainer
{
    PORT_CREATED_CLASS(Image)
    PORT_SF(SFString, Name, AttachmentContainer::NextFieldId)
};

class Material : public AttachmentContainer
{
    PORT_CLASS(Material)
};

} // namespace osg
