// Plays the stories in the folder stories/, each a test of its name.
#include "story.h"
#include "support/build_folders.h"
#include "support/labelhost_test.h"

#include "emulator/server.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <thread>

namespace {

class Story : public Labelhost, public testing::WithParamInterface<std::string> {
protected:
    // On Windows the machine is not the test's own: what was installed goes.
    ~Story() override {
        for (const std::string& printer : printers_) Run({"remove", printer});
        for (const std::string& model : models_)
            Run({"registry", "delete",
                 "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Print\\Environments\\Windows x64\\"
                 "Drivers\\Version-3\\" +
                     model});
        for (const char* key : {"HKLM\\SOFTWARE\\Valdrick", "HKCU\\SOFTWARE\\Valdrick"})
            Run({"registry", "delete", key});
        for (const std::string& name : variables_) SetVariable(name, "");
        if (!emulator_) return;
        emulator_->Stop();
        serving_.join();
    }

    void Play(const std::string& file) {
        file_ = file;
        for (const StoryStep& step : ReadStory(file)) {
            const std::string& verb = step.words[0];
            if (verb == "native") {
#ifdef _WIN32
                GTEST_SKIP() << "not for Windows";
#endif
            } else if (verb == "file") {
                Write(step.words.at(1), Named(step.text));
            } else if (verb == "saved") {
                CompareFiles(step);
            } else if (verb == "environment") {
                variables_.insert(step.words.at(1));
                SetVariable(step.words[1], step.words.size() > 2 ? Named(step.words[2]) : "");
            } else if (verb == "lose") {
                Lose(step.words.at(1));
            } else if (verb == "emulator") {
                StartEmulator(step);
            } else {
                RunStep(step);
            }
        }
    }

private:
    static void SetVariable(const std::string& name, const std::string& value) {
#ifdef _WIN32
        _putenv_s(name.c_str(), value.c_str());
#else
        if (value.empty())
            unsetenv(name.c_str());
        else
            setenv(name.c_str(), value.c_str(), 1);
#endif
    }

    // The folder as the machine's programs see it, for words of a script.
    std::string OnMachineDrive() const {
#ifdef _WIN32
        return root();
#else
        std::string path = "Z:";
        for (const char c : root()) path += c == '/' ? "\\\\" : std::string(1, c);
        return path;
#endif
    }

    std::string Named(std::string text) const {
        const std::pair<std::string, std::string> names[] = {
            {"$DIR", root()},
            {"$FILES", OnMachineDrive()},
            {"$EMULATOR", emulator_ ? "IP_127.0.0.1:" + std::to_string(emulator_->Port()) : ""}};
        for (const auto& [name, value] : names)
            for (size_t at = 0; (at = text.find(name, at)) != text.npos; at += value.size())
                text.replace(at, name.size(), value);
        return text;
    }

    void Lose(const std::string& name) const {
        namespace fs = std::filesystem;
        std::vector<fs::path> found;
        for (const auto& entry :
             fs::recursive_directory_iterator(OnDriveC("WINDOWS\\system32\\spool\\drivers")))
            if (entry.path().filename() == name) found.push_back(entry.path());
        for (const fs::path& file : found) fs::remove(file);
        EXPECT_FALSE(found.empty()) << name;
    }

    void CompareFiles(const StoryStep& step) const {
        const std::string golden = Sources("/tests/product/golden/" + step.words.at(2));
        if (BytesOf(File(step.words.at(1))) != BytesOf(golden))
            Fail(step.line, File(step.words[1]) + " differs from " + golden);
    }

    void StartEmulator(const StoryStep& step) {
        const std::string answers = File("answers");
        std::filesystem::create_directories(answers);
        for (size_t i = 1; i < step.words.size(); ++i)
            std::filesystem::copy_file(File(step.words[i]), answers + "/" + step.words[i]);
        emulator_ = std::make_unique<EmulatorServer>(uint16_t{0}, AnswerRules(answers),
                                                     [](const std::string&) {});
        serving_ = std::thread([this] { emulator_->Run(); });
    }

    static std::string Told(const ProgramResult& result) {
        return "status " + std::to_string(result.status) + ": " + result.errors;
    }

