#include "commands/story.h"

#include "fault.h"

#include <sys/wait.h>

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>

extern char** environ;

namespace {

constexpr size_t kLineLength = 96;

// A word quoted for a shell.
std::string Quoted(const std::string& word) {
    const bool plain = word.find_first_of(" \\'\"$*&;<>|()") == std::string::npos && !word.empty();
    return plain ? word : "'" + word + "'";
}

// Closed with the object.
class Pipe {
public:
    Pipe() {
        if (pipe2(ends_.data(), O_CLOEXEC) != 0) throw Fault("cannot make a pipe");
    }
    ~Pipe() {
        close(ends_[0]);
        CloseWriting();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int writing() const { return ends_[1]; }
    void CloseWriting() {
        if (ends_[1] >= 0) close(ends_[1]);
        ends_[1] = -1;
    }
    // Reads everything until the other side is done.
    std::string ReadAll() const {
        std::string all;
        std::array<char, 65536> piece;
        for (;;) {
            const ssize_t size = read(ends_[0], piece.data(), piece.size());
            if (size > 0)
                all.append(piece.data(), static_cast<size_t>(size));
            else if (size == 0 || errno != EINTR)
                return all;
        }
    }

private:
    std::array<int, 2> ends_ = {-1, -1};
};

// What labelhost prints with these words. Throws Fault if it fails; it has said why itself.
std::string OutputOf(std::vector<std::string> words) {
    words.insert(words.begin(), "labelhost");
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);

    Pipe pipe;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe.writing(), STDOUT_FILENO);
    pid_t child = 0;
    const int error =
        posix_spawn(&child, "/proc/self/exe", &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw Fault("cannot start labelhost");
    pipe.CloseWriting();
    std::string output = pipe.ReadAll();
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw Fault("the story ends here: 'labelhost " + words[1] + "' failed");
    return output;
}

void ShowLine(const std::string& line) {
    if (line.size() <= kLineLength)
        std::printf("    %s\n", line.c_str());
    else
        std::printf("    %s...\n", line.substr(0, kLineLength).c_str());
}

bool ContainsAny(const std::string& line, const std::vector<std::string>& parts) {
    return std::any_of(parts.begin(), parts.end(), [&](const std::string& part) {
        return line.find(part) != std::string::npos;
    });
}

} // namespace

void Story::Chapter(const std::string& title, const std::string& text) {
    std::printf("\n== %s\n%s\n", title.c_str(), text.c_str());
}

void Story::Run(const std::vector<std::string>& words, const std::vector<std::string>& parts) {
    std::string command = "labelhost";
    for (const std::string& word : words) command += ' ' + Quoted(word);
    std::printf("\n$ %s\n", command.c_str());
    std::fflush(stdout);
    std::istringstream output(OutputOf(words));
    int left_out = 0;
    for (std::string line; std::getline(output, line);) {
        if (parts.empty() || ContainsAny(line, parts))
            ShowLine(line);
        else
            ++left_out;
    }
    if (left_out > 0) std::printf("    (%d more lines)\n", left_out);
    std::fflush(stdout);
}

void Story::ShowFile(const std::string& path, int lines) {
    std::printf("\n$ head -n %d %s\n", lines, path.c_str());
    std::ifstream file(path, std::ios::binary);
    for (std::string line; lines > 0 && std::getline(file, line); --lines) {
        if (line.ends_with('\r')) line.pop_back();
        ShowLine(line);
    }
}

void Story::Say(const std::string& line) {
    std::printf("%s\n", line.c_str());
}
