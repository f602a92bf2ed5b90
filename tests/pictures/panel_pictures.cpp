// Draws contact sheets of panels and screen-top bars in all their looks, one picture for each theme and scale, into the
// folder named.

#include "BarPictures.h"
#include "Pictures.h"
#include "Sheet.h"
#include "panels/widgets/ButtonMetrics.h"

#include <cmath>
#include <iostream>
#include <string>
#include <tuple>
#include <vector>

#include <QApplication>
#include <QDir>
#include <QStyle>

namespace tarragon {

namespace {

struct Style {
    std::string name;
    ButtonLook look;
    ButtonDress dress;
    Size growth;
};

const std::vector<Style>& styles() {
    static const std::vector<Style> all = {
        {"0 round rectangle", ButtonLook::Bezel, {ButtonBezel::RoundRect, true, std::nullopt}, {}},
        {"1 recessed", ButtonLook::Bezel, {ButtonBezel::Recessed, true, std::nullopt}, {}},
        {"2 small square", ButtonLook::Bezel, {ButtonBezel::SmallSquare, true, std::nullopt}, {}},
        {"3 shadowless square", ButtonLook::Bezel, {ButtonBezel::ShadowlessSquare, true, std::nullopt}, {}},
        {"4 borderless", ButtonLook::Bezel, {ButtonBezel::Rounded, false, Grey{0.7, 0.1}}, {5, 10}},
        {"as made", ButtonLook::Bezel, {ButtonBezel::Rounded, true, std::nullopt}, {}},
        {"5 menu bar", ButtonLook::MenuBar, {}, {8, 0}},
    };
    return all;
}

using Titles = std::vector<std::string>;

// Titles in a row, the second under the pointer and the third pressed.
PanelContent row(const Titles& titles, const Style& style, double fontSize, bool showGradient) {
    PanelContent content;
    content.background = {.startingColor = {0.45, 1},
        .endingColor = Grey{0.95, 1},
        .angle = 90,
        .showGradient = showGradient,
        .roundedCorners = true};
    double x = 0;
    for (std::size_t index = 0; index < titles.size(); ++index) {
        ButtonContent button;
        button.title = titles[index];
        button.look = style.look;
        button.dress = style.dress;
        button.font = {style.look == ButtonLook::MenuBar ? 13 : fontSize, index == 0};
        button.mouseIsOver = index == 1;
        button.highlighted = index == 2;
        Size size = buttonSizeThatFits(button, 1000);
        size = {size.width + style.growth.width, size.height + style.growth.height};
        button.frame = {{x + 5, 3}, size};
        x = std::trunc(x + size.width + 15);
        content.buttons.push_back(button);
    }
    return content;
}

const Titles english = {"Mousepad", "File", "Edit", "View", "Typography", LogoTitle, "\u25BF"};
const Titles german = {"Übersicht", "Ändern", "Größe", "Schriftzüge", "Extras", "Hilfe"};
const Titles rightToLeft = {"ملف", "تحرير", "עריכה", "תצוגה", "Help"};

void drawPanels(Sheet& sheet) {
    const QSize panel(480, 24);
    for (const Style& style : styles()) {
        for (const bool gradient : {true, false})
            sheet.add(style.name + (gradient ? "" : ", no gradient"), row(english, style, 12, gradient), panel);
    }
    sheet.add("German", row(german, styles()[0], 12, true), panel);
    sheet.add("right to left", row(rightToLeft, styles()[0], 12, true), panel);
    sheet.add("right to left, 5", row(rightToLeft, styles().back(), 12, true), panel);
    bool nextColumn = true;
    for (const double size : {9, 13, 18, 24}) {
        for (const std::size_t index : {0, 1, 2, 3, 4}) {
            if (nextColumn)
                sheet.beginColumn(640);
            nextColumn = false;
            sheet.add(styles()[index].name + ", " + std::to_string(int(size)),
                row({"Ågypt", "File", "Edit", "Größe"}, styles()[index], size, true), panel);
        }
    }
    for (const bool open : {false, true}) {
        PanelContent vertical = row({"Menu"}, styles()[0], 12, false);
        ButtonContent& button = vertical.buttons.front();
        button.frame.origin = {0, 0};
        button.frame.size = {button.frame.size.width + 5, button.frame.size.height + 10};
        button.highlighted = open;
        sheet.add("vertical", vertical, {int(button.frame.size.width), 25});
    }
}

} // namespace

} // namespace tarragon

int main(int argumentCount, char** arguments) {
    using namespace tarragon;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argumentCount, arguments);
    int exitStatus = 0;
    const auto request = pictureRequest(argumentCount, arguments, exitStatus);
    if (!request)
        return exitStatus;
    QApplication::setStyle("Fusion");
    const QDir& folder = request->folder;
    const std::tuple<const char*, void (*)(Sheet&), QSize> sheets[] = {
        {"panels", drawPanels, {1290, 680}}, {"bars", drawBars, {870, 620}}};
    const QPalette light = QApplication::style()->standardPalette();
    for (const auto& [theme, palette] : {std::pair("light", light), std::pair("dark", darkPalette())}) {
        for (const double scale : {1.0, 1.5, 2.0}) {
            for (const auto& [name, draw, size] : sheets) {
                const QString file = folder.filePath(QString("%1-%2-%3.png").arg(name, theme).arg(scale));
                Sheet sheet(size, scale, palette);
                draw(sheet);
                if (!sheet.save(file)) {
                    std::cerr << "Cannot write " << file.toStdString() << '\n';
                    return 1;
                }
            }
        }
    }
    return 0;
}
