#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

struct sd_bus;
struct sd_bus_message;
struct sd_bus_slot;

namespace tarragon {

// A tray that shows the notifier items of the session bus: their watcher, and a host that may come later. It answers on
// a thread of its own, for the toolkit waits for it.
class NotifierTray {
public:
    enum class Host { Present, Absent };

    explicit NotifierTray(Host host = Host::Present);
    ~NotifierTray();
    NotifierTray(const NotifierTray&) = delete;
    NotifierTray& operator=(const NotifierTray&) = delete;

    void registerHost();
    // How many items there are. A program that is gone has none.
    std::size_t itemCount();

    // What the last item that was registered tells and does. These let the program under test run until it answers;
    // empty when it does not.
    std::vector<std::pair<int, std::string>> menu(); // number and title of the items, in order
    void choose(int number);
    std::vector<int> iconSizes(); // widths of the pictures
    unsigned iconPixel(int size, int x, int y); // as 0xAARRGGBB; 0 outside of the picture

private:
    friend struct NotifierTrayMethods;

    void serve();
    bool call(const char* path, const char* interface, const char* member,
        const std::function<void(sd_bus_message*)>& write, const std::function<void(sd_bus_message*)>& read);
    std::string menuPath();
    std::map<int, std::vector<unsigned char>> pictures();

    std::mutex _mutex; // guards all but the thread
    sd_bus* _bus = nullptr;
    sd_bus_slot* _object = nullptr;
    int _hasHost = 0;
    std::vector<std::string> _items; // names on the bus
    std::atomic<bool> _ends = false;
    std::thread _thread;
};

} // namespace tarragon
