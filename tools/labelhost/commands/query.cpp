#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "json.h"
#include "machine/open_settings.h"
#include "text.h"

#include <zplui.h>

#include <cstdio>
#include <map>

namespace {

// The usual questions: identification, status, memory, files, configuration.
constexpr const char* kUsualQuestions = "527";

struct Answers {
    std::map<std::string, std::string> properties;
    std::vector<std::string> files, configuration;
};

void WINAPI Take(void* context, int kind, const WCHAR* name, const WCHAR* value) {
    auto& answers = *static_cast<Answers*>(context);
    if (kind == DAL_ANSWER_PROPERTY) answers.properties[ToUtf8(name)] = ToUtf8(value);
    if (kind == DAL_ANSWER_FILE) answers.files.push_back(ToUtf8(value));
    if (kind == DAL_ANSWER_CONFIGURATION) answers.configuration.push_back(ToUtf8(value));
}

int MaskFrom(const std::string& text) {
    if (text.empty() || text.size() > 5 || text.find_first_not_of("0123456789") != text.npos)
        throw Fault("'" + text + "' is no mask: a number, the sum of the questions");
    return std::stoi(text);
}

void Print(const Answers& answers) {
    for (const auto& [name, value] : answers.properties)
        std::printf("%-28s %s\n", name.c_str(), value.c_str());
    for (const std::string& line : answers.configuration) {
        const size_t at = line.find('@');
        std::printf("%-28s %s\n", line.substr(0, at).c_str(),
                    at == line.npos ? "" : line.substr(at + 1).c_str());
    }
    for (const std::string& file : answers.files) std::printf("%s\n", file.c_str());
}

} // namespace

void QueryCommand(const Words& words) {
    const Arguments arguments(words, {"mask"}, {"json"});
    arguments.RequireCount(1, 1, "query PRINTER [--mask N] [--json]");
    const std::string& name = arguments[0];
    const int mask = MaskFrom(arguments.Get("mask", kUsualQuestions));

    const OpenSettings settings(name);
    const auto run = settings.Export<decltype(&DAL_Query_Run)>("DAL_Query_Run");
    Answers answers;
    const bool ok = run(settings.handle(), mask, Take, &answers) != FALSE;
    if (arguments.Has("json")) {
        PrintJson({{"ok", ok},
                   {"properties", Json(answers.properties)},
                   {"files", answers.files},
                   {"configuration", answers.configuration}});
        return;
    }
    if (!ok) throw Fault("printer '" + name + "' does not answer");
    Print(answers);
}
