// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksWarn.h>
#include <editor/scene/ksNodeSettings.h>

struct aiNode;

/// Reads the editor's settings of a node from what a model file says about the node beyond the scene.
class ksNodeSettingsImporter
{
public:
    ksNodeSettingsImporter() = delete;

    /// New settings. Entries of \a source's metadata (the "extras" of a glTF node) that have the name of a
    /// setting give its value; those of another name are left alone, those whose value does not fit are
    /// reported to \a warn.
    static osg::ksNodeSettingsPtr create(const aiNode &source, const ksWarn &warn);
};
