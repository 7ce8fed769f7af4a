#include "support/program.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>

#include "support/build_folders.h"

extern char** environ;

namespace {

std::string TakeFile(const std::string& name) {
    std::ostringstream all;
    all << std::ifstream(name, std::ios::binary).rdbuf();
    std::filesystem::remove(name);
    return all.str();
}

} // namespace

std::vector<std::string> OnMachine(const std::string& root) {
    return {"--root", root};
}

ProgramResult RunProgram(const std::string& name, const std::vector<std::string>& arguments) {
    const std::string program = Built("/bin/" + name);
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);

    std::string scratch = (std::filesystem::temp_directory_path() / "program-XXXXXX").string();
    if (!mkdtemp(scratch.data())) return {};
    const std::string out = scratch + "/out", err = scratch + "/err";
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT, 0600);
    pid_t pid = 0;
    ProgramResult result;
    int status = 0;
    if (posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), environ) == 0 &&
        waitpid(pid, &status, 0) == pid && WIFEXITED(status))
        result.status = WEXITSTATUS(status);
    posix_spawn_file_actions_destroy(&actions);
    result.output = TakeFile(out);
    result.errors = TakeFile(err);
    std::filesystem::remove_all(scratch);
    return result;
}
