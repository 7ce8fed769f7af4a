#include "platform/error_of.h"
#include "support/build_folders.h"
#include "support/host_test.h"

#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

const std::string kBuiltData = Built("/bin/test_data/");

template <class Function>
Function* Procedure(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

class ModulesLoad : public HostTest {
protected:
    // Puts a copy of a built file below drive C.
    void Stage(const std::string& built, const std::string& windows_path) const {
        const fs::path path = OnDriveC(windows_path);
        fs::create_directories(path.parent_path());
        fs::copy_file(kBuiltData + built, path);
    }
};

DWORD g_heard = 99;

TEST_F(ModulesLoad, CountUsesAndTellTheModuleOfTheFirstAndLast) {
    Stage("module.dll", "drivers\\module.dll");
    const HMODULE module = LoadLibraryW(u"c:/drivers/MODULE");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(LoadLibraryW(u"C:\\drivers\\module.dll"), module);
    EXPECT_EQ(Procedure<int()>(module, "TimesAttached")(), 1);
    EXPECT_EQ(std::u16string(Procedure<const WCHAR*()>(module, "NameAtAttach")()),
              u"C:\\drivers\\module.dll");
    Procedure<void(void (*)(DWORD))>(module, "SetListener")([](DWORD reason) { g_heard = reason; });
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(g_heard, 99u);
    EXPECT_EQ(GetModuleHandleW(u"Module.dll"), module);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(g_heard, DWORD{DLL_PROCESS_DETACH});
    EXPECT_EQ(GetModuleHandleW(u"module"), nullptr);
    EXPECT_EQ(ErrorOf(FreeLibrary(module)), ERROR_INVALID_HANDLE);
    EXPECT_EQ(GetProcAddress(module, "TimesAttached"), nullptr);
}

TEST_F(ModulesLoad, KeepTwoCopiesApart) {
    Stage("module.dll", "a\\module.dll");
    Stage("module.dll", "b\\module.dll");
    const HMODULE a = LoadLibraryW(u"C:\\a\\module.dll");
    const HMODULE b = LoadLibraryW(u"C:\\b\\module.dll");
    ASSERT_TRUE(a && b);
    EXPECT_NE(a, b);
    EXPECT_NE(GetProcAddress(a, "TimesAttached"), GetProcAddress(b, "TimesAttached"));
    EXPECT_EQ(GetModuleHandleW(u"C:\\A\\module.dll"), a);
    FreeLibrary(a);
    FreeLibrary(b);
}

TEST_F(ModulesLoad, FailWhenTheModuleRefuses) {
    Stage("module.dll", "module.dll");
    setenv("SAMPLE_MODULE_REFUSES", "1", 1);
    EXPECT_EQ(ErrorOf(LoadLibraryW(u"C:\\module.dll")), ERROR_DLL_INIT_FAILED);
    unsetenv("SAMPLE_MODULE_REFUSES");
    EXPECT_EQ(GetModuleHandleW(u"module.dll"), nullptr);
    const HMODULE module = LoadLibraryW(u"C:\\module.dll");
    EXPECT_NE(module, nullptr);
    FreeLibrary(module);
}

TEST_F(ModulesLoad, FindBareNamesInTheSystemsFoldersAndAmongTheDrivers) {
    for (const char16_t* folder :
         {u"C:\\WINDOWS\\system32", u"C:\\WINDOWS\\system32\\spool\\drivers\\w32x86\\3"}) {
        const std::u16string expected = std::u16string(folder) + u"\\inner.dll";
        const std::string relative(expected.begin() + 3, expected.end());
        Stage("sample.dll", relative);
        const HMODULE module = LoadLibraryW(u"INNER");
        ASSERT_NE(module, nullptr) << relative;
        WCHAR name[MAX_PATH];
        EXPECT_GT(GetModuleFileNameW(module, name, MAX_PATH), 0u);
        EXPECT_EQ(std::u16string(name), expected);
        FreeLibrary(module);
        fs::remove(OnDriveC(relative));
    }
}

TEST_F(ModulesLoad, TellWhyAFileIsNoModule) {
    WriteFile("text.dll", "no module at all");
    WriteFile("elf.dll", "\x7F"
                         "ELF but cut");
    WriteFile("pe.dll", "MZ but cut");
    const struct {
        const char16_t* name;
        DWORD flags;
        int error;
    } cases[] = {
        {u"C:\\missing.dll", 0, ERROR_MOD_NOT_FOUND},
        {u"C:\\missing.dll", LOAD_LIBRARY_AS_DATAFILE, ERROR_FILE_NOT_FOUND},
        {u"missing-everywhere", 0, ERROR_MOD_NOT_FOUND},
        {u"C:\\text.dll", 0, ERROR_BAD_EXE_FORMAT},
        {u"C:\\elf.dll", 0, ERROR_BAD_EXE_FORMAT},
        {u"C:\\pe.dll", LOAD_LIBRARY_AS_DATAFILE, ERROR_BAD_EXE_FORMAT},
        {u"", 0, ERROR_INVALID_PARAMETER},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ErrorOf(LoadLibraryExW(c.name, nullptr, c.flags)), c.error) << fs::path(c.name);
    }
}

