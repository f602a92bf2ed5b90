#include "platform/linux/x11/X11Workspace.h"

#include "fake/FakeRunLoop.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Windows.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <xcb/xcb.h>

namespace tarragon {
namespace {

namespace fs = std::filesystem;

class X11WorkspaceTest : public testing::Test {
protected:
    X11WorkspaceTest() {
        std::string pattern = fs::temp_directory_path() / "tarragon-workspace-XXXXXX";
        _folder = mkdtemp(pattern.data());
        std::ofstream(_folder / "org.example.Editor.desktop")
            << "[Desktop Entry]\nType=Application\nName=Text Editor\nStartupWMClass=Editor\n";
    }
    ~X11WorkspaceTest() override { fs::remove_all(_folder); }

    void SetUp() override {
        if (_server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        _connection = X11Connection::connect(_server.displayName());
        ASSERT_TRUE(_connection);
        _windows = std::make_unique<X11Windows>(*_connection);
        _entries = std::make_unique<DesktopEntries>(std::vector<fs::path>{_folder}, std::vector<std::string>());
        workspace = std::make_unique<X11Workspace>(
            *_connection, *_windows, *_entries, _runLoop, [](const std::string&) { return false; });
    }

    // Puts a window in front as a window manager would, with the two strings of its class.
    void activateWindow(const std::string& instanceName, const std::string& className) {
        xcb_connection_t* connection = _connection->get();
        const xcb_window_t window = xcb_generate_id(connection);
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, _connection->rootWindow(), 0, 0, 10, 10, 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        if (!className.empty()) {
            const std::string both = instanceName + '\0' + className + '\0';
            xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                static_cast<std::uint32_t>(both.size()), both.data());
        }
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, _connection->rootWindow(),
            _connection->atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, 1, &window);
        xcb_flush(connection);
    }

    std::unique_ptr<X11Workspace> workspace;

private:
    fs::path _folder;
    XkbServer _server;
    FakeRunLoop _runLoop;
    std::unique_ptr<X11Connection> _connection;
    std::unique_ptr<X11Windows> _windows;
    std::unique_ptr<DesktopEntries> _entries;
};

TEST_F(X11WorkspaceTest, NamesAnApplicationByItsDesktopEntry) {
    activateWindow("editor", "Editor");
    const auto application = workspace->activeApplication();
    ASSERT_TRUE(application);
    EXPECT_EQ(application->name, "Text Editor");
    EXPECT_EQ(application->bundleIdentifier, "org.example.Editor");
    EXPECT_EQ(fs::path(application->bundlePath).filename(), "org.example.Editor.desktop");
}

TEST_F(X11WorkspaceTest, NamesAnApplicationWithoutAnEntryByItsWindowClass) {
    activateWindow("homemade", "Homemade");
    const auto application = workspace->activeApplication();
    ASSERT_TRUE(application);
    EXPECT_EQ(application->name, "Homemade");
    EXPECT_EQ(application->bundleIdentifier, "Homemade");
    EXPECT_EQ(application->bundlePath, "");
}

TEST_F(X11WorkspaceTest, HasNoIdentifierForAWindowThatSaysNothing) {
    activateWindow("", "");
    const auto application = workspace->activeApplication();
    ASSERT_TRUE(application);
    EXPECT_EQ(application->bundleIdentifier, "");
}

TEST_F(X11WorkspaceTest, HasNoApplicationInFrontWithoutAnActiveWindow) {
    EXPECT_EQ(workspace->activeApplication().has_value(), false);
}

} // namespace
} // namespace tarragon
