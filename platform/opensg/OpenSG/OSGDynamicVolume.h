// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMatrix.h>

OSG_BEGIN_NAMESPACE

/// A box along the axes around something in the scene. Empty, valid and not static at first.
class DynamicVolume
{
public:
    /// False: the box has to be computed again before use.
    bool isValid(void) const { return _valid; }
    void setValid(bool valid = true) { _valid = valid; }

    /// True: the box stays as it is, whatever changes in the scene.
    bool isStatic(void) const { return _static; }
    void setStatic(bool isStatic = true) { _static = isStatic; }

    /// True: there is nothing inside; the corners have no meaning.
    bool isEmpty(void) const { return _empty; }
    void setEmpty(void);

    const Pnt3f &getMin(void) const { return _min; }
    const Pnt3f &getMax(void) const { return _max; }

    /// Sets the corners; the box is not empty any more. @p min must not exceed @p max in any component.
    void setBounds(const Pnt3f &min, const Pnt3f &max);
    void getBounds(Pnt3f &min, Pnt3f &max) const;

    Pnt3f getCenter(void) const;
    void getCenter(Pnt3f &center) const { center = getCenter(); }

    /// Makes the box just large enough to hold @p point, or all of @p volume, as well.
    void extendBy(const Pnt3f &point);
    void extendBy(const DynamicVolume &volume);

    /// Becomes the box around the transformed corners; an empty box stays empty.
    void transform(const Matrix &matrix);

    /// True if @p point lies in the box or on its sides.
    bool intersect(const Pnt3f &point) const;

    /// True if both have space in common; to touch is not enough.
    bool intersect(const DynamicVolume &volume) const;

    /// The box, which is this object, and the announcement that it was changed, which has no effect.
    DynamicVolume &getInstance(void) { return *this; }
    const DynamicVolume &getInstance(void) const { return *this; }
    void instanceChanged(void) {}

    bool operator==(const DynamicVolume &other) const;
    bool operator!=(const DynamicVolume &other) const { return !(*this == other); }

private:
    Pnt3f _min;
    Pnt3f _max;
    bool _empty = true;
    bool _valid = true;
    bool _static = false;
};

OSG_END_NAMESPACE
