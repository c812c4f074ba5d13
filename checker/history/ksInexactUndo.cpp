// SPDX-License-Identifier: MIT
#include <checker/history/ksInexactUndo.h>
#include <checker/history/ksWorldRounding.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksFieldReader.h>

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>

#include <ksMessage.h>
#include <ksNodeUtils.h>

#include <algorithm>
#include <map>
#include <memory>
#include <optional>

namespace {

/// What \a read answers for each core of the class of \a PtrT in the scene.
template <class PtrT, class Read>
auto readCores(const osg::NodePtr &root, const Read &read)
{
    std::map<PtrT, decltype(read(PtrT()))> values;
    ksContainers::visitNodes(root, [&](const osg::NodePtr &node) {
        if (const PtrT core = PtrT::dcast(node->getCore()))
            values.emplace(core, read(core));
    });
    return values;
}

/// Of \a before, a constraint's sources, those that are left now, and behind them the others in the order of
/// their handles, as they come back.
osg::MFConstraintObjectPtr restoredSources(const osg::MFConstraintObjectPtr &before,
                                           const osg::MFConstraintObjectPtr &left)
{
    std::vector<osg::ConstraintObjectPtr> removed;
    std::copy_if(before.begin(), before.end(), std::back_inserter(removed),
                 [&left](const osg::ConstraintObjectPtr &object) { return left.find(object) == left.end(); });
    std::sort(removed.begin(), removed.end());
    osg::MFConstraintObjectPtr restored = left;
    for (const osg::ConstraintObjectPtr &object : removed)
        restored.push_back(object);
    return restored;
}

std::function<ksExpectations()> watchRemoval(const osg::NodePtr &root)
{
    const auto before = readCores<osg::AbstractConstraintPtr>(
        root, [](const auto &constraint) { return constraint->getSources(); });
    return [before] {
        ksExpectations inexact;
        for (const auto &[constraint, sources] : before)
            if (constraint->getSources() != sources)
                inexact.differences.push_back(
                    {constraint.getFieldContainerId(), osg::AbstractConstraint::SourcesFieldId,
                     ksFieldReader::text(sources),
                     ksFieldReader::text(restoredSources(sources, constraint->getSources())),
                     QStringLiteral("a constraint adds sources at the end")});
        return inexact;
    };
}

std::function<ksExpectations()> watchTurn(const osg::NodePtr &root)
{
    struct Turn
    {
        std::string angles;
        std::string anglesAnew;
    };
    const auto before = readCores<osg::Transform3DPtr>(root, [](const auto &transform) {
        const osg::SFVec3f anew(transform->convertQuatToEuler(transform->getRotation(), true));
        return Turn{ksFieldReader::text(*transform->getSFEulerRotation()), ksFieldReader::text(anew)};
    });
    return [before] {
        ksExpectations inexact;
        for (const auto &[transform, turn] : before)
            if (ksFieldReader::text(*transform->getSFEulerRotation()) != turn.angles)
                inexact.differences.push_back(
                    {transform.getFieldContainerId(), osg::Transform3D::EulerRotationFieldId, turn.angles,
                     turn.anglesAnew,
                     QStringLiteral("undoing a turn by a quaternion calculates the angles anew")});
        return inexact;
    };
}

/// Tells whether \a command edits \a property of \a target: it would merge with such an edit then.
bool edits(const ksUndoCommand &command, const ksTransformProperty &property, const ksTransformTarget &target)
{
    const std::unique_ptr<ksUndoCommand> edit(
        ksMergingAs(ksMerging::WithPrevious, property.make(target, osg::Vec3f(), {})));
    return command.canMergeWith(edit.get());
}

std::function<ksExpectations()> watchWorldEdit(const ksUndoCommand &command)
{
    ksMessage message;
    command.makeMessage(message);
    const auto *id = message.get<unsigned int>("node");
    const auto node = id == nullptr ? osg::NodePtr() : ksFindContainer<osg::NodePtr>(*id);
    const auto variants = static_cast<int>(ksNodeUtils::getTransformVariantCount(node));
    for (const ksTransformProperty &property : ksTransformEdits::properties())
        for (int index = -1; node != osg::NullFC && property.hasSpace && index < variants; ++index) {
            const ksTransformTarget target{node, index, true};
            if (edits(command, property, target))
                return [&property, target, before = property.read(target)] {
                    return ksExpectations{{}, ksWorldRounding(property, target, before).expected()};
                };
        }
    return [] { return ksExpectations(); };
}

} // namespace

std::function<ksExpectations()> ksInexactUndo::watch(const QUndoCommand &command, const osg::NodePtr &root)
{
    if (dynamic_cast<const ksDeleteConstraintReferenceUndoCommand *>(&command) != nullptr)
        return watchRemoval(root);
    if (dynamic_cast<const ksRotationAsQuaternionUndoCommand *>(&command) != nullptr)
        return watchTurn(root);
    const auto *edit = dynamic_cast<const ksUndoCommand *>(&command);
    return edit != nullptr ? watchWorldEdit(*edit) : [] { return ksExpectations(); };
}
