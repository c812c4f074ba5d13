// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QString>

#include <vector>

/// Which numbers make sense in fields.
namespace ksFieldRanges {

/// Both ends belong to it; they are infinite where there is no limit.
struct Range
{
    double least;
    double most;
};

/// The range of the field of \a container called \a field.
Range of(const osg::FieldContainerPtr &container, const QString &field);

/// Throws ksEditorError, which says what would, when one of \a numbers makes no sense in the field of \a
/// container called \a field: those that are not finite, components of colours below 0, and what the field's
/// own range leaves out.
void check(const osg::FieldContainerPtr &container, const QString &field, const std::vector<double> &numbers);

} // namespace ksFieldRanges
