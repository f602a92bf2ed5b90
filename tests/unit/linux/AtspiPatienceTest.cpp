#include "platform/linux/AtspiPatience.h"
#include "platform/linux/AtspiSuspension.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

using namespace std::chrono_literals;

constexpr AtspiPatience::Clock::time_point Start{100s};

TEST(AtspiPatience, EndsAfterASecondWithoutAnyReply) {
    const AtspiPatience patience(Start);
    EXPECT_FALSE(patience.isExhausted(Start + 999ms));
    EXPECT_TRUE(patience.isExhausted(Start + 1000ms));
}

TEST(AtspiPatience, LastsAsLongAsRepliesKeepComing) {
    AtspiPatience patience(Start);
    patience.noteReply(Start + 900ms);
    EXPECT_FALSE(patience.isExhausted(Start + 1800ms));
    patience.noteReply(Start + 1800ms);
    EXPECT_FALSE(patience.isExhausted(Start + 2700ms));
}

TEST(AtspiPatience, EndsAfterFiveSecondsWhateverComes) {
    AtspiPatience patience(Start);
    patience.noteReply(Start + 4900ms);
    EXPECT_FALSE(patience.isExhausted(Start + 4999ms));
    EXPECT_TRUE(patience.isExhausted(Start + 5000ms));
}

TEST(AtspiPatience, LastsLongerWhereNobodyWaitsAtAMenu) {
    AtspiPatience patience(Start, 4);
    EXPECT_FALSE(patience.isExhausted(Start + 3999ms));
    EXPECT_TRUE(patience.isExhausted(Start + 4000ms));
    patience.noteReply(Start + 19'500ms);
    EXPECT_FALSE(patience.isExhausted(Start + 19'999ms));
    EXPECT_TRUE(patience.isExhausted(Start + 20s));
}

TEST(AtspiSuspension, BeginsWithATimeoutAndEndsWithAReply) {
    AtspiSuspension suspension;
    EXPECT_FALSE(suspension.isSuspended());
    suspension.noteTimeout();
    EXPECT_TRUE(suspension.isSuspended());
    suspension.noteReply();
    EXPECT_FALSE(suspension.isSuspended());
}

TEST(AtspiSuspension, ProbesAtOnceAndThenEveryFiveSeconds) {
    AtspiSuspension suspension;
    EXPECT_FALSE(suspension.needsProbe(Start));
    suspension.noteTimeout();
    EXPECT_TRUE(suspension.needsProbe(Start));
    suspension.noteProbe(Start);
    EXPECT_FALSE(suspension.needsProbe(Start + 4999ms));
    EXPECT_TRUE(suspension.needsProbe(Start + 5s));
}

TEST(AtspiSuspension, ProbesAtOnceAgainAtTheNextTimeout) {
    AtspiSuspension suspension;
    suspension.noteTimeout();
    suspension.noteProbe(Start);
    suspension.noteReply();
    EXPECT_FALSE(suspension.needsProbe(Start + 1s));
    suspension.noteTimeout();
    EXPECT_TRUE(suspension.needsProbe(Start + 1s));
}

} // namespace
} // namespace tarragon
