// The module's sheets for a 16-bit driver, which is a thread of the test. The module is loaded from
// a folder without a version, as such systems have it.
#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>

#include "driver/bridge16/convert_dialog.h"
#include "driver/driver16.h"
#include "settings/dev_mode.h"
#include "spooler/driver_utility.h"
#include "spooler/platform_flags.h"
#include "support/build_folders.h"
#include "support/model_test.h"
#include "zplui.h"

namespace fs = std::filesystem;

namespace {

constexpr const WCHAR* kChannel = TEXT("Channel 1A");
constexpr const WCHAR* kPrinter = TEXT("Dock 3");
constexpr int kLandscape = 356; // of the page setup

class Bridge16 : public ModelTest {
protected:
    Bridge16() {
        SetPlatformFlags(OString());
        Install({.model = "Resolution=203\nStock.Default.X=4 in\nStock.Default.Y=6 in\n"
                          "Stock.Maximum.X=4 in\nStock.Maximum.Y=20 in\n",
                 .method = "Copies.Limit=500\n"});
        // The same model in the module's own folder.
        const std::string data =
            std::string(DriverUtility::GetDriverDirectory().nstring()).substr(3) + "\\zpl.ddt";
        WriteFile("DRIVER16\\zpl.ddt", BytesOf(OnDriveC(data)));
        for (const char* file : {"/bin/zplui.dll", "/product/zplvenu.dll"})
            fs::copy_file(Built(file), OnDriveC("DRIVER16\\" + fs::path(file).filename().string()));
        module_ = LoadLibraryW(TEXT("C:\\DRIVER16\\zplui.dll"));
        registry_.SetString(Path("Printer"), "Dock 3");
    }
    ~Bridge16() override {
        if (module_) FreeLibrary(module_);
    }
    static OString Path(const char* value) { return OString("LOCAL:X16/Channel 1A/") << value; }
    void Want(const char* value) { registry_.SetByte(Path(value), 1); }
    void Run() const {
        char channel[] = "Channel 1A";
        const auto run = reinterpret_cast<decltype(&X16_DocumentProperties)>(
            reinterpret_cast<void (*)()>(GetProcAddress(module_, "X16_DocumentProperties")));
        ASSERT_TRUE(run);
        run(nullptr, nullptr, channel, SW_SHOWNORMAL);
    }
    // What the module last handed back.
    int Orientation() {
        std::vector<char> bytes(static_cast<size_t>(DevMode::GetDefaultDevModeSize()));
        const auto size = static_cast<uint32_t>(bytes.size());
        if (registry_.GetBinary(Path("DevMode 32"), bytes.data(), size) <= 0) return -1;
        return DevMode(reinterpret_cast<DEVMODEW*>(bytes.data())).GetOrientation();
    }

    ORegistry registry_;
    HMODULE module_ = nullptr;
};

bool IsOver(HWND shown, HWND hidden) {
    RECT a = {}, b = {};
    GetWindowRect(shown, &a);
    GetWindowRect(hidden, &b);
    EXPECT_TRUE(a.left == b.left && a.top == b.top);
    return IsWindowVisible(shown) && IsWindowEnabled(shown) && !IsWindowVisible(hidden) &&
           !IsWindowEnabled(hidden);
}

void Turn(HWND sheet) {
    const HWND button = GetDlgItem(Driver16::Page(sheet), kLandscape);
    ASSERT_TRUE(button) << Driver16::TextOf(Driver16::Page(sheet));
    SendMessageW(button, BM_CLICK, 0, 0);
}

} // namespace

