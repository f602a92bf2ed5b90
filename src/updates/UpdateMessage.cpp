#include "updates/UpdateMessage.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

namespace tarragon {

namespace {

using Json = nlohmann::json;

constexpr std::array<std::pair<UpdateProblem, std::string_view>, 9> ProblemNames = {{
    {UpdateProblem::AddressUnusable, "address unusable"},
    {UpdateProblem::Unreachable, "unreachable"},
    {UpdateProblem::UnsafeRedirect, "unsafe redirect"},
    {UpdateProblem::HttpStatus, "HTTP status"},
    {UpdateProblem::TimedOut, "timed out"},
    {UpdateProblem::TooLarge, "too large"},
    {UpdateProblem::NotAReleaseList, "not a release list"},
    {UpdateProblem::NoRelease, "no release"},
    {UpdateProblem::Failed, "failed"},
}};

struct Message {
    Json operator()(const UpdateFeedMissing&) const { return {{"result", "no feed"}}; }
    Json operator()(const UpdateUnderWay&) const { return {{"result", "under way"}}; }
    Json operator()(const UpToDate&) const { return {{"result", "up to date"}}; }
    Json operator()(const NewerVersion& newer) const {
        return {{"result", "newer"}, {"version", newer.version}, {"notes", newer.notes}, {"link", newer.link}};
    }
    Json operator()(const UpdateUnknown& unknown) const {
        const auto* const name = std::find_if(ProblemNames.begin(), ProblemNames.end(),
            [&](const auto& entry) { return entry.first == unknown.problem; });
        return {{"result", "unknown"}, {"problem", name->second}, {"detail", unknown.detail}};
    }
};

std::string textAt(const Json& message, const char* key) {
    const auto found = message.find(key);
    return found != message.end() && found->is_string() ? found->get<std::string>() : std::string();
}

} // namespace

std::string updateMessage(const UpdateOutcome& outcome) {
    return std::visit(Message{}, outcome).dump(-1, ' ', false, Json::error_handler_t::replace);
}

UpdateOutcome outcomeOfMessage(const std::string& message) {
    const Json json = Json::parse(message, nullptr, false);
    if (!json.is_object())
        return UpdateUnknown{};
    const std::string result = textAt(json, "result");
    if (result == "no feed")
        return UpdateFeedMissing{};
    if (result == "under way")
        return UpdateUnderWay{};
    if (result == "up to date")
        return UpToDate{};
    if (result == "newer")
        return NewerVersion{textAt(json, "version"), textAt(json, "notes"), textAt(json, "link")};
    const std::string problem = textAt(json, "problem");
    const auto* const name = std::find_if(
        ProblemNames.begin(), ProblemNames.end(), [&](const auto& entry) { return entry.second == problem; });
    if (result != "unknown" || name == ProblemNames.end())
        return UpdateUnknown{};
    return UpdateUnknown{name->first, textAt(json, "detail")};
}

} // namespace tarragon
