// SPDX-License-Identifier: MIT
#include <editor/edits/ksTagEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptTags.h>

#include <ksundo/tag/ksTagUndoCommands.h>

namespace {

const ksScriptRegistry::Part<osg::NodePtr, ksScriptTags> part("tags");

using ksTagEdits::LayerTags;
using ksTagEdits::UserTags;

} // namespace

ksScriptTags::ksScriptTags(ksScriptHost &scriptHost, ksScriptContainer &scriptNode)
    : QObject(&scriptNode)
    , host(scriptHost)
    , owner(scriptNode)
{}

QStringList ksScriptTags::user() const
{
    return list(UserTags);
}

QStringList ksScriptTags::layers() const
{
    return list(LayerTags);
}

void ksScriptTags::add(const QString &tag)
{
    edit(UserTags, tag, true);
}

void ksScriptTags::addLayer(const QString &tag)
{
    edit(LayerTags, tag, true);
}

void ksScriptTags::remove(const QString &tag)
{
    edit(UserTags, tag, false);
}

void ksScriptTags::removeLayer(const QString &tag)
{
    edit(LayerTags, tag, false);
}

osg::TagAttachmentPtr ksScriptTags::attachment() const
{
    const auto node = osg::NodePtr::dcast(owner.container());
    return osg::TagAttachmentPtr::dcast(node->findAttachment(osg::TagAttachment::getClassType()));
}

QStringList ksScriptTags::list(osg::UInt32 field) const
{
    QStringList tags;
    host.guard([&] {
        if (const osg::TagAttachmentPtr found = attachment())
            for (const std::string &tag : ksTagEdits::listOf(found, field))
                tags += QString::fromStdString(tag);
    });
    return tags;
}

void ksScriptTags::edit(osg::UInt32 field, const QString &tag, bool adding)
{
    host.guard([&] {
        const auto node = osg::NodePtr::dcast(owner.container());
        const std::string wanted = tag.toStdString();
        const osg::TagAttachmentPtr tags = attachment();
        const bool isTagged = tags != osg::NullFC && ksTagEdits::hasTag(tags, field, wanted);
        if (isTagged == adding)
            throw ksEditorError(
                ksContainers::label(node) +
                (adding ? QStringLiteral(" has the tag '") : QStringLiteral(" has no tag '")) + tag +
                (adding ? QStringLiteral("' already") : QStringLiteral("'")));
        if (tags == osg::NullFC)
            host.add(ksTagEdits::makeFirst(node, field, wanted));
        else
            host.add(ksTagEdits::make(node, field, wanted, adding));
    });
}
