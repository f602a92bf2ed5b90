#include "platform/linux/windows/WindowKind.h"

#include <gtest/gtest.h>

namespace tarragon {

using Kind = WindowKind;
using Type = WindowType;

TEST(WindowKind, FollowsTheWindowType) {
    EXPECT_EQ(kindOfWindow({.type = Type::Normal}), Kind::Normal);
    EXPECT_EQ(kindOfWindow({.type = Type::Unspecified}), Kind::Normal);
    EXPECT_EQ(kindOfWindow({.type = Type::Dialog}), Kind::Dialog);
    EXPECT_EQ(kindOfWindow({.type = Type::Floating}), Kind::Floating);
    EXPECT_EQ(kindOfWindow({.type = Type::Desktop}), Kind::Desktop);
}

TEST(WindowKind, IsASheetForAModalWindowThatHangsOnAnother) {
    for (const Type type : {Type::Unspecified, Type::Normal, Type::Dialog})
        EXPECT_EQ(kindOfWindow({type, true, true, true}), Kind::Sheet);
}

TEST(WindowKind, IsADialogForAModalDialogThatHangsOnNoWindow) {
    EXPECT_EQ(kindOfWindow({Type::Dialog, true, false, false}), Kind::Dialog);
    EXPECT_EQ(kindOfWindow({Type::Dialog, true, true, false}), Kind::Dialog);
}

TEST(WindowKind, IsADialogForATransientWithoutAType) {
    EXPECT_EQ(kindOfWindow({Type::Unspecified, false, true, true}), Kind::Dialog);
    EXPECT_EQ(kindOfWindow({Type::Unspecified, false, true, false}), Kind::Dialog);
}

TEST(WindowKind, IsNormalForATransientThatSaysItIsANormalWindow) {
    EXPECT_EQ(kindOfWindow({Type::Normal, false, true, true}), Kind::Normal);
}

TEST(WindowKind, KeepsFloatingAndDesktopWindowsWhateverTheirRelations) {
    EXPECT_EQ(kindOfWindow({Type::Floating, true, true, true}), Kind::Floating);
    EXPECT_EQ(kindOfWindow({Type::Desktop, true, true, true}), Kind::Desktop);
}

} // namespace tarragon
