// SPDX-License-Identifier: MIT
#include <editor/scene/ksContainers.h>

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMFFieldContainerPtr.h>
#include <OpenSG/OSGMFNodePtr.h>
#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <iterator>
#include <vector>

osg::NodePtr ksContainers::ownerOf(const osg::FieldContainerPtr &container)
{
    if (const osg::NodePtr node = osg::NodePtr::dcast(container))
        return node;
    if (const osg::NodeCorePtr core = osg::NodeCorePtr::dcast(container))
        return core->getParents().empty() ? osg::NodePtr() : core->getParents().front();
    const osg::AttachmentPtr attachment = osg::AttachmentPtr::dcast(container);
    if (attachment == osg::NullFC || attachment->getParents().empty())
        return osg::NullFC;
    return osg::NodePtr::dcast(attachment->getParents().front());
}

QString ksContainers::nameOf(const osg::FieldContainerPtr &container)
{
    const osg::NodePtr node = ownerOf(container);
    const osg::AttachmentContainerPtr named = node != osg::NullFC
                                                  ? osg::AttachmentContainerPtr(node)
                                                  : osg::AttachmentContainerPtr::dcast(container);
    const char *name = osg::getName(named);
    if (name != nullptr)
        return QString::fromUtf8(name);
    const osg::ImagePtr image = osg::ImagePtr::dcast(container);
    return image == osg::NullFC ? QString() : QString::fromStdString(image->getName());
}

std::string ksContainers::ownNameOf(const osg::AttachmentContainerPtr &container)
{
    const char *name = container == osg::NullFC ? nullptr : osg::getName(container);
    return name != nullptr ? name : "";
}

QString ksContainers::label(const osg::FieldContainerPtr &container)
{
    if (container == osg::NullFC)
        return QStringLiteral("nothing");
    const QString name = nameOf(container);
    const QString plain = QString::fromLatin1(container->getTypeName()) + QLatin1Char(' ') +
                          QString::number(container.getFieldContainerId());
    return name.isEmpty() ? plain : plain + QStringLiteral(" '") + name + QLatin1Char('\'');
}

void ksContainers::visitNodes(const osg::NodePtr &root,
                              const std::function<void(const osg::NodePtr &)> &visit)
{
    // The stack of calls has no room for trees of any depth.
    std::vector<osg::NodePtr> open = {root};
    while (!open.empty()) {
        const osg::NodePtr node = open.back();
        open.pop_back();
        visit(node);
        const osg::MFNodePtr &children = node->getChildren();
        open.insert(open.end(), std::make_reverse_iterator(children.end()),
                    std::make_reverse_iterator(children.begin()));
    }
}

bool ksContainers::isBelowAny(const osg::NodePtr &node, const std::unordered_set<osg::UInt32> &ids)
{
    osg::NodePtr above = node->getParent();
    while (above != osg::NullFC && ids.count(above.getFieldContainerId()) == 0)
        above = above->getParent();
    return above != osg::NullFC;
}

osg::RefPtr<osg::NamePtr> ksContainers::createName(const std::string &name)
{
    const osg::RefPtr<osg::NamePtr> made(osg::Name::create());
    CPEdit(made, osg::Name::SimpleFieldMask);
    made->getFieldPtr()->setValue(name);
    return made;
}

osg::NodePtr ksContainers::createNode(const std::string &name, const osg::NodeCorePtr &core,
                                      const osg::ksNodeSettingsPtr &settings)
{
    const osg::NodePtr node = osg::Node::create();
    CPEdit(node, osg::Node::CoreFieldMask | osg::Node::AttachmentsFieldMask);
    node->setCore(core);
    node->addAttachment(settings);
    if (!name.empty())
        osg::setName(node, name);
    return node;
}
