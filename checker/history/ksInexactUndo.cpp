// SPDX-License-Identifier: MIT
#include <checker/history/ksInexactUndo.h>
#include <checker/history/ksWorldRounding.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksFieldReader.h>

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>
#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>

#include <OpenSG/OSGSFBaseTypes.h>
#include <ksMessage.h>
#include <ksNodeUtils.h>

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <vector>

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

/// Adds to \a inexact that the rotation of \a transform is calculated anew.
void addRoundings(ksExpectations &inexact, const osg::Transform3DPtr &transform, const QString &reason)
{
    constexpr double Precision = 1e-5;
    constexpr osg::UInt32 Fields[] = {osg::Transform3D::RotationFieldId,
                                      osg::Transform3D::EulerRotationFieldId,
                                      osg::Transform3D::MatrixFieldId};
    for (const osg::UInt32 field : Fields)
        inexact.roundings.push_back({transform.getFieldContainerId(), field, Precision, 0, reason});
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
            if (ksFieldReader::text(*transform->getSFEulerRotation()) != turn.angles) {
                const QString reason =
                    QStringLiteral("undoing a turn by a quaternion calculates the angles anew");
                inexact.differences.push_back({transform.getFieldContainerId(),
                                               osg::Transform3D::EulerRotationFieldId, turn.angles,
                                               turn.anglesAnew, reason});
                addRoundings(inexact, transform, reason);
            }
        return inexact;
    };
}

/// The transforms of the scene, those of variants, too, with their rotations.
std::map<osg::Transform3DPtr, osg::Quaternion> readRotations(const osg::NodePtr &root)
{
    std::map<osg::Transform3DPtr, osg::Quaternion> rotations;
    ksContainers::visitNodes(root, [&](const osg::NodePtr &node) {
        const auto variants = static_cast<int>(ksNodeUtils::getTransformVariantCount(node));
        for (int index = -1; index < variants; ++index)
            if (const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, index))
                rotations.emplace(transform, transform->getRotation());
    });
    return rotations;
}

std::function<ksExpectations()> watchAngles(const osg::NodePtr &root)
{
    return [before = readRotations(root)] {
        const QString reason = QStringLiteral("undoing an edit of angles calculates the rotation anew");
        ksExpectations inexact;
        for (const auto &[transform, rotation] : before)
            if (transform->getRotation() != rotation)
                addRoundings(inexact, transform, reason);
        return inexact;
    };
}

/// The flag that \a command switches is not switched back, but by the next redo.
std::function<ksExpectations()> watchSwitch(const ksInvokeBoolFieldUndoCommand &command)
{
    ksMessage message;
    command.makeMessage(message);
    const auto *container = message.get<unsigned int>("container");
    const auto *field = message.get<unsigned int>("fieldId");
    ksExpectations inexact;
    if (container != nullptr && field != nullptr) {
        const std::string off = ksFieldReader::text(osg::SFBool(false));
        const std::string on = ksFieldReader::text(osg::SFBool(true));
        const QString reason =
            QStringLiteral("undoing a flag that calls a method does nothing, redoing it swaps the flag");
        inexact.differences = {{*container, *field, off, on, reason}, {*container, *field, on, off, reason}};
    }
    return [inexact] { return inexact; };
}

/// Tells whether \a command edits \a property of \a target: it would merge with such an edit then.
bool edits(const ksUndoCommand &command, const ksTransformProperty &property, const ksTransformTarget &target)
{
    const std::unique_ptr<ksUndoCommand> edit(
        ksMergingAs(ksMerging::WithPrevious, property.make(target, osg::Vec3f(), {}, nullptr)));
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

/// What undoing \a command without its children does not bring back, see ksInexactUndo::watch().
std::function<ksExpectations()> watchOne(const QUndoCommand &command, const osg::NodePtr &root)
{
    if (dynamic_cast<const ksDeleteConstraintReferenceUndoCommand *>(&command) != nullptr)
        return watchRemoval(root);
    if (dynamic_cast<const ksRotationAsQuaternionUndoCommand *>(&command) != nullptr)
        return watchTurn(root);
    if (dynamic_cast<const ksRotationUndoCommand *>(&command) != nullptr ||
        dynamic_cast<const ksTransformationUndoCommand *>(&command) != nullptr ||
        dynamic_cast<const ksEulerRotationOrderUndoCommand *>(&command) != nullptr)
        return watchAngles(root);
    if (const auto *flag = dynamic_cast<const ksInvokeBoolFieldUndoCommand *>(&command))
        return watchSwitch(*flag);
    const auto *edit = dynamic_cast<const ksUndoCommand *>(&command);
    return edit != nullptr ? watchWorldEdit(*edit) : [] { return ksExpectations(); };
}

} // namespace

std::function<ksExpectations()> ksInexactUndo::watch(const QUndoCommand &command, const osg::NodePtr &root)
{
    std::vector<std::function<ksExpectations()>> watched = {watchOne(command, root)};
    for (int i = 0; i < command.childCount(); ++i)
        watched.push_back(watch(*command.child(i), root));
    return [watched] {
        ksExpectations all;
        for (const std::function<ksExpectations()> &each : watched) {
            const ksExpectations found = each();
            all.differences.insert(all.differences.end(), found.differences.begin(), found.differences.end());
            all.roundings.insert(all.roundings.end(), found.roundings.begin(), found.roundings.end());
        }
        return all;
    };
}
