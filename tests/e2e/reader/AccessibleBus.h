#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>
#include <vector>

namespace reader {

struct VariantDeleter {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};
using Variant = std::unique_ptr<GVariant, VariantDeleter>;

// An element by its address on the accessibility bus.
struct Address {
    std::string owner;
    std::string path;
};

struct Question {
    Address address;
    std::string interface;
    std::string method;
    GVariant* arguments = nullptr; // floating
    Variant answer; // nullptr when there was none
};

// A connection to the accessibility bus on which many questions are under way at a time: a window has hundreds of them.
class AccessibleBus {
public:
    AccessibleBus();
    ~AccessibleBus();
    AccessibleBus(const AccessibleBus&) = delete;
    AccessibleBus& operator=(const AccessibleBus&) = delete;

    // Returns when all of them are answered, or will not be.
    void ask(std::vector<Question>& questions);
    // The addresses that an answer holds.
    static std::vector<Address> addressesIn(const Variant& answer);

private:
    GDBusConnection* _connection = nullptr; // nullptr when the bus cannot be reached
};

} // namespace reader
