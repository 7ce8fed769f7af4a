// The list of loaded modules: loading, searching, freeing.
#include "modules/module.h"

#include "files/paths.h"
#include "host/text.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace win32host {
namespace {

constexpr off_t kLargestResourceFile = off_t{256} * 1024 * 1024;

// Newest first. Lives until the process ends.
std::vector<std::unique_ptr<Module>>& Modules() {
    static auto* modules = new std::vector<std::unique_ptr<Module>>;
    return *modules;
}

// The system's libraries whose functions this library provides.
constexpr std::u16string_view kSystemLibraries[] = {
    u"kernel32.dll", u"user32.dll", u"gdi32.dll",    u"advapi32.dll",
    u"winspool.drv", u"ktmw32.dll", u"comdlg32.dll", u"shell32.dll",
    u"ole32.dll",    u"hhctrl.ocx", u"riched20.dll", u"riched32.dll"};

std::string RealPath(const std::string& path) {
    std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    return real ? real.get() : path;
}

// The two kinds of file, by their first bytes.
enum class Kind { Unreadable, Elf, Pe, Other };

Kind KindOf(const std::string& path, struct stat& info) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return Kind::Unreadable;
    std::array<char, 4> start = {};
    const bool read_start =
        fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && read(fd, start.data(), start.size()) == 4;
    close(fd);
    if (!read_start) return Kind::Other;
    if (std::string_view(start.data(), 4) == "\x7F"
                                             "ELF")
        return Kind::Elf;
    return start[0] == 'M' && start[1] == 'Z' ? Kind::Pe : Kind::Other;
}

Module* Add(std::unique_ptr<Module> module) {
    auto& modules = Modules();
    modules.insert(modules.begin(), std::move(module));
    return modules.front().get();
}

void Remove(Module* module) {
    auto& modules = Modules();
    modules.erase(std::find_if(modules.begin(), modules.end(),
                               [&](const auto& entry) { return entry.get() == module; }));
}

// Runs the library's entry point. A library without one accepts everything.
bool Tell(Module& module, DWORD reason) {
    using EntryPoint = BOOL(WINAPI*)(HINSTANCE, DWORD, LPVOID);
    for (const char* name : {"DllInitialize", "DllMain"}) {
        const FARPROC found = GetProcAddress(module.Handle(), name);
        if (!found) continue;
        const auto entry = reinterpret_cast<EntryPoint>(reinterpret_cast<void (*)()>(found));
        return entry(module.Handle(), reason, nullptr) != FALSE;
    }
    return true;
}

Module* LoadElf(std::unique_ptr<Module> loading) {
    loading->library = dlopen(loading->path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!loading->library) {
        SetLastError(ERROR_BAD_EXE_FORMAT);
        return nullptr;
    }
    dlinfo(loading->library, RTLD_DI_LINKMAP, &loading->map);
    // It is in the list before its entry point runs, which asks for the module's file name.
    Module* module = Add(std::move(loading));
    if (Tell(*module, DLL_PROCESS_ATTACH)) return module;
    Remove(module);
    SetLastError(ERROR_DLL_INIT_FAILED);
    return nullptr;
}

// Loads the file, or counts one more use of it. The same file is the same module under any name,
// because the dynamic linker would hand out the same library twice.
Module* LoadFile(const std::string& host_path, bool as_data) {
    const std::string path = RealPath(host_path);
    struct stat info = {};
    const Kind kind = KindOf(path, info);
    if (kind == Kind::Unreadable) {
        FailWith(errno, path);
        return nullptr;
    }
    const bool data_only = as_data && kind == Kind::Elf;
    for (const auto& module : Modules()) {
        const bool same_file =
            module->inode != 0 && module->inode == info.st_ino && module->device == info.st_dev;
        if ((module->path == path || same_file) && module->data_only == data_only) {
            ++module->uses;
            return module.get();
        }
    }
    auto module = std::make_unique<Module>();
    module->path = path;
    module->file_name = WindowsPath(path);
    module->data_only = data_only;
    if (kind == Kind::Elf) {
        if (data_only) return Add(std::move(module));
        module->inode = info.st_ino;
        module->device = info.st_dev;
        return LoadElf(std::move(module));
    }
    if (kind == Kind::Pe) module->resources = ResourceFile::Load(path);
    if (!module->resources) {
        SetLastError(ERROR_BAD_EXE_FORMAT);
        return nullptr;
    }
    module->resources_sought = true;
    return Add(std::move(module));
}

std::u16string WithExtension(std::u16string_view name) {
    std::u16string full(name);
    const std::u16string_view file = FileNameOf(name);
    if (file.find(u'.') == std::u16string_view::npos)
        full += u".dll";
    else if (full.back() == u'.')
        full.pop_back(); // a dot at the end means no extension
    return full;
}

