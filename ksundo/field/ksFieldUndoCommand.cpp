// SPDX-License-Identifier: MIT
#include <ksundo/field/ksFieldUndoCommand.h>

template class ksFieldUndoCommand<osg::Int64>;
template class ksFieldUndoCommand<osg::UInt64>;
template class ksFieldUndoCommand<int>;
template class ksFieldUndoCommand<unsigned int>;
template class ksFieldUndoCommand<short>;
template class ksFieldUndoCommand<unsigned short>;
template class ksFieldUndoCommand<signed char>;
template class ksFieldUndoCommand<unsigned char>;
template class ksFieldUndoCommand<float>;
template class ksFieldUndoCommand<double>;
