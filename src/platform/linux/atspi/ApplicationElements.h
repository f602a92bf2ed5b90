#pragma once

#include "platform/linux/atspi/ElementsOfKind.h"
#include "platform/linux/windows/WindowDescription.h"

namespace tarragon {

class AccessibleWindows;
class AtspiClients;
class AtspiElement;
class MenuBars;
struct FocusedWindow;

// Applications, as the window system knows them by their windows. Only the menu bar, also among the children, is asked
// of the application itself.
class ApplicationElements final : public ElementsOfKind {
public:
    ApplicationElements(AccessibleWindows& windows, AtspiClients& clients, MenuBars& menuBars)
        : _windows(windows)
        , _clients(clients)
        , _menuBars(menuBars) { }

    std::optional<std::vector<std::string>> attributeNames(const Element& element) override;
    bool hasAttribute(const Element& element, std::string_view attribute) override;
    Value copyAttributeValue(const Element& element, std::string_view attribute) override;
    // Counts windows, also among the children: whether these hold a menu bar as well only the application can tell.
    std::optional<std::int64_t> attributeValueCount(const Element& element, std::string_view attribute) override;

private:
    std::optional<FocusedWindow> focusedWindow(const AtspiElement& application);
    std::vector<WindowDescription> windowsOf(const AtspiElement& application);
    Value title(const AtspiElement& application);
    // None of its windows is to be seen on the workspace that is shown, and yet there are some.
    bool isHidden(const AtspiElement& application);
    // Nil when the application shows none.
    Element menuBar(const AtspiElement& application);

    AccessibleWindows& _windows;
    AtspiClients& _clients;
    MenuBars& _menuBars;
};

} // namespace tarragon
