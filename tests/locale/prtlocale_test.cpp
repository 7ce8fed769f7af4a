#include "locale/prtlocale.h"

#include <windows.h>
#include <winspool.h>

#include <win32host/control.h>

#include "keys/prtreg.h"
#include "model/prtmodel.h"
#include "spooler/driver_utility.h"
#include "spooler/printer_info.h"
#include "support/build_folders.h"
#include "support/printer_test.h"

#include <filesystem>
#include <memory>
#include <string>
#include <tuple>
#include <utility>

namespace {

using WideText = std::basic_string<WCHAR>;

// A printer whose driver has an English and a German library, and a list of dependent files with
// the German, the Japanese and the Russian one.
class LanguageLibraries : public PrinterTest {
protected:
    void SetUp() override {
        for (const char* file : {"zplqv.ddt", "zplui.dll"})
            WriteFile(std::string("install\\") + file, "");
        CopyLibrary("english.dll", "zplvenu.dll");
        for (const char* file : {"zplvdeu.dll", "zplvjpn.dll", "zplvrus.dll"})
            CopyLibrary("german.dll", file);

        WideText name = TEXT("Model"), driver = TEXT("C:\\install\\zplui.dll"),
                 data = TEXT("C:\\install\\zplqv.ddt");
        WideText dependent;
        for (const WCHAR* file :
             {TEXT("C:\\install\\ZPLVDEU.DLL"), TEXT("C:\\install\\zplvjpn.dll"),
              TEXT("C:\\install\\zplvrus.dll"), TEXT("C:\\install\\zplvenu.dll")})
            dependent.append(file).append(1, WCHAR{0});
        DRIVER_INFO_3W info = {};
        info.cVersion = 3;
        info.pName = name.data();
        info.pDriverPath = driver.data();
        info.pDataFile = data.data();
        info.pConfigFile = driver.data();
        info.pDependentFiles = dependent.data();
        ASSERT_TRUE(AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&info),
                                        APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY))
            << GetLastError();

        ASSERT_TRUE(AddPrinter("Dock", "Model")) << GetLastError();

        const PrinterInfo installed(OString("Dock"));
        // Stands for the module.
        const OString module = installed.GetDriverDirectory() + "\\module.dll";
        ASSERT_TRUE(CopyFileW(TEXT("C:\\install\\zplvenu.dll"), module.wstring(), TRUE));
        module_ = LoadLibraryW(module.tstring());
        ASSERT_NE(module_, nullptr);
        DriverUtility::SetModuleHandle(module_);
        folder_ = installed.GetDriverDirectory();
        model_.reset(prtmodel::new_ext(installed));
        reg_ = std::make_unique<prtreg>(OString("Dock"));
    }

    void TearDown() override {
        DriverUtility::SetModuleHandle(nullptr);
        if (module_) FreeLibrary(module_);
    }

    void CopyLibrary(const char* from, const char* to) const {
        WriteFile(std::string("install\\") + to, "");
        std::filesystem::copy_file(Built("/bin/test_data/locale/") + from,
                                   OnDriveC(std::string("install\\") + to),
                                   std::filesystem::copy_options::overwrite_existing);
    }

    void RemoveFromDriverFolder(const char* file) const {
        ASSERT_TRUE(DeleteFileW((folder_ + "\\" + file).tstring())) << file;
    }

    // Sets the system's language by its abbreviation.
    static void SetSystemLanguage(const WCHAR* abbreviation) {
        win32host::LocaleFacts facts;
        facts.abbreviation = abbreviation;
        win32host::SetLocaleFacts(facts);
    }

    OString folder_;
    std::unique_ptr<prtmodel> model_;
    std::unique_ptr<prtreg> reg_;

private:
    HMODULE module_ = nullptr;
};

