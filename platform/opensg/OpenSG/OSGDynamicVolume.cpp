// SPDX-License-Identifier: MIT
#include <OpenSG/OSGDynamicVolume.h>

#include <algorithm>

OSG_BEGIN_NAMESPACE

void DynamicVolume::setEmpty(void)
{
    _empty = true;
    _min = _max = Pnt3f();
}

void DynamicVolume::setBounds(const Pnt3f &min, const Pnt3f &max)
{
    _empty = false;
    _min = min;
    _max = max;
}

void DynamicVolume::getBounds(Pnt3f &min, Pnt3f &max) const
{
    min = _min;
    max = _max;
}

Pnt3f DynamicVolume::getCenter(void) const
{
    return _min + (_max - _min) * 0.5f;
}

void DynamicVolume::extendBy(const Pnt3f &point)
{
    if (_empty) {
        setBounds(point, point);
        return;
    }
    for (UInt32 i = 0; i < 3; ++i) {
        _min[i] = std::min(_min[i], point[i]);
        _max[i] = std::max(_max[i], point[i]);
    }
}

void DynamicVolume::extendBy(const DynamicVolume &volume)
{
    if (!volume._empty) {
        extendBy(volume._min);
        extendBy(volume._max);
    }
}

void DynamicVolume::transform(const Matrix &matrix)
{
    if (_empty) {
        return;
    }
    const Pnt3f corners[2] = {_min, _max};
    _empty = true;
    for (UInt32 corner = 0; corner < 8; ++corner) {
        Pnt3f point(corners[corner & 1].x(), corners[(corner >> 1) & 1].y(), corners[corner >> 2].z());
        matrix.multMatrixPnt(point, point);
        extendBy(point);
    }
}

bool DynamicVolume::intersect(const Pnt3f &point) const
{
    for (UInt32 i = 0; i < 3; ++i) {
        if (point[i] < _min[i] || point[i] > _max[i]) {
            return false;
        }
    }
    return !_empty;
}

bool DynamicVolume::intersect(const DynamicVolume &volume) const
{
    for (UInt32 i = 0; i < 3; ++i) {
        if (!(_min[i] < volume._max[i] && volume._min[i] < _max[i])) {
            return false;
        }
    }
    return !_empty && !volume._empty;
}

bool DynamicVolume::operator==(const DynamicVolume &other) const
{
    return _min == other._min && _max == other._max && _empty == other._empty && _valid == other._valid &&
           _static == other._static;
}

OSG_END_NAMESPACE
