#include "ignore/LikePattern.h"

#include <gtest/gtest.h>

#include <string>

namespace tarragon {
namespace {

TEST(LikePattern, WithoutWildcardsMatchesOnlyTheSameText) {
    EXPECT_TRUE(isLike(U"Untitled 3", U"Untitled 3"));
    EXPECT_FALSE(isLike(U"Untitled 3", U"Untitled"));
    EXPECT_FALSE(isLike(U"Untitled", U"Untitled 3"));
    EXPECT_FALSE(isLike(U"xUntitled", U"Untitled"));
}

TEST(LikePattern, StarStandsForAnyRunOfCharacters) {
    EXPECT_TRUE(isLike(U"Untitled 3", U"Untitled*"));
    EXPECT_TRUE(isLike(U"Untitled", U"Untitled*"));
    EXPECT_TRUE(isLike(U"My Untitled 3", U"*Untitled*"));
    EXPECT_TRUE(isLike(U"abc", U"*c"));
    EXPECT_TRUE(isLike(U"abc", U"a*c"));
    EXPECT_TRUE(isLike(U"ac", U"a*c"));
    EXPECT_TRUE(isLike(U"", U"*"));
    EXPECT_TRUE(isLike(U"anything", U"**"));
    EXPECT_FALSE(isLike(U"abc", U"*b"));
    EXPECT_FALSE(isLike(U"abc", U"b*"));
}

TEST(LikePattern, QuestionMarkStandsForOneCharacter) {
    EXPECT_TRUE(isLike(U"Untitled 3", U"Untitled ?"));
    EXPECT_FALSE(isLike(U"Untitled ", U"Untitled ?"));
    EXPECT_FALSE(isLike(U"Untitled 33", U"Untitled ?"));
    EXPECT_TRUE(isLike(U"Untitled 33", U"Untitled ??"));
    EXPECT_TRUE(isLike(U"abcdef", U"*c?e*"));
    EXPECT_FALSE(isLike(U"abcde", U"*c?e?"));
    EXPECT_FALSE(isLike(U"", U"?"));
    EXPECT_TRUE(isLike(U"x", U"?*"));
    EXPECT_FALSE(isLike(U"", U"*?*"));
}

TEST(LikePattern, TellsUpperFromLowerCase) {
    EXPECT_FALSE(isLike(U"Untitled 3", U"untitled*"));
    EXPECT_FALSE(isLike(U"untitled 3", U"*Untitled*"));
}

TEST(LikePattern, CountsUnicodeCharactersNotBytes) {
    EXPECT_TRUE(isLike(U"Grüße", U"Gr??e"));
    EXPECT_TRUE(isLike(U"\U0001D11E", U"?"));
    EXPECT_FALSE(isLike(U"\U0001D11E", U"??"));
    EXPECT_TRUE(isLike(U"日本語", U"*本?"));
}

TEST(LikePattern, BackslashStandsForItselfAlsoBeforeAWildcard) {
    EXPECT_TRUE(isLike(U"C:\\Users\\me", U"C:\\Users*"));
    EXPECT_TRUE(isLike(U"end\\", U"*\\"));
    EXPECT_TRUE(isLike(U"2\\times3", U"2\\*3"));
    EXPECT_FALSE(isLike(U"2*3", U"2\\*3"));
    EXPECT_TRUE(isLike(U"Really\\!", U"Really\\?"));
    EXPECT_FALSE(isLike(U"Really?", U"Really\\?"));
    EXPECT_TRUE(isLike(U"a\\\\b", U"a\\\\b"));
    EXPECT_FALSE(isLike(U"a\\b", U"a\\\\b"));
}

TEST(LikePattern, BracketsAndOtherSignsStandForThemselves) {
    EXPECT_TRUE(isLike(U"[ab]", U"[ab]"));
    EXPECT_FALSE(isLike(U"a", U"[ab]"));
    EXPECT_TRUE(isLike(U"Letter [modified]", U"* [modified]"));
    EXPECT_TRUE(isLike(U"{a,b} ^x$ a+b (c|d) #%_.", U"{a,b} ^x$ a+b (c|d) #%_."));
    EXPECT_FALSE(isLike(U"ab", U"a."));
    EXPECT_FALSE(isLike(U"ab", U"a_"));
    EXPECT_FALSE(isLike(U"ab", U"a%"));
}

TEST(LikePattern, FindsTheMatchThatLeavesRoomForTheRest) {
    EXPECT_TRUE(isLike(U"aXbXcXd", U"a*X*X*d"));
    EXPECT_TRUE(isLike(U"abab", U"*ab"));
    EXPECT_TRUE(isLike(U"aab", U"*?ab"));
    EXPECT_TRUE(isLike(U"aaab", U"*aab"));
    EXPECT_TRUE(isLike(U"mississippi", U"*is*ip*"));
    EXPECT_FALSE(isLike(U"mississippi", U"*ip*is*"));
    // The beginning and the end of the text may not be used twice.
    EXPECT_FALSE(isLike(U"aba", U"ab*ba"));
    EXPECT_FALSE(isLike(U"ab", U"ab*b"));
    EXPECT_FALSE(isLike(U"abc", U"ab*bc*c"));
}

TEST(LikePattern, TreatsTheEmptyTextAndTheEmptyPattern) {
    EXPECT_TRUE(isLike(U"", U""));
    EXPECT_FALSE(isLike(U"a", U""));
    EXPECT_FALSE(isLike(U"", U"a"));
}

TEST(LikePattern, FindsSegmentsLongerThanOneMachineWord) {
    const auto between = [](char32_t first, const std::u32string& text, char32_t last) {
        return std::u32string(1, first).append(text).append(1, last);
    };
    for (const std::size_t length : {63U, 64U, 65U, 127U, 128U, 129U, 200U}) {
        const std::u32string segment = std::u32string(length - 1, U'a') + U'b';
        const std::u32string pattern = between(U'*', segment, U'*');
        EXPECT_TRUE(isLike(between(U'x', std::u32string(500, U'a').append(segment), U'y'), pattern)) << length;
        EXPECT_FALSE(isLike(between(U'x', segment.substr(1), U'y'), pattern)) << length;
        EXPECT_TRUE(isLike(between(U'x', segment, U'y'), between(U'*', std::u32string(length, U'?'), U'*'))) << length;
        EXPECT_FALSE(isLike(segment, between(U'*', std::u32string(length + 1, U'?'), U'*'))) << length;
    }
}

// The answer by definition, as slow as it may be.
bool isLikeByDefinition(std::u32string_view text, std::u32string_view pattern) {
    if (pattern.empty())
        return text.empty();
    if (pattern.front() == U'*')
        return isLikeByDefinition(text, pattern.substr(1))
            || (!text.empty() && isLikeByDefinition(text.substr(1), pattern));
    return !text.empty() && (pattern.front() == U'?' || pattern.front() == text.front())
        && isLikeByDefinition(text.substr(1), pattern.substr(1));
}

TEST(LikePattern, AgreesWithItsDefinitionOnEveryShortTextAndPattern) {
    const std::u32string textCharacters = U"ab";
    const std::u32string patternCharacters = U"ab*?";
    const auto nth = [](std::size_t number, const std::u32string& characters, std::size_t length) {
        std::u32string result;
        for (std::size_t index = 0; index < length; ++index, number /= characters.size())
            result += characters[number % characters.size()];
        return result;
    };
    for (std::size_t textLength = 0; textLength <= 5; ++textLength) {
        for (std::size_t textNumber = 0; textNumber < (1U << textLength); ++textNumber) {
            const std::u32string text = nth(textNumber, textCharacters, textLength);
            for (std::size_t patternLength = 0; patternLength <= 5; ++patternLength) {
                for (std::size_t number = 0; number < (1U << (2 * patternLength)); ++number) {
                    const std::u32string pattern = nth(number, patternCharacters, patternLength);
                    ASSERT_EQ(isLike(text, pattern), isLikeByDefinition(text, pattern))
                        << std::string(text.begin(), text.end()) << " " << std::string(pattern.begin(), pattern.end());
                }
            }
        }
    }
}

TEST(LikePattern, AnswersAtOnceWhereTryingEveryDivisionWouldTakeForEver) {
    const std::u32string text(100000, U'a');
    std::u32string pattern;
    for (int count = 0; count < 200; ++count)
        pattern += U"*a";
    EXPECT_TRUE(isLike(text, pattern));
    EXPECT_FALSE(isLike(text, pattern + U"*b"));
    EXPECT_FALSE(isLike(text, U"*" + std::u32string(1000, U'a') + U"b*"));
}

} // namespace
} // namespace tarragon
