#include "updates/process/UpdateProcess.h"

#include "fake/RecordingLog.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <optional>
#include <string>
#include <vector>

#include <sys/stat.h>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

using namespace std::chrono_literals;

class UpdateProcessTest : public testing::Test {
protected:
    std::string path(const char* name) const { return _folder.filePath(name).toStdString(); }
    void write(const char* name, const std::string& contents) const {
        QFile file(_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::fromStdString(contents));
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    std::string contentsOf(const char* name) const {
        QFile file(_folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }
    // Asks a tool that is this shell script.
    UpdateOutcome askScript(const std::string& script, std::chrono::milliseconds patience = 20s) {
        write("tool", "#!/bin/sh\n" + script + "\n");
        return ask({.tool = path("tool"), .runningVersion = "1.0", .builtInFeed = {}, .patience = patience});
    }
    UpdateOutcome ask(UpdateProcess::Options options, const std::string& address = "https://example.org/a b") {
        UpdateProcess updates(std::move(options));
        EXPECT_FALSE(updates.isChecking());
        std::optional<UpdateOutcome> result;
        updates.check(address, [&](const UpdateOutcome& outcome) {
            EXPECT_FALSE(updates.isChecking());
            result = outcome;
        });
        EXPECT_TRUE(updates.isChecking());
        EXPECT_FALSE(result) << "answers at once";
        EXPECT_TRUE(QTest::qWaitFor([&] { return result.has_value(); }, 30'000));
        return result.value_or(UpdateFeedMissing{});
    }
    static UpdateOutcome failed() { return UpdateUnknown{UpdateProblem::Failed, {}}; }

private:
    QTemporaryDir _folder;
};

TEST_F(UpdateProcessTest, HandsTheToolAddressAndVersion) {
    const UpdateOutcome outcome =
        askScript("echo \"$#,$1,$2\" > '" + path("arguments") + R"('; echo '{"result":"up to date"}')");
    EXPECT_EQ(outcome, UpdateOutcome(UpToDate{}));
    EXPECT_EQ(contentsOf("arguments"), "2,https://example.org/a b,1.0\n");
}

TEST_F(UpdateProcessTest, TakesALineForTheAnswerAlthoughTheToolGoesOn) {
    EXPECT_EQ(askScript("echo '{\"result\":\"up to date\"}'; exec sleep 1000"), UpdateOutcome(UpToDate{}));
}

TEST_F(UpdateProcessTest, CannotTellWithoutTheTool) {
    const RecordingLog log;
    EXPECT_EQ(ask({.tool = path("missing"), .runningVersion = "1.0", .builtInFeed = {}}), failed());
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST_F(UpdateProcessTest, CannotTellWhenTheToolGivesNoAnswer) {
    EXPECT_EQ(askScript("exit 0"), failed());
    EXPECT_EQ(askScript("printf '{\"result\":\"up to date\"}'; exit 1"), failed());
    EXPECT_EQ(askScript("kill -SEGV $$"), failed());
    EXPECT_EQ(askScript("echo nonsense"), failed());
    EXPECT_EQ(askScript("head -c 1000000 /dev/zero; exec sleep 1000"), failed());
}

TEST_F(UpdateProcessTest, EndsAToolThatDoesNotComeToAnEnd) {
    EXPECT_EQ(askScript("exec sleep 1000", 50ms), UpdateOutcome(UpdateUnknown{UpdateProblem::TimedOut, {}}));
}

TEST_F(UpdateProcessTest, AsksOnceAtATime) {
    write("tool",
        "#!/bin/sh\necho run >> '" + path("runs") + "'; read line < '" + path("gate")
            + "'; echo '{\"result\":\"up to date\"}'\n");
    ASSERT_EQ(mkfifo(path("gate").c_str(), 0600), 0);
    UpdateProcess updates({.tool = path("tool"), .runningVersion = "1.0", .builtInFeed = {}});
    int answers = 0;
    updates.check("a", [&](const UpdateOutcome&) { ++answers; });
    updates.check("b", [&](const UpdateOutcome&) { answers += 100; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return contentsOf("runs") == "run\n"; }, 30'000));
    write("gate", "open\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers > 0; }, 30'000));
    EXPECT_EQ(answers, 1);
    EXPECT_EQ(contentsOf("runs"), "run\n");
}

TEST_F(UpdateProcessTest, MayBeAskedAgainFromTheAnswer) {
    write("tool", "#!/bin/sh\necho '{\"result\":\"newer\",\"version\":\"'$1'\"}'\n");
    UpdateProcess updates({.tool = path("tool"), .runningVersion = "1.0", .builtInFeed = {}});
    std::vector<UpdateOutcome> outcomes;
    updates.check("2", [&](const UpdateOutcome& first) {
        outcomes.push_back(first);
        updates.check("3", [&](const UpdateOutcome& second) { outcomes.push_back(second); });
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return outcomes.size() == 2; }, 30'000));
    EXPECT_EQ(outcomes, (std::vector<UpdateOutcome>{NewerVersion{"2", "", ""}, NewerVersion{"3", "", ""}}));
}

TEST_F(UpdateProcessTest, TellsNobodyOnceItIsGone) {
    write("tool", "#!/bin/sh\nexec sleep 1000\n");
    bool isTold = false;
    {
        UpdateProcess updates({.tool = path("tool"), .runningVersion = "1.0", .builtInFeed = {}});
        updates.check("a", [&](const UpdateOutcome&) { isTold = true; });
    }
    QTest::qWait(0);
    EXPECT_FALSE(isTold);
}

TEST_F(UpdateProcessTest, KnowsTheAddressThatItWasBuiltWith) {
    EXPECT_EQ(UpdateProcess({.tool = {}, .runningVersion = "1.0", .builtInFeed = "https://example.org"}).builtInFeed(),
        "https://example.org");
}

// The tool that is installed, asked for a file.
class UpdateToolTest : public UpdateProcessTest {
protected:
    UpdateOutcome askTool(const std::string& list, const std::string& version) {
        write("releases.xml", list);
        return ask(
            {.tool = TARRAGON_UPDATES, .runningVersion = version, .builtInFeed = {}}, "file://" + path("releases.xml"));
    }
};

TEST_F(UpdateToolTest, FindsANewerVersionInAReleaseList) {
    const char* list = "<releases><release version='0.10'><description><p>Better.</p></description>"
                       "<url>https://example.org/0.10</url></release><release version='0.9'/></releases>";
    EXPECT_EQ(askTool(list, "0.9"), UpdateOutcome(NewerVersion{"0.10", "Better.", "https://example.org/0.10"}));
    EXPECT_EQ(askTool(list, "0.10"), UpdateOutcome(UpToDate{}));
}

TEST_F(UpdateToolTest, SaysWhyItCannotTell) {
    EXPECT_EQ(askTool("<html/>", "1"), UpdateOutcome(UpdateUnknown{UpdateProblem::NotAReleaseList, {}}));
    EXPECT_EQ(askTool("<releases/>", "1"), UpdateOutcome(UpdateUnknown{UpdateProblem::NoRelease, {}}));
    EXPECT_EQ(ask({.tool = TARRAGON_UPDATES, .runningVersion = "1", .builtInFeed = {}}, "nowhere"),
        UpdateOutcome(UpdateUnknown{UpdateProblem::AddressUnusable, "nowhere"}));
    EXPECT_EQ(ask({.tool = TARRAGON_UPDATES, .runningVersion = "1", .builtInFeed = {}}, "-platform"),
        UpdateOutcome(UpdateUnknown{UpdateProblem::AddressUnusable, "-platform"}));
}

} // namespace
} // namespace tarragon
