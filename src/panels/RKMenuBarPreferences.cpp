// How a bar takes over its settings, at its start and when one changes.

#include "panels/RKMenuBar.h"

#include "panels/rules/Measures.h"
#include "platform/Defaults.h"
#include "platform/PreferenceKeys.h"

#include <string_view>

namespace tarragon {

void RKMenuBar::setupNotificationsToReceive() {
    for (const std::string_view key : {preference::FontSizeSmall, preference::ButtonStyle,
             preference::TitleFontSizeSmall, preference::ShowApplicationMenu, preference::EnableScreenTop,
             preference::ScreenTopAutoHide, preference::ScreenTopTransparency, preference::ScreenTopHalfHotZone})
        _observers.push_back(_surroundings.defaults.addObserver(
            keyPathOfPreference(key), [this](const std::string& keyPath) { observeValueForKeyPath(keyPath); }));
}

bool RKMenuBar::readBool(std::string_view key) const {
    return boolValue(_surroundings.defaults.value(key));
}

std::int8_t RKMenuBar::readFontSize(std::string_view key) const {
    return fontSizeForStoredValue(integerValue(_surroundings.defaults.value(key)));
}

void RKMenuBar::readButtonStyle() {
    _buttonStyle = buttonStyleOfBar(integerValue(_surroundings.defaults.value(preference::ButtonStyle)));
}

void RKMenuBar::loadDefaults() {
    _fontSizeSmall = readFontSize(preference::FontSizeSmall);
    _titleFontSizeSmall = readFontSize(preference::TitleFontSizeSmall);
    readButtonStyle();
    _surroundings.owner.setStartAtLogin(readBool(preference::LaunchOnLogin));
    _screenTopEnabled = readBool(preference::EnableScreenTop);
    _screenTopAutoHide = readBool(preference::ScreenTopAutoHide);
    _screenTopTransparency = readBool(preference::ScreenTopTransparency);
    _screenTopHalfHotZone = readBool(preference::ScreenTopHalfHotZone);
}

// Whether the application's menu is shown concerns the mirrored menu, which is read anew for it.
void RKMenuBar::observeValueForKeyPath(const std::string& keyPath) {
    const auto is = [&](std::string_view key) { return keyPath == keyPathOfPreference(key); };

    if (is(preference::FontSizeSmall)) {
        _fontSizeSmall = readFontSize(preference::FontSizeSmall);
        refreshPanel();
    } else if (is(preference::TitleFontSizeSmall)) {
        _titleFontSizeSmall = readFontSize(preference::TitleFontSizeSmall);
        refreshPanel();
    } else if (is(preference::ButtonStyle)) {
        readButtonStyle();
        refreshPanel();
    } else if (is(preference::EnableScreenTop)) {
        _screenTopEnabled = readBool(preference::EnableScreenTop);
        setupScreentopTarragonPanel();
        refreshPanel();
    } else if (is(preference::ScreenTopAutoHide)) {
        _screenTopAutoHide = readBool(preference::ScreenTopAutoHide);
    } else if (is(preference::ScreenTopTransparency)) {
        _screenTopTransparency = readBool(preference::ScreenTopTransparency);
        refreshPanel();
    } else if (is(preference::ScreenTopHalfHotZone)) {
        _screenTopHalfHotZone = readBool(preference::ScreenTopHalfHotZone);
    }
}

} // namespace tarragon
