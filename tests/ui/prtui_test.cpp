// The UI object on a printer.
#include "ui/prtui.h"

#include "printer/prtstream.h"
#include "support/job_test.h"

using UIObject = JobTest;

TEST_F(UIObject, TakesThePrinterAndTheSettingsAskedFor) {
    Install({.model = "Resolution=203\n", .method = "Copies.Limit=500\n"});
    InstallLanguage();
    DevMode wanted;
    wanted.CreateDefault(Model().get());
    wanted.SetCopies(7);
    for (const uint32_t mode : {0, DM_IN_BUFFER}) {
        const auto ui = OpenUI(wanted.GetDevMode(), mode);
        EXPECT_EQ(Text(ui->printer_name + "," + ui->driver_name + "," + ui->port_name),
                  "Dock 3,Model 1,FILE:");
        ASSERT_NE(ui->model, nullptr);
        ASSERT_NE(ui->presets.GetDefaultSettings(), nullptr);
        EXPECT_EQ(Text(ui->presets.GetDefaultSettings()->GetName()), "Default Settings");
        EXPECT_EQ(ui->devmode.GetCopies(), mode ? 7 : 1);
        EXPECT_EQ(ui->devmode_saved.GetCopies(), mode ? 7 : 1);
        EXPECT_EQ(ui->presets.GetDefaultSettings()->GetDevMode().GetCopies(), 1);
        EXPECT_EQ(ui->presets.GetCurrentSettings()->GetDevMode().GetCopies(), mode ? 7 : 1);
        EXPECT_EQ(ui->presets.GetHead(), ui->presets.GetCurrentSettings());
        EXPECT_NE(ui->stocks.GetNextValid(nullptr), nullptr);
        EXPECT_NE(ui->devmode_crc, 0u);
        ASSERT_NE(ui->stream, nullptr);
        EXPECT_EQ(ui->stream->GetModel(), ui->model.get());
    }
}

TEST_F(UIObject, HasBothBuiltInPresetsWithoutALanguageLibrary) {
    Install({.model = "Resolution=203\n"});
    const auto ui = OpenUI();
    EXPECT_NE(ui->presets.GetCurrentSettings(), nullptr) << "it has no name";
    EXPECT_NE(ui->presets.GetDefaultSettings(), nullptr);
}
