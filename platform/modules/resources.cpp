// Resources of loaded modules.
#include "modules/module.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

namespace {

using win32host::FindModule;
using win32host::LoaderLock;
using win32host::Module;
using win32host::ResourceFile;
using win32host::ResourceName;

// The bytes of a resource; the loader lock is held. Nothing, with the last error set, if the handle
// is not one of this module's.
std::optional<std::span<const uint8_t>> BytesOf(HMODULE handle, HRSRC resource) {
    Module* module = FindModule(handle);
    if (!module) return std::nullopt;
    const ResourceFile* file = module->Resources();
    const uintptr_t start = file ? reinterpret_cast<uintptr_t>(file->bytes.data()) : 0;
    const uintptr_t entry = reinterpret_cast<uintptr_t>(resource);
    if (!file || entry < start || entry - start >= file->bytes.size()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return std::nullopt;
    }
    const auto bytes = file->image->Data(entry - start);
    if (!bytes) SetLastError(ERROR_INVALID_DATA);
    return bytes;
}

} // namespace

extern "C" {

HRSRC WINAPI FindResourceExW(HMODULE handle, LPCWSTR type, LPCWSTR name, WORD language) {
    std::lock_guard guard(LoaderLock());
    Module* module = FindModule(handle);
    if (!module) return nullptr;
    const ResourceFile* file = module->Resources();
    if (!file) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return nullptr;
    }
    DWORD error = NO_ERROR;
    const auto entry = file->image->FindEntry(ResourceName::From(type), ResourceName::From(name),
                                              language, GetUserDefaultLangID(), error);
    if (!entry) {
        SetLastError(error);
        return nullptr;
    }
    return reinterpret_cast<HRSRC>(reinterpret_cast<uintptr_t>(file->bytes.data() + *entry));
}

HRSRC WINAPI FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type) {
    return FindResourceExW(module, type, name, MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL));
}

HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource) {
    std::lock_guard guard(LoaderLock());
    const auto bytes = BytesOf(module, resource);
    return bytes ? const_cast<uint8_t*>(bytes->data()) : nullptr;
}

LPVOID WINAPI LockResource(HGLOBAL resource) {
    return resource;
}

DWORD WINAPI SizeofResource(HMODULE module, HRSRC resource) {
    std::lock_guard guard(LoaderLock());
    const auto bytes = BytesOf(module, resource);
    return bytes ? static_cast<DWORD>(bytes->size()) : 0;
}

BOOL WINAPI EnumResourceNamesW(HMODULE handle, LPCWSTR type, ENUMRESNAMEPROCW function,
                               LONG_PTR parameter) {
    std::vector<win32host::PeImage::Listed> names;
    {
        std::lock_guard guard(LoaderLock());
        Module* module = FindModule(handle);
        if (!module) return FALSE;
        if (const ResourceFile* file = module->Resources())
            names = file->image->Names(ResourceName::From(type));
    }
    if (names.empty()) SetLastError(ERROR_RESOURCE_TYPE_NOT_FOUND);
    for (auto& [number, text] : names) {
        LPWSTR name = text.empty() ? MAKEINTRESOURCEW(number) : text.data();
        if (!function(handle, type, name, parameter)) return FALSE;
    }
    return !names.empty();
}

int WINAPI LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size) {
    if (!buffer || size < 0) return 0;
    std::lock_guard guard(LoaderLock());
    // Texts are kept in blocks of 16; the first block is number 1.
    const HRSRC resource =
        FindResourceW(module, MAKEINTRESOURCEW((id & 0xFFFF) / 16 + 1), RT_STRING);
    const auto block = resource ? BytesOf(module, resource) : std::nullopt;
    const auto text = block ? win32host::StringOfBlock(*block, id % 16) : std::nullopt;
    if (size == 0) { // the caller gets the text in place, without a terminator
        const WCHAR* place = text && !text->empty() ? text->data() : nullptr;
        std::memcpy(buffer, &place, sizeof(place));
        return place ? static_cast<int>(text->size()) : 0;
    }
    buffer[0] = u'\0';
    if (!text) return 0;
    const size_t count = std::min(text->size(), static_cast<size_t>(size) - 1);
    *std::copy_n(text->begin(), count, buffer) = u'\0';
    return static_cast<int>(count);
}

} // extern "C"
