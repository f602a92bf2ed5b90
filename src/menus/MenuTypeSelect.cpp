#include "menus/MenuTypeSelect.h"

#include <algorithm>

namespace tarragon {

namespace {

std::optional<std::size_t> nextTitle(const std::vector<QString>& titles, const QString& beginning, std::size_t start) {
    for (std::size_t step = 0; step < titles.size(); ++step) {
        const std::size_t position = (start + step) % titles.size();
        if (titles[position].startsWith(beginning, Qt::CaseInsensitive))
            return position;
    }
    return std::nullopt;
}

bool repeatsOneCharacter(const QString& text) {
    return std::all_of(text.begin(), text.end(), [&](QChar character) { return character == text.front(); });
}

} // namespace

std::optional<std::size_t> MenuTypeSelect::type(
    const QString& text, const std::vector<QString>& titles, std::optional<std::size_t> current, Time now) {
    if (text.isEmpty())
        return std::nullopt;
    const bool goesOn = isTyping(now);
    _typed = goesOn ? _typed + text : text;
    _lastTime = now;

    // More letters narrow the search down, so the item found so far stays if it can.
    if (goesOn) {
        if (const auto found = nextTitle(titles, _typed, current.value_or(0)))
            return found;
    }
    if (repeatsOneCharacter(_typed))
        return nextTitle(titles, _typed.left(1), current ? *current + 1 : 0);
    return std::nullopt;
}

bool MenuTypeSelect::isTyping(Time now) const {
    return !_typed.isEmpty() && now - _lastTime <= Patience;
}

} // namespace tarragon
