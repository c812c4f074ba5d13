// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGVector.h>

#include <cstdlib>

OSG_BEGIN_NAMESPACE

/// Numbers from 0 to 1, from the C library's generator.
template <class TupleT>
void setRandomColor(TupleT &color)
{
    for (UInt32 i = 0; i < TupleT::Size; ++i) {
        color[i] = static_cast<typename TupleT::ValueType>(Real64(std::rand()) / RAND_MAX);
    }
}

/// Red, green, blue; 0 to 1 is the displayable range. Black at first.
template <class T>
class Color3 : public Tuple<T, 3>
{
public:
    using Tuple<T, 3>::Tuple;

    T &red(void) { return (*this)[0]; }
    T &green(void) { return (*this)[1]; }
    T &blue(void) { return (*this)[2]; }
    T red(void) const { return (*this)[0]; }
    T green(void) const { return (*this)[1]; }
    T blue(void) const { return (*this)[2]; }

    void setRGB(T red, T green, T blue) { this->setValues(red, green, blue); }
    void setValuesRGB(T red, T green, T blue) { this->setValues(red, green, blue); }
    const T *getValuesRGB(void) const { return this->getValues(); }

    void setRandom(void) { setRandomColor(*this); }
};

/// Red, green, blue, alpha; alpha 1 is opaque. All zero at first.
template <class T>
class Color4 : public Tuple<T, 4>
{
public:
    using Tuple<T, 4>::Tuple;

    T &red(void) { return (*this)[0]; }
    T &green(void) { return (*this)[1]; }
    T &blue(void) { return (*this)[2]; }
    T &alpha(void) { return (*this)[3]; }
    T red(void) const { return (*this)[0]; }
    T green(void) const { return (*this)[1]; }
    T blue(void) const { return (*this)[2]; }
    T alpha(void) const { return (*this)[3]; }

    void setRGBA(T red, T green, T blue, T alpha) { this->setValues(red, green, blue, alpha); }
    void setValuesRGBA(T red, T green, T blue, T alpha) { this->setValues(red, green, blue, alpha); }
    const T *getValuesRGBA(void) const { return this->getValues(); }

    void setRandom(void) { setRandomColor(*this); }
};

typedef Color3<Real32> Color3f;
typedef Color4<Real32> Color4f;

OSG_END_NAMESPACE
