// The fonts in a printer's memory, for programs without a user interface.
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "core/fixed_text.h"
#include "core/memory.h"
#include "driver/settings_handle.h"
#include "fonts/font_sender.h"
#include "fonts/font_settings.h"
#include "model/record_text.h"
#include "ui/prtui.h"
#include "zplui.h"

static_assert(DAL_FONT_FOUND == DownloadedFontInfo::FOUND);
static_assert(DAL_FONT_TRUETYPE == DownloadedFontInfo::TRUETYPE);
static_assert(DAL_FONT_BITMAP == DownloadedFontInfo::BITMAP);
static_assert(DAL_FONT_SENT == DownloadedFontInfo::SENT);
static_assert(DAL_FONT_PRESENT == DownloadedFontInfo::PRESENT);
static_assert(DAL_FONT_MISSING == DownloadedFontInfo::MISSING);
static_assert(DAL_CHARACTERS_ALL == ALL_CHARACTERS);

namespace {

// The selectable sizes, in tenths of a point.
constexpr DWORD kSmallestSize = 40, kLargestSize = 1440;

DAL_FONT Described(const DownloadedFont& font) {
    DAL_FONT described = {};
    described.kind = font.type;
    described.status = font.status;
    if (font.type == DownloadedFont::BITMAP) {
        described.point_size = font.point_size;
        described.characters = font.subset ? font.subset : ALL_CHARACTERS;
    }
    described.bytes = font.info.data_size;
    described.memory = static_cast<unsigned char>(font.info.location[0]);
    described.identifier = static_cast<unsigned char>(font.info.identifier[0]);
    PutFixedText(described.file, font.GetFileName(), sizeof described.file / sizeof(WCHAR));
    PutFixedText(described.name, font.GetDisplayName(), sizeof described.name / sizeof(WCHAR));
    described.font = font.font;
    return described;
}

// Completes the description of a font. False if the system would show another font in its place.
bool FindSystemFont(LOGFONTW& font) {
    const HDC dc = ::CreateCompatibleDC(nullptr);
    if (!dc) return false;
    WCHAR family[LF_FACESIZE] = {};
    TEXTMETRICW metrics = {};
    bool found = false;
    if (const HFONT made = ::CreateFontIndirectW(&font)) {
        const HGDIOBJ before = ::SelectObject(dc, made);
        found = ::GetTextFaceW(dc, LF_FACESIZE, family) > 0 && ::GetTextMetricsW(dc, &metrics);
        ::SelectObject(dc, before);
        ::DeleteObject(made);
    }
    ::DeleteDC(dc);
    if (!found || OString(family).CompareNoCase(OString(font.lfFaceName)) != 0) return false;
    font.lfPitchAndFamily = metrics.tmPitchAndFamily & 0xF0;
    return true;
}

// The option of a memory, or the first option for 0. -1 if there is none.
int OptionOf(WCHAR memory, const CFontSettings& settings) {
    if (!memory) return settings.option_letters.GetSize() ? 0 : -1;
    for (int i = 0; i < settings.option_letters.GetSize(); ++i)
        if (static_cast<unsigned char>(settings.option_letters[i]) == memory) return i;
    return -1;
}

// Only these characters are allowed in a file's name: others would end the printer's commands.
bool IsFileName(const OString& name) {
    const char* text = name.nstring();
    return std::all_of(text, text + std::strlen(text), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
               c == '_';
    });
}

DownloadedFont* FindFile(const prtdttf_list& fonts, const DownloadedFontInfo& file) {
    for (DownloadedFont* font = fonts.GetNext(nullptr); font; font = fonts.GetNext(font))
        if (font->info.location[0] == file.info.location[0] &&
            font->GetFileName().CompareNoCase(file.GetFileName()) == 0)
            return font;
    return nullptr;
}

bool IsKind(DWORD kind, const prtmodel& model) {
    FontDownloadKind kinds[2];
    const int count = GetDownloadKinds(model, kinds);
    return std::any_of(kinds, kinds + count,
                       [kind](const FontDownloadKind& known) { return known.type == kind; });
}

