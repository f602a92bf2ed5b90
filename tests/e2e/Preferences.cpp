#include "Preferences.h"

#include <fstream>
#include <memory>
#include <sstream>

#include <plist/plist.h>

namespace tarragon::e2e {

namespace {

struct PlistDeleter {
    void operator()(void* node) const { plist_free(node); }
};
using Plist = std::unique_ptr<void, PlistDeleter>;

Plist read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream contents;
    contents << stream.rdbuf();
    std::string bytes = contents.str();
    plist_t root = nullptr;
    if (!bytes.empty())
        plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    if (!root || plist_get_node_type(root) != PLIST_DICT) {
        plist_free(root);
        root = plist_new_dict();
    }
    return Plist(root);
}

} // namespace

Preferences::Preferences(std::filesystem::path file)
    : _file(std::move(file)) { }

template <typename Change>
void Preferences::change(Change change) {
    Plist root = read(_file);
    change(root.get());
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(root.get(), &text, &length);
    std::filesystem::create_directories(_file.parent_path());
    std::filesystem::path temporary = _file;
    temporary += ".new";
    std::ofstream(temporary, std::ios::binary) << std::string(text, length);
    std::free(text);
    std::filesystem::rename(temporary, _file);
}

void Preferences::set(const std::string& key, bool value) {
    change([&](plist_t root) { plist_dict_set_item(root, key.c_str(), plist_new_bool(value)); });
}

void Preferences::set(const std::string& key, std::uint64_t value) {
    change([&](plist_t root) { plist_dict_set_item(root, key.c_str(), plist_new_uint(value)); });
}

void Preferences::set(const std::string& key, const std::string& value) {
    change([&](plist_t root) { plist_dict_set_item(root, key.c_str(), plist_new_string(value.c_str())); });
}

void Preferences::setData(const std::string& key, const std::string& bytes) {
    change([&](plist_t root) { plist_dict_set_item(root, key.c_str(), plist_new_data(bytes.data(), bytes.size())); });
}

void Preferences::remove(const std::string& key) {
    change([&](plist_t root) { plist_dict_remove_item(root, key.c_str()); });
}

void Preferences::setHotKey(std::uint32_t keyCode, std::uint64_t modifierFlags, const std::string& text) {
    change([&](plist_t root) {
        plist_dict_set_item(root, "TriggerCharacterUInt", plist_new_uint(keyCode));
        plist_dict_set_item(root, "TriggerModifiers", plist_new_uint(modifierFlags));
        plist_dict_set_item(root, "NewTrigger", plist_new_string(text.c_str()));
    });
}

bool Preferences::has(const std::string& key) const {
    return plist_dict_get_item(read(_file).get(), key.c_str()) != nullptr;
}

bool Preferences::boolean(const std::string& key) const {
    Plist root = read(_file);
    plist_t node = plist_dict_get_item(root.get(), key.c_str());
    std::uint8_t value = 0;
    if (node && plist_get_node_type(node) == PLIST_BOOLEAN)
        plist_get_bool_val(node, &value);
    return value != 0;
}

std::uint64_t Preferences::integer(const std::string& key) const {
    Plist root = read(_file);
    plist_t node = plist_dict_get_item(root.get(), key.c_str());
    std::uint64_t value = 0;
    if (node && plist_get_node_type(node) == PLIST_UINT)
        plist_get_uint_val(node, &value);
    return value;
}

std::string Preferences::text(const std::string& key) const {
    Plist root = read(_file);
    plist_t node = plist_dict_get_item(root.get(), key.c_str());
    std::uint64_t length = 0;
    const char* characters =
        node && plist_get_node_type(node) == PLIST_STRING ? plist_get_string_ptr(node, &length) : nullptr;
    return characters ? std::string(characters, length) : std::string();
}

std::string Preferences::data(const std::string& key) const {
    Plist root = read(_file);
    plist_t node = plist_dict_get_item(root.get(), key.c_str());
    std::uint64_t length = 0;
    const char* bytes = node && plist_get_node_type(node) == PLIST_DATA ? plist_get_data_ptr(node, &length) : nullptr;
    return bytes ? std::string(bytes, length) : std::string();
}

} // namespace tarragon::e2e
