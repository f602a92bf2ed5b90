#include "cli/Commands.h"

#include "cli/ChosenApplication.h"
#include "cli/MirrorPrinter.h"
#include "cli/MirrorTree.h"
#include "cli/PrintableText.h"
#include "mirror/FillingThreads.h"
#include "mirror/ProxyMenuItem.h"
#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"
#include "platform/Log.h"

#include <functional>
#include <memory>
#include <ostream>

namespace tarragon {

namespace {

// A command reads every menu once and live: filling a cache for later would only slow it down.
class NoFillings : public FillingThreads {
public:
    void detachNewThread(std::function<void()>) override { }
};

} // namespace

Commands::Commands(const Platform& platform, std::ostream& output, std::ostream& errors)
    : _platform(platform)
    , _output(output)
    , _errors(errors) { }

int Commands::fail(const std::string& message) {
    _errors << "tarragon: " << message << "\n";
    return 1;
}

std::optional<RunningApplication> Commands::chooseApplication(const ApplicationChoice& choice) {
    if (!choice.name && !choice.processIdentifier) {
        auto application = _platform.workspace.activeApplication();
        if (!application) {
            log(LogCategory::Menus, [] { return "nothing is read: no window of an application is active"; });
            fail("no application is in front");
        }
        return application;
    }
    for (const RunningApplication& application : _platform.workspace.runningApplications()) {
        if (choice.name ? application.name == *choice.name : application.processIdentifier == *choice.processIdentifier)
            return application;
    }
    fail(choice.name
            ? "no application named '" + *choice.name + "' has a window"
            : "no application with a window has the process identifier " + std::to_string(*choice.processIdentifier));
    return std::nullopt;
}

template <typename Work>
int Commands::withReader(const ApplicationChoice& choice, ReadBatchDepth depth, Work work) {
    const auto application = chooseApplication(choice);
    if (!application)
        return 1;
    if (!_platform.accessibility.isTrusted())
        return fail("the desktop's accessibility interface cannot be reached");
    log(LogCategory::Menus, [&] {
        return "reading the menus of '" + application->name + "', process "
            + std::to_string(application->processIdentifier);
    });
    const bool isFrontApplication = !choice.name && !choice.processIdentifier;
    const Element element =
        isFrontApplication ? Element() : _platform.accessibility.applicationElement(application->processIdentifier);
    ChosenApplicationAccessibility accessibility(_platform.accessibility, element);
    ChosenApplicationWorkspace workspace(_platform.workspace, *application);
    const Platform chosen{accessibility, workspace, _platform.displays, _platform.hotKeys, _platform.defaults,
        _platform.runLoop, _platform.notificationCenter, _platform.menuInput};
    const auto reader =
        AppAccessibility::initWithFocusedApp(isFrontApplication ? _platform : chosen, std::make_unique<NoFillings>());
    if (!reader)
        return fail("'" + application->name + "' cannot be reached through the accessibility interface");
    reader->setShowAppleMenu(true);
    reader->setKeyEquivalents(true);
    const ReadBatch batch(_platform.accessibility, depth);
    reader->update();
    log(LogCategory::Menus, [&] {
        return "'" + application->name + "' has " + std::to_string(reader->menu()->numberOfItems())
            + " items in its menu bar";
    });
    if (reader->menu()->numberOfItems() == 0)
        return fail("'" + application->name + "' has no menu bar, or does not answer");
    return work(*reader);
}

int Commands::listMenus(const ListMenus& command) {
    const auto depth = command.depth == 1 ? ReadBatchDepth::OneLevel : ReadBatchDepth::AllLevels;
    return withReader(command.application, depth, [&](AppAccessibility& reader) {
        const auto tree = readMirrorTree(reader, command.depth);
        _output << (command.json ? mirrorAsJson(tree) : mirrorAsText(tree)) << std::flush;
        return _output ? 0 : fail("the menus could not be written");
    });
}

int Commands::pressItem(const PressItem& command) {
    return withReader(command.application, ReadBatchDepth::OneLevel, [&](AppAccessibility& reader) {
        const auto item = findMirrorItem(reader, command.itemKey);
        if (!item)
            return fail("no menu item has the key '" + command.itemKey + "'");
        if (item->hasSubmenu())
            return fail("'" + command.itemKey + "' is a menu, not an item that can be pressed");
        if (!item->isEnabled())
            return fail("'" + command.itemKey + "' is disabled at the moment");
        const auto proxy = std::dynamic_pointer_cast<ProxyMenuItem>(item->target());
        if (!_platform.accessibility.performAction(proxy->itemAXUIElementRef(), action::Press))
            return fail("'" + command.itemKey + "' could not be pressed");
        return 0;
    });
}

int Commands::inspect() {
    if (!_platform.accessibility.isTrusted())
        return fail("the desktop's accessibility interface cannot be reached");
    const Rect pointer =
        UIElementUtilities::flippedScreenBounds(_platform.displays, {_platform.displays.mouseLocationNS(), {}});
    Element element = _platform.accessibility.elementAtPosition(pointer.origin);
    if (!element) {
        const Value application = _platform.accessibility.copyAttributeValue(
            _platform.accessibility.systemWideElement(), attribute::FocusedApplication);
        if (const auto* front = valueAs<Element>(application)) {
            const Value window = _platform.accessibility.copyAttributeValue(*front, attribute::FocusedWindow);
            if (const auto* focusedWindow = valueAs<Element>(window))
                element = *focusedWindow;
        }
    }
    if (!element)
        return fail("there is no element under the pointer, and no window is in front");
    _output << printable(UIElementUtilities::stringDescriptionOfUIElement(_platform.accessibility, element))
            << std::flush;
    return _output ? 0 : fail("the description could not be written");
}

} // namespace tarragon
