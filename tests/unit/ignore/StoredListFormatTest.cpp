// The stored form of the ignore list, spelled out: what is written, and what is read from bytes that are not ours.
#include "ignore/IgnoreDictionary.h"
#include "ignore/KeyedArchiver.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <plist/plist.h>

namespace tarragon {
namespace {

std::string xmlOf(const PropertyListNode& top) {
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(top.get(), &text, &length);
    std::string xml(text, length);
    plist_to_xml_free(text);
    return xml;
}

// An archive in words, as an independent reader sees it.
std::string inWords(const Data& archive) {
    plist_t node = nullptr;
    plist_from_bin(reinterpret_cast<const char*>(archive.data()), static_cast<std::uint32_t>(archive.size()), &node);
    return xmlOf(PropertyListNode(node));
}

// The same words for an archive that is spelled out.
std::string inWords(const std::string& xml) {
    const std::string list = "<plist version=\"1.0\">" + xml + "</plist>";
    plist_t node = nullptr;
    plist_from_xml(list.data(), static_cast<std::uint32_t>(list.size()), &node);
    return xmlOf(PropertyListNode(node));
}

std::string uid(unsigned number) {
    return "<dict><key>CF$UID</key><integer>" + std::to_string(number) + "</integer></dict>";
}

std::string archiveOf(const std::string& objects) {
    return "<dict><key>$version</key><integer>100000</integer><key>$archiver</key><string>NSKeyedArchiver</string>"
           "<key>$top</key><dict><key>root</key>"
        + uid(1) + "</dict><key>$objects</key><array><string>$null</string>" + objects + "</array></dict>";
}

std::string classRecord(const std::vector<std::string>& names) {
    std::string record = "<dict><key>$classname</key><string>" + names.front() + "</string><key>$classes</key><array>";
    for (const std::string& name : names)
        record += "<string>" + name + "</string>";
    return record + "</array></dict>";
}

// The entry of the bytes below.
TarragonBlacklist entryOfBytes() {
    TarragonBlacklist entry;
    entry.setAppBundleID("a.B");
    entry.setIgnoreAllAppWindows(true);
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"T*", "é", "T*"});
    return entry;
}

TEST(StoredListFormat, AnEntryIsWrittenAsFourObjectsWithABooleanAndAnImmutableArray) {
    for (const bool ignoreAll : {true, false}) {
        TarragonBlacklist entry = entryOfBytes();
        entry.setIgnoreAllAppWindows(ignoreAll);
        EXPECT_EQ(inWords(entry.archivedData()),
            inWords(archiveOf("<dict><key>appBundleID</key>" + uid(2) + "<key>appName</key>" + uid(0)
                + "<key>ignoreAllAppWindows</key>" + uid(3) + "<key>windowsWithTitlesToIgnore</key>" + uid(4)
                + "<key>$class</key>" + uid(8) + "</dict><string>a.B</string>" + (ignoreAll ? "<true/>" : "<false/>")
                + "<dict><key>NS.objects</key><array>" + uid(5) + uid(6) + uid(5) + "</array><key>$class</key>" + uid(7)
                + "</dict><string>T*</string><string>é</string>" + classRecord({"NSArray", "NSObject"})
                + classRecord({"TarragonBlacklist", "NSObject"}))));
    }
}

TEST(StoredListFormat, AListIsWrittenAsAMutableDictionaryOfData) {
    const auto bytes = std::make_shared<const Data>(Data{'a', 'b', 'c'});
    ArchiveDictionary dictionary{{{"key", bytes}}, Mutability::Mutable};
    const std::string head = "<dict><key>NS.keys</key><array>";
    const std::string record = classRecord({"NSMutableDictionary", "NSDictionary", "NSObject"});
    const Data stored =
        KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(std::move(dictionary)));
    EXPECT_EQ(inWords(stored),
        inWords(archiveOf(head + uid(2) + "</array><key>NS.objects</key><array>" + uid(3) + "</array><key>$class</key>"
            + uid(4) + "</dict><string>key</string><data>YWJj</data>" + record)));
    EXPECT_EQ(inWords(archiveOfEmptyMutableDictionary()),
        inWords(archiveOf(
            head + "</array><key>NS.objects</key><array></array><key>$class</key>" + uid(2) + "</dict>" + record)));
    const auto read = IgnoreDictionary::unarchive(stored);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->archivedData(), stored);
}

