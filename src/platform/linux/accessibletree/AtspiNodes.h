#pragma once

#include "platform/linux/accessibilitybus/AtspiRequest.h"
#include "platform/linux/accessibletree/AtspiNode.h"

#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarragon {

class AtspiConnection;

// What has been read of accessible objects during one read batch, or one single read. References to nodes stay valid
// when others are added.
class AtspiNodes {
public:
    using Wanted = std::vector<std::pair<AtspiReference, AtspiFields>>;

    // The same fields of each object.
    static Wanted wanted(std::span<const AtspiReference> references, AtspiFields fields);

    AtspiNodes() = default;
    AtspiNodes(const AtspiNodes&) = delete;
    AtspiNodes& operator=(const AtspiNodes&) = delete;

    // The node of a reference; an empty one when nothing was asked yet.
    AtspiNode& at(const AtspiReference& reference) {
        // Most often it is the one that was asked for before.
        if (_last == nullptr || _last->first != reference)
            _last = &*_nodes.try_emplace(reference).first;
        return _last->second;
    }
    const AtspiNode& fetch(AtspiConnection& connection, const AtspiReference& reference, AtspiFields fields);
    // Asks for what is not known yet, everything in flight at once.
    void fetch(AtspiConnection& connection, const Wanted& wanted);
    // Adds the questions for what is not known yet, which counts as asked from then on. Their answers go into the
    // nodes.
    void addRequests(AtspiRequests& requests, const Wanted& wanted);

private:
    using Nodes = std::unordered_map<AtspiReference, AtspiNode, AtspiReferenceHash>;

    Nodes _nodes;
    Nodes::value_type* _last = nullptr;
};

} // namespace tarragon
