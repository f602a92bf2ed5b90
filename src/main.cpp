// Chooses the back end and hands it to the agent or to a command.

#include "app/AppDelegate.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "menus/MenuView.h"
#include "menus/PopUpInput.h"
#include "panels/widgets/MessagePanels.h"
#include "panels/widgets/QtPanelToolkit.h"
#include "platform/LogCategories.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/qt/QtLogSink.h"
#include "platform/qt/QtTexts.h"
#include "prefs/widgets/QtPreferencesInterface.h"
#include "updates/process/UpdateProcess.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include <QGuiApplication>
#include <QIcon>

using namespace tarragon;

namespace {

int fail(const std::string& message) {
    logError(LogCategory::Front, message);
    return 1;
}

// What the environment asks to be told, beside the command line.
LogCategoryList logCategoriesOfEnvironment() {
    const char* list = std::getenv("TARRAGON_LOG");
    return list == nullptr || *list == '\0' ? LogCategoryList() : parseLogCategories(list);
}

int runAgent(const RunAgent& command, DesktopSession& desktop) {
    const auto claim = desktop.claimOrReopen();
    if (const auto* error = std::get_if<DesktopError>(&claim))
        return fail(error->message);
    if (*std::get_if<DesktopAgent>(&claim) == DesktopAgent::AnotherProcess) {
        // It has heard of this start, and shows its preferences.
        if (!command.showsPreferences)
            logError(LogCategory::Front, "already running on this display");
        return 0;
    }
    const Platform& platform = desktop.platform();
    MenuView menuView(platform.displays, platform.notificationCenter, platform.menuInput, platform.inputEvents);
    const PopUpInput popUpInput(platform.menuInput);
    const QtTexts texts(":/translations/tarragon_linux.qm");
    QGuiApplication::setWindowIcon(QIcon(":/images/tarragon.svg"));
    MessagePanels panels(TARRAGON_VERSION);
    UpdateProcess updates({.tool = std::filesystem::path(platform.bundlePath).replace_filename("tarragon-updates"),
        .runningVersion = TARRAGON_VERSION,
        .builtInFeed = TARRAGON_UPDATE_FEED});
    QtPanelToolkit panelToolkit(platform.displays, platform.panelSurfaces);
    QtPreferencesInterface preferences(platform, TARRAGON_VERSION, std::cerr);
    AppDelegate delegate(platform, {menuView, panelToolkit, panels, preferences}, updates,
        {.product = TARRAGON_WEB_PAGE,
            .screencast = TARRAGON_SCREENCAST_PAGE,
            .twitter = TARRAGON_SOCIAL_PAGE,
            .facebook = TARRAGON_SECOND_SOCIAL_PAGE},
        std::cerr);
    desktop.watchReopen([&] { delegate.applicationShouldHandleReopen(); });
    desktop.watchTermination([&] { delegate.terminate(); });
    platform.runLoop.post([&] {
        if (!delegate.loadMainInterface())
            return;
        delegate.applicationWillFinishLaunching();
        delegate.applicationDidFinishLaunching();
        if (command.showsPreferences)
            delegate.showPreferencePanel();
    });
    return desktop.run();
}

int runCommand(const Command& command, DesktopSession& desktop) {
    Commands commands(desktop.platform(), std::cout, std::cerr);
    if (const auto* list = std::get_if<ListMenus>(&command))
        return commands.listMenus(*list);
    if (const auto* press = std::get_if<PressItem>(&command))
        return commands.pressItem(*press);
    return commands.inspect();
}

} // namespace

int main(int argumentCount, char** arguments) {
    const auto [command, logCategories] =
        parseCommandLine(std::vector<std::string>(arguments + std::min(argumentCount, 1), arguments + argumentCount));
    const LogCategoryList environment = logCategoriesOfEnvironment();
    QtLogSink sink(logCategories | environment.categories);
    setLogSink(&sink);
    // Unlike a slip on the command line, one in the environment may be years old: the program goes on.
    if (!environment.error.empty())
        logError(LogCategory::Settings, "TARRAGON_LOG: " + environment.error);
    if (const auto* error = std::get_if<UsageError>(&command)) {
        std::cerr << "tarragon: " << error->message << "\nTry 'tarragon --help'.\n";
        return 2;
    }
    if (std::holds_alternative<ShowHelp>(command)) {
        std::cout << helpText();
        return 0;
    }
    if (std::holds_alternative<ShowVersion>(command)) {
        std::cout << "tarragon " << TARRAGON_VERSION << "\n";
        return 0;
    }
    const auto created = createLinuxPlatform({arguments[0], "Tarragon", TARRAGON_VERSION});
    if (const auto* error = std::get_if<DesktopError>(&created))
        return fail(error->message);
    DesktopSession& desktop = **std::get_if<std::unique_ptr<DesktopSession>>(&created);
    desktop.prepareAccessibility();
    const auto* agent = std::get_if<RunAgent>(&command);
    return agent ? runAgent(*agent, desktop) : runCommand(command, desktop);
}
