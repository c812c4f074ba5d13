// SPDX-License-Identifier: MIT
#include <ksundo/field/ksStringFieldUndoCommand.h>

template class ksTextFieldUndoCommand<ksStringFieldUndoCommand, osg::SField<std::string>, std::string>;
