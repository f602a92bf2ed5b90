#include "platform/linux/atspi/LinuxAccessibility.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibilitybus/AtspiSessionBus.h"
#include "platform/linux/accessibletree/AtspiAttributes.h"
#include "platform/linux/accessibletree/AtspiItemReading.h"
#include "platform/linux/accessibletree/AtspiRole.h"
#include "platform/linux/accessibletree/AtspiTree.h"
#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/atspi/AtspiWindows.h"
#include "platform/linux/atspi/AttributeValueCache.h"

#include <algorithm>
#include <mutex>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tarragon {

namespace {

using Kind = AtspiElement::Kind;

constexpr std::string_view MenuBarAction = action::ShowMenu;
// Objects within objects under one point.
constexpr int HitTestLimit = 40;

Element applicationFor(std::int64_t processIdentifier, std::uint32_t window) {
    auto element = std::make_shared<AtspiElement>();
    element->kind = Kind::Application;
    element->processIdentifier = processIdentifier;
    element->window = window;
    return Element(std::move(element));
}

Element windowFor(const WindowDescription& window) {
    auto element = std::make_shared<AtspiElement>();
    element->kind = Kind::Window;
    element->window = window.identifier;
    element->processIdentifier = window.processIdentifier;
    return Element(std::move(element));
}

AtspiTree::Reading readingOf(ReadBatchDepth depth) {
    switch (depth) {
    case ReadBatchDepth::AsAsked:
        return AtspiTree::Reading::SomeAttributes;
    case ReadBatchDepth::OneLevel:
        return AtspiTree::Reading::OneLevel;
    case ReadBatchDepth::AllLevels:
        return AtspiTree::Reading::AllLevels;
    }
    return AtspiTree::Reading::OneAttribute;
}

bool isPress(std::string_view action) {
    return action == action::Press || action == MenuBarAction;
}

} // namespace

// Which window of an application has the focus, as it was asked for: by process, or by window alone.
struct LinuxAccessibility::KnownFocus {
    std::int64_t processIdentifier;
    std::uint32_t window;
    std::optional<WindowDescription> focused;
};

// What one thread has read since it opened the outermost of its batches.
struct LinuxAccessibility::Batch {
    std::thread::id thread;
    int nesting = 0;
    bool hasBegun = false;
    AtspiTree::Reading reading = AtspiTree::Reading::SomeAttributes;
    AtspiNodes nodes;
    AttributeValueCache known; // of applications and windows
    std::optional<KnownFocus> knownFocus;
};

// Everything that one connection to the accessibility bus needs and has learnt. Used under its mutex.
struct LinuxAccessibility::Client {
    std::mutex mutex;
    AtspiSessionBus sessionBus;
    AtspiConnection connection{sessionBus};
    AtspiApplications applications{connection, getpid()};
    AtspiWindows windows{connection};
    std::uint64_t busIdentity = 0; // of what has been learnt
    std::vector<std::unique_ptr<Batch>> batches; // of threads that have one open

    // nullptr when the calling thread has none.
    Batch* batchOfThread() const {
        const auto found =
            std::ranges::find(batches, std::this_thread::get_id(), [](const auto& batch) { return batch->thread; });
        return found != batches.end() ? found->get() : nullptr;
    }

    void begin(AtspiMenuMemory& memory, AtspiConnection::Start start, int timeoutFactor) {
        connection.beginOperation(start, timeoutFactor);
        connection.ensureOpen();
        if (connection.busIdentity() == busIdentity)
            return;
        applications.forget();
        windows.forget();
        busIdentity = connection.busIdentity();
        memory.useBus(busIdentity);
    }
};

// One call of the seam: the thread's connection for its own, and the nodes that it reads into.
class LinuxAccessibility::Operation {
public:
    explicit Operation(LinuxAccessibility& accessibility)
        : _client(accessibility.clientOfThread())
        , _memory(accessibility._memory)
        , _lock(_client.mutex)
        , _batch(_client.batchOfThread()) {
        // Nobody waits at a menu that opens while all of them are read.
        constexpr int patientTimes = 4;
        const bool readsAll = _batch != nullptr && _batch->reading == AtspiTree::Reading::AllLevels;
        const bool continues = _batch != nullptr && std::exchange(_batch->hasBegun, true);
        _client.begin(_memory, continues ? AtspiConnection::Start::Continued : AtspiConnection::Start::Fresh,
            readsAll ? patientTimes : 1);
    }