TEST(StoredListFormat, ReferencesTakeAsManyBytesAsTheyNeed) {
    const auto archiveOfNumbers = [](std::int64_t count) {
        ArchiveArray array;
        for (std::int64_t number = 0; number < count; ++number)
            array.elements.emplace_back(number);
        return KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveArray>(std::move(array)));
    };
    const auto contains = [](const Data& bytes, const Data& part) {
        return std::search(bytes.begin(), bytes.end(), part.begin(), part.end()) != bytes.end();
    };
    const Data small = archiveOfNumbers(300);
    EXPECT_TRUE(contains(small, {0x80, 0xFF}));
    EXPECT_TRUE(contains(small, {0x81, 0x01, 0x00}));
    const Data large = archiveOfNumbers(66000);
    EXPECT_TRUE(contains(large, {0x81, 0xFF, 0xFF}));
    EXPECT_TRUE(contains(large, {0x83, 0x00, 0x01, 0x00, 0x00}));
}

Data bytesOf(std::string_view hexadecimal) {
    Data bytes;
    for (std::size_t place = 0; place + 1 < hexadecimal.size(); place += 2)
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(std::string(hexadecimal.substr(place, 2)), nullptr, 16)));
    return bytes;
}

// An entry that was written once: what is stored stays readable, whatever writes it from now on.
constexpr std::string_view BytesOfEntry =
    "62706c6973743030d4010305090204060a582476657273696f6e12000186a0592461726368697665725f100f4e534b657965"
    "6441726368697665725424746f70d1070854726f6f74800158246f626a65637473a90b0c1718191f20212755246e756c6cd5"
    "0d0f1113150e101214165b61707042756e646c6549448002576170704e616d6580005f101369676e6f7265416c6c41707057"
    "696e646f777380035f101977696e646f7773576974685469746c6573546f49676e6f726580045624636c617373800853612e"
    "4209d21a151b1e5a4e532e6f626a65637473a31c1d1c80058006800752542a6100e9d2222423255a24636c6173736e616d65"
    "574e5341727261795824636c6173736573a22326584e534f626a656374d2222428295f10115461727261676f6e426c61636b"
    "6c697374a2282600080011001a001f0029003b004000430048004a0053005d0063006e007a007c00840086009c009e00ba00"
    "bc00c300c500c900ca00cf00da00de00e000e200e400e700ea00ef00fa0102010b010e0117011c0130000000000000020100"
    "0000000000002a00000000000000000000000000000133";

TEST(StoredListFormat, AnEntryIsReadFromItsBytes) {
    const auto read = TarragonBlacklist::unarchive(bytesOf(BytesOfEntry));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, entryOfBytes());
}

TEST(StoredListFormat, AnEntryOfAnotherClassIsNone) {
    Data bytes = bytesOf(BytesOfEntry);
    const std::string name = "TarragonBlacklist";
    const auto found = std::search(bytes.begin(), bytes.end(), name.begin(), name.end());
    ASSERT_NE(found, bytes.end());
    *found = 'X';
    EXPECT_FALSE(TarragonBlacklist::unarchive(bytes));
}

TEST(StoredListFormat, ABooleanIsReadFromItsByte) {
    Data bytes = bytesOf(BytesOfEntry);
    const Data nameAndTrue{'a', '.', 'B', 0x09};
    const auto found = std::search(bytes.begin(), bytes.end(), nameAndTrue.begin(), nameAndTrue.end());
    ASSERT_NE(found, bytes.end());
    found[3] = 0x08;
    const auto read = TarragonBlacklist::unarchive(bytes);
    ASSERT_TRUE(read);
    EXPECT_THAT(read->ignoreAllAppWindows(), testing::Optional(false));
}

} // namespace
} // namespace tarragon
