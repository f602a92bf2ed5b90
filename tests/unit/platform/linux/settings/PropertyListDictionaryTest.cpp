#include "platform/linux/settings/PropertyListDictionary.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <plist/plist.h>

namespace tarragon {

namespace {

DefaultsValue throughXml(const DefaultsValue& value) {
    PropertyListDictionary dictionary;
    dictionary.set("key", value);
    const auto read = PropertyListDictionary::parse(dictionary.xml());
    return read ? read->values().at("key") : DefaultsValue("unreadable");
}

// A binary property list of the given values, each as it stands in the file. References in it have four bytes.
std::string binaryOf(const std::vector<std::string>& values) {
    const auto appendNumber = [](std::string& text, std::uint64_t number, unsigned size) {
        for (unsigned index = size; index-- > 0;)
            text += static_cast<char>(number >> (8 * index));
    };
    std::string contents = "bplist00";
    std::string offsets;
    for (const std::string& value : values) {
        appendNumber(offsets, contents.size(), 4);
        contents += value;
    }
    const std::size_t table = contents.size();
    contents += offsets + std::string(6, '\0') + "\x04\x04";
    appendNumber(contents, values.size(), 8);
    appendNumber(contents, 0, 8);
    appendNumber(contents, table, 8);
    return contents;
}

std::string reference(std::size_t index) {
    std::string text;
    for (unsigned byte = 4; byte-- > 0;)
        text += static_cast<char>(index >> (8 * byte));
    return text;
}

std::string binaryFormOf(plist_t root) {
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    const std::string contents(bytes, length);
    plist_to_bin_free(bytes);
    return contents;
}

std::string xmlOf(const std::string& elements) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + elements + "</dict></plist>";
}

} // namespace

class PropertyListValue : public testing::TestWithParam<DefaultsValue> { };