    Client& client() { return _client; }
    bool isInBatch() const { return _batch != nullptr; }
    // nullptr outside a batch.
    AttributeValueCache* known() { return _batch != nullptr ? &_batch->known : nullptr; }
    // Kept within a batch only.
    std::optional<KnownFocus>& knownFocus() { return _batch != nullptr ? _batch->knownFocus : _ownKnownFocus; }
    AtspiNodes& nodes() { return _batch != nullptr ? _batch->nodes : _ownNodes; }
    AtspiTree tree() {
        return {_client.connection, nodes(), _memory,
            _batch != nullptr ? _batch->reading : AtspiTree::Reading::OneAttribute};
    }
    // Asks at once whether frame and menu bar of a window are still there, where they are remembered. In a batch that
    // reads menus, the items of the menu bar are wanted next.
    void readRemembered(std::uint32_t window, const AtspiApplication& application) {
        const AtspiWindows::Remembered remembered = _client.windows.remembered(window, application);
        AtspiNodes::Wanted wanted;
        if (remembered.frame)
            wanted.emplace_back(*remembered.frame, AtspiFieldRole);
        if (remembered.menuBar) {
            wanted.emplace_back(*remembered.menuBar, AtspiFieldRole);
            if (_batch != nullptr && _batch->reading >= AtspiTree::Reading::OneLevel)
                AtspiItemReading(_client.connection, nodes(), _memory, application.toolkit)
                    .addWanted(wanted, *remembered.menuBar, AtspiItemReading::UsualLengthOfMenuBar);
        }
        nodes().fetch(_client.connection, wanted);
    }
    // False for objects of an accessibility bus that is no more.
    bool reaches(const AtspiElement& element) const {
        return element.busIdentity != 0 && element.busIdentity == _client.busIdentity;
    }

private:
    Client& _client;
    AtspiMenuMemory& _memory;
    std::unique_lock<std::mutex> _lock;
    Batch* _batch;
    AtspiNodes _ownNodes;
    std::optional<KnownFocus> _ownKnownFocus;
};

LinuxAccessibility::LinuxAccessibility(WindowSource& windows, ApplicationDirectory& applications)
    : _windows(windows, applications)
    , _mainThread(std::this_thread::get_id())
    , _mainClient(std::make_unique<Client>())
    , _otherClient(std::make_unique<Client>()) { }

LinuxAccessibility::~LinuxAccessibility() = default;

LinuxAccessibility::Client& LinuxAccessibility::clientOfThread() {
    return std::this_thread::get_id() == _mainThread ? *_mainClient : *_otherClient;
}

void LinuxAccessibility::beginReadBatch(ReadBatchDepth depth) {
    Client& client = clientOfThread();
    const std::lock_guard lock(client.mutex);
    Batch* batch = client.batchOfThread();
    if (batch == nullptr) {
        batch = client.batches.emplace_back(std::make_unique<Batch>()).get();
        batch->thread = std::this_thread::get_id();
    }
    ++batch->nesting;
    batch->reading = std::max(batch->reading, readingOf(depth));
}

void LinuxAccessibility::endReadBatch() {
    Client& client = clientOfThread();
    const std::lock_guard lock(client.mutex);
    Batch* const batch = client.batchOfThread();
    if (batch != nullptr && --batch->nesting == 0)
        std::erase_if(client.batches, [batch](const auto& owned) { return owned.get() == batch; });
}

void LinuxAccessibility::readAhead(std::span<const Element> elements, std::span<const std::string_view> attributes) {
    Operation operation(*this);
    if (!operation.isInBatch())
        return;
    AtspiFields fields = AtspiFieldNone;
    for (const std::string_view attribute : attributes)
        fields |= fieldsForAttribute(attribute);
    AtspiNodes::Wanted wanted;
    wanted.reserve(elements.size());
    for (const Element& element : elements) {
        const AtspiElement* handle = AtspiElement::of(element);
        if (handle != nullptr && handle->kind == Kind::Node && operation.reaches(*handle))
            wanted.emplace_back(handle->reference, fields);
    }
    operation.nodes().fetch(operation.client().connection, wanted);
}

AtspiStatistics LinuxAccessibility::statistics() {
    Client& client = clientOfThread();
    const std::lock_guard lock(client.mutex);
    return client.connection.statistics();
}

