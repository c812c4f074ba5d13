// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksCommandClasses.h>

#include <ksCommandList.h>

#include <algorithm>

#define KS_NAMED_ID(Class) {#Class, &Class::commandId},

const std::vector<ksCommandClass> &ksCommandClasses::all()
{
    static const std::vector<ksCommandClass> classes = {KS_COMMAND_LIST(KS_NAMED_ID)};
    return classes;
}

int ksCommandClasses::countIn(const ksCheckedHistory &history)
{
    return static_cast<int>(
        std::count_if(all().begin(), all().end(), [&history](const ksCommandClass &commandClass) {
            return history.hasAdded(commandClass.id());
        }));
}

void ksCommandClasses::verifyIn(ksCheckedHistory &history)
{
    for (const ksCommandClass &commandClass : all())
        history.verify(history.hasAdded(commandClass.id()),
                       QStringLiteral("there is a ") + QString::fromLatin1(commandClass.name));
}
