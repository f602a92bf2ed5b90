// What a switch of applications costs on one, two and five screen-top bars, from the new menus to the redrawn titles,
// beside as many plain menu bars of the toolkit with the same menus, without a display.

#include "Statistics.h"

#include "fake/FakePlatform.h"
#include "mirror/Menu.h"
#include "mirror/MenuItem.h"
#include "panels/RKMenuBar.h"
#include "panels/widgets/QtPanelToolkit.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QMenuBar>

namespace {

using namespace tarragon;

constexpr int Rounds = 101;
constexpr int TitlesOfMenuBar = 10;
constexpr int ItemsOfMenu = 20;
constexpr double ScreenWidth = 1280;

std::string titleOf(int application, int index) {
    std::string title = application ? "Title " : "Menu ";
    title += std::to_string(index);
    return title;
}

std::shared_ptr<Menu> menusOf(int application) {
    auto menus = std::make_shared<Menu>(titleOf(application, 0));
    for (int index = 0; index < TitlesOfMenuBar; ++index) {
        const auto item = std::make_shared<MenuItem>(titleOf(application, index), "", "");
        item->setSubmenu(std::make_shared<Menu>(item->title()));
        for (int number = 0; number < ItemsOfMenu; ++number)
            item->submenu()->addItem(std::make_shared<MenuItem>(titleOf(application, number), "", ""));
        menus->addItem(item);
    }
    return menus;
}

class NoOwner : public RKMenuBarOwner {
public:
    void popUpMenu() override { }
    void popUpIgnoreMenu() override { }
    std::shared_ptr<Menu> contextMenu() override { return nullptr; }
    std::shared_ptr<Menu> addTarragonMenuToMenu() override { return nullptr; }
    void setStartAtLogin(bool) override { }
};

// Draws every window, also those that no screen of the offscreen platform shows.
void finishDrawing() {
    QCoreApplication::processEvents();
    QImage picture(static_cast<int>(ScreenWidth), 22, QImage::Format_ARGB32_Premultiplied);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible())
            widget->render(&picture);
    }
}

double costOfBars(std::size_t count) {
    FakePlatform fake;
    std::vector<Screen> screens;
    for (std::size_t index = 0; index <= count; ++index) {
        const Rect frame{{ScreenWidth * static_cast<double>(index), 0}, {ScreenWidth, 800}};
        screens.push_back({frame, frame});
    }
    fake.displays.setScreens(screens);
    fake.defaults.registerDefaults({{"EnableScreenTop", true}, {"FontSizeSmall", std::int64_t{12}}});
    QtPanelToolkit toolkit(fake.displays, nullptr);
    NoOwner owner;
    std::vector<std::unique_ptr<RKMenuBar>> bars;
    for (std::size_t index = 0; index < count; ++index) {
        bars.push_back(std::make_unique<RKMenuBar>(RKMenuBar::Surroundings{
            {toolkit, fake.menuPresenter, fake.displays, fake.runLoop}, fake.defaults, &fake.inputEvents, owner}));
        bars.back()->setDisplayScreen(static_cast<int>(index) + 1);
        bars.back()->setMenu(menusOf(0));
        bars.back()->refreshPanel();
    }
    Samples samples;
    for (int round = 0; round < Rounds; ++round) {
        const auto menus = menusOf(round % 2);
        samples.time([&] {
            for (const auto& bar : bars) {
                bar->setMenu(menus);
                bar->handleAppChange();
            }
            finishDrawing();
        });
    }
    return samples.median();
}

double costOfToolkitsOwn(std::size_t count) {
    std::vector<std::unique_ptr<QMenuBar>> bars;
    for (std::size_t index = 0; index < count; ++index) {
        bars.push_back(std::make_unique<QMenuBar>());
        bars.back()->setGeometry(0, 0, static_cast<int>(ScreenWidth), 22);
        bars.back()->show();
    }
    Samples samples;
    for (int round = 0; round < Rounds; ++round) {
        samples.time([&] {
            for (const auto& bar : bars) {
                bar->clear();
                for (int index = 0; index < TitlesOfMenuBar; ++index) {
                    QMenu* const menu = bar->addMenu(QString::fromStdString(titleOf(round % 2, index)));
                    for (int number = 0; number < ItemsOfMenu; ++number)
                        menu->addAction(QString::fromStdString(titleOf(round % 2, number)));
                }
            }
            finishDrawing();
        });
    }
    return samples.median();
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // It tells at each window what it cannot do.
    qputenv("QT_LOGGING_RULES", "*.warning=false;*.info=false");
    const QApplication application(argumentCount, arguments);
    std::printf(
        "Switch of applications to the redrawn bars, %d titles, beside plain menu bars (medians):\n", TitlesOfMenuBar);
    for (const std::size_t count : {1U, 2U, 5U}) {
        const double ours = costOfBars(count);
        const double theirs = costOfToolkitsOwn(count);
        std::printf("  %zu bars: %.2f ms, %.2f ms a bar; plain %.2f ms, ratio %.2f\n", count, ours,
            ours / static_cast<double>(count), theirs, ours / theirs);
    }
    return 0;
}
