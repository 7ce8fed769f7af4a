// The access token of the process.
#include "security/accounts.h"

#include <windows.h>

#include "host/guarded.h"
#include "host/handles.h"

#include <cstring>

namespace win32host {
namespace {

// The user and groups as they were when the token was opened.
class Token : public KernelObject {
public:
    Token(DWORD access, std::vector<Account> accounts)
        : access_(access)
        , accounts_(std::move(accounts)) {}

    bool MayQuery() const { return access_ & (TOKEN_QUERY | GENERIC_READ | GENERIC_ALL); }

    std::vector<const Account*> Find(TOKEN_INFORMATION_CLASS information) const {
        if (information == TokenUser) return {&accounts_.front()};
        std::vector<const Account*> groups;
        for (const Account& account : accounts_)
            if (account.in_token) groups.push_back(&account);
        return groups;
    }

private:
    DWORD access_;
    std::vector<Account> accounts_;
};

// The pseudo handle that means "this process" everywhere.
HANDLE ThisProcess() {
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1));
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" {

HANDLE WINAPI GetCurrentProcess(void) {
    return ThisProcess();
}

BOOL WINAPI OpenProcessToken(HANDLE process, DWORD access, PHANDLE token) {
    return Guarded(FALSE, [&]() -> BOOL {
        if (!token) return Fail(ERROR_INVALID_PARAMETER);
        if (process != ThisProcess()) return Fail(ERROR_INVALID_HANDLE);
        *token = NewHandle(std::make_shared<Token>(access, Accounts()));
        return *token != nullptr;
    });
}

BOOL WINAPI GetTokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS information, LPVOID buffer,
                                DWORD size, PDWORD needed) {
    return Guarded(FALSE, [&]() -> BOOL {
        const std::shared_ptr<Token> found = Find<Token>(token);
        if (!found) return FALSE;
        if (!needed || (information != TokenUser && information != TokenGroups))
            return Fail(ERROR_INVALID_PARAMETER);
        if (!found->MayQuery()) return Fail(ERROR_ACCESS_DENIED);

        // The record, its list, then the identifiers that the list points to.
        const std::vector<const Account*> accounts = found->Find(information);
        const size_t list_at = information == TokenUser ? 0 : offsetof(TOKEN_GROUPS, Groups);
        const size_t sids_at = list_at + accounts.size() * sizeof(SID_AND_ATTRIBUTES);
        size_t total = sids_at;
        for (const Account* account : accounts) total += account->sid.size();
        *needed = static_cast<DWORD>(total);
        if (!buffer || size < total) return Fail(ERROR_INSUFFICIENT_BUFFER);

        BYTE* bytes = static_cast<BYTE*>(buffer);
        const DWORD attributes =
            information == TokenUser
                ? 0
                : SE_GROUP_MANDATORY | SE_GROUP_ENABLED_BY_DEFAULT | SE_GROUP_ENABLED;
        if (information == TokenGroups)
            static_cast<TOKEN_GROUPS*>(buffer)->GroupCount = static_cast<DWORD>(accounts.size());
        auto* entry = reinterpret_cast<SID_AND_ATTRIBUTES*>(bytes + list_at);
        BYTE* sid = bytes + sids_at;
        for (const Account* account : accounts) {
            *entry++ = {sid, attributes};
            std::memcpy(sid, account->sid.data(), account->sid.size());
            sid += account->sid.size();
        }
        return TRUE;
    });
}

} // extern "C"
