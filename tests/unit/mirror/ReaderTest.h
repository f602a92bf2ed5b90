#pragma once

#include "MenuTitles.h"
#include "fake/FakeFillingThreads.h"
#include "fake/FakePlatform.h"
#include "mirror/AppAccessibility.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {

// A reader of an application named Mail with a menu bar of Apple, File and Edit.
class ReaderTest : public testing::Test {
protected:
    ReaderTest() {
        fake.activate(mail);
        reader = AppAccessibility::initWithFocusedApp(fake.platform(), std::make_unique<FakeFillingThreads>(fillings));
    }

    Menu& root() { return *reader->menu(); }
    // Opens the submenu of a top-level item and answers its titles.
    std::vector<std::string> open(const std::string& title) {
        Menu* submenu = fake.menuPresenter.openSubmenu(root(), title);
        fake.menuPresenter.closeMenus();
        return submenu ? titlesOf(*submenu) : std::vector<std::string>{"no submenu"};
    }
    std::shared_ptr<MenuItem> itemAt(const std::string& top, const std::string& title) {
        return root().itemWithTitle(top)->submenu()->itemWithTitle(title);
    }

    FakePlatform fake;
    FakeApplication mail = fake.addApplication("Mail");
    FakeMenu apple = mail.menu("Apple").item("About This Computer");
    FakeMenu file = mail.menu("File").item("New").separator().item("Close");
    FakeMenu edit = mail.menu("Edit").item("Cut").item("Copy").item("Paste");
    // Never run: whatever opens is read then.
    std::shared_ptr<FakeFillingThreads::Work> fillings = std::make_shared<FakeFillingThreads::Work>();
    std::shared_ptr<AppAccessibility> reader;
};

} // namespace tarragon
