// Transactions over the registry.
#include <win32host/fault_control.h>

#include <ktmw32.h>

#include <thread>

#include "platform/registry_support.h"
#include "support/host_test.h"

namespace {

constexpr LPCWSTR kPath = u"SOFTWARE\\Trans";
constexpr LPCWSTR kInner = u"SOFTWARE\\Trans\\Inner";

class Transactions : public HostTest {
protected:
    static HANDLE Begin() { return CreateTransaction(nullptr, nullptr, 0, 0, 0, 0, nullptr); }

    static Key Create(HANDLE transaction, LPCWSTR path = kPath) {
        HKEY key = nullptr;
        RegCreateKeyTransactedW(HKEY_LOCAL_MACHINE, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                &key, nullptr, transaction, nullptr);
        return Key(key);
    }
    // The value as this thread and as others see it.
    static std::string Seen(LPCWSTR name, LPCWSTR path = kPath) {
        HKEY key = nullptr;
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_READ, &key);
        return key ? Read(Key(key), name) : "(none)";
    }
    static std::string SeenElsewhere(LPCWSTR name, LPCWSTR path = kPath) {
        std::string text;
        std::thread([&] { text = Seen(name, path); }).join();
        return text;
    }
};

} // namespace

TEST_F(Transactions, AreSeenByOthersAtOnceOrNever) {
    for (const bool commit : {false, true}) {
        const HANDLE transaction = Begin();
        ASSERT_NE(transaction, INVALID_HANDLE_VALUE);
        {
            const Key key = Create(transaction);
            EXPECT_EQ(Write(key, u"a", "1"), ERROR_SUCCESS);
            EXPECT_EQ(Write(key, u"b", "2"), ERROR_SUCCESS);
        }
        EXPECT_EQ(Seen(u"a"), "1");
        EXPECT_EQ(SeenElsewhere(u"a"), "(none)");
        EXPECT_TRUE(commit ? CommitTransaction(transaction) : RollbackTransaction(transaction));
        for (const auto seen : {Seen, SeenElsewhere}) {
            EXPECT_EQ(seen(u"a", kPath), commit ? "1" : "(none)");
            EXPECT_EQ(seen(u"b", kPath), commit ? "2" : "(none)");
        }
        EXPECT_FALSE(CommitTransaction(transaction));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_TRANSACTION_NOT_ACTIVE});
        EXPECT_TRUE(CloseHandle(transaction));
    }
    // Deleting, and a transaction that is closed without an end.
    const HANDLE transaction = Begin();
    EXPECT_EQ(RegDeleteKeyTransactedW(HKEY_LOCAL_MACHINE, kPath, 0, 0, transaction, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(Seen(u"a"), "(none)");
    EXPECT_TRUE(CloseHandle(transaction));
    EXPECT_EQ(Seen(u"a"), "1");
    EXPECT_FALSE(CommitTransaction(transaction));
    EXPECT_FALSE(Create(transaction));
}

TEST_F(Transactions, MayStandInsideOneAnotherInTheirThread) {
    const HANDLE outer = Begin(), inner = Begin();
    Write(Create(outer), u"a", "1");
    Write(Create(inner, kInner), u"b", "2");
    std::thread([&] {
        EXPECT_FALSE(Create(inner));
        EXPECT_FALSE(RollbackTransaction(inner));
    }).join();
    EXPECT_TRUE(RollbackTransaction(inner));
    EXPECT_EQ(Seen(u"a"), "1");
    EXPECT_EQ(Seen(u"b", kInner), "(none)");
    EXPECT_TRUE(CommitTransaction(outer));
    EXPECT_EQ(SeenElsewhere(u"a"), "1");
    CloseHandle(inner);
    CloseHandle(outer);
}

TEST_F(Transactions, AreUndoneWhenTheyCannotBeStored) {
    const HANDLE transaction = Begin();
    Write(Create(transaction), u"a", "1");
    win32host::PlanFault({win32host::FAULT_REGISTRY_COMMIT, 1, ERROR_DISK_FULL});
    EXPECT_FALSE(CommitTransaction(transaction));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
    win32host::ForgetFaults();
    EXPECT_EQ(Seen(u"a"), "(none)");
    CloseHandle(transaction);
}