TEST_P(PropertyListValue, ComesBackAsItWas) {
    EXPECT_EQ(throughXml(GetParam()), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Booleans, PropertyListValue, testing::Values(DefaultsValue(true), DefaultsValue(false)));
INSTANTIATE_TEST_SUITE_P(Integers, PropertyListValue,
    testing::Values(std::int64_t(0), std::int64_t(49), std::int64_t(-5), std::int64_t(0x80000),
        std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()));
INSTANTIATE_TEST_SUITE_P(Reals, PropertyListValue, testing::Values(0.0, 0.1, 12.0, -1e-300, 1.0 / 3));
INSTANTIATE_TEST_SUITE_P(Texts, PropertyListValue,
    testing::Values(std::string(), std::string("\xCB\x84Z"), std::string("  <a> & ]]> \"b\"\n\t "),
        std::string("\x01\x1f"), std::string(100000, 'x')));
INSTANTIATE_TEST_SUITE_P(
    Bytes, PropertyListValue, testing::Values(Data(), Data{0}, Data{0, 255, 10, 13, '<', 128}, Data(100000, 7)));

TEST(PropertyListDictionary, ReadsTheBinaryForm) {
    plist_t root = plist_new_dict();
    plist_dict_set_item(root, "flag", plist_new_bool(1));
    plist_dict_set_item(root, "number", plist_new_uint(524288));
    const auto dictionary = PropertyListDictionary::parse(binaryFormOf(root));
    plist_free(root);
    ASSERT_TRUE(dictionary);
    EXPECT_EQ(dictionary->values(), (PropertyListValues{{"flag", true}, {"number", std::int64_t(524288)}}));
}

TEST(PropertyListDictionary, KeepsEntriesOfOtherKindsUntouched) {
    const std::string others = "<key>date</key><date>2024-05-06T07:08:09Z</date>"
                               "<key>list</key><array><string>a</string><integer>1</integer></array>"
                               "<key>sub</key><dict><key>x</key><true/></dict>";
    auto dictionary = PropertyListDictionary::parse(xmlOf(others + "<key>mine</key><integer>1</integer>"));
    ASSERT_TRUE(dictionary);
    EXPECT_EQ(dictionary->values(), (PropertyListValues{{"mine", std::int64_t(1)}}));
    dictionary->set("mine", std::int64_t(2));
    const std::string xml = dictionary->xml();
    EXPECT_NE(xml.find("2024-05-06T07:08:09Z"), std::string::npos);
    EXPECT_NE(xml.find("<string>a</string>"), std::string::npos);
    EXPECT_NE(xml.find("<key>x</key>"), std::string::npos);
}

TEST(PropertyListDictionary, SaysWhetherAnEntryHasChanged) {
    PropertyListDictionary dictionary;
    EXPECT_TRUE(dictionary.set("key", true));
    EXPECT_FALSE(dictionary.set("key", true));
    // Another kind is a change, even when it reads alike.
    EXPECT_TRUE(dictionary.set("key", std::int64_t(1)));
    EXPECT_TRUE(dictionary.remove("key"));
    EXPECT_FALSE(dictionary.remove("key"));
}

TEST(PropertyListDictionary, IsNothingForDamagedContents) {
    for (const std::string& contents : {std::string(), std::string("garbage"), std::string("<plist><dict><key>a</key>"),
             std::string("bplist00"), std::string("bplist00\xff\xff\xff\xff", 12), std::string(5000, '\0'),
             std::string("<plist version=\"1.0\"><array/></plist>"), std::string("{\"a\": 1}"),
             std::string("{ a = 1; }")})
        EXPECT_FALSE(PropertyListDictionary::parse(contents)) << contents;
}

TEST(PropertyListDictionary, RefusesToBeNestedWithoutEnd) {
    std::string contents = "<plist>";
    for (int depth = 0; depth < 1000000; ++depth)
        contents += "<array>";
    EXPECT_FALSE(PropertyListDictionary::parse(contents));
}

TEST(PropertyListDictionary, RefusesABinaryFormThatIsNestedWithoutEnd) {
    std::vector<std::string> values{"\xD1" + reference(1) + reference(2),
        "\x51"
        "a"};
    for (std::size_t index = 3; index < 50000; ++index)
        values.push_back(std::string("\xA1").append(reference(index)));
    values.push_back("\x09");
    EXPECT_FALSE(PropertyListDictionary::parse(binaryOf(values)));
    values = {"\xD1" + reference(1) + reference(0),
        "\x51"
        "a"};
    EXPECT_FALSE(PropertyListDictionary::parse(binaryOf(values)));
}

TEST(PropertyListDictionary, RefusesABinaryFormThatRefersToItsValuesWithoutEnd) {
    std::vector<std::string> values{"\xD1" + reference(1) + reference(2),
        "\x51"
        "a"};
    for (std::size_t index = 3; index < 40; ++index)
        values.push_back(std::string("\xA2").append(reference(index)).append(reference(index)));
    values.push_back("\x09");
    EXPECT_FALSE(PropertyListDictionary::parse(binaryOf(values)));
    EXPECT_FALSE(PropertyListDictionary::parse(binaryOf({std::string("\xAF\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF")})));
}

TEST(PropertyListDictionary, ReadsABinaryFormWithContainersAndSharedValues) {
    std::vector<std::string> values{"\xD2" + reference(1) + reference(2) + reference(3) + reference(4),
        "\x51"
        "a",
        "\x51"
        "b",
        "\xA2" + reference(4) + reference(4), "\x09"};
    const auto dictionary = PropertyListDictionary::parse(binaryOf(values));
    ASSERT_TRUE(dictionary);
    EXPECT_EQ(dictionary->values(), (PropertyListValues{{"b", true}}));
}

TEST(PropertyListDictionary, RefusesABinaryFormThatMultipliesItsData) {
    const std::string data = "\x4F\x12" + reference(100000) + std::string(100000, 'x');
    std::vector<std::string> values{"\xD1" + reference(1) + reference(2),
        "\x51"
        "a",
        "\xAF\x11\x03\xE8"};
    for (int count = 0; count < 1000; ++count)
        values[2] += reference(3);
    values.push_back(data);
    EXPECT_FALSE(PropertyListDictionary::parse(binaryOf(values)));
    values[2] = "\xA1" + reference(3);
    EXPECT_TRUE(PropertyListDictionary::parse(binaryOf(values)));
}

TEST(PropertyListDictionary, KeepsEntriesOfOtherKindsOfABinaryForm) {
    const auto key = [](char name) { return std::string("\x51") + name; };
    std::string dictionary = "\xD7";
    for (std::size_t index = 1; index <= 14; ++index)
        dictionary += reference(index);
    const auto read = PropertyListDictionary::parse(binaryOf({dictionary, key('a'), key('b'), key('c'), key('d'),
        key('e'), key('f'), key('g'), std::string("\x33\x41\xC5\x0F\xD9\x58\x80\0\0", 9), // a date
        "\xC1" + reference(14), // a set
        std::string("\x14\0\0\0\0\0\0\0\0\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 17), // 2^64 - 1
        std::string("\x64\0G\xD8\x34\xDD\x1E\0!", 9), // a text in two planes
        "\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFB", // -5
        std::string("\0", 1), // nothing
        std::string("\x22\x40\x20\0\0", 5)})); // 2.5
    ASSERT_TRUE(read);
    EXPECT_EQ(read->values(),
        (PropertyListValues{
            {"c", std::int64_t(-1)}, {"d", std::string("G\xF0\x9D\x84\x9E!")}, {"e", std::int64_t(-5)}, {"g", 2.5}}));
    const std::string xml = read->xml();
    EXPECT_NE(xml.find("<date>2023-05-25T15:13:53Z"), std::string::npos) << xml;
    EXPECT_NE(xml.find("<array>\n\t\t<real>2.5"), std::string::npos) << xml;
    EXPECT_NE(xml.find("<integer>18446744073709551615</integer>"), std::string::npos) << xml;
    EXPECT_EQ(xml.find("<key>f</key>"), std::string::npos) << xml;
}

TEST(PropertyListDictionary, SurvivesAnyWrongByteOfABinaryForm) {
    plist_t root = plist_new_dict();
    plist_t array = plist_new_array();
    for (int number = 0; number < 20; ++number)
        plist_array_append_item(array, plist_new_uint(1000 + static_cast<std::uint64_t>(number)));
    plist_dict_set_item(root, "list", array);
    plist_dict_set_item(root, "text", plist_new_string("abc"));
    const std::string sound = binaryFormOf(root);
    plist_free(root);
    ASSERT_TRUE(PropertyListDictionary::parse(sound));
    for (std::size_t place = 0; place < sound.size(); ++place) {
        EXPECT_FALSE(PropertyListDictionary::parse(sound.substr(0, place))) << place;
        for (const unsigned flip : {0x01U, 0x10U, 0x80U, 0xFFU}) {
            std::string contents = sound;
            contents[place] = static_cast<char>(static_cast<unsigned char>(contents[place]) ^ flip);
            // What can be read can be written again.
            const auto read = PropertyListDictionary::parse(contents);
            EXPECT_TRUE(!read || PropertyListDictionary::parse(read->xml())) << place;
        }
    }
}

TEST(PropertyListDictionary, ReadsAllOrNothingOfATruncatedFile) {
    PropertyListDictionary dictionary;
    dictionary.set("text", std::string("abc"));
    dictionary.set("bytes", Data{1, 2, 3});
    const std::string xml = dictionary.xml();
    for (std::size_t length = 0; length < xml.size(); ++length) {
        const auto read = PropertyListDictionary::parse(xml.substr(0, length));
        EXPECT_TRUE(!read || read->values() == dictionary.values()) << length;
    }
}

TEST(PropertyListDictionary, CannotHoldNullBytesInText) {
    EXPECT_FALSE(PropertyListDictionary::canHold(std::string("a\0b", 3)));
    EXPECT_TRUE(PropertyListDictionary::canHold(std::string("ab")));
    EXPECT_TRUE(PropertyListDictionary::canHold(Data{0}));
}

} // namespace tarragon
