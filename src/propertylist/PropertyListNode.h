#pragma once

#include "platform/Defaults.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tarragon {

struct FreePropertyListNode {
    void operator()(void* node) const;
};

// A value of a property list, with all that it holds, in the representation of libplist (a plist_t). Whoever puts it
// into a container releases it: the container owns it from then on.
using PropertyListNode = std::unique_ptr<void, FreePropertyListNode>;

// The text as it is kept in a property list: what is no UTF-8 becomes U+FFFD, and so does a null character, where the
// library would end the text.
std::string propertyListText(std::string_view text);

// The property list at that top, in its binary form.
Data binaryPropertyList(const PropertyListNode& top);

// The top of a property list in its binary form, which may be untrusted; nullptr for one that is damaged, or whose
// values are nested, or used again and again, beyond reason. Values that no other form of property lists knows are left
// out.
PropertyListNode propertyListOfBinary(std::span<const std::uint8_t> bytes);

} // namespace tarragon
