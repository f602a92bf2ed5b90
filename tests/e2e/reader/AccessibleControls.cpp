#include "AccessibleControls.h"

#include "AccessibleBus.h"

#include <atspi/atspi.h>

#include <cstdint>
#include <set>

namespace reader {

namespace {

constexpr const char* Accessible = "org.a11y.atspi.Accessible";
constexpr const char* Properties = "org.freedesktop.DBus.Properties";

struct Node {
    Address address;
    std::uint64_t states = 0;
    nlohmann::json record;
    std::vector<Node> children;
};

bool isShown(const Node& node) {
    return node.states & (std::uint64_t{1} << ATSPI_STATE_SHOWING);
}

std::string textIn(const Variant& answer) {
    if (!answer)
        return {};
    const char* text = "";
    if (g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(s)"))) {
        g_variant_get(answer.get(), "(&s)", &text);
        return text;
    }
    GVariant* value = nullptr;
    g_variant_get(answer.get(), "(v)", &value);
    const Variant owned(value);
    return g_variant_is_of_type(value, G_VARIANT_TYPE_STRING) ? g_variant_get_string(value, nullptr) : "";
}

std::uint64_t statesIn(const Variant& answer) {
    if (!answer || !g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(au)")))
        return 0;
    GVariantIter* iterator = nullptr;
    g_variant_get(answer.get(), "(au)", &iterator);
    std::uint64_t states = 0;
    std::uint32_t word = 0;
    for (int shift = 0; shift < 64 && g_variant_iter_loop(iterator, "u", &word); shift += 32)
        states |= std::uint64_t{word} << shift;
    g_variant_iter_free(iterator);
    return states;
}

nlohmann::json namesOf(std::uint64_t states) {
    nlohmann::json names = nlohmann::json::array();
    auto* kinds = static_cast<GEnumClass*>(g_type_class_ref(ATSPI_TYPE_STATE_TYPE));
    for (int state = 0; state < 64; ++state) {
        const GEnumValue* kind = states & (std::uint64_t{1} << state) ? g_enum_get_value(kinds, state) : nullptr;
        if (kind)
            names.push_back(kind->value_nick);
    }
    g_type_class_unref(kinds);
    return names;
}

void addExtents(nlohmann::json& record, const Variant& answer) {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    if (answer && g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("((iiii))")))
        g_variant_get(answer.get(), "((iiii))", &x, &y, &width, &height);
    record["x"] = x;
    record["y"] = y;
    record["width"] = width;
    record["height"] = height;
}

bool holdsText(const nlohmann::json& record) {
    static const std::set<std::string> roles{"text", "entry", "spin box", "combo box", "password text"};
    return roles.contains(record.at("role").get<std::string>());
}

// Fills in what one level of the tree says of itself, and leaves its shown children for the next.
void readLevel(AccessibleBus& bus, const std::vector<Node*>& level) {
    std::vector<Question> questions;
    for (const Node* node : level) {
        questions.push_back({node->address, Accessible, "GetRoleName", nullptr, nullptr});
        questions.push_back({node->address, Properties, "Get", g_variant_new("(ss)", Accessible, "Name"), nullptr});
        questions.push_back(
            {node->address, Properties, "Get", g_variant_new("(ss)", Accessible, "Description"), nullptr});
        questions.push_back({node->address, "org.a11y.atspi.Component", "GetExtents",
            g_variant_new("(u)", guint32{ATSPI_COORD_TYPE_SCREEN}), nullptr});
        questions.push_back({node->address, Accessible, "GetChildren", nullptr, nullptr});
    }
    bus.ask(questions);
    std::vector<Question> texts;
    std::vector<Question> states;
    std::size_t next = 0;
    for (Node* node : level) {
        node->record["role"] = textIn(questions[next++].answer);
        node->record["name"] = textIn(questions[next++].answer);
        node->record["description"] = textIn(questions[next++].answer);
        addExtents(node->record, questions[next++].answer);
        for (const Address& child : AccessibleBus::addressesIn(questions[next++].answer))
            node->children.push_back({child, 0, {}, {}});
        node->record["states"] = namesOf(node->states);
        node->record["text"] = "";
        if (holdsText(node->record))
            texts.push_back({node->address, "org.a11y.atspi.Text", "GetText", g_variant_new("(ii)", 0, -1), nullptr});
        for (const Node& child : node->children)
            states.push_back({child.address, Accessible, "GetState", nullptr, nullptr});
    }
    bus.ask(texts);
    bus.ask(states);
    std::size_t nextText = 0;
    std::size_t nextState = 0;
    for (Node* node : level) {
        if (holdsText(node->record))
            node->record["text"] = textIn(texts[nextText++].answer);
        for (Node& child : node->children)
            child.states = statesIn(states[nextState++].answer);
        // Nothing within what is not shown is.
        std::erase_if(node->children, [](const Node& child) { return !isShown(child); });
    }
}

Address applicationOfProcess(AccessibleBus& bus, int processIdentifier) {
    std::vector<Question> root(1);
    root[0] = {
        {"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"}, Accessible, "GetChildren", nullptr, nullptr};
    bus.ask(root);
    const std::vector<Address> applications = AccessibleBus::addressesIn(root[0].answer);
    std::vector<Question> processes;
    processes.reserve(applications.size());
    for (const Address& application : applications)
        processes.push_back({{"org.freedesktop.DBus", "/org/freedesktop/DBus"}, "org.freedesktop.DBus",
            "GetConnectionUnixProcessID", g_variant_new("(s)", application.owner.c_str()), nullptr});
    bus.ask(processes);
    for (std::size_t index = 0; index < applications.size(); ++index) {
        std::uint32_t process = 0;
        if (processes[index].answer)
            g_variant_get(processes[index].answer.get(), "(u)", &process);
        if (process == static_cast<std::uint32_t>(processIdentifier))
            return applications[index];
    }
    return {};
}

void addTo(nlohmann::json& records, const Node& node, const std::string& window) {
    records.push_back(node.record);
    records.back()["window"] = window;
    for (const Node& child : node.children)
        addTo(records, child, window);
}

} // namespace

nlohmann::json shownElements(int processIdentifier) {
    AccessibleBus bus;
    Node application{applicationOfProcess(bus, processIdentifier), 0, {}, {}};
    std::vector<Node*> level;
    if (!application.address.owner.empty())
        level.push_back(&application);
    while (!level.empty()) {
        readLevel(bus, level);
        std::vector<Node*> below;
        for (Node* node : level) {
            for (Node& child : node->children)
                below.push_back(&child);
        }
        level = std::move(below);
    }
    nlohmann::json records = nlohmann::json::array();
    for (const Node& window : application.children)
        addTo(records, window, window.record.at("name"));
    return records;
}

} // namespace reader
