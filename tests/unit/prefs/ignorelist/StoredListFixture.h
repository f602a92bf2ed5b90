#pragma once

#include "fake/FakeDefaults.h"
#include "fake/FakeInstalledApplications.h"
#include "ignore/IgnoreDictionary.h"
#include "platform/PreferenceKeys.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarragon {

// An ignore list that is stored in memory, with applications that are called org.example.NAME.
class StoredListFixture : public testing::Test {
protected:
    static TarragonBlacklist entry(const std::string& name, std::vector<std::string> titles = {}, bool all = false) {
        TarragonBlacklist made;
        made.setAppBundleID("org.example." + name);
        made.setAppName(name);
        made.setIgnoreAllAppWindows(all);
        made.setWindowsWithTitlesToIgnore(std::move(titles));
        return made;
    }
    // App0, App1 and so on.
    static std::vector<TarragonBlacklist> manyEntries(std::size_t count) {
        std::vector<TarragonBlacklist> made;
        made.reserve(count);
        for (std::size_t number = 0; number < count; ++number)
            made.push_back(entry("App" + std::to_string(number)));
        return made;
    }
    // Stored as another part of the program would: whoever observes the list is told.
    void store(const std::vector<TarragonBlacklist>& entries) {
        IgnoreDictionary dictionary;
        for (const TarragonBlacklist& each : entries)
            ASSERT_TRUE(dictionary.setEntry(*each.appBundleID(), each));
        ASSERT_TRUE(dictionary.store(defaults));
    }
    std::optional<IgnoreDictionary> stored() { return IgnoreDictionary::load(defaults); }
    std::optional<TarragonBlacklist> storedEntry(const std::string& name) {
        const auto dictionary = stored();
        return dictionary ? dictionary->entry("org.example." + name) : std::nullopt;
    }
    std::vector<std::string> storedTitles(const std::string& name) {
        const auto found = storedEntry(name);
        return found ? found->windowsWithTitlesToIgnore().value_or(std::vector<std::string>())
                     : std::vector<std::string>();
    }

    FakeDefaults defaults;
    FakeInstalledApplications installed;
};

} // namespace tarragon
