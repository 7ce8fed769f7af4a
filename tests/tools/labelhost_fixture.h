// The fixture of tests that run labelhost as a person does.
#pragma once

#include "support/host_test.h"
#include "support/program.h"

#include <nlohmann/json.hpp>

using Json = nlohmann::json;

class Labelhost : public HostTest {
protected:
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

    void Install(const std::string& printer, const std::string& model,
                 const std::string& oem = "") const {
        std::vector<std::string> words = {"install", printer, "--model", model};
        if (!oem.empty()) words.insert(words.end(), {"--oem", oem});
        const ProgramResult result = Run(words);
        ASSERT_EQ(result.status, 0) << result.errors;
    }
};
