#include "propertylist/PropertyListNode.h"

#include <gtest/gtest.h>

#include <string>

#include <plist/plist.h>

namespace tarragon {
namespace {

TEST(PropertyListNode, TextKeepsEverythingButWhatAPropertyListCannotHold) {
    EXPECT_EQ(propertyListText(""), "");
    EXPECT_EQ(propertyListText("Grüße \xF0\x9D\x84\x9E"), "Grüße \xF0\x9D\x84\x9E");
    EXPECT_EQ(propertyListText(std::string("\0a\0b\0", 5)), "\uFFFDa\uFFFDb\uFFFD");
    EXPECT_EQ(propertyListText(std::string("a\xFF\0b", 4)), "a\uFFFD\uFFFDb");
}

TEST(PropertyListNode, ComesBackFromItsBinaryForm) {
    const PropertyListNode array(plist_new_array());
    plist_array_append_item(array.get(), plist_new_uid(70000));
    plist_array_append_item(array.get(), plist_new_string("Grüße"));
    plist_array_append_item(array.get(), plist_new_date(-1000, 0));
    const Data bytes = binaryPropertyList(array);
    const PropertyListNode read = propertyListOfBinary(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(binaryPropertyList(read), bytes);
}

TEST(PropertyListNode, IsNoneForDamagedBytes) {
    EXPECT_FALSE(propertyListOfBinary({}));
    EXPECT_FALSE(propertyListOfBinary(Data{'b', 'p', 'l', 'i', 's', 't', '0', '0'}));
}

} // namespace
} // namespace tarragon
