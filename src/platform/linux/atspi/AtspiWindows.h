#pragma once

#include "platform/linux/accessibilitybus/AtspiReference.h"
#include "platform/linux/accessibletree/AtspiNodes.h"
#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/atspi/AtspiFrame.h"

#include <cstdint>
#include <functional>
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

    struct Remembered {
        std::optional<AtspiReference> frame;
        std::optional<AtspiReference> menuBar;
    };
    // They may be gone. Nothing when they were of another application.
    Remembered remembered(std::uint32_t window, const AtspiApplication& application) const;
    // These two take what the nodes tell, and ask for the rest. The query is only made where it is needed.
    std::optional<AtspiReference> frame(std::uint32_t window, const AtspiApplication& application, AtspiNodes& nodes,
        const std::function<AtspiFrameQuery()>& query);
    std::optional<AtspiReference> menuBar(const AtspiReference& frame, AtspiNodes& nodes);
    void forget();

private:
    std::optional<AtspiReference> findMenuBar(const AtspiReference& frame);
    bool hasRole(const AtspiReference& reference, bool (*isExpected)(std::uint32_t), AtspiNodes& nodes);

    AtspiConnection& _connection;
    std::unordered_map<std::uint32_t, AtspiReference> _frames; // by X window
    std::unordered_map<AtspiReference, AtspiReference, AtspiReferenceHash> _menuBars; // by frame
};

} // namespace tarragon
