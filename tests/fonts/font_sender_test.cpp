// Fonts on their way to the printer, up to the jobs waiting in the spooler.
#include "fonts/font_sender.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "core/fixed_text.h"
#include "model/record_text.h"
#include "printer/prtstream.h"
#include "support/job_test.h"
#include "ui/prtui.h"

namespace {

class FontSender : public JobTest {
protected:
    FontSender() {
        NeedRenderingModule();
        Install({.model = "Resolution=203\nStock.Default.X=4 in\nStock.Default.Y=6 in\n",
                 .font = "Download.TrueType=yes\nDownload.Bitmap=yes\n"
                         "Download.Bitmap.Orientation=0,90\n"});
        ui_.reset(prtui::new_ext());
        ui_->init(printer(), nullptr, 0);
    }

    static DownloadedFontInfo Font(uint16_t type, const char* characters) {
        DownloadedFontInfo font;
        font.type = type;
        font.point_size = 120;
        for (const char* c = characters; *c; ++c) font.characters[*c / 32] |= 1u << *c % 32;
        SetRecordText(font.info.display_name, "Sans");
        SetRecordText(font.info.file_name, "SANS.FNT");
        font.info.location[0] = 'E';
        font.info.identifier[0] = 'K';
        PutFixedText(font.font.lfFaceName, "DejaVu Sans", LF_FACESIZE);
        return font;
    }

    // Sends one font in a job and returns that.
    template <class Send>
    std::string JobOf(DownloadedFont& font, Send send, bool sent = true) {
        ui_->stream->StartJob("Font");
        EXPECT_EQ(send(font, *ui_->stream), sent);
        ui_->stream->EndJob();
        const auto jobs = TakeJobs();
        EXPECT_EQ(jobs.size(), 1u);
        return jobs.empty() ? "" : jobs[0].bytes;
    }

    std::unique_ptr<prtui> ui_;
};

std::string Hex(const void* data, size_t size) {
    OString hex;
    hex.Hex(data, static_cast<int>(size));
    return Text(hex);
}

const std::string kNamed = "^XA^CWK,E:SANS.FNT^FS^XZ\r\n";

} // namespace

TEST_F(FontSender, SendsPicturesInTheRotationsOfThePrinter) {
    DownloadedFont font(Font(DownloadedFont::BITMAP, "iI~"));
    const std::string job = JobOf(font, DownloadBitmapFont);
    EXPECT_EQ(font.info.height - font.info.internal_leading, 120 * 203 / 720);
    EXPECT_EQ(font.info.characters, 3u);

    const size_t upright = job.find("~DBE:SANS.FNT,N,"), turned = job.find("~DBE:SANS.FNT,R,");
    EXPECT_EQ(upright, 0u);
    ASSERT_NE(turned, std::string::npos);
    std::string codes;
    for (size_t at = job.find('#'); at != std::string::npos; at = job.find('#', at + 1))
        codes += job.substr(at + 1, 4) + (at > turned ? "r " : " ");
    EXPECT_EQ(codes, "0049 0069 007E 0049r 0069r 007Er ");
    EXPECT_EQ(job.substr(turned - kNamed.size(), kNamed.size()), kNamed);
    EXPECT_NE(job.find_first_of("123456789ABCDEF", job.find('#', turned) + 40), std::string::npos)
        << "there is ink";
    EXPECT_GT(font.info.data_size, 0u);
}

TEST_F(FontSender, SendsNothingOfWhatItCannotHave) {
    DownloadedFont none(Font(DownloadedFont::BITMAP, ""));
    EXPECT_EQ(JobOf(none, DownloadBitmapFont, false).find('#'), std::string::npos);
    DownloadedFont letter(Font(DownloadedFont::BITMAP, "A"));
    EXPECT_FALSE(DownloadBitmapFont(letter, *ui_->stream)) << "without a job";
    Replace({.model = "Resolution=203\n",
             .font = "Download.Bitmap=yes\n"
                     "Download.Bitmap.Orientation=90\n"});
    ui_->model = Model();
    EXPECT_EQ(JobOf(letter, DownloadBitmapFont).find(",N,"), std::string::npos);
}

