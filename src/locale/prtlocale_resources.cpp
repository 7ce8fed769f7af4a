// prtlocale: access to the language libraries.
#include <cstddef>
#include <iterator>

#include "locale/prtlocale.h"
#include "locale/text_numbers.h"

void prtlocale::init() {
    LoadUnitsLabel();
    second_label_ = GetString(TEXT_PER_SECOND);
}

void prtlocale::LoadUnitsLabel() {
    units_label_ = GetString(is_mm() ? TEXT_MILLIMETRES : is_cm() ? TEXT_CENTIMETRES : TEXT_INCHES);
}

OString prtlocale::GetString(int id) const {
    for (HMODULE library : {primary_library_, english_library_}) {
        WCHAR text[512];
        if (library && LoadStringW(library, static_cast<UINT>(id), text, std::size(text)) > 0)
            return OString(text);
    }
    return OString();
}

const void* prtlocale::FindResourceData(const WCHAR* name, const WCHAR* type,
                                        uint32_t* size) const {
    for (HMODULE library : {primary_library_, english_library_}) {
        HRSRC resource = library ? FindResourceW(library, name, type) : nullptr;
        if (!resource) continue;
        if (size) *size = SizeofResource(library, resource);
        return LockResource(LoadResource(library, resource));
    }
    return nullptr;
}

const void* prtlocale::GetDialog(const OString& name, uint32_t* size) const {
    return FindResourceData(name.tstring(), RT_DIALOG, size);
}

const void* prtlocale::GetMenu(const OString& name) const {
    return FindResourceData(name.tstring(), RT_MENU, nullptr);
}

HMENU prtlocale::LoadMenuW(const OString& name) const {
    const void* menu = GetMenu(name);
    return menu ? LoadMenuIndirectW(menu) : nullptr;
}

const void* prtlocale::LockBitmap(int id) const {
    return FindResourceData(MAKEINTRESOURCEW(id), RT_BITMAP, nullptr);
}

bool prtlocale::HasWesternSigns() const {
    const uint32_t code_page = GetCurrentCP();
    return code_page >= 1250 && code_page <= 1258;
}

OString prtlocale::GetCopyright() const {
    return HasWesternSigns() ? OString(TEXT("\u00A9")) : OString("(C)");
}

OString prtlocale::GetTrademark() const {
    return HasWesternSigns() ? OString(TEXT("\u2122")) : OString("(TM)");
}

OString prtlocale::GetRegistered() const {
    return HasWesternSigns() ? OString(TEXT("\u00AE")) : OString("(R)");
}