    void RunStep(const StoryStep& step) {
        std::vector<std::string> words;
        for (const std::string& word : step.words) words.push_back(Named(word));
        size_t first = words[0] == "--root" ? 2 : 0;
        if (words.at(first) == "--standard-user") ++first;
        const std::string& verb = words.at(first);
        const bool is_sheet = verb == "sheet";
        if (verb == "install") {
            printers_.insert(words.at(first + 1));
            for (size_t i = first + 2; i + 1 < words.size(); ++i)
                if (words[i] == "--model") models_.insert(words[i + 1]);
        } else if (verb != "action" && verb != "connect" && verb != "upgrade") {
            words.push_back("--json");
        }
        // labelhost drives a sheet itself to save its report.
        const bool saves_report = std::ranges::count(words, "--version-report") > 0;
        if (is_sheet && !saves_report && !step.text.empty()) {
            Write("script.txt", Named(step.text));
            words.insert(words.end(), {"--run", File("script.txt")});
        }
        const ProgramResult result = Run(words);
        const Json answer = Json::parse(result.output, nullptr, false);
        bool may_fail = false;
        for (const Expectation& expected : step.expectations) {
            if (expected.status) {
                may_fail = true;
                if (result.status != expected.status ||
                    result.errors.find(expected.value.get<std::string>()) == std::string::npos)
                    Fail(expected.line, Told(result));
            } else if (!answer.is_discarded()) {
                Compare(expected, answer);
            }
        }
        if (result.status != 0 && !may_fail) Fail(step.line, Told(result));
    }

    // A failure at a line of the story.
    void Fail(int line, const std::string& what) const {
        ADD_FAILURE_AT(file_.c_str(), line) << what;
    }

    void CompareWithKept(const Expectation& expected, const Json& answer) {
        const Json& kept =
            kept_.try_emplace(expected.value.get<std::string>(), answer).first->second;
        if (kept != answer)
            Fail(expected.line, "this has changed: " + Json::diff(kept, answer).dump());
    }

    void Compare(const Expectation& expected, const Json& answer) {
        if (expected.state < 0 && expected.control == "same")
            return CompareWithKept(expected, answer);
        if (expected.state < 0) {
            for (const auto& [pointer, value] : expected.value.items()) {
                const Json::json_pointer at(pointer);
                const Json found = answer.contains(at) ? answer[at] : Json();
                if (!Matches(value, found)) Fail(expected.line, pointer + " is " + found.dump());
            }
            return;
        }
        const auto index = static_cast<size_t>(expected.state);
        if (index >= answer["states"].size()) {
            Fail(expected.line, "the script did not come to this state");
            return;
        }
        const Json* shown = &answer["states"][index];
        if (expected.control == "same") return CompareWithKept(expected, *shown);
        if (!expected.control.empty()) shown = ControlOf(*shown, expected.control);
        if (!shown)
            Fail(expected.line, "there is no control " + expected.control);
        else
            for (const auto& [name, value] : expected.value.items()) {
                const Json found = shown->contains(name) ? (*shown)[name] : Json();
                if (!Matches(value, found)) Fail(expected.line, name + " is " + found.dump());
            }
    }

    static const Json* ControlOf(const Json& state, const std::string& name) {
        if (!state.contains("controls")) return nullptr;
        const Json& controls = state["controls"];
        if (name[0] == '#') {
            const size_t place = std::stoul(name.substr(1));
            return place < controls.size() ? &controls[place] : nullptr;
        }
        for (const Json& control : controls)
            if (std::to_string(control["id"].get<int>()) == name) return &control;
        return nullptr;
    }

    std::string file_;
    std::set<std::string> printers_, models_, variables_;
    std::map<std::string, Json> kept_; // answers that later ones must be like
    std::unique_ptr<EmulatorServer> emulator_;
    std::thread serving_;
};

std::vector<std::string> AllStories() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Sources("/tests/product/stories")))
        if (entry.path().extension() == ".story") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

TEST_P(Story, Holds) {
    Play(Sources("/tests/product/stories/" + GetParam() + ".story"));
}

INSTANTIATE_TEST_SUITE_P(All, Story, testing::ValuesIn(AllStories()),
                         [](const auto& story) { return story.param; });
