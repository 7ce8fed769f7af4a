// labelhost and the C example run printer actions.

#include "support/labelhost_test.h"

#include <algorithm>
#include <cstdlib>

namespace {

class LabelhostActions : public Labelhost {
protected:
    LabelhostActions() {
        setenv("LABELHOST_ROOT", root().c_str(), 1); // for the example
        Install("Dock3", "Valdrick X4 300 dpi");
    }
    ~LabelhostActions() override { unsetenv("LABELHOST_ROOT"); }

    static ProgramResult Example(const std::vector<std::string>& words) {
        return RunProgram("printer_actions", words);
    }
    // The jobs, as "name:bytes".
    std::vector<std::string> Jobs() const {
        std::vector<std::string> jobs;
        for (const Json& job : RunJson({"jobs", "Dock3"}))
            jobs.push_back(job["name"].get<std::string>() + ":" + BytesOf(job["file"]));
        return jobs;
    }
};

TEST_F(LabelhostActions, DoesWhatItLists) {
    const Json actions = RunJson({"actions", "Dock3"});
    const auto offers = [&](const Json& action) {
        return std::find(actions.begin(), actions.end(), action) != actions.end();
    };
    EXPECT_TRUE(offers({{"action", 12}, {"name", "Configuration Label"}, {"flags", 1}}));
    EXPECT_TRUE(offers({{"action", 10}, {"name", "Reset Printer"}, {"flags", 5}}));
    EXPECT_TRUE(offers({{"action", 22}, {"name", "Send File"}, {"flags", 7}}));
    // The driver has no name for it.
    EXPECT_TRUE(offers({{"action", 36}, {"name", ""}, {"flags", 7}}));
    EXPECT_NE(Run({"actions", "Dock3"})
                  .output.find("\n 36  (driver administration)...  (administrators)\n"),
              std::string::npos);

    WriteFile("one.prn", "^XA^FDone^XZ");
    const std::string file = OnDriveC("one.prn");
    EXPECT_EQ(Run({"action", "Dock3", "12"}).output, "Dock3: Configuration Label\n");
    EXPECT_EQ(Run({"action", "Dock3", "22", file}).status, 0);
    EXPECT_NE(Example({"Dock3"}).output.find(" 12 Configuration Label\n"), std::string::npos);
    EXPECT_EQ(Example({"Dock3", "11"}).status, 0);
    EXPECT_EQ(Example({"Dock3", "22", "C:\\one.prn"}).status, 0);
    EXPECT_EQ(Jobs(), (std::vector<std::string>{"Configuration Label:~WC", "one.prn:^XA^FDone^XZ",
                                                "Calibrate Media:~JC", "one.prn:^XA^FDone^XZ"}));
}

TEST_F(LabelhostActions, SaysWhyItDoesNot) {
    ExpectRefused({
        {{"action", "Dock3", "3"}, 1, "action 3 cannot be done: this printer does not offer it"},
        {{"action", "Dock3", "39"}, 1, "action 39 cannot be done: it opens a dialog"},
        {{"action", "Dock3", "32", "format Q"}, 1, "it does not take 'format Q'"},
        {{"action", "Dock3", "22"}, 1, "action 22 cannot be done: it needs a file"},
        {{"action", "Dock3", "22", "/no/file"}, 1, "cannot read file '/no/file'"},
        {{"action", "Dock3", "12x"}, 2, "'12x' is no number of an action"},
    });
    EXPECT_EQ(Example({"Dock3", "3"}).status, 1);
    EXPECT_EQ(Example({"Nowhere"}).status, 1);
    EXPECT_EQ(Jobs(), std::vector<std::string>());
}

} // namespace
