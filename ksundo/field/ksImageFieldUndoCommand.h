// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksNonMergingUndoCommand.h>
#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <OpenSG/OSGImage.h>

#include <functional>

/// Replaces the image in an image field, an osg::SField<osg::ImagePtr>, of one container: "Set Texture".
///
/// The image that is set is the one with which the application's texture manager answers for the given one.
/// The command keeps the image of the moment when it is built, and the one to set, alive; the field has its
/// own reference on what it shows. Images never merge. A container or field that has gone makes a step a
/// silent no-op.
class KSUNDO_EXPORT ksImageFieldUndoCommand : public ksNonMergingUndoCommand<ksFieldBaseUndoCommand>
{
    KS_UNDO_COMMAND(ksImageFieldUndoCommand)

public:
    /// Sets the field \a field of \a container, by name or by id, to \a image, which may be null, when it is
    /// run, and not before. When the texture manager answers with another image, the given one loses one
    /// reference, which the caller hands over, and goes when it was the last.
    ksImageFieldUndoCommand(osg::FieldContainerPtr container, ksFieldKey field, osg::ImagePtr image,
                            QUndoCommand *parent = nullptr);

    void undo() override { apply(oldImage.get()); } ///< sets the image of the moment when it was built
    void redo() override { apply(newImage.get()); } ///< sets the new image

    /// The container, NullFC when it is gone, and its field, null when there is no image field.
    std::pair<osg::FieldContainerPtr, osg::SFImagePtr *> getField() const;

    /// Puts \a image, which may be null, into the field, announces the change while the previous image still
    /// lives, and then calls the notify function. Does nothing at all when the field cannot be found.
    void apply(const osg::ImagePtr &image);

    /// Sets what is called after every step that found the field; empty for nothing.
    void setNotifyFunction(std::function<void()> function) { notify.swap(function); }

private:
    using Target = std::pair<osg::FieldContainerPtr, osg::SFImagePtr *>;

    void show(const Target &target, const osg::ImagePtr &image) const;

    std::function<void()> notify;

    // Members go in reverse order: the new image is released before the old one.
    ksHeldReference<osg::ImagePtr> oldImage;
    ksHeldReference<osg::ImagePtr> newImage;
};