TEST_F(FontSender, RefusesCharactersThatAreTooLargeBeforeAnythingIsSent) {
    Replace({.model = "Resolution=600\nStock.Default.X=4 in\nStock.Default.Y=6 in\n",
             .font = "Download.Bitmap=yes\nDownload.Bitmap.Orientation=0,90\n"});
    ui_.reset(prtui::new_ext());
    ui_->init(printer(), nullptr, 0);
    const struct {
        uint16_t point_size;
        const char* characters;
        FontSent sent;
    } cases[] = {{400, "iW", FontSent::SENT},
                 {1440, "i", FontSent::SENT},
                 {1440, "iW", FontSent::TOO_LARGE}};
    for (const auto& c : cases) {
        DownloadedFont font(Font(DownloadedFont::BITMAP, c.characters));
        font.point_size = c.point_size;
        font.status = DownloadedFont::MISSING;
        EXPECT_EQ(SendFont(font, *ui_->stream), c.sent) << c.point_size << c.characters;
        EXPECT_EQ(font.status == DownloadedFont::SENT, c.sent == FontSent::SENT);
        EXPECT_EQ(TakeJobs().size(), c.sent == FontSent::SENT ? 1u : 0u);
    }
}

TEST_F(FontSender, SendsAgainWhatMayBeMissing) {
    prtdttf_list fonts;
    for (const uint16_t status :
         {DownloadedFont::SENT, DownloadedFont::PRESENT, DownloadedFont::MISSING}) {
        auto* font = new DownloadedFont(Font(DownloadedFont::BITMAP, "A"));
        font->status = status;
        SetRecordText(font->info.display_name,
                      std::string(1, static_cast<char>('a' + status)).c_str());
        fonts.AddTail(font);
    }
    EXPECT_FALSE(ReDownloadAll(fonts, *ui_->stream, ui_->model.get()).too_large);
    std::string names;
    for (const auto& job : TakeJobs()) names += job.name + job.bytes.substr(0, 4);
    EXPECT_EQ(names, "a~DBEc~DBE");
    ui_->Settings_Load();
    EXPECT_EQ(Joined(ui_->fonts, [](const DownloadedFont& f) { return std::to_string(f.status); }),
              "0 0 0");
}

TEST(BitmapCharacters, AreUprightOrTurnedClockwise) {
    // An L of 10 by 3 pixels; its foot is on the right. Clear bits are ink; a row has 4 bytes.
    const unsigned char bits[] = {0x7F, 0xFF, 0, 0, 0x7F, 0xFF, 0, 0, 0x00, 0x3F, 0, 0};
    const GlyphPicture picture = {bits, 10, 3, 4};
    const struct {
        int advance;
        uint16_t rotation;
        const char* record; // from the code to the bytes of a row
        const char* rows;
    } cases[] = {
        {10, 0, "4C000A00030002000000060003000200", "80008000FFC0"},
        {3, 0, "4C000300030002000000030003000100", "8080E0"},
        {8, 0, "4C000800030002000000030003000100", "8080FF"},
        {12, 0, "4C000C00030002000000060003000200", "80008000FFC0"},
        {10, 1, "4C000A000300020001000A000A000100", "E0808080808080808080"},
        {12, 1, "4C000C000300020001000C000C000100",
         "E080808080808080808000"
         "00"},
        {0, 0, "4C000000030002000000000003000000", ""},
    };
    for (const auto& c : cases) {
        const auto glyph = BitmapCharacter('L', picture, c.advance, 2, c.rotation);
        ASSERT_GE(glyph.GetSize(), 16u);
        EXPECT_EQ(Hex(glyph.GetData(), 16), c.record) << c.advance;
        EXPECT_EQ(Hex(glyph.GetData() + 16, glyph.GetSize() - 16), c.rows) << c.advance;
    }
    EXPECT_EQ(BitmapCharacter('L', picture, 200000, 2, 0).GetSize(), 0u) << "too large to tell";
}
