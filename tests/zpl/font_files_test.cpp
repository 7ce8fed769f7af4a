// Downloaded fonts in a ZPL II printer: letters, memories, and the printer's list.
#include "zpl/font_files.h"

#include "fonts/font_settings.h"
#include "model/record_text.h"
#include "support/job_test.h"

namespace {

DownloadedFont* Add(prtdttf_list& fonts, char identifier, const char* location = "E",
                    const char* file_name = "") {
    auto* font = new DownloadedFont;
    font->info.identifier[0] = identifier;
    SetRecordText(font->info.location, location);
    SetRecordText(font->info.file_name, file_name);
    fonts.AddTail(font);
    return font;
}

class FontFiles : public JobTest {};

} // namespace

TEST(FontFileLists, TellWhatIsPresentAndAddWhatIsNew) {
    prtdttf_list fonts;
    Add(fonts, 'I', "E", "ARIAL.FNT");
    Add(fonts, 'J', "R", "ARIAL.FNT");
    Add(fonts, 'K', "E", "GONE.FNT")->status = DownloadedFont::PRESENT;
    OStringArray files;
    for (const char* file : {"E:Arial.fnt;100;  ", "Z:A.FNT;20;0  ", "B:NEW.FNT;4711;Q1 ",
                             "b:new.FNT;4711;Q1 ", "R:SHORT.FNT;1", "R:ARIAL.FNT;100;  "})
        files.Add(file);
    fonts.SetAllNotPresent();
    MatchFontFiles(files, "Unknown", fonts);
    std::string all;
    for (auto* font = fonts.GetNext(nullptr); font; font = fonts.GetNext(font))
        all += Text(font->GetLocation() + ":" + font->GetFileName().nstring()) + "," +
               std::string(font->info.identifier) + "," + std::to_string(font->status) + " ";
    EXPECT_EQ(all, "E:ARIAL.FNT,I,1 R:ARIAL.FNT,J,2 E:GONE.FNT,K,2 B:NEW.FNT,Q,1 ");
    const auto& added = *static_cast<DownloadedFont*>(fonts.GetTail());
    EXPECT_EQ(added.type, DownloadedFont::FOUND);
    EXPECT_EQ(added.info.data_size, 4711u);
    EXPECT_EQ(Text(added.GetDisplayName()), "Unknown");
}

TEST_F(FontFiles, GoWhereTheUserChoosesUnderALetterOfTheirOwn) {
    Install({.model = "Resolution=203\n",
             .font = "Download.TrueType=yes\n",
             .features = "~Memory.Options=B,E,Q\n~Memory.DefaultLocation=E\n"});
    const auto ui = OpenUI();

    CFontSettings settings(ui->model.get());
    ui->ChooseFontSettings(&settings);
    EXPECT_EQ(std::string(settings.option_letters.GetData(), 4), "EBQR");
    EXPECT_EQ(settings.option_letters.GetSize(), 4);
    EXPECT_EQ(Text(settings.option_texts[2]), "Q") << "no text for that one";
    EXPECT_EQ(settings.identifier_mode, CFontSettings::OPTION);
    EXPECT_TRUE(settings.use_name);
    EXPECT_EQ(settings.longest_name, 8);
    EXPECT_FALSE(settings.check_existing);

    prtdttf_list stored;
    Add(stored, 'I');
    Add(stored, 'J');
    EXPECT_EQ(stored.Save(ui->model.get()), SaveResult::STORED);
    const struct {
        const char *name, *file;
    } cases[] = {{"ARIALBFW", "ARIALBFW.FNT"},
                 {"", ".FNT"},
                 {"ABCDEFGHIJKLMNOPQRSTUVWXYZABCDE", "ABCDEFGHIJKLMNOPQRSTUVWXYZA.FNT"}};
    for (const auto& c : cases) {
        DownloadedFontInfo font;
        SetRecordText(font.info.file_name, c.name);
        SetRecordText(font.info.identifier, "old");
        ui->AdjustFontInfo(&font);
        EXPECT_EQ(Text(font.GetFileName()), c.file);
        EXPECT_STREQ(font.info.identifier, "K");
    }

    EXPECT_FALSE(ui->VerifyFonts(nullptr)) << "nobody answers";
    for (auto* font = ui->fonts.GetNext(nullptr); font; font = ui->fonts.GetNext(font))
        EXPECT_EQ(font->status, DownloadedFont::MISSING);
}
