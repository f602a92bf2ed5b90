#pragma once

#include "platform/Accessibility.h"
#include "platform/Workspace.h"

namespace tarragon {

// The accessibility interface as if a certain application had the focus; everything else is handed on.
class ChosenApplicationAccessibility : public Accessibility {
public:
    // accessibility outlives this object.
    ChosenApplicationAccessibility(Accessibility& accessibility, Element application);

    bool isEnabled() override { return _accessibility.isEnabled(); }
    bool isTrusted() override { return _accessibility.isTrusted(); }
    bool openSettings() override { return _accessibility.openSettings(); }
    Element systemWideElement() override { return _accessibility.systemWideElement(); }
    Element applicationElement(std::int64_t processIdentifier) override;
    Element elementAtPosition(const Point& pointCG) override { return _accessibility.elementAtPosition(pointCG); }
    std::optional<std::int64_t> processIdentifier(const Element& element) override;
    std::optional<std::vector<std::string>> attributeNames(const Element& element) override;
    bool hasAttribute(const Element& element, std::string_view attribute) override {
        return _accessibility.hasAttribute(element, attribute);
    }
    Value copyAttributeValue(const Element& element, std::string_view attribute) override;
    std::optional<std::int64_t> attributeValueCount(const Element& element, std::string_view attribute) override;
    bool isAttributeSettable(const Element& element, std::string_view attribute) override;
    bool setAttributeValue(const Element& element, std::string_view attribute, const Value& value) override;
    std::optional<std::vector<std::string>> actionNames(const Element& element) override;
    std::optional<std::string> actionDescription(const Element& element, std::string_view action) override;
    bool performAction(const Element& element, std::string_view action) override;
    void beginReadBatch(ReadBatchDepth depth) override { _accessibility.beginReadBatch(depth); }
    void endReadBatch() override { _accessibility.endReadBatch(); }
    void readAhead(std::span<const Element> elements, std::span<const std::string_view> attributes) override {
        _accessibility.readAhead(elements, attributes);
    }

private:
    Accessibility& _accessibility;
    Element _application;
};

// The workspace as if a certain application was the one in front.
class ChosenApplicationWorkspace : public Workspace {
public:
    // workspace outlives this object.
    ChosenApplicationWorkspace(Workspace& workspace, RunningApplication application);

    std::optional<RunningApplication> activeApplication() override { return _application; }
    std::vector<RunningApplication> runningApplications() override { return _workspace.runningApplications(); }
    bool openURL(const std::string& url) override { return _workspace.openURL(url); }
    bool installFrontSwitchedHandler(std::function<void()> handler) override;
    bool installSystemUIModeChangedHandler(std::function<void()> handler) override;

private:
    Workspace& _workspace;
    RunningApplication _application;
};

} // namespace tarragon
