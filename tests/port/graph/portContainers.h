// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <map>
#include <portFields.h>
#include <utility>

namespace osg {

class NullFieldContainerPtr;

/// A handle. It does not count, and none may be asked anything while it is null.
class FieldContainerPtrBase
{
public:
    FieldContainerPtrBase() = default;

    UInt32 getFieldContainerId() const;
    Int32 getRefCount() const;

    bool operator==(const FieldContainerPtrBase &other) const { return _target == other._target; }
    bool operator!=(const FieldContainerPtrBase &other) const { return _target != other._target; }
    bool operator<(const FieldContainerPtrBase &other) const { return _target < other._target; }
    bool operator!() const { return _target == nullptr; }

protected:
    friend class FieldContainerFactory;
    friend void addRefCP(const FieldContainerPtrBase &container);
    friend void subRefCP(const FieldContainerPtrBase &container);

    explicit FieldContainerPtrBase(FieldContainer *target)
        : _target(target)
    {}
    FieldContainer &target() const;

    FieldContainer *_target = nullptr;
};

class FieldContainerPtr : public FieldContainerPtrBase
{
public:
    typedef FieldContainer StoredObjectType;
    typedef FieldContainerPtr ObjectType;

    FieldContainerPtr() = default;
    explicit FieldContainerPtr(FieldContainer &object)
        : FieldContainerPtrBase(&object)
    {}

    FieldContainer *operator->() const { return &target(); }
    FieldContainer &operator*() const { return target(); }

    template <class BasePtrT, class ContainerT>
    friend class FCPtr;
};

class NullFieldContainerPtr : public FieldContainerPtr
{};

extern const NullFieldContainerPtr NullFC;

/// The handle of a class, which derives from that of its base class.
template <class BasePtrT, class ContainerT>
class FCPtr : public BasePtrT
{
public:
    typedef ContainerT StoredObjectType;
    typedef FCPtr ObjectType;

    FCPtr() = default;
    FCPtr(const NullFieldContainerPtr &) {}
    explicit FCPtr(ContainerT &object) { this->_target = &object; }

    ContainerT *operator->() const { return static_cast<ContainerT *>(&this->target()); }
    ContainerT &operator*() const { return static_cast<ContainerT &>(this->target()); }

    static FCPtr dcast(const FieldContainerPtr &container)
    {
        FCPtr result;
        result._target = dynamic_cast<ContainerT *>(container._target);
        return result;
    }
};

class FieldContainerType : public TypeBase
{
public:
    /// Fields are numbered on from those of the parent, which is null for the first type.
    FieldContainerType(const Char8 *name, const FieldContainerType *parent,
                       const std::vector<std::pair<const Char8 *, FieldDescription::Access>> &fields);

    UInt16 getGroupId() const { return static_cast<UInt16>(getId()); }
    bool isDerivedFrom(const FieldContainerType &other) const
    {
        return *this == other || (_parent != nullptr && _parent->isDerivedFrom(other));
    }
    UInt32 getNumFieldDescs() const { return static_cast<UInt32>(_descriptions.size()); }
    const FieldDescription *getFieldDescription(UInt32 id) const
    {
        return id - 1 < _descriptions.size() ? &_descriptions[id - 1] : nullptr;
    }

private:
    const FieldContainerType *_parent;
    std::vector<FieldDescription> _descriptions;
};

class FieldContainer
{
public:
    typedef FieldContainerPtr Ptr;
    enum
    {
        NextFieldId = 1
    };

    FieldContainer(const FieldContainer &) = delete;
    FieldContainer &operator=(const FieldContainer &) = delete;

    static const FieldContainerType &getClassType();
    virtual const FieldContainerType &getType() const { return getClassType(); }

    Field *getField(UInt32 id)
    {
        const FieldDescription *description = getType().getFieldDescription(id);
        return description == nullptr ? nullptr : description->getField(*this);
    }

    virtual void changed(BitVector, UInt32) {}

protected:
    FieldContainer() = default;
    virtual ~FieldContainer() = default;

private:
    friend class FieldContainerFactory;
    friend class FieldContainerPtrBase;
    friend void addRefCP(const FieldContainerPtrBase &container);
    friend void subRefCP(const FieldContainerPtrBase &container);

