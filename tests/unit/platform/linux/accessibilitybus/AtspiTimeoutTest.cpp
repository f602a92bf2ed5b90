#include "platform/linux/accessibilitybus/AtspiTimeout.h"
#include "platform/linux/accessibilitybus/AtspiBackOff.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

using namespace std::chrono_literals;

constexpr AtspiTimeout::Clock::time_point Start{100s};

TEST(AtspiTimeout, EndsAfterASecondWithoutAnyReply) {
    const AtspiTimeout patience(Start);
    EXPECT_FALSE(patience.isExhausted(Start + 999ms));
    EXPECT_TRUE(patience.isExhausted(Start + 1000ms));
}

TEST(AtspiTimeout, LastsAsLongAsRepliesKeepComing) {
    AtspiTimeout patience(Start);
    patience.noteReply(Start + 900ms);
    EXPECT_FALSE(patience.isExhausted(Start + 1800ms));
    patience.noteReply(Start + 1800ms);
    EXPECT_FALSE(patience.isExhausted(Start + 2700ms));
}

TEST(AtspiTimeout, EndsAfterFiveSecondsWhateverComes) {
    AtspiTimeout patience(Start);
    patience.noteReply(Start + 4900ms);
    EXPECT_FALSE(patience.isExhausted(Start + 4999ms));
    EXPECT_TRUE(patience.isExhausted(Start + 5000ms));
}

TEST(AtspiTimeout, LastsLongerWhereNobodyWaitsAtAMenu) {
    AtspiTimeout patience(Start, 4);
    EXPECT_FALSE(patience.isExhausted(Start + 3999ms));
    EXPECT_TRUE(patience.isExhausted(Start + 4000ms));
    patience.noteReply(Start + 19'500ms);
    EXPECT_FALSE(patience.isExhausted(Start + 19'999ms));
    EXPECT_TRUE(patience.isExhausted(Start + 20s));
}

TEST(AtspiBackOff, BeginsWithATimeoutAndEndsWithAReply) {
    AtspiBackOff suspension;
    EXPECT_FALSE(suspension.isSuspended());
    suspension.noteTimeout();
    EXPECT_TRUE(suspension.isSuspended());
    suspension.noteReply();
    EXPECT_FALSE(suspension.isSuspended());
}

TEST(AtspiBackOff, ProbesAtOnceAndThenEveryFiveSeconds) {
    AtspiBackOff suspension;
    EXPECT_FALSE(suspension.needsProbe(Start));
    suspension.noteTimeout();
    EXPECT_TRUE(suspension.needsProbe(Start));
    suspension.noteProbe(Start);
    EXPECT_FALSE(suspension.needsProbe(Start + 4999ms));
    EXPECT_TRUE(suspension.needsProbe(Start + 5s));
}

TEST(AtspiBackOff, ProbesAtOnceAgainAtTheNextTimeout) {
    AtspiBackOff suspension;
    suspension.noteTimeout();
    suspension.noteProbe(Start);
    suspension.noteReply();
    EXPECT_FALSE(suspension.needsProbe(Start + 1s));
    suspension.noteTimeout();
    EXPECT_TRUE(suspension.needsProbe(Start + 1s));
}

} // namespace
} // namespace tarragon
