// Libraries that run or are read as data, and the resources and menus in them.
#include "platform/error_of.h"
#include "support/build_folders.h"
#include "support/sample_library_test.h"

#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

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
        fs::copy_file(Built("/bin/test_data/") + built, path);
    }
};

DWORD g_heard = 99;

TEST_F(ModulesLoad, CountUsesAndTellTheModuleOfTheFirstAndLast) {
    Stage("module.dll", "a\\module.dll");
    Stage("module.dll", "b\\module.dll");
    const HMODULE module = LoadLibraryW(u"c:/a/MODULE");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(LoadLibraryW(u"C:\\a\\module.dll"), module);
    EXPECT_EQ(Procedure<int()>(module, "TimesAttached")(), 1);
    EXPECT_EQ(std::u16string(Procedure<const WCHAR*()>(module, "NameAtAttach")()),
              u"C:\\a\\module.dll");
    const HMODULE copy = LoadLibraryW(u"C:\\b\\module.dll");
    EXPECT_NE(GetProcAddress(copy, "TimesAttached"), GetProcAddress(module, "TimesAttached"));
    FreeLibrary(copy);
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

TEST_F(ModulesLoad, MayRefuseToRunButNotToBeRead) {
    Stage("module.dll", "module.dll");
    setenv("SAMPLE_MODULE_REFUSES", "1", 1);
    EXPECT_EQ(ErrorOf(LoadLibraryW(u"C:\\module.dll")), ERROR_DLL_INIT_FAILED);
    EXPECT_EQ(GetModuleHandleW(u"module.dll"), nullptr);
    const HMODULE data = LoadLibraryExW(u"C:\\module.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    unsetenv("SAMPLE_MODULE_REFUSES");
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(ErrorOf(GetProcAddress(data, "TimesAttached")), ERROR_PROC_NOT_FOUND);
    const HMODULE module = LoadLibraryW(u"C:\\module.dll");
    EXPECT_NE(GetProcAddress(module, "TimesAttached"), nullptr);
    EXPECT_EQ(GetProcAddress(module, "GetLastError"), nullptr) << "a function that it only uses";
    FreeLibrary(module);
    FreeLibrary(data);
    const HMODULE kernel = GetModuleHandleW(u"KERNEL32");
    ASSERT_NE(kernel, nullptr);
    EXPECT_EQ(Procedure<DWORD()>(kernel, "GetTickCount"), &GetTickCount);
    EXPECT_EQ(GetProcAddress(kernel, "malloc"), nullptr);
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
        EXPECT_EQ(GetModuleFileNameW(module, name, MAX_PATH), expected.size());
        EXPECT_EQ(std::u16string(name), expected);
        EXPECT_EQ(GetModuleFileNameW(module, name, 8), 8u);
        EXPECT_EQ(std::u16string(name), u"C:\\WIND");
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

TEST_F(ModulesResources, HoldTemplatesOfMenus) {
    const auto load = [&](WORD id) {
        const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), RT_MENU);
        return LoadMenuIndirectW(LockResource(LoadResource(module, resource)));
    };
    const auto text_at = [](HMENU menu, UINT item, UINT flags = MF_BYPOSITION) {
        WCHAR text[50];
        const int length = GetMenuStringW(menu, item, text, 50, flags);
        return std::u16string(text, static_cast<size_t>(length));
    };
    const HMENU standard = load(200), extended = load(201);
    EXPECT_EQ(text_at(standard, 0), u"&File");
    EXPECT_EQ(text_at(standard, 1002, MF_BYCOMMAND), u"Nothing");
    EXPECT_EQ(text_at(standard, 7), u"");
    EXPECT_EQ(GetMenuItemID(standard, 1), 1003u);
    const HMENU file = GetSubMenu(standard, 0);
    EXPECT_EQ(GetMenuItemCount(file), 3);
    EXPECT_EQ(GetMenuItemID(file, 1), 0u) << "a separator";
    EXPECT_EQ(GetMenuItemCount(extended), 2);
    EXPECT_EQ(GetMenuItemID(GetSubMenu(extended, 0), 0), 70001u);
    EXPECT_EQ(text_at(extended, 2002, MF_BYCOMMAND), u"Größer");
    EXPECT_TRUE(DestroyMenu(extended));
    EXPECT_TRUE(DestroyMenu(standard));
    EXPECT_EQ(GetMenuItemCount(file), -1) << "what is below goes with it";

    // A popup inside a popup until the bytes run out.
    std::vector<WORD> nested(0x8000, 0);
    for (size_t i = 2; i < nested.size(); i += 2) nested[i] = 0x0010;
    EXPECT_EQ(LoadMenuIndirectW(nested.data()), nullptr);
}

} // namespace
