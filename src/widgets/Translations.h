#pragma once
// The program in the user's language: the first of the desktop's UI languages that
// Vistrel has a translation for (LANGUAGE, LC_ALL, LC_MESSAGES, LANG), with Qt's own
// texts (the standard buttons) in the same language. English needs none.

#include <QLocale>
#include <QStringList>

namespace widgets {

// Installs the translators for the locale's UI languages into the application; returns
// the language chosen ("de"), or an empty string when the texts stay English.
QString InstallTranslations(const QLocale& locale = QLocale::system());

// The languages Vistrel has been translated into, from the built-in translations.
QStringList TranslatedLanguages();

}  // namespace widgets
