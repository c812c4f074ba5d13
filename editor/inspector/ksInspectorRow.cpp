// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorRow.h>
#include <editor/inspector/ksValueEditor.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksMultiCommand.h>

#include <OpenSG/OSGThreadContext.h>

#include <QStringList>

#include <algorithm>
#include <memory>

bool ksConcern(const ksSceneChanges &changes, const ksWatches &watches)
{
    return std::any_of(watches.begin(), watches.end(),
                       [&changes](const auto &watch) { return changes.concern(watch.first, watch.second); });
}

QVariant ksWholeOf(const QVariant &known, const QVariant &value, int part)
{
    if (part < 0)
        return value;
    QVariantList parts = known.toList();
    parts[part] = value;
    return parts;
}

ksInspectorRow::ksInspectorRow(ksInspectorEdits &ownEdits, ksInspectorField shownField,
                               ksValueEditor *valueEditor, QObject *parent)
    : QObject(parent)
    , edits(ownEdits)
    , field(std::move(shownField))
    , editor(valueEditor)
{
    connect(editor, &ksValueEditor::edited, this, &ksInspectorRow::edit);
    connect(editor, &ksValueEditor::finished, &edits, &ksInspectorEdits::finish);
    connect(editor, &ksValueEditor::cancelled, &edits, [this] { edits.cancel(editor); });
    refresh();
}

QString ksInspectorRow::textOf(const QString &field, const std::vector<osg::FieldContainerPtr> &targets)
{
    constexpr std::size_t LongestList = 3;
    QStringList names;
    for (std::size_t i = 0; i < std::min(targets.size(), LongestList); ++i)
        names += QLatin1Char('\'') + ksContainers::nameOf(targets[i]) + QLatin1Char('\'');
    if (targets.size() > LongestList)
        names += QStringLiteral("...");
    return tr("Set %1 of %2").arg(field, names.join(QStringLiteral(", ")));
}

void ksInspectorRow::refresh()
{
    edits.noteRead();
    QVariant value;
    bool isMixed = false;
    {
        const osg::AspectScope scope(1);
        watched.clear();
        // How many of several are looked at.
        constexpr std::size_t Most = 32;
        const std::size_t count = field.make ? std::min(field.targets.size(), Most) : 1;
        for (auto id = field.targets.rbegin(); id != field.targets.rbegin() + std::ptrdiff_t(count); ++id) {
            const auto target = ksFindContainer<osg::FieldContainerPtr>(*id);
            if (target == osg::NullFC)
                continue;
            const QVariant each = field.read(target);
            if (*id == field.targets.back())
                value = each;
            isMixed = isMixed || (each.isValid() && each != value);
            const ksWatches watches = field.watches(target);
            watched.insert(watched.end(), watches.begin(), watches.end());
        }
    }
    editor->setEnabled(value.isValid());
    if (!value.isValid())
        return;
    editor->showValue(value);
    editor->showMixed(isMixed);
}

void ksInspectorRow::retire()
{
    editor->disconnect(this);
    editor->disconnect(&edits);
    edits.release(editor);
    deleteLater();
}

void ksInspectorRow::edit(const QVariant &value, int part)
{
    if (!edits.run(editor, [&] { change(value, part); }))
        refresh();
}

void ksInspectorRow::change(const QVariant &value, int part)
{
    if (field.perform) {
        field.perform(value, part);
        return;
    }
    std::vector<osg::FieldContainerPtr> targets;
    std::vector<QVariant> wanted;
    bool changes = false;
    for (const osg::UInt32 id : field.targets) {
        const auto target = ksFindContainer<osg::FieldContainerPtr>(id);
        const QVariant known = target == osg::NullFC ? QVariant() : field.read(target);
        if (!known.isValid())
            continue;
        const QVariant whole = ksWholeOf(known, value, part);
        changes = changes || known != whole;
        targets.push_back(target);
        wanted.push_back(whole);
    }
    if (!changes)
        return;
    if (targets.size() == 1) {
        edits.document().add(field.make(targets.front(), wanted.front(), nullptr));
        return;
    }
    auto batch = std::make_unique<ksMultiCommand>(textOf(field.name, targets));
    for (std::size_t i = 0; i < targets.size(); ++i)
        field.make(targets[i], wanted[i], batch.get());
    edits.document().add(batch.release());
}
