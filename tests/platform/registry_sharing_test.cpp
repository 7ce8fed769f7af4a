// Several threads and several processes on one registry. The processes are this program again:
// started with a task in its environment it does that and ends before any test runs.
#include "platform/registry_support.h"
#include "support/host_test.h"

#include <win32host/control.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <spawn.h>
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

// The next line, empty at the end.
std::string TakeLine(int pipe) {
    std::string line;
    char c = 0;
    while (read(pipe, &c, 1) == 1 && c != '\n') line += c;
    return line;
}

// ---- Tasks of the other process -----------------------------------------------------------------

// Writes values of its own from the moment it starts, the making of the registry included.
void WriteMany(const std::string& name) {
    for (int i = 0; i < kWrites; ++i) {
        Key key = Make(HKEY_LOCAL_MACHINE, TEXT("Shared"));
        if (Write(key.get(), Numbered(name, i), "x") != ERROR_SUCCESS) _exit(1);
    }
}

// Writes the text of each line it gets and answers once that is done; "-" deletes the key.
void WriteOnDemand() {
    for (std::string line; !(line = TakeLine(STDIN_FILENO)).empty();) {
        const bool done = line == "-"
                              ? RegDeleteKeyW(HKEY_LOCAL_MACHINE, TEXT("A\\B\\C")) == ERROR_SUCCESS
                              : Write(Make(HKEY_LOCAL_MACHINE, TEXT("A\\B\\C")).get(), TEXT("v"),
                                      line) == ERROR_SUCCESS;
        if (!done || !SendLine(STDOUT_FILENO, "done")) _exit(1);
    }
}

// Writes without end and tells each value that the registry has acknowledged.
void WriteForever() {
    Key key = Make(HKEY_LOCAL_MACHINE, TEXT("Shared"));
    for (int i = 0; Write(key.get(), Numbered("v", i), "x") == ERROR_SUCCESS; ++i)
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
        int in[2], out[2];
        if (pipe(in) != 0 || pipe(out) != 0) std::abort();
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        for (int end : {in[0], in[1], out[0], out[1]})
            posix_spawn_file_actions_addclose(&actions, end);
        std::vector<std::string> texts = {std::string(kTask) + "=" + task,
                                          std::string(kRoot) + "=" + root};
        for (char** variable = environ; *variable; ++variable) texts.push_back(*variable);
        std::vector<char*> environment;
        for (auto& text : texts) environment.push_back(text.data());
        environment.push_back(nullptr);
        char program[] = "/proc/self/exe";
        char* arguments[] = {program, nullptr};
        if (posix_spawn(&id_, program, &actions, nullptr, arguments, environment.data()) != 0)
            std::abort();
        posix_spawn_file_actions_destroy(&actions);
        close(in[0]);
        close(out[1]);
        input_ = in[1];
        output_ = out[0];
    }
    ~Child() {
        close(output_);
        EndInput();
        Wait();
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    int input() const { return input_; }
    int output() const { return output_; }
    void Kill() const { kill(id_, SIGKILL); }

    void EndInput() {
        if (input_ >= 0) close(input_);
        input_ = -1;
    }

    // Whether it ended well.
    bool Wait() {
        if (id_ == 0) return false;
        int status = 0;
        waitpid(id_, &status, 0);
        id_ = 0;
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    pid_t id_ = 0;
    int input_ = -1;
    int output_ = -1;
};

class RegistryProcesses : public HostTest {};

TEST_F(RegistryProcesses, MayMakeTheRegistryAndWriteAtTheSameTime) {
    {
        Child a(root(), "a"), b(root(), "b"), c(root(), "c");
        WriteMany("own");
        EXPECT_TRUE(a.Wait());
        EXPECT_TRUE(b.Wait());
        EXPECT_TRUE(c.Wait());
    }
    Key key = Make(HKEY_LOCAL_MACHINE, TEXT("Shared"));
    for (const char* name : {"a", "b", "c", "own"})
        for (int i = 0; i < kWrites; ++i) EXPECT_EQ(Read(key.get(), Numbered(name, i)), "x");
    EXPECT_EQ(ValueNames(key.get()).size(), 4u * kWrites);
}

TEST_F(RegistryProcesses, SeeEachOthersWritesAsSoonAsTheyReturn) {
    Child other(root(), "on demand");
    const auto order = [&](const std::string& line) {
        ASSERT_TRUE(SendLine(other.input(), line));
        ASSERT_EQ(TakeLine(other.output()), "done");
    };
    order("first");
    for (int i = 0; i < 100; ++i) {
        Key key = Make(HKEY_LOCAL_MACHINE, TEXT("A\\B\\C"));
        for (int j = 0; j < 3; ++j) {
            order(std::to_string(10 * i + j));
            ASSERT_EQ(Read(key.get(), TEXT("v")), std::to_string(10 * i + j));
            ASSERT_EQ(Read(key.get(), TEXT("v")), std::to_string(10 * i + j));
        }
        order("-");
        DWORD size = 0;
        ASSERT_EQ(RegQueryValueExW(key.get(), TEXT("v"), nullptr, nullptr, nullptr, &size),
                  ERROR_KEY_DELETED);
        ASSERT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("A\\B\\C")), ERROR_FILE_NOT_FOUND);
        ASSERT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("A\\B\\C")), ERROR_FILE_NOT_FOUND);
        order("again");
        ASSERT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("A\\B\\C")), ERROR_SUCCESS);
    }
    other.EndInput();
    EXPECT_TRUE(other.Wait());
}

