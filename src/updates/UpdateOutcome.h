#pragma once

#include <string>
#include <variant>

namespace tarragon {

// What came of asking for a newer version.

// No address is known where releases are listed.
struct UpdateFeedMissing {
    bool operator==(const UpdateFeedMissing&) const = default;
};

// The question is on its way.
struct UpdateUnderWay {
    bool operator==(const UpdateUnderWay&) const = default;
};

// No listed release is newer than the running version.
struct UpToDate {
    bool operator==(const UpToDate&) const = default;
};

struct NewerVersion {
    std::string version;
    std::string notes; // plain text, shortened to what fits on a screen; may be empty
    std::string link; // http or https; empty when the list gives none
    bool operator==(const NewerVersion&) const = default;
};

enum class UpdateProblem {
    AddressUnusable, // neither https, http nor file
    Unreachable,
    UnsafeRedirect, // the address leads on to a less safe one
    HttpStatus,
    TimedOut,
    TooLarge,
    NotAReleaseList,
    NoRelease, // a list without a release for everybody
    Failed, // asking itself went wrong
};

// It could not be told. The detail is for people, such as an HTTP status; it may be empty.
struct UpdateUnknown {
    UpdateProblem problem = UpdateProblem::Failed;
    std::string detail;
    bool operator==(const UpdateUnknown&) const = default;
};

using UpdateOutcome = std::variant<UpdateFeedMissing, UpdateUnderWay, UpToDate, NewerVersion, UpdateUnknown>;

} // namespace tarragon
