// Pages of a printer's own properties: the object cache and the fonts.
#include <windows.h>

#include <compstui.h>

#include <string>
#include <vector>

#include "printer/cache_settings.h"
#include "printer/prtstream.h"
#include "support/job_test.h"
#include "support/sheet_of_pages.h"
#include "ui/uwindow.h"

namespace {

std::vector<HPROPSHEETPAGE> g_device_pages;

LONG_PTR CALLBACK TakeDevicePages(HANDLE, UINT function, LPARAM, LPARAM second) {
    if (function != CPSFUNC_INSERT_PSUIPAGEW) return 0;
    g_device_pages.push_back(reinterpret_cast<HPROPSHEETPAGE>(
        reinterpret_cast<const INSERTPSUIPAGE_INFO*>(second)->dwData1));
    return static_cast<LONG_PTR>(g_device_pages.size());
}

enum : int {
    MEMORY = 641,
    FIRST_FORMAT = 642,
    LAST_FORMAT = 643,
    FIRST_GRAPHIC = 645,
    RESET = 648
};

class DevicePages : public JobTest {
protected:
    void Open(uint32_t wanted_pages) {
        NeedRenderingModule();
        Install({.model = "Resolution=203\n", .method = "Cache.Format=yes\n"});
        InstallLanguage();
        ui = OpenUI();
        prtreg registry(ui->model->GetRegistry());
        registry.SetDWORD("DATA:FW Message", wanted_pages);
        info_.pfnComPropSheet = TakeDevicePages;
        g_device_pages.clear();
        ASSERT_EQ(ui->InitDevSheets(&info_, &header_), 1);
        sheet = std::make_unique<SheetOfPages>(g_device_pages);
    }
    std::string Shown(int id) const { return Text(TextOfWindow(sheet->Item(id))); }
    KVCacheSettings Stored() const {
        KVCacheSettings settings = {};
        EXPECT_TRUE(ReadCacheSettings(*ui->stream, settings));
        return settings;
    }

    std::unique_ptr<prtui> ui;
    std::unique_ptr<SheetOfPages> sheet;

private:
    PROPSHEETUI_INFO info_ = {};
    DEVICEPROPERTYHEADER header_ = {};
};

} // namespace

TEST_F(DevicePages, NumbersMoveTheirNeighbourOnlyAsFarAsTheyGetThemselves) {
    Open(4);
    for (const WCHAR* typed : {TEXT("1"), TEXT("10"), TEXT("100")})
        sheet->Type(FIRST_FORMAT, typed);
    sheet->Command(FIRST_FORMAT, EN_KILLFOCUS);
    EXPECT_EQ(Shown(LAST_FORMAT), "100");
    for (const WCHAR* typed : {TEXT("6"), TEXT("60"), TEXT("600")}) sheet->Type(LAST_FORMAT, typed);
    EXPECT_EQ(Shown(FIRST_FORMAT), "100") << "60 was not meant";
    sheet->Command(LAST_FORMAT, EN_KILLFOCUS);
    sheet->Type(MEMORY, TEXT("9999"));
    EXPECT_EQ(Shown(LAST_FORMAT), "600");
    EXPECT_TRUE(Shown(FIRST_GRAPHIC).empty() && !IsWindowEnabled(sheet->Item(FIRST_GRAPHIC)))
        << "the model keeps no graphics";
    EXPECT_TRUE(sheet->CanApply() && sheet->Apply());
    EXPECT_EQ(Shown(MEMORY), "8192");
    const KVCacheSettings stored = Stored();
    EXPECT_TRUE(stored.first_format == 100 && stored.last_format == 600 &&
                stored.memory == 8192 * 1024);
    sheet->Click(RESET);
    EXPECT_EQ(Shown(LAST_FORMAT), "100");
    EXPECT_EQ(Stored().memory, 1u << 20);
}