Module* SystemLibrary(std::u16string_view name) {
    for (std::u16string_view library : kSystemLibraries) {
        if (!SameName(library, name)) continue;
        const std::u16string file_name =
            std::u16string(kSystemFolder) + u"\\" + std::u16string(library);
        for (const auto& module : Modules())
            if (module->permanent && module->file_name == file_name) return module.get();
        Dl_info self = {};
        if (!dladdr(reinterpret_cast<const void*>(&SystemLibrary), &self)) return nullptr;
        auto module = std::make_unique<Module>();
        module->path = self.dli_fname;
        module->file_name = file_name;
        module->permanent = true;
        module->resources_sought = true;
        module->library = dlopen(self.dli_fname, RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD);
        if (!module->library) return nullptr;
        dlinfo(module->library, RTLD_DI_LINKMAP, &module->map);
        return Add(std::move(module));
    }
    return nullptr;
}

// Only the name of a file that is in the system's folder, else the complete path.
std::u16string_view WithoutSystemFolder(std::u16string_view path) {
    const std::u16string_view folder = kSystemFolder;
    const bool is_there = path.size() > folder.size() && path[folder.size()] == u'\\' &&
                          SameName(path.substr(0, folder.size()), folder);
    return is_there ? path.substr(folder.size() + 1) : path;
}

// Made at the first question.
Module* Program() {
    static Module* program = [] {
        auto module = std::make_unique<Module>();
        module->path = RealPath("/proc/self/exe");
        module->file_name = WindowsPath(module->path);
        module->permanent = true;
        module->library = dlopen(nullptr, RTLD_NOW);
        if (module->library) dlinfo(module->library, RTLD_DI_LINKMAP, &module->map);
        return Add(std::move(module));
    }();
    return program;
}

// The folder of this library, where libraries of the system's are that are files of their own.
std::u16string LibraryFolder() {
    Dl_info self = {};
    if (!dladdr(reinterpret_cast<const void*>(&LibraryFolder), &self)) return {};
    const std::u16string file = WindowsPath(RealPath(self.dli_fname));
    return file.substr(0, file.size() - FileNameOf(file).size());
}

// The places to look for a bare name: the program's folder, the system and Windows folders, that of
// the spooler's drivers, the working folder and this library's folder.
std::vector<std::u16string> SearchFolders() {
    std::u16string program = Program()->file_name;
    program.resize(program.size() - FileNameOf(program).size());
    WCHAR current[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, current);
    return {program, kSystemFolder,  kWindowsFolder, kDriversFolder + std::u16string(u"\\3"),
            current, LibraryFolder()};
}

Module* Load(std::u16string_view given, DWORD flags) {
    if (given.empty()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const std::u16string name = WithExtension(given);
    const bool as_data = (flags & LOAD_LIBRARY_AS_DATAFILE) != 0;
    if (Module* system = SystemLibrary(WithoutSystemFolder(name))) return system;
    if (name.find_first_of(u"\\/:") != std::u16string::npos) {
        const auto path = HostPath(name);
        Module* module = path ? LoadFile(*path, as_data) : nullptr;
        const DWORD error = GetLastError();
        // A missing file is called a missing module, unless it was to be loaded as data.
        if (!module && !as_data && (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND))
            SetLastError(ERROR_MOD_NOT_FOUND);
        return module;
    }
    for (const std::u16string& folder : SearchFolders()) {
        const auto path = HostPath(folder + u"\\" + name);
        if (path && access(path->c_str(), F_OK) == 0) return LoadFile(*path, as_data);
    }
    SetLastError(as_data ? ERROR_FILE_NOT_FOUND : ERROR_MOD_NOT_FOUND);
    return nullptr;
}

} // namespace

std::unique_ptr<ResourceFile> ResourceFile::Load(const std::string& path) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return nullptr;
    auto file = std::make_unique<ResourceFile>();
    struct stat info = {};
    if (fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && info.st_size <= kLargestResourceFile)
        file->bytes.resize(static_cast<size_t>(info.st_size));
    size_t done = 0;
    while (done < file->bytes.size()) {
        const ssize_t count = read(fd, file->bytes.data() + done, file->bytes.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        done += static_cast<size_t>(count);
    }
    close(fd);
    file->bytes.resize(done);
    file->image = PeImage::Parse(file->bytes);
    if (!file->image) return nullptr;
    return file;
}

Module::~Module() {
    if (library) dlclose(library);
}

const ResourceFile* Module::Resources() {
    if (!resources_sought) {
        resources_sought = true;
        resources = ResourceFile::Load(path + ".mui");
    }
    return resources.get();
}

std::recursive_mutex& LoaderLock() {
    static auto* lock = new std::recursive_mutex;
    return *lock;
}

