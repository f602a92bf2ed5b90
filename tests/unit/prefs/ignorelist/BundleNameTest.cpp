#include "prefs/ignorelist/BundleName.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

ApplicationBundle bundle(std::optional<std::string> displayName, std::optional<std::string> name,
    std::optional<std::string> executable, const std::string& identifier = "org.example.Editor") {
    return {"/usr/bin/file", identifier, std::move(displayName), std::move(name), std::move(executable), ""};
}

TEST(BundleName, IsTheFirstThatTheApplicationHas) {
    EXPECT_EQ(nameOfBundle(bundle("Display", "Name", "program")), "Display");
    EXPECT_EQ(nameOfBundle(bundle(std::nullopt, "Name", "program")), "Name");
    EXPECT_EQ(nameOfBundle(bundle(std::nullopt, std::nullopt, "program")), "program");
}

TEST(BundleName, MayBeEmptyWhereTheApplicationSaysSo) {
    EXPECT_EQ(nameOfBundle(bundle("", "Name", "program")), "");
}

TEST(BundleName, IsMadeFromTheIdentifierRatherThanTheFile) {
    const std::pair<const char*, const char*> rows[] = {
        {"org.example.Editor", "org.example"},
        {"org.example.", "org.example"},
        {"Editor", "Editor"},
        {".Editor", ".Editor"},
        {"folder/org.example.Editor", "org.example"},
        {"folder.with.dots/Editor", "Editor"},
        {"folder/org.example.Editor/", "org.example"},
        {"", "unknown"},
        {"/", "unknown"},
    };
    for (const auto& [identifier, name] : rows)
        EXPECT_EQ(nameOfBundle(bundle(std::nullopt, std::nullopt, std::nullopt, identifier)), name) << identifier;
}

} // namespace
} // namespace tarragon
