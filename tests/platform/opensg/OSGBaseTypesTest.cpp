// SPDX-License-Identifier: MIT
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

using namespace osg;

static_assert(std::is_same_v<UInt8, unsigned char> && std::is_same_v<Int64, long long>);
static_assert(std::is_same_v<Char8, char> && std::is_same_v<UChar8, unsigned char>);
static_assert(std::is_same_v<Real64, double> && std::is_same_v<Real32, float>);
static_assert(TypeTraits<UInt8>::getMax() == 255 && TypeTraits<UInt8>::getMin() == 0);
static_assert(TypeTraits<Real32>::getMax() == std::numeric_limits<float>::max());
static_assert(TypeTraits<Int32>::getZeroElement() == 0 && TypeTraits<BitVector>::getOneElement() == 1);
