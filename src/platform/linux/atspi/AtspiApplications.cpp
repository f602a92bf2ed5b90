#include "platform/linux/atspi/AtspiApplications.h"

#include "platform/Log.h"
#include "platform/linux/accessibilitybus/AtspiConnection.h"

#include <algorithm>
#include <string>

namespace tarragon {

namespace {

constexpr const char* RootPath = "/org/a11y/atspi/accessible/root";

} // namespace

std::optional<AtspiApplication> AtspiApplications::find(std::int64_t processIdentifier) {
    if (processIdentifier <= 0 || processIdentifier == _ownProcessIdentifier)
        return {};
    Entry* entry = known(processIdentifier);
    if (entry == nullptr) {
        refresh();
        entry = known(processIdentifier);
    }
    if (entry == nullptr) {
        log(LogCategory::Accessibility, [&] {
            return "process " + std::to_string(processIdentifier) + " has no application on the accessibility bus";
        });
        return {};
    }
    // Not asked for is the address of a socket apart from the bus, which GTK 3 would hand out. It takes whoever asks
    // for an assistive technology and tells it of every key; within a dialog that our press has opened, the first key
    // then waits for itself for ever.
    if (!entry->toolkit && _connection.mayAsk(entry->root.busName))
        entry->toolkit = askToolkit(entry->root);
    return AtspiApplication{entry->root, entry->toolkit.value_or(AtspiToolkit::Other)};
}

void AtspiApplications::forget() {
    _entries.clear();
    _order.clear();
}

AtspiApplications::Entry* AtspiApplications::known(std::int64_t processIdentifier) {
    // The latest first: a process may have left the bus and joined it again.
    const auto found = std::find_if(_order.rbegin(), _order.rend(), [&](const std::string& busName) {
        return _entries[busName].processIdentifier == processIdentifier && !_connection.isGone(busName);
    });
    return found != _order.rend() ? &_entries[*found] : nullptr;
}

void AtspiApplications::refresh() {
    std::vector<AtspiReference> roots;
    _connection.run({{{"org.a11y.atspi.Registry", RootPath}, "org.a11y.atspi.Accessible", "GetChildren", {},
        [&roots](AtspiReply& reply) { roots = reply.readReferences().value_or(std::vector<AtspiReference>{}); }}});

    AtspiRequests requests;
    for (const AtspiReference& root : roots) {
        const auto [position, isNew] = _entries.try_emplace(root.busName, Entry{root, 0, {}});
        if (!isNew)
            continue;
        _order.push_back(root.busName);
        Entry* const entry = &position->second;
        requests.push_back({{"org.freedesktop.DBus", "/org/freedesktop/DBus"}, "org.freedesktop.DBus",
            "GetConnectionUnixProcessID", root.busName,
            [entry](AtspiReply& reply) { entry->processIdentifier = reply.readInteger().value_or(0); }});
    }
    _connection.run(requests);
    // Those of which nothing was learnt are asked about again the next time.
    std::erase_if(_order, [this](const std::string& busName) { return _entries[busName].processIdentifier == 0; });
    std::erase_if(_entries, [](const auto& entry) { return entry.second.processIdentifier == 0; });
}

std::optional<AtspiToolkit> AtspiApplications::askToolkit(const AtspiReference& root) {
    std::string name;
    _connection.run({AtspiRequest::property(root, "org.a11y.atspi.Application", "ToolkitName",
        [&name](AtspiReply& reply) { name = reply.readString().value_or(std::string{}); })});
    if (name.empty())
        return {};
    if (name == "gtk" || name == "GTK" || name == "GAIL")
        return AtspiToolkit::Gtk;
    if (name.starts_with("Qt"))
        return AtspiToolkit::Qt;
    return AtspiToolkit::Other;
}

} // namespace tarragon
