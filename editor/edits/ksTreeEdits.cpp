// SPDX-License-Identifier: MIT
#include <editor/edits/ksAddChildUndoCommand.h>
#include <editor/edits/ksTreeEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>

#include <OSGTransformVariantsAttachment.h>
#include <ksNodeUtils.h>

#include <algorithm>

namespace {

/// Gives \a copy the variants of \a node, which copies of attachments leave out.
void copyVariants(const osg::NodePtr &node, const osg::NodePtr &copy)
{
    const osg::TransformVariantsAttachmentPtr source = ksNodeUtils::getTransformVariantsAttachment(node);
    const osg::TransformVariantsAttachmentPtr target = ksNodeUtils::getTransformVariantsAttachment(copy);
    if (source == osg::NullFC || target == osg::NullFC)
        return;
    CPEdit(target, osg::TransformVariantsAttachment::VariantsFieldMask);
    for (const osg::TransformVariantPtr &variant : source->getVariants()) {
        if (variant == osg::NullFC)
            continue;
        const auto made = osg::TransformVariantPtr::dcast(variant->shallowCopy());
        CPEdit(made, osg::TransformVariant::TransformFieldMask);
        if (variant->getTransform() != osg::NullFC)
            made->setTransform(osg::Transform3DPtr::dcast(variant->getTransform()->shallowCopy()));
        target->insertVariant(target->getVariants().size(), made);
    }
}

/// Brings \a copy, and what is below it, into step with \a node, whose copy it is.
void complete(const osg::NodePtr &node, const osg::NodePtr &copy)
{
    copyVariants(node, copy);
    // No light refers to it.
    CPEdit(copy, osg::Node::ExternalFlagsFieldMask);
    copy->setExternalFlags(copy->getExternalFlags() & ~osg::NodeExternalFlags::VisibilityReference);
    for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
        complete(node->getChild(i), copy->getChild(i));
}

void refuseRoot(const osg::NodePtr &node, const char *what)
{
    if (node->getParent() == osg::NullFC)
        throw ksEditorError(ksContainers::label(node) + QStringLiteral(" has no parent and cannot be ") +
                            QLatin1String(what));
}

/// How many nodes there are from \a node, which is counted, up to the root.
int depthOf(osg::NodePtr node)
{
    int depth = 0;
    for (; node != osg::NullFC; node = node->getParent())
        ++depth;
    return depth;
}

/// How many there are from \a node down to the deepest leaf, up to one more than may be.
int heightOf(const osg::NodePtr &node, int most = ksContainers::MostLevels)
{
    int height = 0;
    for (osg::UInt32 i = 0; i < node->getNChildren() && height < most; ++i)
        height = std::max(height, heightOf(node->getChild(i), most - 1));
    return height + 1;
}

/// Throws ksEditorError when \a child would be, or have something, too deep below \a parent.
void refuseTooDeep(const osg::NodePtr &parent, const osg::NodePtr &child)
{
    constexpr int Most = ksContainers::MostLevels;
    if (depthOf(parent) + heightOf(child) > Most)
        throw ksEditorError(ksContainers::label(child) + QStringLiteral(" cannot be placed below ") +
                            ksContainers::label(parent) +
                            QStringLiteral(": nodes nest %1 deep at most").arg(Most));
}

QString textOf(const char *what, const osg::NodePtr &node)
{
    return QLatin1String(what) + QStringLiteral(" '") + ksContainers::nameOf(node) + QLatin1Char('\'');
}

} // namespace

osg::NodePtr ksTreeEdits::copy(const osg::NodePtr &node)
{
    const osg::NodePtr made = osg::deepCloneTree(node);
    complete(node, made);
    return made;
}

QUndoCommand *ksTreeEdits::makeAdd(const osg::NodePtr &parent, const osg::NodePtr &child)
{
    refuseTooDeep(parent, child);
    return new ksAddChildUndoCommand(parent, child);
}

QUndoCommand *ksTreeEdits::makeRemove(const osg::NodePtr &node)
{
    refuseRoot(node, "removed");
    return new ksMoveNodeUndoCommand(textOf("Remove", node), node, {});
}

QUndoCommand *ksTreeEdits::makeMove(const osg::NodePtr &node, const osg::NodePtr &parent, int index)
{
    refuseRoot(node, "moved");
    for (osg::NodePtr above = parent; above != osg::NullFC; above = above->getParent())
        if (above == node)
            throw ksEditorError(ksContainers::label(node) + QStringLiteral(" cannot be moved below itself"));
    const ksNodePlace before = ksNodePlace::of(node);
    ksNodePlace place{parent.getFieldContainerId(), parent->getNChildren()};
    if (place.parent == before.parent)
        --place.index;
    if (index > static_cast<int>(place.index) || index < -1)
        throw ksEditorError(ksContainers::label(parent) +
                            QStringLiteral(" has no place %1 for a child").arg(index));
    if (index >= 0)
        place.index = static_cast<osg::UInt32>(index);
    if (place.parent == before.parent && place.index == before.index)
        return nullptr;
    refuseTooDeep(parent, node);
    return new ksMoveNodeUndoCommand(textOf("Move", node), node, place);
}