TEST_F(LanguageLibraries, LoadTheSystemsLanguageWithEnglishBehindIt) {
    SetSystemLanguage(TEXT("DES"));
    prtlocale locale;
    ASSERT_TRUE(locale.Load(*reg_, model_.get()));
    EXPECT_STREQ(locale.GetUserLanguage(), "sys");
    EXPECT_STREQ(locale.GetCurrentLanguage(), "deu");
    EXPECT_EQ(locale.GetString(700), "Deutscher Text");
    EXPECT_EQ(locale.GetString(701), "Only in English");
    EXPECT_EQ(locale.GetString(799), "");
    EXPECT_EQ(locale.microns_to_string(12700), "12.7 mm");
    EXPECT_EQ(locale.dpi_to_string(203), "8.0 Punkte/mm");
    EXPECT_EQ(locale.GetSecondLabel(), "/Sek.");
    EXPECT_EQ(locale.GetHelpFile(), folder_ + "\\zplvenu.chm"); // there is no German one
}

TEST_F(LanguageLibraries, FindDialogsMenusAndBitmapsInTheFirstThatHasThem) {
    reg_->SetString("UserSettings:Language", "deu");
    prtlocale locale;
    ASSERT_TRUE(locale.Load(*reg_, model_.get()));
    for (const char* page : {"PAGE", "ENGLISH_PAGE"}) {
        uint32_t size = 0;
        EXPECT_NE(locale.GetDialog(page, &size), nullptr) << page;
        EXPECT_GT(size, 0u) << page;
    }
    EXPECT_NE(locale.GetDialog("PAGE", nullptr), nullptr);
    EXPECT_EQ(locale.GetDialog("NO_PAGE", nullptr), nullptr);

    for (const auto& [number, start] : {std::pair(900, "Bild"), std::pair(901, "Only")}) {
        const char* bitmap = static_cast<const char*>(locale.LockBitmap(number));
        ASSERT_NE(bitmap, nullptr) << number;
        EXPECT_EQ(std::string(bitmap, 4), start);
    }
    EXPECT_EQ(locale.LockBitmap(902), nullptr);

    EXPECT_NE(locale.GetMenu("INSERT"), nullptr);
    const HMENU menu = locale.LoadMenuW("INSERT");
    EXPECT_NE(menu, nullptr);
    DestroyMenu(menu);
    EXPECT_EQ(locale.LoadMenuW("NO_MENU"), nullptr);
}

TEST_F(LanguageLibraries, RememberTheUsersChoice) {
    prtlocale locale;
    ASSERT_TRUE(locale.Load(*reg_, model_.get()));
    EXPECT_TRUE(locale.SetNewLanguage(nullptr, "deu"));
    locale.SetNewUnits(prtlocale::CENTIMETRES);
    EXPECT_EQ(locale.microns_to_string(12700), "1.27 cm"); // at once
    EXPECT_EQ(locale.GetString(700), "English text");      // only after the next Load
    EXPECT_TRUE(locale.Save(*reg_));

    prtlocale later;
    ASSERT_TRUE(later.Load(*reg_, model_.get()));
    EXPECT_STREQ(later.GetUserLanguage(), "deu");
    EXPECT_EQ(later.GetUnits(), prtlocale::CENTIMETRES);
    EXPECT_EQ(later.GetString(700), "Deutscher Text");
    ASSERT_TRUE(locale.Load(*reg_, model_.get()));
    EXPECT_EQ(locale.GetString(700), "Deutscher Text");
}

TEST_F(LanguageLibraries, ReplaceALostOneByEnglishAndDoWithWhatIsLeft) {
    reg_->SetString("UserSettings:Language", "deu");
    RemoveFromDriverFolder("zplvdeu.dll");
    {
        prtlocale locale;
        EXPECT_TRUE(locale.Load(*reg_, model_.get()));
        EXPECT_EQ(locale.GetString(700), "English text");
    }
    reg_->SetString("UserSettings:Language", "rus");
    RemoveFromDriverFolder("zplvenu.dll");
    prtlocale locale;
    EXPECT_FALSE(locale.Load(*reg_, model_.get()));
    EXPECT_EQ(locale.GetString(700), "Deutscher Text"); // the library under the Russian name
    EXPECT_EQ(locale.GetString(701), "");
}

