// labelhost demo: it runs to its end, and the part that the README shows is true.

#include "support/labelhost_test.h"

#include <sstream>

#include "support/build_folders.h"

namespace {

using LabelhostDemo = Labelhost;

TEST_F(LabelhostDemo, TellsTheWholeStory) {
    const std::string folder = root() + "/story";
    const ProgramResult told = RunProgram("labelhost", {"demo", folder});
    ASSERT_EQ(told.status, 0) << told.errors << told.output;
    EXPECT_EQ(told.errors, "");
    size_t at = 0;
    for (const char* milestone : {
             "Dock2: Valdrick M2 Mobile on FILE:",
             "dock1.kds: 29 stocks, 4 presets",
             "Dock2 has: 29 stocks, 4 presets",
             "00000000  7e 4a 43                                         |~JC|",
             "the printer says: printed 1 label",
             "connected to \\\\WAREHOUSE\\Dock1",
             "labelhost --root warehouse document Dock1 --preset Returns",
             "== What to try next",
         }) {
        const size_t found = told.output.find(milestone, at);
        ASSERT_NE(found, std::string::npos) << milestone << "\nis not told, or too early\n"
                                            << told.output;
        at = found + 1;
    }
    // The machines remain for further use.
    EXPECT_EQ(BytesOf(folder + "/label.dm").size(), 1508u);
    const ProgramResult list = RunProgram("labelhost", {"--root", folder + "/warehouse", "list"});
    EXPECT_NE(list.output.find("Dock3"), std::string::npos);
    EXPECT_EQ(RunProgram("labelhost", {"demo", folder}).status, 1)
        << "nothing is told over what is there";

    std::istringstream readme(BytesOf(Sources("/README.md")));
    bool inside = false;
    int lines = 0;
    for (std::string line; std::getline(readme, line);) {
        if (line.starts_with("```")) {
            inside = line == "```transcript";
        } else if (inside && line != "...") {
            EXPECT_NE(told.output.find('\n' + line + '\n'), std::string::npos) << line;
            ++lines;
        }
    }
    EXPECT_GT(lines, 20);
}

} // namespace