bool LinuxAccessibility::isEnabled() {
    return Operation(*this).client().sessionBus.isEnabled();
}

bool LinuxAccessibility::isTrusted() {
    return Operation(*this).client().connection.ensureOpen();
}

bool LinuxAccessibility::openSettings() {
    return Operation(*this).client().sessionBus.enable();
}

Element LinuxAccessibility::systemWideElement() {
    return isTrusted() ? Element(std::make_shared<AtspiElement>()) : Element();
}

Element LinuxAccessibility::applicationElement(std::int64_t processIdentifier) {
    if (processIdentifier <= 0)
        return {};
    const bool hasWindow = !_windows.windowsOfApplication(processIdentifier, 0).empty();
    if (hasWindow || processIdentifier == ::getpid() || Operation(*this).client().applications.find(processIdentifier))
        return applicationFor(processIdentifier, 0);
    return {};
}

Element LinuxAccessibility::elementAtPosition(const Point& pointCG) {
    const auto window = _windows.windowAtPosition(pointCG);
    if (!window)
        return {};
    Operation operation(*this);
    const Element found = elementInWindow(operation, *window, pointCG);
    return found ? found : windowFor(*window);
}

std::optional<std::int64_t> LinuxAccessibility::processIdentifier(const Element& element) {
    const AtspiElement* handle = AtspiElement::of(element);
    if (handle == nullptr || handle->processIdentifier == 0)
        return {};
    return handle->processIdentifier;
}

std::optional<std::vector<std::string>> LinuxAccessibility::attributeNames(const Element& element) {
    const AtspiElement* handle = AtspiElement::of(element);
    if (handle == nullptr)
        return {};
    const auto strings = [](std::initializer_list<std::string_view> names) {
        return std::vector<std::string>(names.begin(), names.end());
    };
    switch (handle->kind) {
    case Kind::SystemWide:
        return strings({attribute::Role, attribute::RoleDescription, attribute::FocusedApplication});
    case Kind::Application:
        return strings({attribute::Role, attribute::RoleDescription, attribute::Title, attribute::FocusedWindow,
            attribute::Windows, attribute::Hidden, attribute::MenuBar, attribute::Children});
    case Kind::Window:
        return AccessibleWindows::attributeNamesOfWindow();
    case Kind::Node:
    case Kind::ItemMenu:
        break;
    }
    Operation operation(*this);
    return operation.reaches(*handle) ? operation.tree().attributeNames(element) : std::nullopt;
}

bool LinuxAccessibility::hasAttribute(const Element& element, std::string_view attribute) {
    const AtspiElement* handle = AtspiElement::of(element);
    if (handle == nullptr || (handle->kind != Kind::Node && handle->kind != Kind::ItemMenu))
        return Accessibility::hasAttribute(element, attribute);
    Operation operation(*this);
    return operation.reaches(*handle) && operation.tree().hasAttribute(element, attribute);
}

Value LinuxAccessibility::copyAttributeValue(const Element& element, std::string_view attribute) {
    const AtspiElement* handle = AtspiElement::of(element);
    if (handle == nullptr)
        return {};
    Operation operation(*this);
    if (handle->kind == Kind::Node || handle->kind == Kind::ItemMenu)
        return operation.reaches(*handle) ? operation.tree().attributeValue(element, attribute) : Value{};
    AttributeValueCache* const known = operation.known();
    if (const Value* value = known != nullptr ? known->find(element, attribute) : nullptr)
        return *value;
    Value value = attributeOutsideTree(operation, element, attribute);
    if (known != nullptr)
        known->remember(element, attribute, value);
    return value;
}

Value LinuxAccessibility::attributeOutsideTree(
    Operation& operation, const Element& element, std::string_view attribute) {
    const AtspiElement& handle = *AtspiElement::of(element);
    if (handle.kind == Kind::Application)
        return attributeOfApplication(operation, handle, attribute);
    if (handle.kind == Kind::Window)
        return attributeOfWindow(operation, element, attribute);
    if (attribute == attribute::Role)
        return std::string(role::SystemWide);
    if (attribute == attribute::RoleDescription)
        return std::string(accessibilityRoleDescription(role::SystemWide));
    const auto active = attribute == attribute::FocusedApplication ? _windows.activeWindow() : std::nullopt;
    return active ? Value{applicationFor(active->processIdentifier, active->identifier)} : Value{};
}

