#pragma once

#include "platform/linux/dbus/DBusMessage.h"

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace tarragon {

// A bus with everybody on it, played by one thread that answers as a script of bytes tells. When the script has ended
// every question is refused.
class ScriptedBus {
public:
    explicit ScriptedBus(std::vector<std::uint8_t> script);
    ~ScriptedBus();
    ScriptedBus(const ScriptedBus&) = delete;
    ScriptedBus& operator=(const ScriptedBus&) = delete;

    std::string address() const { return "unix:path=" + _path; }
    // The objects that honest answers name.
    static std::string objectPath(int number);
    static constexpr const char* BusName = ":1.7";

private:
    std::uint8_t next();
    std::string nextText();
    void serve();
    // False when the connection is to end.
    bool hear(const std::vector<char>& bytes);
    bool answer(DBusMessage* call);
    DBusMessagePointer honestAnswer(DBusMessage* call);
    DBusMessagePointer strangeAnswer(DBusMessage* call);
    void appendObjects(DBusMessageIter& arguments);
    void say(DBusMessage* message, std::size_t flippedByte = SIZE_MAX);
    void say(const std::string& bytes) const;

    std::vector<std::uint8_t> _script;
    std::size_t _position = 0;
    std::string _folder;
    std::string _path;
    int _listener = -1;
    int _connection = -1;
    int _stop[2] = {-1, -1};
    bool _greeted = false;
    std::vector<char> _heard;
    std::uint32_t _serial = 0;
    std::thread _thread;
};

} // namespace tarragon
