// SPDX-License-Identifier: MIT
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/scene/ksFieldReferences.h>

#include <OpenSG/OSGFieldContainer.h>

#include <QCoreApplication>
#include <QStringList>

namespace {

struct AllFieldsPageTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksAllFieldsPage)
};

/// \a node, its core and its attachments.
std::vector<osg::FieldContainerPtr> containersOf(const osg::NodePtr &node)
{
    std::vector<osg::FieldContainerPtr> all{node};
    if (node->getCore() != osg::NullFC)
        all.push_back(node->getCore());
    ksFieldReferences::visit(*node->getSFAttachments(),
                             [&all](const osg::FieldContainerPtr &attached) { all.push_back(attached); });
    return all;
}

void buildAllFields(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    const auto nodes = ksInspectorFields::findAll<osg::NodePtr>(subjects.ids);
    for (const osg::FieldContainerPtr &shown : containersOf(nodes.back())) {
        // Those of one class share their rows.
        std::vector<osg::FieldContainerPtr> targets;
        for (const osg::NodePtr &node : nodes)
            for (const osg::FieldContainerPtr &container : containersOf(node))
                if (container->getType() == shown->getType() && node != nodes.back())
                    targets.push_back(container);
        targets.push_back(shown);
        section.addHeading(QString::fromLatin1(shown->getTypeName()));
        // The tree is shown elsewhere, row by row.
        ksInspectorFields::addAll(section, ksInspectorFields::idsOf(targets),
                                  {QStringLiteral("parents"), QStringLiteral("children")});
    }
}

} // namespace

ksInspectorPage ksInspectorPages::allFields()
{
    const auto subjects = [](const std::vector<osg::NodePtr> &nodes) {
        ksInspectorSubjects result =
            ksInspectorFields::subjects(nodes, [](const osg::NodePtr &node) { return node; });
        for (const osg::NodePtr &node : nodes)
            for (const osg::FieldContainerPtr &container : containersOf(node))
                result.parts.push_back(container.getFieldContainerId());
        return result;
    };
    return {AllFieldsPageTexts::tr("All fields"), true, subjects, &buildAllFields};
}
