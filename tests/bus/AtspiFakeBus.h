#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <sys/types.h>
#include <thread>
#include <utility>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace tarragon {

// A bus daemon of the test's own.
class AtspiFakeBus {
public:
    AtspiFakeBus();
    ~AtspiFakeBus();
    AtspiFakeBus(const AtspiFakeBus&) = delete;
    AtspiFakeBus& operator=(const AtspiFakeBus&) = delete;

    const std::string& address() const { return _address; }
    // The daemon is gone afterwards.
    void stop();

private:
    pid_t _process = 0;
    std::string _address;
};

struct FakeAccessible {
    std::uint32_t role = 0;
    std::string name;
    std::uint64_t states = 0;
    std::vector<std::string> children; // object paths
    std::string keyBinding;
    std::string parent; // object path, empty for none
    bool hasExtents = true; // answers where it is
    int height = 40;
    bool hasAction = true; // can be asked for the key binding of one
    int top = 20;
    std::string actionName = "click"; // not translated
    std::string underPoint = {}; // object path of what lies in it under any point; empty when it cannot be asked
    int extraChildCount = 0; // counts so many children more than it lists
};

// An application on the bus: accessible objects as plain records, served by a thread of their own, with the faults
// that real applications have.
class AtspiFakeApplication {
public:
    explicit AtspiFakeApplication(const AtspiFakeBus& bus, const std::string& wellKnownName = {});
    ~AtspiFakeApplication();
    AtspiFakeApplication(const AtspiFakeApplication&) = delete;
    AtspiFakeApplication& operator=(const AtspiFakeApplication&) = delete;

    const std::string& busName() const { return _busName; }
    // Changes the records or the faults while the application is not looking.
    template <typename Change>
    void change(Change change) {
        const std::lock_guard lock(_mutex);
        change();
    }
    // How often a method was called.
    std::size_t calls(const std::string& member);

    // Guarded: change() only.
    std::map<std::string, FakeAccessible> objects;
    std::vector<std::pair<std::string, std::string>> foreignChildren; // of the root: bus name and path
    std::string toolkit = "gtk";
    bool isSilent = false; // reads, and answers nothing
    bool answersLate = false; // what it has read while it was silent, once it is not silent any more
    bool findsAtPoints = false; // answers the first child for any point
    std::vector<std::pair<int, int>> points; // that were asked about
    bool searches = true; // answers which objects match a rule
    bool answersNonsense = false; // replies of other types than announced
    std::function<void(const std::string& path)> beforeReply; // to a call for that object

private:
    void serve();
    bool answer(sd_bus_message* message);
    void answerMatches(sd_bus_message* message, const FakeAccessible& top);

    sd_bus* _bus = nullptr;
    std::string _busName;
    std::mutex _mutex;
    std::map<std::string, std::size_t> _calls;
    int _stopPipe[2] = {-1, -1};
    std::vector<sd_bus_message*> _unanswered;
    std::thread _thread;
};

} // namespace tarragon
