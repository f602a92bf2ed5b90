#pragma once

#include "platform/linux/accessibilitybus/AtspiRequest.h"
#include "platform/linux/accessibletree/AtspiNodes.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarragon {

class AtspiConnection;

// Questions about accessible objects of which the answers lead to others. These are asked as soon as the answers that
// they depend on are there, while other answers are still on their way: so the application is never without work.
class AtspiRequestGraph {
public:
    using Next = std::function<void()>;

    AtspiRequestGraph(AtspiConnection& connection, AtspiNodes& nodes)
        : _connection(connection)
        , _nodes(nodes) { }
    AtspiRequestGraph(const AtspiRequestGraph&) = delete;
    AtspiRequestGraph& operator=(const AtspiRequestGraph&) = delete;

    // Asks for what is not known yet. What comes next is called when all of that was answered or given up, and at once
    // when there is nothing to ask; it may ask again. Not called at all when the bus ends.
    void ask(const AtspiNodes::Wanted& wanted, Next next);
    // Asks for each child by itself rather than for the list of them, which some applications take long for: so their
    // answers keep coming, and they answer others meanwhile.
    void askChildrenOneByOne(const AtspiReference& reference, Next next);
    // Returns when there is nothing left to ask and nothing on its way.
    void run();

private:
    struct Step {
        std::size_t unanswered; // requests, and earlier steps that it waits for
        Next next;
        std::vector<Step*> followers; // later ones that want what it has asked, too
    };

    void askEachChild(const AtspiReference& reference, Next next);
    // Those that have asked some of it and wait for the answers.
    std::vector<Step*> stepsAsking(const AtspiNodes::Wanted& wanted) const;
    // What comes after all requests from this one on and after these steps. nullptr when it has come already.
    Step* addStep(std::size_t firstRequest, Next next, const std::vector<Step*>& earlier = {});
    static void countAnswer(Step& step);

    AtspiConnection& _connection;
    AtspiNodes& _nodes;
    AtspiRequests _requests;
    std::deque<Step> _steps; // requests point to them
    // By node: what was asked of it, and by whom.
    std::unordered_map<const AtspiNode*, std::vector<std::pair<AtspiFields, Step*>>> _askers;
};

} // namespace tarragon
