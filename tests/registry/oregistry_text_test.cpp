#include "registry/oregistry_text.h"

#include <string>
#include <tuple>
#include <vector>

#include "registry/oregistry.h"
#include "support/host_test.h"

namespace {

using Lines = std::vector<std::string>;

std::string ToUtf8(OString text) {
    text.SetCodePage(1208);
    return text.nstring();
}

OString FromUtf8(const std::string& bytes) {
    OString text;
    text.SetCodePage(1208);
    text = bytes.c_str();
    return text;
}

class RegistryTextForm : public HostTest {
protected:
    Lines Export(const char* key) {
        OStringArray lines;
        EXPECT_TRUE(registry.Export(key, lines));
        Lines result;
        for (int i = 0; i < lines.GetSize(); ++i) result.push_back(ToUtf8(lines[i]));
        return result;
    }

    void Import(const Lines& text) {
        OStringArray lines;
        for (const std::string& line : text) lines.Add(FromUtf8(line));
        EXPECT_TRUE(registry.Import(lines));
    }

    ORegistry registry;
};

using RegistryImport = RegistryTextForm;

const char Head[] = "[HKEY_CURRENT_USER\\T]";

} // namespace

// The names are in the order in which a sorting registry lists them.
TEST_F(RegistryTextForm, ShowsEachTypeInItsOwnWay) {
    const unsigned char bytes[] = {0x01, 0xAB, 0xFF};
    OStringArray list;
    list.Add("a");
    list.Add("b");
    registry.SetInt("1:T/a%%b::c%5Cd%22", 1);
    registry.SetBinary("1:T/bytes", bytes, 3);
    registry.SetMultiString("1:T/list", list);
    registry.SetBinary("1:T/nothing", bytes, 0);
    registry.SetDWORD("1:T/number", 0x1234ABCD);
    registry.SetData("1:T/other", bytes, 3, REG_EXPAND_SZ);
    registry.SetString("1:T/string", "C:\\x \"y\"");
    registry.SetString("1:T/first/s", "");
    registry.SetInt("1:T/sub//key/deep/v", -1);
    EXPECT_EQ(Export("CURRENT_USER:T"), (Lines{
                                            "[HKEY_CURRENT_USER\\T]",
                                            "\"a%b:c\\\\d\\\"\"=hex:01,00,00,00",
                                            "\"bytes\"=hex:01,ab,ff",
                                            "\"list\"=hex(7):61,00,00,00,62,00,00,00,00,00",
                                            "\"nothing\"=hex:",
                                            "\"number\"=dword:1234abcd",
                                            "\"other\"=hex(2):01,ab,ff",
                                            "\"string\"=\"C:\\\\x \\\"y\\\"\"",
                                            "",
                                            "[HKEY_CURRENT_USER\\T\\first]",
                                            "\"s\"=\"\"",
                                            "",
                                            "[HKEY_CURRENT_USER\\T\\sub/key]",
                                            "",
                                            "[HKEY_CURRENT_USER\\T\\sub/key\\deep]",
                                            "\"v\"=hex:ff,ff,ff,ff",
                                            "",
                                        }));
    OStringArray lines;
    EXPECT_FALSE(registry.Export("T", lines));
    EXPECT_EQ(lines.GetSize(), 0);
}

TEST_F(RegistryTextForm, WrapsLongValuesAndReadsThemBack) {
    for (const uint32_t size : {21u, 22u, 23u, 24u, 48u, 49u, 5000u}) {
        std::string bytes;
        for (uint32_t i = 0; i < size; ++i) bytes += static_cast<char>(i * 7);
        registry.SetBinary("1:T/value", bytes.data(), size);
        const Lines lines = Export("1:T");
        for (size_t i = 1; i + 2 < lines.size(); ++i) {
            // The first byte after 76 characters begins the next line.
            EXPECT_GT(lines[i].size(), 77u);
            EXPECT_LE(lines[i].size(), 80u);
            EXPECT_EQ(lines[i].substr(lines[i].size() - 2), ",\\");
            EXPECT_EQ(lines[i + 1].substr(0, 2), "  ");
            EXPECT_NE(lines[i + 1][2], ' ');
        }
        registry.Delete("1:T", true);
        Import(lines);
        std::string read(size, '-');
        EXPECT_EQ(registry.GetBinary("1:T/value", read.data(), size), static_cast<int32_t>(size));
        EXPECT_EQ(read, bytes) << size;
        EXPECT_EQ(Export("1:T"), lines);
    }
}

