#include "platform/linux/accessibilitybus/AtspiCall.h"

#include "platform/linux/dbus/DBusMessage.h"
#include "platform/linux/dbus/DBusWriter.h"

#include <string_view>
#include <variant>
#include <vector>

namespace tarragon {

namespace {

// The bits of a set, in as many words as it takes. The numbers are bit numbers.
template <typename Number>
std::vector<std::uint32_t> bitsOf(const std::vector<Number>& numbers) {
    std::vector<std::uint32_t> words;
    for (const Number number : numbers) {
        const auto bit = static_cast<std::uint32_t>(number);
        if (words.size() <= bit / 32)
            words.resize(bit / 32 + 1);
        words[bit / 32] |= 1U << bit % 32;
    }
    return words;
}

// How a list of a rule is meant.
enum class Match : std::int32_t { All = 1, Any = 2 };

void appendBits(DBusWriter& writer, const std::vector<std::uint32_t>& words, Match match) {
    writer.appendNumber(static_cast<std::uint32_t>(words.size() * sizeof(std::uint32_t)));
    for (const std::uint32_t word : words)
        writer.appendNumber(word);
    writer.appendNumber(static_cast<std::int32_t>(match));
}

// A list without elements, which begins where they would.
void appendNothing(DBusWriter& writer, std::size_t alignmentOfElements) {
    writer.appendNumber(std::uint32_t{0});
    writer.align(alignmentOfElements);
    writer.appendNumber(static_cast<std::int32_t>(Match::All));
}

// Writes the arguments and gives their signature.
struct ArgumentWriter {
    DBusWriter& writer;

    const char* operator()(std::monostate) const { return ""; }
    const char* operator()(const AtspiRequest::Property& property) const {
        writer.appendText(property.interface);
        writer.appendText(property.name);
        return "ss";
    }
    const char* operator()(std::int32_t number) const {
        writer.appendNumber(number);
        return "i";
    }
    const char* operator()(AtspiRequest::CoordinatesOfScreen) const {
        writer.appendNumber(Screen);
        return "u";
    }
    const char* operator()(const AtspiScreenPoint& point) const {
        writer.appendNumber(point.x);
        writer.appendNumber(point.y);
        writer.appendNumber(Screen);
        return "iiu";
    }
    const char* operator()(const AtspiRequest::TextRange& range) const {
        writer.appendNumber(range.start);
        writer.appendNumber(range.end);
        return "ii";
    }
    const char* operator()(const AtspiMatchRule& rule) const {
        constexpr std::size_t alignmentOfEntries = 8;
        constexpr std::size_t alignmentOfTexts = 4;
        constexpr std::uint32_t isInverted = 0;
        constexpr std::uint32_t inOrderOfTheTree = 1;
        constexpr std::int32_t asManyAsThereAre = 0;
        constexpr std::uint32_t atAllLevels = 0;
        appendBits(writer, bitsOf(rule.states), Match::All);
        appendNothing(writer, alignmentOfEntries);
        appendBits(writer, bitsOf(rule.roles), rule.roles.empty() ? Match::All : Match::Any);
        appendNothing(writer, alignmentOfTexts);
        writer.appendNumber(isInverted);
        writer.appendNumber(inOrderOfTheTree);
        writer.appendNumber(asManyAsThereAre);
        writer.appendNumber(atAllLevels);
        return "(aiia{ss}iaiiasib)uib";
    }
    // Of valid characters.
    const char* operator()(const std::string& text) const {
        writer.appendText(text.c_str());
        return "s";
    }

private:
    static constexpr std::uint32_t Screen = 0;
};

// The fields that stand at the head of a message.
enum class Field : std::uint8_t { Path = 1, Interface = 2, Member = 3, Destination = 6, Signature = 8 };

void appendField(DBusWriter& writer, Field field, std::string_view type, std::string_view text) {
    constexpr std::size_t alignmentOfStructures = 8;
    writer.align(alignmentOfStructures);
    writer.appendByte(static_cast<std::uint8_t>(field));
    writer.appendSignature(type);
    if (field == Field::Signature)
        writer.appendSignature(text);
    else
        writer.appendText(text);
}

bool isSound(const AtspiRequest& request) {
    const auto* text = std::get_if<std::string>(&request.argument);
    return dbus_validate_path(request.target.path.c_str(), nullptr)
        && dbus_validate_bus_name(request.target.busName.c_str(), nullptr)
        && (text == nullptr || dbus_validate_utf8(text->c_str(), nullptr));
}

} // namespace

std::string callFor(const AtspiRequest& request) {
    // Names and paths come from applications, and a bus does not talk to us any more once it got one that is none.
    if (!isSound(request))
        return {};
    DBusWriter body;
    const std::string_view signature = std::visit(ArgumentWriter{body}, request.argument);

    constexpr std::uint8_t methodCall = 1;
    constexpr std::uint8_t noFlags = 0;
    constexpr std::uint8_t version = 1;
    constexpr std::uint32_t open = 0;
    DBusWriter message;
    message.appendByte(static_cast<std::uint8_t>(DBusWriter::ByteOrder));
    message.appendByte(methodCall);
    message.appendByte(noFlags);
    message.appendByte(version);
    message.appendNumber(static_cast<std::uint32_t>(body.size()));
    message.appendNumber(open);
    message.appendNumber(open);
    const std::size_t beginOfFields = message.size();
    appendField(message, Field::Path, "o", request.target.path.c_str());
    appendField(message, Field::Destination, "s", request.target.busName.c_str());
    appendField(message, Field::Interface, "s", request.interface);
    appendField(message, Field::Member, "s", request.member);
    if (!signature.empty())
        appendField(message, Field::Signature, "g", signature);
    message.setNumber(
        beginOfFields - sizeof(std::uint32_t), static_cast<std::uint32_t>(message.size() - beginOfFields));
    constexpr std::size_t alignmentOfBody = 8;
    message.align(alignmentOfBody);
    message.appendBytes(body.bytes());
    return message.bytes();
}

} // namespace tarragon
