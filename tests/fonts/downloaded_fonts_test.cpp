// Downloaded fonts: their stored form, and the choices of a download.
#include <cstring>

#include "core/fixed_text.h"
#include "fonts/char_masks.h"
#include "fonts/font_settings.h"
#include "fonts/prtdttf_list.h"
#include "model/record_text.h"
#include "support/model_test.h"

namespace {

class DownloadedFonts : public ModelTest {
protected:
    DownloadedFonts() {
        Install({});
        model_ = Model();
    }

    DownloadedFont* Add(const char* file_name, char identifier = 'I') {
        auto* font = new DownloadedFont;
        SetRecordText(font->info.file_name, file_name);
        font->info.identifier[0] = identifier;
        fonts_.AddTail(font);
        return font;
    }

    static size_t Count(const prtdttf_list& fonts) {
        return (Joined(fonts, [](const DownloadedFont&) { return std::string("x"); }).size() + 1) /
               2;
    }

    std::unique_ptr<extmodel> model_;
    prtdttf_list fonts_;
};

LOGFONTW Face(const char* name, LONG weight, BYTE family, bool italic = false) {
    LOGFONTW font = {};
    PutFixedText(font.lfFaceName, name, LF_FACESIZE);
    font.lfWeight = weight;
    font.lfPitchAndFamily = static_cast<BYTE>(family | VARIABLE_PITCH);
    font.lfItalic = italic;
    return font;
}

} // namespace