// Makes the choices that a user would have made for the font. False if it cannot be made.
bool Choose(const DAL_FONT& wanted, const prtui& ui, const CFontSettings& settings,
            FontChoices& choices) {
    if (!IsKind(wanted.kind, *ui.model)) return false;
    choices.type = static_cast<DownloadedFontInfo::Type>(wanted.kind);
    choices.font = wanted.font;
    choices.font.lfFaceName[LF_FACESIZE - 1] = 0;
    if (!FindSystemFont(choices.font)) return false;
    choices.option = OptionOf(wanted.memory, settings);
    if (choices.option < 0) return false;
    OString size;
    if (wanted.kind == DAL_FONT_BITMAP) {
        if (wanted.point_size < kSmallestSize || wanted.point_size > kLargestSize) return false;
        choices.point_size = static_cast<uint16_t>(wanted.point_size);
        size << choices.point_size / 10;
        if (wanted.characters) {
            choices.subset = static_cast<uint16_t>(wanted.characters);
            if (FindCharMask(choices.subset).text != wanted.characters) return false;
        }
    }
    WCHAR file[sizeof wanted.file / sizeof(WCHAR)];
    std::memcpy(file, wanted.file, sizeof file);
    file[sizeof file / sizeof *file - 1] = 0;
    choices.file_name = OString(file);
    if (choices.file_name.IsEmpty())
        choices.file_name = SuggestedFileName(choices.font, size, settings.longest_name, ui.fonts);
    return IsFileName(choices.file_name);
}

bool Stored(prtui& ui) {
    return ui.fonts.Save(ui.model.get()) != SaveResult::FAILED;
}

} // namespace

int WINAPI DAL_Fonts_List(HANDLE settings, DAL_FONT* fonts, int count) {
    const prtui* ui = PrinterOf(settings);
    if (!ui) return 0;
    int index = 0;
    for (const auto* font = ui->fonts.GetNext(nullptr); font; font = ui->fonts.GetNext(font)) {
        if (fonts && index < count) fonts[index] = Described(*font);
        ++index;
    }
    return index;
}

BOOL WINAPI DAL_Fonts_Verify(HANDLE settings) {
    prtui* ui = ChangeablePrinterOf(settings);
    if (!ui || !ui->EnableVerifyFonts(*ui->stream)) return FALSE;
    prtdttf_list before;
    before = ui->fonts;
    if (!ui->VerifyFonts(nullptr)) {
        ui->fonts = before; // nobody knows that they are missing
        return FALSE;
    }
    return Stored(*ui);
}

BOOL WINAPI DAL_Fonts_Resend(HANDLE settings) {
    prtui* ui = ChangeablePrinterOf(settings);
    if (!ui) return FALSE;
    const ReDownloadResult result = ReDownloadAll(ui->fonts, *ui->stream, ui->model.get());
    if (result.too_large) SetLastError(ERROR_BAD_LENGTH);
    return !result.too_large && result.saved != SaveResult::FAILED;
}

BOOL WINAPI DAL_Font_Download(HANDLE settings, DAL_FONT* font) {
    prtui* ui = ChangeablePrinterOf(settings);
    if (!ui || !font) return FALSE;
    CFontSettings questions(ui->model.get());
    ui->ChooseFontSettings(&questions);
    FontChoices choices;
    if (!Choose(*font, *ui, questions, choices)) return FALSE;
    std::unique_ptr<DownloadedFont> made(new (kCounted)
                                             DownloadedFont(ChosenFont(questions, choices)));
    if (!made) return FALSE;
    ui->AdjustFontInfo(made.get());
    const FontSent sent = SendFont(*made, *ui->stream);
    if (sent == FontSent::TOO_LARGE) SetLastError(ERROR_BAD_LENGTH);
    if (sent != FontSent::SENT) return FALSE;

    // It has replaced another file of that name in the printer.
    delete FindFile(ui->fonts, *made);
    *font = Described(*made);
    ui->fonts.AddTail(made.release());
    return Stored(*ui);
}

BOOL WINAPI DAL_Font_Delete(HANDLE settings, int index) {
    prtui* ui = ChangeablePrinterOf(settings);
    if (!ui || index < 0) return FALSE;
    DownloadedFont* font = ui->fonts.GetNext(nullptr);
    while (font && index-- > 0) font = ui->fonts.GetNext(font);
    if (!font) return FALSE;
    font->Erase(ui->stream);
    delete font;
    return Stored(*ui);
}
