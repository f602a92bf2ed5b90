#include "app/RegisteredPreferences.h"

#include "ignore/KeyedArchiver.h"
#include "platform/ModifierFlags.h"
#include "platform/PreferenceKeys.h"

namespace tarragon {

namespace {

std::pair<std::string, DefaultsValue> entry(std::string_view key, DefaultsValue value) {
    return {std::string(key), std::move(value)};
}

DefaultsValue integer(std::int64_t value) {
    return value;
}

DefaultsValue text(const char* value) {
    return std::string(value);
}

DefaultsDictionary makeRegisteredPreferences() {
    constexpr std::int64_t SpaceBarKeyCode = 49;
    return {
        entry(preference::EnableHotkey, true),
        entry(preference::NewTrigger, text("\u02C4Z")),
        entry(preference::TriggerCharacterUInt, integer(SpaceBarKeyCode)),
        entry(preference::TriggerModifiers, integer(modifier::Option)),
        entry(preference::FoldAlternate, true),
        entry(preference::ShowKeyEquivalents, true),
        entry(preference::ShowAppleMenu, true),
        entry(preference::ShowStatusBarIcon, true),
        entry(preference::ShowTarragonMenu, true),
        entry(preference::LaunchOnLogin, false),
        entry(preference::TarragonAlwaysVisible, true),
        entry(preference::TarragonAlwaysRight, false),
        entry(preference::ShowOnPrimaryScreen, true),
        entry(preference::EnableButton, true),
        entry(preference::EnableSmartIgnore, true),
        entry(preference::ButtonHasShadow, false),
        entry(preference::ButtonHasTexture, false),
        entry(preference::ButtonHasBorder, true),
        entry(preference::ButtonRound, true),
        entry(preference::ButtonLabel, text("Menu")),
        entry(preference::Horizontal, true),
        entry(preference::FontSizeSmall, integer(12)),
        entry(preference::ButtonStyle, integer(0)),
        entry(preference::TitleFontSizeSmall, integer(0)),
        entry(preference::ShowApplicationMenu, true),
        entry(preference::EnableScreenTop, true),
        entry(preference::ScreenTopAutoHide, false),
        entry(preference::ScreenTopTransparency, false),
        entry(preference::ScreenTopHalfHotZone, false),
        entry(preference::HideOnPrimaryTopEdge, false),
        entry(preference::IgnoreWindowList, archiveOfEmptyMutableDictionary()),
        entry(preference::EnableMouseButton, false),
        entry(preference::MouseButton, integer(2)),
    };
}

} // namespace

const DefaultsDictionary& registeredPreferences() {
    static const DefaultsDictionary values = makeRegisteredPreferences();
    return values;
}

const std::vector<std::string_view>& observedPreferences() {
    static const std::vector<std::string_view> keys = {
        preference::EnableHotkey,
        preference::NewTrigger,
        preference::FoldAlternate,
        preference::ShowKeyEquivalents,
        preference::ShowAppleMenu,
        preference::ShowTarragonMenu,
        preference::ShowStatusBarIcon,
        preference::TarragonAlwaysVisible,
        preference::TarragonAlwaysRight,
        preference::ShowOnPrimaryScreen,
        preference::HideOnPrimaryTopEdge,
        preference::EnableButton,
        preference::ButtonHasShadow,
        preference::ButtonHasTexture,
        preference::ButtonHasBorder,
        preference::ButtonRound,
        preference::ButtonLabel,
        preference::Horizontal,
        preference::FontSizeSmall,
        preference::ButtonStyle,
        preference::TitleFontSizeSmall,
        preference::ShowApplicationMenu,
        preference::EnableScreenTop,
        preference::ScreenTopAutoHide,
        preference::ScreenTopTransparency,
        preference::EnableMouseButton,
        preference::ScreenTopHalfHotZone,
    };
    return keys;
}

std::int64_t buttonStyleForStoredValue(std::int64_t stored) {
    return stored == 4 ? 5 : stored;
}

} // namespace tarragon
