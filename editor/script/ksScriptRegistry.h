// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QObject>
#include <QStringList>

#include <functional>
#include <type_traits>
#include <vector>

class ksScriptContainer;
class ksScriptHost;

/// The classes of the objects that scripts see. Each says in its own source file, by a constant, what it is
/// responsible for:
/// \code
/// const ksScriptRegistry::Wrapper<osg::UberLightPtr, ksScriptLight> wrapper;
/// const ksScriptRegistry::Part<osg::NodePtr, ksScriptTags> part("tags");
/// const ksScriptRegistry::Global<ksScriptScene> global("scene");
/// \endcode
class ksScriptRegistry
{
public:
    ksScriptRegistry() = delete;

    /// Containers of the class of \a PtrT are objects of the class \a Object, a ksScriptContainer, unless
    /// there is a wrapper for a class that is nearer to theirs.
    template <class PtrT, class Object>
    struct Wrapper
    {
        static_assert(std::is_base_of_v<ksScriptContainer, Object>);

        Wrapper()
        {
            wrappers().push_back(
                {&typeOf<PtrT>, &Object::staticMetaObject,
                 [](ksScriptHost &host, osg::UInt32 id) -> QObject * { return new Object(host, id); }});
        }
    };

    /// Containers of the class of \a PtrT have a member called \a name, an object of the class \a Object,
    /// which is made with the container's object, an \a Owner, as its parent.
    template <class PtrT, class Object, class Owner = ksScriptContainer>
    struct Part
    {
        explicit Part(const char *name)
        {
            parts().push_back({name, &typeOf<PtrT>, &Object::staticMetaObject,
                               [](ksScriptHost &host, QObject &owner) -> QObject * {
                                   return new Object(host, static_cast<Owner &>(owner));
                               }});
        }
    };

    /// There is a global object called \a name, of the class \a Object.
    template <class Object>
    struct Global
    {
        explicit Global(const char *name)
        {
            globals().push_back({name, &Object::staticMetaObject,
                                 [](ksScriptHost &host) -> QObject * { return new Object(host); }});
        }
    };

    /// A new object for \a container, without its parts.
    static QObject *makeObject(ksScriptHost &host, const osg::FieldContainerPtr &container);

    /// Calls \a take with the name of every part that \a owner, the object of \a container, is to have, and a
    /// new object for it.
    static void makeParts(ksScriptHost &host, const osg::FieldContainerPtr &container, QObject &owner,
                          const std::function<void(const char *name, QObject *part)> &take);

    /// The same for the global objects.
    static void makeGlobals(ksScriptHost &host,
                            const std::function<void(const char *name, QObject *global)> &take);

    /// Calls \a visit with each of these classes and the names of the parts that its objects have.
    static void
    visitClasses(const std::function<void(const QMetaObject &type, const QStringList &parts)> &visit);

private:
    /// Types register themselves at the start of the program, too, so that they are asked for later only.
    using Type = const osg::FieldContainerType &(*)();

    struct WrapperEntry
    {
        Type type;
        const QMetaObject *meta;
        QObject *(*make)(ksScriptHost &host, osg::UInt32 id);
    };

    struct PartEntry
    {
        const char *name;
        Type type;
        const QMetaObject *meta;
        QObject *(*make)(ksScriptHost &host, QObject &owner);
    };

    struct GlobalEntry
    {
        const char *name;
        const QMetaObject *meta;
        QObject *(*make)(ksScriptHost &host);
    };

    template <class PtrT>
    static const osg::FieldContainerType &typeOf()
    {
        return PtrT::StoredObjectType::getClassType();
    }

    static std::vector<WrapperEntry> &wrappers();
    static std::vector<PartEntry> &parts();
    static std::vector<GlobalEntry> &globals();
};
