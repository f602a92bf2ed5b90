#pragma once

#include "updates/UpdateOutcome.h"

#include <functional>
#include <string>

namespace tarragon {

// Asks a release feed for a newer version. Main thread only.
class UpdateChecker {
public:
    using Handler = std::function<void(const UpdateOutcome&)>;

    virtual ~UpdateChecker() = default;

    // The address that the program was built with; empty when there is none.
    [[nodiscard]] virtual std::string builtInFeed() const = 0;

    // A question is under way.
    [[nodiscard]] virtual bool isChecking() const = 0;

    // Asks at the address and returns at once; the handler is called later, once. Only while no question is under way.
    virtual void check(const std::string& address, Handler handler) = 0;
};

} // namespace tarragon
