// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainerPtr.h>

#include <functional>
#include <vector>

/// The containers that fields refer to, whatever the class of their handles.
namespace ksFieldReferences {

/// Whether \a field is one of container handles, single, as a list, or as the map of attachments.
bool arePossibleIn(const osg::Field &field);

/// The ids of the containers in \a field, which is one of handles, single or as a list; 0 for null handles.
std::vector<osg::UInt32> ids(const osg::Field &field);

/// Calls \a visit with every container that \a field refers to, null handles left out.
void visit(const osg::Field &field, const std::function<void(const osg::FieldContainerPtr &)> &visit);

} // namespace ksFieldReferences
