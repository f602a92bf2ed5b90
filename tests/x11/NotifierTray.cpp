#include "NotifierTray.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include <QTest>

#include <poll.h>
#include <systemd/sd-bus.h>

namespace tarragon {

namespace {

constexpr const char* Name = "org.kde.StatusNotifierWatcher";
constexpr const char* Path = "/StatusNotifierWatcher";
constexpr const char* ItemPath = "/StatusNotifierItem";
constexpr const char* ItemInterface = "org.kde.StatusNotifierItem";
constexpr const char* MenuInterface = "com.canonical.dbusmenu";
constexpr int Patience = 20000; // milliseconds

void check(int result, const char* what) {
    if (result < 0)
        throw std::runtime_error(std::string(what) + ": " + std::strerror(-result));
}

} // namespace

struct NotifierTrayMethods {
    static int registerItem(sd_bus_message* message, void* userdata, sd_bus_error*) {
        auto* tray = static_cast<NotifierTray*>(userdata);
        const char* service = nullptr;
        sd_bus_message_read(message, "s", &service);
        std::erase(tray->_items, service);
        tray->_items.emplace_back(service);
        return sd_bus_reply_method_return(message, "");
    }
    static int registerHost(sd_bus_message* message, void*, sd_bus_error*) {
        return sd_bus_reply_method_return(message, "");
    }
    static int hasHost(
        sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* userdata, sd_bus_error*) {
        return sd_bus_message_append(reply, "b", static_cast<NotifierTray*>(userdata)->_hasHost);
    }
};

namespace {

const sd_bus_vtable watcherTable[] = {SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("RegisterStatusNotifierItem", "s", "", NotifierTrayMethods::registerItem, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("RegisterStatusNotifierHost", "s", "", NotifierTrayMethods::registerHost, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("IsStatusNotifierHostRegistered", "b", NotifierTrayMethods::hasHost, 0, 0),
    SD_BUS_SIGNAL("StatusNotifierHostRegistered", "", 0), SD_BUS_VTABLE_END};

} // namespace

NotifierTray::NotifierTray(Host host)
    : _hasHost(host == Host::Present ? 1 : 0) {
    check(sd_bus_new(&_bus), "sd_bus_new");
    check(sd_bus_set_address(_bus, std::getenv("DBUS_SESSION_BUS_ADDRESS")), "address");
    check(sd_bus_set_bus_client(_bus, 1), "client");
    check(sd_bus_start(_bus), "start");
    check(sd_bus_add_object_vtable(_bus, &_object, Path, Name, watcherTable, this), "object");
    check(sd_bus_request_name(_bus, Name, 0), "name");
    _thread = std::thread([this] { serve(); });
}

NotifierTray::~NotifierTray() {
    _ends = true;
    _thread.join();
    sd_bus_slot_unref(_object);
    sd_bus_flush_close_unref(_bus);
}

void NotifierTray::serve() {
    constexpr int PollTimeout = 5; // milliseconds, after which it is noticed that others have sent something
    while (!_ends) {
        pollfd descriptor{};
        {
            const std::lock_guard lock(_mutex);
            while (sd_bus_process(_bus, nullptr) > 0) { }
            descriptor = {sd_bus_get_fd(_bus), static_cast<short>(sd_bus_get_events(_bus)), 0};
        }
        ::poll(&descriptor, 1, PollTimeout);
    }
}

void NotifierTray::registerHost() {
    const std::lock_guard lock(_mutex);
    _hasHost = 1;
    check(sd_bus_emit_signal(_bus, Path, Name, "StatusNotifierHostRegistered", ""), "signal");
}

std::size_t NotifierTray::itemCount() {
    const std::lock_guard lock(_mutex);
    std::erase_if(
        _items, [this](const std::string& item) { return sd_bus_get_name_creds(_bus, item.c_str(), 0, nullptr) < 0; });
    return _items.size();
}

bool NotifierTray::call(const char* path, const char* interface, const char* member,
    const std::function<void(sd_bus_message*)>& write, const std::function<void(sd_bus_message*)>& read) {
    if (itemCount() == 0)
        return false;
    struct Answer {
        const std::function<void(sd_bus_message*)>& read;
        std::atomic<bool> hasCome = false;
        bool isError = false;
    } answer{read};
    sd_bus_slot* slot = nullptr;
    std::unique_lock lock(_mutex);
    sd_bus_message* question = nullptr;
    check(sd_bus_message_new_method_call(_bus, &question, _items.back().c_str(), path, interface, member), "call");
    write(question);
    check(sd_bus_call_async(
              _bus, &slot, question,
              [](sd_bus_message* reply, void* userdata, sd_bus_error*) {
                  auto* result = static_cast<Answer*>(userdata);
                  result->isError = sd_bus_message_is_method_error(reply, nullptr) != 0;
                  if (!result->isError)
                      result->read(reply);
                  result->hasCome = true;
                  return 0;
              },
              &answer, 0),
        "call");
    sd_bus_message_unref(question);
    lock.unlock();
    const bool hasCome = QTest::qWaitFor([&] { return answer.hasCome.load(); }, Patience);
    lock.lock();
    sd_bus_slot_unref(slot);
    return hasCome && !answer.isError;
}

std::string NotifierTray::menuPath() {
    std::string path;
    call(
        ItemPath, "org.freedesktop.DBus.Properties", "Get",
        [](sd_bus_message* question) { sd_bus_message_append(question, "ss", ItemInterface, "Menu"); },
        [&](sd_bus_message* reply) {
            const char* value = nullptr;
            sd_bus_message_read(reply, "v", "o", &value);
            path = value != nullptr ? value : "";
        });
    return path;
}

std::vector<std::pair<int, std::string>> NotifierTray::menu() {
    std::vector<std::pair<int, std::string>> items;
    call(
        menuPath().c_str(), MenuInterface, "GetLayout",
        [](sd_bus_message* question) { sd_bus_message_append(question, "iias", 0, -1, 0); },
        [&](sd_bus_message* reply) {
            sd_bus_message_skip(reply, "u");
            sd_bus_message_enter_container(reply, 'r', "ia{sv}av");
            sd_bus_message_skip(reply, "ia{sv}");
            sd_bus_message_enter_container(reply, 'a', "v");
            while (sd_bus_message_enter_container(reply, 'v', "(ia{sv}av)") > 0) {
                std::pair<std::int32_t, std::string> item;
                sd_bus_message_enter_container(reply, 'r', "ia{sv}av");
                sd_bus_message_read(reply, "i", &item.first);
                sd_bus_message_enter_container(reply, 'a', "{sv}");
                while (sd_bus_message_enter_container(reply, 'e', "sv") > 0) {
                    const char* key = nullptr;
                    sd_bus_message_read(reply, "s", &key);
                    const char* label = nullptr;
                    if (std::string(key) == "label" && sd_bus_message_read(reply, "v", "s", &label) > 0)
                        item.second = label;
                    else
                        sd_bus_message_skip(reply, "v");
                    sd_bus_message_exit_container(reply);
                }
                sd_bus_message_exit_container(reply);
                sd_bus_message_skip(reply, "av");
                sd_bus_message_exit_container(reply);
                sd_bus_message_exit_container(reply);
                items.push_back(item);
            }
        });
    return items;
}

void NotifierTray::choose(int number) {
    call(
        menuPath().c_str(), MenuInterface, "Event",
        [&](sd_bus_message* question) { sd_bus_message_append(question, "isvu", number, "clicked", "s", "", 0); },
        [](sd_bus_message*) {});
}

std::map<int, std::vector<unsigned char>> NotifierTray::pictures() {
    std::map<int, std::vector<unsigned char>> pictures;
    call(
        ItemPath, "org.freedesktop.DBus.Properties", "Get",
        [](sd_bus_message* question) { sd_bus_message_append(question, "ss", ItemInterface, "IconPixmap"); },
        [&](sd_bus_message* reply) {
            sd_bus_message_enter_container(reply, 'v', "a(iiay)");
            sd_bus_message_enter_container(reply, 'a', "(iiay)");
            while (sd_bus_message_enter_container(reply, 'r', "iiay") > 0) {
                std::int32_t width = 0;
                std::int32_t height = 0;
                const void* bytes = nullptr;
                std::size_t size = 0;
                sd_bus_message_read(reply, "ii", &width, &height);
                sd_bus_message_read_array(reply, 'y', &bytes, &size);
                sd_bus_message_exit_container(reply);
                const auto* first = static_cast<const unsigned char*>(bytes);
                pictures[width].assign(first, first + size);
            }
        });
    return pictures;
}

std::vector<int> NotifierTray::iconSizes() {
    std::vector<int> sizes;
    for (const auto& [size, bytes] : pictures())
        sizes.push_back(size);
    return sizes;
}

unsigned NotifierTray::iconPixel(int size, int x, int y) {
    const auto all = pictures();
    const auto found = all.find(size);
    const auto offset = static_cast<std::size_t>((y * size + x) * 4);
    if (found == all.end() || found->second.size() < offset + 4)
        return 0;
    unsigned pixel = 0;
    for (std::size_t byte = 0; byte < 4; ++byte)
        pixel = pixel << 8U | found->second[offset + byte];
    return pixel;
}

} // namespace tarragon
