#include "platform/linux/settings/PropertyListDefaults.h"

#include "fake/FakeRunLoop.h"
#include "fake/RecordingLog.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

// Remembers its descriptors, so that a test can wait for what really comes over them.
class DescriptorRunLoop : public FakeRunLoop {
public:
    void watchDescriptor(int descriptor, std::function<void()> handler) override {
        _watched.emplace_back(descriptor, std::move(handler));
    }
    // Waits for the next events, for a while, and handles them.
    bool handleEvents() {
        bool any = false;
        for (const auto& [descriptor, handler] : _watched) {
            pollfd request = {.fd = descriptor, .events = POLLIN, .revents = 0};
            if (poll(&request, 1, 5000) > 0) {
                any = true;
                handler();
            }
        }
        return any;
    }
    bool hasEvents() const {
        for (const auto& [descriptor, handler] : _watched) {
            pollfd request = {.fd = descriptor, .events = POLLIN, .revents = 0};
            if (poll(&request, 1, 0) > 0)
                return true;
        }
        return false;
    }

private:
    std::vector<std::pair<int, std::function<void()>>> _watched;
};

class PropertyListDefaultsTest : public testing::Test {
protected:
    PropertyListDefaultsTest() {
        std::string name = (fs::temp_directory_path() / "property-list-XXXXXX").string();
        _folder = mkdtemp(name.data());
        _file = _folder / "tarragon" / "tarragon.plist";
    }
    ~PropertyListDefaultsTest() override { fs::remove_all(_folder); }

    std::unique_ptr<PropertyListDefaults> open() { return std::make_unique<PropertyListDefaults>(_runLoop, _file); }

    // As if in another process, whose run loop is not run.
    std::unique_ptr<PropertyListDefaults> another() {
        return std::make_unique<PropertyListDefaults>(_otherRunLoop, _file);
    }

