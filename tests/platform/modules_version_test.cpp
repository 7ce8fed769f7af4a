#include "platform/error_of.h"
#include "support/host_test.h"
#include "support/version_resource_test.h"

#include <windows.h>

#include <string>
#include <vector>

namespace {

TEST_F(VersionResources, CutAnywhereAnswerWhatIsLeft) {
    for (DWORD size = 0; size < block.size(); size += 7) {
        // The block behind is memory of its own, so that a look behind the cut is noticed.
        std::vector<uint8_t> cut(size < 2 ? 2 : size);
        ASSERT_TRUE(GetFileVersionInfoW(kModule, 0, size, cut.data()));
        void* value = nullptr;
        UINT length = 0;
        EXPECT_FALSE(
            VerQueryValueW(cut.data(), u"\\StringFileInfo\\000004B0\\Nothing", &value, &length));
        VerQueryValueW(cut.data(), u"\\VarFileInfo\\Translation", &value, &length);
    }
}

} // namespace
