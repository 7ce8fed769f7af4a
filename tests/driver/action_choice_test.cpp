// Actions that open a dialog, done by programs with a choice in words.
#include "driver/action_choice.h"

#include "core/ofile.h"
#include "support/job_test.h"
#include "zplui.h"

using ActionChoice = JobTest;

TEST_F(ActionChoice, DoesWhatWouldBeChosenInTheDialog) {
    Install({.model = "Resolution=203\nStock.Default.X=4 in\nStock.Default.Y=6 in\n",
             .features = "~Memory.Options=E\n"});
    InstallLanguage();
    const auto ui = OpenUI();
    WriteFile("labels\\one.prn", "^XA^FDone^XZ");
    const auto format = [](const std::string& command) {
        return "^XA\r\n" + command + "\r\n^XZ\r\n";
    };
    const struct {
        printer_action action;
        const char* choice;
        std::vector<PrintedJob> jobs; // none: it makes no sense
    } cases[] = {
        {ACTION_SEND_FILE, "C:\\labels\\one.prn", {{"one.prn", "^XA^FDone^XZ"}}},
        {ACTION_SEND_FILE, "C:\\labels\\two.prn", {}},
        {ACTION_SEND_FILE, "C:\\labels", {}},
        {ACTION_SEND_FILE, "", {}},
        {ACTION_MEMORY, "format E", {{"Format Flash Memory", format("^JBE")}}},
        {ACTION_MEMORY, " print  r ", {{"Print Memory Contents", format("^WDR:*.*")}}},
        {ACTION_MEMORY, "erase E", {{"Print Memory Contents", format("^IDE:*.*")}}},
        {ACTION_MEMORY, "reset E", {{"Reset Optional Memory", "~JB"}}},
        {ACTION_MEMORY, "format B", {}},
        {ACTION_MEMORY, "format", {}},
        {ACTION_MEMORY, "format E R", {}},
        {ACTION_MEMORY, "burn E", {}},
        {ACTION_POWER_MANAGEMENT,
         "sleep=300 forced=yes",
         {{"Power Management", "~JFY\r\n^XA^ZZ300,Y^XZ\r\n"}}},
        {ACTION_POWER_MANAGEMENT,
         "low-voltage-pause=no forced=no",
         {{"Power Management", "~JFN\r\n^XA^ZZ300,N^XZ\r\n"}}},
        {ACTION_POWER_MANAGEMENT, "sleep=off", {{"Power Management", "~JFN\r\n^XA^ZZ0,N^XZ\r\n"}}},
        {ACTION_POWER_MANAGEMENT, "discharge", {{"Discharge Battery", "~KB"}}},
        {ACTION_POWER_MANAGEMENT, "sleep=1000000", {}},
        {ACTION_POWER_MANAGEMENT, "sleep=", {}},
        {ACTION_POWER_MANAGEMENT, "forced", {}},
        {ACTION_POWER_MANAGEMENT, "nap=yes", {}},
        {ACTION_PRINTER_OPTIONS, "format E", {}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(RunChoice(*ui, c.action, c.choice), !c.jobs.empty()) << c.choice;
        EXPECT_EQ(TakeJobs(), c.jobs) << c.choice;
    }
    EXPECT_FALSE(OFile::Exists("C:\\labels\\two.prn"));
    // Through the exports, with a name that is cut to the room for it.
    WCHAR name[5] = {};
    EXPECT_EQ(DAL_Action_Name(ui.get(), DAL_ACTION_SEND_FILE, name, 5), 9);
    EXPECT_STREQ(OString(name).nstring(), "Send");
    EXPECT_FALSE(DAL_Action_Run(ui.get(), DAL_ACTION_SEND_FILE, TEXT("C:\\labels\\two.prn")));
    EXPECT_TRUE(DAL_Action_Run(ui.get(), DAL_ACTION_SEND_FILE, TEXT("C:\\labels\\one.prn")));
    EXPECT_EQ(TakeJobs().size(), 1u);
    EXPECT_FALSE(DAL_Action_Run(ui.get(), 0, nullptr));
    EXPECT_FALSE(DAL_Query_Run(ui.get(), 1, nullptr, nullptr));
    // As they were set last.
    prtreg registry = Registry();
    EXPECT_EQ(registry.GetByte("Settings:Enable Sleep", 9), 0);
    EXPECT_EQ(registry.GetByte("Settings:Forced Sleep", 9), 0);
    EXPECT_EQ(registry.GetByte("Settings:Low Voltage Pause", 9), 0);
    EXPECT_EQ(registry.GetInt("Settings:Timeout", 9), 300);
}
