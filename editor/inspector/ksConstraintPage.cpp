// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/inspector/ksListEditor.h>

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>
#include <ksundo/core/ksMultiCommand.h>

#include <OSGAimConstraint.h>

#include <QCoreApplication>

#include <algorithm>
#include <memory>

using ksInspectorFields::findAll;

namespace {

struct ConstraintPageTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksConstraintPage)
};

/// A node that a constraint refers to, and as what.
struct Reference
{
    osg::AttachmentContainerPtr node;
    QString role;
};

/// Those of \a constraint whose nodes are there.
std::vector<Reference> referencesOf(const osg::AbstractConstraintPtr &constraint)
{
    std::vector<Reference> all;
    const auto add = [&all](const osg::AttachmentContainerPtr &node, const QString &role) {
        if (node != osg::NullFC)
            all.push_back({node, role});
    };
    add(constraint->getTarget(), ConstraintPageTexts::tr("Target"));
    for (const osg::ConstraintObjectPtr &object : constraint->getSources())
        add(object->getNode(), ConstraintPageTexts::tr("Source"));
    if (const auto aim = osg::AimConstraintPtr::dcast(constraint))
        for (const osg::ConstraintObjectPtr &object : aim->getUpVectorSources())
            add(object->getNode(), ConstraintPageTexts::tr("Up"));
    return all;
}

void buildConstraint(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    ksDocument &document = section.edits().document();
    ksInspectorField field;
    field.name = ConstraintPageTexts::tr("Refers to");
    field.targets = subjects.ids;
    field.read = [](const osg::FieldContainerPtr &target) {
        QStringList texts;
        for (const Reference &reference : referencesOf(osg::AbstractConstraintPtr::dcast(target)))
            texts += QStringLiteral("%1: %2").arg(reference.role, ksInspectorFields::titleOf(reference.node));
        return texts;
    };
    field.watches = [](const osg::FieldContainerPtr &target) {
        ksWatches watches{{target.getFieldContainerId(), osg::FieldBits::AllFields}};
        for (const Reference &reference : referencesOf(osg::AbstractConstraintPtr::dcast(target)))
            ksInspectorFields::watchName(watches, reference.node);
        return watches;
    };
    field.perform = [&document, ids = subjects.ids](const QVariant &value, int) {
        const auto row = static_cast<std::size_t>(value.value<ksListChange>().row);
        const auto constraints = findAll<osg::AbstractConstraintPtr>(ids);
        const osg::AttachmentContainerPtr node = referencesOf(constraints.back())[row].node;
        auto batch = std::make_unique<ksMultiCommand>(
            ConstraintPageTexts::tr("Remove '%1' from constraint").arg(ksInspectorFields::titleOf(node)));
        for (const osg::AbstractConstraintPtr &constraint : constraints) {
            const std::vector<Reference> all = referencesOf(constraint);
            if (std::any_of(all.begin(), all.end(),
                            [&node](const Reference &reference) { return reference.node == node; }))
                new ksDeleteConstraintReferenceUndoCommand(constraint, {node}, batch.get());
        }
        document.add(batch.release());
    };
    section.addTallRow(field, new ksListEditor(ksListEditor::RemoveEntry | ksListEditor::TellChanges));
}

} // namespace

ksInspectorPage ksInspectorPages::constraint()
{
    const auto subjects = [](const std::vector<osg::NodePtr> &nodes) {
        return ksInspectorFields::subjects(nodes, [](const osg::NodePtr &node) {
            return osg::AbstractConstraintPtr::dcast(node->getCore());
        });
    };
    return {ConstraintPageTexts::tr("Constraint"), false, subjects, &buildConstraint};
}
