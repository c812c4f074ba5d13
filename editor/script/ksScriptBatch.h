// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksMultiCommand.h>

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QString>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Edits that become one command.
///
/// Commands look at the scene when they are made. So that each starts from what those before it leave, it is
/// done as soon as it is added, and all are taken back in the end, for the history to do them as one. Only
/// the flags of ksInvokeBoolFieldUndoCommand, which nothing takes back, wait for the history.
class ksScriptBatch
{
public:
    /// \a made, which has no children yet, is to be the command.
    explicit ksScriptBatch(std::unique_ptr<ksMultiCommand> made);

    /// Takes back what has been done, unless finish() has.
    ~ksScriptBatch();
    ksScriptBatch(const ksScriptBatch &) = delete;
    ksScriptBatch &operator=(const ksScriptBatch &) = delete;

    /// What commands are made with as their parent, where they take one.
    QUndoCommand *parent() const { return command.get(); }

    /// Adds and does \a part, which belongs to the batch; it has parent() as its parent, or none.
    void add(QUndoCommand *part);

    /// Takes everything back. Returns the command; null when doing it would leave everything as it is, unless
    /// it records a tag of nothing.
    std::unique_ptr<QUndoCommand> finish();

private:
    /// The fields that have changed, and what they hold.
    struct Content
    {
        osg::UInt32 container;
        osg::UInt32 field;
        std::string content;
    };

    std::vector<Content> changed() const;
    void undo();

    std::unique_ptr<ksMultiCommand> command;

    /// The children that have been done.
    std::vector<QUndoCommand *> done;
    bool switchesFlags = false;

    /// Whether a part is a step although it changes nothing.
    bool records = false;

    /// How many changes the change list had before.
    std::size_t start;
};
