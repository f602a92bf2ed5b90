#include "ignore/LikePattern.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tarragon {

namespace {

// One place of a pattern; nothing stands for any character.
using Place = std::optional<char32_t>;
using Segment = std::vector<Place>;

// The runs of places between the stars of a pattern: one more than there are stars, possibly empty.
std::vector<Segment> segmentsOf(std::u32string_view pattern) {
    std::vector<Segment> segments(1);
    for (const char32_t character : pattern) {
        if (character == U'*')
            segments.emplace_back();
        else if (character == U'?')
            segments.back().emplace_back(std::nullopt);
        else
            segments.back().emplace_back(character);
    }
    return segments;
}

bool startsWith(std::u32string_view text, const Segment& segment) {
    return text.size() >= segment.size()
        && std::equal(segment.begin(), segment.end(), text.begin(),
            [](const Place& place, char32_t character) { return !place || *place == character; });
}

// Finds segments in a text for all their places at once: one bit of state for each place says whether the segment
// matches up to there, and every character of the text moves all of the bits on.
class SegmentSearch {
public:
    explicit SegmentSearch(const Segment& segment)
        : _wildcards((segment.size() + BitsPerWord - 1) / BitsPerWord)
        , _length(segment.size()) {
        for (std::size_t place = 0; place < segment.size(); ++place) {
            if (!segment[place])
                setBit(_wildcards, place);
        }
        for (std::size_t place = 0; place < segment.size(); ++place) {
            if (segment[place])
                setBit(_places.try_emplace(*segment[place], _wildcards).first->second, place);
        }
    }

    // The end of the first match, or nothing. The segment is not empty.
    std::optional<std::size_t> endOfFirstMatch(std::u32string_view text) const {
        Bits state(_wildcards.size());
        for (std::size_t index = 0; index < text.size(); ++index) {
            const auto places = _places.find(text[index]);
            const Bits& accepting = places == _places.end() ? _wildcards : places->second;
            std::uint64_t carry = 1; // a match may begin at every character
            for (std::size_t word = 0; word < state.size(); ++word) {
                const std::uint64_t nextCarry = state[word] >> (BitsPerWord - 1);
                state[word] = ((state[word] << 1U) | carry) & accepting[word];
                carry = nextCarry;
            }
            if ((state.back() >> ((_length - 1) % BitsPerWord)) & 1U)
                return index + 1;
        }
        return std::nullopt;
    }

private:
    using Bits = std::vector<std::uint64_t>;
    static constexpr std::size_t BitsPerWord = 64;

    static void setBit(Bits& bits, std::size_t place) {
        bits[place / BitsPerWord] |= std::uint64_t{1} << (place % BitsPerWord);
    }

    Bits _wildcards; // the places that accept every character
    std::unordered_map<char32_t, Bits> _places; // the places that accept one character, and the wildcards
    std::size_t _length;
};

} // namespace

bool isLike(std::u32string_view text, std::u32string_view pattern) {
    const std::vector<Segment> segments = segmentsOf(pattern);
    const Segment& first = segments.front();
    if (!startsWith(text, first))
        return false;
    if (segments.size() == 1)
        return text.size() == first.size();
    text.remove_prefix(first.size());

    const Segment& last = segments.back();
    if (text.size() < last.size() || !startsWith(text.substr(text.size() - last.size()), last))
        return false;
    text.remove_suffix(last.size());

    // Taking the first match of each segment leaves the most for those that follow, so no choice is ever undone.
    for (std::size_t index = 1; index + 1 < segments.size(); ++index) {
        if (segments[index].empty())
            continue;
        const std::optional<std::size_t> end = SegmentSearch(segments[index]).endOfFirstMatch(text);
        if (!end)
            return false;
        text.remove_prefix(*end);
    }
    return true;
}

} // namespace tarragon
