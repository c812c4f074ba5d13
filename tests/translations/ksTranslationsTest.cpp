// SPDX-License-Identifier: MIT
#include <tests/faults/ksFaultKind.h>

#include <ksundo/core/ksUndoStack.h>

#include <QAction>
#include <QApplication>
#include <QUndoView>

#include <algorithm>
#include <installTranslations.h> // the example of docs/translating.md
#include <iterator>
#include <memory>

namespace {

/// What Qt and the library say in a language.
struct Language
{
    const char *code;
    const char *historyTitle;
    const char *emptyRow;
    const char *undoMove;
    const char *redoMove;
};

const Language languages[] = {
    {"de", "Bearbeitungsverlauf", "<leer>", "Verschieben 'Box' rückgängig machen",
     "Verschieben 'Box' wiederherstellen"},
    {"fr", "Historique des modifications", "<vide>", "Annuler Déplacement 'Box'",
     "Rétablir Déplacement 'Box'"},
    {"ja", "操作履歴", "<空>", "移動 'Box' を元に戻す", "移動 'Box' をやり直す"},
};

/// What the text of a command class starts with, by the order of the languages.
struct Row
{
    const char *className;
    const char *source;
    const char *translations[std::size(languages)];
};

const Row rows[] = {
    {"ksTranslationUndoCommand", "Translate", {"Verschieben", "Déplacement", "移動"}},
    {"ksEulerRotationOrderUndoCommand", "Translate", {"Verschieben", "Déplacement", "移動"}},
    {"ksRotationUndoCommand", "Rotate", {"Drehen", "Rotation", "回転"}},
    {"ksScaleUndoCommand", "Scale", {"Skalieren", "Mise à l’échelle", "拡大縮小"}},
    {"ksShearUndoCommand", "Shear", {"Scheren", "Cisaillement", "せん断"}},
    {"ksScalePivotUndoCommand",
     "Change Scale Pivot",
     {"Änderung des Skalierungspunkts", "Modification du pivot d’échelle", "スケールピボットの変更"}},
    {"ksRotationPivotUndoCommand",
     "Change Rotation Pivot",
     {"Änderung des Drehpunkts", "Modification du pivot de rotation", "回転ピボットの変更"}},
    {"ksRotationPivotOrientationUndoCommand",
     "Change Rotation Pivot",
     {"Änderung des Drehpunkts", "Modification du pivot de rotation", "回転ピボットの変更"}},
    {"ksRotationPivotDirectionUndoCommand",
     "Change Rotation Pivot",
     {"Änderung des Drehpunkts", "Modification du pivot de rotation", "回転ピボットの変更"}},
    {"ksScalePivotTranslationUndoCommand",
     "Change Scale Pivot Translation",
     {"Änderung des Skalierungspunktversatzes", "Modification du décalage du pivot d’échelle",
      "スケールピボットの補正移動の変更"}},
    {"ksRotationPivotTranslationUndoCommand",
     "Change Rotation Pivot Translation",
     {"Änderung des Drehpunktversatzes", "Modification du décalage du pivot de rotation",
      "回転ピボットの補正移動の変更"}},
    {"ksTransformVariantNameUndoCommand",
     "Transform Variant Name",
     {"Name der Transformationsvariante", "Nom de la variante de transformation", "変形バリアントの名前"}},
    {"ksTransformVariantOptionsUndoCommand",
     "Transform Variant Options",
     {"Optionen der Transformationsvariante", "Options de la variante de transformation",
      "変形バリアントのオプション"}},
    {"ksImageFieldUndoCommand",
     "Set Texture",
     {"Zuweisung der Textur", "Affectation de la texture", "テクスチャの設定"}},
    {"ksSetEnvironmentUndoCommand",
     "Change Environment",
     {"Änderung der Umgebung", "Modification de l’environnement", "環境の変更"}},
};

/// An application that speaks a language, as Qt does, for as long as the test runs.
class ksTranslations : public testing::TestWithParam<Language>
{
protected:
    ksTranslations()
    {
        installTranslations(&owner, QLocale(QLatin1String(language().code)), QStringLiteral(KS_TRANSLATIONS));
    }

    static Language language() { return GetParam(); }

    static std::size_t languageIndex()
    {
        const auto *const place =
            std::find_if(std::begin(languages), std::end(languages),
                         [](const Language &each) { return each.code == std::string(language().code); });
        return static_cast<std::size_t>(place - languages);
    }

    /// The text that a command of \a kind on a node called Box has in the language.
    static std::string textFor(const ksFaultKind &kind)
    {
        std::string text = kind.text;
        if (const std::size_t name = text.find('*'); name != std::string::npos)
            text.replace(name, 1, "Box");
        if (!kind.isTranslated)
            return text;
        const auto *const row = std::find_if(std::begin(rows), std::end(rows), [&](const Row &each) {
            return each.className == kind.className;
        });
        if (row == std::end(rows) || text.rfind(row->source, 0) != 0)
            return "no translation of " + kind.className + " is required";
        return row->translations[languageIndex()] + text.substr(std::string(row->source).size());
    }

private:
    QObject owner;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksTranslations, testing::ValuesIn(languages),
                         [](const auto &info) { return info.param.code; });

TEST_P(ksTranslations, ReachTheTextsOfCommands)
{
    for (const ksFaultKind &kind : ksFaultKinds()) {
        ksFaultScene scene;
        const std::unique_ptr<QUndoCommand> command(kind.make(scene, nullptr));
        EXPECT_EQ(command->text().toStdString(), textFor(kind)) << kind;
    }
}

TEST_P(ksTranslations, ReachTheHistoryWindow)
{
    ksFaultScene scene;
    ksUndoStack stack;
    stack.add(new ksTranslationUndoCommand(scene.box, osg::Vec3f(1, 2, 3), false));
    stack.showHistory();
    const QUndoView *window = nullptr;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (const QWidget *widget : widgets)
        if (const auto *view = qobject_cast<const QUndoView *>(widget))
            window = view;
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle().toStdString(), language().historyTitle);
    const QAbstractItemModel &model = *window->model();
    EXPECT_EQ(model.index(0, 0).data().toString(), QString::fromUtf8(language().emptyRow));
    EXPECT_EQ(model.index(1, 0).data().toString(), stack.undoText());
}

TEST_P(ksTranslations, ReachTheMenus)
{
    ksFaultScene scene;
    ksUndoStack stack;
    QObject menu;
    const QAction *undo = stack.createUndoAction(&menu);
    const QAction *redo = stack.createRedoAction(&menu);
    const QAction *prefixed = stack.createUndoAction(&menu, QStringLiteral("<-"));
    stack.add(new ksTranslationUndoCommand(scene.box, osg::Vec3f(1, 2, 3), false));
    EXPECT_EQ(undo->text().toStdString(), language().undoMove);
    EXPECT_EQ(prefixed->text(), QStringLiteral("<- ") + stack.undoText());
    stack.undo();
    EXPECT_EQ(redo->text().toStdString(), language().redoMove);
}
