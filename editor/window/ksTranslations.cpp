// SPDX-License-Identifier: MIT
#include <editor/window/ksTranslations.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace {

/// Says whether they are there.
bool installFrom(const QString &folder, const QLocale &locale, const QString &name)
{
    auto texts = std::make_unique<QTranslator>(QCoreApplication::instance());
    return texts->load(locale, name, QStringLiteral("_"), folder) &&
           QCoreApplication::installTranslator(texts.release());
}

} // namespace

QStringList ksTranslations::folders()
{
    const QString program = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    return {program + QStringLiteral(KS_TRANSLATIONS_FROM_BIN), program + QStringLiteral("../translations")};
}

void ksTranslations::install(const QLocale &locale, const QStringList &folders)
{
    // There is none for English, so that the user's second language would be taken.
    const QStringList wanted = locale.uiLanguages();
    if (!wanted.isEmpty() && QLocale(wanted.first()).language() == QLocale::English)
        return;
    installFrom(QLibraryInfo::location(QLibraryInfo::TranslationsPath), locale, QStringLiteral("qtbase"));
    for (const QString &folder : folders)
        if (installFrom(folder, locale, QStringLiteral("ks-editor"))) {
            installFrom(folder, locale, QStringLiteral("ksundo"));
            return;
        }
}
