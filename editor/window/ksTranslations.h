// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QLocale;

/// The languages of the window.
namespace ksTranslations {

/// Where the texts are: with the installed program, or in the folder that it was built in.
QStringList folders();

/// Has the texts of the window and of the library, which are in one of \a folders, and those of Qt shown in
/// the language of \a locale from now on. What is not there stays English. To be called before there are
/// windows and commands.
void install(const QLocale &locale, const QStringList &folders);

} // namespace ksTranslations
