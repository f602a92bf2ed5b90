#pragma once

#include "platform/Geometry.h"
#include "platform/linux/accessibilitybus/AtspiReference.h"
#include "platform/linux/dbus/DBusIncoming.h"
#include "platform/linux/dbus/DBusReader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// Reads one reply of an application, leniently: whatever is not as expected gives nothing, and what can be had of it
// is kept. Values are read in the order in which they stand. Valid as long as the bytes of the message.
class AtspiReply {
public:
    // More children, or longer texts, than any menu for people has are cut off here.
    static constexpr std::size_t ChildrenLimit = 20'000;
    static constexpr std::size_t TextLimit = 16'384;

    explicit AtspiReply(const DBusIncoming& message)
        : _types(message.signature)
        , _values(message.body) { }

    std::optional<std::string> readString(); // strings and object paths
    std::optional<std::int64_t> readInteger(); // of any width
    std::optional<double> readNumber(); // integers too
    std::optional<bool> readBoolean();
    std::optional<AtspiReference> readReference(); // (so)
    std::optional<std::vector<AtspiReference>> readReferences(); // a(so), null references left out
    std::optional<std::uint64_t> readStates(); // au
    std::optional<Rect> readRect(); // (iiii), or four integers in a row

    // Steps into a variant, whatever it holds; false when the next value is none.
    [[nodiscard]] bool enterVariant();
    // Everything was read and was as its signature says.
    bool isReadWhole() const { return !_values.hasFailed() && _types.empty(); }

private:
    // Skips these types in the signature; false when it does not go on with them.
    bool takeTypes(std::string_view types);
    template <typename Number>
    std::optional<std::int64_t> readAs();
    // Reads the two texts of a reference whose types were taken already.
    std::optional<AtspiReference> readReferenceFields();

    std::string_view _types; // of the values that have not been read
    DBusReader _values;
};

} // namespace tarragon