TEST_F(RegistryProcesses, ThatAreKilledLoseNothingThatWasAcknowledged) {
    for (int round = 0; round < 3; ++round) {
        Child other(root(), "forever");
        for (int i = 0; i < 200; ++i) TakeLine(other.output());
        other.Kill();
        other.Wait();
        int last = 0;
        for (std::string line; !(line = TakeLine(other.output())).empty();) last = std::stoi(line);
        Key key = Make(HKEY_LOCAL_MACHINE, TEXT("Shared"));
        for (int i = 0; i <= std::max(last, 199); ++i)
            ASSERT_EQ(Read(key.get(), Numbered("v", i)), "x") << i << " of " << last;
        ASSERT_EQ(Write(key.get(), TEXT("still"), "writable"), ERROR_SUCCESS);
    }
}

// ---- Threads ------------------------------------------------------------------------------------

class RegistryThreads : public HostTest {
protected:
    template <class Work>
    static void Run(int count, Work work) {
        std::vector<std::thread> threads;
        for (int i = 0; i < count; ++i) threads.emplace_back([=] { work(i); });
        for (auto& thread : threads) thread.join();
    }
};

TEST_F(RegistryThreads, OneOfAllThatMakeAKeyMadeIt) {
    std::atomic<int> created{0}, opened{0};
    Run(8, [&created, &opened](int) {
        HKEY key = nullptr;
        DWORD disposition = 0;
        if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, TEXT("New\\Deep\\Key"), 0, nullptr, 0, KEY_READ,
                            nullptr, &key, &disposition) == ERROR_SUCCESS)
            ++(disposition == REG_CREATED_NEW_KEY ? created : opened);
        RegCloseKey(key);
    });
    EXPECT_EQ(created, 1);
    EXPECT_EQ(opened, 7);
}

TEST_F(RegistryThreads, WriteAndReadWithoutDisturbingEachOther) {
    std::atomic<int> wrong{0};
    Run(6, [&wrong](int thread) {
        Key key = Make(HKEY_LOCAL_MACHINE, Numbered("Thread", thread % 3));
        for (int i = 0; i < 100; ++i) {
            const std::u16string name = Numbered(std::to_string(thread) + " ", i);
            if (Write(key.get(), name, std::to_string(i)) != ERROR_SUCCESS) ++wrong;
            if (Read(key.get(), name) != std::to_string(i)) ++wrong;
        }
    });
    EXPECT_EQ(wrong, 0);
    for (int i = 0; i < 3; ++i) {
        Key key = Make(HKEY_LOCAL_MACHINE, Numbered("Thread", i));
        EXPECT_EQ(ValueNames(key.get()).size(), 200u);
    }
}

TEST_F(RegistryThreads, ShareHandlesAndSeeEachOthersWrites) {
    Key key = Make(HKEY_LOCAL_MACHINE, TEXT("K"));
    Write(key.get(), TEXT("v"), "0");
    for (int i = 1; i <= 20; ++i) {
        EXPECT_EQ(Read(key.get(), TEXT("v")), std::to_string(i - 1));
        std::thread([&] { Write(key.get(), TEXT("v"), std::to_string(i)); }).join();
        EXPECT_EQ(Read(key.get(), TEXT("v")), std::to_string(i));
    }
}

TEST_F(RegistryThreads, OpenAndCloseHandlesThatStayApart) {
    std::atomic<int> wrong{0};
    for (int i = 0; i < 4; ++i)
        Write(Make(HKEY_LOCAL_MACHINE, Numbered("K", i)).get(), TEXT("v"), std::to_string(i));
    Run(4, [&wrong](int thread) {
        for (int i = 0; i < 2000; ++i) {
            Key key = Make(HKEY_LOCAL_MACHINE, Numbered("K", thread));
            const HKEY handle = key.get();
            if (Read(handle, TEXT("v")) != std::to_string(thread)) ++wrong;
        }
    });
    EXPECT_EQ(wrong, 0);
}

} // namespace