    UInt32 _id = 0;
    Int32 _references = 0;
};

inline FieldContainer &FieldContainerPtrBase::target() const
{
    if (_target == nullptr)
        std::abort();
    return *_target;
}

inline UInt32 FieldContainerPtrBase::getFieldContainerId() const
{
    return target()._id;
}

inline Int32 FieldContainerPtrBase::getRefCount() const
{
    return _target == nullptr ? 0 : _target->_references;
}

inline std::ostream &operator<<(std::ostream &stream, const FieldContainerPtrBase &container)
{
    return stream << (!container ? 0 : container.getFieldContainerId());
}

template <class T>
std::ostream &operator<<(std::ostream &stream, const std::map<UInt32, T> &handles)
{
    for (const auto &[key, container] : handles)
        stream << key << ':' << container << ' ';
    return stream;
}

inline BitVector maskOf(UInt32 fieldId)
{
    return BitVector(1) << fieldId;
}

/// What every class begins with that has fields of its own.
#define PORT_FIELDS_OF(Class) typedef Class Self;

#define PORT_FIELD(Name, id, getter)                                      \
public:                                                                   \
    enum                                                                  \
    {                                                                     \
        Name##FieldId = id                                                \
    };                                                                    \
    inline static const osg::BitVector Name##FieldMask = osg::maskOf(id); \
    static osg::Field *access##Name(osg::FieldContainer &container)       \
    {                                                                     \
        return static_cast<Self &>(container).getter();                   \
    }

/// A field of one value, and its accessors. Setters tell that they have been called.
#define PORT_SF(FieldT, Name, id) PORT_SF_BEING(FieldT, Name, id, )

/// The same with a value to begin with.
#define PORT_SF_BEING(FieldT, Name, id, value) \
    PORT_FIELD(Name, id, getSF##Name)          \
    FieldT *getSF##Name()                      \
    {                                          \
        return &_sf##Name;                     \
    }                                          \
    const auto &get##Name() const              \
    {                                          \
        return _sf##Name.getValue();           \
    }                                          \
    template <class T>                         \
    bool set##Name(const T &newValue)          \
    {                                          \
        _sf##Name.setValue(newValue);          \
        return true;                           \
    }                                          \
                                               \
protected:                                     \
    FieldT _sf##Name{value};

/// A field of many values.
#define PORT_MF(FieldT, Name, id)     \
    PORT_FIELD(Name, id, getMF##Name) \
    FieldT *getMF##Name()             \
    {                                 \
        return &_mf##Name;            \
    }                                 \
    FieldT &get##Name()               \
    {                                 \
        return _mf##Name;             \
    }                                 \
                                      \
protected:                            \
    FieldT _mf##Name;

/// What every class has.
#define PORT_CLASS(Class)                                   \
    PORT_FIELDS_OF(Class)                                   \
public:                                                     \
    static const osg::FieldContainerType &getClassType();   \
    static osg::UInt32 getClassGroupId()                    \
    {                                                       \
        return getClassType().getGroupId();                 \
    }                                                       \
    const osg::FieldContainerType &getType() const override \
    {                                                       \
        return getClassType();                              \
    }

/// Defines the type of a class; what follows are the names and access functions of its fields.
#define PORT_TYPE(Class, Parent, ...)                                                              \
    const osg::FieldContainerType &Class::getClassType()                                           \
    {                                                                                              \
        static const osg::FieldContainerType type(#Class, &Parent::getClassType(), {__VA_ARGS__}); \
        return type;                                                                               \
    }

/// What a class has that is not abstract.
#define PORT_CREATED_CLASS(Class)            \
    PORT_CLASS(Class)                        \
    typedef osg::Class##Ptr Ptr;             \
    static Ptr create();                     \
                                             \
protected:                                   \
    friend class osg::FieldContainerFactory; \
    Class() = default;

/// Defines the type of such a class. Its containers are made here, where the types of their fields are.
#define PORT_CREATED_TYPE(Class, Parent, ...)                               \
    PORT_TYPE(Class, Parent, __VA_ARGS__)                                   \
    Class::Ptr Class::create()                                              \
    {                                                                       \
        auto *object = new Class;                                           \
        osg::FieldContainerFactory::the()->registerFieldContainer(*object); \
        return Ptr(*object);                                                \
    }

class FieldContainerFactory
{
public:
    static FieldContainerFactory *the();

    /// Null for an id that was not given out, or whose container has gone. There is nobody to ask before
    /// osgInit() and after osgExit().
    FieldContainerPtr getContainer(UInt32 id) const;

    void registerFieldContainer(FieldContainer &object);

private:
    friend void subRefCP(const FieldContainerPtrBase &container);

    std::vector<FieldContainer *> _store = {nullptr};
};

class ChangeList
{
public:
    typedef std::vector<std::pair<UInt32, BitVector>> Changes;
    typedef Changes::const_iterator changed_const_iterator;

    changed_const_iterator beginChanged() const { return _changed.begin(); }
    changed_const_iterator endChanged() const { return _changed.end(); }
    UInt32 sizeChanged() const { return static_cast<UInt32>(_changed.size()); }
    UInt32 sizeAddRefd() const { return _addRefd; }
    UInt32 sizeSubRefd() const { return _subRefd; }
    UInt32 sizeDestroyed() const { return _destroyed; }

    void addChanged(const FieldContainerPtr &container, BitVector mask)
    {
        if (!_isReadOnly)
            _changed.emplace_back(container.getFieldContainerId(), mask);
    }
    void addAddRefd(const FieldContainerPtrBase &) { _addRefd += _isReadOnly ? 0 : 1; }
    void addSubRefd(const FieldContainerPtrBase &) { _subRefd += _isReadOnly ? 0 : 1; }
    void addDestroyed(UInt32) { _destroyed += _isReadOnly ? 0 : 1; }
    void clearAll();

    static void setReadWriteDefault(bool readWrite = true);

private:
    friend bool osgInit(Int32 argc, Char8 **argv);

    bool _isReadOnly = true;
    Changes _changed;
    UInt32 _addRefd = 0;
    UInt32 _subRefd = 0;
    UInt32 _destroyed = 0;
};

class PThreadBase
{
public:
    /// Null but for the thread that called osgInit().
    static ChangeList *getCurrentChangeList();
};

class Thread : public PThreadBase
{};

namespace ChangedOrigin {
constexpr UInt32 External = 0x1;
}

bool osgInit(Int32 argc, Char8 **argv);
bool osgExit();

void addRefCP(const FieldContainerPtrBase &container);
void subRefCP(const FieldContainerPtrBase &container);
void setRefdCP(FieldContainerPtrBase &target, const FieldContainerPtrBase &source);
void beginEditCP(const FieldContainerPtr &container, BitVector mask = ~BitVector(0));
void endEditCP(const FieldContainerPtr &container, BitVector mask = ~BitVector(0));

} // namespace osg
