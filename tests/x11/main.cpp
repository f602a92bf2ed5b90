#include "VirtualServer.h"

#include <cstdlib>
#include <iostream>

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
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