Value LinuxAccessibility::attributeOfApplication(
    Operation& operation, const AtspiElement& application, std::string_view attribute) {
    const auto windows = [&] {
        return _windows.windowsOfApplication(application.processIdentifier, application.window);
    };
    if (attribute == attribute::Role)
        return std::string(role::Application);
    if (attribute == attribute::RoleDescription)
        return std::string(accessibilityRoleDescription(role::Application));
    if (attribute == attribute::FocusedWindow) {
        const auto window = focusedWindow(operation, application);
        return window ? Value{windowFor(*window)} : Value{};
    }
    if (attribute == attribute::Title) {
        auto window = focusedWindow(operation, application);
        if (!window) {
            auto all = windows();
            if (!all.empty())
                window = all.front();
        }
        if (window)
            return _windows.applicationName(*window);
        const auto found = operation.client().applications.find(application.processIdentifier);
        if (!found)
            return {};
        const auto& name = operation.nodes().fetch(operation.client().connection, found->root, AtspiFieldName).name;
        return name && !name->empty() ? Value{*name} : Value{};
    }
    if (attribute == attribute::Hidden) {
        const auto all = windows();
        return !all.empty() && std::ranges::all_of(all, [](const WindowDescription& window) { return window.hidden; });
    }
    if (attribute == attribute::MenuBar) {
        const Element menuBar = menuBarOfApplication(operation, application);
        return menuBar ? Value{menuBar} : Value{};
    }
    if (attribute == attribute::Windows || attribute == attribute::Children) {
        std::vector<Element> elements;
        for (const WindowDescription& window : windows())
            elements.push_back(windowFor(window));
        if (attribute == attribute::Children) {
            if (const Element menuBar = menuBarOfApplication(operation, application))
                elements.push_back(menuBar);
        }
        return elements;
    }
    return {};
}

namespace {

std::shared_ptr<AtspiElement> nodeInWindow(const WindowDescription& window, const AtspiApplication& application,
    std::uint64_t busIdentity, const AtspiReference& reference) {
    auto element = std::make_shared<AtspiElement>();
    element->kind = Kind::Node;
    element->toolkit = application.toolkit;
    element->window = window.identifier;
    element->processIdentifier = window.processIdentifier;
    element->busIdentity = busIdentity;
    element->reference = reference;
    return element;
}

} // namespace

std::optional<WindowDescription> LinuxAccessibility::focusedWindow(
    Operation& operation, const AtspiElement& application) {
    auto& known = operation.knownFocus();
    if (known && known->processIdentifier == application.processIdentifier && known->window == application.window)
        return known->focused;
    auto focused = _windows.focusedWindow(application.processIdentifier, application.window);
    known = KnownFocus{application.processIdentifier, application.window, focused};
    return focused;
}

std::optional<AtspiReference> LinuxAccessibility::frameOf(
    Operation& operation, const WindowDescription& window, const AtspiApplication& application) {
    return operation.client().windows.frame(window.identifier, application, operation.nodes(), [&] {
        return AtspiFrameQuery{window.title, _windows.isActive(window.identifier), window.frameCG};
    });
}

Element LinuxAccessibility::menuBarOfApplication(Operation& operation, const AtspiElement& application) {
    Client& client = operation.client();
    const auto found = client.applications.find(application.processIdentifier);
    if (!found)
        return {};
    const auto window = focusedWindow(operation, application);
    if (!window)
        return {};
    operation.readRemembered(window->identifier, *found);
    const auto frame = frameOf(operation, *window, *found);
    const auto menuBar = frame ? client.windows.menuBar(*frame, operation.nodes()) : std::nullopt;
    if (!menuBar)
        return {};
    auto element = nodeInWindow(*window, *found, client.busIdentity, *menuBar);
    element->parent = applicationFor(application.processIdentifier, application.window);
    return Element(std::move(element));
}

