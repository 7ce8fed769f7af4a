// Attaching and detaching the module.

#include "model/model_data_cache.h"
#include "model/resource_cache.h"
#include "spooler/driver_utility.h"
#include "spooler/platform_flags.h"
#include "support/staged_driver_test.h"
#include "zplui.h"

namespace {

class Attach : public StagedDriverTest {
protected:
    Attach() { SetPlatformFlags(OString()); }
    ~Attach() override { DriverUtility::SetModuleHandle(nullptr); }
};

} // namespace

TEST_F(Attach, MakesTheCachesAndDetachFreesThem) {
    const HINSTANCE module = GetModuleHandleW(TEXT("kernel32.dll"));
    ASSERT_TRUE(module);
    EXPECT_TRUE(DllInitialize(module, DLL_PROCESS_ATTACH, nullptr));
    EXPECT_EQ(DriverUtility::GetModuleHandle(), module);
    EXPECT_FALSE(winNT) << "a folder without a version";
    EXPECT_TRUE(OResourceCache::GetResourceFile("C:\\none.ddt"));
    const ModelDataOwner owner{"Dock 3", "Model 1"};
    ModelDataCache().Synchronize(owner);
    ModelDataCache().SetData(owner, "key", "data", 4);
    EXPECT_EQ(ModelDataCache().GetDataSize(owner, "key"), 4u);

    for (const DWORD of_a_thread : {2, 3}) EXPECT_TRUE(DllInitialize(module, of_a_thread, nullptr));
    EXPECT_EQ(ModelDataCache().GetDataSize(owner, "key"), 4u);

    EXPECT_TRUE(DllInitialize(module, DLL_PROCESS_DETACH, nullptr));
    EXPECT_FALSE(OResourceCache::GetResourceFile("C:\\none.ddt"));
    EXPECT_EQ(ModelDataCache().GetDataSize(owner, "key"), 0u);
}

TEST_F(Attach, KnowsThePlatformFromTheFolderThatTheModuleWasLoadedFrom) {
    Install({});
    EXPECT_TRUE(DriverUtility::GetDriverDirectory().IsEmpty());
    const OString file = DriverFolder() + "\\zplui.dll";
    const HMODULE module = LoadLibraryW(file.wstring());
    ASSERT_TRUE(module);
    EXPECT_TRUE(DllInitialize(module, DLL_PROCESS_ATTACH, nullptr));
    EXPECT_EQ(DriverUtility::GetDriverDirectory(), DriverFolder());
    EXPECT_TRUE(winNT && win2000);
    EXPECT_TRUE(DllInitialize(module, DLL_PROCESS_DETACH, nullptr));
    FreeLibrary(module);
}
