// labelhost and the C example tell a printer what to do.

#include "support/host_test.h"
#include "support/program.h"

#include <algorithm>
#include <cstdlib>

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

class LabelhostActions : public HostTest {
protected:
    LabelhostActions() { setenv("LABELHOST_ROOT", root().c_str(), 1); }
    ~LabelhostActions() override { unsetenv("LABELHOST_ROOT"); }

    static ProgramResult Run(const std::vector<std::string>& words) {
        return RunProgram("labelhost", words);
    }
    static ProgramResult Example(const std::vector<std::string>& words) {
        return RunProgram("printer_actions", words);
    }
    // The jobs, as "name:bytes".
    static std::vector<std::string> Jobs() {
        std::vector<std::string> jobs;
        for (const Json& job : Json::parse(Run({"jobs", "Dock3", "--json"}).output))
            jobs.push_back(job["name"].get<std::string>() + ":" + BytesOf(job["file"]));
        return jobs;
    }
};

TEST_F(LabelhostActions, DoesWhatItLists) {
    ASSERT_EQ(Run({"install", "Dock3", "--model", "Valdrick X4 300 dpi"}).status, 0);
    const Json actions = Json::parse(Run({"actions", "Dock3", "--json"}).output);
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

TEST_F(LabelhostActions, OffersQuestionsWhereThePrinterCanAnswer) {
    const struct {
        const char *port, *model, *offers;
    } cases[] = {
        {"FILE:", "Valdrick X4 300 dpi", ""},
        {"IP_127.0.0.1:9", "Valdrick X4 300 dpi", "37:3 38:7 "},
        {"IP_127.0.0.1:9", "Valdrick M2 Mobile", "37:3 38:7 46:7 "},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(Run({"install", "Dock3", "--model", c.model, "--port", c.port}).status, 0);
        std::string offers;
        for (const Json& action : Json::parse(Run({"actions", "Dock3", "--json"}).output))
            for (const int question : {37, 38, 46})
                if (action["action"] == question)
                    offers += std::to_string(question) + ":" + action["flags"].dump() + " ";
        EXPECT_EQ(offers, c.offers) << c.port;
        Run({"remove", "Dock3"});
    }
}

TEST_F(LabelhostActions, SaysWhyItDoesNot) {
    ASSERT_EQ(Run({"install", "Dock3", "--model", "Valdrick X4 300 dpi"}).status, 0);
    const struct {
        std::vector<std::string> words;
        int status;
        const char* errors;
    } cases[] = {
        {{"3"}, 1, "labelhost: action 3 cannot be done: this printer does not offer it\n"},
        {{"39"}, 1, "labelhost: action 39 cannot be done: it opens a dialog\n"},
        {{"32", "format Q"},
         1,
         "labelhost: action 32 cannot be done: it does not take 'format Q', or is not for this "
         "user\n"},
        {{"22"}, 1, "labelhost: action 22 cannot be done: it needs a file\n"},
        {{"22", "/no/file"},
         1,
         "labelhost: cannot read file '/no/file': No such file or directory\n"},
        {{"12x"}, 2, "labelhost: '12x' is no number of an action (labelhost actions lists them)\n"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words = {"action", "Dock3"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const ProgramResult result = Run(words);
        EXPECT_EQ(result.status, c.status);
        EXPECT_EQ(result.errors, c.errors);
    }
    EXPECT_EQ(Example({"Dock3", "3"}).status, 1);
    EXPECT_EQ(Example({"Nowhere"}).status, 1);
    EXPECT_EQ(Jobs(), std::vector<std::string>());
}

} // namespace
