#include "prefs/PreferencePanes.h"

namespace tarragon {

PreferencePane preferencePaneForTag(std::int64_t tag) {
    switch (tag) {
    case 200:
        return PreferencePane::HotKey;
    case 300:
        return PreferencePane::WindowTop;
    case 400:
        return PreferencePane::ScreenTop;
    case 500:
        return PreferencePane::IgnoreList;
    case 700:
        return PreferencePane::About;
    case 800:
        return PreferencePane::Help;
    default:
        return PreferencePane::General;
    }
}

PreferenceHelpText preferenceHelpTextForTag(std::int64_t tag) {
    switch (tag) {
    case 200:
        return PreferenceHelpText::PopUp;
    case 300:
        return PreferenceHelpText::Window;
    case 400:
        return PreferenceHelpText::ScreenTop;
    case 500:
        return PreferenceHelpText::IgnoreList;
    default:
        return PreferenceHelpText::General;
    }
}

Rect windowFrameForPane(const Rect& windowFrameNS, double contentHeight, double paneHeight) {
    const double delta = paneHeight - contentHeight;
    Rect frameNS = windowFrameNS;
    frameNS.size.height += delta;
    frameNS.origin.y -= delta;
    return frameNS;
}

} // namespace tarragon
