#pragma once

#include "platform/Element.h"
#include "platform/linux/accessibilitybus/AtspiReference.h"

#include <cstdint>

namespace tarragon {

// What kind of tree an application shows; toolkits differ in how they build menus.
enum class AtspiToolkit : std::uint8_t { Other, Gtk, Qt };

// What this back end remembers of one element. Immutable, so that it may be read from any thread.
class AtspiElement final : public ElementHandle {
public:
    enum class Kind : std::uint8_t {
        SystemWide,
        Application, // of a process
        Window, // a top-level window
        Node, // an accessible object
        ItemMenu, // the menu between an item and its children, where the toolkit has none of its own
    };
    // Where in a menu bar or menu a node was found. The same object is a menu bar item in one place and a menu item in
    // another, and toolkits do not tell which.
    enum class Place : std::uint8_t { Elsewhere, InMenuBar, InMenu, UnderItem };

    Kind kind = Kind::SystemWide;
    Place place = Place::Elsewhere;
    AtspiToolkit toolkit = AtspiToolkit::Other;
    std::uint32_t window = 0; // the top-level window that it belongs to, 0 when not known
    std::int64_t processIdentifier = 0; // 0 when not known
    std::uint64_t busIdentity = 0; // the accessibility bus on which the reference holds
    AtspiReference reference; // of the object; for an ItemMenu, of the item that it belongs to
    std::int64_t childCount = -1; // as last read, -1 when not known
    AtspiReference menu; // the menu that an item opens, as last read; null when not known
    Element parent; // nil when it has to be asked for
    // Steps down from, or up to, the element that started this chain of parents and children. Trees of lying
    // applications are cut off where it exceeds the limit.
    std::uint32_t steps = 0;

    static constexpr std::uint32_t StepLimit = 64;

    bool equals(const ElementHandle& other) const override;

    // The handle of an element that this back end made; nullptr for nil and for those of others.
    static const AtspiElement* of(const Element& element);
};

} // namespace tarragon
