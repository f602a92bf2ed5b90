// How the controller takes over the settings, at start-up and when one changes.

#include "app/AppController.h"
#include "app/RegisteredPreferences.h"
#include "panels/rules/Measures.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"
#include "prefs/StartAtLogin.h"

#include <algorithm>

namespace tarragon {

bool AppController::readBool(std::string_view key) {
    return boolValue(_platform.defaults.value(key));
}

std::int8_t AppController::readFontSize(std::string_view key) {
    return fontSizeForStoredValue(integerValue(_platform.defaults.value(key)));
}

void AppController::readFoldAlternate() {
    _preferences._foldAlternate = readBool(preference::FoldAlternate);
    if (_appUIElementInfo)
        _appUIElementInfo->setFoldAlternateItems(_preferences._foldAlternate);
}

void AppController::readShowKeyEquivalents() {
    _preferences._keyEquivalents = readBool(preference::ShowKeyEquivalents);
    if (_appUIElementInfo)
        _appUIElementInfo->setKeyEquivalents(_preferences._keyEquivalents);
}

void AppController::readShowAppleMenu() {
    _preferences._showAppleMenu = readBool(preference::ShowAppleMenu);
    if (_appUIElementInfo)
        _appUIElementInfo->setShowAppleMenu(_preferences._showAppleMenu);
}

void AppController::readShowTarragonMenu() {
    _preferences._showTarragonMenu = readBool(preference::ShowTarragonMenu);
    if (_appUIElementInfo)
        _appUIElementInfo->setAuxiliaryMenu(_preferences._showTarragonMenu ? addTarragonMenuToMenu() : nullptr);
}

void AppController::readShowApplicationMenu() {
    _preferences._showApplicationMenu = readBool(preference::ShowApplicationMenu);
    if (_appUIElementInfo)
        _appUIElementInfo->setShowApplicationMenu(_preferences._showApplicationMenu);
}

void AppController::readButtonStyle() {
    _preferences._buttonStyle = buttonStyleForStoredValue(
        static_cast<std::int32_t>(integerValue(_platform.defaults.value(preference::ButtonStyle))));
}

void AppController::setStartAtLogin(bool startsAtLogin) {
    tarragon::setStartAtLogin(_platform.loginItemList, _platform.bundlePath, startsAtLogin);
}

void AppController::loadDefaults() {
    log(LogCategory::Settings, [] { return "reading every setting"; });
    _preferences._enableHotkey = readBool(preference::EnableHotkey);
    if (_preferences._enableHotkey)
        installCarbonHotKeyHandler();
    readFoldAlternate();
    readShowKeyEquivalents();
    readShowAppleMenu();
    readShowTarragonMenu();
    _preferences._tarragonAlwaysVisible = readBool(preference::TarragonAlwaysVisible);
    _preferences._tarragonAlwaysRight = readBool(preference::TarragonAlwaysRight);
    _preferences._showOnPrimaryScreen = readBool(preference::ShowOnPrimaryScreen);
    _preferences._enableButton = readBool(preference::EnableButton);
    _preferences._horizontal = readBool(preference::Horizontal);
    // Smart ignoring is always on: its setting is registered but never consulted.
    _preferences._smartIgnore = true;
    _preferences._fontSizeSmall = readFontSize(preference::FontSizeSmall);
    _preferences._titleFontSizeSmall = readFontSize(preference::TitleFontSizeSmall);
    readButtonStyle();
    setStartAtLogin(readBool(preference::LaunchOnLogin));
    readShowApplicationMenu();
    _preferences._screenTopEnabled = readBool(preference::EnableScreenTop);
    _preferences._screenTopAutoHide = readBool(preference::ScreenTopAutoHide);
    _preferences._screenTopTransparency = readBool(preference::ScreenTopTransparency);
    _preferences._mouseButtonEnabled = readBool(preference::EnableMouseButton);
    _preferences._screenTopHalfHotZone = readBool(preference::ScreenTopHalfHotZone);
    _preferences._hideOnPrimaryTopEdge = readBool(preference::HideOnPrimaryTopEdge);
}

// Settings without a row here keep the value they had at start-up, or are read where they are used.
void AppController::observeValueForKeyPath(const std::string& keyPath) {
    struct BoolRow {
        std::string_view key;
        bool ControllerPreferences::*field;
    };
    static constexpr BoolRow boolRows[] = {
        {preference::TarragonAlwaysVisible, &ControllerPreferences::_tarragonAlwaysVisible},
        {preference::TarragonAlwaysRight, &ControllerPreferences::_tarragonAlwaysRight},
        {preference::HideOnPrimaryTopEdge, &ControllerPreferences::_hideOnPrimaryTopEdge},
        {preference::ShowOnPrimaryScreen, &ControllerPreferences::_showOnPrimaryScreen},
        {preference::EnableButton, &ControllerPreferences::_enableButton},
        {preference::EnableScreenTop, &ControllerPreferences::_screenTopEnabled},
    };
    // The panel looks these up by itself, or not at all.
    static constexpr std::string_view looks[] = {preference::ButtonHasBorder, preference::ButtonHasShadow,
        preference::ButtonRound, preference::ButtonHasTexture, preference::ButtonLabel};
    log(LogCategory::Settings, [&] { return keyPath + " has changed"; });
    const auto is = [&](std::string_view key) { return keyPath == keyPathOfPreference(key); };

    if (is(preference::EnableHotkey) || is(preference::NewTrigger))
        installCarbonHotKeyHandler();
    if (is(preference::ShowStatusBarIcon))
        setupStatusItem();
    if (is(preference::FoldAlternate)) {
        readFoldAlternate();
        applyChangeToPanel();
    }
    if (is(preference::ShowKeyEquivalents)) {
        readShowKeyEquivalents();
        applyChangeToPanel();
    }
    if (is(preference::ShowAppleMenu)) {
        readShowAppleMenu();
        // The only reader option that shows at once; the others do with the next update. The own menu is no part of
        // what is read, and stays away until the next switch.
        if (_appUIElementInfo)
            _appUIElementInfo->update();
        applyChangeToPanel();
    }
    if (is(preference::ShowTarragonMenu)) {
        readShowTarragonMenu();
        applyChangeToPanel();
    }
    for (const BoolRow& row : boolRows) {
        if (is(row.key)) {
            _preferences.*row.field = readBool(row.key);
            // What a narrow window has suspended is not to come back in place of the user's new choice.
            if (row.field == &ControllerPreferences::_tarragonAlwaysRight)
                _tempAboveTrafficLights = false;
            if (row.field == &ControllerPreferences::_screenTopEnabled)
                setupScreentopTarragonPanel();
            applyChangeToPanel();
        }
    }
    if (is(preference::Horizontal)) {
        _preferences._horizontal = readBool(preference::Horizontal);
        dropPanel();
        applyChangeToPanel();
    }
    if (is(preference::FontSizeSmall)) {
        _preferences._fontSizeSmall = readFontSize(preference::FontSizeSmall);
        applyChangeToPanel();
    }
    if (is(preference::TitleFontSizeSmall)) {
        _preferences._titleFontSizeSmall = readFontSize(preference::TitleFontSizeSmall);
        applyChangeToPanel();
    }
    if (std::ranges::any_of(looks, is))
        applyChangeToPanel();
    if (is(preference::ButtonStyle)) {
        readButtonStyle();
        applyChangeToPanel();
    }
    if (is(preference::ShowApplicationMenu)) {
        readShowApplicationMenu();
        applyChangeToPanel();
    }
    if (is(preference::EnableMouseButton))
        _preferences._mouseButtonEnabled = readBool(preference::EnableMouseButton);
}

// Rebuilds the panel, and places it at once rather than with the next tick. There is none before there is a reader.
void AppController::applyChangeToPanel() {
    if (!_appUIElementInfo)
        return;
    rebuildPanel();
    updateTarragonWindowPositionWithPoint(_appUIElementInfo->focusedWindowPositionCG());
}

} // namespace tarragon
