#include "support/program.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>

#include "support/build_folders.h"

namespace {

// A word that the shell takes as it is.
std::string Quoted(const std::string& word) {
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::string TextOf(const std::string& file) {
    std::ostringstream all;
    all << std::ifstream(file, std::ios::binary).rdbuf();
    return all.str();
}

} // namespace

std::vector<std::string> OnMachine(const std::string& root) {
    return {"--root", root};
}

ProgramResult RunProgram(const std::string& name, const std::vector<std::string>& arguments) {
    std::string scratch = (std::filesystem::temp_directory_path() / "program-XXXXXX").string();
    if (!mkdtemp(scratch.data())) return {};
    const std::string out = scratch + "/out", err = scratch + "/err";
    std::string command = "exec " + Quoted(Built("/bin/" + name));
    for (const std::string& word : arguments) command += ' ' + Quoted(word);
    ProgramResult result;
    const int status = std::system((command + " > " + out + " 2> " + err).c_str());
    if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
    result.output = TextOf(out);
    result.errors = TextOf(err);
    std::filesystem::remove_all(scratch);
    return result;
}
