// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/ksExport.h>

#include <OpenSG/OSGFieldContainerPtr.h>
#include <OpenSG/OSGFieldDescription.h>

#include <string>
#include <string_view>

/// How the arguments of a field command name the field: by its name or by its id, counted from 1. It does not
/// own the name and is not to be kept.
class KSUNDO_EXPORT ksFieldKey
{
public:
    /// The field called \a name.
    ksFieldKey(const std::string &name)
        : name(name)
    {}

    /// The field called \a name, which must not be null.
    ksFieldKey(const char *name)
        : name(name)
    {}

    /// The field with the id \a id.
    ksFieldKey(int id)
        : id(static_cast<osg::UInt32>(id))
    {}

    /// The field's description in the type of \a container; null when there is none, and for NullFC. A name
    /// is looked for as by ksFieldBaseUndoCommand::findField().
    const osg::FieldDescription *findIn(const osg::FieldContainerPtr &container) const;

private:
    std::string_view name;
    osg::UInt32 id = 0;
};
