// Property lists of all three formats as anything may have left them: cut off, changed, too deep, too
// large, without end. What is none reads as nothing; nothing ends the process.
#include "simulator/foundation/property_list.hpp"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>
#include <vector>

#include "platform/ownership.hpp"

namespace {

using namespace simulator;
using nlohmann::json;

class PropertyList : public testing::Test {
  protected:
    static json sample() {
        return json::parse(
            R"({"enabled": true, "three": 3, "less": -7, "half": 0.5, "name": "a<b>&",
                               "grün": "ß", "list": ["x", ["y"], {"z": 1}], "none": {}})");
    }
    static std::string encoded(PropertyListFormat format) {
        return encodePropertyList(propertyListObject(sample()), format);
    }
    static json decoded(std::string_view bytes) {
        platform::AutoreleasePool pool;
        const auto root = decodePropertyList(bytes);
        return root ? propertyListJson(root) : json();
    }
    static std::string xml(const std::string& content) {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\">" + content +
               "</plist>";
    }
    static std::string repeated(const std::string& part, int times) {
        std::string all;
        for (int i = 0; i < times; ++i) all += part;
        return all;
    }
    platform::AutoreleasePool pool_;
};

// Lists that each hold the next one so many times over.
std::string chainOfLists(int lists, int times) {
    auto number = [](unsigned long value, int width) {
        std::string bytes;
        for (int i = width - 1; i >= 0; --i) bytes += static_cast<char>(value >> (8 * i));
        return bytes;
    };
    std::string bytes = "bplist00", offsets;
    for (int i = 0; i < lists; ++i) {
        offsets += number(bytes.size(), 4);
        bytes += static_cast<char>(0xA0 | times);
        for (int k = 0; k < times; ++k) bytes += number(static_cast<unsigned long>(i) + 1, 4);
    }
    offsets += number(bytes.size(), 4);
    bytes += '\x09';  // true
    const std::size_t table = bytes.size();
    return bytes + offsets + std::string(6, '\0') + "\x04\x04" +
           number(static_cast<unsigned long>(lists) + 1, 8) + number(0, 8) + number(table, 8);
}

TEST_F(PropertyList, EveryFormatComesBack) {
    EXPECT_EQ(decoded(encoded(PropertyListFormat::xml)), sample());
    EXPECT_EQ(decoded(encoded(PropertyListFormat::binary)), sample());
}

// The platform asks neither for a declaration nor for the absence of a byte order mark.
TEST_F(PropertyList, WhatStandsBeforeTheListIsOptional) {
    const std::string list =
        "<plist version=\"1.0\"><dict><key>a</key><integer>-5</integer></dict>"
        "</plist>";
    const json expected = {{"a", -5}};
    EXPECT_EQ(decoded(list), expected);
    EXPECT_EQ(decoded("\n  " + list), expected);
    EXPECT_EQ(decoded("\xEF\xBB\xBF<?xml version=\"1.0\"?>" + list), expected);
    EXPECT_EQ(decoded("<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">" +
                      list),
              expected);
}

TEST_F(PropertyList, TheOldTextFormIsRead) {
    const char* text =
        "// switches\n{ enabled = 1; \"a key\" = 'x\\'y'; /* some */ none = {};\n"
        "  list = (one, \"two\\n\", (three),); raw = <0fbd 7a>; }\n";
    json expected = {{"enabled", "1"}, {"a key", "x'y"}, {"none", json::object()}};
    expected["list"] = {"one", "two\n", json::array({"three"})};
    json met = decoded(text);
    EXPECT_TRUE(met.contains("raw"));
    met.erase("raw");
    EXPECT_EQ(met, expected);
    EXPECT_EQ(decoded("()"), json::array());
}

class BrokenText : public PropertyList, public testing::WithParamInterface<const char*> {};

TEST_P(BrokenText, ReadsAsNothing) { EXPECT_EQ(decoded(GetParam()), json()); }

INSTANTIATE_TEST_SUITE_P(All, BrokenText,
                         testing::Values("", " ", "\n", "<", "</", "<?", "<?xml", "<!", "<plist",
                                         "<plist>", "<plist/>", "</plist>", "<plist><", "<plist></",

                                         "<plist><string>\xFF</string></plist>",
                                         "<plist><dict><key>\xC3</key><true/></dict></plist>", "{",
                                         "}", "(", ")", "{a", "{a=", "{a=b", "{a=b;", "{a=b}",
                                         "{=b;}", "(a", "(a,", "(a b)", "(,)", "<0", "<0>", "<0g>",
                                         "\"", "\"a", "\"a\\", "a b", "{} {}", "/*", "{/*",
                                         "bplist", "bplist00", "bplist99", "\xEF\xBB\xBF",
                                         "\xFE\xFF", "@\"a\""));

TEST_F(PropertyList, AKeyWithoutAValueIsPassedOver) {
    EXPECT_EQ(decoded("<plist><dict><key>a</key></dict></plist>"), json::object());
}

