#pragma once

#include "platform/Value.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// How much the first read of an element's children within a read batch fetches: the children alone, what these can tell
// as well, or the same for everything below them. AsAsked is for those who look again and again: what the desktop has
// told of the window in front by itself is enough for them.
enum class ReadBatchDepth : std::uint8_t { AsAsked, OneLevel, AllLevels };

// The user-interface elements of other processes. Failures are silent by design: a call that fails, an application that
// is gone or does not answer in time, access that is not granted give nil, an empty optional or false, never an
// exception. A call waits a second for an application that is silent, and some seconds for one whose answers keep
// dripping; one that timed out is answered with nothing at once while it is probed in the background.
//
// Threads: every operation may be called from any thread. Read batches belong to the thread that opened them.
class Accessibility {
public:
    virtual ~Accessibility() = default;

    // The desktop has its accessibility interface switched on.
    [[nodiscard]] virtual bool isEnabled() = 0;
    // This process may use the accessibility interface.
    [[nodiscard]] virtual bool isTrusted() = 0;
    // Takes the user to where access is granted, or grants it where a program may. False when there is no such place,
    // and when it was not granted after all.
    virtual bool openSettings() = 0;

    // The element from which "AXFocusedApplication" is asked; nil when the interface cannot be reached.
    virtual Element systemWideElement() = 0;
    // The application of a process; nil when there is none that the interface knows.
    virtual Element applicationElement(std::int64_t processIdentifier) = 0;
    // The innermost element at a point in screen space; nil when there is none.
    virtual Element elementAtPosition(const Point& pointCG) = 0;

    [[nodiscard]] virtual std::optional<std::int64_t> processIdentifier(const Element& element) = 0;
    [[nodiscard]] virtual std::optional<std::vector<std::string>> attributeNames(const Element& element) = 0;
    // True when the attribute is among the names. For those who ask for one attribute after the other.
    [[nodiscard]] virtual bool hasAttribute(const Element& element, std::string_view attribute) {
        const auto names = attributeNames(element);
        return names && std::ranges::find(*names, attribute) != names->end();
    }
    virtual Value copyAttributeValue(const Element& element, std::string_view attribute) = 0;
    // The number of elements of an attribute that holds several, without fetching them.
    [[nodiscard]] virtual std::optional<std::int64_t> attributeValueCount(
        const Element& element, std::string_view attribute) = 0;
    [[nodiscard]] virtual bool isAttributeSettable(const Element& element, std::string_view attribute) = 0;
    virtual bool setAttributeValue(const Element& element, std::string_view attribute, const Value& value) = 0;

    [[nodiscard]] virtual std::optional<std::vector<std::string>> actionNames(const Element& element) = 0;
    [[nodiscard]] virtual std::optional<std::string> actionDescription(
        const Element& element, std::string_view action) = 0;
    // True when the action was handed to the application. Does not wait for the action to end: an application may open
    // a modal dialog from it.
    virtual bool performAction(const Element& element, std::string_view action) = 0;

    // Read batches nest; use ReadBatch. Within a batch the first read of an element's "AXChildren" fetches everything
    // that a menu item can have for all of them at once, unless its depth is AsAsked, and later reads are served from
    // that snapshot; so is what an application or a window has told before. The deepest of the batches that were opened
    // counts. When the outermost batch of the thread ends the snapshot is dropped. Outside a batch every read is live.
    virtual void beginReadBatch(ReadBatchDepth depth) = 0;
    virtual void endReadBatch() = 0;
    // Within a batch: the reads of these attributes of these elements that follow are fetched at once. Changes nothing
    // but the time that they take, and nothing at all outside a batch.
    virtual void readAhead([[maybe_unused]] std::span<const Element> elements,
        [[maybe_unused]] std::span<const std::string_view> attributes) { }
};

// Opens a read batch for its lifetime, on the thread that makes and destroys it.
class ReadBatch {
public:
    explicit ReadBatch(Accessibility& accessibility, ReadBatchDepth depth = ReadBatchDepth::OneLevel)
        : _accessibility(accessibility) {
        _accessibility.beginReadBatch(depth);
    }
    ReadBatch(const ReadBatch&) = delete;
    ReadBatch& operator=(const ReadBatch&) = delete;
    ~ReadBatch() { _accessibility.endReadBatch(); }

private:
    Accessibility& _accessibility;
};

} // namespace tarragon