    std::string contents() const {
        std::ifstream stream(_file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    void writeContents(const std::string& text) const {
        fs::create_directories(_file.parent_path());
        std::ofstream(_file, std::ios::binary) << text;
    }
    std::vector<std::string> names(const std::string& part) const {
        std::vector<std::string> result;
        for (const auto& entry : fs::directory_iterator(_file.parent_path())) {
            if (entry.path().filename().string().find(part) != std::string::npos)
                result.push_back(entry.path().filename().string());
        }
        return result;
    }
    void observe(PropertyListDefaults& defaults, const std::string& key) {
        defaults.addObserver("values." + key, [this](const std::string& keyPath) { _told.push_back(keyPath); });
    }

    fs::path _folder;
    fs::path _file;
    DescriptorRunLoop _runLoop;
    DescriptorRunLoop _otherRunLoop;
    std::vector<std::string> _told;
    RecordingLog _log;
};

} // namespace

TEST_F(PropertyListDefaultsTest, AnswerNothingForAKeyThatNobodyKnows) {
    EXPECT_EQ(another()->value("Key"), std::nullopt);
}

TEST_F(PropertyListDefaultsTest, KeepValuesForTheNextProcess) {
    auto defaults = open();
    EXPECT_TRUE(defaults->setValue("Flag", true));
    EXPECT_TRUE(defaults->setValue("Number", std::int64_t(0x80000)));
    EXPECT_TRUE(defaults->setValue("Label", std::string("Menu")));
    EXPECT_TRUE(defaults->setValue("List", Data{1, 2, 3}));
    EXPECT_TRUE(defaults->setValue("Real", 0.5));
    const auto next = another();
    EXPECT_EQ(next->value("Flag"), DefaultsValue(true));
    EXPECT_EQ(next->value("Number"), DefaultsValue(std::int64_t(0x80000)));
    EXPECT_EQ(next->value("Label"), DefaultsValue(std::string("Menu")));
    EXPECT_EQ(next->value("List"), DefaultsValue(Data{1, 2, 3}));
    EXPECT_EQ(next->value("Real"), DefaultsValue(0.5));
    EXPECT_THAT(names(".new"), IsEmpty());
}

TEST_F(PropertyListDefaultsTest, AnswerRegisteredValuesAndNeverWriteThem) {
    auto defaults = open();
    defaults->registerDefaults({{"Flag", true}, {"Label", std::string("Menu")}});
    EXPECT_EQ(defaults->value("Flag"), DefaultsValue(true));
    EXPECT_FALSE(fs::exists(_file));
    defaults->setValue("Other", true);
    EXPECT_THAT(contents(), testing::Not(HasSubstr("Label")));
    EXPECT_EQ(another()->value("Flag"), std::nullopt);
}

TEST_F(PropertyListDefaultsTest, PreferTheUsersValueUntilItIsRemoved) {
    auto defaults = open();
    defaults->registerDefaults({{"Flag", true}});
    defaults->setValue("Flag", false);
    EXPECT_EQ(defaults->value("Flag"), DefaultsValue(false));
    EXPECT_TRUE(defaults->removeValue("Flag"));
    EXPECT_EQ(defaults->value("Flag"), DefaultsValue(true));
    EXPECT_EQ(another()->value("Flag"), std::nullopt);
}

TEST_F(PropertyListDefaultsTest, KeepAUsersValueThatEqualsTheRegisteredOne) {
    auto defaults = open();
    defaults->registerDefaults({{"Flag", true}});
    defaults->setValue("Flag", true);
    EXPECT_EQ(another()->value("Flag"), DefaultsValue(true));
}

TEST_F(PropertyListDefaultsTest, TellObserversOfEverySetAlsoOfAnEqualValue) {
    auto defaults = open();
    observe(*defaults, "Flag");
    observe(*defaults, "Other");
    defaults->setValue("Flag", true);
    defaults->setValue("Flag", true);
    defaults->removeValue("Flag");
    EXPECT_THAT(_told, ElementsAre("values.Flag", "values.Flag", "values.Flag"));
    // The writes of this process come back as changes of the folder and are no news.
    _runLoop.handleEvents();
    EXPECT_THAT(_told, SizeIs(3));
}

TEST_F(PropertyListDefaultsTest, ShowObserversTheNewValueAndLetThemSetOthers) {
    auto defaults = open();
    std::optional<DefaultsValue> seen;
    defaults->addObserver("values.A", [&](const std::string&) {
        seen = defaults->value("A");
        defaults->addObserver("values.B", [&](const std::string& keyPath) { _told.push_back(keyPath); });
        defaults->setValue("B", std::int64_t(2));
    });
    defaults->setValue("A", std::int64_t(1));
    EXPECT_EQ(seen, DefaultsValue(std::int64_t(1)));
    EXPECT_THAT(_told, ElementsAre("values.B"));
}

TEST_F(PropertyListDefaultsTest, TellNoObserverThatWasRemovedNotEvenByAnother) {
    auto defaults = open();
    DefaultsObserver second = 0;
    const DefaultsObserver first =
        defaults->addObserver("values.A", [&](const std::string&) { defaults->removeObserver(second); });
    second = defaults->addObserver("values.A", [this](const std::string& keyPath) { _told.push_back(keyPath); });
    defaults->setValue("A", std::int64_t(1));
    defaults->removeObserver(first);
    defaults->setValue("A", std::int64_t(2));
    EXPECT_THAT(_told, IsEmpty());
}

TEST_F(PropertyListDefaultsTest, TellObserversOnlyOfKeysThatAnotherProcessChanged) {
    auto defaults = open();
    defaults->registerDefaults({{"C", true}});
    defaults->setValue("A", std::int64_t(1));
    defaults->setValue("B", std::int64_t(1));
    for (const char* key : {"A", "B", "C"})
        observe(*defaults, key);
    while (_runLoop.hasEvents())
        _runLoop.handleEvents();
    auto other = another();
    other->setValue("A", std::int64_t(2));
    // The user's value now says the same as the registered one.
    other->setValue("C", true);
    ASSERT_TRUE(_runLoop.handleEvents());
    EXPECT_THAT(_told, ElementsAre("values.A"));
    EXPECT_EQ(defaults->value("A"), DefaultsValue(std::int64_t(2)));
}

TEST_F(PropertyListDefaultsTest, TakeOverOtherProcessesChangesWhenWritingTheirOwn) {
    auto defaults = open();
    auto other = another();
    observe(*defaults, "A");
    other->setValue("A", std::int64_t(1));
    defaults->setValue("B", std::int64_t(1));
    EXPECT_EQ(defaults->value("A"), DefaultsValue(std::int64_t(1)));
    EXPECT_THAT(_told, ElementsAre("values.A"));
    EXPECT_EQ(another()->value("A"), DefaultsValue(std::int64_t(1)));
}

TEST_F(PropertyListDefaultsTest, TakeOverWhatOthersWroteWhenSynchronized) {
    auto defaults = open();
    another()->setValue("A", std::int64_t(1));
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_EQ(defaults->value("A"), DefaultsValue(std::int64_t(1)));
}

TEST_F(PropertyListDefaultsTest, MakeAnEmptyFileWhenSynchronizedForTheFirstTime) {
    auto defaults = open();
    defaults->registerDefaults({{"Flag", true}});
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_TRUE(fs::exists(_file));
    EXPECT_EQ(another()->value("Flag"), std::nullopt);
}

TEST_F(PropertyListDefaultsTest, NoticeThatTheFileOrItsFolderIsGone) {
    auto defaults = open();
    defaults->setValue("A", std::int64_t(1));
    observe(*defaults, "A");
    fs::remove_all(_file.parent_path());
    ASSERT_TRUE(_runLoop.handleEvents());
    EXPECT_EQ(defaults->value("A"), std::nullopt);
    EXPECT_THAT(_told, ElementsAre("values.A"));
    EXPECT_TRUE(defaults->setValue("B", true));
    while (_runLoop.hasEvents())
        _runLoop.handleEvents();
    another()->setValue("A", std::int64_t(3));
    ASSERT_TRUE(_runLoop.handleEvents());
    EXPECT_EQ(defaults->value("A"), DefaultsValue(std::int64_t(3)));
}

TEST_F(PropertyListDefaultsTest, LoseNothingWhenTwoProcessesWriteAtOnce) {
    constexpr int Count = 200;
    const auto writeAll = [this](const std::string& prefix) {
        PropertyListDefaults defaults(_runLoop, _file);
        for (int number = 0; number < Count; ++number)
            defaults.setValue(prefix + std::to_string(number), std::int64_t(number));
        return defaults.synchronize();
    };
    std::vector<pid_t> children;
    for (const char* prefix : {"first", "second"}) {
        const pid_t child = fork();
        if (child == 0)
            _exit(writeAll(prefix) ? 0 : 1);
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    auto defaults = open();
    for (int number = 0; number < Count; ++number) {
        EXPECT_EQ(defaults->value("first" + std::to_string(number)), DefaultsValue(std::int64_t(number)));
        EXPECT_EQ(defaults->value("second" + std::to_string(number)), DefaultsValue(std::int64_t(number)));
    }
}

TEST_F(PropertyListDefaultsTest, RestoreInitialValuesAndTellTheirObservers) {
    auto defaults = open();
    defaults->registerDefaults({{"Flag", true}, {"Label", std::string("Menu")}});
    defaults->setInitialValues({{"Flag", true}, {"Label", std::string("Menu")}, {"Unregistered", std::int64_t(3)}});
    defaults->setValue("Flag", false);
    defaults->setValue("FirstRun", true);
    for (const char* key : {"Flag", "Label", "Unregistered", "FirstRun"})
        observe(*defaults, key);
    defaults->revertToInitialValues();
    EXPECT_EQ(defaults->value("Flag"), DefaultsValue(true));
    EXPECT_EQ(defaults->value("Label"), DefaultsValue(std::string("Menu")));
    EXPECT_EQ(defaults->value("Unregistered"), DefaultsValue(std::int64_t(3)));
    EXPECT_EQ(defaults->value("FirstRun"), DefaultsValue(true));
    EXPECT_THAT(_told, ElementsAre("values.Flag", "values.Label", "values.Unregistered"));
    EXPECT_EQ(another()->value("Flag"), std::nullopt);
    EXPECT_EQ(another()->value("Unregistered"), DefaultsValue(std::int64_t(3)));
}

TEST_F(PropertyListDefaultsTest, MoveADamagedFileAsideAndSaySo) {
    writeContents("garbage");
    auto defaults = open();
    EXPECT_EQ(defaults->value("A"), std::nullopt);
    const auto kept = names(".damaged-");
    ASSERT_THAT(kept, SizeIs(1));
    std::string text;
    std::getline(std::ifstream(_file.parent_path() / kept.front()) >> std::ws, text);
    EXPECT_EQ(text, "garbage");
    EXPECT_TRUE(defaults->setValue("A", true));
    EXPECT_THAT(_log.takeLines(),
        ElementsAre("settings error: the settings in " + _file.string() + " are damaged; they were moved to "
            + (_file.parent_path() / kept.front()).string()));
}

TEST_F(PropertyListDefaultsTest, NeverOverwriteAnEarlierDamagedFile) {
    for (int number = 0; number < 3; ++number) {
        writeContents("garbage " + std::to_string(number));
        another();
    }
    EXPECT_THAT(names(".damaged-"), SizeIs(3));
}

TEST_F(PropertyListDefaultsTest, MoveAFileAsideThatIsDamagedWhileTheyAreInUse) {
    auto defaults = open();
    defaults->setValue("A", true);
    writeContents("");
    EXPECT_TRUE(defaults->setValue("B", true));
    EXPECT_THAT(names(".damaged-"), SizeIs(1));
    EXPECT_EQ(another()->value("B"), DefaultsValue(true));
}

TEST_F(PropertyListDefaultsTest, HoldAValueInMemoryWhenItCannotBeWritten) {
    // A file where the folder should be.
    std::ofstream(_folder / "tarragon") << "in the way";
    auto defaults = open();
    observe(*defaults, "A");
    EXPECT_FALSE(defaults->setValue("A", std::int64_t(1)));
    EXPECT_FALSE(defaults->setValue("A", std::int64_t(2)));
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_EQ(defaults->value("A"), DefaultsValue(std::int64_t(2)));
    EXPECT_THAT(_told, ElementsAre("values.A", "values.A"));

    // As soon as writing works, everything is written.
    fs::remove(_folder / "tarragon");
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_EQ(another()->value("A"), DefaultsValue(std::int64_t(2)));
    // Told once, however often it was tried.
    EXPECT_THAT(_log.takeLines(),
        ElementsAre(testing::StartsWith("settings error: the settings in " + _file.string() + " cannot be ")));
}

// A file is in the way of the folder, which nothing can be written to for as long.
class UnwrittenChangesTest : public PropertyListDefaultsTest {
protected:
    UnwrittenChangesTest() { std::ofstream(inTheWay()) << "in the way"; }
    fs::path inTheWay() const { return _folder / "tarragon"; }

    std::unique_ptr<PropertyListDefaults> openAndWatch() {
        auto defaults = open();
        defaults->addObserver(std::string(UnwrittenChangesKeyPath),
            [this, told = defaults.get()](const std::string&) { _states.push_back(told->hasUnwrittenChanges()); });
        return defaults;
    }

    std::vector<bool> _states;
};

TEST_F(UnwrittenChangesTest, AreToldOfWhenTheyComeAndWhenTheyAreWritten) {
    auto defaults = openAndWatch();
    EXPECT_FALSE(defaults->hasUnwrittenChanges());
    EXPECT_FALSE(defaults->setValue("A", true));
    EXPECT_FALSE(defaults->setValue("B", true));
    EXPECT_TRUE(defaults->hasUnwrittenChanges());
    EXPECT_THAT(_states, ElementsAre(true));
    fs::remove(inTheWay());
    EXPECT_TRUE(defaults->setValue("C", true));
    EXPECT_FALSE(defaults->hasUnwrittenChanges());
    EXPECT_TRUE(defaults->setValue("D", true));
    EXPECT_THAT(_states, ElementsAre(true, false));
}

TEST_F(UnwrittenChangesTest, AreWrittenByThemselvesOnceThereIsRoom) {
    auto defaults = openAndWatch();
    EXPECT_FALSE(defaults->setValue("A", true));
    _runLoop.advance(100);
    EXPECT_THAT(_states, ElementsAre(true));
    fs::remove(inTheWay());
    _runLoop.advance(30);
    EXPECT_THAT(_states, ElementsAre(true, false));
    EXPECT_EQ(another()->value("A"), DefaultsValue(true));
    EXPECT_THAT(_runLoop.validTimers(), IsEmpty());
}

TEST_F(UnwrittenChangesTest, HoldNothingWhileAnotherProcessKeepsTheFile) {
    const auto held = [] {
        const auto count = [](const char* folder) {
            return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
        };
        return std::pair(count("/proc/self/task"), count("/proc/self/fd"));
    };
    fs::remove(inTheWay());
    auto defaults = openAndWatch();
    ASSERT_TRUE(defaults->setValue("A", std::int64_t(1)));
    const int lock = ::open((_file.string() + ".lock").c_str(), O_RDWR);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    EXPECT_FALSE(defaults->setValue("A", std::int64_t(2)));
    const auto before = held();
    _runLoop.advance(65);
    EXPECT_EQ(held(), before);
    close(lock);
    _runLoop.advance(30);
    EXPECT_THAT(_states, ElementsAre(true, false));
    EXPECT_EQ(another()->value("A"), DefaultsValue(std::int64_t(2)));
}

TEST_F(UnwrittenChangesTest, AreWrittenAtTheEndAtTheLatest) {
    auto defaults = open();
    EXPECT_FALSE(defaults->setValue("A", true));
    fs::remove(inTheWay());
    defaults.reset();
    EXPECT_EQ(another()->value("A"), DefaultsValue(true));
}

TEST_F(UnwrittenChangesTest, AreSaidToBeLostAtTheEnd) {
    auto defaults = open();
    EXPECT_FALSE(defaults->setValue("A", true));
    EXPECT_THAT(_log.takeLines(), SizeIs(1));
    defaults.reset();
    EXPECT_THAT(_log.takeLines(), ElementsAre("settings error: settings that could not be written are lost"));
}

TEST_F(UnwrittenChangesTest, AreNotTriedAgainWhenNoFileCanHoldThem) {
    fs::remove(inTheWay());
    auto defaults = openAndWatch();
    EXPECT_FALSE(defaults->setValue("A", std::string("a\0b", 3)));
    EXPECT_TRUE(defaults->hasUnwrittenChanges());
    EXPECT_THAT(_runLoop.validTimers(), IsEmpty());
}

TEST_F(PropertyListDefaultsTest, LeaveAFileAloneThatCannotBeRead) {
    fs::create_directories(_file);
    auto defaults = open();
    EXPECT_FALSE(defaults->setValue("A", true));
    EXPECT_EQ(defaults->value("A"), DefaultsValue(true));
    EXPECT_TRUE(fs::is_directory(_file));
    EXPECT_THAT(names(".damaged-"), IsEmpty());
    EXPECT_THAT(_log.takeLines(), ElementsAre(HasSubstr("cannot be read")));
}

TEST_F(PropertyListDefaultsTest, LeaveAProtectedFileAlone) {
    if (geteuid() == 0)
        GTEST_SKIP() << "nothing is protected from root";
    another()->setValue("A", std::int64_t(1));
    fs::permissions(_file, fs::perms::owner_read);
    EXPECT_FALSE(another()->setValue("A", std::int64_t(2)));
    EXPECT_EQ(another()->value("A"), DefaultsValue(std::int64_t(1)));
}

TEST_F(PropertyListDefaultsTest, DoNotHangWithAProcessThatHoldsTheLock) {
    auto defaults = open();
    ASSERT_TRUE(defaults->setValue("A", std::int64_t(1)));
    const int lock = ::open((_file.string() + ".lock").c_str(), O_RDWR);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    EXPECT_FALSE(defaults->setValue("A", std::int64_t(2)));
    EXPECT_EQ(defaults->value("A"), DefaultsValue(std::int64_t(2)));
    close(lock);
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_EQ(another()->value("A"), DefaultsValue(std::int64_t(2)));
}

TEST_F(PropertyListDefaultsTest, HoldTextThatNoFileCanHoldInMemory) {
    const DefaultsValue text = std::string("a\0b", 3);
    auto defaults = open();
    EXPECT_FALSE(defaults->setValue("A", text));
    EXPECT_FALSE(defaults->setValue("B", true));
    EXPECT_EQ(defaults->value("A"), text);
    EXPECT_EQ(another()->value("B"), DefaultsValue(true));
    EXPECT_TRUE(defaults->setValue("A", std::string("ab")));
    EXPECT_THAT(_log.takeLines(), ElementsAre("settings error: the setting A has a null byte in it and is not kept"));
}

TEST_F(PropertyListDefaultsTest, KeepTheFileBehindASymbolicLink) {
    const fs::path target = _folder / "elsewhere.plist";
    std::ofstream(target) << "<plist version=\"1.0\"><dict><key>A</key><integer>1</integer></dict></plist>";
    fs::create_directories(_file.parent_path());
    fs::create_symlink(target, _file);
    auto defaults = open();
    EXPECT_EQ(defaults->value("A"), DefaultsValue(std::int64_t(1)));
    EXPECT_TRUE(defaults->setValue("A", std::int64_t(2)));
    EXPECT_TRUE(fs::is_symlink(_file));
    EXPECT_EQ(another()->value("A"), DefaultsValue(std::int64_t(2)));
}

TEST_F(PropertyListDefaultsTest, KeepTheFilesPermissions) {
    another()->setValue("A", true);
    EXPECT_EQ(fs::status(_file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    const fs::perms shared = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(_file, shared);
    another()->setValue("A", false);
    EXPECT_EQ(fs::status(_file).permissions(), shared);
}

TEST_F(PropertyListDefaultsTest, LiveInMemoryWithoutAFile) {
    PropertyListDefaults defaults(_runLoop, {});
    defaults.registerDefaults({{"Flag", true}});
    observe(defaults, "Flag");
    EXPECT_FALSE(defaults.setValue("Flag", false));
    EXPECT_EQ(defaults.value("Flag"), DefaultsValue(false));
    EXPECT_THAT(_told, ElementsAre("values.Flag"));
    EXPECT_FALSE(defaults.synchronize());
    defaults.setInitialValues({{"Flag", true}});
    defaults.revertToInitialValues();
    EXPECT_EQ(defaults.value("Flag"), DefaultsValue(true));
}

class PropertyListDefaultsFile : public PropertyListDefaultsTest {
protected:
    // Sets or, for nullptr, unsets a variable until the end of the test.
    void setVariable(const char* name, const char* value) {
        const char* before = std::getenv(name);
        _before.emplace_back(name, before ? std::optional<std::string>(before) : std::nullopt);
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~PropertyListDefaultsFile() override {
        for (const auto& [name, value] : _before) {
            if (value)
                setenv(name.c_str(), value->c_str(), 1);
            else
                unsetenv(name.c_str());
        }
    }

private:
    std::vector<std::pair<std::string, std::optional<std::string>>> _before;
};

TEST_F(PropertyListDefaultsFile, IsInTheUsersConfigurationFolder) {
    setVariable("XDG_CONFIG_HOME", "/config");
    setVariable("HOME", "/home/user");
    EXPECT_EQ(PropertyListDefaults::fileOfUser(), "/config/tarragon/tarragon.plist");
}

TEST_F(PropertyListDefaultsFile, IsBelowTheHomeFolderByDefault) {
    setVariable("HOME", "/home/user");
    for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative"}) {
        setVariable("XDG_CONFIG_HOME", unusable);
        EXPECT_EQ(PropertyListDefaults::fileOfUser(), "/home/user/.config/tarragon/tarragon.plist");
    }
    setVariable("XDG_CONFIG_HOME", nullptr);
}

TEST_F(PropertyListDefaultsFile, IsNoneWithoutEitherAndSaysSo) {
    setVariable("XDG_CONFIG_HOME", nullptr);
    setVariable("HOME", nullptr);
    EXPECT_TRUE(PropertyListDefaults::fileOfUser().empty());
    EXPECT_THAT(_log.takeLines(), ElementsAre(HasSubstr("neither XDG_CONFIG_HOME nor HOME")));
}

} // namespace tarragon
