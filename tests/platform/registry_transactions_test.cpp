// Transactions over the registry.
#include <win32host/fault_control.h>

#include <ktmw32.h>

#include <optional>
#include <thread>

#include "support/host_test.h"

namespace {

constexpr LPCWSTR kPath = TEXT("SOFTWARE\\Trans");

class Transactions : public HostTest {
protected:
    static HANDLE Begin() { return CreateTransaction(nullptr, nullptr, 0, 0, 0, 0, nullptr); }

    static HKEY Create(HANDLE transaction, LPCWSTR path = kPath) {
        HKEY key = nullptr;
        RegCreateKeyTransactedW(HKEY_LOCAL_MACHINE, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                &key, nullptr, transaction, nullptr);
        return key;
    }
    static LSTATUS Set(HKEY key, LPCWSTR name, DWORD number) {
        return RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<BYTE*>(&number),
                              sizeof number);
    }
    // The value as this thread and as others see it.
    static std::optional<DWORD> Read(LPCWSTR name, LPCWSTR path = kPath) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
            return std::nullopt;
        DWORD number = 0, size = sizeof number;
        const LSTATUS status =
            RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
        RegCloseKey(key);
        return status == ERROR_SUCCESS ? std::optional(number) : std::nullopt;
    }
    static std::optional<DWORD> ReadElsewhere(LPCWSTR name, LPCWSTR path = kPath) {
        std::optional<DWORD> number;
        std::thread([&] { number = Read(name, path); }).join();
        return number;
    }
};

} // namespace

TEST_F(Transactions, AreSeenByOthersAtOnceOrNever) {
    for (const bool commit : {false, true}) {
        const HANDLE transaction = Begin();
        ASSERT_NE(transaction, INVALID_HANDLE_VALUE);
        const HKEY key = Create(transaction);
        EXPECT_EQ(Set(key, TEXT("a"), 1), ERROR_SUCCESS);
        EXPECT_EQ(Set(key, TEXT("b"), 2), ERROR_SUCCESS);
        EXPECT_EQ(Read(TEXT("a")), 1u);
        EXPECT_EQ(ReadElsewhere(TEXT("a")), std::nullopt);
        RegCloseKey(key);
        EXPECT_TRUE(commit ? CommitTransaction(transaction) : RollbackTransaction(transaction));
        for (const auto read : {Read, ReadElsewhere}) {
            EXPECT_EQ(read(TEXT("a"), kPath), commit ? std::optional<DWORD>(1) : std::nullopt);
            EXPECT_EQ(read(TEXT("b"), kPath), commit ? std::optional<DWORD>(2) : std::nullopt);
        }
        EXPECT_FALSE(CommitTransaction(transaction));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_TRANSACTION_NOT_ACTIVE});
        EXPECT_TRUE(CloseHandle(transaction));
    }
    // Deleting, and a transaction that is closed without an end.
    const HANDLE transaction = Begin();
    EXPECT_EQ(RegDeleteKeyTransactedW(HKEY_LOCAL_MACHINE, kPath, 0, 0, transaction, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(Read(TEXT("a")), std::nullopt);
    EXPECT_TRUE(CloseHandle(transaction));
    EXPECT_EQ(Read(TEXT("a")), 1u);
    EXPECT_FALSE(CommitTransaction(transaction));
    EXPECT_EQ(Create(transaction), nullptr);
}

TEST_F(Transactions, MayStandInsideOneAnother) {
    const HANDLE outer = Begin(), inner = Begin();
    HKEY key = Create(outer);
    Set(key, TEXT("a"), 1);
    RegCloseKey(key);
    key = Create(inner, TEXT("SOFTWARE\\Trans\\Inner"));
    Set(key, TEXT("b"), 2);
    RegCloseKey(key);
    EXPECT_TRUE(RollbackTransaction(inner));
    EXPECT_EQ(Read(TEXT("a")), 1u);
    EXPECT_EQ(Read(TEXT("b"), TEXT("SOFTWARE\\Trans\\Inner")), std::nullopt);
    EXPECT_TRUE(CommitTransaction(outer));
    EXPECT_EQ(ReadElsewhere(TEXT("a")), 1u);
    CloseHandle(inner);
    CloseHandle(outer);
}

TEST_F(Transactions, BelongToTheirThread) {
    const HANDLE transaction = Begin();
    std::thread([&] {
        EXPECT_EQ(Create(transaction), nullptr);
        EXPECT_FALSE(RollbackTransaction(transaction));
    }).join();
    const HKEY key = Create(transaction);
    EXPECT_NE(key, nullptr);
    RegCloseKey(key);
    EXPECT_TRUE(CommitTransaction(transaction));
    CloseHandle(transaction);
}

TEST_F(Transactions, AreUndoneWhenTheyCannotBeStored) {
    const HANDLE transaction = Begin();
    const HKEY key = Create(transaction);
    Set(key, TEXT("a"), 1);
    RegCloseKey(key);
    win32host::PlanFault({win32host::FAULT_REGISTRY_COMMIT, 1, ERROR_DISK_FULL});
    EXPECT_FALSE(CommitTransaction(transaction));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
    win32host::ForgetFaults();
    EXPECT_EQ(Read(TEXT("a")), std::nullopt);
    CloseHandle(transaction);
}