TEST_F(ModulesLoad, NeverRunAFileThatIsLoadedAsData) {
    Stage("module.dll", "module.dll");
    setenv("SAMPLE_MODULE_REFUSES", "1", 1);
    const HMODULE data = LoadLibraryExW(u"C:\\module.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    unsetenv("SAMPLE_MODULE_REFUSES");
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(ErrorOf(GetProcAddress(data, "TimesAttached")), ERROR_PROC_NOT_FOUND);
    const HMODULE module = LoadLibraryW(u"C:\\module.dll");
    EXPECT_NE(GetProcAddress(module, "TimesAttached"), nullptr);
    FreeLibrary(module);
    FreeLibrary(data);
}

TEST_F(ModulesLoad, OfferTheirOwnFunctionsOnly) {
    Stage("module.dll", "module.dll");
    const HMODULE module = LoadLibraryW(u"C:\\module.dll");
    EXPECT_EQ(GetProcAddress(module, "GetLastError"), nullptr) << "a function that it only uses";
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PROC_NOT_FOUND});
    FreeLibrary(module);
    const HMODULE kernel = GetModuleHandleW(u"KERNEL32");
    ASSERT_NE(kernel, nullptr);
    EXPECT_EQ(Procedure<DWORD()>(kernel, "GetTickCount"), &GetTickCount);
    EXPECT_EQ(GetProcAddress(kernel, "CreateActCtxW"), nullptr);
    EXPECT_EQ(GetProcAddress(kernel, "malloc"), nullptr);
    EXPECT_EQ(LoadLibraryW(u"kernel32.dll"), kernel);
}

TEST_F(ModulesLoad, NameTheProgramAndCutWhatDoesNotFit) {
    WCHAR name[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, name, MAX_PATH);
    const std::string program = fs::read_symlink("/proc/self/exe");
    std::u16string expected = u"Z:" + std::u16string(program.begin(), program.end());
    std::replace(expected.begin(), expected.end(), u'/', u'\\');
    EXPECT_EQ(std::u16string(name), expected);
    EXPECT_EQ(length, expected.size());
    CHAR narrow[MAX_PATH];
    EXPECT_EQ(GetModuleFileNameA(nullptr, narrow, MAX_PATH), length);
    EXPECT_EQ(std::string(narrow), std::string(expected.begin(), expected.end()));
    EXPECT_EQ(GetModuleFileNameW(nullptr, name, length), length);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(std::u16string(name), expected.substr(0, length - 1));
    EXPECT_EQ(GetModuleFileNameW(nullptr, name, length + 1), length);
    EXPECT_EQ(GetLastError(), DWORD{NO_ERROR});
}

} // namespace