TEST_F(Bridge16, ShowsTwoSheetsAsOneAndAppliesAndClosesBothOnce) {
    enum Ending { OK_HERE, CANCEL_HERE, OK_THERE, CLOSE_THERE };
    for (const Ending ending : {OK_HERE, CANCEL_HERE, OK_THERE, CLOSE_THERE}) {
        SCOPED_TRACE(ending);
        for (const char* wish : {"Properties", "Default DevMode"}) Want(wish);
        registry_.Delete(Path("DevMode 32"), false);
        Driver16 driver(kChannel, kPrinter, true, [&](Driver16& user) {
            const HWND sheet16 = user.sheet(), sheet32 = user.others();
            ASSERT_TRUE(sheet32);
            EXPECT_TRUE(IsOver(sheet16, sheet32));
            EXPECT_EQ(user.TextOf(sheet32), user.TextOf(sheet16)) << "it has its title again";
            EXPECT_EQ(user.TabCount(sheet32), user.TabCount(sheet16));
            EXPECT_EQ(user.Tab(sheet16), 0);
            EXPECT_TRUE(IsChild(user.Page(sheet16), GetFocus()));

            user.Click(sheet16, Driver16::OWN_TABS);
            EXPECT_TRUE(IsOver(sheet32, sheet16));
            Turn(sheet32);
            EXPECT_EQ(user.changed, 0);
            user.Click(sheet32, Driver16::DETAILS);
            EXPECT_TRUE(IsOver(sheet16, sheet32));
            EXPECT_EQ(user.Tab(sheet16), Driver16::DETAILS);
            EXPECT_EQ(GetFocus(), user.Tabs(sheet16));

            // Applied here, it is applied there, and the other way round.
            user.Click(sheet16, Driver16::SHARING);
            SendMessageW(sheet16, PSM_APPLY, 0, 0);
            user.LetItWork();
            EXPECT_EQ(user.Tab(sheet16), Driver16::SHARING);
            EXPECT_TRUE(IsOver(sheet16, sheet32));
            EXPECT_EQ(user.applied, 1);
            EXPECT_EQ(user.changed, 1);
            EXPECT_EQ(user.asked_to_apply, 1) << "by the user";
            EXPECT_EQ(user.changed_defaults, 1u);
            EXPECT_EQ(Orientation(), 1);
            user.Click(sheet16, Driver16::OWN_TABS);
            SendMessageW(GetDlgItem(user.Page(sheet32), kLandscape - 1), BM_CLICK, 0, 0);
            SendMessageW(sheet32, PSM_APPLY, 0, 0);
            user.LetItWork();
            EXPECT_EQ(user.applied, 2);
            EXPECT_EQ(user.asked_to_apply, 2);
            EXPECT_EQ(user.changed, 2);
            EXPECT_EQ(Orientation(), 0);

            // The 16-bit driver may show the page about the driver.
            user.Click(sheet32, Driver16::SHARING);
            SendMessageW(user.Page(sheet32), WM_USER + 2, 0, 0);
            EXPECT_TRUE(IsOver(sheet32, sheet16));
            EXPECT_EQ(user.Tab(sheet32), user.TabCount(sheet32) - 1);

            user.Click(sheet32, Driver16::OWN_TABS);
            Turn(sheet32);
            if (ending == OK_THERE || ending == CLOSE_THERE) user.Click(sheet32, Driver16::GENERAL);
            switch (ending) {
            case OK_HERE:
                PostMessageW(sheet32, PSM_PRESSBUTTON, PSBTN_OK, 0);
                break;
            case CANCEL_HERE:
                PostMessageW(sheet32, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
                break;
            case OK_THERE:
                PostMessageW(sheet16, PSM_PRESSBUTTON, PSBTN_OK, 0);
                break;
            case CLOSE_THERE:
                PostMessageW(sheet16, WM_CLOSE, 0, 0);
                break;
            }
        });
        Run();
        driver.Join();
        const bool kept = ending == OK_HERE || ending == OK_THERE;
        EXPECT_EQ(driver.started, 1);
        EXPECT_EQ(driver.ended, 1);
        EXPECT_EQ(driver.ended_with, 2u);
        EXPECT_EQ(driver.changed, kept ? 3 : 2);
        EXPECT_EQ(driver.applied, kept ? 3 : 2);
        EXPECT_EQ(Orientation(), kept ? 1 : 0);
        EXPECT_EQ(driver.asked_to_close, ending == OK_THERE ? 0 : 1);
        ASSERT_EQ(driver.titles.size(), 6u);
        EXPECT_EQ(driver.titles.front(), "Page Setup");
        EXPECT_EQ(driver.titles.back(), "About");
    }
    OStringArray names;
    EXPECT_TRUE(Registry().GetMultiString("MODEL:X16/Tab Names", names));
    EXPECT_EQ(Text(names), "Allgemein,Details,Freigabe");
}

TEST_F(Bridge16, StartsFromTheSettingsAndPagesThatTheDriverAndOthersWant) {
    // An ANSI DEVMODE: landscape.
    DEVMODEA settings16 = {};
    settings16.dmSize = sizeof settings16;
    settings16.dmFields = DM_ORIENTATION;
    settings16.dmOrientation = DMORIENT_LANDSCAPE;
    registry_.SetBinary(Path("DevMode 16"), &settings16, sizeof settings16);
    const struct {
        const char* wish;
        uint32_t wanted; // by the label-design program
        int pages;
        const char* first;
    } cases[] = {{nullptr, 0, 5, "Page Setup"},           {nullptr, 1, 2, "Tools"},
                 {nullptr, 4, 3, "Cache Settings"},       {nullptr, 2, 5, "Page Setup"},
                 {"Default DevMode", 0, 6, "Page Setup"}, {"Advanced Setup", 0, 5, "Graphics"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << (c.wish ? c.wish : "") << c.wanted);
        if (c.wish) Want(c.wish);
        Registry().SetDWORD("DATA:FW Message", c.wanted);
        Driver16 driver(kChannel, kPrinter, false, [&](Driver16& user) {
            const HWND sheet = user.Await();
            EXPECT_EQ(user.TabCount(sheet), c.pages);
            EXPECT_EQ(user.TextOf(user.Page(sheet)), c.first);
            if (const HWND landscape = GetDlgItem(user.Page(sheet), kLandscape)) {
                EXPECT_EQ(SendMessageW(landscape, BM_GETCHECK, 0, 0), BST_CHECKED);
            }
            PostMessageW(sheet, PSM_PRESSBUTTON, PSBTN_OK, 0);
        });
        Run();
        driver.Join();
        EXPECT_EQ(driver.ended, 1);
        EXPECT_EQ(driver.changed, 0) << "nothing was edited";
        EXPECT_EQ(Registry().GetSize("DATA:FW Message"), c.wanted ? -1 : 4);
    }
}

TEST_F(Bridge16, EndsWithoutAChannelOrAPrinterAndWhenTheChannelGoes) {
    Run(); // nobody hears of it
    Want("Properties");
    {
        Driver16 driver(kChannel, kPrinter, false, nullptr, true);
        Run();
        driver.Join();
        EXPECT_EQ(driver.ended, 0);
    }
    for (const char* unknown : {"No such printer", ""}) {
        registry_.SetString(Path("Printer"), unknown);
        Driver16 driver(kChannel, kPrinter, false, nullptr);
        Run();
        driver.Join();
        EXPECT_EQ(driver.ended, 1) << unknown;
    }
}

TEST(ConvertDialog, KeepsStylePlaceAndTextsOfEitherForm) {
    for (const bool extended : {false, true}) {
        DialogBuilder made(extended, WS_CHILD | WS_CAPTION, 1, 2, 300, 4, TEXT("Papier f\u00FCr"));
        made.Add(TEXT("Edit"), TEXT("text"), 7, 0, 1, 1, 1, 1);
        const std::vector<uint8_t>& whole = made.Bytes();
        char out[100] = {};
        const auto size = static_cast<int>(whole.size());
        const uint32_t length = ConvertDialog(whole.data(), size, nullptr, 0);
        ASSERT_LE(length, sizeof out);
        EXPECT_EQ(ConvertDialog(whole.data(), size, out, sizeof out), length);
        std::string expected("\x40\x00\xC0\x40\x00\x01\x00\x02\x00\x2C\x01\x04\x00\x00\x00", 15);
        expected += std::string(OString(TEXT("Papier f\u00FCr")).nstring()) + '\0';
        expected += std::string("\x08\x00MS Shell Dlg", 15);
        EXPECT_EQ(std::string(out, length), expected);
        // Nothing is written beyond the room, and nothing is made of an incomplete template.
        std::string room(20, '?');
        ConvertDialog(whole.data(), size, room.data(), 10);
        EXPECT_EQ(room, expected.substr(0, 10) + std::string(10, '?'));
        for (int part = 0; part < 40; ++part)
            EXPECT_EQ(ConvertDialog(whole.data(), part, out, sizeof out), 0u) << part;
    }
}
