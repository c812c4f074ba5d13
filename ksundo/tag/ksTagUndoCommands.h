// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/tag/detail/ksListVersions.h>

#include <OSGTagAttachment.h>
#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>

#include <string>

/// @file
/// The commands on the tags of a container. The class that a command is of tells the application whether a
/// tag was added or removed; what it does is the same. They never merge, have no parent, and tell nothing but
/// "id".

/// Base class of the tag commands: which tag, and in which list.
class KSUNDO_EXPORT ksTagUndoCommand : public ksUndoCommand
{
public:
    /// Which of the two lists of a container's tag attachment.
    enum TAG_TYPE : osg::UInt32
    {
        USER_TAG = 0, ///< the tags that users give
        LAYER_TAG = 1 ///< the layers that a container is in
    };

    /// Builds a command about no tag.
    explicit ksTagUndoCommand(const QString &text)
        : ksUndoCommand(text)
    {}

    void undo() override = 0;
    void redo() override = 0;

    /// The tag that was added or removed.
    std::string getTagString() const { return tagString; }

    /// In which list.
    TAG_TYPE getTagType() const { return tagType; }

protected:
    TAG_TYPE tagType = USER_TAG; ///< what getTagType() returns
    std::string tagString;       ///< what getTagString() returns
};

/// Base class of the commands that change the tags of a container.
///
/// Redo writes the new tags and values, undo the old ones: both lists of the container's tag attachment are
/// replaced whole, whatever happened to them in between. The command keeps the container alive. Without a tag
/// attachment or its field, and with a field that is no list of strings, nothing happens.
class KSUNDO_EXPORT ksAttachedTagUndoCommand : public ksTagUndoCommand
{
public:
    /// The old tags are those of the moment. Without the attachment or the field the command has neither tags
    /// nor a tag string, and the tag type is 0.
    ///
    /// \param text what the history shows
    /// \param container the tagged container; without one, null, the command does nothing
    /// \param fieldMask what is announced for either list after it has been written
    /// \param fieldId the attachment's field with the tags, counted from 1: 4 gives the tag type 0, 5 gives
    /// 1; any other gives 1 and prints "Tag type is not Undo Redo supported!"
    /// \param tagString the tag that the edit is about
    /// \param newStrings the tags to write, which are copied; may be null only if there is no such field
    /// \param oldValues the values that go with the old tags
    /// \param newValues the values that go with the new tags
    ksAttachedTagUndoCommand(const QString &text, osg::AttachmentContainerPtr container,
                             osg::BitVector fieldMask, osg::UInt32 fieldId, std::string tagString,
                             osg::MField<std::string> *newStrings, osg::MField<osg::UInt64> oldValues,
                             osg::MField<osg::UInt64> newValues);

    void undo() override { apply(false); } ///< writes the old tags and values
    void redo() override { apply(true); }  ///< writes the new tags and values

private:
    osg::TagAttachmentPtr findAttachment() const;
    void apply(bool isAfter) const;
    void write(bool isAfter) const;

    ksDetail::ksListVersions<ksDetail::ksPackedStrings> tags;
    ksDetail::ksListVersions<std::vector<osg::UInt64>> values;
    osg::UInt32 fieldId;
    osg::BitVector fieldMask;
    ksHeldReference<osg::AttachmentContainerPtr> container;
};

/// Adds a tag to a container.
class KSUNDO_EXPORT ksAddTagUndoCommand : public ksAttachedTagUndoCommand
{
    KS_UNDO_COMMAND(ksAddTagUndoCommand)

public:
    using ksAttachedTagUndoCommand::ksAttachedTagUndoCommand;
};

/// Removes a tag from a container.
class KSUNDO_EXPORT ksSubTagUndoCommand : public ksAttachedTagUndoCommand
{
    KS_UNDO_COMMAND(ksSubTagUndoCommand)

public:
    using ksAttachedTagUndoCommand::ksAttachedTagUndoCommand;
};

/// Base class of the commands that change nothing in the scene, such as adding a tag to nothing, but stand in
/// the history all the same.
class KSUNDO_EXPORT ksEmptyTagUndoCommand : public ksTagUndoCommand
{
public:
    /// \a tagString and \a type are what the command answers when it is asked for them.
    ksEmptyTagUndoCommand(const QString &text, std::string tagString, TAG_TYPE type);

    /// Nothing.
    void undo() override {}

    /// Nothing.
    void redo() override {}
};

/// Adds a tag to nothing.
class KSUNDO_EXPORT ksAddEmptyTagUndoCommand : public ksEmptyTagUndoCommand
{
    KS_UNDO_COMMAND(ksAddEmptyTagUndoCommand)

public:
    using ksEmptyTagUndoCommand::ksEmptyTagUndoCommand;
};

/// Removes a tag from nothing.
class KSUNDO_EXPORT ksSubEmptyTagUndoCommand : public ksEmptyTagUndoCommand
{
    KS_UNDO_COMMAND(ksSubEmptyTagUndoCommand)

public:
    using ksEmptyTagUndoCommand::ksEmptyTagUndoCommand;
};
