#include "PrivateSessionBus.h"
#include "VirtualServer.h"

#include <array>
#include <cstdlib>
#include <iostream>
#include <string>

#include <QApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    const tarragon::VirtualServer server;
    if (server.displayName().empty()) {
        std::cerr << "No X server could be started.\n";
        return 1;
    }
    setenv("DISPLAY", server.displayName().c_str(), 1);
    const tarragon::PrivateSessionBus sessionBus;
    setenv("DBUS_SESSION_BUS_ADDRESS", sessionBus.address().c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    // As the program has it: pop-ups get their input from us.
    std::string leaveGrabs = "-nograb";
    std::array<char*, 3> arguments{argv[0], leaveGrabs.data(), nullptr};
    int argumentCount = 2;
    const QApplication application(argumentCount, arguments.data());
    return RUN_ALL_TESTS();
}
