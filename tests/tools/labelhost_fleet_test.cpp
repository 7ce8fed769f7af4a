// labelhost with many printers: lists and patterns, work that is interrupted and repeated.

#include "support/labelhost_test.h"

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

#include "support/build_folders.h"

extern char** environ;

namespace {

class LabelhostFleet : public Labelhost {
protected:
    // Runs labelhost, interrupts it after its first output, and reads the rest. Its output does not
    // fit into the pipe, so it cannot have finished by then.
    ProgramResult Interrupt(const std::vector<std::string>& words) const {
        std::vector<std::string> all = {Built("/bin/labelhost"), "--root", root()};
        all.insert(all.end(), words.begin(), words.end());
        std::vector<char*> argv;
        for (std::string& word : all) argv.push_back(word.data());
        argv.push_back(nullptr);
        int ends[2];
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        EXPECT_LE(fcntl(ends[1], F_SETPIPE_SZ, 4096), 4096);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
        posix_spawn_file_actions_addopen(&actions, 2, File("errors").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        pid_t pid = 0;
        EXPECT_EQ(posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        ProgramResult result;
        char piece[512];
        for (ssize_t size; (size = read(ends[0], piece, sizeof piece)) > 0;) {
            if (result.output.empty()) kill(pid, SIGINT);
            result.output.append(piece, static_cast<size_t>(size));
        }
        close(ends[0]);
        int status = 0;
        waitpid(pid, &status, 0);
        if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
        result.errors = BytesOf(File("errors"));
        return result;
    }
};

size_t Lines(const std::string& text) {
    return static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

TEST_F(LabelhostFleet, InstallsAListWhereItWasStopped) {
    // The longest possible names, to fill the pipe.
    constexpr int Printers = 24;
    std::string list = "# the hall\n\n";
    for (int i = 0; i < Printers; ++i)
        list += std::string(180, 'n') + ' ' + std::to_string(i) + "\tvaldrick x4 300 dpi" +
                (i % 2 ? "\tIP_10.0.0." + std::to_string(i) : "") + "\r\n";
    Write("printers.txt", list);
    const std::vector<std::string> words = {"install", "--list", File("printers.txt")};

    const ProgramResult stopped = Interrupt(words);
    EXPECT_EQ(stopped.status, 1);
    EXPECT_NE(stopped.errors.find("interrupted: installed "), std::string::npos) << stopped.errors;
    const size_t installed = RunJson({"list"}).size();
    EXPECT_LT(installed, size_t{Printers});
    EXPECT_EQ(Lines(stopped.output), installed);

    const ProgramResult resumed = Run({"install", "--list", File("printers.txt"), "--progress"});
    EXPECT_EQ(resumed.status, 0) << resumed.errors;
    EXPECT_NE(resumed.errors.find("installed 24 of 24\n"), std::string::npos) << resumed.errors;
    const Json printers = RunJson({"list"});
    ASSERT_EQ(printers.size(), size_t{Printers});
    EXPECT_EQ(printers[1]["port"], "IP_10.0.0.1");
    EXPECT_EQ(printers[2]["port"], "FILE:");
    // One line before each printer and one after the last.
    EXPECT_EQ(Lines(Run({"list", "--progress"}).errors), 25u);
}

TEST_F(LabelhostFleet, ImportsSettingsIntoAllWhereItWasStopped) {
    constexpr int Printers = 16;
    std::string list;
    for (int i = 0; i < Printers; ++i)
        list += "Hall " + std::to_string(i) + std::string(190, 'n') + "\tValdrick M2 Mobile\n";
    Write("printers.txt", list + "Office\tValdrick X4 203 dpi\n");
    ASSERT_EQ(Run({"install", "--list", File("printers.txt")}).status, 0);
    ASSERT_EQ(Run({"document", "Office", "--save-preset", "Pallet"}).status, 0);
    ASSERT_EQ(Run({"settings", "export", "Office", File("office.kds")}).status, 0);
    const std::vector<std::string> words = {"settings", "import",     "hall ?*", File("office.kds"),
                                            "--done",   File("done"), "--only",  "presets"};

    EXPECT_EQ(Interrupt(words).status, 1);
    const std::string first = BytesOf(File("done"));
    EXPECT_GE(Lines(first), 1u);
    EXPECT_LT(Lines(first), size_t{Printers});

    const Json rest = RunJson(words);
    EXPECT_EQ(rest.size(), Printers - Lines(first));
    EXPECT_EQ(rest[0]["after"], Json::parse(R"({"presets": 4})"));
    EXPECT_EQ(BytesOf(File("done")).substr(0, first.size()), first);
    EXPECT_EQ(Lines(BytesOf(File("done"))), size_t{Printers});
    const Json all = RunJson({"settings", "import", "*", File("office.kds"), "--only", "presets"});
    ASSERT_EQ(all.size(), size_t{Printers} + 1);
    for (const Json& answer : all) EXPECT_EQ(answer["before"]["presets"], 4) << answer["printer"];
}

TEST_F(LabelhostFleet, SaysWhatWasWrongAndDoesTheRest) {
    Write("printers.txt", "One\tValdrick M2 Mobile\nTwo\tValdrick M2 Mobile\tLPT9:\n"
                          "One\tValdrick X4 203 dpi\nThree\tValdrick M2 Mobile\n");
    const ProgramResult result = Run({"install", "--list", File("printers.txt")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(Lines(result.errors), 3u) << result.errors;
    for (const char* part : {"LPT9:", "'One' exists, a Valdrick M2 Mobile", "2 of 4 printers"})
        EXPECT_NE(result.errors.find(part), std::string::npos) << result.errors;
    EXPECT_EQ(RunJson({"list"}).size(), 2u);

    Write("short.txt", "One\tValdrick M2 Mobile\nTwo\n");
    Write("model.txt", "Four\tValdrick M2 Mobile\nFive\tAbacus\n");
    ExpectRefused({
        {{"install", "--list", File("short.txt")}, 1, "line 2"},
        {{"install", "--list", File("model.txt")}, 1, "Abacus"},
        {{"install", "--list", File("none.txt")}, 1, "none.txt"},
        {{"install", "--list", root()}, 1, "cannot read"},
        {{"install", "Six", "--list", File("short.txt")}, 2, "usage"},
        {{"settings", "import", "F*", File("none.kds")}, 1, "none.kds"},
        {{"settings", "import", "F*", File("printers.txt")}, 1, "is no settings file"},
    });
    // A list with a mistake installs nothing.
    EXPECT_EQ(RunJson({"list"}).size(), 2u);

    // Printers are not told of a driver installed with another one if they have it already.
    const std::string presets = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\One\\"
                                "PrinterDriverData\\Presets";
    ASSERT_EQ(Run({"registry", "delete", presets}).status, 0);
    Install("Seven", "Valdrick M2 Mobile");
    EXPECT_EQ(Run({"registry", "dump", presets}).status, 1);
}
