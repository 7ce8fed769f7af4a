// Account names and identifiers.
#include "security/accounts.h"

#include <windows.h>

#include "host/guarded.h"
#include "host/text.h"

#include <algorithm>
#include <cstring>

namespace win32host {
namespace {

bool IsThisComputer(LPCWSTR system) {
    if (!system) return true;
    std::u16string_view name = system;
    if (name.starts_with(u"\\\\")) name.remove_prefix(2);
    return name.empty() || SameName(name, ComputerName());
}

// True if `text`, "name" or "DOMAIN\name", names the account.
bool Names(std::u16string_view text, const Account& account) {
    const size_t bar = text.find(u'\\');
    if (bar == std::u16string_view::npos) return SameName(text, account.name);
    return SameName(text.substr(0, bar), account.domain) &&
           SameName(text.substr(bar + 1), account.name);
}

// A text for the caller, and the room that the caller has for it.
class TextResult {
public:
    TextResult(const std::u16string& text, LPWSTR buffer, LPDWORD size)
        : text_(text)
        , buffer_(buffer)
        , size_(size) {}

    bool Fits() const { return buffer_ && *size_ > text_.size(); }
    void Tell() { *size_ = static_cast<DWORD>(text_.size() + 1); }
    void Copy() {
        std::memcpy(buffer_, text_.c_str(), (text_.size() + 1) * sizeof(WCHAR));
        *size_ = static_cast<DWORD>(text_.size());
    }

private:
    const std::u16string& text_;
    LPWSTR buffer_;
    LPDWORD size_;
};

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" {

BOOL WINAPI LookupAccountNameW(LPCWSTR system, LPCWSTR name, PSID sid, LPDWORD sid_size,
                               LPWSTR domain, LPDWORD domain_size, PSID_NAME_USE use) {
    return Guarded(FALSE, [&]() -> BOOL {
        if (!name || !sid_size || !domain_size || !use) return Fail(ERROR_INVALID_PARAMETER);
        if (!IsThisComputer(system)) return Fail(ERROR_RPC_SERVER_UNAVAILABLE);
        for (const Account& account : Accounts()) {
            if (!Names(name, account)) continue;
            TextResult domain_result(account.domain, domain, domain_size);
            const DWORD needed = static_cast<DWORD>(account.sid.size());
            const bool fits = sid && *sid_size >= needed && domain_result.Fits();
            *sid_size = needed;
            if (!fits) {
                domain_result.Tell();
                return Fail(ERROR_INSUFFICIENT_BUFFER);
            }
            std::memcpy(sid, account.sid.data(), needed);
            domain_result.Copy();
            *use = account.use;
            return TRUE;
        }
        return Fail(ERROR_NONE_MAPPED);
    });
}

BOOL WINAPI LookupAccountSidW(LPCWSTR system, PSID sid, LPWSTR name, LPDWORD name_size,
                              LPWSTR domain, LPDWORD domain_size, PSID_NAME_USE use) {
    return Guarded(FALSE, [&]() -> BOOL {
        if (!name_size || !domain_size || !use) return Fail(ERROR_INVALID_PARAMETER);
        if (!IsValidSid(sid)) return Fail(ERROR_INVALID_SID);
        if (!IsThisComputer(system)) return Fail(ERROR_RPC_SERVER_UNAVAILABLE);
        for (Account& account : Accounts()) {
            if (!EqualSid(sid, account.sid.data())) continue;
            TextResult name_result(account.name, name, name_size);
            TextResult domain_result(account.domain, domain, domain_size);
            if (!name_result.Fits() || !domain_result.Fits()) {
                name_result.Tell();
                domain_result.Tell();
                return Fail(ERROR_INSUFFICIENT_BUFFER);
            }
            name_result.Copy();
            domain_result.Copy();
            *use = account.use;
            return TRUE;
        }
        return Fail(ERROR_NONE_MAPPED);
    });
}

BOOL WINAPI GetUserNameW(LPWSTR buffer, LPDWORD size) {
    return Guarded(FALSE, [&]() -> BOOL {
        if (!size) return Fail(ERROR_INVALID_PARAMETER);
        const std::u16string name = Accounts().front().name;
        TextResult result(name, buffer, size);
        const bool fits = result.Fits();
        if (fits) result.Copy();
        result.Tell(); // the terminator is counted in both cases
        return fits || Fail(ERROR_INSUFFICIENT_BUFFER);
    });
}

BOOL WINAPI GetComputerNameW(LPWSTR buffer, LPDWORD size) {
    return Guarded(FALSE, [&]() -> BOOL {
        if (!size) return Fail(ERROR_INVALID_PARAMETER);
        const std::u16string name = ComputerName();
        TextResult result(name, buffer, size);
        if (result.Fits()) {
            result.Copy();
            return TRUE;
        }
        result.Tell();
        return Fail(ERROR_BUFFER_OVERFLOW);
    });
}

} // extern "C"
