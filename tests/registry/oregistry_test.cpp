#include "registry/oregistry.h"

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "support/host_test.h"

namespace {

class TestRegistry : public ORegistry {
public:
    using ORegistry::GetKeyAndValue;
};

class RegistryStore : public HostTest {
protected:
    TestRegistry registry;
};

using RegistryNames = RegistryStore;
using RegistryValues = RegistryStore;
using RegistryEnumeration = RegistryStore;
using RegistryDeletion = RegistryStore;

std::string Utf8(OString text) {
    text.SetCodePage(1208);
    return text.nstring();
}

std::vector<std::string> Utf8(const OStringArray& names) {
    std::vector<std::string> result;
    for (int i = 0; i < names.GetSize(); ++i) result.push_back(Utf8(names[i]));
    return result;
}

using Names = std::vector<std::string>;

} // namespace

TEST_F(RegistryNames, ResolveToTheKeyWithItsRootSubstitutedAndTheValue) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"", "LOCAL:Printers/ABC/Shadow", "2:SOFTWARE/Valdrick/Drivers/Printers/ABC", "Shadow"},
        {"", "local:Printers/ABC/Shadow", "2:SOFTWARE/Valdrick/Drivers/Printers/ABC", "Shadow"},
        {"", "LOCAL:Version", "2:SOFTWARE/Valdrick/Drivers", "Version"},
        {"", "GLOBAL:A/B", "2:SOFTWARE/Valdrick/Drivers/Global Settings/A", "B"},
        {"", "USER:A", "1:SOFTWARE/Valdrick/Drivers", "A"},
        {"", "Users:S-1-5/A", "3:S-1-5", "A"},
        {"", "CLASSES_ROOT:.zpl/A", "0:.zpl", "A"},
        {"", "CURRENT_USER:A", "1:", "A"},
        {"", "LOCAL_MACHINE:A/B", "2:A", "B"},
        {"", "2:A/B", "2:A", "B"},
        {"", "PRINT:Monitors/Standard TCP//IP Port/Ports",
         "2:SYSTEM/CurrentControlSet/Control/Print/Monitors/Standard TCP%2FIP Port", "Ports"},
        {"", "1:a\\b\\c", "1:a/b", "c"},
        {"", "1:a/50%% :: 5//6", "1:a", "50% : 5/6"},
        {"", "1:a::b/c", "1:a%3Ab", "c"},
        {"", "1:a/%5Cb%2f%3A%25", "1:a", "\\b/:%"},
        {"", "1:a/%252F%2F", "1:a", "%2F/"}, // decoded once
        {"", "1:a/100%", "1:a", "100%"},     // no escape
        {"", "1:a/%zz%4", "1:a", "%zz%4"},   // neither
        {"", "1:a/x%00y", "1:a", "xy"},
        {"", "1:a/%%41", "1:a", "%41"},
        {"", "1:a/////b", "1:a%2F%2F", "b"},
        {"1:base/", "sub/value", "1:base/sub", "value"},
        {"1:", "value", "1:", "value"},
        {"USER:x", "a::b", "1:SOFTWARE/Valdrick/Drivers/x", "a:b"},
        {"1:base", "2:other/v", "2:other", "v"},
        {"1:base///", "", "1:base%2F", ""},
        {"USER:", "", "1:SOFTWARE/Valdrick/Drivers", ""},
        {"LOCAL:a//b/", "", "2:SOFTWARE/Valdrick/Drivers/a%2Fb", ""},
        {"HKEY:x", "", "HKEY:x", ""}};
    for (const auto& [base, name, expected_key, expected_value] : cases) {
        OString key = base;
        OString value = name;
        EXPECT_TRUE(registry.GetKeyAndValue(key, value)) << name;
        EXPECT_STREQ(key.nstring(), expected_key) << base << " + " << name;
        EXPECT_STREQ(value.nstring(), expected_value) << base << " + " << name;
    }
}

TEST_F(RegistryNames, WithoutARootAndABaseAreNoNames) {
    for (const char* name : {"", "Shadow", "100%%", "a::b"}) {
        OString key;
        OString value = name;
        EXPECT_FALSE(registry.GetKeyAndValue(key, value)) << name;
    }
    for (const char* name : {"Printers/Shadow", "5:a/b", "-1:a/b", ":a/b", "FOO:a/b", "1 2:a/b"}) {
        EXPECT_FALSE(registry.SetDWORD(name, 1)) << name;
        EXPECT_EQ(registry.GetDWORD(name, 7), 7u) << name;
    }
}

