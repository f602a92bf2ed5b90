#include "fake/FakePreferencesWindow.h"

#include "prefs/PreferencesWindowController.h"

#include <utility>

namespace tarragon {

namespace {

std::string animated(const char* text, bool animate) {
    return std::string(text).append(animate ? ", animated" : "");
}

} // namespace

void FakePreferencesWindow::setCanJoinAllSpaces() {
    _record.joinsAllSpaces = true;
}

void FakePreferencesWindow::orderFrontRegardless() {
    _record.isVisible = true;
    _record.told.emplace_back("front");
}

void FakePreferencesWindow::activateIgnoringOtherApps() {
    _record.told.emplace_back("activate");
}

void FakePreferencesWindow::close() {
    _record.told.emplace_back("close");
    if (!std::exchange(_record.isVisible, false))
        return;
    _record.controller->windowWillClose();
}

void FakePreferencesWindow::setTitle(const std::string& title) {
    _record.title = title;
    _record.told.push_back("title " + title);
}

std::vector<PreferenceItem> FakePreferencesWindow::toolbarItems() const {
    return {{"general", "General", 100}, {"hotkey", "Hot Key", 200}, {"windowtop", "Window Top", 300},
        {"screentop", "Screen Top", 400}, {"ignorelist", "Ignore List", 500}, {"about", "About", 700},
        {"help", "Help", 800}};
}

void FakePreferencesWindow::setSelectedItem(std::size_t index) {
    _record.selectedItem = index;
    _record.told.push_back("item " + std::to_string(index));
}

void FakePreferencesWindow::setFrame(const Rect& frameNS, bool animate) {
    _record.contentSize.height += frameNS.size.height - _record.frameNS.size.height;
    _record.frameNS = frameNS;
    _record.told.push_back(animated("frame", animate));
}

void FakePreferencesWindow::removeSubviewsOfContent() {
    _record.pane.reset();
    _record.told.emplace_back("empty");
}

void FakePreferencesWindow::addPane(PreferencePane pane, const Size& size) {
    _record.pane = pane;
    _record.paneSize = size;
    _record.told.push_back("pane " + std::to_string(static_cast<int>(pane)));
}

void FakePreferencesWindow::setHelpText(PreferenceHelpText text, bool animate) {
    _record.helpText = text;
    _record.told.push_back(animated("help text", animate));
}

void FakePreferencesWindow::setShortcutRecorderValue(const ShortcutRecorderValue& value) {
    _record.recorder = value;
    _record.told.emplace_back("recorder");
}

void FakePreferencesWindow::startRecording() {
    _record.isRecording = true;
    _record.told.emplace_back("record");
}

void FakePreferencesWindow::setMouseButtonNumber(std::uint32_t buttonNumber) {
    _record.mouseButtonNumber = buttonNumber;
    _record.told.push_back("mouse button " + std::to_string(buttonNumber));
}

void FakePreferencesWindow::setupTap() {
    _record.tapIsOn = true;
    _record.told.emplace_back("tap on");
}

void FakePreferencesWindow::disableAndReleaseTap() {
    _record.tapIsOn = false;
    _record.told.emplace_back("tap off");
}

void FakePreferencesWindow::willChangeValueForKey(std::string_view key) {
    _record.told.push_back("will change " + std::string(key));
}

void FakePreferencesWindow::didChangeValueForKey(std::string_view key) {
    _record.told.push_back("did change " + std::string(key));
}

void FakePreferencesWindow::showAccessibilityAlert(std::function<void(AccessibilityAlertAnswer)> handler) {
    _record.told.emplace_back("alert");
    if (_record.whenAlertIsShown)
        _record.whenAlertIsShown();
    _record.answerAlert = std::move(handler);
}

std::unique_ptr<PreferencesWindow> FakePreferencesInterface::loadWindow(PreferencesWindowController& controller) {
    ++timesLoaded;
    window.controller = &controller;
    window.isAlive = true;
    return std::make_unique<FakePreferencesWindow>(window);
}

} // namespace tarragon
