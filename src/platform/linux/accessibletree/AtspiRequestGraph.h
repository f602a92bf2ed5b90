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
        std::size_t unanswered; // how many requests and earlier steps it still waits for
        Next next;
        std::vector<Step*> followers; // later steps that wait for what this one has asked
    };

    void askEachChild(const AtspiReference& reference, Next next);
    // The steps that have asked for some of this and wait for the answers.
    std::vector<Step*> stepsAsking(const AtspiNodes::Wanted& wanted) const;
    // A step that comes after the requests from firstRequest to the last, and after the earlier steps. nullptr when
    // there is nothing to wait for, and next was called at once.
    Step* addStep(std::size_t firstRequest, Next next, const std::vector<Step*>& earlier = {});
    static void countAnswer(Step& step);

    AtspiConnection& _connection;
    AtspiNodes& _nodes;
    AtspiRequests _requests;
    std::deque<Step> _steps; // requests point to them
    // By node: which fields of it each step has asked for.
    std::unordered_map<const AtspiNode*, std::vector<std::pair<AtspiFields, Step*>>> _askers;
};

} // namespace tarragon
