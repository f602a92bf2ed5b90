#pragma once

#include "platform/linux/accessibilitybus/AtspiReference.h"
#include "platform/linux/accessibletree/AtspiElement.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tarragon {

class AtspiConnection;

struct AtspiApplication {
    AtspiReference root;
    AtspiToolkit toolkit = AtspiToolkit::Other;
};

// Which application of the accessibility bus belongs to which process. What the bus says of a connection is remembered
// for as long as the connection lives; applications that started since are found when they are asked for. Our own
// process is never found: it could not answer while it waits.
class AtspiApplications {
public:
    AtspiApplications(AtspiConnection& connection, std::int64_t ownProcessIdentifier)
        : _connection(connection)
        , _ownProcessIdentifier(ownProcessIdentifier) { }

    std::optional<AtspiApplication> find(std::int64_t processIdentifier);
    // Another accessibility bus means other applications.
    void forget();

private:
    struct Entry {
        AtspiReference root;
        std::int64_t processIdentifier = 0;
        std::optional<AtspiToolkit> toolkit;
    };

    Entry* known(std::int64_t processIdentifier);
    void refresh();
    // Nothing when it does not answer.
    std::optional<AtspiToolkit> askToolkit(const AtspiReference& root);

    AtspiConnection& _connection;
    std::int64_t _ownProcessIdentifier;
    std::unordered_map<std::string, Entry> _entries; // by unique bus name
    std::vector<std::string> _order; // bus names, in order of appearance
};

} // namespace tarragon
