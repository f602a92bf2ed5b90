#include "panels/widgets/ButtonMetrics.h"

#include "panels/widgets/LogoImage.h"
#include "panels/widgets/TitleLine.h"

#include <algorithm>
#include <cmath>

namespace tarragon {

namespace {

constexpr double UsualHeight = 18;
// As much as there is above a button's origin in a panel.
constexpr double LargestHeight = 21;

// Titles of a bar reach beyond the top of it, which is that of the screen: there the pointer is pushed to.
constexpr double HeightOnBar = 23;

// Beside the title, on both sides together.
double padding(const ButtonContent& button) {
    switch (button.look) {
    case ButtonLook::MenuBar:
        return 2; // and what the layout adds
    case ButtonLook::ScreenTopBar:
        return 0; // the bar adds it
    case ButtonLook::Bezel:
        break;
    }
    if (!button.dress.bordered)
        return 10;
    switch (button.dress.bezel) {
    case ButtonBezel::Rounded:
        return 20;
    case ButtonBezel::RoundRect:
    case ButtonBezel::Recessed:
        return 16;
    case ButtonBezel::SmallSquare:
    case ButtonBezel::ShadowlessSquare:
        return 14;
    }
    return 0;
}

} // namespace

Size buttonSizeThatFits(const ButtonContent& button, double widestTitle) {
    const bool isOnBar = button.look == ButtonLook::ScreenTopBar;
    if (button.title == LogoTitle)
        return {std::ceil(logoSize().width()) + padding(button), isOnBar ? HeightOnBar : UsualHeight};
    TitleLine title(button);
    title.limitWidth(widestTitle);
    const double height = std::clamp(std::ceil(title.height()), UsualHeight, LargestHeight);
    return {std::ceil(title.width()) + padding(button), isOnBar ? HeightOnBar : height};
}

} // namespace tarragon
