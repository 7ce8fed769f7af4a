// ppVersion: which bar codes the printer has, and with which options.
#include <span>

#include "fonts/data_font_bar_code.h"
#include "locale/report_text_numbers.h"
#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "model/symbology_bits.h"
#include "model/symbology_info.h"
#include "pages/reports/pp_version.h"

namespace {

// One entry of a list of options: it applies if the bit is set.
struct BarCodeOption {
    uint32_t bit;
    UStringResource text;
};

constexpr int kRSSTypes = 7;

// A text that a language lacks leaves no comma at the end.
OString Listed(const OStringArray& texts) {
    OString list = texts.Join(", ");
    list.TrimRight(", ");
    return list;
}

OString ListOf(UDialog& dialog, std::span<const BarCodeOption> options, uint32_t bits) {
    OStringArray texts;
    for (const BarCodeOption& option : options)
        if (bits & option.bit) texts.Add(option.text.GetText(dialog));
    return Listed(texts);
}

// Adds the names of some types that follow each other, as do their bits.
void AddTypes(UDialog& dialog, OStringArray& texts, int first_text, int count, uint32_t first_bit,
              uint32_t bits) {
    for (int i = 0; i < count; ++i)
        if (bits & first_bit << i) texts.Add(dialog.GetString(first_text + i));
}

bool IsSupplemental(int symbology) {
    return symbology == SymbologyInfo::SUPPLEMENTAL_2 || symbology == SymbologyInfo::SUPPLEMENTAL_5;
}

} // namespace

void ppVersion::ShowBarCodes() {
    Tab(TEXT_INFO_BAR_CODES_TAB);
    OTypedArray<int> symbologies;
    DataFont_BarCode::EnumBarCodeSymbologies(symbologies);
    for (int i = 0; i < symbologies.GetSize(); ++i) ShowBarCode(symbologies[i]);
}

void ppVersion::ShowBarCode(int symbology) {
    const KVSymbologyData* const record = GetModel()->GetSymbologyData(symbology);
    if (!record) return;
    Info_Header(TEXT_FIRST_SYMBOLOGY + symbology);
    const uint32_t options = record->options;
    const bool is_supported = record->flags != 0 && !(symbology == SymbologyInfo::CODE39 &&
                                                      (options & CODE39_NO_FULL_ASCII));
    if (!is_supported) {
        Info_Item(TEXT_INFO_SUPPORTED, IsSupplemental(symbology) && (options & SUPPLEMENTAL_ANY)
                                           ? static_cast<int>(TEXT_INFO_AS_ANOTHER)
                                           : static_cast<int>(TEXT_NO));
        return;
    }
    Info_Item(TEXT_INFO_SUPPORTED, TEXT_YES);
    ShowBarCodeOptions(symbology, options);
    const BarCodeOption restrictions[] = {{METHOD_SERIALIZATION, TEXT_INFO_NOT_FOR_SERIALIZATION},
                                          {METHOD_VARIABLE_DATA, TEXT_INFO_NOT_FOR_VARIABLE_DATA},
                                          {METHOD_TEMPLATE_FILE, TEXT_INFO_NOT_FOR_TEMPLATES}};
    ItemIfAny(TEXT_INFO_NOT_FOR, ListOf(*this, restrictions, options));
}

void ppVersion::ShowBarCodeOptions(int symbology, uint32_t options) {
    const auto list = [&](int label, std::initializer_list<BarCodeOption> entries) {
        Info_Item(label, ListOf(*this, {entries.begin(), entries.size()}, options));
    };
    const auto yes_if = [&](int label, bool yes) { Info_Item(label, yes ? TEXT_YES : TEXT_NO); };
    switch (symbology) {
    case SymbologyInfo::CODE128: {
        // One bit says what there is, the other what there is not.
        const BarCodeOption sets[] = {{CODE128_NO_MANUAL, TEXT_INFO_MANUAL},
                                      {CODE128_AUTO, TEXT_AUTOMATIC}};
        Info_Item(TEXT_INFO_CODE_SETS, ListOf(*this, sets, options ^ CODE128_NO_MANUAL));
        break;
    }
    case SymbologyInfo::PDF417:
        yes_if(TEXT_INFO_TRUNCATION, !(options & PDF417_NOT_TRUNCATED));
        break;
    case SymbologyInfo::DATA_MATRIX: {
        OStringArray levels;
        uint32_t bit = DATA_MATRIX_ECC_000;
        for (const int quality : DataFont_BarCode::MATRIX_QUALITIES) {
            // As the makers write them, with three digits.
            OString level = quality < 10 ? "00" : quality < 100 ? "0" : "";
            if (options & bit) levels.Add(level << quality);
            bit <<= 1;
        }
        Info_Item("ECC", Listed(levels));
        break;
    }
    case SymbologyInfo::MAXICODE:
        list(TEXT_INFO_BAR_MODE, {{MAXICODE_MODE_2, "2"},
                                  {MAXICODE_MODE_3, "3"},
                                  {MAXICODE_MODE_4, "4"},
                                  {MAXICODE_MODE_5, "5"},
                                  {MAXICODE_MODE_6, "6"}});
        yes_if(TEXT_INFO_ZIPPER_BLOCK, options & MAXICODE_ZIPPER_BLOCK);
        yes_if(TEXT_INFO_CONTRAST_BLOCK, options & MAXICODE_CONTRAST_BLOCK);
        break;
    case SymbologyInfo::QR_CODE:
        list(TEXT_INFO_BAR_MODEL, {{QR_MODEL_1, "1"}, {QR_MODEL_2, "2"}});
        list(TEXT_INFO_BAR_MODE,
             {{QR_MODE_MANUAL, TEXT_INFO_MANUAL}, {QR_MODE_AUTO, TEXT_AUTOMATIC}});
        list(TEXT_INFO_MASK, {{QR_MASK_MANUAL, TEXT_INFO_MANUAL}, {QR_MASK_AUTO, TEXT_AUTOMATIC}});
        break;
    case SymbologyInfo::AZTEC:
        yes_if(TEXT_INFO_INVERSE, options & AZTEC_WHITE_ON_BLACK);
        list(TEXT_INFO_SYMBOL_TYPE, {{AZTEC_FINDER_AUTO, TEXT_AUTOMATIC},
                                     {AZTEC_FINDER_COMPACT, TEXT_COMPACT_AZTEC},
                                     {AZTEC_FINDER_FULL, TEXT_FULL_AZTEC}});
        break;
    case SymbologyInfo::RSS:
    case SymbologyInfo::COMPOSITE: {
        OStringArray types;
        AddTypes(*this, types, TEXT_FIRST_RSS, kRSSTypes, RSS_14, options);
        if (symbology == SymbologyInfo::COMPOSITE) {
            AddTypes(*this, types, TEXT_INFO_FIRST_UPC, 4, COMPOSITE_EAN_8, options);
            AddTypes(*this, types, TEXT_CC_A_OR_B, 2, COMPOSITE_128_CC_AB, options);
        }
        Info_Item("Types", Listed(types));
        break;
    }
    default:
        break;
    }
}
