#include "BarPictures.h"

#include "fake/FakePanelToolkit.h"
#include "fake/FakePlatform.h"
#include "mirror/Menu.h"
#include "panels/RKMenuBar.h"
#include "panels/RKMenuBarOwner.h"
#include "panels/rules/ButtonStyle.h"
#include "panels/widgets/ButtonMetrics.h"

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QFontInfo>

namespace tarragon {

namespace {

using Titles = std::vector<std::string>;

const Titles English = {LogoTitle, "Mousepad", "File", "Edit", "Search", "View", "Document", "Help", "Tarragon"};
const Titles German = {LogoTitle, "Schriftgröße", "Übersicht", "Ändern", "Größe", "Überprüfung", "Hilfe"};
const Titles RightToLeft = {LogoTitle, "محرر", "ملف", "تحرير", "עריכה", "תצוגה", "Help"};
const Titles EastAsian = {LogoTitle, "文本编辑器", "文件(F)", "編集", "보기", "Ấn bản", "ไทย", "हिन्दी", "😀"};
const Titles Long = {LogoTitle, "A name of many words",
    "A title that goes on and on and is longer than half of the screen can show", "File"};

// Measures titles as the program does and keeps what is shown.
class PictureToolkit : public FakePanelToolkit {
public:
    explicit PictureToolkit(double screenWidth)
        : _widestTitle(screenWidth / 2) { }
    Size sizeThatFits(const ButtonContent& content) override { return buttonSizeThatFits(content, _widestTitle); }

private:
    double _widestTitle;
};

class NoOwner : public RKMenuBarOwner {
public:
    void popUpMenu() override { }
    void popUpIgnoreMenu() override { }
    std::shared_ptr<Menu> contextMenu() override { return nullptr; }
    std::shared_ptr<Menu> addTarragonMenuToMenu() override { return nullptr; }
    void setStartAtLogin(bool /*startsAtLogin*/) override { }
};

struct Bar {
    std::string name;
    Titles titles; // the second is that of the application
    std::string open; // the title, as it is shown, whose menu is open
    double screenWidth = 700;
    bool transparency = false;
    bool placed = true; // or just made
};

std::shared_ptr<Menu> mirroredMenu(const Titles& titles) {
    auto menu = std::make_shared<Menu>(titles.at(1));
    for (const std::string& title : titles) {
        auto item = std::make_shared<MenuItem>(title, "", "");
        item->setSubmenu(std::make_shared<Menu>(title));
        item->submenu()->addItem(std::make_shared<MenuItem>("Item", "act", ""));
        menu->addItem(item);
    }
    return menu;
}

void drawBar(Sheet& sheet, const Bar& drawn) {
    FakePlatform fake;
    const Rect screen{{1440, 0}, {drawn.screenWidth, 900}};
    fake.displays.setScreens({{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 900}}}, {screen, screen}});
    fake.defaults.registerDefaults(
        {{"EnableScreenTop", true}, {"ScreenTopTransparency", drawn.transparency}, {"ButtonStyle", std::int64_t{1}}});
    PictureToolkit toolkit(drawn.screenWidth);
    NoOwner owner;
    RKMenuBar bar({{toolkit, fake.menuPresenter, fake.displays, fake.runLoop}, fake.defaults, nullptr, owner});
    bar.setMenu(mirroredMenu(drawn.titles));
    bar.refreshPanel();
    bar.handleAppChange();
    if (!drawn.placed)
        bar.refreshPanel();
    FakePanelToolkit::Window& window = toolkit.latest();
    if (!drawn.open.empty())
        window.press(drawn.open);
    const Size size = window.frameNS.size;
    sheet.add(drawn.name, window.content, {int(size.width), int(size.height)}, window.alpha);
}

} // namespace

void drawBars(Sheet& sheet) {
    drawBar(sheet, {"bar", English, ""});
    drawBar(sheet, {"a menu is open", English, "Edit"});
    drawBar(sheet, {"the application's", English, "Mousepad  "});
    drawBar(sheet, {"the system's", English, LogoTitle});
    drawBar(sheet, {"the last", English, "Tarragon "});
    drawBar(sheet, {"no room for all", English, "", 420});
    drawBar(sheet, {"the rest is open", English, "\u25BF", 420});
    drawBar(sheet, {"long titles", Long, ""});
    drawBar(sheet, {"a long one is open", Long, Long[2]});
    drawBar(sheet, {"German", German, "Größe"});
    drawBar(sheet, {"right to left", RightToLeft, "تحرير"});
    drawBar(sheet, {"East Asian", EastAsian, "編集"});
    sheet.setStriped(true);
    drawBar(sheet, {"translucent, made", English, "Edit", 700, true, false});
    drawBar(sheet, {"translucent, placed", English, "Edit", 700, true});
    sheet.setStriped(false);
    const QFont usual = QApplication::font("QMenuBar");
    for (const int size : {9, 11, 13, 16, 20, 24}) {
        QFont font = usual;
        font.setPixelSize(size);
        QApplication::setFont(font, "QMenuBar");
        drawBar(sheet, {std::to_string(size) + " points", English, "Edit"});
    }
    QApplication::setFont(usual, "QMenuBar");
}

} // namespace tarragon