// Texts with the character zero in them, by which C tells their end.
TEST_F(PropertyList, TextsWithAZeroInThem) {
    std::string cut = encoded(PropertyListFormat::binary);
    cut[cut.find("enabled") + 2] = '\0';
    EXPECT_EQ(decoded(cut), json());
    std::string wide =
        encodePropertyList(propertyListObject("gr\xC3\xBCn"), PropertyListFormat::binary);
    const std::size_t at = wide.find(std::string("\0g\0r", 4));
    ASSERT_NE(at, std::string::npos);
    EXPECT_NE(decoded(wide), json());
    wide[at + 3] = '\0';
    EXPECT_EQ(decoded(wide), json());
    EXPECT_EQ(decoded(std::string("<plist><string>a\0b</string></plist>", 35)), json());
    EXPECT_EQ(decoded(std::string("{ a\0b = c; }", 12)), json());
    (void)decoded("<plist><string>a&#0;b</string></plist>");
    (void)decoded("<plist><dict><key>a&#0;b</key><true/></dict></plist>");
}

class EachFormat : public PropertyList, public testing::WithParamInterface<PropertyListFormat> {};

// Cut off at any byte, a list is none; only what closes the list around it may be missing. (The first
// letters of "bplist" alone are a word of the old text form.)
TEST_P(EachFormat, CutOffAtEachByte) {
    const std::string whole = encoded(GetParam());
    const bool isXml = GetParam() == PropertyListFormat::xml;
    const std::size_t end = isXml ? whole.rfind("</dict>") : whole.size();
    for (std::size_t size = isXml ? 0 : 6; size < end; ++size) {
        // Bytes without a terminator, so that the address sanitizer tells who reads past their end.
        const std::vector<char> bytes(whole.begin(),
                                      whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(decoded({bytes.data(), bytes.size()}), json()) << size;
    }
}

TEST_P(EachFormat, EachByteChanged) {
    const std::string whole = encoded(GetParam());
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (int change : {0x01, 0x80, 0xFF}) {
            std::string changed = whole;
            changed[i] = static_cast<char>(changed[i] ^ change);
            (void)decoded(changed);
        }
    }
}

TEST_P(EachFormat, BytesAtRandom) {
    const std::string whole = encoded(GetParam());
    std::mt19937 random(2026);
    for (int i = 0; i < 2000; ++i) {
        std::string bytes = whole.substr(0, 8);
        while (bytes.size() < whole.size()) bytes += static_cast<char>(random());
        (void)decoded(bytes);
        bytes = whole;
        for (int k = 0; k < 4; ++k) bytes[random() % bytes.size()] = static_cast<char>(random());
        (void)decoded(bytes);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, EachFormat,
                         testing::Values(PropertyListFormat::xml, PropertyListFormat::binary));

TEST_F(PropertyList, TextCutOffAtEachByte) {
    const std::string whole = "{ a = \"b\"; c = (d, {e = f;}); g = <00ff>; }";
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(decoded(whole.substr(0, size)), json()) << size;
    }
    EXPECT_NE(decoded(whole), json());
}

// 200 levels below the root, and no more, in each format.
TEST_F(PropertyList, AsDeepAsAPhoneKeeps) {
    auto xmlOf = [](int levels) {
        return xml(repeated("<array>", levels) + "<true/>" + repeated("</array>", levels));
    };
    auto textOf = [](int levels) { return repeated("(", levels) + "x" + repeated(")", levels); };
    EXPECT_NE(decoded(xmlOf(200)), json());
    EXPECT_EQ(decoded(xmlOf(201)), json());
    EXPECT_NE(decoded(chainOfLists(200, 1)), json());
    EXPECT_EQ(decoded(chainOfLists(201, 1)), json());
    EXPECT_NE(decoded(textOf(200)), json());
    EXPECT_EQ(decoded(textOf(201)), json());
    EXPECT_EQ(decoded(xmlOf(60'000)), json());
    EXPECT_EQ(decoded(chainOfLists(100'000, 1)), json());
    EXPECT_EQ(decoded(textOf(500'000)), json());
}

// A list of 16 levels that holds each twice stands for 2^17 - 1 objects, one of 15 for 2^16 - 1.
TEST_F(PropertyList, FewBytesThatStandForMany) {
    EXPECT_NE(decoded(chainOfLists(15, 2)), json());
    EXPECT_EQ(decoded(chainOfLists(16, 2)), json());
    EXPECT_EQ(decoded(chainOfLists(150, 14)), json());
}

TEST_F(PropertyList, NoLargerThanAPhoneKeeps) {
    const std::string frame = xml("<string></string>");
    const std::size_t room = (std::size_t{1} << 20) - frame.size();
    EXPECT_NE(decoded(xml("<string>" + std::string(room, 'a') + "</string>")), json());
    EXPECT_EQ(decoded(xml("<string>" + std::string(room + 1, 'a') + "</string>")), json());
}

}  // namespace