TEST_F(RegistryValues, ThatAreStringsMayBeEmptyLackTheirTerminatorAndEndAt8192Bytes) {
    const auto read = [this] { return registry.GetString("USER:S", "default"); };
    EXPECT_EQ(read(), "default");
    ASSERT_TRUE(registry.SetString("USER:S", OString()));
    EXPECT_EQ(read(), "");
    const unsigned char raw[] = {'a', 0, 'b', 0, 'c'};
    for (const uint32_t size : {4u, 5u}) {
        registry.SetData("USER:S", raw, size, REG_SZ);
        EXPECT_EQ(read(), "ab");
    }
    for (const OString& text :
         {OString(TEXT("\u20AC\u0141")), OString(std::string(4095, 'x').c_str())}) {
        registry.SetString("USER:S", text);
        EXPECT_EQ(read(), text);
    }
    registry.SetString("USER:S", read() + "x");
    EXPECT_EQ(read(), "default");
}

TEST_F(RegistryValues, ThatAreListsDropEmptyStringsAndReplaceTheArray) {
    OStringArray list;
    for (const char* s : {"a", "", "b c"}) list.Add(s);
    EXPECT_TRUE(registry.SetMultiString("USER:L", list));
    OStringArray read;
    read.Add("old");
    ASSERT_TRUE(registry.GetMultiString("USER:L", read));
    EXPECT_EQ(Utf8(read), (Names{"a", "b c"}));

    EXPECT_FALSE(registry.GetMultiString("USER:Missing", read));
    EXPECT_EQ(read.GetSize(), 2);

    const unsigned char raw[] = {'x', 0, 0, 0, 'y', 0, 'z'};
    registry.SetData("USER:L", raw, sizeof raw, REG_MULTI_SZ);
    ASSERT_TRUE(registry.GetMultiString("USER:L", read));
    EXPECT_EQ(Utf8(read), (Names{"x", "y"}));
}

TEST_F(RegistryValues, LeaveABufferAloneWhenTheyDoNotFit) {
    std::string stored(1000, 'x');
    registry.SetBinary("USER:B", stored.data(), 1000);
    std::string buffer(999, '-');
    EXPECT_EQ(registry.GetBinary("USER:B", buffer.data(), 999), -1);
    EXPECT_EQ(registry.GetBinary("USER:B", buffer.data(), 3), -1);
    EXPECT_EQ(registry.GetBinary("USER:None", buffer.data(), 999), -1);
    EXPECT_EQ(buffer, std::string(999, '-'));
    // Claiming a huge buffer costs nothing.
    buffer.assign(1000, '-');
    EXPECT_EQ(registry.GetBinary("USER:B", buffer.data(), 0xFFFFFFFF), 1000);
    EXPECT_EQ(buffer, stored);
}

TEST_F(RegistryValues, ComeFromTheNewKeyAfterAnotherObjectReplacedIt) {
    registry.SetInt("USER:K/V", 1);
    ASSERT_EQ(registry.GetInt("USER:K/V", 0), 1); // the key stays open
    ORegistry other;
    ASSERT_TRUE(other.Delete("USER:K", true));
    EXPECT_EQ(registry.GetInt("USER:K/V", 0), 0);
    other.SetInt("USER:K/V", 2);
    EXPECT_EQ(registry.GetInt("USER:K/V", 0), 2);
    ASSERT_TRUE(other.Delete("USER:K", true));
    EXPECT_TRUE(registry.SetInt("USER:K/V", 3));
    EXPECT_EQ(other.GetInt("USER:K/V", 0), 3);
}

TEST_F(RegistryEnumeration, MatchesPatternsInTheLastComponentOnly) {
    for (const char* name : {"Form 1", "Form 12", "form 3", "Other"}) {
        registry.SetInt(OString("USER:E*/") << name, 1);
        registry.SetInt(OString("USER:E*/") << name << " key/v", 1);
    }
    registry.SetInt("USER:Ex/Form 9", 1);
    const std::pair<const char*, Names> cases[] = {
        {"USER:E*/Form *", {"Form 1", "Form 12"}},
        {"USER:E*/?orm ?", {"Form 1", "form 3"}},
        {"USER:E*/*", {"Form 1", "Form 12", "form 3", "Other"}},
        {"USER:E*/x?", {}},
        {"USER:E*", {}}};
    for (const auto& [pattern, values] : cases) {
        OStringArray names;
        EXPECT_EQ(registry.EnumMatchingValues(pattern, names), static_cast<int>(values.size()));
        EXPECT_EQ(Utf8(names), values) << pattern;
    }
    OStringArray names;
    EXPECT_EQ(registry.EnumMatchingKeys("USER:E*/Form*", names), 2);
    EXPECT_EQ(Utf8(names), (Names{"Form 1 key", "Form 12 key"}));
    EXPECT_EQ(registry.EnumMatchingKeys("USER:Ex/F", names), -1);
}

