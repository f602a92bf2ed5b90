#include "platform/LogCategories.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

using testing::HasSubstr;

LogCategorySet of(std::initializer_list<LogCategory> categories) {
    LogCategorySet result;
    for (const LogCategory category : categories)
        result.set(static_cast<std::size_t>(category));
    return result;
}

TEST(LogCategories, AreReadByTheirNames) {
    for (std::size_t index = 0; index < LogCategoryNames.size(); ++index) {
        const LogCategoryList list = parseLogCategories(LogCategoryNames[index]);
        EXPECT_EQ(list.categories, LogCategorySet().set(index)) << LogCategoryNames[index];
        EXPECT_EQ(list.error, "");
    }
    EXPECT_EQ(parseLogCategories("menus").categories, of({LogCategory::Menus}));
    EXPECT_EQ(parseLogCategories("x11").categories, of({LogCategory::X11}));
    EXPECT_EQ(parseLogCategories("triggers").categories, of({LogCategory::Triggers}));
}

TEST(LogCategories, AreReadFromAListWithCommas) {
    const LogCategoryList list = parseLogCategories("menus,front,menus,panel");
    EXPECT_EQ(list.categories, of({LogCategory::Front, LogCategory::Menus, LogCategory::Panel}));
    EXPECT_EQ(list.error, "");
}

TEST(LogCategories, AreAllOnWithAll) {
    EXPECT_TRUE(parseLogCategories("all").categories.all());
    EXPECT_TRUE(parseLogCategories("menus,all").categories.all());
    EXPECT_EQ(parseLogCategories("all").error, "");
}

TEST(LogCategories, NameTheKnownOnesWhenOneIsUnknown) {
    const std::string error = parseLogCategories("nonsense").error;
    EXPECT_THAT(error, HasSubstr("'nonsense'"));
    for (const std::string_view name : LogCategoryNames)
        EXPECT_THAT(error, HasSubstr(std::string(name)));
    EXPECT_THAT(error, HasSubstr("all"));
}

TEST(LogCategories, AreTakenAroundAnUnknownOneAndTheFirstOfThoseIsNamed) {
    const LogCategoryList list = parseLogCategories("menus,first,second,x11");
    EXPECT_EQ(list.categories, of({LogCategory::Menus, LogCategory::X11}));
    EXPECT_THAT(list.error, HasSubstr("'first'"));
}

TEST(LogCategories, AreNeverEmptyNamesNorWrittenAnotherWay) {
    for (const char* list : {"", ",", "menus,", ",menus", "menus,,front", "Menus", "menu", "menus front", " menus"})
        EXPECT_NE(parseLogCategories(list).error, "") << list;
}

} // namespace
} // namespace tarragon
