#include "bus/AtspiFakeBus.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

extern char** environ; // NOLINT(readability-redundant-declaration)

namespace tarragon {

namespace {

void check(int result, const char* what) {
    if (result < 0)
        throw std::runtime_error(std::string(what) + ": " + std::strerror(-result));
}

} // namespace

AtspiFakeBus::AtspiFakeBus() {
    int ends[2];
    check(::pipe(ends) < 0 ? -errno : 0, "pipe");
    const std::string printAddress = "--print-address=" + std::to_string(ends[1]);
    const char* arguments[] = {
        "dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog", printAddress.c_str(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    check(-::posix_spawnp(&_process, arguments[0], &actions, nullptr, const_cast<char* const*>(arguments), environ),
        "dbus-daemon");
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    char character = 0;
    while (::read(ends[0], &character, 1) == 1 && character != '\n')
        _address += character;
    ::close(ends[0]);
}

AtspiFakeBus::~AtspiFakeBus() {
    stop();
}

void AtspiFakeBus::stop() {
    if (_process == 0)
        return;
    ::kill(_process, SIGTERM);
    ::waitpid(_process, nullptr, 0);
    _process = 0;
}

AtspiFakeApplication::AtspiFakeApplication(const AtspiFakeBus& bus, const std::string& wellKnownName) {
    check(sd_bus_new(&_bus), "sd_bus_new");
    check(sd_bus_set_address(_bus, bus.address().c_str()), "address");
    check(sd_bus_set_bus_client(_bus, 1), "client");
    check(sd_bus_start(_bus), "start");
    const char* name = nullptr;
    check(sd_bus_get_unique_name(_bus, &name), "unique name");
    _busName = name;
    if (!wellKnownName.empty())
        check(sd_bus_request_name(_bus, wellKnownName.c_str(), 0), "well-known name");
    check(sd_bus_add_filter(
              _bus, nullptr,
              [](sd_bus_message* message, void* userdata, sd_bus_error*) {
                  std::uint8_t type = 0;
                  sd_bus_message_get_type(message, &type);
                  if (type != SD_BUS_MESSAGE_METHOD_CALL)
                      return 0;
                  return static_cast<AtspiFakeApplication*>(userdata)->answer(message) ? 1 : 0;
              },
              this),
        "filter");
    check(::pipe(_stopPipe) < 0 ? -errno : 0, "pipe");
    _thread = std::thread([this] { serve(); });
}

AtspiFakeApplication::~AtspiFakeApplication() {
    ::close(_stopPipe[1]);
    _thread.join();
    ::close(_stopPipe[0]);
    for (sd_bus_message* message : _unanswered)
        sd_bus_message_unref(message);
    sd_bus_flush_close_unref(_bus);
}

std::size_t AtspiFakeApplication::calls(const std::string& member) {
    const std::lock_guard lock(_mutex);
    return _calls[member];
}

void AtspiFakeApplication::serve() {
    while (true) {
        std::vector<sd_bus_message*> late;
        {
            const std::lock_guard lock(_mutex);
            if (answersLate && !isSilent)
                late.swap(_unanswered);
        }
        for (sd_bus_message* message : late) {
            answer(message);
            sd_bus_message_unref(message);
        }
        const int processed = sd_bus_process(_bus, nullptr);
        std::vector<pollfd> descriptors{{_stopPipe[0], POLLIN, 0}};
        if (processed >= 0)
            descriptors.push_back({sd_bus_get_fd(_bus), static_cast<short>(sd_bus_get_events(_bus)), 0});
        ::poll(descriptors.data(), descriptors.size(), processed > 0 ? 0 : 20);
        if (descriptors[0].revents != 0)
            return;
    }
}

namespace {

bool hasBit(const std::vector<std::int32_t>& words, std::uint32_t bit) {
    return bit / 32 < words.size() && ((static_cast<std::uint32_t>(words[bit / 32]) >> bit % 32) & 1U) != 0;
}

std::vector<std::int32_t> readWords(sd_bus_message* message) {
    const void* data = nullptr;
    std::size_t size = 0;
    sd_bus_message_read_array(message, 'i', &data, &size);
    const auto* words = static_cast<const std::int32_t*>(data);
    return {words, words + size / sizeof(std::int32_t)};
}

} // namespace

void AtspiFakeApplication::answerMatches(sd_bus_message* message, const FakeAccessible& top) {
    sd_bus_message_enter_container(message, 'r', "aiia{ss}iaiiasib");
    const auto states = readWords(message);
    sd_bus_message_skip(message, "ia{ss}i");
    const auto roles = readWords(message);
    sd_bus_message_skip(message, "iasib");
    sd_bus_message_exit_container(message);

    const auto matches = [&](const FakeAccessible& object) {
        for (std::uint32_t bit = 0; bit < 64; ++bit) {
            if (hasBit(states, bit) && ((object.states >> bit) & 1U) == 0)
                return false;
        }
        return roles.empty() || hasBit(roles, object.role);
    };
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(message, &reply);
    sd_bus_message_open_container(reply, 'a', "(so)");
    for (const std::string& child : top.children) {
        const auto found = objects.find(child);
        if (found != objects.end() && matches(found->second))
            sd_bus_message_append(reply, "(so)", _busName.c_str(), child.c_str());
    }
    sd_bus_message_close_container(reply);
    sd_bus_send(nullptr, reply, nullptr);
    sd_bus_message_unref(reply);
}

bool AtspiFakeApplication::answer(sd_bus_message* message) {
    const std::lock_guard lock(_mutex);
    const std::string member = sd_bus_message_get_member(message);
    const std::string interface = sd_bus_message_get_interface(message);
    const std::string path = sd_bus_message_get_path(message);
    if (interface == "org.freedesktop.DBus.Peer")
        return false;
    ++_calls[member];
    if (isSilent) {
        _unanswered.push_back(sd_bus_message_ref(message));
        return true;
    }
    if (beforeReply)
        beforeReply(path);
    if (answersNonsense) {
        sd_bus_reply_method_return(message, "a{sv}(ys)", 1, "x", "d", 1.5, 7, "nonsense");
        return true;
    }
    const auto found = objects.find(path);
    if (found == objects.end())
        return false;
    const FakeAccessible& object = found->second;
    if (member == "GetRole") {
        sd_bus_reply_method_return(message, "u", object.role);
    } else if (member == "GetState") {
        sd_bus_reply_method_return(message, "au", 2, static_cast<std::uint32_t>(object.states),
            static_cast<std::uint32_t>(object.states >> 32U));
    } else if (member == "GetExtents" && object.hasExtents) {
        sd_bus_reply_method_return(message, "(iiii)", 10, object.top, 300, object.height);
    } else if (member == "GetAccessibleAtPoint" && (!object.underPoint.empty() || findsAtPoints)) {
        std::int32_t x = 0;
        std::int32_t y = 0;
        sd_bus_message_read(message, "ii", &x, &y);
        points.emplace_back(x, y);
        const std::string child = object.children.empty() ? "/org/a11y/atspi/null" : object.children.front();
        sd_bus_reply_method_return(
            message, "(so)", _busName.c_str(), object.underPoint.empty() ? child.c_str() : object.underPoint.c_str());
    } else if (member == "GetKeyBinding" && object.hasAction) {
        sd_bus_reply_method_return(message, "s", object.keyBinding.c_str());
    } else if (member == "GetMatches" && searches) {
        answerMatches(message, object);
    } else if (member == "GetName") {
        sd_bus_reply_method_return(message, "s", object.actionName.c_str());
    } else if (member == "GetChildren") {
        sd_bus_message* reply = nullptr;
        sd_bus_message_new_method_return(message, &reply);
        sd_bus_message_open_container(reply, 'a', "(so)");
        for (const std::string& child : object.children)
            sd_bus_message_append(reply, "(so)", _busName.c_str(), child.c_str());
        if (path == "/org/a11y/atspi/accessible/root") {
            for (const auto& [name, foreignPath] : foreignChildren)
                sd_bus_message_append(reply, "(so)", name.c_str(), foreignPath.c_str());
        }
        sd_bus_message_close_container(reply);
        sd_bus_send(nullptr, reply, nullptr);
        sd_bus_message_unref(reply);
    } else if (member == "GetChildAtIndex") {
        std::int32_t index = 0;
        sd_bus_message_read(message, "i", &index);
        const bool exists = index >= 0 && static_cast<std::size_t>(index) < object.children.size();
        sd_bus_reply_method_return(message, "(so)", _busName.c_str(),
            exists ? object.children[static_cast<std::size_t>(index)].c_str() : "/org/a11y/atspi/null");
    } else if (member == "Get") {
        const char* propertyInterface = nullptr;
        const char* property = nullptr;
        sd_bus_message_read(message, "ss", &propertyInterface, &property);
        const std::string name = property != nullptr ? property : "";
        if (name == "Name")
            sd_bus_reply_method_return(message, "v", "s", object.name.c_str());
        else if (name == "NActions")
            sd_bus_reply_method_return(message, "v", "i", 1);
        else if (name == "ChildCount")
            sd_bus_reply_method_return(
                message, "v", "i", static_cast<std::int32_t>(object.children.size()) + object.extraChildCount);
        else if (name == "ToolkitName")
            sd_bus_reply_method_return(message, "v", "s", toolkit.c_str());
        else if (name == "Parent")
            sd_bus_reply_method_return(message, "v", "(so)", _busName.c_str(),
                object.parent.empty() ? "/org/a11y/atspi/null" : object.parent.c_str());
        else
            return false;
    } else if (member != "DoAction") {
        return false;
    }
    return true;
}

} // namespace tarragon
