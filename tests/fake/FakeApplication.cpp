#include "fake/FakeApplication.h"

#include "platform/AccessibilityNames.h"

#include <utility>

namespace tarragon {

FakeApplication::FakeApplication(FakeAccessibility& accessibility, RunningApplication description)
    : _accessibility(&accessibility)
    , _description(std::move(description))
    , _element(accessibility.addApplicationElement(_description.processIdentifier)) {
    _accessibility->setAttribute(_element, attribute::Title, _description.name);
    _accessibility->setAttribute(_element, attribute::Hidden, false);
    _accessibility->setAttribute(_element, attribute::Windows, std::vector<Element>());
}

FakeMenu FakeApplication::menu(const std::string& title) const {
    Element bar = menuBar();
    if (!bar) {
        bar = _accessibility->addElement(processIdentifier(), role::MenuBar);
        _accessibility->setAttribute(bar, attribute::Children, std::vector<Element>());
        _accessibility->setAttribute(bar, attribute::Parent, _element);
        _accessibility->setAttribute(_element, attribute::MenuBar, bar);
        _accessibility->addChild(_element, bar);
    }
    const Element item = _accessibility->addElement(processIdentifier(), role::MenuBarItem);
    _accessibility->setAttribute(item, attribute::Title, title);
    _accessibility->setAttribute(item, attribute::Enabled, true);
    _accessibility->addAction(item, action::Press, "press");
    const Element menu = _accessibility->addElement(processIdentifier(), role::Menu);
    _accessibility->setAttribute(menu, attribute::Children, std::vector<Element>());
    _accessibility->addChild(item, menu);
    _accessibility->addChild(bar, item);
    return {*_accessibility, processIdentifier(), item, menu};
}

Element FakeApplication::window(const FakeWindowOptions& options) const {
    Element element = _accessibility->addElement(processIdentifier(), role::Window);
    const auto set = [&](std::string_view name, const auto& value) {
        if (value)
            _accessibility->setAttribute(element, name, Value(*value));
    };
    set(attribute::Title, options.title);
    set(attribute::RoleDescription, options.roleDescription);
    set(attribute::Position, options.positionCG);
    set(attribute::Size, options.size);
    set(attribute::FullScreen, options.fullScreen);
    _accessibility->setSettable(element, attribute::Position);
    _accessibility->setSettable(element, attribute::Size);
    _accessibility->setAttribute(element, attribute::Children, std::vector<Element>());
    for (int index = 0; index < options.children; ++index)
        _accessibility->addChild(element, _accessibility->addElement(processIdentifier(), "AXButton"));
    _accessibility->addAction(element, action::Raise, "raise");
    _accessibility->setAttribute(element, attribute::Parent, _element);
    _accessibility->addChild(_element, element);

    const Value listed = _accessibility->attribute(_element, attribute::Windows);
    const auto* elements = valueAs<std::vector<Element>>(listed);
    std::vector<Element> windows = elements ? *elements : std::vector<Element>();
    windows.push_back(element);
    _accessibility->setAttribute(_element, attribute::Windows, windows);
    setFocusedWindow(element);
    return element;
}

void FakeApplication::setFocusedWindow(const Element& window) const {
    _accessibility->setAttribute(_element, attribute::FocusedWindow, window);
}

void FakeApplication::removeFocusedWindow() const {
    _accessibility->removeAttribute(_element, attribute::FocusedWindow);
}

Element FakeApplication::menuBar() const {
    const Value value = _accessibility->attribute(_element, attribute::MenuBar);
    const auto* bar = valueAs<Element>(value);
    return bar ? *bar : Element();
}

} // namespace tarragon
