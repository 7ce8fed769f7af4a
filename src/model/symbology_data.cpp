// The symbology records: how ModelCore reads the table BarCode.
#include "model/model_core.h"
#include "model/record_text.h"
#include "model/symbology_bits.h"

uint32_t ModelCore::ListBits(const OString& key, const Bit* bits, size_t count) {
    OStringArray words;
    GetStringArray(key, words);
    uint32_t found = 0;
    for (int i = 0; i < words.GetSize(); ++i)
        for (size_t k = 0; k < count; ++k)
            if (words[i] == bits[k].text) found |= bits[k].bits;
    return found;
}

template <size_t N>
uint32_t ModelCore::ListBits(const OString& key, const Bit (&bits)[N]) {
    return ListBits(key, bits, N);
}

uint32_t ModelCore::TrueBit(const OString& key, uint32_t bit) {
    return GetBool(key, false) ? bit : 0;
}

uint32_t ModelCore::FalseBit(const OString& key, uint32_t bit) {
    return bit - TrueBit(key, bit);
}

void ModelCore::SymbologyData_Create(KVSymbologyData* record, int number) {
    UseTable(BARCODE);
    // Both variants of Code 39 are one symbology to the printer: their records are the same.
    const bool variant = number == SymbologyInfo::CODE39_VARIANT;
    const SymbologyInfo info(variant ? SymbologyInfo::CODE39 : number);
    const bool supported = CommonSymbologyData_Create(record, info);

    // The ways of attaching it to another symbology's code are told even if it cannot stand alone.
    if (number == SymbologyInfo::SUPPLEMENTAL_2 || number == SymbologyInfo::SUPPLEMENTAL_5)
        SupplementalData_Create(record, info);
    if (!supported) return;
    switch (number) {
    case SymbologyInfo::CODE39:
    case SymbologyInfo::CODE39_VARIANT:
        Code39Data_Create(record, info);
        break;
    case SymbologyInfo::CODE93:
        Code93Data_Create(record, info);
        break;
    case SymbologyInfo::CODE128:
        Code128Data_Create(record, info);
        break;
    case SymbologyInfo::CODABAR:
        CodabarData_Create(record, info);
        break;
    case SymbologyInfo::INTERLEAVED_2_OF_5:
    case SymbologyInfo::MSI:
        MSIData_Create(record, info);
        break;
    case SymbologyInfo::UPC_A:
    case SymbologyInfo::UPC_E:
    case SymbologyInfo::EAN_13:
    case SymbologyInfo::EAN_8:
        UPC_EANData_Create(record, info);
        break;
    case SymbologyInfo::PDF417:
        PDF417Data_Create(record, info);
        break;
    case SymbologyInfo::DATA_MATRIX:
        DataMatrixData_Create(record, info);
        break;
    case SymbologyInfo::MAXICODE:
        MaxiCodeData_Create(record, info);
        break;
    case SymbologyInfo::QR_CODE:
        QRCodeData_Create(record, info);
        break;
    case SymbologyInfo::JAPAN_POST:
        JapanPostData_Create(record, info);
        break;
    case SymbologyInfo::CODABLOCK:
        CodablockData_Create(record, info);
        break;
    case SymbologyInfo::MICRO_PDF417:
        MicroPDF417Data_Create(record, info);
        break;
    case SymbologyInfo::AZTEC:
        AztecData_Create(record, info);
        break;
    case SymbologyInfo::RSS:
        RSSData_Create(record, info);
        break;
    case SymbologyInfo::COMPOSITE:
        CompositeData_Create(record, info);
        break;
    case SymbologyInfo::TELEPEN:
        TelepenData_Create(record, info);
        break;
    default:
        break;
    }
}

