#pragma once

#include "platform/linux/AtspiApplications.h"
#include "platform/linux/AtspiFrame.h"
#include "platform/linux/AtspiReference.h"

#include <cstdint>
#include <optional>
#include <unordered_map>

namespace tarragon {

class AtspiConnection;

// The accessible frames of X windows and the menu bars within them. Both are looked for once and remembered until they
// are gone.
class AtspiWindows {
public:
    explicit AtspiWindows(AtspiConnection& connection)
        : _connection(connection) { }

    std::optional<AtspiReference> frame(
        std::uint32_t window, const AtspiFrameQuery& query, const AtspiApplication& application);
    std::optional<AtspiReference> menuBar(const AtspiReference& frame);
    void forget();

private:
    std::optional<AtspiReference> findMenuBar(const AtspiReference& frame);
    bool hasRole(const AtspiReference& reference, bool (*isExpected)(std::uint32_t));

    AtspiConnection& _connection;
    std::unordered_map<std::uint32_t, AtspiReference> _frames; // by X window
    std::unordered_map<AtspiReference, AtspiReference, AtspiReferenceHash> _menuBars; // by frame
};

} // namespace tarragon
