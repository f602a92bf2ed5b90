#include "updates/UpdateMessage.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

TEST(UpdateMessage, BringsEveryOutcomeAcross) {
    std::vector<UpdateOutcome> outcomes = {
        UpdateFeedMissing{},
        UpdateUnderWay{},
        UpToDate{},
        NewerVersion{"1.2", "Two lines\nwith \"quotes\" and ä", "https://example.org"},
        NewerVersion{"1.2", "", ""},
    };
    for (int problem = 0; problem <= static_cast<int>(UpdateProblem::Failed); ++problem)
        outcomes.emplace_back(UpdateUnknown{static_cast<UpdateProblem>(problem), "404 Not Found"});
    for (const UpdateOutcome& outcome : outcomes) {
        const std::string message = updateMessage(outcome);
        EXPECT_EQ(message.find('\n'), std::string::npos);
        EXPECT_EQ(outcomeOfMessage(message), outcome) << message;
    }
}

TEST(UpdateMessage, MendsWhatIsNoText) {
    EXPECT_EQ(
        outcomeOfMessage(updateMessage(NewerVersion{"1\xFF", "", ""})), UpdateOutcome(NewerVersion{"1\uFFFD", "", ""}));
}

TEST(UpdateMessage, IsNoneWithoutMeaning) {
    for (const char* message : {"", "{", "[]", "1", "null", "{}", R"({"result":1})", R"({"result":"other"})",
             R"({"result":"unknown"})", R"({"result":"unknown","problem":"other"})", R"({"problem":"too large"})"})
        EXPECT_EQ(outcomeOfMessage(message), UpdateOutcome(UpdateUnknown{})) << message;
    EXPECT_EQ(
        outcomeOfMessage(R"({"result":"newer","version":"2","notes":7})"), UpdateOutcome(NewerVersion{"2", "", ""}));
}

} // namespace
} // namespace tarragon
