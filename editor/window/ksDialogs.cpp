// SPDX-License-Identifier: MIT
#include <editor/window/ksDialogs.h>

#include <QCoreApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QProgressDialog>

#include <limits>

namespace {

struct DialogTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksDialogs)
};

} // namespace

ksDialogs::Answer ksDialogs::askToSave(QWidget *parent, const QString &title)
{
    QMessageBox box(QMessageBox::Warning, DialogTexts::tr("Unsaved Edits"),
                    DialogTexts::tr("The edits of '%1' are not saved.").arg(title),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, parent);
    box.setInformativeText(DialogTexts::tr("They are lost if you discard them."));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return Answer::Save;
    case QMessageBox::Discard:
        return Answer::Discard;
    default:
        return Answer::Cancel;
    }
}

QString ksDialogs::askForModel(QWidget *parent, const QString &folder)
{
    return QFileDialog::getOpenFileName(
        parent, DialogTexts::tr("Open"), folder,
        DialogTexts::tr(
            "Models (*.gltf *.glb *.dae *.fbx *.obj *.stl *.ply *.3ds *.3mf *.x3d *.blend *.off *.lwo)") +
            QStringLiteral(";;") + DialogTexts::tr("All files (*)"));
}

QString ksDialogs::askForFile(QWidget *parent, const QString &proposed)
{
    QFileDialog dialog(parent, DialogTexts::tr("Save As"), proposed,
                       DialogTexts::tr("glTF (*.gltf);;Binary glTF (*.glb)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("gltf"));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString &filter) {
        dialog.setDefaultSuffix(filter.contains(QLatin1String("glb")) ? QStringLiteral("glb")
                                                                      : QStringLiteral("gltf"));
    });
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString ksDialogs::askForScript(QWidget *parent, const QString &folder)
{
    return QFileDialog::getOpenFileName(parent, DialogTexts::tr("Run Script"), folder,
                                        DialogTexts::tr("Scripts (*.js)") + QStringLiteral(";;") +
                                            DialogTexts::tr("All files (*)"));
}

int ksDialogs::askForLimit(QWidget *parent, int current)
{
    bool isGiven = false;
    const int limit = QInputDialog::getInt(
        parent, DialogTexts::tr("History Limit"),
        DialogTexts::tr(
            "How many steps the history keeps, 0 for all of them.\nA history that has steps keeps its limit: "
            "the new one holds from the next\ndocument on that is opened."),
        current, 0, std::numeric_limits<int>::max(), 1, &isGiven);
    return isGiven ? limit : -1;
}

void ksDialogs::complain(QWidget *parent, const QString &text)
{
    QMessageBox::warning(parent, QCoreApplication::applicationName(), text);
}

void ksDialogs::inform(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox::information(parent, title, text);
}

void ksDialogs::showProgress(QWidget *parent, const QString &text,
                             const std::function<void(const std::function<bool(double)> &progress)> &work)
{
    constexpr int Steps = 1000;
    QProgressDialog dialog(text, DialogTexts::tr("Cancel"), 0, Steps, parent);
    constexpr int PatienceMilliseconds = 500;
    dialog.setMinimumDuration(PatienceMilliseconds);
    dialog.setWindowModality(Qt::ApplicationModal);
    work([&dialog](double done) {
        dialog.setValue(static_cast<int>(done * (Steps - 1)));
        // Until the dialog lies over it, what it is for takes no mouse and no keys.
        QCoreApplication::processEvents(dialog.isVisible() ? QEventLoop::AllEvents
                                                           : QEventLoop::ExcludeUserInputEvents);
        return !dialog.wasCanceled();
    });
}
