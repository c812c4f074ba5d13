// SPDX-License-Identifier: MIT
#include <checker/tour/ksCallLog.h>

#include <utility>

ksCallLog::Lines ksCallLog::take()
{
    return std::exchange(*lines, {});
}

void ksCallLog::put(std::ostream &text, const osg::NodePtr &node)
{
    text << node.getFieldContainerId();
}

void ksCallLog::put(std::ostream &text, const osg::Vec3f &value)
{
    text << value[0] << ' ' << value[1] << ' ' << value[2];
}

void ksCallLog::put(std::ostream &text, const QList<int> &indexes)
{
    text << '[';
    for (const int index : indexes)
        text << ' ' << index;
    text << " ]";
}
