// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksFieldReferences.h>

#include <OSGConstraintObject.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSFAttachmentMap.h>

#include <string>
#include <unordered_map>
#include <vector>

/// All that a scene holds, container by container, a line a field: the same text for two scenes that are
/// equal, whatever the ids of their containers. Bounding volumes are left out, since they are computed when
/// somebody asks.
class ksSceneText
{
public:
    static std::vector<std::string> of(const osg::NodePtr &root) { return ksSceneText(root).lines; }

    /// The same for the numbers of references that are held on each container.
    static std::vector<std::string> countsOf(const osg::NodePtr &root)
    {
        ksSceneText text(root);
        std::vector<std::string> counts;
        for (const osg::FieldContainerPtr &container : text.order)
            counts.push_back(text.reach(container.getFieldContainerId()) + ' ' + container->getTypeName() +
                             " has " + std::to_string(container.getRefCount()));
        return counts;
    }

private:
    explicit ksSceneText(const osg::NodePtr &root)
    {
        reach(root.getFieldContainerId());
        for (std::size_t i = 0; i < order.size(); ++i)
            write(osg::FieldContainerPtr(order[i]));
    }

    std::string reach(osg::UInt32 id)
    {
        const osg::FieldContainerPtr container = osg::FieldContainerFactory::the()->getContainer(id);
        if (container == osg::NullFC)
            return "null";
        const auto [found, isNew] = numbers.emplace(id, order.size());
        if (isNew)
            order.push_back(container);
        return '#' + std::to_string(found->second);
    }

    void write(const osg::FieldContainerPtr &container)
    {
        const osg::FieldContainerType &type = container->getType();
        const std::string start = reach(container.getFieldContainerId()) + ' ' + type.getCName();
        lines.push_back(start);
        for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
            const std::string name = type.getFieldDescription(id)->getCName();
            if (name != "volume")
                lines.push_back(start + '.' + name + ' ' +
                                valueOf(container, *container->getField(id), name));
        }
    }

    std::string valueOf(const osg::FieldContainerPtr &container, const osg::Field &field,
                        const std::string &name)
    {
        std::string text;
        field.getValueByStr(text);
        if (name == "nodeId")
            return reach(osg::ConstraintObjectPtr::dcast(container)->getNodeId());
        if (!ksFieldReferences::arePossibleIn(field))
            return text;
        std::string references;
        if (const auto *attachments = dynamic_cast<const osg::SFAttachmentMap *>(&field)) {
            for (const auto &[key, attachment] : attachments->getValue())
                references += std::to_string(key) + ':' + reach(attachment.getFieldContainerId()) + ' ';
            return references;
        }
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = std::min(text.find(", ", start), text.size());
            references += reach(static_cast<osg::UInt32>(std::stoul(text.substr(start, end - start)))) + ' ';
            start = end + 2;
        }
        return references;
    }

    std::unordered_map<osg::UInt32, std::size_t> numbers;
    std::vector<osg::FieldContainerPtr> order;
    std::vector<std::string> lines;
};

/// In what two scenes differ, as many lines as are easily read; empty when they are equal.
inline std::string ksDifference(const std::vector<std::string> &expected,
                                const std::vector<std::string> &actual)
{
    constexpr std::size_t MostLines = 10;
    constexpr std::size_t LongestLine = 300;
    std::string text;
    std::size_t count = 0;
    for (std::size_t i = 0; i < std::max(expected.size(), actual.size()) && count < MostLines; ++i) {
        const std::string wanted = i < expected.size() ? expected[i] : "(nothing)";
        const std::string there = i < actual.size() ? actual[i] : "(nothing)";
        if (wanted != there && ++count > 0)
            text += wanted.substr(0, LongestLine) + "\n    is " + there.substr(0, LongestLine) + '\n';
    }
    return text;
}
