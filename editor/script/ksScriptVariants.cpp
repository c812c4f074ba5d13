// SPDX-License-Identifier: MIT
#include <editor/edits/ksTransformEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksLooseNumber.h>
#include <editor/script/ksScriptContainer.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptVariants.h>

#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>

#include <ksNodeUtils.h>

#include <set>
#include <vector>

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
        host.history().add(new ksAddTransformVariantUndoCommand(
            node(), ksTransformEdits::makeVariant(node(), name.toStdString()),
            static_cast<unsigned long>(index), nullptr, unheard));
    });
}

void ksScriptVariants::remove(int index)
{
    host.guard([&] {
        variant(index);
        host.history().add(new ksRemoveTransformSwitchVariantUndoCommand(
            node(), static_cast<unsigned long>(index), nullptr, unheard));
    });
}

void ksScriptVariants::rename(int index, const QString &name)
{
    host.guard([&] {
        host.history().add(
            new ksTransformVariantNameUndoCommand(variant(index), name.toStdString(), nullptr, unheard));
    });
}

void ksScriptVariants::options(int index, const QJSValue &flags)
{
    host.guard([&] {
        const auto bits = ksLooseNumber::to<osg::UInt64>(flags.toVariant());
        if (!bits)
            throw ksEditorError(QLatin1Char('\'') + flags.toString() +
                                QStringLiteral("' is no number of 64 bits"));
        host.history().add(new ksTransformVariantOptionsUndoCommand(variant(index), *bits, nullptr, unheard));
    });
}

void ksScriptVariants::move(const QJSValue &from, int to)
{
    host.guard([&] {
        variant(to);
        if (!from.isArray()) {
            const int index = ksLooseNumber::to<int>(from.toVariant()).value_or(-1);
            variant(index);
            host.history().add(new ksTransformVariantMoveCommand(node(), index, to, nullptr, unheard));
            return;
        }
        std::vector<int> indexes;
        const quint32 count = from.property(QStringLiteral("length")).toUInt();
        for (quint32 i = 0; i < count; ++i) {
            indexes.push_back(ksLooseNumber::to<int>(from.property(i).toVariant()).value_or(-1));
            variant(indexes.back());
        }
        if (std::set<int>(indexes.begin(), indexes.end()).size() != indexes.size() ||
            static_cast<int>(indexes.size()) + to > length())
            throw ksEditorError("the variants to move are different ones, and fit behind their new place");
        host.history().add(new ksTransformVariantMoveCommand(node(), indexes, to, nullptr, unheard));
    });
}
