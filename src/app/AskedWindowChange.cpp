#include "app/AskedWindowChange.h"

namespace tarragon {

WindowChange AskedWindowChange::toAskFor(const Element& window, const Rect& frameCG, const WindowChange& change) {
    WindowChange news = change;
    if (news.size == frameCG.size)
        news.size.reset();
    if (news.positionCG == frameCG.origin)
        news.positionCG.reset();
    if (!window || news == WindowChange()) {
        *this = {};
        return {};
    }
    if (window == _window && frameCG == _frameCG && news == _change)
        return {};
    _window = window;
    _frameCG = frameCG;
    _change = news;
    return news;
}

} // namespace tarragon