Value LinuxAccessibility::attributeOfWindow(Operation& operation, const Element& element, std::string_view attribute) {
    const AtspiElement& handle = *AtspiElement::of(element);
    const auto window = _windows.describe(handle.window);
    if (!window)
        return {};
    if (attribute == attribute::Parent)
        return applicationFor(window->processIdentifier, window->identifier);
    if (attribute != attribute::Children)
        return _windows.attributeOfWindow(*window, attribute);

    Client& client = operation.client();
    const auto application = client.applications.find(window->processIdentifier);
    const auto frame = application ? frameOf(operation, *window, *application) : std::nullopt;
    if (!frame)
        return std::vector<Element>{};
    auto parent = nodeInWindow(*window, *application, client.busIdentity, *frame);
    parent->kind = Kind::Window;
    auto children = operation.tree().children(Element(std::move(parent)), *frame);
    return children ? Value{std::move(*children)} : Value{};
}

Element LinuxAccessibility::elementInWindow(
    Operation& operation, const WindowDescription& window, const Point& pointCG) {
    Client& client = operation.client();
    const auto application = client.applications.find(window.processIdentifier);
    if (!application)
        return {};
    const auto frame = frameOf(operation, window, *application);
    if (!frame)
        return {};
    // The window that was found contains the point, so it is one of the screen.
    const AtspiScreenPoint point{static_cast<std::int32_t>(pointCG.x), static_cast<std::int32_t>(pointCG.y)};
    AtspiReference innermost = *frame;
    for (int step = 0; step < HitTestLimit; ++step) {
        std::optional<AtspiReference> inner;
        client.connection.run({{innermost, "org.a11y.atspi.Component", "GetAccessibleAtPoint", point,
            [&inner](AtspiReply& reply) { inner = reply.readReference(); }}});
        if (!inner || inner->isNull() || *inner == innermost)
            break;
        innermost = *inner;
    }
    if (innermost == *frame)
        return {};
    return Element(nodeInWindow(window, *application, client.busIdentity, innermost));
}

std::optional<std::int64_t> LinuxAccessibility::attributeValueCount(
    const Element& element, std::string_view attribute) {
    const Value value = copyAttributeValue(element, attribute);
    const auto* elements = valueAs<std::vector<Element>>(value);
    return elements != nullptr ? std::optional(static_cast<std::int64_t>(elements->size())) : std::nullopt;
}

bool LinuxAccessibility::isAttributeSettable(const Element& element, std::string_view attribute) {
    const AtspiElement* handle = AtspiElement::of(element);
    return handle != nullptr && handle->kind == Kind::Window && AccessibleWindows::isSettable(attribute);
}

bool LinuxAccessibility::setAttributeValue(const Element& element, std::string_view attribute, const Value& value) {
    return isAttributeSettable(element, attribute)
        && _windows.setAttributeOfWindow(AtspiElement::of(element)->window, attribute, value);
}

std::optional<std::vector<std::string>> LinuxAccessibility::actionNames(const Element& element) {
    const AtspiElement* handle = AtspiElement::of(element);
    if (handle == nullptr)
        return {};
    if (handle->kind == Kind::Window)
        return std::vector<std::string>{std::string(action::Raise)};
    std::vector<std::string> names;
    if (handle->kind != Kind::Node)
        return names;
    Operation operation(*this);
    if (!operation.reaches(*handle))
        return {};
    const auto actions = operation.tree().actionNames(*handle);
    if (actions && pressAction(*actions))
        names.emplace_back(action::Press);
    return names;
}

std::optional<std::string> LinuxAccessibility::actionDescription(const Element& element, std::string_view action) {
    if (!AtspiElement::of(element))
        return {};
    if (action == action::Press)
        return "press";
    if (action == action::ShowMenu)
        return "show menu";
    if (action == action::Raise)
        return "raise";
    return {};
}

bool LinuxAccessibility::performAction(const Element& element, std::string_view action) {
    const AtspiElement* handle = AtspiElement::of(element);
    if (handle == nullptr)
        return false;
    if (action == action::Raise)
        return handle->kind == Kind::Window && _windows.raise(handle->window);
    if (handle->kind != Kind::Node || !isPress(action))
        return false;
    Operation operation(*this);
    return operation.reaches(*handle) && performPress(operation, *handle);
}

bool LinuxAccessibility::performPress(Operation& operation, const AtspiElement& element) {
    const auto actions = operation.tree().actionNames(element);
    const auto press = actions ? pressAction(*actions) : std::nullopt;
    if (!press)
        return false;
    return operation.client().connection.post({element.reference, "org.a11y.atspi.Action", "DoAction", *press, {}});
}

} // namespace tarragon
