#include "library.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <span>
#include <stdexcept>

namespace {

constexpr uint32_t kTextsOfBlock = 16;

std::u16string Utf16(const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::u16string result(text.size(), u'\0');
    result.resize(static_cast<size_t>(
        MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), size)));
    return result;
}

std::u16string NameOf(LPCWSTR name) {
    const auto number = reinterpret_cast<uintptr_t>(name);
    return number > 0xFFFF ? std::u16string(name) : u'#' + Utf16(std::to_string(number));
}

std::vector<std::u16string> Names(HMODULE module, LPCWSTR type) {
    std::vector<std::u16string> names;
    const auto add = [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR to) -> BOOL {
        reinterpret_cast<std::vector<std::u16string>*>(to)->push_back(NameOf(name));
        return TRUE;
    };
    EnumResourceNamesW(module, type, add, reinterpret_cast<LONG_PTR>(&names));
    std::sort(names.begin(), names.end());
    return names;
}

std::span<const uint8_t> Bytes(HMODULE module, const std::u16string& name, LPCWSTR type) {
    const HRSRC resource = FindResourceW(module, name.c_str(), type);
    const void* bytes = resource ? LockResource(LoadResource(module, resource)) : nullptr;
    if (!bytes) return {};
    return {static_cast<const uint8_t*>(bytes), SizeofResource(module, resource)};
}

void ReadTexts(HMODULE module, const std::u16string& block, Library& library) {
    const auto first =
        (static_cast<uint32_t>(std::stoul(Utf8(block).substr(1))) - 1) * kTextsOfBlock;
    for (uint32_t number = first; number < first + kTextsOfBlock; ++number) {
        LPCWSTR place = nullptr;
        const int length = LoadStringW(module, number, reinterpret_cast<LPWSTR>(&place), 0);
        if (length > 0) library.texts[number].assign(place, static_cast<size_t>(length));
    }
}

} // namespace

std::string Utf8(const std::u16string& text) {
    const int size = static_cast<int>(text.size());
    std::string result(text.size() * 3, '\0');
    result.resize(static_cast<size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data(),
                            static_cast<int>(result.size()), nullptr, nullptr)));
    return result;
}

Library ReadLibrary(const std::string& path) {
    const auto free = [](HMODULE module) { FreeLibrary(module); };
    const std::unique_ptr<std::remove_pointer_t<HMODULE>, decltype(free)> module(
        LoadLibraryW(Utf16(path).c_str()), free);
    if (!module) throw std::runtime_error(path + ": cannot be loaded");

    Library library;
    library.file = path.substr(path.find_last_of('/') + 1);
    for (const std::u16string& name : Names(module.get(), RT_DIALOG)) {
        auto dialog = win32host::ReadDialogTemplate(Bytes(module.get(), name, RT_DIALOG));
        if (!dialog) throw std::runtime_error(path + ": " + Utf8(name) + ": no dialog template");
        library.dialogs.emplace(name, std::move(*dialog));
    }
    for (const std::u16string& name : Names(module.get(), RT_MENU)) {
        auto menu = win32host::ReadMenuTemplate(Bytes(module.get(), name, RT_MENU));
        if (!menu) throw std::runtime_error(path + ": " + Utf8(name) + ": no menu template");
        library.menus.emplace(name, std::move(*menu));
    }
    for (const std::u16string& block : Names(module.get(), RT_STRING))
        ReadTexts(module.get(), block, library);
    library.bitmaps = Names(module.get(), RT_BITMAP);
    return library;
}
