#pragma once

#include "platform/Accessibility.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace tarragon {

// What can go wrong with a call, or with every call on an element.
enum class FakeFault {
    None,
    Dead, // answered with nothing
    Slow, // as Dead, after the second that a call waits at most; see secondsWaited
    Refusing, // reads are answered; actions and sets are refused
    WrongType, // values of another kind than the attribute's own, and nonsense for lists of names
    Disappearing, // the element is destroyed, with everything below it, just before the call is answered
};

// One call as the log keeps it.
struct FakeCall {
    enum class Operation {
        IsEnabled,
        IsTrusted,
        OpenSettings,
        SystemWideElement,
        ApplicationElement,
        ElementAtPosition,
        ProcessIdentifier,
        AttributeNames,
        CopyAttributeValue,
        AttributeValueCount,
        IsAttributeSettable,
        SetAttributeValue,
        ActionNames,
        ActionDescription,
        PerformAction,
        BeginReadBatch,
        EndReadBatch,
    };
    Operation operation;
    Element element; // nil where the operation has none
    std::string name; // of the attribute or action; empty where the operation has none
    Value value; // what was set

    bool operator==(const FakeCall&) const = default;
};

// The user-interface elements of a desktop in memory: plain records with attributes and actions, a log of every call,
// and faults on demand. May be called from any thread; the hooks run on the thread that makes the call.
class FakeAccessibility : public Accessibility {
public:
    // Building. Attributes are listed in the order in which they were first set.
    Element addElement(std::int64_t processIdentifier, std::string_view role);
    Element addApplicationElement(std::int64_t processIdentifier);
    void setAttribute(const Element& element, std::string_view attribute, const Value& value);
    void removeAttribute(const Element& element, std::string_view attribute);
    // The attribute keeps its value and is left out of the list of names; or the other way round.
    void unlistAttribute(const Element& element, std::string_view attribute);
    void listAttributeWithoutValue(const Element& element, std::string_view attribute);
    void setSettable(const Element& element, std::string_view attribute, bool settable = true);
    void addAction(const Element& element, std::string_view action, std::string_view description = "");
    // Called when the action was performed.
    void onAction(const Element& element, std::string_view action, std::function<void()> handler);
    // Adds to, or takes from, the element's children and sets the child's parent.
    void addChild(const Element& parent, const Element& child);
    void insertChild(const Element& parent, const Element& child, std::size_t index);
    void removeChild(const Element& parent, const Element& child);
    // Destroys the element and everything below it: handles to it stay, their calls fail.
    void destroy(const Element& element);
    void setFocusedApplication(const Element& application);
    // What elementAtPosition finds; the last one added is on top.
    void addHitArea(const Rect& areaCG, const Element& element);
    void setEnabled(bool enabled);
    void setTrusted(bool trusted);
    // Whether openSettings finds a place; when it does, access is granted if `grants` is true.
    void setSettings(bool available, bool grants);

    // Looking without leaving a call in the log.
    Value attribute(const Element& element, std::string_view attribute) const;
    bool exists(const Element& element) const;
    // The title of the element, or its role; for messages of tests.
    std::string label(const Element& element) const;

    // The log. Batches are in it, but do not count as calls for the faults below.
    std::vector<FakeCall> calls() const;
    std::vector<FakeCall> callsOf(FakeCall::Operation operation) const;
    void clearCalls();
    // Element and action of every action that was performed.
    std::vector<std::pair<Element, std::string>> performedActions() const;
    // Calls so far, the one that is being answered included.
    std::size_t callCount() const;
    std::size_t callsOutsideBatches() const;
    std::size_t batchCount() const;
    // The deepest batch that was opened so far.
    ReadBatchDepth deepestBatch() const;
    // Of the calling thread.
    int openBatches() const;
    // What was announced within a batch.
    std::vector<Element> elementsReadAhead() const;

    // Faults. An element's fault holds for it alone, a process's for all its elements.
    void setFault(const Element& element, FakeFault fault);
    void setProcessFault(std::int64_t processIdentifier, FakeFault fault);
    // The call with this number, counted from the next one as 0, meets the fault.
    void failCall(std::size_t number, FakeFault fault);
    // Called before the call with this number is answered; may change the elements.
    void beforeCall(std::size_t number, std::function<void()> hook);
    void clearFaults();
    // What slow applications have cost. An application that was slow once is answered with nothing at no further cost.
    double secondsWaited() const;

    bool isEnabled() override;
    bool isTrusted() override;
    bool openSettings() override;
    Element systemWideElement() override;
    Element applicationElement(std::int64_t processIdentifier) override;
    Element elementAtPosition(const Point& pointCG) override;
    std::optional<std::int64_t> processIdentifier(const Element& element) override;
    std::optional<std::vector<std::string>> attributeNames(const Element& element) override;
    Value copyAttributeValue(const Element& element, std::string_view attribute) override;
    std::optional<std::int64_t> attributeValueCount(const Element& element, std::string_view attribute) override;
    bool isAttributeSettable(const Element& element, std::string_view attribute) override;
    bool setAttributeValue(const Element& element, std::string_view attribute, const Value& value) override;
    std::optional<std::vector<std::string>> actionNames(const Element& element) override;
    std::optional<std::string> actionDescription(const Element& element, std::string_view action) override;
    bool performAction(const Element& element, std::string_view action) override;
    void beginReadBatch(ReadBatchDepth depth) override;
    void endReadBatch() override;
    void readAhead(std::span<const Element> elements, std::span<const std::string_view> attributes) override;

private:
    struct Action {
        std::string name;
        std::string description;
        std::function<void()> handler;
    };
    struct Record {
        std::int64_t processIdentifier = 0;
        std::vector<std::string> listed;
        std::map<std::string, Value, std::less<>> values;
        std::set<std::string, std::less<>> settable;
        std::vector<Action> actions;
        FakeFault fault = FakeFault::None;
    };

    using Lock = std::unique_lock<std::recursive_mutex>;

    Record* find(const Element& element);
    const Record* find(const Element& element) const;
    // Logs the call, runs its hook without the lock, and answers the fault that it meets.
    FakeFault enter(Lock& lock, FakeCall call);
    FakeFault faultOf(const Element& element);
    void waitFor(const Element& element);
    static Value wrongTypeOf(const Value& value);
    static bool failsReads(FakeFault fault) { return fault == FakeFault::Dead || fault == FakeFault::Slow; }

    mutable std::recursive_mutex _mutex;
    std::map<std::int64_t, Record> _records;
    std::map<std::int64_t, Element> _applications;
    std::vector<std::pair<Rect, Element>> _hitAreas;
    Element _systemWide;
    Element _focusedApplication;
    std::int64_t _nextIdentifier = 1;
    bool _enabled = true;
    bool _trusted = true;
    bool _settingsAvailable = true;
    bool _settingsGrant = false;

    std::vector<FakeCall> _calls;
    std::vector<std::pair<Element, std::string>> _performed;
    std::size_t _callCount = 0;
    std::size_t _callsOutsideBatches = 0;
    std::size_t _batchCount = 0;
    std::vector<Element> _readAhead;
    ReadBatchDepth _deepestBatch = ReadBatchDepth::AsAsked;
    std::map<std::thread::id, int> _openBatches;

    std::map<std::int64_t, FakeFault> _processFaults;
    std::set<std::int64_t> _waitedFor;
    std::map<std::size_t, FakeFault> _callFaults;
    std::map<std::size_t, std::function<void()>> _hooks;
    double _secondsWaited = 0;
};

} // namespace tarragon
