#pragma once

#include "platform/linux/accessibilitybus/AtspiReference.h"
#include "platform/linux/accessibilitybus/AtspiReply.h"
#include "platform/linux/accessibilitybus/AtspiState.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace tarragon {

struct AtspiScreenPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

// Which of the children of an object are meant: those with one of the roles and all of the states. What is empty
// matches everything. (Rules that exclude are answered wrongly.)
struct AtspiMatchRule {
    std::vector<std::uint32_t> roles = {};
    std::vector<AtspiState> states = {};
};

// One method call on one object. The strings of interface and member must outlive the request.
struct AtspiRequest {
    // Nothing, a property's interface and name, a number, a coordinate system, a point on the screen, a range, which
    // objects are meant, a text.
    struct Property {
        const char* interface;
        const char* name;
    };
    struct CoordinatesOfScreen { };
    struct TextRange {
        std::int32_t start;
        std::int32_t end;
    };
    using Argument = std::variant<std::monostate, Property, std::int32_t, CoordinatesOfScreen, AtspiScreenPoint,
        TextRange, AtspiMatchRule, std::string>;

    AtspiReference target;
    const char* interface;
    const char* member;
    Argument argument;
    // Called with the reply, that of a property opened, and not at all when there is none or it is an error.
    std::function<void(AtspiReply&)> handleReply;
    // Called when the application refuses.
    std::function<void()> handleError = {};
    // Called last, also when there is no answer and none to wait for any more. May add requests to those it is among.
    std::function<void()> handleEnd = {};

    bool isForProperty() const { return std::holds_alternative<Property>(argument); }
    static AtspiRequest property(
        AtspiReference target, const char* interface, const char* name, std::function<void(AtspiReply&)> handleReply) {
        return {std::move(target), "org.freedesktop.DBus.Properties", "Get", Property{interface, name},
            std::move(handleReply)};
    }
};

// These stay where they are when others are added at the end.
using AtspiRequests = std::deque<AtspiRequest>;

} // namespace tarragon
