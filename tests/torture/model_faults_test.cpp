// Printer models that are made while the registry cannot be read or memory is short.
#include <memory>

#include "driver/printer_info.h"
#include "model/model_data_cache.h"
#include "model/prtmodel.h"
#include "torture/fault_test.h"
#include "torture/memory_faults.h"

namespace {

class ModelFaults : public FaultTest {
protected:
    // What the model says that is made now; -1 without one.
    static int32_t UnprintableWidth() {
        const std::unique_ptr<prtmodel> model(prtmodel::new_ext(PrinterInfo("Dock 3")));
        return model ? model->GetUnprintableWidth().Microns() : -1;
    }

    static void ForgetRecords() {
        ModelDataCache::Free();
        ModelDataCache::Initialize();
    }
};

} // namespace

TEST_F(ModelFaults, DoNotOutlastTheModelThatMeetsThem) {
    InstallPrinter();
    prtreg("Dock 3").SetDWORD("Settings:Unprintable Width", 2500);
    ForgetRecords();
    ASSERT_EQ(UnprintableWidth(), 2500);
    int harmed = 0;
    for (DWORD point = 1, happened = 1; happened; ++point) {
        ForgetRecords();
        win32host::PlanFault({.kinds = win32host::FAULT_REGISTRY_READ, .point = point});
        harmed += UnprintableWidth() != 2500;
        happened = win32host::FaultHappened();
        win32host::ForgetFaults();
        EXPECT_EQ(UnprintableWidth(), 2500) << "behind operation " << point;
    }
    EXPECT_GT(harmed, 0);
    for (DWORD point = 1, count = 1; point <= count; ++point) {
        ForgetRecords();
        FailAllocation(point, false);
        UnprintableWidth();
        count = AllocationCount();
        FailAllocation(0);
        EXPECT_EQ(UnprintableWidth(), 2500) << "behind allocation " << point;
    }
}
