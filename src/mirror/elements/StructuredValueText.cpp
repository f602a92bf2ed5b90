#include "mirror/elements/StructuredValueText.h"

#include "mirror/elements/NumberText.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace tarragon {

namespace {

// Reads labelled numbers from the front of a text. The first part that does not match ends the reading.
class LabelledNumbers {
public:
    explicit LabelledNumbers(std::string_view text)
        : _text(text) { }

    // Numbers are read in single precision and widened.
    void read(std::string_view label, double& number) {
        float narrow = 0;
        if (skip(label) && parse(narrow))
            number = narrow;
    }

    void read(std::string_view label, std::int64_t& number) {
        std::int64_t parsed = 0;
        if (skip(label) && parse(parsed))
            number = parsed;
    }

private:
    void skipBlanks() { _text.remove_prefix(std::min(_text.find_first_not_of(" \t\n\v\f\r"), _text.size())); }

    bool skip(std::string_view label) {
        // Only the first label must stand at the very front; the others may have blanks before them, or none.
        if (!_first)
            skipBlanks();
        _first = false;
        if (_failed || !_text.starts_with(label))
            return fail();
        _text.remove_prefix(label.size());
        return true;
    }

    template <typename Number>
    bool parse(Number& number) {
        skipBlanks();
        if (_text.size() > 1 && _text.front() == '+' && _text[1] != '-')
            _text.remove_prefix(1);
        const auto [end, error] = std::from_chars(_text.data(), _text.data() + _text.size(), number);
        if (error != std::errc())
            return fail();
        _text.remove_prefix(static_cast<std::size_t>(end - _text.data()));
        return true;
    }

    bool fail() {
        _failed = true;
        return false;
    }

    std::string_view _text;
    bool _first = true;
    bool _failed = false;
};

std::string text(const Point& point) {
    return "x=" + shortNumberText(point.x) + " y=" + shortNumberText(point.y);
}

std::string text(const Size& size) {
    return "w=" + shortNumberText(size.width) + " h=" + shortNumberText(size.height);
}

} // namespace

std::optional<std::string> structuredValueText(const Value& value, bool beingVerbose) {
    const auto framed = [beingVerbose](const char* name, const std::string& terse) {
        return beingVerbose ? "<" + std::string(name) + " " + terse + ">" : terse;
    };
    if (const auto* point = valueAs<Point>(value))
        return framed("AXPointValue", text(*point));
    if (const auto* size = valueAs<Size>(value))
        return framed("AXSizeValue", text(*size));
    // The second blank after the name is part of the format.
    if (const auto* rect = valueAs<Rect>(value))
        return framed("AXRectValue ", text(rect->origin) + " " + text(rect->size));
    if (const auto* range = valueAs<Range>(value)) {
        return framed(
            "AXRangeValue", "pos=" + std::to_string(range->location) + " len=" + std::to_string(range->length));
    }
    return std::nullopt;
}

std::optional<Value> structuredValueFromText(const std::string& text, const Value& present) {
    LabelledNumbers numbers(text);
    if (const auto* point = valueAs<Point>(present)) {
        Point result = *point;
        numbers.read("x=", result.x);
        numbers.read("y=", result.y);
        return result;
    }
    if (const auto* size = valueAs<Size>(present)) {
        Size result = *size;
        numbers.read("w=", result.width);
        numbers.read("h=", result.height);
        return result;
    }
    if (const auto* rect = valueAs<Rect>(present)) {
        Rect result = *rect;
        numbers.read("x=", result.origin.x);
        numbers.read("y=", result.origin.y);
        numbers.read("w=", result.size.width);
        numbers.read("h=", result.size.height);
        return result;
    }
    if (const auto* range = valueAs<Range>(present)) {
        Range result = *range;
        numbers.read("pos=", result.location);
        numbers.read("len=", result.length);
        return result;
    }
    return std::nullopt;
}

} // namespace tarragon
