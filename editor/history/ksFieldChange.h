// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QJsonObject;

/// A field of one container that has changed.
struct ksFieldChange
{
    /// The container's id, its class, and what the user calls it; it may have gone since.
    osg::UInt32 container;
    QString type;
    QString containerName;

    /// The field's id and name.
    osg::UInt32 fieldId;
    QString field;

    /// What it held and what it holds now, made for reading: long lists are cut short.
    QString before;
    QString after;

    /// What became of a list of containers, as in "+ Node 'Lamp'"; empty for other fields.
    QString entries;

    /// All that it held, as ksFieldReader has it, if take() was to keep that.
    std::optional<std::string> contentBefore;

    /// Whether the field holds contentBefore again, or its container has gone.
    bool isTakenBack() const;

    /// The change on a line of its own, with the container's id.
    QString inFull() const;

    /// The change as an object of JSON.
    QJsonObject toJson() const;

    /// \a changes in a few words: the first ones, with their values where these are short, and how many there
    /// are besides.
    static QString summary(const std::vector<ksFieldChange> &changes);

    /// What the calling thread has changed, as its change list has it, since aspect 1 last followed, which it
    /// does now. Fields that hold what they held are left out, and so are those that tell who refers to a
    /// container, and containers that are new: the field that leads there has changed as well. Takes as long
    /// as there are changes, however large the scene is. Those changes have contentBefore for which
    /// \a keepsContent returns true.
    static std::vector<ksFieldChange>
    take(const std::function<bool(osg::UInt32 container, osg::UInt32 fieldId)> &keepsContent = {});
};
