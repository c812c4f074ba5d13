// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtrDecl.h>

/// @file
/// What can be done to containers through their handles. All functions do nothing for null handles, and
/// record to the calling thread's change list if it has one. References may be taken and released by several
/// threads at once, edits of one container not.

OSG_BEGIN_NAMESPACE

/// Takes a reference and records it.
inline void addRefCP(const FieldContainerPtrBase &fc)
{
    fc.addRef();
}

/// Releases a reference. Records that if some are left; else records the container as destroyed, sets @p fc
/// itself, const or not, to null, and destroys the container. The handle may lie in what is destroyed. Other
/// handles of the container dangle.
inline void subRefCP(const FieldContainerPtrBase &fc)
{
    fc.subRef();
}

/// Assigns @p source to @p target: releases the old container first, then takes a reference on the new one.
/// Nothing happens if both are the same. A new container that nobody but the old one holds goes with it; the
/// target is null then. Unless the source is null, the target must not lie in what goes.
void setRefdCP(FieldContainerPtrBase &target, const FieldContainerPtrBase &source);

/// Sets the handle to null and releases a reference. The handle may lie in what goes.
inline void clearRefCP(FieldContainerPtrBase &target)
{
    const FieldContainerPtrBase released(target);
    target = FieldContainerPtrBase();
    subRefCP(released);
}

/// Starts an edit. Nothing has to be done for that: every edit is announced at its end.
inline void beginEditCP(const FieldContainerPtr &, BitVector = FieldBits::AllFields,
                        UInt32 = ChangedOrigin::External)
{}

/// Records that the fields have changed, without a call of the change handler.
void endEditNotChangedCP(const FieldContainerPtr &fc, BitVector whichField = FieldBits::AllFields,
                         UInt32 = ChangedOrigin::External);

/// Calls the change handler without a record.
void changedCP(const FieldContainerPtr &fc, BitVector whichField = FieldBits::AllFields,
               UInt32 origin = ChangedOrigin::External);

/// Ends an edit: records that the fields have changed, then calls the change handler unless
/// FieldContainerPtr::_ignore_change is set.
void endEditCP(const FieldContainerPtr &fc, BitVector whichField = FieldBits::AllFields,
               UInt32 origin = ChangedOrigin::External);

/// The handle as @a OutPtrT; null if the container is of another class.
template <class OutPtrT, class InPtrT>
OutPtrT dynamic_fcptr_cast(const InPtrT &fc)
{
    return OutPtrT::dcast(fc);
}

/// An edit that ends with the scope. Default-constructed it edits nothing.
class CPEditor
{
public:
    CPEditor(void) = default;
    explicit CPEditor(const FieldContainerPtr &fc, BitVector whichField = FieldBits::AllFields)
        : _fc(fc)
        , _whichField(whichField)
    {
        beginEditCP(_fc, _whichField);
    }
    /// What a change handler throws passes on, unless an exception is on its way already: then the process
    /// ends.
    ~CPEditor(void) noexcept(false) { endEditCP(_fc, _whichField); }

    CPEditor(const CPEditor &) = delete;
    CPEditor &operator=(const CPEditor &) = delete;

private:
    const FieldContainerPtr _fc{};
    const BitVector _whichField = FieldBits::NoField;
};

OSG_END_NAMESPACE

#define OSG_EDITOR_NAME(Line) osgEditor##Line
#define OSG_EDITOR(Line) ::osg::CPEditor OSG_EDITOR_NAME(Line)

/// One edit of the given fields, or of all, up to the end of the scope.
#define CPEdit(fc, mask) OSG_EDITOR(__LINE__)(fc, mask)
#define CPEditAll(fc) OSG_EDITOR(__LINE__)(fc)
