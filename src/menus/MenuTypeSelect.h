#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include <QString>

namespace tarragon {

// Finds an item by the first letters of its title, as they are typed.
class MenuTypeSelect {
public:
    using Time = std::chrono::steady_clock::time_point;

    // Letters that follow each other within a second belong together.
    static constexpr std::chrono::milliseconds Patience{1000};

    // Takes typed text and answers the position of the item to highlight; nothing when no title begins with what was
    // typed. Items that cannot be chosen have an empty title. The search begins at the current item, if any, and goes
    // round; the same letter again goes on to the next.
    std::optional<std::size_t> type(
        const QString& text, const std::vector<QString>& titles, std::optional<std::size_t> current, Time now);

    // True while further text would belong to what was typed before.
    bool isTyping(Time now) const;

private:
    QString _typed;
    Time _lastTime{};
};

} // namespace tarragon
