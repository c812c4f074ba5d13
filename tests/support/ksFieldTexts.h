// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGThreadContext.h>

#include <map>
#include <string>

/// The values of fields as exact texts, by name.
using ksFieldTexts = std::map<std::string, std::string>;

/// The values of all fields of \a container, as a thread of \a aspect sees them.
inline ksFieldTexts ksFieldTextsOf(const osg::FieldContainerPtr &container, osg::UInt32 aspect = 0)
{
    const osg::AspectScope scope(aspect);
    ksFieldTexts texts;
    osg::FieldContainerType &type = container->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const osg::Field &field = *container->getField(id);
        std::string &text = texts[type.getFieldDescription(id)->getCName()];
        field.getValueByStr(text);
        if (const auto *volume = dynamic_cast<const osg::SFDynamicVolume *>(&field))
            text += volume->getValue().isValid() ? " valid" : " invalid";
    }
    return texts;
}