bool ModelCore::CommonSymbologyData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    if (!GetBool(info.GetName(), false)) return false;
    record->flags = KVSymbologyData::SUPPORTED;
    if (GetBool(info.CreateKey("Color"), false))
        record->flags = KVSymbologyData::SUPPORTED | KVSymbologyData::COLOR;

    static const Bit methods[] = {{"Serialization", METHOD_SERIALIZATION},
                                  {"VariableData", METHOD_VARIABLE_DATA},
                                  {"Static", METHOD_STATIC},
                                  {"TemplateFile", METHOD_TEMPLATE_FILE}};
    record->options |= ListBits(info.CreateKey("RestrictedMethods"), methods);

    if (info.Ratios_Supported()) {
        static const Bit ratios[] = {
            {"Variable", RATIO_VARIABLE}, {"2:1", RATIO_2_1},   {"11:5", RATIO_11_5},
            {"9:4", RATIO_9_4},           {"7:3", RATIO_7_3},   {"12:5", RATIO_12_5},
            {"5:2", RATIO_5_2},           {"13:5", RATIO_13_5}, {"8:3", RATIO_8_3},
            {"11:4", RATIO_11_4},         {"14:5", RATIO_14_5}, {"3:1", RATIO_3_1}};
        record->options |= ListBits(info.CreateKey("Ratio"), ratios);
    }
    HR_Create(record, info);
    return true;
}

void ModelCore::HR_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    if (!info.HR_Supported()) return;
    const OString mode = GetString(info.CreateKey("HR"), "");
    record->hr_mode = mode == "On,Off" ? KVSymbologyData::HR_OPTIONAL
                      : mode == "On"   ? KVSymbologyData::HR_ALWAYS
                                       : KVSymbologyData::HR_NONE;
    if (record->hr_mode == KVSymbologyData::HR_NONE) return;

    static const Bit offset[] = {{"Vertical", HR_OFFSET_VERTICAL},
                                 {"Horizontal", HR_OFFSET_HORIZONTAL}};
    static const Bit placement[] = {{"Above", HR_ABOVE}, {"Below", HR_BELOW}};
    static const Bit alignment[] = {
        {"Left", HR_LEFT}, {"Right", HR_RIGHT}, {"Center", HR_CENTER}, {"Bar", HR_BAR}};
    static const Bit check_digit[] = {{"Show", HR_CHECK_DIGIT_SHOW}, {"Hide", HR_CHECK_DIGIT_HIDE}};
    static const Bit start_stop[] = {{"Show", HR_START_STOP_SHOW}, {"Hide", HR_START_STOP_HIDE}};
    record->hr_bits |= ListBits(info.CreateKey("HR.Offset"), offset);
    record->hr_bits |= ListBits(info.CreateKey("HR.Placement"), placement);
    record->hr_bits |= ListBits(info.CreateKey("HR.Alignment"), alignment);
    if (info.ShowCheckDigit_Supported())
        record->hr_bits |= ListBits(info.CreateKey("HR.CheckDigit"), check_digit);
    record->hr_bits |= ListBits(info.CreateKey("HR.StartStop"), start_stop);
    record->hr_bits |= TrueBit(info.CreateKey("HR.Font.Select"), HR_FONT_SELECT);

    const OString font = GetString(info.CreateKey("HR.Font.Name"), "");
    if (!font.IsEmpty()) {
        SetRecordText(record->font_name, FontName(font));
        record->font_size = static_cast<uint16_t>(GetInt(info.CreateKey("HR.Font.Size"), 0));
        record->font_weight = static_cast<uint16_t>(GetInt(info.CreateKey("HR.Font.Weight"), 400));
    }
}

// ---- One symbology family each ------------------------------------------------------------------

void ModelCore::Code39Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit translation[] = {{"On", HR_TRANSLATION_ON}, {"Off", HR_TRANSLATION_OFF}};
    record->options |= FalseBit(info.CreateKey("FullASCII"), CODE39_NO_FULL_ASCII);
    record->options |= TrueBit(info.CreateKey("StartStop.Required"), CODE39_START_STOP_REQUIRED);
    record->options |= TrueBit(info.CreateKey("CheckDigit.Required"), CODE39_CHECK_DIGIT_REQUIRED);
    record->options |= TrueBit(info.CreateKey("StartStop.Variable"), CODE39_START_STOP_VARIABLE);
    record->hr_bits |= ListBits(info.CreateKey("HR.Translation"), translation);
}

void ModelCore::Code93Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    record->options |= FalseBit(info.CreateKey("FullASCII"), CODE39_NO_FULL_ASCII);
}

void ModelCore::Code128Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit encoding[] = {{"Auto", CODE128_AUTO}, {"Manual", CODE128_NO_MANUAL}};
    record->options |= ListBits(info.CreateKey("Encoding"), encoding) ^ CODE128_NO_MANUAL;
}