TEST_F(RegistryDeletion, TakesAKeyBeforeAValueOfTheSameName) {
    registry.SetInt("USER:D/x", 1);
    registry.SetInt("USER:D/x/v", 1);
    EXPECT_TRUE(registry.Delete("USER:D/x", false));
    EXPECT_FALSE(registry.GetKeyInfo("USER:D/x", nullptr, nullptr));
    EXPECT_EQ(registry.GetSize("USER:D/x"), 4);
    EXPECT_TRUE(registry.Delete("USER:D/x", false));
    EXPECT_EQ(registry.GetSize("USER:D/x"), -1);
    EXPECT_FALSE(registry.Delete("USER:D/x", false));

    registry.SetInt("USER:D/x", 1);
    registry.SetInt("USER:D/x/v", 1); // the key stays open
    ASSERT_TRUE(ORegistry().Delete("USER:D/x", false));
    EXPECT_TRUE(registry.Delete("USER:D/x", false));
    EXPECT_EQ(registry.GetSize("USER:D/x"), -1);
}

TEST_F(RegistryDeletion, NeverTakesMoreThanItsNameSays) {
    registry.SetInt("1:D/a/b/c/v", 1);
    for (const char* name : {"", "1:", "CURRENT_USER:", "1:Other"})
        EXPECT_FALSE(registry.Delete(name, true)) << name;
    EXPECT_FALSE(registry.Delete("1:D/a", false)) << "keys below it";
    EXPECT_EQ(registry.GetInt("1:D/a/b/c/v", 0), 1);
    EXPECT_TRUE(registry.Delete("1:D/a", true));
    EXPECT_EQ(registry.GetInt("1:D/a/b/c/v", 0), 0);
    EXPECT_TRUE(registry.GetKeyInfo("1:D", nullptr, nullptr));
}

TEST_F(RegistryDeletion, ReachesNamesWithSeparatorsAndEscapes) {
    for (const char* name : {"a//b", "c::d", "%%41", "100%%", "%%2F//"}) {
        const OString key = OString("USER:D/top/") << name;
        ASSERT_TRUE(registry.SetInt(OString(key) << "/sub//key/v", 1));
    }
    ASSERT_TRUE(registry.SetInt("USER:D/A/v", 1));
    ASSERT_TRUE(registry.SetInt("USER:D/top/A/v", 1));
    EXPECT_TRUE(registry.Delete("USER:D/top/%%41", true));
    EXPECT_EQ(registry.GetInt("USER:D/top/A/v", 0), 1);
    EXPECT_TRUE(registry.Delete("USER:D/top", true));
    // A name that ends with a separator is that of a key.
    for (const char* key : {"USER:D/:", "USER:D/x:y:", "USER:D/x/\\"}) {
        ASSERT_TRUE(registry.SetInt(key, 1));
        EXPECT_TRUE(registry.Delete(key, false)) << key;
    }
    OStringArray names;
    EXPECT_EQ(registry.EnumKeys("USER:D", names), 1);
    EXPECT_EQ(Utf8(names), (Names{"A"}));
}

TEST_F(RegistryDeletion, ByPatternTakesMatchingKeysAndValues) {
    for (const char* name : {"Form 01", "Form 02", "Other", "Form 03"}) {
        registry.SetInt(OString("USER:D/") << name << ":: Name", 1);
    }
    registry.SetInt("USER:D/Form 01/a/b", 1);
    registry.SetInt("USER:D/Keep/v", 1);
    EXPECT_TRUE(registry.DeletePattern("USER:D/Form 0?*"));
    OStringArray names;
    registry.EnumValues("USER:D", names);
    EXPECT_EQ(Utf8(names), (Names{"Other: Name"}));
    registry.EnumKeys("USER:D", names);
    EXPECT_EQ(Utf8(names), (Names{"Keep"}));

    EXPECT_TRUE(registry.DeletePattern("USER:D/Keep"));
    EXPECT_EQ(registry.EnumKeys("USER:D", names), 0);
    EXPECT_FALSE(registry.DeletePattern("*"));
}

TEST_F(RegistryDeletion, ByPatternKeepsTheKeyOfADefaultValue) {
    // A value without a name, which a text file writes as "".
    OStringArray lines;
    lines.Add("[HKEY_CURRENT_USER\\Top\\Key]");
    lines.Add("\"\"=\"default\"");
    lines.Add("\"other\"=\"x\"");
    registry.Import(lines);
    EXPECT_TRUE(registry.DeletePattern("1:Top/Key/*"));
    OStringArray names;
    EXPECT_EQ(registry.EnumValues("1:Top/Key", names), 0);
}
