// Processes that are killed while they save settings.
#include <win32host/control.h>

#include <random>

#include "support/program.h"
#include "support/torture_rounds.h"
#include "torture/fault_test.h"
#include "torture/sample_lists.h"

namespace {

class KilledSaver : public FaultTest {
protected:
    void SetUp() override {
        InstallPrinter();
        WithSettings([](HANDLE settings) { MakeLists(*static_cast<prtui*>(settings), 0); });
    }

    // The state that the saver leaves, and how it ended.
    struct Left {
        ProgramResult result;
        std::vector<std::string> settings;
    };
    Left Save(const std::string& kind, int point) {
        Left left;
        left.settings = OnCopy([&] {
            left.result =
                RunProgram("torture_saver", {win32host::Root(), kind, std::to_string(point)});
            return StoredSettings();
        });
        return left;
    }

    void LeavesTheOldListsOrTheNew(const std::string& kind, int rounds) {
        const auto before = OnCopy(StoredSettings);
        const Left undisturbed = Save(kind, 0);
        ASSERT_EQ(undisturbed.result.status, 0) << undisturbed.result.errors;
        const auto& after = undisturbed.settings;
        ASSERT_NE(before, after);
        const int points = std::stoi(undisturbed.result.output);
        ASSERT_GT(points, 1);

        std::mt19937 random(20240607);
        int old = 0;
        for (int round = 0; round < rounds; ++round) {
            const int point = 1 + static_cast<int>(random() % static_cast<unsigned>(points));
            SCOPED_TRACE("point " + std::to_string(point) + " of " + std::to_string(points));
            const Left left = Save(kind, point);
            ASSERT_EQ(left.result.status, -1) << "not killed";
            ASSERT_EQ(left.settings.size(), after.size());
            for (size_t i = 0; i < after.size(); ++i) {
                ASSERT_TRUE(left.settings[i] == before[i] || left.settings[i] == after[i])
                    << "part " << i << " is\n"
                    << left.settings[i];
                old += left.settings[i] == before[i] && before[i] != after[i];
            }
        }
        EXPECT_GT(old, 0);
    }
};

} // namespace

TEST_F(KilledSaver, LeavesEveryListWholeWhereverItWritesToTheRegistry) {
    LeavesTheOldListsOrTheNew("layer", TortureRounds(15));
}

TEST_F(KilledSaver, LeavesEveryListWholeWhereverItWritesToTheDisk) {
    LeavesTheOldListsOrTheNew("disk", TortureRounds(15));
}
