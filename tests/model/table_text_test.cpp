#include "model/table_text.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

TableText Parsed(const std::string& text) {
    TableText table;
    table.Parse(text.data(), static_cast<uint32_t>(text.size()));
    return table;
}

// The lines of a section, each followed by "|".
std::string Section(const TableText& table, const char* section) {
    std::string lines;
    table.ReadSection(section, [&lines](const char* line, uint32_t length) {
        lines.append(line, length) += '|';
    });
    return lines;
}

} // namespace

TEST(TableText, ReadsASectionWithTheDefaultSectionInTheOrderOfTheText) {
    const std::tuple<const char*, std::string, const char*, const char*> cases[] = {
        {"default in front", "[.default]\nd\n[A]\na\n[B]\nb\n", "A", "d|a|"},
        {"default behind", "[A]\na\n[.default]\nd\n[B]\nb\n", "A", "a|d|"},
        {"default between", "[A]\na\n[.default]\nd\n[A]\nb\n[.default]\ne\n", "A", "a|d|b|e|"},
        {"several times", "[A]\na\n[B]\nb\n[A]\nc\n[A]\nd\n", "A", "a|c|d|"},
        {"only the default", "[B]\nb\n[.default]\nd\n", "A", "d|"},
        {"the default by its name", "[B]\nb\n[.default]\nd\n[.default]\ne\n", ".default", "d|e|"},
        {"before any section", "x=1\n[A]\na\n", "A", "a|"},
        {"case of the name", "[a]\na\n[A]\nb\n", "A", "b|"},
        {"the empty name", "[]\na\n[A]\nb\n", "", "a|"},
        {"a name with brackets", "[A]\na\n[[A]]\nb\n", "[A]", "b|"},
        {"no such section", "[B]\nb\n", "A", ""},
        {"a name that continues another", "[AB]\nb\n[A]\na\n", "A", "a|"},
        {"comments and empty lines", "[A]\n!x=1\n\na\n \n", "A", "a| |"},
        {"a comment with blanks in front is none", "[A]\n !a\n", "A", " !a|"},
        {"an unfinished bracket closes", "[A]\na\n[A\nb\n", "A", "a|"},
        {"a blank behind the bracket closes", "[A]\na\n[A] \nb\n", "A", "a|"},
        {"a blank in front of the bracket is text", "[A]\na\n [B]\nb\n", "A", "a| [B]|b|"},
        {"carriage returns", "[A]\r\na\r\nb\rc\r\n", "A", "a|bc|"},
        {"no line feed at the end", "[A]\na\nb", "A", "a|b|"},
        {"a NUL ends the text", std::string("[A]\na\nb\0c\nd\n", 12), "A", "a|b|"}};
    for (const auto& [what, text, section, lines] : cases)
        EXPECT_EQ(Section(Parsed(text), section), lines) << what;
}
