#pragma once

#include "fake/FakePanelToolkit.h"
#include "fake/FakePlatform.h"
#include "mirror/AppAccessibility.h"
#include "panels/TarragonHackButton.h"
#include "panels/TarragonPanel.h"
#include "panels/TarragonPanelController.h"
#include "panels/TarragonPanelOwner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tarragon {

class RecordingPanelOwner : public TarragonPanelOwner {
public:
    void popUpMenu() override { asked.emplace_back("popUpMenu"); }
    void popUpIgnoreMenu() override { asked.emplace_back("popUpIgnoreMenu"); }
    std::shared_ptr<Menu> contextMenu() override {
        asked.emplace_back("contextMenu");
        return context;
    }

    std::vector<std::string> asked;
    std::shared_ptr<Menu> context = std::make_shared<Menu>("Ignore");
};

// A panel of 600 by 24 points over a window of Mail, whose top-left corner is at (100, 200) of a screen of 1440 by 900.
class PanelTest : public testing::Test {
protected:
    PanelTest()
        : mail(fake.addApplication("Mail"))
        , services{toolkit, fake.menuPresenter, fake.displays, fake.runLoop} {
        inbox = mail.window({.title = "Inbox", .positionCG = Point{100, 200}, .size = Size{600, 400}});
        fake.activate(mail);
        reader = AppAccessibility::initWithFocusedApp(fake.platform());
        reader->update();
        panel = std::make_unique<TarragonPanel>(services, Rect{{100, 700}, {600, 24}});
        panel->setAppAccess(reader);
        controller = std::make_unique<TarragonPanelController>(*panel);
        panel->setWindowController(controller.get());
    }

    FakePanelToolkit::Window& window() { return toolkit.latest(); }

    std::shared_ptr<TarragonHackButton> makeTitle(const std::string& text, double x, bool hasMenu = true) {
        auto title = TarragonHackButton::initWithTitleWithPositionByWidth(text, x, {services, owner, *controller});
        if (hasMenu) {
            auto menu = std::make_shared<Menu>(text);
            menu->addItem(std::make_shared<MenuItem>("Item of " + text, "act", ""));
            title->setMenu(menu);
        }
        return title;
    }
    // Titles 60 points apart.
    void addTitles(const std::vector<std::string>& texts) {
        double x = 0;
        std::vector<std::shared_ptr<PanelButton>> subviews;
        for (const std::string& text : texts) {
            titles.push_back(makeTitle(text, x));
            subviews.push_back(titles.back());
            x += 60;
        }
        panel->setSubviews(subviews);
    }
    // The title of the menu that is open, or nothing.
    std::string openMenu() const {
        return fake.menuPresenter.openMenus().empty() ? "" : fake.menuPresenter.openMenus().front()->title();
    }

    FakePlatform fake;
    FakeApplication mail;
    Element inbox;
    FakePanelToolkit toolkit;
    RecordingPanelOwner owner;
    PanelServices services;
    std::shared_ptr<AppAccessibility> reader;
    std::unique_ptr<TarragonPanel> panel;
    std::unique_ptr<TarragonPanelController> controller;
    std::vector<std::shared_ptr<TarragonHackButton>> titles;
};

} // namespace tarragon
