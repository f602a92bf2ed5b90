#pragma once

#include "platform/Geometry.h"
#include "platform/linux/AtspiReference.h"
#include "platform/linux/DBusMessage.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// Reads one reply of an application, leniently: whatever is not as expected gives nothing, and what can be had of it
// is kept. Values are read in the order in which they stand. Does not own the message.
class AtspiReply {
public:
    // More children, or longer texts, than any menu for people has are cut off here.
    static constexpr std::size_t ChildrenLimit = 20'000;
    static constexpr std::size_t TextLimit = 16'384;

    explicit AtspiReply(DBusMessage* message);

    std::optional<std::string> readString(); // strings and object paths
    std::optional<std::int64_t> readInteger(); // of any width
    std::optional<double> readNumber(); // integers too
    std::optional<bool> readBoolean();
    std::optional<AtspiReference> readReference(); // (so)
    std::optional<std::vector<AtspiReference>> readReferences(); // a(so), null references left out
    std::optional<std::uint64_t> readStates(); // au
    std::optional<Rect> readRect(); // (iiii), or four integers in a row

    // Steps into a variant, whatever it holds; false when the next value is none.
    bool enterVariant();

private:
    // The type of the next value; DBUS_TYPE_INVALID at the end.
    int nextType() { return dbus_message_iter_get_arg_type(&_next); }
    // Reads a basic value of this type, which the next one has.
    template <typename T>
    T read();

    DBusMessageIter _next = {};
};

} // namespace tarragon
