// SPDX-License-Identifier: MIT
#include <editor/history/ksFieldChange.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksFieldReader.h>
#include <editor/scene/ksFieldReferences.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGThread.h>
#include <OpenSG/OSGThreadContext.h>

#include <QJsonObject>
#include <QStringList>

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace {

/// The aspect that holds what was before.
constexpr osg::UInt32 EarlierAspect = 1;

/// What a summary has at most: changes, and characters of a value.
constexpr int SummarisedChanges = 3;
constexpr int SummarisedValue = 40;

/// Longer lists are not gone through.
constexpr osg::UInt32 LongestList = 1000;

QString shortLabel(const QString &type, osg::UInt32 id, const QString &name)
{
    return type + QLatin1Char(' ') +
           (name.isEmpty() ? QString::number(id) : QLatin1Char('\'') + name + QLatin1Char('\''));
}

QString shortLabel(const osg::FieldContainerPtr &container)
{
    return shortLabel(QString::fromLatin1(container->getTypeName()), container.getFieldContainerId(),
                      ksContainers::nameOf(container));
}

std::vector<osg::FieldContainerPtr> containersIn(const osg::Field &field)
{
    std::vector<osg::FieldContainerPtr> containers;
    ksFieldReferences::visit(
        field, [&containers](const osg::FieldContainerPtr &container) { containers.push_back(container); });
    return containers;
}

/// What \a to has that \a from has not, each with \a sign before it.
void noteMissing(const std::vector<osg::FieldContainerPtr> &from,
                 const std::vector<osg::FieldContainerPtr> &to, const QString &sign, QStringList &notes)
{
    std::unordered_set<osg::UInt32> known;
    for (const osg::FieldContainerPtr &container : from)
        known.insert(container.getFieldContainerId());
    for (const osg::FieldContainerPtr &container : to)
        if (known.count(container.getFieldContainerId()) == 0)
            notes += sign + shortLabel(container);
}

QString entriesText(const osg::Field &before, const osg::Field &after)
{
    if (!ksFieldReferences::arePossibleIn(after))
        return {};
    if (before.getSize() > LongestList || after.getSize() > LongestList)
        return QStringLiteral("%1 -> %2 entries").arg(before.getSize()).arg(after.getSize());
    const std::vector<osg::FieldContainerPtr> earlier = containersIn(before);
    const std::vector<osg::FieldContainerPtr> later = containersIn(after);
    QStringList notes;
    noteMissing(later, earlier, QStringLiteral("- "), notes);
    noteMissing(earlier, later, QStringLiteral("+ "), notes);
    return notes.isEmpty() ? QStringLiteral("in another order") : notes.join(QStringLiteral(", "));
}

/// What \a field holds, unless that is a list which would take long to read.
QString valueText(const osg::Field &field)
{
    if (ksFieldReferences::arePossibleIn(field) && field.getSize() > LongestList)
        return QStringLiteral("[... (%1 values)]").arg(field.getSize());
    return QString::fromStdString(ksFieldReader::text(field));
}

/// Whether a field of that name tells who refers to the container: the other end of a field that has changed
/// as well.
bool isBackReference(const std::string &field)
{
    return field == "parent" || field == "parents";
}

/// Appends what has changed in the fields \a mask of \a container.
void appendChanges(const osg::FieldContainerPtr &container, osg::BitVector mask,
                   const std::function<bool(osg::UInt32, osg::UInt32)> &keepsContent,
                   std::vector<ksFieldChange> &changes)
{
    const osg::FieldContainerType &type = container->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const osg::FieldDescription *description = type.getFieldDescription(id);
        const osg::Field *after = container->getField(id);
        if ((mask & description->getFieldMask()) == 0 || after == nullptr ||
            isBackReference(description->getCName()))
            continue;
        const osg::Field *before = nullptr;
        {
            const osg::AspectScope scope(EarlierAspect);
            before = container->getField(id);
        }
        std::optional<std::string> content;
        if (keepsContent && keepsContent(container.getFieldContainerId(), id))
            content = ksFieldReader::content(*before);
        // The sizes tell of most long lists, which take long to read.
        if (after->getSize() != before->getSize() ||
            !ksFieldReader::holds(*after, content ? *content : ksFieldReader::content(*before)))
            changes.push_back({container.getFieldContainerId(), QString::fromLatin1(type.getCName()),
                               ksContainers::nameOf(container), id,
                               QString::fromLatin1(description->getCName()), valueText(*before),
                               valueText(*after), entriesText(*before, *after), std::move(content)});
    }
}

} // namespace