void ModelCore::CodabarData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    record->options |= TrueBit(info.CreateKey("StartStop.Required"), CODABAR_START_STOP_REQUIRED);
    record->options |= TrueBit(info.CreateKey("StartStop.Uppercase"), CODABAR_UPPERCASE);
}

void ModelCore::MSIData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    record->options |= TrueBit(info.CreateKey("CheckDigit.Required"), MSI_CHECK_DIGIT_REQUIRED);
}

void ModelCore::UPC_EANData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit split[] = {
        {"Full", HR_SPLIT_FULL}, {"Small", HR_SPLIT_SMALL}, {"None", HR_SPLIT_NONE}};
    static const Bit number_system[] = {{"1", UPC_NUMBER_SYSTEM_1}};
    record->options |= TrueBit(info.CreateKey("GuardBar.Variable"), UPC_GUARD_BAR_VARIABLE);
    record->options |= TrueBit(info.CreateKey("GuardBar.WithoutHR"), UPC_GUARD_BAR_WITHOUT_TEXT);
    record->hr_bits |= ListBits(info.CreateKey("SplitDigit"), split);
    if (info.NumberSystem_Supported())
        record->options |= ListBits(info.CreateKey("NumberSystem"), number_system);
    record->options |= TrueBit(info.CreateKey("CheckDigit.Required"), UPC_CHECK_DIGIT_REQUIRED);
}

void ModelCore::SupplementalData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit attached[] = {{"1", SUPPLEMENTAL_1},
                                   {"2", SUPPLEMENTAL_2},
                                   {"3", SUPPLEMENTAL_3},
                                   {"4", SUPPLEMENTAL_4},
                                   {"5", SUPPLEMENTAL_5}};
    const OString key = info.CreateKey("Attached");
    record->options |= ListBits(key, attached);
    OStringArray others;
    GetStringArray(key, others);
    if (others.GetSize() > 0) HR_Create(record, info);
}

void ModelCore::PDF417Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit level[] = {{"Auto", PDF417_AUTO_LEVEL}};
    static const Bit columns[] = {{"Auto", PDF417_AUTO_COLUMNS}};
    record->options |= FalseBit(info.CreateKey("Truncated"), PDF417_NOT_TRUNCATED);
    record->options |= ListBits(info.CreateKey("CorrectionLevel"), level);
    record->options |= ListBits(info.CreateKey("Columns"), columns);
}

void ModelCore::MicroPDF417Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    if (GetFlag(info.CreateKey("Size"), "Auto")) record->options |= MICRO_PDF417_AUTO_SIZE;
}

void ModelCore::DataMatrixData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit ecc[] = {
        {"000", DATA_MATRIX_ECC_000}, {"010", DATA_MATRIX_ECC_010}, {"040", DATA_MATRIX_ECC_040},
        {"050", DATA_MATRIX_ECC_050}, {"060", DATA_MATRIX_ECC_060}, {"070", DATA_MATRIX_ECC_070},
        {"080", DATA_MATRIX_ECC_080}, {"090", DATA_MATRIX_ECC_090}, {"100", DATA_MATRIX_ECC_100},
        {"110", DATA_MATRIX_ECC_110}, {"120", DATA_MATRIX_ECC_120}, {"130", DATA_MATRIX_ECC_130},
        {"140", DATA_MATRIX_ECC_140}, {"200", DATA_MATRIX_ECC_200}};
    static const Bit format[] = {{"Auto", DATA_MATRIX_AUTO_FORMAT}};
    static const Bit function_codes[] = {{"None", DATA_MATRIX_NO_FUNCTION_CODES}};
    record->options |= ListBits(info.CreateKey("ECC"), ecc);
    record->options |= TrueBit(info.CreateKey("WhiteOnBlack"), DATA_MATRIX_WHITE_ON_BLACK);
    const OString rectangle = GetString(info.CreateKey("Rectangle"), "");
    if (!rectangle.IsEmpty() && !(rectangle == "No")) record->options |= DATA_MATRIX_RECTANGLE;
    if (rectangle == "Manual") record->options |= DATA_MATRIX_MANUAL_RECTANGLE;
    record->options |= ListBits(info.CreateKey("FormatID"), format);
    record->options |= ListBits(info.CreateKey("FunctionCodes"), function_codes);
    record->options |= TrueBit(info.CreateKey("StructuredAppend"), DATA_MATRIX_STRUCTURED_APPEND);
}

