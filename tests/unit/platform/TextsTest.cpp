#include "platform/Texts.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

class TextsTest : public testing::Test {
protected:
    ~TextsTest() override { setTextTranslator(nullptr); }
};

TEST_F(TextsTest, ReadsAsItsSourceWithoutATranslator) {
    EXPECT_EQ(translated("Context", "Open"), "Open");
}

TEST_F(TextsTest, AsksTheTranslatorForContextAndSource) {
    setTextTranslator([](const char* context, const char* source) { return std::string(context) + "/" + source; });
    EXPECT_EQ(translated("Context", "Open"), "Context/Open");
    setTextTranslator(nullptr);
    EXPECT_EQ(translated("Context", "Open"), "Open");
}

TEST_F(TextsTest, IsMarkedWithoutBeingTranslated) {
    setTextTranslator([](const char*, const char*) { return std::string("other"); });
    EXPECT_STREQ(sourceText("Context", "Open"), "Open");
}

TEST_F(TextsTest, TakesArgumentsInTheirOrder) {
    EXPECT_EQ(withArguments("%@ before %@", {"one", "two"}), "one before two");
    EXPECT_EQ(withArguments("%@", {"with %@ in it"}), "with %@ in it");
    EXPECT_EQ(withArguments("%@ and %@", {"%@", "two"}), "%@ and two");
    EXPECT_EQ(withArguments("%@ and %@", {"one"}), "one and %@");
    EXPECT_EQ(withArguments("none", {"one"}), "none");
    EXPECT_EQ(withArguments("", {}), "");
}

} // namespace
} // namespace tarragon
