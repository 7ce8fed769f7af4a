// Several threads and several processes on one registry. The processes are this program again: with
// a task in its environment, it does that and ends before any test runs.
#include "platform/registry_support.h"
#include "support/host_test.h"

#include <win32host/control.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr const char* kTask = "REGISTRY_TEST_TASK";
constexpr const char* kRoot = "REGISTRY_TEST_ROOT";
constexpr int kWrites = 300;

std::u16string Numbered(const std::string& prefix, int number) {
    std::u16string name;
    for (char c : prefix + std::to_string(number)) name += static_cast<char16_t>(c);
    return name;
}

bool SendLine(int pipe, const std::string& line) {
    const std::string text = line + "\n";
    return write(pipe, text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

// The next line, or empty at the end.
std::string TakeLine(int pipe) {
    std::string line;
    char c = 0;
    while (read(pipe, &c, 1) == 1 && c != '\n') line += c;
    return line;
}

// ---- Tasks of the other process -----------------------------------------------------------------

// Writes values of its own from its start, when it also creates the registry.
void WriteMany(const std::string& name) {
    for (int i = 0; i < kWrites; ++i) {
        Key key = Make(u"Shared");
        if (Write(key, Numbered(name, i), "x") != ERROR_SUCCESS) _exit(1);
    }
}

// Writes the text of each line it gets, and answers when that is done. "-" deletes the key.
void WriteOnDemand() {
    for (std::string line; !(line = TakeLine(STDIN_FILENO)).empty();) {
        const bool done = line == "-"
                              ? RegDeleteKeyW(HKEY_LOCAL_MACHINE, u"A\\B\\C") == ERROR_SUCCESS
                              : Write(Make(u"A\\B\\C"), u"v", line) == ERROR_SUCCESS;
        if (!done || !SendLine(STDOUT_FILENO, "done")) _exit(1);
    }
}

// Writes endlessly and reports each value that the registry has acknowledged.
void WriteForever() {
    Key key = Make(u"Shared");
    for (int i = 0; Write(key, Numbered("v", i), "x") == ERROR_SUCCESS; ++i)
        if (!SendLine(STDOUT_FILENO, std::to_string(i))) break;
}

[[maybe_unused]] const bool g_task_done = [] {
    const char* task = std::getenv(kTask);
    if (!task) return false;
    win32host::SetRoot(std::getenv(kRoot));
    const std::string name = task;
    if (name == "on demand")
        WriteOnDemand();
    else if (name == "forever")
        WriteForever();
    else
        WriteMany(name);
    _exit(0);
}();

// ---- The other process --------------------------------------------------------------------------

class Child {
public:
    Child(const std::string& root, const std::string& task) {
        int ends[2];
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) std::abort();
        id_ = fork();
        if (id_ == 0) {
            setenv(kTask, task.c_str(), 1);
            setenv(kRoot, root.c_str(), 1);
            dup2(ends[1], STDIN_FILENO);
            dup2(ends[1], STDOUT_FILENO);
            execl("/proc/self/exe", "registry task", nullptr);
            _exit(127);
        }
        close(ends[1]);
        pipe_ = ends[0];
    }
    ~Child() {
        shutdown(pipe_, SHUT_RDWR);
        if (id_ != 0) Wait();
        close(pipe_);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    int pipe() const { return pipe_; }
    void Kill() const { kill(id_, SIGKILL); }

    // Tells it that no more comes. True if it ended well.
    bool Wait() {
        shutdown(pipe_, SHUT_WR);
        int status = 0;
        waitpid(id_, &status, 0);
        id_ = 0;
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    pid_t id_ = 0;
    int pipe_ = -1;
};

using RegistryProcesses = HostTest;

TEST_F(RegistryProcesses, MayMakeTheRegistryAndWriteAtTheSameTime) {
    {
        Child a(root(), "a"), b(root(), "b"), c(root(), "c");
        WriteMany("own");
        EXPECT_TRUE(a.Wait());
        EXPECT_TRUE(b.Wait());
        EXPECT_TRUE(c.Wait());
    }
    Key key = Make(u"Shared");
    for (const char* name : {"a", "b", "c", "own"})
        for (int i = 0; i < kWrites; ++i) EXPECT_EQ(Read(key, Numbered(name, i)), "x");
    EXPECT_EQ(ValueNames(key).size(), 4u * kWrites);
}

TEST_F(RegistryProcesses, SeeEachOthersWritesAsSoonAsTheyReturn) {
    Child other(root(), "on demand");
    const auto order = [&](const std::string& line) {
        ASSERT_TRUE(SendLine(other.pipe(), line));
        ASSERT_EQ(TakeLine(other.pipe()), "done");
    };
    for (int i = 0; i < 100; ++i) {
        order("first");
        Key key = Make(u"A\\B\\C");
        for (const char* text : {"first", "second", "third"}) {
            order(text);
            ASSERT_EQ(Read(key, u"v"), text);
            ASSERT_EQ(Read(key, u"v"), text);
        }
        order("-");
        DWORD size = 0;
        ASSERT_EQ(RegQueryValueExW(key, u"v", nullptr, nullptr, nullptr, &size), ERROR_KEY_DELETED);
        ASSERT_EQ(TryOpen(u"A\\B\\C"), ERROR_FILE_NOT_FOUND);
        ASSERT_EQ(TryOpen(u"A\\B\\C"), ERROR_FILE_NOT_FOUND);
    }
    EXPECT_TRUE(other.Wait());
}

TEST_F(RegistryProcesses, ThatAreKilledLoseNothingThatWasAcknowledged) {
    for (int round = 0; round < 3; ++round) {
        Child other(root(), "forever");
        for (int i = 0; i < 200; ++i) TakeLine(other.pipe());
        other.Kill();
        other.Wait();
        int last = 0;
        for (std::string line; !(line = TakeLine(other.pipe())).empty();) last = std::stoi(line);
        Key key = Make(u"Shared");
        for (int i = 0; i <= std::max(last, 199); ++i)
            ASSERT_EQ(Read(key, Numbered("v", i)), "x") << i << " of " << last;
        ASSERT_EQ(Write(key, u"still", "writable"), ERROR_SUCCESS);
    }
}

// ---- Threads ------------------------------------------------------------------------------------

using RegistryThreads = HostTest;

TEST_F(RegistryThreads, OneOfAllThatMakeAKeyMadeIt) {
    std::atomic<int> created{0}, opened{0};
    const auto make = [&created, &opened] {
        HKEY key = nullptr;
        DWORD disposition = 0;
        if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, u"New\\Deep\\Key", 0, nullptr, 0, KEY_READ, nullptr,
                            &key, &disposition) == ERROR_SUCCESS)
            ++(disposition == REG_CREATED_NEW_KEY ? created : opened);
        RegCloseKey(key);
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) threads.emplace_back(make);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(created, 1);
    EXPECT_EQ(opened, 7);
}

} // namespace
