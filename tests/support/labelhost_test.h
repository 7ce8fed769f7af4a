// The fixture of tests that run labelhost as a person does.
#pragma once

#include "support/host_test.h"
#include "support/program.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>

using Json = nlohmann::json;

// A command line that labelhost must refuse.
struct BadCommand {
    std::vector<std::string> words;
    int status;
    std::string names; // what the message must contain
};

class Labelhost : public HostTest {
protected:
    // A file of this test, outside the drives of its machine.
    std::string File(const std::string& name) const { return root() + "/" + name; }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(File(name), std::ios::binary) << bytes;
    }

    ProgramResult Run(const std::vector<std::string>& words) const {
        std::vector<std::string> all = OnMachine(root());
        all.insert(all.end(), words.begin(), words.end());
        return RunProgram("labelhost", all);
    }

    Json RunJson(std::vector<std::string> words) const {
        words.push_back("--json");
        const ProgramResult result = Run(words);
        EXPECT_EQ(result.status, 0) << result.errors;
        return Json::parse(result.output, nullptr, false);
    }

    // Runs each of the commands. They must say in one line what is wrong, and print nothing else.
    void ExpectRefused(const std::vector<BadCommand>& commands) const {
        for (const BadCommand& command : commands) {
            const ProgramResult result = Run(command.words);
            EXPECT_EQ(result.status, command.status) << command.names << ": " << result.errors;
            EXPECT_NE(result.errors.find(command.names), std::string::npos)
                << command.names << ": " << result.errors;
            EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1)
                << result.errors;
            EXPECT_EQ(result.output, "") << command.names;
        }
    }

    void Install(const std::string& printer, const std::string& model,
                 const std::vector<std::string>& options = {}) const {
        std::vector<std::string> words = {"install", printer, "--model", model};
        words.insert(words.end(), options.begin(), options.end());
        const ProgramResult result = Run(words);
        ASSERT_EQ(result.status, 0) << result.errors;
    }
};
