#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace tarragon {

// What the pointer and its buttons do. The number of a type is that of its bit in a mask.
enum class InputEventType : std::uint32_t {
    LeftMouseUp = 2,
    LeftMouseDragged = 6, // the pointer has moved while the left button is held
    OtherMouseDown = 25, // any button but the left and the right one
    OtherMouseUp = 26,
    OtherMouseDragged = 27, // the pointer has moved while such a button is held
    // A tap gets these whatever its mask is: it was disabled by the desktop, and may be enabled again.
    TapDisabledByTimeout = 0xFFFFFFFE,
    TapDisabledByUserInput = 0xFFFFFFFF,
};

// Which types are asked for; made with inputEventMask.
using InputEventMask = std::uint64_t;

// 0 for the types that no mask chooses.
constexpr InputEventMask inputEventMask(InputEventType type) {
    const auto bit = static_cast<std::uint32_t>(type);
    return bit < 64 ? InputEventMask{1} << bit : 0;
}

struct InputEvent {
    InputEventType type = InputEventType::LeftMouseUp;
    std::uint32_t buttonNumber = 0; // 0 left, 1 right, 2 middle, 3 and on the further ones; a wheel is no button
    bool operator==(const InputEvent&) const = default;
};

// One watch over the input of the desktop. Destroying it ends the watch. Main thread only.
class EventTap {
public:
    virtual ~EventTap() = default;
    // A tap is enabled when it is made. A disabled one gets no events.
    virtual void setEnabled(bool enabled) = 0;
};

// Names a global monitor; 0 is none.
using EventMonitor = std::uint64_t;

// The input of the whole desktop, as it happens. Main thread only; handlers are called from the run loop.
class InputEvents {
public:
    virtual ~InputEvents() = default;

    // The handler gets the events of the mask that go to other applications. Several movements that came together are
    // one event. 0 when such events cannot be had.
    [[nodiscard]] virtual EventMonitor addGlobalMonitor(
        InputEventMask mask, std::function<void(const InputEvent& event)> handler) = 0;
    // Does nothing for a monitor that was removed before.
    virtual void removeMonitor(EventMonitor monitor) = 0;
    // Whether the left button is held at this moment, over whatever program. The desktop is asked, so that the answer
    // is right also while events still wait for their turn. False where it does not tell.
    [[nodiscard]] virtual bool leftButtonIsHeld() = 0;

    // The handler gets the events of the mask wherever they go, and answers whether they are to go there. Desktops on
    // which a tap only observes do not look at the answer. nullptr when such events cannot be had. The tap must not
    // outlive this object.
    [[nodiscard]] virtual std::unique_ptr<EventTap> createEventTap(
        InputEventMask mask, std::function<bool(const InputEvent& event)> handler) = 0;

    // True while a button other than the left and the right one is held that was pressed while somebody listened.
    [[nodiscard]] virtual bool isOtherButtonHeld() const = 0;
};

} // namespace tarragon
