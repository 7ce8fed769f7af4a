// Any bytes as the stored records of downloaded fonts, and as a printer's list of its font files:
// what is loaded is stored again unchanged, and the name suggested for a new font is free.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/fixed_text.h"
#include "fonts/font_settings.h"
#include "fonts/prtdttf_list.h"
#include "fuzz_host.h"
#include "input.h"
#include "keys/prtreg.h"
#include "target.h"
#include "zpl/font_files.h"
#include "zpl/host_lists.h"

namespace {

// All of them, one after the other.
std::string RecordsOf(const prtdttf_list& fonts) {
    std::string records;
    const auto add = [&records](const auto& member) {
        records.append(reinterpret_cast<const char*>(&member), sizeof member);
    };
    for (const auto* font = fonts.GetNext(nullptr); font; font = fonts.GetNext(font)) {
        add(font->type);
        add(font->status);
        add(font->point_size);
        add(font->subset);
        add(font->characters);
        add(font->info);
        add(font->font);
    }
    return records;
}

} // namespace

FUZZ_TARGET(downloaded_fonts)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    prtreg registry(host.Model()->GetRegistry());
    Input input(data, size);

    // Values with any of the names in use, of any type and size.
    constexpr const char* kNames[] = {"Type",          "Status",   "Point Size", "Character Subset",
                                      "Characters",    "FontInfo", "Italic",     "Face Name",
                                      "Character Set", "Weight"};
    registry.Delete("DATA:Downloaded Fonts", true);
    registry.SetDWORD("Fonts:Downloaded Font Total", static_cast<uint32_t>(input.Number() % 8));
    for (size_t count = input.Number() % 32; count > 0; --count) {
        const auto index = static_cast<int>(input.Number() % 8);
        const char* name = kNames[input.Number() % std::size(kNames)];
        const auto type = static_cast<uint32_t>(input.Number() % 8);
        const std::string value = input.Text(input.Number());
        registry.SetData(OString("Fonts:") << DownloadedFont::KeyName(index) << name, value.data(),
                         static_cast<uint32_t>(value.size()), type);
    }
    prtdttf_list fonts, again;
    fonts.Load(host.Model());
    fonts.AddTail(new DownloadedFont);
    Check(fonts.Save(host.Model()) == SaveResult::STORED);
    again.Load(host.Model());
    Check(RecordsOf(fonts) == RecordsOf(again));

    const std::string face = input.Text(40), rest = input.Rest();
    OStringArray files;
    ReadFileList(rest.data(), static_cast<uint32_t>(rest.size()), files);
    MatchFontFiles(files, "Unknown font", fonts);
    LOGFONTW font = {};
    std::memcpy(font.lfFaceName, face.data(), face.size());
    Check(!fonts.UsesName(SuggestedFileName(font, OString(rest.c_str()), 8, fonts)));
    const char identifier = FreeFontIdentifier(fonts);
    Check(identifier == 'I' || !fonts.UsesIdentifier(identifier));
    return 0;
}
