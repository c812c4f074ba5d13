// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptRegistry.h>

#include <OpenSG/OSGFieldContainerType.h>

std::vector<ksScriptRegistry::WrapperEntry> &ksScriptRegistry::wrappers()
{
    static std::vector<WrapperEntry> all;
    return all;
}

std::vector<ksScriptRegistry::PartEntry> &ksScriptRegistry::parts()
{
    static std::vector<PartEntry> all;
    return all;
}

std::vector<ksScriptRegistry::GlobalEntry> &ksScriptRegistry::globals()
{
    static std::vector<GlobalEntry> all;
    return all;
}

QObject *ksScriptRegistry::makeObject(ksScriptHost &host, const osg::FieldContainerPtr &container)
{
    for (const osg::FieldContainerType *type = &container->getType(); type != nullptr;
         type = type->getParent())
        for (const WrapperEntry &wrapper : wrappers())
            if (wrapper.type() == *type)
                return wrapper.make(host, container.getFieldContainerId());
    return nullptr;
}

void ksScriptRegistry::makeParts(ksScriptHost &host, const osg::FieldContainerPtr &container, QObject &owner,
                                 const std::function<void(const char *name, QObject *part)> &take)
{
    for (const PartEntry &part : parts())
        if (container->getType().isDerivedFrom(part.type()))
            take(part.name, part.make(host, owner));
}

void ksScriptRegistry::makeGlobals(ksScriptHost &host,
                                   const std::function<void(const char *name, QObject *global)> &take)
{
    for (const GlobalEntry &global : globals())
        take(global.name, global.make(host));
}

void ksScriptRegistry::visitClasses(
    const std::function<void(const QMetaObject &type, const QStringList &parts)> &visit)
{
    for (const GlobalEntry &global : globals())
        visit(*global.meta, {});
    for (const WrapperEntry &wrapper : wrappers()) {
        QStringList names;
        for (const PartEntry &part : parts())
            if (wrapper.type().isDerivedFrom(part.type()))
                names += QString::fromLatin1(part.name);
        visit(*wrapper.meta, names);
    }
    for (const PartEntry &part : parts())
        visit(*part.meta, {});
}