void ModelCore::MaxiCodeData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit mode[] = {{"2", MAXICODE_MODE_2},
                               {"3", MAXICODE_MODE_3},
                               {"4", MAXICODE_MODE_4},
                               {"5", MAXICODE_MODE_5},
                               {"6", MAXICODE_MODE_6}};
    record->options |= ListBits(info.CreateKey("Mode"), mode);
    record->options |= TrueBit(info.CreateKey("ZipperBlock"), MAXICODE_ZIPPER_BLOCK);
    record->options |= TrueBit(info.CreateKey("ContrastBlock"), MAXICODE_CONTRAST_BLOCK);
    record->options |= TrueBit(info.CreateKey("StructuredAppend"), MAXICODE_STRUCTURED_APPEND);
}

void ModelCore::QRCodeData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit model[] = {{"1", QR_MODEL_1}, {"2", QR_MODEL_2}};
    static const Bit mode[] = {{"Manual", QR_MODE_MANUAL}, {"Auto", QR_MODE_AUTO}};
    static const Bit mask[] = {{"Manual", QR_MASK_MANUAL}, {"Auto", QR_MASK_AUTO}};
    record->options |= ListBits(info.CreateKey("Model"), model);
    record->options |= ListBits(info.CreateKey("Mode"), mode);
    record->options |= ListBits(info.CreateKey("Mask"), mask);
    record->options |= TrueBit(info.CreateKey("StructuredAppend"), QR_STRUCTURED_APPEND);
}

void ModelCore::JapanPostData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    record->options |= TrueBit(info.CreateKey("HighPriority"), JAPAN_POST_HIGH_PRIORITY);
}

void ModelCore::CodablockData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit type[] = {{"A", CODABLOCK_A}, {"E", CODABLOCK_E}, {"F", CODABLOCK_F}};
    record->options |= ListBits(info.CreateKey("Type"), type);
}

void ModelCore::AztecData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit finder[] = {{"Auto", AZTEC_FINDER_AUTO},
                                 {"Compact", AZTEC_FINDER_COMPACT},
                                 {"Full", AZTEC_FINDER_FULL}};
    static const Bit correction[] = {{"Auto", AZTEC_AUTO_CORRECTION}};
    static const Bit layers[] = {{"Auto", AZTEC_AUTO_LAYERS}};
    record->options |= ListBits(info.CreateKey("FinderPattern"), finder);
    record->options |= TrueBit(info.CreateKey("WhiteOnBlack"), AZTEC_WHITE_ON_BLACK);
    record->options |= ListBits(info.CreateKey("ErrorCorrection"), correction);
    record->options |= ListBits(info.CreateKey("Layers"), layers);
    record->options |= TrueBit(info.CreateKey("StructuredAppend"), AZTEC_STRUCTURED_APPEND);
}

void ModelCore::RSSData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit type[] = {{"RSS14", RSS_14},
                               {"Truncated", RSS_TRUNCATED},
                               {"Stacked", RSS_STACKED},
                               {"Omnidirectional", RSS_OMNIDIRECTIONAL},
                               {"Limited", RSS_LIMITED},
                               {"Expanded", RSS_EXPANDED},
                               {"ExpandedStacked", RSS_EXPANDED_STACKED}};
    static const Bit segments[] = {{"Manual", RSS_MANUAL_SEGMENTS}};
    record->options |= ListBits(info.CreateKey("Type"), type);
    record->options |= ListBits(info.CreateKey("SegmentsPerRow"), segments);
}

void ModelCore::CompositeData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit type[] = {
        {"EAN8", COMPOSITE_EAN_8},          {"EAN13", COMPOSITE_EAN_13},
        {"UPCA", COMPOSITE_UPC_A},          {"UPCE", COMPOSITE_UPC_E},
        {"128_CC_AB", COMPOSITE_128_CC_AB}, {"128_CC_C", COMPOSITE_128_CC_C}};
    RSSData_Create(record, info); // the linear part can be any of these
    record->options |= ListBits(info.CreateKey("Type"), type);
}

void ModelCore::TelepenData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit mode[] = {{"Numeric", TELEPEN_NUMERIC}};
    record->options |= TrueBit(info.CreateKey("CheckDigit.Required"), TELEPEN_CHECK_DIGIT_REQUIRED);
    record->options |= ListBits(info.CreateKey("Mode"), mode);
}
