#pragma once

#include "FakeWindows.h"

#include "bus/AtspiFakeBus.h"
#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibletree/AtspiElement.h"
#include "platform/linux/accessibletree/AtspiRole.h"
#include "platform/linux/atspi/LinuxAccessibility.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace tarragon {

inline std::string stringIn(const Value& value) {
    const auto* text = valueAs<std::string>(value);
    return text != nullptr ? *text : "nil";
}

inline Element elementIn(const Value& value) {
    const auto* element = valueAs<Element>(value);
    return element != nullptr ? *element : Element();
}

inline std::vector<Element> elementsIn(const Value& value) {
    const auto* elements = valueAs<std::vector<Element>>(value);
    return elements != nullptr ? *elements : std::vector<Element>{};
}

// The back end on windows that are plain records and on a bus with one application, which has the process of the test.
class LinuxAccessibilityTest : public ::testing::Test {
protected:
    LinuxAccessibilityTest() {
        ::setenv("AT_SPI_BUS_ADDRESS", bus.address().c_str(), 1);
        registry.change([&] {
            registry.objects[Root] = {};
            registry.foreignChildren.emplace_back(application.busName(), Root);
        });
        application.change([&] { application.objects[Root] = {AtspiRoleApplication, "Accessible", 0, {}, "", ""}; });
    }
    ~LinuxAccessibilityTest() override { ::unsetenv("AT_SPI_BUS_ADDRESS"); }

    static constexpr std::uint64_t Visible = (1ULL << 8U) | (1ULL << 24U) | (1ULL << 30U);
    static constexpr const char* Root = "/org/a11y/atspi/accessible/root";

    static std::string framePath(std::uint32_t window) { return "/frame" + std::to_string(window); }
    static std::string barPath(std::uint32_t window) { return framePath(window) + "/box/bar"; }

    // A window of the process of the test, in front of those before it, with a frame on the bus.
    WindowDescription& addWindow(std::uint32_t window, const std::string& title) {
        application.change([&] {
            auto& objects = application.objects;
            objects[Root].children.push_back(framePath(window));
            objects[framePath(window)] = {AtspiRoleFrame, title, Visible, {framePath(window) + "/box"}, "", Root};
            objects[framePath(window) + "/box"] = {
                AtspiRoleFiller, "", Visible, {framePath(window) + "/text"}, "", framePath(window)};
            objects[framePath(window) + "/text"] = {AtspiRoleText, "", Visible, {}, "", framePath(window) + "/box"};
        });
        return windows.add(window, title, ownProcess);
    }
    // With one item, "File".
    void addMenuBar(std::uint32_t window) {
        application.change([&] {
            auto& objects = application.objects;
            objects[framePath(window) + "/box"].children.push_back(barPath(window));
            objects[barPath(window)] = {
                AtspiRoleMenuBar, "", Visible, {barPath(window) + "/file"}, "", framePath(window) + "/box"};
            objects[barPath(window) + "/file"] = {AtspiRoleMenu, "File", Visible,
                {barPath(window) + "/new", barPath(window) + "/open"}, "", barPath(window)};
            for (const std::string name : {"new", "open"})
                objects[barPath(window) + "/" + name] = {
                    AtspiRoleMenuItem, name, Visible, {}, "", barPath(window) + "/file"};
        });
    }
    void removeMenuBar(std::uint32_t window) {
        application.change([&] {
            std::erase(application.objects[framePath(window) + "/box"].children, barPath(window));
            application.objects.erase(barPath(window));
        });
    }

    Element systemWide() { return accessibility.systemWideElement(); }
    Element focusedApplication() {
        return elementIn(accessibility.copyAttributeValue(systemWide(), attribute::FocusedApplication));
    }
    Element focusedWindow() {
        return elementIn(accessibility.copyAttributeValue(focusedApplication(), attribute::FocusedWindow));
    }
    Element menuBar() { return elementIn(accessibility.copyAttributeValue(focusedApplication(), attribute::MenuBar)); }
    // Where the menu bar stands that the application in front shows.
    std::string menuBarPath() {
        const Element found = menuBar();
        return found ? AtspiElement::of(found)->reference.path : "none";
    }
    Element childOf(const Element& element, std::size_t index = 0) {
        const auto children = elementsIn(accessibility.copyAttributeValue(element, attribute::Children));
        return index < children.size() ? children[index] : Element();
    }
    std::uint64_t messagesSent() { return accessibility.statistics().messagesSent; }
    std::uint64_t roundTrips() { return accessibility.statistics().roundTrips; }

    const std::int64_t ownProcess = ::getpid();
    AtspiFakeBus bus;
    AtspiFakeApplication registry{bus, "org.a11y.atspi.Registry"};
    AtspiFakeApplication application{bus};
    FakeWindowSource windows;
    FakeApplicationDirectory directory;
    // Not told apart from the application, whose process is the same.
    LinuxAccessibility accessibility{windows, directory, 0};
};

} // namespace tarragon
