#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>
#include <QTranslator>

#include <string>

namespace tarragon {

// Shows texts in the user's language, for as long as it lives: those of the program, and the toolkit's own with the
// direction that goes with them. Texts that a language lacks are shown in the words of a wording catalogue, which is
// English, and those that it lacks as their sources read. Made after the toolkit's application object, which is told,
// and gone before it. Main thread only.
class QtTexts {
public:
    // The path of the compiled wording catalogue, "…/tarragon_linux.qm"; those of languages lie beside it,
    // "…/tarragon_de.qm". Languages as QLocale::uiLanguages gives them, most wanted first.
    explicit QtTexts(const std::string& wordingCatalogue, const QStringList& languages = QLocale().uiLanguages());
    ~QtTexts();
    QtTexts(const QtTexts&) = delete;
    QtTexts& operator=(const QtTexts&) = delete;

private:
    QTranslator _wording;
    QTranslator _toolkit;
    QTranslator _language;
};

// The first of the languages that there is a catalogue for, as "de"; "en" when English comes first; empty when there is
// neither.
[[nodiscard]] QString languageOfTexts(const QString& folder, const QStringList& languages);

} // namespace tarragon
