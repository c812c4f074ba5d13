// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGRefPtr.h>

#include <string>
#include <vector>

/// The fields that class \a ContainerT adds to its parent's, by id, as "name type = value", with the values
/// that a new container has.
template <class ContainerT>
std::vector<std::string> ksFieldTableOf()
{
    osg::FieldContainerType &type = ContainerT::getClassType();
    const osg::FieldContainerRefPtr container(ContainerT::create());
    std::vector<std::string> rows;
    for (osg::UInt32 id = type.getParent()->getNumFieldDescs() + 1; id <= type.getNumFieldDescs(); ++id) {
        const osg::Field *field = container->getField(id);
        std::string value;
        rows.push_back(type.getFieldDescription(id)->getCName() + std::string(" ") +
                       field->getType().getCName() + " = " + field->getValueByStr(value));
    }
    return rows;
}
