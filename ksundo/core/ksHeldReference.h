// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

#include <utility>

/// Keeps a container alive that a command may have to put back into the scene.
///
/// It takes one reference on the container and releases it when it goes; both are recorded in the thread's
/// change list. Releasing the last reference destroys the container. It can be moved, but not copied.
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
        : held(container)
    {
        osg::addRefCP(held);
    }

    ksHeldReference(ksHeldReference &&other) noexcept
        : held(std::exchange(other.held, PtrT()))
    {}

    /// Releases the own container after taking over that of \a other.
    ksHeldReference &operator=(ksHeldReference &&other) noexcept
    {
        ksHeldReference(std::move(other)).swap(*this);
        return *this;
    }

    ~ksHeldReference() { osg::subRefCP(held); }

    void swap(ksHeldReference &other) noexcept { std::swap(held, other.held); }

    /// The container, or NullFC. It takes no further reference.
    const PtrT &get() const { return held; }

private:
    PtrT held;
};