Module* FindModule(HMODULE handle) {
    if (!handle) return Program();
    for (const auto& module : Modules())
        if (module->Handle() == handle) return module.get();
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

std::span<const uint8_t> ResourceBytesFrom(const void* address) {
    const std::less_equal<const uint8_t*> not_behind;
    const std::less<const uint8_t*> before;
    const uint8_t* byte = static_cast<const uint8_t*>(address);
    std::lock_guard guard(LoaderLock());
    for (const auto& module : Modules()) {
        if (!module->resources) continue;
        const auto& bytes = module->resources->bytes;
        if (not_behind(bytes.data(), byte) && before(byte, bytes.data() + bytes.size()))
            return std::span(bytes).subspan(static_cast<size_t>(byte - bytes.data()));
    }
    return {};
}

} // namespace win32host

using win32host::FindModule;
using win32host::LoaderLock;
using win32host::Module;

extern "C" {

HMODULE WINAPI LoadLibraryExW(LPCWSTR name, HANDLE, DWORD flags) {
    std::lock_guard guard(LoaderLock());
    Module* module = win32host::Load(name ? name : u"", flags);
    return module ? module->Handle() : nullptr;
}

HMODULE WINAPI LoadLibraryW(LPCWSTR name) {
    return LoadLibraryExW(name, nullptr, 0);
}

BOOL WINAPI FreeLibrary(HMODULE handle) {
    std::lock_guard guard(LoaderLock());
    if (!handle) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    Module* module = FindModule(handle);
    if (!module) return FALSE;
    if (module->permanent || --module->uses > 0) return TRUE;
    if (module->library) win32host::Tell(*module, DLL_PROCESS_DETACH);
    win32host::Remove(module);
    return TRUE;
}

FARPROC WINAPI GetProcAddress(HMODULE handle, LPCSTR name) {
    std::lock_guard guard(LoaderLock());
    Module* module = FindModule(handle);
    if (!module) return nullptr;
    const bool by_name = reinterpret_cast<uintptr_t>(name) > 0xFFFF;
    if (module->library && by_name) {
        void* found = dlsym(module->library, name);
        Dl_info info = {};
        void* map = nullptr;
        // The linker also searches the library's dependencies, whose functions are not its own.
        if (found && dladdr1(found, &info, &map, RTLD_DL_LINKMAP) && map == module->map)
            return reinterpret_cast<FARPROC>(found);
    }
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}

HMODULE WINAPI GetModuleHandleW(LPCWSTR name) {
    std::lock_guard guard(LoaderLock());
    if (!name) return FindModule(nullptr)->Handle();
    const std::u16string wanted = win32host::WithExtension(name);
    const bool is_path = wanted.find_first_of(u"\\/:") != std::u16string::npos;
    if (Module* system = is_path ? nullptr : win32host::SystemLibrary(wanted))
        return system->Handle();
    const std::u16string full = is_path ? win32host::FullPath(wanted) : wanted;
    for (const auto& module : win32host::Modules()) {
        const std::u16string_view has = module->file_name;
        if (win32host::SameName(is_path ? has : win32host::FileNameOf(has), full))
            return module->Handle();
    }
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

DWORD WINAPI GetModuleFileNameW(HMODULE handle, LPWSTR name, DWORD size) {
    std::lock_guard guard(LoaderLock());
    const Module* module = FindModule(handle);
    if (!module) return 0;
    const std::u16string& text = module->file_name;
    const size_t count = std::min<size_t>(text.size(), size > 0 ? size - 1 : 0);
    if (size > 0) *std::copy_n(text.begin(), count, name) = u'\0';
    const bool fits = text.size() < size;
    SetLastError(fits ? NO_ERROR : ERROR_INSUFFICIENT_BUFFER);
    return fits ? static_cast<DWORD>(count) : size;
}

DWORD WINAPI GetModuleFileNameA(HMODULE handle, LPSTR name, DWORD size) {
    std::lock_guard guard(LoaderLock());
    const Module* module = FindModule(handle);
    if (!module) return 0;
    const std::u16string& text = module->file_name;
    const int units = static_cast<int>(text.size());
    std::string bytes(text.size() * 4, '\0');
    bytes.resize(static_cast<size_t>(
        std::max(0, WideCharToMultiByte(CP_ACP, 0, text.data(), units, bytes.data(),
                                        static_cast<int>(bytes.size()), nullptr, nullptr))));
    const size_t count = std::min<size_t>(bytes.size(), size > 0 ? size - 1 : 0);
    if (size > 0) *std::copy_n(bytes.begin(), count, name) = '\0';
    const bool fits = bytes.size() < size;
    SetLastError(fits ? NO_ERROR : ERROR_INSUFFICIENT_BUFFER);
    return fits ? static_cast<DWORD>(count) : size;
}

} // extern "C"
