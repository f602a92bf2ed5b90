#include "platform/linux/accessibletree/AtspiNodes.h"

#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibletree/AtspiRole.h"

namespace tarragon {

namespace {

constexpr const char* Accessible = "org.a11y.atspi.Accessible";
// Characters of a text field that are read: nobody is shown more.
constexpr std::int32_t TextPreview = 200;

void addFieldRequests(AtspiRequests& requests, const AtspiReference& reference, AtspiNode& node, AtspiFields fields) {
    const auto call = [&](const char* interface, const char* member, auto read) {
        requests.push_back({reference, interface, member, {}, read});
    };
    const auto property = [&](const char* interface, const char* name, auto read) {
        requests.push_back(AtspiRequest::property(reference, interface, name, read));
    };
    AtspiNode* const target = &node;
    if ((fields & AtspiFieldRole) != 0) {
        call(Accessible, "GetRole", [target](AtspiReply& reply) {
            if (const auto role = reply.readInteger())
                target->role = static_cast<std::uint32_t>(*role);
        });
    }
    if ((fields & AtspiFieldStates) != 0)
        call(Accessible, "GetState", [target](AtspiReply& reply) { target->states = reply.readStates(); });
    if ((fields & AtspiFieldName) != 0)
        property(Accessible, "Name", [target](AtspiReply& reply) { target->name = reply.readString(); });
    if ((fields & AtspiFieldKeyBinding) != 0) {
        requests.push_back({reference, "org.a11y.atspi.Action", "GetKeyBinding", std::int32_t{0},
            [target](AtspiReply& reply) { target->keyBinding = reply.readString(); },
            [target] { target->hasNoAction = true; }});
    }
    if ((fields & AtspiFieldChildren) != 0)
        call(Accessible, "GetChildren", [target](AtspiReply& reply) { target->children = reply.readReferences(); });
    if ((fields & AtspiFieldChildCount) != 0) {
        property(Accessible, "ChildCount", [target](AtspiReply& reply) { target->childCount = reply.readInteger(); });
    }
    if ((fields & AtspiFieldParent) != 0)
        property(Accessible, "Parent", [target](AtspiReply& reply) { target->parent = reply.readReference(); });
    if ((fields & AtspiFieldDescription) != 0) {
        property(Accessible, "Description", [target](AtspiReply& reply) { target->description = reply.readString(); });
    }
    if ((fields & AtspiFieldExtents) != 0) {
        requests.push_back({reference, "org.a11y.atspi.Component", "GetExtents", AtspiRequest::CoordinatesOfScreen{},
            [target](AtspiReply& reply) { target->extents = reply.readRect(); }});
    }
    if ((fields & AtspiFieldText) != 0) {
        requests.push_back({reference, "org.a11y.atspi.Text", "GetText", AtspiRequest::TextRange{0, TextPreview},
            [target](AtspiReply& reply) { target->text = reply.readString(); }});
    }
    if ((fields & AtspiFieldNumber) != 0) {
        property("org.a11y.atspi.Value", "CurrentValue",
            [target](AtspiReply& reply) { target->number = reply.readNumber(); });
    }
}

void addKindRequests(AtspiRequests& requests, const AtspiReference& reference, AtspiKinds& kinds) {
    const auto ask = [&](std::vector<AtspiReference>& answer, AtspiMatchRule rule) {
        requests.push_back({reference, "org.a11y.atspi.Collection", "GetMatches", std::move(rule),
            [&kinds, &answer](AtspiReply& reply) {
                if (auto references = reply.readReferences()) {
                    answer = std::move(*references);
                    ++kinds.answers;
                }
            }});
    };
    kinds = {};
    ask(kinds.usual, {.roles = {}, .states = {AtspiState::Visible, AtspiState::Sensitive, AtspiState::Enabled}});
    ask(kinds.checked, {.roles = {}, .states = {AtspiState::Checked}});
    ask(kinds.menus, {.roles = {AtspiRoleMenu}, .states = {}});
    ask(kinds.separators, {.roles = {AtspiRoleSeparator}, .states = {}});
}

} // namespace

AtspiNodes::Wanted AtspiNodes::wanted(std::span<const AtspiReference> references, AtspiFields fields) {
    Wanted result;
    result.reserve(references.size());
    for (const AtspiReference& reference : references)
        result.emplace_back(reference, fields);
    return result;
}

const AtspiNode& AtspiNodes::fetch(AtspiConnection& connection, const AtspiReference& reference, AtspiFields fields) {
    const AtspiNode& node = at(reference);
    if (node.missing(fields) != 0)
        fetch(connection, {{reference, fields}});
    return node;
}

void AtspiNodes::fetch(AtspiConnection& connection, const Wanted& wanted) {
    AtspiRequests requests;
    addRequests(requests, wanted);
    connection.run(requests);
}

void AtspiNodes::addRequests(AtspiRequests& requests, const Wanted& wanted) {
    for (const auto& [reference, fields] : wanted) {
        AtspiNode& node = at(reference);
        const AtspiFields missing = node.missing(fields);
        node.asked |= missing;
        node.requested |= missing;
        addFieldRequests(requests, reference, node, missing);
        if ((missing & AtspiFieldKinds) != 0)
            addKindRequests(requests, reference, node.kinds);
    }
}

} // namespace tarragon
