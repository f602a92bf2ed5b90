#include "PlainWalk.h"

#include <atspi/atspi.h>

#include <memory>

namespace tarragon {

namespace {

using Clock = std::chrono::steady_clock;

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Accessible = std::unique_ptr<AtspiAccessible, Unreference>;

Accessible childAt(AtspiAccessible* parent, int index) {
    return Accessible(atspi_accessible_get_child_at_index(parent, index, nullptr));
}

int childCountOf(AtspiAccessible* element) {
    return atspi_accessible_get_child_count(element, nullptr);
}

Accessible applicationOfProcess(int processIdentifier) {
    const Accessible desktop(atspi_get_desktop(0));
    const int count = childCountOf(desktop.get());
    for (int index = 0; index < count; ++index) {
        Accessible application = childAt(desktop.get(), index);
        if (!application)
            continue;
        if (static_cast<int>(atspi_accessible_get_process_id(application.get(), nullptr)) == processIdentifier)
            return application;
    }
    return nullptr;
}

Accessible findMenuBar(AtspiAccessible* element, int depth) {
    constexpr int DeepestLevel = 8;
    const int count = depth < DeepestLevel ? childCountOf(element) : 0;
    for (int index = 0; index < count; ++index) {
        Accessible child = childAt(element, index);
        if (!child)
            continue;
        if (atspi_accessible_get_role(child.get(), nullptr) == ATSPI_ROLE_MENU_BAR)
            return child;
        if (Accessible found = findMenuBar(child.get(), depth + 1))
            return found;
    }
    return nullptr;
}

// The menu bar is looked for once, as the mirror does.
AtspiAccessible* menuBarOf(int processIdentifier) {
    static int rememberedProcess = 0;
    static Accessible menuBar;
    if (rememberedProcess != processIdentifier) {
        rememberedProcess = processIdentifier;
        const Accessible application = applicationOfProcess(processIdentifier);
        menuBar = application ? findMenuBar(application.get(), 0) : nullptr;
    }
    return menuBar.get();
}

void readItem(AtspiAccessible* item) {
    g_free(atspi_accessible_get_name(item, nullptr));
    atspi_accessible_get_role(item, nullptr);
    if (AtspiStateSet* states = atspi_accessible_get_state_set(item)) {
        atspi_state_set_contains(states, ATSPI_STATE_ENABLED);
        g_object_unref(states);
    }
    if (AtspiAction* action = atspi_accessible_get_action_iface(item)) {
        if (atspi_action_get_n_actions(action, nullptr) > 0)
            g_free(atspi_action_get_key_binding(action, 0, nullptr));
        g_object_unref(action);
    }
}

std::size_t walkBelow(AtspiAccessible* element, int levels, Clock::time_point end = Clock::time_point::max()) {
    std::size_t read = 0;
    const int count = childCountOf(element);
    for (int index = 0; index < count && Clock::now() < end; ++index) {
        const Accessible child = childAt(element, index);
        if (!child)
            continue;
        readItem(child.get());
        ++read;
        if (levels > 1)
            read += walkBelow(child.get(), levels - 1, end);
        else
            childCountOf(child.get());
    }
    return read;
}

void start() {
    static const int started = atspi_init();
    (void)started;
}

} // namespace

std::size_t walkWholeMenuBar(int processIdentifier) {
    start();
    constexpr int AllLevels = 32;
    AtspiAccessible* menuBar = menuBarOf(processIdentifier);
    if (!menuBar)
        return 0;
    atspi_accessible_clear_cache(menuBar);
    return walkBelow(menuBar, AllLevels);
}

std::size_t walkOneMenu(int processIdentifier, int position, std::chrono::seconds limit) {
    start();
    const auto end = Clock::now() + limit;
    AtspiAccessible* menuBar = menuBarOf(processIdentifier);
    if (!menuBar)
        return 0;
    atspi_accessible_clear_cache(menuBar);
    Accessible menu = childAt(menuBar, position);
    if (!menu)
        return 0;
    // Between a title and its items one toolkit has a pop-up of its own.
    if (childCountOf(menu.get()) == 1) {
        Accessible popUp = childAt(menu.get(), 0);
        if (popUp && childCountOf(popUp.get()) > 0)
            menu = std::move(popUp);
    }
    return walkBelow(menu.get(), 1, end);
}

} // namespace tarragon
