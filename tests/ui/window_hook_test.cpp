// The driver's part in the system's General page.
#include "ui/window_hook.h"

#include "support/job_test.h"
#include "window/dialog_builder.h"

namespace {

constexpr int kNameItem = 3001, kTestButton = 3007, kOrderItem = 3227;

// A General page as far as it is recognised, or a page without its test button.
class GeneralPage : public JobTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203\n", .drawing = "Drawing.Lines=1\n"});
        ui = OpenUI();
    }
    void TearDown() override { WindowHook_Remove(ui.get()); }

    HWND Open(bool with_button, int check_box = 0) {
        DialogBuilder shape(false, WS_POPUP, 0, 0, 100, 100);
        shape.Add(TEXT("Static"), TEXT(""), kNameItem, 0, 5, 5, 50, 10);
        if (with_button) shape.Add(TEXT("Button"), TEXT("Test"), kTestButton, 0, 5, 20, 50, 10);
        if (check_box != 0)
            shape.Add(TEXT("Button"), TEXT("x"), static_cast<uint32_t>(check_box), BS_RADIOBUTTON,
                      5, 40, 50, 10);
        return CreateDialogIndirectParamW(nullptr, shape.Get(), nullptr, Procedure, 0);
    }
    static void Press(HWND page) { SendDlgItemMessageW(page, kTestButton, BM_CLICK, 0, 0); }

    std::unique_ptr<prtui> ui;
    static inline int system_tests = 0;

private:
    static INT_PTR CALLBACK Procedure(HWND page, UINT message, WPARAM first, LPARAM) {
        if (message == WM_INITDIALOG) SetDlgItemTextW(page, kNameItem, TEXT("Dock 3"));
        if (message == WM_COMMAND && LOWORD(first) == kTestButton) ++system_tests;
        return FALSE;
    }
};

} // namespace

TEST_F(GeneralPage, PrintsTheTestLabelOfTheSheetThatCameFirst) {
    const auto other = OpenUI();
    EXPECT_TRUE(WindowHook_Install(ui.get()));
    EXPECT_FALSE(WindowHook_Install(other.get()));
    EXPECT_FALSE(WindowHook_Remove(other.get()));
    system_tests = 0;

    const HWND no_button = Open(false);
    const HWND page = Open(true);
    EXPECT_FALSE(WindowHook_Remove(ui.get())) << "it has done its work";
    Press(page);
    EXPECT_EQ(system_tests, 0);
    const std::vector<PrintedJob> jobs = TakeJobs();
    ASSERT_EQ(jobs.size(), 1u);
    EXPECT_EQ(jobs[0].name, "Printer Test");

    const HWND later = Open(true);
    Press(later);
    EXPECT_EQ(system_tests, 1) << "another page is the system's";
    for (HWND window : {no_button, page, later}) EXPECT_TRUE(DestroyWindow(window));
}

TEST_F(GeneralPage, IsNotWaitedForInASheetWithoutOne) {
    EXPECT_TRUE(WindowHook_Install(ui.get()));
    const HWND page = Open(false, kOrderItem);
    SendDlgItemMessageW(page, kOrderItem, BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_FALSE(WindowHook_Remove(ui.get()));
    DestroyWindow(page);

    EXPECT_TRUE(WindowHook_Install(ui.get()));
    ui.reset();
    const auto next = OpenUI();
    EXPECT_TRUE(WindowHook_Install(next.get())) << "it goes with the UI object";
    EXPECT_TRUE(WindowHook_Remove(next.get()));
}
