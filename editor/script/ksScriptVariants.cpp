// SPDX-License-Identifier: MIT
#include <editor/edits/ksTransformEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksLooseNumber.h>
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>
#include <editor/script/ksScriptVariants.h>

#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>

#include <ksNodeUtils.h>

#include <set>
#include <vector>

using namespace ksScriptValues;

namespace {

const ksScriptRegistry::Part<osg::NodePtr, ksScriptVariants> part("variants");

/// Scripts are not told what has changed.
const auto unheard = [](const auto &...) {};

} // namespace

ksScriptVariants::ksScriptVariants(ksScriptHost &scriptHost, ksScriptContainer &scriptNode)
    : QObject(&scriptNode)
    , host(scriptHost)
    , owner(scriptNode)
{}

osg::NodePtr ksScriptVariants::node() const
{
    return osg::NodePtr::dcast(owner.container());
}

osg::TransformVariantPtr ksScriptVariants::variant(int index) const
{
    const osg::TransformVariantPtr found =
        ksNodeUtils::getTransformVariant(node(), static_cast<unsigned long>(index));
    if (found == osg::NullFC)
        throw ksEditorError(ksContainers::label(node()) + QStringLiteral(" has no variant %1").arg(index));
    return found;
}

int ksScriptVariants::length() const
{
    int count = 0;
    host.guard([&] { count = static_cast<int>(ksNodeUtils::getTransformVariantCount(node())); });
    return count;
}

QStringList ksScriptVariants::names() const
{
    QStringList all;
    for (int i = 0; i < length(); ++i)
        all += QString::fromStdString(ksNodeUtils::getTransformVariantName(node(), i));
    return all;
}

QJSValue ksScriptVariants::at(int index) const
{
    QJSValue found;
    host.guard([&] { found = host.object(variant(index)); });
    return found;
}

void ksScriptVariants::add(const QString &name)
{
    add(name, length());
}

void ksScriptVariants::add(const QString &name, int index)
{
    host.guard([&] {
        if (index != length())
            variant(index);
        host.add(new ksAddTransformVariantUndoCommand(
            node(), ksTransformEdits::makeVariant(node(), name.toStdString()),
            static_cast<unsigned long>(index), nullptr, unheard));
    });
}

void ksScriptVariants::remove(int index)
{
    host.guard([&] {
        variant(index);
        host.add(new ksRemoveTransformSwitchVariantUndoCommand(node(), static_cast<unsigned long>(index),
                                                               nullptr, unheard));
    });
}

void ksScriptVariants::rename(int index, const QString &name)
{
    host.guard([&] {
        const osg::TransformVariantPtr renamed = variant(index);
        if (renamed->getName() != name.toStdString())
            host.add(new ksTransformVariantNameUndoCommand(renamed, name.toStdString(), nullptr, unheard));
    });
}

void ksScriptVariants::options(int index, const QJSValue &flags)
{
    host.guard([&] {
        const osg::TransformVariantPtr changed = variant(index);
        const auto bits = numberFrom<osg::UInt64>(flags, QStringLiteral("flags"));
        if (changed->getApplyFlags() != bits)
            host.add(new ksTransformVariantOptionsUndoCommand(changed, bits, nullptr, unheard));
    });
}

int ksScriptVariants::indexFrom(const QJSValue &value) const
{
    const std::optional<int> index = ksLooseNumber::to<int>(plainFrom(value));
    if (!index || !value.isNumber())
        ksValueKinds::refuse(QStringLiteral("from"), QStringLiteral("an index or an array of indexes"),
                             shown(value));
    variant(*index);
    return *index;
}

void ksScriptVariants::move(const QJSValue &from, int to)
{
    host.guard([&] {
        variant(to);
        std::vector<int> indexes;
        if (!from.isArray())
            indexes.push_back(indexFrom(from));
        const quint32 count = from.isArray() ? lengthOf(from) : 0;
        for (quint32 i = 0; i < count; ++i)
            indexes.push_back(indexFrom(from.property(i)));
        if (std::set<int>(indexes.begin(), indexes.end()).size() != indexes.size() ||
            static_cast<int>(indexes.size()) + to > length())
            throw ksEditorError("the variants to move are different ones, and fit behind their new place");
        // Those that stand there already, in that order, stay.
        bool changes = false;
        for (std::size_t i = 0; i < indexes.size(); ++i)
            changes = changes || indexes[i] != to + static_cast<int>(i);
        if (!changes)
            return;
        host.add(from.isArray()
                     ? new ksTransformVariantMoveCommand(node(), indexes, to, nullptr, unheard)
                     : new ksTransformVariantMoveCommand(node(), indexes.front(), to, nullptr, unheard));
    });
}
