#include "widgets/Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

namespace widgets {

namespace {

const QString kBuiltIn = QStringLiteral(":/i18n");

QString LanguageOf(const QString& uiLanguage) { return uiLanguage.section(u'-', 0, 0).section(u'_', 0, 0).toLower(); }

}  // namespace

QStringList TranslatedLanguages() {
  QStringList languages;
  for (const QString& file : QDir(kBuiltIn).entryList({QStringLiteral("vistrel_*.qm")})) {
    languages << QFileInfo(file).completeBaseName().section(u'_', 1);  // "vistrel_de.qm": "de"
  }
  return languages;
}

QString InstallTranslations(const QLocale& locale) {
  const QStringList translated = TranslatedLanguages();
  for (const QString& uiLanguage : locale.uiLanguages()) {
    const QString language = LanguageOf(uiLanguage);
    if (language == QLatin1String("en")) return {};  // the source texts are English
    if (!translated.contains(language)) continue;
    auto* own = new QTranslator(QCoreApplication::instance());
    if (!own->load(QStringLiteral("vistrel_") + language, kBuiltIn)) return {};
    QCoreApplication::installTranslator(own);
    auto* qt = new QTranslator(QCoreApplication::instance());
    if (qt->load(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
      QCoreApplication::installTranslator(qt);
    } else {
      delete qt;
    }
    return language;
  }
  return {};
}

}  // namespace widgets
