#include "platform/linux/xkb/X11KeyRepeat.h"

#include <gtest/gtest.h>

namespace tarragon {

TEST(X11KeyRepeat, FollowsNoKeyBeforeTheFirstPress) {
    X11KeyRepeat repeat;
    EXPECT_FALSE(repeat.isRepeat(65, 100));
    EXPECT_FALSE(repeat.isRepeat(0, 0));
}

TEST(X11KeyRepeat, TakesAPressAtTheTimeOfTheReleaseForARepetition) {
    X11KeyRepeat repeat;
    repeat.begin(65, 1000);
    for (const std::uint32_t time : {1660U, 1700U, 1740U}) {
        repeat.release(65, time);
        EXPECT_TRUE(repeat.isRepeat(65, time));
    }
}

TEST(X11KeyRepeat, TakesAPressWithoutAReleaseForARepetition) {
    X11KeyRepeat repeat;
    repeat.begin(65, 1000);
    EXPECT_TRUE(repeat.isRepeat(65, 1660));
    EXPECT_TRUE(repeat.isRepeat(65, 1700));
}

TEST(X11KeyRepeat, KnowsAPressAfterARelease) {
    X11KeyRepeat repeat;
    repeat.begin(65, 1000);
    repeat.release(65, 1010);
    EXPECT_FALSE(repeat.isRepeat(65, 1011));
}

TEST(X11KeyRepeat, ForgetsAKeyWhoseReleaseWentToSomebodyElse) {
    X11KeyRepeat repeat;
    repeat.begin(65, 1000);
    EXPECT_FALSE(repeat.isRepeat(65, 3000));
}

TEST(X11KeyRepeat, GoesOnWhenAnotherKeyIsReleased) {
    X11KeyRepeat repeat;
    repeat.begin(65, 1000);
    repeat.release(66, 1020);
    EXPECT_TRUE(repeat.isRepeat(65, 1660));
}

TEST(X11KeyRepeat, EndsWhenAnotherKeyIsPressed) {
    X11KeyRepeat repeat;
    repeat.begin(65, 1000);
    EXPECT_FALSE(repeat.isRepeat(66, 1010));
    EXPECT_FALSE(repeat.isRepeat(65, 1500));
}

TEST(X11KeyRepeat, GoesOnWhenTheServersClockWrapsAround) {
    X11KeyRepeat repeat;
    repeat.begin(65, 0xFFFFFFF0);
    EXPECT_TRUE(repeat.isRepeat(65, 0x00000010));
}

} // namespace tarragon