TEST_F(RegistryTextForm, BringsBackEveryNameAndString) {
    // Sorted, as some registries list them.
    const char* texts[] = {"",       " x ",     "\"",    "\"\\\"", "\"x\"",       "%41",   ",",
                           "=",      "[k]",     "\\",    "\\\"",   "\\\\",        "a\"=b", "a/b:c%",
                           "a\\\"=", "dword:1", "plain", "x\\y\\", "\xE2\x82\xAC"};
    Lines text = {Head};
    int index = 0;
    for (const char* name : texts) {
        // Written under a name of its own, whatever it contains.
        OStringArray lines;
        RegistryLineArray array(lines);
        RegistryTextWriter(array).WriteValue(FromUtf8(name).wstring(), REG_DWORD,
                                             reinterpret_cast<unsigned char*>(&index), 4);
        text.push_back(ToUtf8(lines[0]));
        ++index;
    }
    Import(text);
    OStringArray names;
    ASSERT_EQ(registry.EnumValues("1:T", names), index);
    for (int i = 0; i < index; ++i) EXPECT_EQ(ToUtf8(names[i]), texts[i]);
    text.emplace_back("");
    EXPECT_EQ(Export("1:T"), text);

    for (const char* string : texts) {
        registry.SetString("1:S/value", FromUtf8(string));
        const Lines lines = Export("1:S");
        registry.SetString("1:S/value", "changed");
        Import(lines);
        EXPECT_EQ(ToUtf8(registry.GetString("1:S/value", "missing")), string);
    }
}

TEST_F(RegistryTextForm, ReadsBackKeysWithTheirSubkeysLongNamesAndLongStrings) {
    const OString long_name = OString("1:T/") << std::string(90, 'n').c_str();
    registry.SetInt(long_name, 0x01020304);
    registry.SetString("1:T/text", OString(std::string(20000, 'x').c_str()));
    registry.SetInt("1:T/a//b/50%%/v", 1);
    registry.SetInt("1:T/end]/v", 3);
    registry.SetInt("1:T/x::y/[z]/v", 2);
    const Lines lines = Export("1:T");
    EXPECT_EQ(lines[1].substr(89), "nn\"=hex:\\");
    EXPECT_EQ(lines[2], "  04,03,02,01");
    registry.Delete("1:T", true);
    Import(lines);
    EXPECT_EQ(Export("1:T"), lines);
    EXPECT_EQ(registry.GetInt(long_name, 0), 0x01020304);
    EXPECT_EQ(registry.GetSize("1:T/text"), 40002);
    EXPECT_EQ(registry.GetInt("1:T/a//b/50%%/v", 0), 1);
    EXPECT_EQ(registry.GetInt("1:T/end]/v", 0), 3);
}

TEST_F(RegistryImport, DeletesTheKeyOfAHeaderWithADash) {
    registry.SetInt("1:T/sub/v", 1);
    registry.SetInt("1:Keep/v", 1);
    Import({"[-HKEY_CURRENT_USER\\T]", "[-]", "[-HKEY_CURRENT_USER\\]", "[-nonsense]"});
    EXPECT_FALSE(registry.GetKeyInfo("1:T", nullptr, nullptr));
    EXPECT_EQ(registry.GetInt("1:Keep/v", 0), 1);
}

TEST_F(RegistryImport, StoresEachTypeFromItsText) {
    Import({
        "REGEDIT4",
        "",
        "\"stray\"=\"between keys\"",
        "  [HKEY_CURRENT_USER\\T]\r\n",
        "\t\"number\"=DWORD:0000000A",
        "\"hex\"=HEX:01,fF,0a",
        "\"expand\"=hex(2):61,00,\\",
        "   62,00",
        "\"list\"=hex(7):61,00,00,00,62,00",
        "plain\"=\"unquoted name\"",
        "\"tail\"=\"x\"\r\n",
        "",
        "\"after\"=\"the key's end\"",
    });
    const std::tuple<const char*, uint32_t, std::string> cases[] = {
        {"number", REG_DWORD, {"\x0A\0\0\0", 4}},
        {"hex", REG_BINARY, {"\x01\xFF\x0A", 3}},
        {"expand", REG_BINARY, {"a\0b\0", 4}},
        {"list", REG_MULTI_SZ, {"a\0\0\0b\0\0\0\0\0", 10}},
        {"tail", REG_SZ, {"x\0\0\0", 4}}};
    for (const auto& [value, expected_type, bytes] : cases) {
        const OString name = OString("1:T/") << value;
        uint32_t type = 0;
        char buffer[64];
        EXPECT_TRUE(registry.GetInfo(name, nullptr, &type)) << value;
        EXPECT_EQ(type, expected_type) << value;
        const int32_t size = registry.GetData(name, buffer, sizeof buffer, 0);
        EXPECT_EQ(std::string(buffer, static_cast<size_t>(std::max(size, 0))), bytes) << value;
    }
    EXPECT_STREQ(registry.GetString("1:T/plain", "").nstring(), "unquoted name");
    EXPECT_EQ(ORegistry(registry).GetString("tail", ""), "x") << "the key stays the base";
    EXPECT_EQ(registry.GetSize("1:T/stray"), -1);
    EXPECT_EQ(registry.GetSize("1:T/after"), -1);
}
