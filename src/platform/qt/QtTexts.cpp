#include "platform/qt/QtTexts.h"

#include "platform/Log.h"
#include "platform/Texts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QRegularExpression>

namespace tarragon {

namespace {

QString catalogueOf(const QString& folder, const QString& language) {
    return folder + "/tarragon_" + language + ".qm";
}

} // namespace

QString languageOfTexts(const QString& folder, const QStringList& languages) {
    for (const QString& locale : languages) {
        // "de-AT" and "de_AT.UTF-8" are German like any other.
        const QString language = locale.left(locale.indexOf(QRegularExpression("[-_.@]|$")));
        if (language == "en" || QFileInfo::exists(catalogueOf(folder, language)))
            return language;
    }
    return {};
}

QtTexts::QtTexts(const std::string& wordingCatalogue, const QStringList& languages) {
    const QString wording = QString::fromStdString(wordingCatalogue);
    if (!_wording.load(wording) || !QCoreApplication::installTranslator(&_wording))
        log(LogCategory::Settings, [&] { return "no wording catalogue at " + wordingCatalogue; });
    const QString folder = QFileInfo(wording).path();
    const QString language = languageOfTexts(folder, languages);
    // Buttons of dialogs and the like. They are English where their catalogues are not installed.
    const QLocale locale = language.isEmpty() ? QLocale() : QLocale(language);
    if (_toolkit.load(locale, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&_toolkit);
    // The last one is asked first.
    if (!language.isEmpty() && _language.load(catalogueOf(folder, language)))
        QCoreApplication::installTranslator(&_language);
    setTextTranslator([](const char* context, const char* source) {
        return QCoreApplication::translate(context, source).toStdString();
    });
}

QtTexts::~QtTexts() {
    setTextTranslator(nullptr);
    for (QTranslator* translator : {&_language, &_toolkit, &_wording})
        QCoreApplication::removeTranslator(translator);
}

} // namespace tarragon
