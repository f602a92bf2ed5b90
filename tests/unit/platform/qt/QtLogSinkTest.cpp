#include "platform/qt/QtLogSink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

class QtLogSinkTest : public testing::Test {
protected:
    ~QtLogSinkTest() override {
        setLogSink(nullptr);
        std::fclose(file);
    }

    static LogCategorySet only(LogCategory category) {
        return LogCategorySet().set(static_cast<std::size_t>(category));
    }

    std::vector<std::string> lines() {
        std::rewind(file);
        std::vector<std::string> result;
        std::string line;
        for (int character = std::fgetc(file); character != EOF; character = std::fgetc(file)) {
            if (character == '\n')
                result.push_back(std::exchange(line, {}));
            else
                line += static_cast<char>(character);
        }
        if (!line.empty())
            result.push_back(line + "<no end of line>");
        return result;
    }

    std::FILE* file = std::tmpfile();
};

TEST_F(QtLogSinkTest, IsOnForTheCategoriesThatAreAskedForAndNoOther) {
    for (std::size_t asked = 0; asked < LogCategoryNames.size(); ++asked) {
        const QtLogSink sink(LogCategorySet().set(asked), file);
        for (std::size_t each = 0; each < LogCategoryNames.size(); ++each)
            EXPECT_EQ(sink.isOn(static_cast<LogCategory>(each)), each == asked) << LogCategoryNames[each];
    }
}

TEST_F(QtLogSinkTest, FollowsTheRulesOfTheToolkitUnderTheNamesOfTheCategories) {
    QtLogSink sink({}, file);
    for (std::size_t each = 0; each < LogCategoryNames.size(); ++each) {
        EXPECT_FALSE(sink.isOn(static_cast<LogCategory>(each)));
        const std::string rule = "tarragon." + std::string(LogCategoryNames[each]) + ".debug=true";
        QLoggingCategory::setFilterRules(QString::fromStdString(rule));
        EXPECT_TRUE(sink.isOn(static_cast<LogCategory>(each))) << rule;
        QLoggingCategory::setFilterRules(QString());
    }
}

TEST_F(QtLogSinkTest, WritesTheTimeTheCategoryAndTheLine) {
    QtLogSink sink(only(LogCategory::Menus), file);
    setLogSink(&sink);
    log(LogCategory::Menus, [] { return "no menu bar in Clock: 100%s"; });
    EXPECT_THAT(lines(),
        ElementsAre(
            MatchesRegex("[0-9][0-9]:[0-9][0-9]:[0-9][0-9]\\.[0-9][0-9][0-9] menus: no menu bar in Clock: 100%s")));
}

TEST_F(QtLogSinkTest, BuildsNoLineThatNobodyReads) {
    QtLogSink sink(only(LogCategory::Menus), file);
    setLogSink(&sink);
    int built = 0;
    const auto build = [&] {
        ++built;
        return std::string("line");
    };
    log(LogCategory::Front, build);
    EXPECT_EQ(built, 0);
    log(LogCategory::Menus, build);
    EXPECT_EQ(built, 1);
    EXPECT_EQ(lines().size(), 1U);
}

TEST_F(QtLogSinkTest, TellsErrorsWhetherOrNotTheirCategoryIsOn) {
    QtLogSink sink({}, file);
    setLogSink(&sink);
    logError(LogCategory::Settings, "the settings cannot be written");
    log(LogCategory::Settings, [] { return "silent"; });
    EXPECT_THAT(lines(), ElementsAre("tarragon: the settings cannot be written"));
}

TEST_F(QtLogSinkTest, SaysNothingAfterItWasTakenAway) {
    QtLogSink sink(LogCategorySet().set(), file);
    setLogSink(&sink);
    setLogSink(nullptr);
    log(LogCategory::Front, [] { return "line"; });
    logError(LogCategory::Front, "error");
    EXPECT_THAT(lines(), IsEmpty());
}

ssize_t keepPiece(void* pieces, const char* bytes, std::size_t size) {
    static_cast<std::vector<std::string>*>(pieces)->emplace_back(bytes, size);
    return static_cast<ssize_t>(size);
}

// Whatever is written in one piece, other programs on the same terminal cannot come between either.
TEST_F(QtLogSinkTest, WritesEachLineInOnePiece) {
    std::vector<std::string> pieces;
    std::FILE* const unbuffered = fopencookie(
        &pieces, "w", cookie_io_functions_t{.read = nullptr, .write = keepPiece, .seek = nullptr, .close = nullptr});
    ASSERT_NE(unbuffered, nullptr);
    std::setvbuf(unbuffered, nullptr, _IONBF, 0);
    QtLogSink sink(only(LogCategory::Menus), unbuffered);
    sink.write(LogCategory::Menus, "line");
    sink.writeError(LogCategory::Menus, "error");
    EXPECT_THAT(pieces, ElementsAre(testing::EndsWith(" menus: line\n"), "tarragon: error\n"));
    std::fclose(unbuffered);
}

TEST_F(QtLogSinkTest, WritesWholeLinesFromEveryThread) {
    constexpr int LinesOfEach = 200;
    QtLogSink sink(LogCategorySet().set(), file);
    setLogSink(&sink);
    std::vector<std::thread> threads;
    for (const LogCategory category : {LogCategory::Front, LogCategory::Accessibility, LogCategory::Panel}) {
        threads.emplace_back([category] {
            for (int line = 0; line < LinesOfEach; ++line)
                log(category, [] { return "a line of " + std::string(100, 'x'); });
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    const auto written = lines();
    EXPECT_EQ(written.size(), 3U * LinesOfEach);
    EXPECT_THAT(written, testing::Each(MatchesRegex("[0-9:.]+ (front|accessibility|panel): a line of x+")));
}

} // namespace
} // namespace tarragon
