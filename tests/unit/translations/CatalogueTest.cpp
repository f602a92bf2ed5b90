#include "platform/Texts.h"
#include "platform/qt/QtTexts.h"

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <filesystem>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

namespace fs = std::filesystem;

struct Message {
    std::string context;
    std::string source;
    std::string words;
    bool isFinished = true;
};

std::vector<Message> messagesOf(const QString& catalogue) {
    std::vector<Message> messages;
    QFile file(catalogue);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << catalogue.toStdString();
    QXmlStreamReader reader(&file);
    std::string context;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QStringLiteral("name"))
            context = reader.readElementText().toStdString();
        if (reader.name() == QStringLiteral("source"))
            messages.push_back({context, reader.readElementText().toStdString(), {}, true});
        if (reader.name() == QStringLiteral("translation")) {
            messages.back().isFinished = !reader.attributes().hasAttribute("type");
            messages.back().words = reader.readElementText().toStdString();
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return messages;
}

using Sources = std::set<std::tuple<std::string, std::string>>;

Sources sourcesOf(const std::vector<Message>& messages) {
    Sources sources;
    for (const Message& message : messages)
        sources.emplace(message.context, message.source);
    return sources;
}

// Names that mean nothing to somebody on this desktop.
bool namesAnotherPlatform(const std::string& text) {
    static const QRegularExpression names(
        "Apple|System Preferences|[Mm]ac ?OS|OS X|Finder|Cocoa|\\bCommand\\b|\\bOption\\b|"
        "assistive devices|Keyboard & Mouse");
    return names.match(QString::fromStdString(text)).hasMatch();
}

constexpr const char* Wording = TARRAGON_TRANSLATIONS "/tarragon_linux.ts";

// The wording catalogue, or that of a language.
class EveryCatalogue : public testing::TestWithParam<const char*> {
protected:
    static std::vector<Message> messages() {
        return messagesOf(QString(TARRAGON_TRANSLATIONS "/tarragon_%1.ts").arg(GetParam()));
    }
};

INSTANTIATE_TEST_SUITE_P(OfTheProgram, EveryCatalogue, testing::Values("linux", "de", "fr"),
    [](const auto& catalogue) { return std::string(catalogue.param); });

TEST_P(EveryCatalogue, HoldsEveryTextOfTheProgramAndNoOther) {
    const QTemporaryDir folder;
    const QString collected = folder.filePath("collected.ts");
    ASSERT_EQ(QProcess::execute(TARRAGON_COLLECT_TEXTS, {collected}), 0);
    const Sources inTheProgram = sourcesOf(messagesOf(collected));
    EXPECT_GT(inTheProgram.size(), 40U);
    EXPECT_EQ(sourcesOf(messages()), inTheProgram) << "run scripts/collect-texts";
}

TEST_P(EveryCatalogue, HasWordsForEveryText) {
    for (const Message& message : messages()) {
        EXPECT_TRUE(message.isFinished) << message.source;
        EXPECT_NE(message.words, "") << message.source;
    }
}

// Also those of the toolkit, such as "%1".
TEST_P(EveryCatalogue, KeepsThePlacesOfArguments) {
    const auto places = [](const std::string& text) {
        static const QRegularExpression place("%[@0-9n]");
        QStringList found;
        for (auto match = place.globalMatch(QString::fromStdString(text)); match.hasNext();)
            found.append(match.next().captured());
        found.sort();
        return found.join(' ').toStdString();
    };
    for (const Message& message : messages())
        EXPECT_EQ(places(message.words), places(message.source)) << message.source;
}

TEST_P(EveryCatalogue, NamesNoOtherPlatform) {
    for (const Message& message : messages())
        EXPECT_FALSE(namesAnotherPlatform(message.words)) << message.words;
}

TEST(Catalogue, RewordsWhatNamesAnotherPlatform) {
    int replaced = 0;
    for (const Message& message : messagesOf(Wording))
        replaced += namesAnotherPlatform(message.source) ? 1 : 0;
    EXPECT_GE(replaced, 5);
}

