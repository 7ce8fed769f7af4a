#include "support/program.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/build_folders.h"

namespace fs = std::filesystem;

namespace {

// A word of a command line in the form that the C runtime reads.
std::wstring Quoted(const std::string& word) {
    std::wstring text(word.size() + 1, L'\0');
    text.resize(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, word.data(),
                                                        static_cast<int>(word.size()), text.data(),
                                                        static_cast<int>(text.size()))));
    std::wstring quoted = L"\"";
    size_t backslashes = 0;
    for (const wchar_t c : text) {
        if (c == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(backslashes, L'\\') + L"\"";
}

HANDLE NewFile(const fs::path& path) {
    SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The output of a program, with the line ends of C.
std::string TextOf(const fs::path& path) {
    std::ostringstream all;
    all << std::ifstream(path).rdbuf();
    return all.str();
}

} // namespace

std::vector<std::string> OnMachine(const std::string& /*root*/) {
    return {};
}

ProgramResult RunProgram(const std::string& name, const std::vector<std::string>& arguments) {
    const std::string program = Built("/bin/" + name) + ".exe";
    std::wstring line = Quoted(program);
    for (const std::string& argument : arguments) line += L" " + Quoted(argument);

    // A program of the system that came with an earlier one may still hold its files.
    static int number = 0;
    const fs::path scratch =
        fs::temp_directory_path() /
        ("program-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++number));
    fs::create_directories(scratch);
    const fs::path out = scratch / "out", err = scratch / "err";
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    start.hStdOutput = NewFile(out);
    start.hStdError = NewFile(err);
    PROCESS_INFORMATION process = {};
    ProgramResult result;
    if (CreateProcessW(fs::path(program).c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                       nullptr, &start, &process)) {
        DWORD status = 0;
        WaitForSingleObject(process.hProcess, INFINITE);
        if (GetExitCodeProcess(process.hProcess, &status)) result.status = static_cast<int>(status);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    CloseHandle(start.hStdOutput);
    CloseHandle(start.hStdError);
    result.output = TextOf(out);
    result.errors = TextOf(err);
    std::error_code ignored;
    fs::remove_all(scratch, ignored);
    return result;
}
