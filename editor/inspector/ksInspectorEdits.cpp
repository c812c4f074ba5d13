// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/ksEditorError.h>

#include <QScopedValueRollback>

ksInspectorEdits::ksInspectorEdits(ksDocument &editedDocument, QObject *parent)
    : QObject(parent)
    , edited(editedDocument)
{
    // Looking for the lights is a part of opening the scene; what comes later is found one by one.
    const auto begin = [this] {
        finish();
        index.emplace(edited.root());
        index->lights();
    };
    connect(&edited, &ksDocument::replaced, this, begin);
    // A step that somebody else takes ends what the user was about.
    connect(&edited, &ksDocument::stepped, this, [this] {
        if (!isRunning)
            finish();
    });
    begin();
}

ksInspectorEdits::~ksInspectorEdits() = default;

bool ksInspectorEdits::run(const QObject *editor, const std::function<void()> &work)
{
    const QScopedValueRollback<bool> guard(isRunning, true);
    if (owner != editor)
        finish();
    owner = editor;
    if (!gesture) {
        gesture.emplace(&edited.stack());
        ++gestures;
    }
    try {
        work();
    } catch (const ksEditorError &error) {
        Q_EMIT refused(QString::fromUtf8(error.what()));
        return false;
    }
    return true;
}

void ksInspectorEdits::cancel(const QObject *editor)
{
    if (owner != editor)
        return;
    const QScopedValueRollback<bool> guard(isRunning, true);
    if (gesture)
        gesture->takeBack();
    finish();
}

void ksInspectorEdits::release(const QObject *editor)
{
    if (owner != editor)
        return;
    finish();
    owner = nullptr;
}
