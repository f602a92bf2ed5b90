// How long one question takes whether the window in front is ignored, with the list read and unarchived every time. The
// peers in the same run are an unpacking of the whole list, and the matching alone with nothing to read.

#include "fake/FakeDefaults.h"
#include "fake/FakeWorkspace.h"
#include "ignore/IgnoreList.h"
#include "platform/PreferenceKeys.h"

#include <benchmark/benchmark.h>

#include <string>

namespace tarragon {
namespace {

constexpr int NumberOfApplications = 1000;
constexpr int NumberOfPatterns = 100;

class Window : public WindowInFront {
public:
    std::optional<std::string> focusedWindowTitle() override {
        return "Minutes of the meeting, page 12 of 30 - Editor";
    }
    bool isFocusedWindowFullScreen() override { return false; }
};

std::string identifier(int application) {
    return "org.example.department.Application" + std::to_string(application);
}

// None of the patterns matches, so that all of them are tried; most have to be searched for within the title.
TarragonBlacklist entry(int application) {
    TarragonBlacklist entry;
    entry.setAppBundleID(identifier(application));
    entry.setAppName("Application " + std::to_string(application));
    std::vector<std::string> titles;
    titles.reserve(NumberOfPatterns);
    for (int number = 0; number < NumberOfPatterns; ++number)
        titles.push_back("*page ?? of " + std::to_string(100 + number) + "*");
    entry.setWindowsWithTitlesToIgnore(std::move(titles));
    return entry;
}

Data storedList() {
    IgnoreDictionary dictionary;
    for (int application = 0; application < NumberOfApplications; ++application)
        dictionary.setEntry(identifier(application), entry(application));
    return dictionary.archivedData();
}

const Data& list() {
    static const Data bytes = storedList();
    return bytes;
}

void windowIsIgnored(benchmark::State& state) {
    FakeDefaults defaults;
    defaults.setValue(preference::IgnoreWindowList, list());
    FakeWorkspace workspace;
    workspace.setActiveApplication(RunningApplication{"Editor", 7, identifier(NumberOfApplications - 1), ""});
    Window window;
    IgnoreList ignoreList(defaults, workspace, window, nullptr);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(ignoreList.windowIsIgnored());
    state.counters["bytes stored"] = static_cast<double>(list().size());
}

void unpackingTheWholeList(benchmark::State& state) {
    while (state.KeepRunning()) {
        const std::optional<IgnoreDictionary> dictionary = IgnoreDictionary::unarchive(list());
        for (const std::string& key : dictionary->allKeys())
            benchmark::DoNotOptimize(dictionary->entry(key));
    }
}

void matchingAlone(benchmark::State& state) {
    const TarragonBlacklist blacklist = entry(0);
    Window window;
    const std::optional<std::string> title = window.focusedWindowTitle();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(blacklist.ignoresWindow(title));
}

// What an action of the user costs beside reading: the archive of the whole list.
void archivingTheWholeList(benchmark::State& state) {
    const std::optional<IgnoreDictionary> dictionary = IgnoreDictionary::unarchive(list());
    while (state.KeepRunning())
        benchmark::DoNotOptimize(dictionary->archivedData());
}

} // namespace

// Registered by hand: the library's macro for it counts with an extension that newer compilers warn of.
void registerBenchmarks() {
    benchmark::RegisterBenchmark("windowIsIgnored", windowIsIgnored)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("unpackingTheWholeList", unpackingTheWholeList)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("archivingTheWholeList", archivingTheWholeList)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("matchingAlone", matchingAlone)->Unit(benchmark::kMicrosecond);
}

} // namespace tarragon

int main(int argumentCount, char** arguments) {
    benchmark::Initialize(&argumentCount, arguments);
    tarragon::registerBenchmarks();
    return benchmark::RunSpecifiedBenchmarks() > 0 ? 0 : 1;
}
