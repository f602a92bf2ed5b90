#pragma once

#include "fake/FakePanelToolkit.h"
#include "fake/FakePlatform.h"
#include "mirror/Menu.h"
#include "panels/RKMenuBar.h"
#include "panels/RKMenuBarOwner.h"
#include "panels/rules/ButtonStyle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tarragon {

class RecordingBarOwner : public RKMenuBarOwner {
public:
    void popUpMenu() override { asked.emplace_back("popUpMenu"); }
    void popUpIgnoreMenu() override { asked.emplace_back("popUpIgnoreMenu"); }
    std::shared_ptr<Menu> contextMenu() override { return nullptr; }
    std::shared_ptr<Menu> addTarragonMenuToMenu() override { return ownMenu; }
    void setStartAtLogin(bool startsAtLogin) override { startsAtLoginSet.push_back(startsAtLogin); }

    std::vector<std::string> asked;
    std::vector<bool> startsAtLoginSet;
    std::shared_ptr<Menu> ownMenu = std::make_shared<Menu>("Tarragon");
};

// A bar of the second screen, which is at the right of the first one and whose top is at 1124. The mirrored menu is
// Mail's; titles are 26 points wide and 8 more a byte.
class RKMenuBarTest : public testing::Test {
protected:
    RKMenuBarTest()
        : services{toolkit, fake.menuPresenter, fake.displays, fake.runLoop} {
        attachSecondScreen();
        fake.displays.setMouseLocationNS({100, 100});
        fake.defaults.registerDefaults(
            {{"EnableScreenTop", true}, {"FontSizeSmall", std::int64_t{12}}, {"TitleFontSizeSmall", std::int64_t{13}}});
        mail = mirroredMenu("Mail", {"Mail", "File", "Edit"});
    }

    static constexpr Rect SecondScreen{{1440, 100}, {1280, 1024}};
    static constexpr Rect Flush{{1440, 1102}, {1280, 22}};
    static constexpr Rect Hidden{{1440, 1152}, {1280, 22}};
    static constexpr Point AtTopOfSecondScreen{2000, 1124};

    static Screen screen(const Rect& frame) { return {frame, frame}; }
    void attachSecondScreen() { fake.displays.setScreens({screen({{0, 0}, {1440, 900}}), screen(SecondScreen)}); }
    void detachSecondScreen() { fake.displays.setScreens({screen({{0, 0}, {1440, 900}})}); }
    void set(const std::string& key, const DefaultsValue& value) { (void)fake.defaults.setValue(key, value); }

    // With a submenu of one item under each title; an empty title stands for a separator.
    static std::shared_ptr<Menu> mirroredMenu(const std::string& title, const std::vector<std::string>& titles) {
        auto menu = std::make_shared<Menu>(title);
        for (const std::string& text : titles) {
            if (text.empty()) {
                menu->addItem(MenuItem::separatorItem());
                continue;
            }
            auto item = std::make_shared<MenuItem>(text, "", "");
            auto submenu = std::make_shared<Menu>(text);
            submenu->addItem(std::make_shared<MenuItem>("Item of " + text, "act", ""));
            item->setSubmenu(submenu);
            menu->addItem(item);
        }
        return menu;
    }

    std::unique_ptr<RKMenuBar> newBar() {
        return std::make_unique<RKMenuBar>(RKMenuBar::Surroundings{services, fake.defaults, &fake.inputEvents, owner});
    }
    // As whoever owns bars makes one.
    void makeBar() {
        bar = newBar();
        bar->setDisplayScreen(1);
        bar->setMenu(mail);
        bar->refreshPanel();
    }
    void makePlacedBar() {
        makeBar();
        bar->handleAppChange();
    }
    void movePointerTo(const Point& pointNS) {
        fake.displays.setMouseLocationNS(pointNS);
        bar->slideOutCheck();
    }
    // A slide comes to its end.
    void finishSlide() { fake.runLoop.advance(1); }

    FakePanelToolkit::Window& window() { return toolkit.latest(); }
    Rect titleFrame(const std::string& title) {
        const ButtonContent* button = window().button(title);
        return button ? button->frame : Rect();
    }
    // The title of the menu that is open, or nothing.
    std::string openMenu() const {
        return fake.menuPresenter.openMenus().empty() ? "" : fake.menuPresenter.openMenus().front()->title();
    }

    FakePlatform fake;
    FakePanelToolkit toolkit;
    RecordingBarOwner owner;
    PanelServices services;
    std::shared_ptr<Menu> mail;
    std::unique_ptr<RKMenuBar> bar;
};

} // namespace tarragon
