#pragma once

#include "platform/linux/accessibilitybus/AtspiReference.h"
#include "platform/linux/accessibletree/AtspiNodes.h"
#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/atspi/AtspiFrame.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarragon {

class AtspiConnection;

// The accessible frames of windows and the menu bars within them. Both are looked for once and remembered until they
// are gone. Of a frame without a menu bar it is remembered where one was looked for, and it is searched again when
// something was added or removed there.
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
    // What tells whether that still holds.
    AtspiNodes::Wanted wantedOf(const Remembered& remembered) const;
    // These two take what the nodes tell, and ask for the rest. The query is only made where it is needed.
    std::optional<AtspiReference> frame(std::uint32_t window, const AtspiApplication& application, AtspiNodes& nodes,
        const std::function<AtspiFrameQuery()>& query);
    std::optional<AtspiReference> menuBar(const AtspiReference& frame, AtspiNodes& nodes);
    void forget();

private:
    // A frame in which no menu bar was found.
    struct FrameWithoutMenuBar {
        AtspiReference frame;
        // The objects that were searched, with the number of their children.
        std::vector<std::pair<AtspiReference, std::size_t>> searched;
    };

    std::optional<AtspiReference> search(const AtspiReference& frame);
    const FrameWithoutMenuBar* withoutMenuBar(const AtspiReference& frame) const;
    // Nothing was added to what was searched, nor removed from it.
    bool isUnchanged(const FrameWithoutMenuBar& known, AtspiNodes& nodes);
    void rememberWithoutMenuBar(
        const AtspiReference& frame, const std::vector<AtspiReference>& searched, AtspiNodes& nodes);
    bool hasRole(const AtspiReference& reference, bool (*isExpected)(std::uint32_t), AtspiNodes& nodes);

    AtspiConnection& _connection;
    std::unordered_map<std::uint32_t, AtspiReference> _frames; // by window
    std::unordered_map<AtspiReference, AtspiReference, AtspiReferenceHash> _menuBars; // by frame
    std::deque<FrameWithoutMenuBar> _withoutMenuBar; // those found last, the latest at the end
};

} // namespace tarragon
