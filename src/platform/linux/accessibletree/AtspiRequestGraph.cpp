#include "platform/linux/accessibletree/AtspiRequestGraph.h"

#include "platform/linux/accessibilitybus/AtspiConnection.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarragon {

namespace {

// Lists of lying applications are cut off here.
constexpr std::int64_t MostChildren = 100'000;

} // namespace

void AtspiRequestGraph::ask(const AtspiNodes::Wanted& wanted, Next next) {
    const std::vector<Step*> earlier = stepsAsking(wanted);
    std::vector<std::pair<const AtspiNode*, AtspiFields>> asked;
    for (const auto& [reference, fields] : wanted) {
        const AtspiNode& node = _nodes.at(reference);
        if (const AtspiFields missing = node.missing(fields); missing != 0)
            asked.emplace_back(&node, missing);
    }
    const std::size_t firstRequest = _requests.size();
    _nodes.addRequests(_requests, wanted);
    Step* const step = addStep(firstRequest, std::move(next), earlier);
    for (const auto& [node, fields] : asked)
        _askers[node].emplace_back(fields, step);
}

std::vector<AtspiRequestGraph::Step*> AtspiRequestGraph::stepsAsking(const AtspiNodes::Wanted& wanted) const {
    std::vector<Step*> steps;
    for (const auto& [reference, fields] : wanted) {
        const auto askers = _askers.find(&_nodes.at(reference));
        if (askers == _askers.end())
            continue;
        for (const auto& [askedFields, step] : askers->second) {
            if ((askedFields & fields) != 0 && step->unanswered != 0)
                steps.push_back(step);
        }
    }
    return steps;
}

void AtspiRequestGraph::askChildrenOneByOne(const AtspiReference& reference, Next next) {
    AtspiNode& node = _nodes.at(reference);
    if (node.missing(AtspiFieldChildren) == 0) {
        next();
        return;
    }
    node.asked |= AtspiFieldChildren;
    node.asked &= ~AtspiFieldChildCount;
    node.childCount.reset();
    ask({{reference, AtspiFieldChildCount}},
        [this, reference, next = std::move(next)] { askEachChild(reference, next); });
}

void AtspiRequestGraph::askEachChild(const AtspiReference& reference, Next next) {
    AtspiNode& node = _nodes.at(reference);
    if (!node.childCount) {
        next();
        return;
    }
    const auto count = static_cast<std::int32_t>(std::clamp<std::int64_t>(*node.childCount, 0, MostChildren));
    const auto found = std::make_shared<std::vector<AtspiReference>>(count);
    const std::size_t firstRequest = _requests.size();
    for (std::int32_t index = 0; index < count; ++index) {
        _requests.push_back({reference, "org.a11y.atspi.Accessible", "GetChildAtIndex", index,
            [child = &(*found)[static_cast<std::size_t>(index)]](
                AtspiReply& reply) { *child = reply.readReference().value_or(AtspiReference{}); }});
    }
    addStep(firstRequest, [&node, found, next = std::move(next)] {
        // While they were asked for some may have gone or moved up.
        std::unordered_set<AtspiReference, AtspiReferenceHash> seen;
        std::erase_if(
            *found, [&](const AtspiReference& child) { return child.isNull() || !seen.insert(child).second; });
        node.children = std::move(*found);
        next();
    });
}

AtspiRequestGraph::Step* AtspiRequestGraph::addStep(
    std::size_t firstRequest, Next next, const std::vector<Step*>& earlier) {
    const std::size_t count = _requests.size() - firstRequest + earlier.size();
    if (count == 0) {
        next();
        return nullptr;
    }
    Step* const step = &_steps.emplace_back(Step{count, std::move(next), {}});
    for (Step* const other : earlier)
        other->followers.push_back(step);
    for (std::size_t index = firstRequest; index < _requests.size(); ++index)
        _requests[index].handleEnd = [step] { countAnswer(*step); };
    return step;
}

void AtspiRequestGraph::countAnswer(Step& step) {
    if (--step.unanswered != 0)
        return;
    step.next();
    for (Step* const follower : step.followers)
        countAnswer(*follower);
}

void AtspiRequestGraph::run() {
    _connection.run(_requests);
    _requests.clear();
    _steps.clear();
    _askers.clear();
}

} // namespace tarragon
