#include "model/data_set.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "support/data_file_text.h"

namespace {

// A file of its own with one table, and a set on the section M of it.
struct TableSet {
    explicit TableSet(const std::string& text)
        : file("")
        , set(&file) {
        const std::string bytes = Record("Model.d", text);
        file.Parse(bytes.data(), bytes.size());
        set.SetTable("Model:M");
    }

    OResourceFile file;
    ODataSet set;
};

std::string Get(ODataSet& set, const char* key) {
    return set.GetString(key, "(default)").nstring();
}

} // namespace

TEST(DataTable, SetsAndAppendsProperties) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Key=value", "Key", "value"},
        {" \t Key \t = \t some value \t ", "Key", "some value"},
        {"Key=1\nKey=2", "Key", "2"},
        {"Key=1\nKey=", "Key", ""},
        {"Key=a=b", "Key", "a=b"},
        {"=value", "", "value"},
        {"key=value", "Key", "(default)"},
        {"!Key=9", "Key", "(default)"},
        {"Key", "Key", "(default)"},
        {"Key+=A\nKey+=B", "Key", "A,B"},
        {"Key=\nKey += A ", "Key", "A"},
        {"Key=A\nKey+=", "Key", "A,"},
        {"Key=A\nKey+=B+=C", "Key", "A,B+=C"},
        {"Key=A+=B", "Key=A", "B"}, // an appending operator anywhere in the line takes precedence
        {"Key+=A\nKey=B", "Key", "B"},
        {"Key + = A", "Key +", "A"},
        {"Key=\xE4\xF6", "Key", "\xE4\xF6"}};
    for (const auto& [lines, key, value] : cases) {
        TableSet table(std::string("[M]\n") + lines);
        EXPECT_EQ(Get(table.set, key), value) << lines;
    }
}

TEST(DataSet, ReadsFlagsAndNumbersFromText) {
    enum Flag { False, True, Default };
    const std::tuple<const char*, Flag, int32_t> cases[] = {
        {"Yes", True, 0}, {"true", True, 0},   {"truly", Default, 0},
        {"ON", True, 0},  {"False", False, 0}, {"  -12abc", Default, -12},
        {"1", True, 1},   {"off", False, 0},   {"abc", Default, 0},
        {"no", False, 0}, {"2", Default, 2},   {"99999999999", Default, 2000000000},
        {"0", False, 0},  {"", Default, 77}};
    for (const auto& [text, flag, number] : cases) {
        TableSet table(std::string("[M]\nk=") + text);
        EXPECT_EQ(table.set.GetBool("k", true), flag != False) << text;
        EXPECT_EQ(table.set.GetBool("k", false), flag == True) << text;
        EXPECT_EQ(table.set.GetInt("k", 77), number) << text;
        EXPECT_EQ(table.set.PropertyExists("k"), *text != 0) << text;
    }
}
