// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptContainer.h>

#include <OpenSG/OSGDirectionalLight.h>

/// Classes that a test registers for scripts.
class ksScriptLamp : public ksScriptContainer
{
    Q_OBJECT
    Q_CLASSINFO("kind()", "what it is")

public:
    using ksScriptContainer::ksScriptContainer;

    Q_INVOKABLE virtual QString kind() const { return QStringLiteral("lamp"); }
};

class ksScriptSun : public ksScriptLamp
{
    Q_OBJECT

public:
    using ksScriptLamp::ksScriptLamp;

    QString kind() const override { return QStringLiteral("sun"); }
};

class ksScriptSocket : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("owner()", "the number of the light")

public:
    ksScriptSocket(ksScriptHost &, ksScriptContainer &light)
        : QObject(&light)
        , owning(light)
    {}

    Q_INVOKABLE quint32 owner() const { return owning.id(); }

private:
    const ksScriptContainer &owning;
};

class ksScriptAlmanac : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("steps()", "how many steps there are")

public:
    explicit ksScriptAlmanac(ksScriptHost &scriptHost)
        : host(scriptHost)
    {}

    Q_INVOKABLE int steps() const { return host.history().stack()->count(); }

private:
    ksScriptHost &host;
};
