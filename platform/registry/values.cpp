// Reading, writing, deleting and listing values.
#include "registry/access.h"

#include <algorithm>
#include <cstring>

using namespace win32host::registry;

namespace {

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// True if the text ends in a terminator.
bool IsTerminated(const std::string& bytes) {
    WCHAR last = 0;
    if (bytes.size() < sizeof(last)) return false;
    std::memcpy(&last, bytes.data() + bytes.size() - sizeof(last), sizeof(last));
    return last == 0;
}

// Answers type, bytes and size in the way the caller wants them.
LSTATUS Deliver(const Value& value, LPDWORD type, LPBYTE data, LPDWORD size) {
    if (type) *type = value.type;
    if (!size) return ERROR_SUCCESS;
    const DWORD room = *size;
    *size = static_cast<DWORD>(value.bytes.size());
    if (!data) return ERROR_SUCCESS;
    if (value.bytes.size() > room) return ERROR_MORE_DATA;
    std::memcpy(data, value.bytes.data(), value.bytes.size());
    // A text that was stored without a terminator gets one if there is room for it.
    if (IsText(value.type) && !IsTerminated(value.bytes) &&
        room - value.bytes.size() >= sizeof(WCHAR))
        std::memset(data + value.bytes.size(), 0, sizeof(WCHAR));
    return ERROR_SUCCESS;
}

} // namespace

LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size) {
    return Guarded([&]() -> LSTATUS {
        if (reserved || (data && !size)) return ERROR_INVALID_PARAMETER;
        KeyInUse base;
        LSTATUS status = Use(key, KEY_QUERY_VALUE, base);
        if (status != ERROR_SUCCESS) return status;
        const std::u16string_view wanted = TextOf(name);
        if (wanted.size() > kLongestValueName) return ERROR_FILE_NOT_FOUND;
        const Value* value = nullptr;
        status = base.store->Read(base.id, wanted, value);
        if (status != ERROR_SUCCESS) return status;
        return value->found ? Deliver(*value, type, data, size) : ERROR_FILE_NOT_FOUND;
    });
}

LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                              DWORD size) {
    return Guarded([&]() -> LSTATUS {
        if (reserved != 0) return ERROR_INVALID_PARAMETER;
        if (!data && size != 0) return ERROR_NOACCESS;
        const std::u16string_view wanted = TextOf(name);
        if (wanted.size() > kLongestValueName) return ERROR_INVALID_PARAMETER;
        KeyInUse base;
        const LSTATUS status = Use(key, KEY_SET_VALUE, base);
        if (status != ERROR_SUCCESS) return status;
        return base.store->Write(base.id, wanted, type, data, size);
    });
}

LSTATUS WINAPI RegDeleteValueW(HKEY key, LPCWSTR name) {
    return Guarded([&]() -> LSTATUS {
        KeyInUse base;
        const LSTATUS status = Use(key, KEY_SET_VALUE, base);
        if (status != ERROR_SUCCESS) return status;
        const std::u16string_view wanted = TextOf(name);
        if (wanted.size() > kLongestValueName) return ERROR_FILE_NOT_FOUND;
        return base.store->DeleteValue(base.id, wanted);
    });
}

LSTATUS WINAPI RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size,
                             LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size) {
    return Guarded([&]() -> LSTATUS {
        if (!name || !name_size || reserved || (data && !size)) return ERROR_INVALID_PARAMETER;
        KeyInUse base;
        LSTATUS status = Use(key, KEY_QUERY_VALUE, base);
        if (status != ERROR_SUCCESS) return status;
        if (index == 0 && (type || size)) base.store->ReadAhead(base.id);
        for (;;) {
            const NameList* names = nullptr;
            status = base.store->ValueNames(base.id, names);
            if (status != ERROR_SUCCESS) return status;
            if (index >= names->size()) return ERROR_NO_MORE_ITEMS;
            const std::u16string found = (*names)[index];
            if (found.size() >= *name_size) return ERROR_MORE_DATA;
            if (type || size) {
                const Value* value = nullptr;
                status = base.store->Read(base.id, found, value);
                if (status != ERROR_SUCCESS) return status;
                if (!value->found) continue; // deleted since it was listed, so the list has changed
                status = Deliver(*value, type, data, size);
            }
            std::memcpy(name, found.c_str(), (found.size() + 1) * sizeof(WCHAR));
            *name_size = static_cast<DWORD>(found.size());
            return status;
        }
    });
}
