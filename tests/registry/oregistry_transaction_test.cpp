#include "registry/oregistry_transaction.h"

#include "core/memory.h"
#include "registry/oregistry.h"
#include "registry/oregistry_system.h"
#include "support/host_test.h"

namespace {

class RegistryTransaction : public HostTest {
protected:
    void SetUp() override {
        if (!RegistryTransactions::OfSystem().IsThere()) GTEST_SKIP() << "the system has none";
        ORegistry().SetInt("LOCAL:T/old", 1);
    }
    static int32_t Stored(const char* name) { return ORegistry().GetInt(name, -1); }
};

} // namespace

TEST_F(RegistryTransaction, StoresAllOrNothing) {
    ORegistry registry;
    for (const bool commit : {false, true}) {
        {
            ORegistryTransaction changes(registry);
            registry.SetInt("LOCAL:T/new", 2);
            registry.SetInt("LOCAL:T/Below/new", 3);
            registry.Delete("LOCAL:T/old", false);
            EXPECT_EQ(registry.GetInt("LOCAL:T/new", -1), 2);
            if (commit) {
                EXPECT_TRUE(changes.Commit());
            }
        }
        EXPECT_EQ(Stored("LOCAL:T/new"), commit ? 2 : -1);
        EXPECT_EQ(Stored("LOCAL:T/Below/new"), commit ? 3 : -1);
        EXPECT_EQ(Stored("LOCAL:T/old"), commit ? -1 : 1);
        EXPECT_EQ(registry.GetInt("LOCAL:T/new", -1), commit ? 2 : -1);
    }
}

TEST_F(RegistryTransaction, IsUndoneByWhatFailsInItAndWritesNoMore) {
    ORegistry registry;
    const auto undone_by = [&](auto fail) {
        ORegistryTransaction changes(registry);
        registry.SetInt("LOCAL:T/new", 2);
        fail();
        EXPECT_FALSE(registry.SetInt("LOCAL:T/more", 3));
        EXPECT_FALSE(registry.Delete("LOCAL:T/old", false));
        EXPECT_FALSE(changes.Commit());
    };
    undone_by([&] { registry.SetBinary("LOCAL:T/wrong", nullptr, 1); });
    undone_by(NoteAllocationFailure);
    undone_by([&] { const ORegistryTransaction inner(registry); });
    EXPECT_EQ(Stored("LOCAL:T/new"), -1);
    EXPECT_EQ(Stored("LOCAL:T/old"), 1);
    // A missing value is not a failure.
    ORegistryTransaction changes(registry);
    registry.GetString("LOCAL:None/none", "");
    registry.Delete("LOCAL:T/none", true);
    EXPECT_TRUE(registry.SetInt("LOCAL:T/new", 2));
    EXPECT_TRUE(changes.Commit());
}
