// The UI object on a printer.
#include "ui/prtui.h"

#include <filesystem>
#include <memory>

#include "printer/prtstream.h"
#include "spooler/driver_utility.h"
#include "support/build_folders.h"
#include "support/job_test.h"

namespace {

class UIObject : public JobTest {
protected:
    static std::unique_ptr<prtui> Made(HANDLE printer, const DEVMODEW* in, uint32_t mode) {
        std::unique_ptr<prtui> ui(prtui::new_ext());
        ui->init(printer, in, mode);
        return ui;
    }
};

} // namespace

TEST_F(UIObject, TakesThePrinterAndTheSettingsAskedFor) {
    Install({.model = "Resolution=203\n", .method = "Copies.Limit=500\n"});
    const std::string folder = Text(DriverUtility::GetDriverDirectory()).substr(3);
    std::filesystem::copy_file(Built("/product/zplvenu.dll"), OnDriveC(folder + "\\zplvenu.dll"));
    DevMode wanted;
    wanted.CreateDefault(Model().get());
    wanted.SetCopies(7);
    for (const uint32_t mode : {0, DM_IN_BUFFER}) {
        const auto ui = Made(printer(), wanted.GetDevMode(), mode);
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

TEST_F(UIObject, KeepsItsListsForTheNextOne) {
    Install({.model = "Resolution=203\n"});
    const auto first = Made(printer(), nullptr, 0), second = Made(printer(), nullptr, 0);
    EXPECT_NE(first->presets.GetCurrentSettings(), nullptr) << "nameless without a library";
    EXPECT_NE(first->presets.GetDefaultSettings(), nullptr);
    auto* preset = new Preset;
    preset->SetToDefaultDevMode(first->model.get());
    preset->SetName("Draft");
    first->presets.AddTail(preset);
    first->Settings_Save();
    second->Settings_Load();
    ASSERT_EQ(second->presets.GetHead(), second->presets.GetTail());
    EXPECT_EQ(Text(second->presets.GetNext(nullptr)->GetName()), "Draft");
}
