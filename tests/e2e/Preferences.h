#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tarragon::e2e {

// The program's stored settings, written by another process as a user's own tools would: the whole property list is
// replaced at once.
class Preferences {
public:
    explicit Preferences(std::filesystem::path file);

    void set(const std::string& key, bool value);
    void set(const std::string& key, std::uint64_t value);
    void set(const std::string& key, const std::string& value);
    // Bytes, of whatever form.
    void setData(const std::string& key, const std::string& bytes);
    void set(const std::string& key, const char* value) { set(key, std::string(value)); }
    // Back to the value that the program has built in.
    void remove(const std::string& key);
    // Several keys that make one change: key code, Cocoa modifier flags and, last, the text that announces the change.
    void setHotKey(std::uint32_t keyCode, std::uint64_t modifierFlags, const std::string& text);

    // Whether the file has a value of its own for the key.
    bool has(const std::string& key) const;
    // False, 0 and nothing where there is no value of that type.
    bool boolean(const std::string& key) const;
    std::uint64_t integer(const std::string& key) const;
    std::string text(const std::string& key) const;
    std::string data(const std::string& key) const;

private:
    template <typename Change>
    void change(Change change);

    std::filesystem::path _file;
};

} // namespace tarragon::e2e
