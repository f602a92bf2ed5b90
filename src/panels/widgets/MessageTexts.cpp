#include "panels/widgets/MessageTexts.h"

#include "platform/Texts.h"

namespace tarragon {

namespace {

std::string updateProblemText(const UpdateUnknown& unknown) {
    switch (unknown.problem) {
    case UpdateProblem::AddressUnusable:
        return withArguments(
            translated("MessagePanels", "The address of the release list is no https, http or file address: %@"),
            {unknown.detail});
    case UpdateProblem::Unreachable:
        return withArguments(translated("MessagePanels", "The release list cannot be reached: %@"), {unknown.detail});
    case UpdateProblem::UnsafeRedirect:
        return translated("MessagePanels", "The address of the release list leads on to one that is less safe.");
    case UpdateProblem::HttpStatus:
        return withArguments(
            translated("MessagePanels", "The server of the release list answered: %@"), {unknown.detail});
    case UpdateProblem::TimedOut:
        return translated("MessagePanels", "The release list did not arrive in time.");
    case UpdateProblem::TooLarge:
        return translated("MessagePanels", "What arrived is too large for a release list.");
    case UpdateProblem::NotAReleaseList:
        return translated("MessagePanels", "What arrived is no release list.");
    case UpdateProblem::NoRelease:
        return translated("MessagePanels", "The release list names no release.");
    case UpdateProblem::Failed:
        break;
    }
    return translated("MessagePanels", "The program that asks for updates did not do its work.");
}

struct UpdateText {
    const std::string& version;

    MessageText operator()(const UpdateFeedMissing&) const {
        return {translated("MessagePanels", "No address is configured where new versions are listed."),
            withArguments(translated("MessagePanels",
                              "This is Tarragon %@. Newer versions come with the updates of your system, or set "
                              "\"UpdateFeed\" in the preferences to the address of a release list."),
                {version})};
    }
    MessageText operator()(const UpdateUnderWay&) const {
        return {translated("MessagePanels", "Looking for a newer version..."),
            withArguments(translated("MessagePanels", "This is Tarragon %@."), {version})};
    }
    MessageText operator()(const UpToDate&) const {
        return {translated("MessagePanels", "Tarragon is up to date."),
            withArguments(translated("MessagePanels", "No version is newer than %@, which is yours."), {version})};
    }
    MessageText operator()(const NewerVersion& newer) const {
        MessageText message{withArguments(translated("MessagePanels", "Tarragon %@ is available."), {newer.version}),
            withArguments(translated("MessagePanels", "You have version %@."), {version})};
        for (const std::string& part : {newer.notes, newer.link}) {
            if (!part.empty())
                message.details.append("\n\n").append(part);
        }
        return message;
    }
    MessageText operator()(const UpdateUnknown& unknown) const {
        return {translated("MessagePanels", "It could not be told whether there is a newer version."),
            updateProblemText(unknown)};
    }
};

} // namespace

MessageText aboutText(const std::string& version) {
    return {"Tarragon " + version,
        translated("MessagePanels", "Shows the menu bar of the application in front where your pointer and eyes are.")
            + "\n\n"
            + translated(
                "MessagePanels", "Copyright 2026 The Tarragon developers. Free software under the MIT License.")
            + "\n\n"
            + translated("MessagePanels",
                "Made with Qt, libdbus, XCB, libxkbcommon, libplist, pugixml, libappstream and JSON for Modern C++.")};
}

MessageText updateText(const UpdateOutcome& outcome, const std::string& version) {
    return std::visit(UpdateText{version}, outcome);
}

} // namespace tarragon
