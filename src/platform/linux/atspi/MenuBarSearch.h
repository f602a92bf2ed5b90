#pragma once

#include "platform/linux/accessibilitybus/AtspiReference.h"

#include <optional>
#include <unordered_set>
#include <vector>

namespace tarragon {

class AtspiConnection;
class AtspiNodes;

// Looks for a menu bar in the tree below one frame, level by level from the top, with all questions about a level in
// flight at once. To be used once.
class MenuBarSearch {
public:
    MenuBarSearch(AtspiConnection& connection, AtspiNodes& nodes)
        : _connection(connection)
        , _nodes(nodes) { }

    // The uppermost menu bar that is visible, failing that the uppermost one.
    std::optional<AtspiReference> run(const AtspiReference& frame);
    // The objects whose children were looked at: where nothing changes about them, no menu bar appears.
    const std::vector<AtspiReference>& containers() const { return _containers; }

private:
    // The children of these, those that were met before left out.
    std::vector<AtspiReference> childrenOf(const std::vector<AtspiReference>& level);

    AtspiConnection& _connection;
    AtspiNodes& _nodes;
    std::unordered_set<AtspiReference, AtspiReferenceHash> _seen;
    std::vector<AtspiReference> _containers;
};

} // namespace tarragon
