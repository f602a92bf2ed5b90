#include "platform/qt/ScreenConfiguration.h"

#include "platform/Displays.h"

#include <algorithm>

namespace tarragon {

namespace {

const ConfiguredScreen* screenOfName(const ScreenConfiguration& screens, const std::string& name) {
    const auto found = std::ranges::find(screens, name, &ConfiguredScreen::name);
    return found == screens.end() ? nullptr : &*found;
}

ScreenConfiguration withoutMirrors(const ScreenConfiguration& screens) {
    ScreenConfiguration distinct;
    for (const ConfiguredScreen& screen : screens) {
        if (std::ranges::find(distinct, screen.frame, &ConfiguredScreen::frame) == distinct.end())
            distinct.push_back(screen);
    }
    return distinct;
}

} // namespace

std::uint32_t reconfigurationFlags(const ScreenConfiguration& allBefore, const ScreenConfiguration& allAfter) {
    const ScreenConfiguration before = withoutMirrors(allBefore);
    const ScreenConfiguration after = withoutMirrors(allAfter);
    std::uint32_t flags = 0;
    for (const ConfiguredScreen& screen : before) {
        if (!screenOfName(after, screen.name))
            flags |= displayReconfiguration::Removed;
    }
    for (const ConfiguredScreen& screen : after) {
        const ConfiguredScreen* old = screenOfName(before, screen.name);
        if (!old) {
            flags |= displayReconfiguration::Added;
            continue;
        }
        if (old->frame.origin != screen.frame.origin)
            flags |= displayReconfiguration::Moved;
        if (old->frame.size != screen.frame.size)
            flags |= displayReconfiguration::SetMode;
    }
    if (!before.empty() && !after.empty() && before.front().name != after.front().name)
        flags |= displayReconfiguration::SetMain;
    return flags;
}

} // namespace tarragon