TEST_F(LanguageLibraries, CanBeUsedWhenTheDriverListsThemAndTheSystemHasTheCodePage) {
    EXPECT_TRUE(prtlocale::LanguageExists(model_.get(), "deu"));
    EXPECT_TRUE(prtlocale::LanguageExists(model_.get(), "jpn"));
    EXPECT_FALSE(prtlocale::LanguageExists(model_.get(), "fra"));
    EXPECT_FALSE(prtlocale::LanguageExists(nullptr, "deu"));
    win32host::SetMissingCodePages({932, 1252});
    EXPECT_FALSE(prtlocale::LanguageExists(model_.get(), "jpn"));
    EXPECT_TRUE(prtlocale::LanguageExists(model_.get(), "Enu"));
    EXPECT_TRUE(prtlocale::LanguageExists(nullptr, "enu"));
}

TEST_F(LanguageLibraries, AskBeforeALanguageThatTheSystemMayNotShow) {
    SetSystemLanguage(TEXT("DEU"));
    prtlocale locale;
    ASSERT_TRUE(locale.Load(*reg_, model_.get()));

    EXPECT_FALSE(locale.SetNewLanguage(nullptr, "rus")); // cancelled
    EXPECT_STREQ(locale.GetUserLanguage(), "sys");
    const auto boxes = win32host::TakeMessageBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, TEXT("Use it all the same?"));
    EXPECT_EQ(boxes[0].caption, TEXT("Russian"));
    EXPECT_EQ(boxes[0].type, UINT{MB_OKCANCEL});

    win32host::AnswerMessageBoxes(IDOK);
    EXPECT_TRUE(locale.SetNewLanguage(nullptr, "jpn"));
    EXPECT_STREQ(locale.GetUserLanguage(), "jpn");
    EXPECT_EQ(win32host::TakeMessageBoxes().size(), 1u);

    SetSystemLanguage(TEXT("RUS"));
    ASSERT_TRUE(locale.Load(*reg_, model_.get()));
    for (const char* language : {"rus", "deu", "fin", "sys", "enu"}) {
        EXPECT_TRUE(locale.SetNewLanguage(nullptr, language));
        EXPECT_STREQ(locale.GetUserLanguage(), language);
    }
    EXPECT_FALSE(locale.SetNewLanguage(nullptr, nullptr));
    EXPECT_TRUE(win32host::TakeMessageBoxes().empty()) << "the system's and the Western ones";
}

TEST_F(LanguageLibraries, SignsFollowTheCodePageOfTheLanguage) {
    const std::tuple<const char*, uint32_t, const WCHAR*, const WCHAR*, const WCHAR*> cases[] = {
        {"deu", 1252, TEXT("\u00A9"), TEXT("\u2122"), TEXT("\u00AE")},
        {"RUS", 1251, TEXT("\u00A9"), TEXT("\u2122"), TEXT("\u00AE")},
        {"jpn", 932, TEXT("(C)"), TEXT("(TM)"), TEXT("(R)")},
        {"tha", 874, TEXT("(C)"), TEXT("(TM)"), TEXT("(R)")},
        {"qqq", 0, TEXT("(C)"), TEXT("(TM)"), TEXT("(R)")}};
    for (const auto& [language, code_page, copyright, trademark, registered] : cases) {
        reg_->SetString("UserSettings:Language", language);
        prtlocale locale;
        locale.Load(*reg_, model_.get());
        EXPECT_EQ(locale.GetCurrentCP(), code_page) << language;
        EXPECT_EQ(WideText(locale.GetCopyright().tstring()), copyright) << language;
        EXPECT_EQ(WideText(locale.GetTrademark().tstring()), trademark) << language;
        EXPECT_EQ(WideText(locale.GetRegistered().tstring()), registered) << language;
    }
}

} // namespace
