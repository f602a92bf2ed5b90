#include "platform/Texts.h"
#include "platform/qt/QtTexts.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <filesystem>
#include <set>
#include <string>
#include <tuple>
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

TEST(Catalogue, HoldsEveryTextOfTheCodeAndNoOther) {
    const QTemporaryDir folder;
    const QString collected = folder.filePath("collected.ts");
    ASSERT_EQ(QProcess::execute(TARRAGON_COLLECT_TEXTS, {collected}), 0);
    const Sources inTheCode = sourcesOf(messagesOf(collected));
    EXPECT_GT(inTheCode.size(), 40U);
    EXPECT_EQ(sourcesOf(messagesOf(TARRAGON_CATALOGUE)), inTheCode) << "run scripts/collect-texts";
}

TEST(Catalogue, HasWordsForEveryText) {
    for (const Message& message : messagesOf(TARRAGON_CATALOGUE)) {
        EXPECT_TRUE(message.isFinished) << message.source;
        EXPECT_NE(message.words, "") << message.source;
    }
}

TEST(Catalogue, KeepsThePlacesOfArguments) {
    const auto places = [](const std::string& text) { return QString::fromStdString(text).count("%@"); };
    for (const Message& message : messagesOf(TARRAGON_CATALOGUE))
        EXPECT_EQ(places(message.words), places(message.source)) << message.source;
}

TEST(Catalogue, NamesNoOtherPlatform) {
    int replaced = 0;
    for (const Message& message : messagesOf(TARRAGON_CATALOGUE)) {
        EXPECT_FALSE(namesAnotherPlatform(message.words)) << message.words;
        replaced += namesAnotherPlatform(message.source) ? 1 : 0;
    }
    EXPECT_GE(replaced, 5);
}

// A text that names another platform and is shown without the catalogue would be shown as it is.
TEST(Catalogue, IsAskedForEveryTextThatNamesAnotherPlatform) {
    static const QRegularExpression literal(R"re("(?:\\.|[^"\\\n])*")re");
    std::string known;
    for (const Message& message : messagesOf(TARRAGON_CATALOGUE))
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
    for (const Message& message : messagesOf(TARRAGON_CATALOGUE)) {
        if (message.context == "TarragonMenu" || message.context == "IgnoreMenu") {
            EXPECT_EQ(message.words, message.source);
        }
    }
}

TEST(Catalogue, GivesTheProgramItsWords) {
    const char* source = "Tarragon requires that Apple's Accessibility API be enabled.";
    EXPECT_EQ(translated("AccessibilityAlert", source), source);
    {
        const QtTexts texts(":/translations/tarragon_linux.qm");
        EXPECT_EQ(translated("AccessibilityAlert", source), "Tarragon needs the accessibility services of your desktop.");
        EXPECT_EQ(translated("AccessibilityAlert", "Open System Preferences"), "Switch On and Quit");
        EXPECT_EQ(translated("IgnoreMenu", "Ignore all %@ windows"), "Ignore all %@ windows");
        EXPECT_EQ(translated("Another", source), source);
    }
    EXPECT_EQ(translated("AccessibilityAlert", source), source);
}

TEST(Catalogue, MayBeMissing) {
    const QtTexts texts(":/translations/missing.qm");
    EXPECT_EQ(translated("AccessibilityAlert", "Open System Preferences"), "Open System Preferences");
}

} // namespace
} // namespace tarragon
