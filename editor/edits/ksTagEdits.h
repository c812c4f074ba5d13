// SPDX-License-Identifier: MIT
#pragma once

#include <OSGTagAttachment.h>
#include <OpenSG/OSGNode.h>

#include <string>

class ksTagUndoCommand;
class QUndoCommand;

/// The edits of tags that the editor offers.
namespace ksTagEdits {

/// The two lists of tags that a node has: fields of its attachment.
constexpr osg::UInt32 UserTags = osg::TagAttachment::UserTagsFieldId;
constexpr osg::UInt32 LayerTags = osg::TagAttachment::LayerTagsFieldId;

/// The tags that the field \a field of \a tags holds, one of these two.
const osg::MFString &listOf(const osg::TagAttachmentPtr &tags, osg::UInt32 field);

/// Whether they hold \a tag.
bool hasTag(const osg::TagAttachmentPtr &tags, osg::UInt32 field, const std::string &tag);

/// A new command that adds \a tag to that list of \a node, or removes it. The value that the editor keeps
/// with a tag is its length. The node must have tags, among them the one to be removed. The caller owns the
/// command.
ksTagUndoCommand *make(const osg::NodePtr &node, osg::UInt32 field, const std::string &tag, bool adding);

/// The same for the first tag of a node that has none as yet.
QUndoCommand *makeFirst(const osg::NodePtr &node, osg::UInt32 field, const std::string &tag);

} // namespace ksTagEdits
