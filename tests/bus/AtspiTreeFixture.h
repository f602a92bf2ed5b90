#pragma once

#include "bus/AtspiFakeBus.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibilitybus/AtspiSessionBus.h"
#include "platform/linux/accessibletree/AtspiMenuMemory.h"
#include "platform/linux/accessibletree/AtspiRole.h"
#include "platform/linux/accessibletree/AtspiTree.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <unistd.h>

namespace tarragon {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Place = AtspiElement::Place;

inline constexpr std::uint64_t Visible = (1ULL << 8U) | (1ULL << 24U) | (1ULL << 30U);

class AtspiTreeTest : public ::testing::Test {
protected:
    AtspiTreeTest() { ::setenv("AT_SPI_BUS_ADDRESS", bus.address().c_str(), 1); }
    ~AtspiTreeTest() override { ::unsetenv("AT_SPI_BUS_ADDRESS"); }

    // Registers objects below a menu bar: "/bar" with one item "/bar/file" and as many entries as wanted.
    void makeGtkMenu(int entries) {
        application.change([&] {
            application.objects["/bar"] = {AtspiRoleMenuBar, "", Visible, {"/bar/file"}, "", ""};
            FakeAccessible file{AtspiRoleMenu, "File  ", Visible, {}, "<Alt>f;<Alt>f;", "/bar"};
            for (int index = 0; index < entries; ++index) {
                const std::string path = "/bar/file/" + std::to_string(index);
                file.children.push_back(path);
                application.objects[path] = {index % 5 == 4 ? std::uint32_t{AtspiRoleMenu} : AtspiRoleMenuItem,
                    "Item " + std::to_string(index), Visible, {}, ";;<Primary>n", "/bar/file"};
            }
            application.objects["/bar/file"] = file;
        });
    }

    void makeQtMenu(int entries) {
        application.change([&] {
            application.objects["/bar"] = {AtspiRoleMenuBar, "", Visible, {"/bar/file"}, "", ""};
            application.objects["/bar/file"] = {AtspiRoleMenuItem, "File", Visible, {"/popup"}, "Alt+F", "/bar"};
            FakeAccessible popup{AtspiRolePopupMenu, "", 0, {}, "", "/bar/file"};
            for (int index = 0; index < entries; ++index) {
                const std::string path = "/popup/" + std::to_string(index);
                popup.children.push_back(path);
                application.objects[path] = {
                    AtspiRoleMenuItem, "Item " + std::to_string(index), 0, {}, "Ctrl+N", "/popup"};
                if (index % 5 == 4) {
                    application.objects[path].children = {path + "/popup"};
                    application.objects[path + "/popup"] = {AtspiRolePopupMenu, "", 0, {}, "", path};
                }
            }
            application.objects["/popup"] = popup;
        });
    }

    Element element(
        const std::string& path, AtspiToolkit toolkit, Place place = Place::Elsewhere, std::int64_t childCount = -1) {
        auto handle = std::make_shared<AtspiElement>();
        handle->kind = AtspiElement::Kind::Node;
        handle->toolkit = toolkit;
        handle->place = place;
        handle->childCount = childCount;
        handle->processIdentifier = 42;
        handle->reference = {application.busName(), path};
        return Element(std::move(handle));
    }

    static std::vector<Element> elements(const Value& value) {
        const auto* list = valueAs<std::vector<Element>>(value);
        return list != nullptr ? *list : std::vector<Element>{};
    }

    static std::string string(const Value& value) {
        const auto* text = valueAs<std::string>(value);
        return text != nullptr ? *text : "nil";
    }

    // What the menu reader asks when the menu of an item opens. Gives the titles.
    static std::vector<std::string> readLevel(AtspiTree tree, const Element& item) {
        std::vector<std::string> titles;
        for (const Element& menu : elements(tree.attributeValue(item, attribute::Children))) {
            if (string(tree.attributeValue(menu, attribute::Role)) != role::Menu)
                continue;
            for (const Element& entry : elements(tree.attributeValue(menu, attribute::Children))) {
                tree.attributeNames(entry);
                titles.push_back(string(tree.attributeValue(entry, attribute::Title)));
                for (const std::string_view name : {attribute::Role, attribute::Enabled, attribute::MenuItemMarkChar,
                         attribute::MenuItemCmdChar, attribute::MenuItemCmdModifiers, attribute::MenuItemCmdGlyph,
                         attribute::MenuItemPrimaryUIElement, attribute::MenuItemShortcutText})
                    tree.attributeValue(entry, name);
                for (const Element& submenu : elements(tree.attributeValue(entry, attribute::Children))) {
                    tree.attributeNames(submenu);
                    tree.attributeValue(submenu, attribute::Role);
                    tree.attributeValue(submenu, attribute::Title);
                }
            }
        }
        return titles;
    }

    // Reads the menu of "/bar/file" in a batch of its own and tells how often that waited.
    std::uint64_t roundTripsOfLevel(AtspiToolkit toolkit, std::size_t expectedItems) {
        AtspiNodes nodes;
        const std::uint64_t before = connection.statistics().roundTrips;
        const auto titles = readLevel(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel),
            element("/bar/file", toolkit, Place::InMenuBar));
        EXPECT_EQ(titles.size(), expectedItems);
        return connection.statistics().roundTrips - before;
    }

    AtspiFakeBus bus;
    AtspiFakeApplication application{bus};
    AtspiSessionBus sessionBus;
    AtspiConnection connection{sessionBus};
    AtspiMenuMemory memory;
    AtspiNodes batch;
    AtspiTree tree{connection, batch, memory, AtspiTree::Reading::OneLevel};
};

} // namespace tarragon