TEST_F(DownloadedFonts, ComeBackFromTheRegistryInTheirOrder) {
    for (int i = 0; i < 12; ++i) Add(("FILE" + std::to_string(i) + ".FNT").c_str());
    DownloadedFont& font = *Add("ARIALBFW.FNT", 'K');
    font.type = DownloadedFont::BITMAP;
    font.status = DownloadedFont::MISSING;
    font.point_size = 125;
    font.subset = 1911;
    font.characters[7] = 0x80000001;
    std::memset(font.info.identifier + 2, 0x5A, 10);
    font.info.characters = 7;
    font.font = Face("Arial \xE9", -700, FF_SWISS, true);
    font.font.lfCharSet = RUSSIAN_CHARSET;
    fonts_.GetNext(nullptr)->status = DownloadedFont::PRESENT;
    EXPECT_EQ(fonts_.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(Registry().GetDWORD("Fonts:Downloaded Font 13:: Point Size", 0), 125u);
    EXPECT_EQ(Registry().GetDWORD("DATA:Downloaded Fonts/Downloaded Font Total", 0), 13u);

    prtdttf_list loaded, copy;
    loaded.AddTail(new DownloadedFont);
    loaded.Load(model_.get());
    ASSERT_EQ(Count(loaded), 13u);

    // Changes that others have stored meanwhile stay unless something changes here.
    copy = loaded;
    Registry().SetDWORD("Fonts:Downloaded Font Total", 1);
    EXPECT_EQ(copy.Save(model_.get()), SaveResult::UNCHANGED);
    copy.GetNext(nullptr)->font.lfFaceName[0] = 0x416;
    EXPECT_EQ(copy.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(Registry().GetDWORD("Fonts:Downloaded Font Total", 0), 13u);
    EXPECT_EQ(loaded.GetNext(nullptr)->status, DownloadedFont::SENT) << "nobody has looked since";
    EXPECT_EQ(Text(loaded.GetNext(nullptr)->GetFileName()), "FILE0.FNT");
    const auto& last = *static_cast<DownloadedFont*>(loaded.GetTail());
    EXPECT_EQ(last.GetCRC32(0), font.GetCRC32(0)) << "all that is stored";
    EXPECT_EQ(last.font.lfWeight, 0x10000 - 700) << "16 bits are kept";
    EXPECT_TRUE(last.IsCharacterDownloaded('\xFF') && last.IsCharacterDownloaded('\xE0'));
    EXPECT_FALSE(last.IsCharacterDownloaded('\xE1') || last.IsCharacterDownloaded(' '));
}

TEST_F(DownloadedFonts, LoadWhatADamagedRegistryStillHas) {
    Add("ONE.FNT");
    Add("TWO.FNT");
    EXPECT_EQ(fonts_.Save(model_.get()), SaveResult::STORED);
    prtreg registry = Registry();
    registry.SetDWORD("Fonts:Downloaded Font Total", 0xFFFFFFFF);
    registry.SetBinary("Fonts:Downloaded Font 01:: FontInfo", std::string(201, 'x').data(), 201);
    registry.SetBinary("Fonts:Downloaded Font 02:: FontInfo", std::string(64, 'x').data(), 64);
    prtdttf_list loaded;
    loaded.Load(model_.get());
    ASSERT_EQ(Count(loaded), 2u) << "numbers without a font are left out";
    EXPECT_EQ(Text(loaded.GetNext(nullptr)->GetDisplayName()), "") << "a record of no known size";
    EXPECT_EQ(Text(static_cast<DownloadedFont*>(loaded.GetTail())->GetDisplayName()),
              std::string(64, 'x'));
}

TEST_F(DownloadedFonts, AreNamedAfterTheirFaceAndNotLikeAnother) {
    const LOGFONTW arial = Face("Arial", 700, FF_SWISS);
    const struct {
        LOGFONTW font;
        const char* size;
        int longest;
        std::vector<const char*> taken;
        const char* name;
    } cases[] = {
        {arial, "", 8, {}, "ARIALBFW"},
        {arial, "", 8, {" ARIALBFW .FNT"}, "ARIABFW2"},
        {arial, "", 8, {"ARIALBFW.FNT", "ARIABFW2.FNT"}, "ARIABFW3"},
        {arial, "12", 8, {}, "ARI12BFW"},
        {arial, "10.5", 8, {}, "AR10.BFW"},
        {Face("Courier New 9", 400, FF_MODERN, true), "", 32, {}, "COURIERNEWRIFM"},
        {Face("MS \xC9glise", 1000, FF_DONTCARE), "", 8, {}, "MSGLISE"},
        {Face("Times", 900, FF_ROMAN, true), "144", 4, {}, "144HBIFR"},
        {Face("", 150, 0x70), "", 8, {".FNT"}, "2"},
        {Face("A", 200, FF_DECORATIVE), "", 8, {}, "AELFD"},
    };
    for (const auto& c : cases) {
        fonts_.Clear();
        for (const char* name : c.taken) Add(name);
        EXPECT_EQ(Text(SuggestedFileName(c.font, c.size, c.longest, fonts_)), c.name);
    }
}

TEST_F(DownloadedFonts, KeepNumbersWithinTheirRange) {
    CFontSettings settings(nullptr);
    EXPECT_EQ(Text(settings.IdentifierLabel()), "(101 - 999)");
    EXPECT_EQ(settings.IdentifierDigits(), 3);
    const std::pair<const char*, int32_t> cases[] = {
        {"", 101}, {"-5", 101}, {"500", 500}, {"1000", 999}};
    for (const auto& [text, number] : cases) EXPECT_EQ(settings.ValidIdentifier(text), number);
}

TEST_F(DownloadedFonts, ShowWhatAnOptionWouldReplace) {
    CFontSettings settings(nullptr);
    settings.AddOption("Memory card", 'B');
    settings.AddOption("Flash", 'E');
    DownloadedFont* font = Add("ARIAL.FNT");
    SetRecordText(font->info.display_name, "Arial");
    font->info.location[0] = 'E';
    EXPECT_EQ(Text(settings.OptionText(0, fonts_)), "Memory card");
    EXPECT_EQ(Text(settings.OptionText(1, fonts_)), "Flash - Arial");
    EXPECT_EQ(settings.ExistingFont(1, fonts_), font);
    EXPECT_EQ(settings.ExistingFont(-1, fonts_), nullptr);
    EXPECT_EQ(settings.ExistingFont(2, fonts_), nullptr);
    settings.check_existing = false;
    EXPECT_EQ(Text(settings.OptionText(1, fonts_)), "Flash");
}

TEST_F(DownloadedFonts, TakeOverTheChoices) {
    CFontSettings settings(nullptr);
    settings.AddOption("Flash", 'E');
    settings.longest_name = 8;
    FontChoices choices;
    choices.font = Face("Arial", 700, FF_SWISS);
    choices.font.lfCharSet = GREEK_CHARSET;
    choices.style = "Bold";
    choices.point_size = 120;
    choices.option = 0;
    choices.file_name = "ARIALBFW9";
    choices.identifier = "7";
    const struct {
        CFontSettings::IdentifierMode mode;
        bool use_name;
        uint16_t subset;
        const char* chosen; // file, identifier and location
        int stored_subset;
        BYTE charset;
    } cases[] = {
        {CFontSettings::NUMBER, false, ALL_CHARACTERS, ",101,", 0, GREEK_CHARSET},
        {CFontSettings::OPTION, true, 1911, "ARIALBFW,,E", 1911, DEFAULT_CHARSET},
        {CFontSettings::NAME, false, 1915, "ARIALBFW,,", 1915, DEFAULT_CHARSET},
    };
    for (const auto& c : cases) {
        settings.identifier_mode = c.mode;
        settings.use_name = c.use_name;
        choices.subset = c.subset;
        const DownloadedFontInfo font = ChosenFont(settings, choices);
        EXPECT_EQ(Text(font.GetDisplayName() + "," + font.GetFileName() + "," +
                       font.info.identifier + "," + font.GetLocation()),
                  std::string("Arial Bold,") + c.chosen);
        EXPECT_EQ(NumberList({font.subset, font.font.lfCharSet, font.point_size}),
                  NumberList({c.stored_subset, c.charset, 120}));
        EXPECT_EQ(font.IsCharacterDownloaded('A'), c.subset != 1915);
    }
}
