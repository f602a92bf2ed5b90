#include "platform/linux/x11/X11Property.h"

#include "platform/UnicodeText.h"

#include <cstring>
#include <utility>

namespace tarragon {

namespace {

// In units of four bytes. Longer than any list of windows or title that makes sense.
constexpr std::uint32_t MaximumLength = 16384;

} // namespace

X11Property::X11Property(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property)
    : _connection(connection)
    , _cookie(xcb_get_property(connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, MaximumLength)) { }

X11Property::X11Property(X11Property&& other) noexcept
    : _connection(other._connection)
    , _cookie(other._cookie)
    , _isPending(std::exchange(other._isPending, false))
    , _reply(std::move(other._reply)) { }

X11Property::~X11Property() {
    if (_isPending)
        xcb_discard_reply(_connection, _cookie.sequence);
}

const xcb_get_property_reply_t* X11Property::reply() {
    if (std::exchange(_isPending, false))
        _reply.reset(xcb_get_property_reply(_connection, _cookie, nullptr));
    return _reply.get();
}

std::vector<std::uint32_t> X11Property::numbers() {
    if (!reply() || _reply->format != 32)
        return {};
    std::vector<std::uint32_t> result(_reply->value_len);
    if (!result.empty())
        std::memcpy(result.data(), xcb_get_property_value(_reply.get()), result.size() * sizeof(std::uint32_t));
    return result;
}

std::optional<std::uint32_t> X11Property::number() {
    const std::vector<std::uint32_t> all = numbers();
    return all.empty() ? std::nullopt : std::optional(all.front());
}

std::string X11Property::bytes() {
    if (!reply() || _reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(_reply.get())), _reply->value_len};
}

std::string X11Property::text() {
    std::string all = bytes();
    // Whatever follows a null byte is a second string, of which nothing here has any.
    all.resize(std::strlen(all.c_str()));
    if (_reply && _reply->type == XCB_ATOM_STRING) {
        // ISO 8859-1, whose bytes are the numbers of its characters.
        std::u32string characters;
        for (const char character : all)
            characters += static_cast<unsigned char>(character);
        return utf8Text(characters);
    }
    return wellFormedText(all);
}

} // namespace tarragon
