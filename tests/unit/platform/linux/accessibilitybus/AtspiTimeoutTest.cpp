#include "platform/linux/accessibilitybus/AtspiTimeout.h"
#include "platform/linux/accessibilitybus/AtspiBackOff.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

using namespace std::chrono_literals;

constexpr AtspiTimeout::Clock::time_point Start{100s};

TEST(AtspiTimeout, EndsAfterASecondWithoutAnyReply) {
    const AtspiTimeout timeout(Start);
    EXPECT_FALSE(timeout.isExhausted(Start + 999ms));
    EXPECT_TRUE(timeout.isExhausted(Start + 1000ms));
}

TEST(AtspiTimeout, LastsAsLongAsRepliesKeepComing) {
    AtspiTimeout timeout(Start);
    timeout.noteReply(Start + 900ms);
    EXPECT_FALSE(timeout.isExhausted(Start + 1800ms));
    timeout.noteReply(Start + 1800ms);
    EXPECT_FALSE(timeout.isExhausted(Start + 2700ms));
}

TEST(AtspiTimeout, EndsAfterFiveSecondsWhateverComes) {
    AtspiTimeout timeout(Start);
    timeout.noteReply(Start + 4900ms);
    EXPECT_FALSE(timeout.isExhausted(Start + 4999ms));
    EXPECT_TRUE(timeout.isExhausted(Start + 5000ms));
}

TEST(AtspiTimeout, LastsLongerWhereNobodyWaitsAtAMenu) {
    AtspiTimeout timeout(Start, 4);
    EXPECT_FALSE(timeout.isExhausted(Start + 3999ms));
    EXPECT_TRUE(timeout.isExhausted(Start + 4000ms));
    timeout.noteReply(Start + 19'500ms);
    EXPECT_FALSE(timeout.isExhausted(Start + 19'999ms));
    EXPECT_TRUE(timeout.isExhausted(Start + 20s));
}

TEST(AtspiBackOff, BeginsWithATimeoutAndEndsWithAReply) {
    AtspiBackOff backOff;
    EXPECT_FALSE(backOff.isSuspended());
    backOff.noteTimeout();
    EXPECT_TRUE(backOff.isSuspended());
    backOff.noteReply();
    EXPECT_FALSE(backOff.isSuspended());
}

TEST(AtspiBackOff, ProbesAtOnceAndThenEveryFiveSeconds) {
    AtspiBackOff backOff;
    EXPECT_FALSE(backOff.needsProbe(Start));
    backOff.noteTimeout();
    EXPECT_TRUE(backOff.needsProbe(Start));
    backOff.noteProbe(Start);
    EXPECT_FALSE(backOff.needsProbe(Start + 4999ms));
    EXPECT_TRUE(backOff.needsProbe(Start + 5s));
}

TEST(AtspiBackOff, ProbesAtOnceAgainAtTheNextTimeout) {
    AtspiBackOff backOff;
    backOff.noteTimeout();
    backOff.noteProbe(Start);
    backOff.noteReply();
    EXPECT_FALSE(backOff.needsProbe(Start + 1s));
    backOff.noteTimeout();
    EXPECT_TRUE(backOff.needsProbe(Start + 1s));
}

} // namespace
} // namespace tarragon
