// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksFindContainer.h>

#include <OpenSG/OSGFieldContainerPtr.h>
#include <ksPlatform.h>

#include <utility>

/// Keeps a container alive that a command may have to put back into the scene.
///
/// It takes one reference on the container and releases it when it goes; both are recorded in the thread's
/// change list. Releasing the last reference destroys the container. Like all targets of a command, the
/// container is known by its id, so that one which has been destroyed in spite of the reference does no harm.
/// A reference can be moved, but not copied.
///
/// \tparam PtrT the type of the container's handle
template <class PtrT>
class ksHeldReference
{
public:
    /// Holds nothing.
    ksHeldReference() = default;

    /// Takes a reference on \a container, which may be NullFC.
    explicit ksHeldReference(const PtrT &container)
        : id(ksPlatform::idOf(container))
    {
        osg::addRefCP(container);
    }

    /// Takes over the container of \a other, which then holds nothing.
    ksHeldReference(ksHeldReference &&other) noexcept
        : id(std::exchange(other.id, 0))
    {}

    /// Takes over the container of \a other, which then holds nothing, and releases its own.
    ksHeldReference &operator=(ksHeldReference &&other) noexcept
    {
        ksHeldReference(std::move(other)).swap(*this);
        return *this;
    }

    /// Releases the reference, which destroys the container when it was the last.
    ~ksHeldReference()
    {
        if (id != 0) // holding nothing, it may go when there is no scene graph to ask
            osg::subRefCP(get());
    }

    /// Exchanges what the two hold; no reference is taken or released.
    void swap(ksHeldReference &other) noexcept { std::swap(id, other.id); }

    /// The container; NullFC when there is none, or when it has been destroyed in spite of the reference. No
    /// further reference is taken.
    PtrT get() const { return ksFindContainer<PtrT>(id); }

private:
    osg::UInt32 id = 0;
};
