// Printer models that are built while the registry cannot be read or memory is short.
#include <memory>
#include <utility>

#include "model/prtmodel.h"
#include "spooler/printer_info.h"
#include "torture/fault_test.h"
#include "torture/memory_faults.h"

namespace {

class ModelFaults : public FaultTest {
protected:
    // The facts that a model built now gets from the registry and from the model data file.
    static std::pair<int32_t, int> Facts() {
        const std::unique_ptr<prtmodel> model(prtmodel::new_ext(PrinterInfo("Dock 3")));
        if (!model) return {};
        return {model->GetUnprintableWidth().Microns(), model->GetXResolution()};
    }
};

} // namespace

TEST_F(ModelFaults, DoNotOutlastTheModelThatMeetsThem) {
    InstallPrinter();
    prtreg("Dock 3").SetDWORD("Settings:Unprintable Width", 2500);
    Forget();
    const std::pair whole(2500, 203);
    ASSERT_EQ(Facts(), whole);
    for (const DWORD kinds : {win32host::FAULT_REGISTRY_READ + 0, win32host::FAULT_FILES + 0}) {
        int harmed = 0;
        bool happened = true;
        for (DWORD point = 1; happened; ++point) {
            Forget();
            win32host::PlanFault({.kinds = kinds, .point = point, .from_then = true});
            harmed += Facts() != whole;
            happened = win32host::FaultHappened();
            win32host::ForgetFaults();
            EXPECT_EQ(Facts(), whole) << "behind operation " << point << " of kinds " << kinds;
        }
        EXPECT_GT(harmed, 0) << kinds;
    }
    for (DWORD point = 1, count = 1; point <= count; ++point) {
        Forget();
        FailAllocation(point, false);
        Facts();
        count = AllocationCount();
        FailAllocation(0);
        EXPECT_EQ(Facts(), whole) << "behind allocation " << point;
    }
}

TEST_F(ModelFaults, OfWritingTheListOfFontGroupsLeaveTheModelWhole) {
    InstallPrinter();
    const std::unique_ptr<prtmodel> model(prtmodel::new_ext(PrinterInfo("Dock 3")));
    win32host::PlanFault({.kinds = win32host::FAULT_REGISTRY_CHANGES, .from_then = true});
    model->HasDeviceFonts();
    EXPECT_TRUE(win32host::FaultHappened());
    win32host::ForgetFaults();
    EXPECT_TRUE(model->WasReadWhole());
}
