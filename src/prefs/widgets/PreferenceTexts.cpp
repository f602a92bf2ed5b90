#include "prefs/widgets/PreferenceTexts.h"

#include "platform/Defaults.h"
#include "platform/PreferenceKeys.h"
#include "platform/Texts.h"
#include "prefs/HotKeyRefusals.h"

#include <QString>
#include <QStringList>

namespace tarragon {

namespace {

QString words(const char* source, std::initializer_list<std::string_view> arguments = {}) {
    return QString::fromStdString(withArguments(translated("PreferenceTexts", source), arguments));
}

QString hotKeyHelpText(Defaults& defaults, Keyboard* keyboard, bool hotKeyIsRefused) {
    const KeyCombo combination = hotKeyOfDefaults(defaults);
    if (!boolValue(defaults.value(preference::EnableHotkey)))
        return words(sourceText("PreferenceTexts",
            "A combination of keys opens the menus at the pointer, once you have switched it on under \"Hot Key\"."));
    if (combination.isEmpty() || hotKeyIsRefused)
        return words(sourceText("PreferenceTexts",
            "A combination of keys opens the menus at the pointer, once you have chosen one that is free."));
    return words(sourceText("PreferenceTexts",
                     "Press %@ anywhere, and the menus of the application in front open at the pointer."),
        {wordsForKeyCombo(combination, keyboard)});
}

QString mouseHelpText(Defaults& defaults) {
    constexpr std::int64_t MiddleButton = 2;
    if (!boolValue(defaults.value(preference::EnableMouseButton)))
        return words(
            sourceText("PreferenceTexts", "A mouse button can do the same: switch that on under \"Hot Key\"."));
    const std::int64_t button = integerValue(defaults.value(preference::MouseButton));
    const QString which = button == MiddleButton
        ? words(sourceText("PreferenceTexts", "The middle mouse button does the same."))
        : words(sourceText("PreferenceTexts", "Mouse button %@ does the same."), {std::to_string(button)});
    return which + ' '
        + words(sourceText(
            "PreferenceTexts", "Click an item afterwards, or hold the button, move onto an item and let go there."));
}

} // namespace

QString popUpHelpText(Defaults& defaults, Keyboard* keyboard, bool hotKeyIsRefused) {
    return hotKeyHelpText(defaults, keyboard, hotKeyIsRefused) + ' ' + mouseHelpText(defaults);
}

QString hotKeyRefusalText(const HotKeyRefusal& refusal) {
    const QString what =
        words(sourceText("PreferenceTexts",
                  "%@ does not open the menus: the desktop or another program keeps this combination for itself."),
            {refusal.combination});
    const QString advice = refusal.proposal.empty()
        ? words(sourceText("PreferenceTexts", "Please choose another one."))
        : words(sourceText("PreferenceTexts", "%@ is free."), {refusal.proposal});
    return what + ' ' + advice;
}

QString takeProposalTitle(const HotKeyRefusal& refusal) {
    if (refusal.proposal.empty())
        return words(sourceText("PreferenceTexts", "Choose Another Combination"));
    return words(sourceText("PreferenceTexts", "Use %@"), {refusal.proposal});
}

QString librariesText() {
    struct Library {
        const char* name;
        const char* licence;
    };
    static constexpr Library libraries[] = {
        {"Qt 6", "LGPL 3"},
        {"libdbus", "AFL 2.1, GPL 2+"},
        {"XCB", "MIT"},
        {"libxkbcommon", "MIT"},
        {"libplist", "LGPL 2.1+"},
        {"pugixml", "MIT"},
        {"libappstream", "LGPL 2.1+"},
        {"JSON for Modern C++", "MIT"},
    };
    QStringList lines;
    for (const Library& library : libraries)
        lines += QString("%1: %2").arg(library.name, library.licence);
    return lines.join('\n');
}

QString versionText(const std::string& version) {
    return words(sourceText("PreferenceTexts", "Version %@"), {version});
}

QString borderText(BorderNotice notice) {
    switch (notice) {
    case BorderNotice::SettingsAreUnwritten:
        return words(sourceText("PreferenceTexts",
            "The settings cannot be written to disk: changes are lost when Tarragon quits. The disk may be full, or "
            "the "
            "folder of the settings protected."));
    case BorderNotice::AccessIsMissing:
        return words(sourceText("PreferenceTexts",
            "Tarragon cannot read the menus of other applications. Turn on \"Enable access for assistive devices\" "
            "in System Preferences."));
    case BorderNotice::AccessCannotBeSwitchedOn:
        return words(sourceText("PreferenceTexts",
            "Access could not be turned on from here. Open System Preferences yourself, and turn on \"Enable access "
            "for assistive devices\"."));
    case BorderNotice::None:
        break;
    }
    return words(sourceText("PreferenceTexts", "Every change counts at once."));
}

} // namespace tarragon
