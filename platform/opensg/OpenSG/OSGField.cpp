// SPDX-License-Identifier: MIT
#include <OpenSG/OSGField.h>
#include <OpenSG/OSGLog.h>

OSG_BEGIN_NAMESPACE

void Field::dump(void) const
{
    std::string text;
    getValueByStr(text);
    logNotice(std::string(getType().getCName()) + ": " + text);
}

OSG_END_NAMESPACE