bool ksFieldChange::isTakenBack() const
{
    const osg::FieldContainerPtr owner = osg::FieldContainerFactory::the()->getContainer(container);
    return owner == osg::NullFC ||
           (contentBefore && ksFieldReader::holds(*owner->getField(fieldId), *contentBefore));
}

QString ksFieldChange::inFull() const
{
    const QString name = containerName.isEmpty() ? QString() : QStringLiteral(" '%1'").arg(containerName);
    return type + QLatin1Char(' ') + QString::number(container) + name + QLatin1Char(' ') + field +
           QStringLiteral(": ") + before + QStringLiteral(" -> ") + after;
}

QJsonObject ksFieldChange::toJson() const
{
    return {{QStringLiteral("id"), static_cast<double>(container)},
            {QStringLiteral("type"), type},
            {QStringLiteral("name"), containerName},
            {QStringLiteral("field"), field},
            {QStringLiteral("before"), before},
            {QStringLiteral("after"), after}};
}

QString ksFieldChange::summary(const std::vector<ksFieldChange> &changes)
{
    const auto shown = std::min<std::size_t>(changes.size(), SummarisedChanges);
    QString text;
    for (std::size_t i = 0; i < shown; ++i) {
        const ksFieldChange &change = changes[i];
        if (i > 0 && changes[i - 1].container == change.container)
            text += QStringLiteral(", ");
        else
            text += (i > 0 ? QStringLiteral("; ") : QString()) +
                    shortLabel(change.type, change.container, change.containerName) + QLatin1Char(' ');
        text += change.field;
        const bool isShort =
            change.before.size() <= SummarisedValue && change.after.size() <= SummarisedValue;
        if (!change.entries.isEmpty())
            text += QLatin1Char(' ') + change.entries.left(2 * SummarisedValue) +
                    (change.entries.size() > 2 * SummarisedValue ? QStringLiteral("...") : QString());
        else if (isShort)
            text += QLatin1Char(' ') + change.before + QStringLiteral(" -> ") + change.after;
    }
    if (shown < changes.size())
        text += QStringLiteral("; %1 more").arg(changes.size() - shown);
    return text;
}

std::vector<ksFieldChange>
ksFieldChange::take(const std::function<bool(osg::UInt32, osg::UInt32)> &keepsContent)
{
    osg::ChangeList &list = *osg::Thread::getCurrentChangeList();
    const std::unordered_set<osg::UInt32> created(list.beginCreated(), list.endCreated());
    std::unordered_map<osg::UInt32, osg::BitVector> masks;
    std::vector<osg::UInt32> order;
    for (auto entry = list.beginChanged(); entry != list.endChanged(); ++entry) {
        const auto [known, isFirst] = masks.emplace(entry->first, 0);
        known->second |= entry->second;
        if (isFirst)
            order.push_back(entry->first);
    }

    std::vector<ksFieldChange> changes;
    for (const osg::UInt32 id : order) {
        const osg::FieldContainerPtr container = osg::FieldContainerFactory::the()->getContainer(id);
        if (container != osg::NullFC && created.count(id) == 0)
            appendChanges(container, masks[id], keepsContent, changes);
    }
    list.applyTo(EarlierAspect);
    return changes;
}