// A text that names another platform and is shown without the catalogue would be shown as it is.
TEST(Catalogue, IsAskedForEveryTextThatNamesAnotherPlatform) {
    static const QRegularExpression literal(R"re("(?:\\.|[^"\\\n])*")re");
    std::string known;
    for (const Message& message : messagesOf(Wording))
        known += message.source + "\n";
    for (const auto& entry : fs::recursive_directory_iterator(TARRAGON_SOURCES)) {
        if (entry.path().extension() != ".cpp")
            continue;
        QFile file(QString::fromStdString(entry.path().string()));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto found = literal.globalMatch(QString::fromUtf8(file.readAll()));
        while (found.hasNext()) {
            QString text = found.next().captured().chopped(1).mid(1);
            // Single words are keys and titles that are compared.
            if (!text.contains(' ') || !namesAnotherPlatform(text.toStdString()))
                continue;
            text.replace("\\\"", "\"");
            EXPECT_NE(known.find(text.toStdString()), std::string::npos) << entry.path() << ": " << text.toStdString();
        }
    }
}

TEST(Catalogue, LeavesTheMenusAsTheyRead) {
    for (const Message& message : messagesOf(Wording)) {
        if (message.context == "TarragonMenu" || message.context == "IgnoreMenu") {
            EXPECT_EQ(message.words, message.source);
        }
    }
}

TEST(Catalogue, GivesTheProgramItsWords) {
    const char* source = "Tarragon requires that Apple's Accessibility API be enabled.";
    EXPECT_EQ(translated("AccessibilityAlert", source), source);
    {
        const QtTexts texts(":/translations/tarragon_linux.qm", {"en-US"});
        EXPECT_EQ(
            translated("AccessibilityAlert", source), "Tarragon needs the accessibility services of your desktop.");
        EXPECT_EQ(translated("AccessibilityAlert", "Open System Preferences"), "Switch On and Quit");
        EXPECT_EQ(translated("IgnoreMenu", "Ignore all %@ windows"), "Ignore all %@ windows");
        EXPECT_EQ(translated("Another", source), source);
    }
    EXPECT_EQ(translated("AccessibilityAlert", source), source);
}

TEST(Catalogue, MayBeMissing) {
    const QtTexts texts(":/translations/missing.qm", {});
    EXPECT_EQ(translated("AccessibilityAlert", "Open System Preferences"), "Open System Preferences");
}

TEST(Catalogue, ShowsTheProgramInTheLanguageOfTheUser) {
    for (const auto& [language, quit] : {std::pair("de", "Beenden"), {"de-AT", "Beenden"}, {"fr-CA", "Quitter"},
             {"fr_FR.UTF-8", "Quitter"}, {"ja", "Quit"}, {"C", "Quit"}, {"den", "Quit"}, {"", "Quit"}}) {
        const QtTexts texts(":/translations/tarragon_linux.qm", {language});
        EXPECT_EQ(translated("TarragonMenu", "Quit"), quit) << language;
    }
    EXPECT_EQ(translated("TarragonMenu", "Quit"), "Quit");
}

TEST(Catalogue, TakesTheFirstLanguageThatItHas) {
    const QString folder = ":/translations";
    EXPECT_EQ(languageOfTexts(folder, {"ja", "fr", "de"}), "fr");
    EXPECT_EQ(languageOfTexts(folder, {"en-GB", "de"}), "en");
    EXPECT_EQ(languageOfTexts(folder, {"ja"}), "");
    EXPECT_EQ(languageOfTexts(folder, {}), "");
}

TEST(Catalogue, LeavesWhatALanguageLacksInTheWordsOfThisDesktop) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QFile::copy(":/translations/tarragon_linux.qm", folder.filePath("tarragon_linux.qm")));
    // A catalogue of nothing.
    QFile source(folder.filePath("tarragon_eo.ts"));
    ASSERT_TRUE(source.open(QIODevice::WriteOnly));
    source.write("<!DOCTYPE TS><TS version=\"2.1\" language=\"eo\"><context><name>TarragonMenu</name><message>"
                 "<source>Quit</source><translation>Fini</translation></message></context></TS>");
    source.close();
    ASSERT_EQ(QProcess::execute(TARRAGON_LRELEASE, {"-silent", source.fileName()}), 0);
    const QtTexts texts(folder.filePath("tarragon_linux.qm").toStdString(), {"eo"});
    EXPECT_EQ(translated("TarragonMenu", "Quit"), "Fini");
    EXPECT_EQ(translated("AccessibilityAlert", "Open System Preferences"), "Switch On and Quit");
}

TEST(Catalogue, ComesWithTheTextsOfTheToolkit) {
    const QtTexts texts(":/translations/tarragon_linux.qm", {"de"});
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Abbrechen");
}

// Direction and buttons are those of the user's language also where the program has no texts in it.
TEST(Catalogue, IsLaidOutInTheDirectionOfItsLanguage) {
    QLocale::setDefault(QLocale("ar"));
    {
        const QtTexts texts(":/translations/tarragon_linux.qm", {"ar"});
        QCoreApplication::processEvents();
        EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    }
    {
        const QtTexts texts(":/translations/tarragon_linux.qm", {"de"});
        QCoreApplication::processEvents();
        EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    }
    QLocale::setDefault(QLocale::system());
}

} // namespace
} // namespace tarragon
