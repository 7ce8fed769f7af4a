// The symbology records: how ModelCore reads the table BarCode.
#include "model/model_core.h"
#include "model/record_text.h"

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

    static const Bit methods[] = {{"Serialization", 0x80000000},
                                  {"VariableData", 0x40000000},
                                  {"Static", 0x20000000},
                                  {"TemplateFile", 0x10000000}};
    record->options |= ListBits(info.CreateKey("RestrictedMethods"), methods);

    if (info.Ratios_Supported()) {
        static const Bit ratios[] = {{"Variable", 0x1000}, {"2:1", 0x2000},    {"11:5", 0x4000},
                                     {"9:4", 0x8000},      {"7:3", 0x10000},   {"12:5", 0x20000},
                                     {"5:2", 0x40000},     {"13:5", 0x80000},  {"8:3", 0x100000},
                                     {"11:4", 0x200000},   {"14:5", 0x400000}, {"3:1", 0x800000}};
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

    static const Bit offset[] = {{"Vertical", 0x1}, {"Horizontal", 0x2}};
    static const Bit placement[] = {{"Above", 0x4}, {"Below", 0x8}};
    static const Bit alignment[] = {
        {"Left", 0x10}, {"Right", 0x20}, {"Center", 0x40}, {"Bar", 0x80}};
    static const Bit check_digit[] = {{"Show", 0x100}, {"Hide", 0x200}};
    static const Bit start_stop[] = {{"Show", 0x400}, {"Hide", 0x800}};
    record->hr_bits |= ListBits(info.CreateKey("HR.Offset"), offset);
    record->hr_bits |= ListBits(info.CreateKey("HR.Placement"), placement);
    record->hr_bits |= ListBits(info.CreateKey("HR.Alignment"), alignment);
    if (info.ShowCheckDigit_Supported())
        record->hr_bits |= ListBits(info.CreateKey("HR.CheckDigit"), check_digit);
    record->hr_bits |= ListBits(info.CreateKey("HR.StartStop"), start_stop);
    record->hr_bits |= TrueBit(info.CreateKey("HR.Font.Select"), 0x8000);

    const OString font = GetString(info.CreateKey("HR.Font.Name"), "");
    if (!font.IsEmpty()) {
        SetRecordText(record->font_name, FontName(font));
        record->font_size = static_cast<uint16_t>(GetInt(info.CreateKey("HR.Font.Size"), 0));
        record->font_weight = static_cast<uint16_t>(GetInt(info.CreateKey("HR.Font.Weight"), 400));
    }
}

// ---- One symbology family each ------------------------------------------------------------------

void ModelCore::Code39Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit translation[] = {{"On", 0x10000}, {"Off", 0x20000}};
    record->options |= FalseBit(info.CreateKey("FullASCII"), 0x1);
    record->options |= TrueBit(info.CreateKey("StartStop.Required"), 0x2);
    record->options |= TrueBit(info.CreateKey("CheckDigit.Required"), 0x4);
    record->options |= TrueBit(info.CreateKey("StartStop.Variable"), 0x8);
    record->hr_bits |= ListBits(info.CreateKey("HR.Translation"), translation);
}

void ModelCore::Code93Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    record->options |= FalseBit(info.CreateKey("FullASCII"), 0x1);
}

void ModelCore::Code128Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    // 0x2 tells that there is no manual encoding.
    static const Bit encoding[] = {{"Auto", 0x1}, {"Manual", 0x2}};
    record->options |= ListBits(info.CreateKey("Encoding"), encoding) ^ 0x2;
}

void ModelCore::CodabarData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    record->options |= TrueBit(info.CreateKey("StartStop.Required"), 0x1);
    record->options |= TrueBit(info.CreateKey("StartStop.Uppercase"), 0x2);
}

void ModelCore::MSIData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    record->options |= TrueBit(info.CreateKey("CheckDigit.Required"), 0x1);
}

void ModelCore::UPC_EANData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit split[] = {{"Full", 0x90000}, {"Small", 0x50000}, {"None", 0x20000}};
    static const Bit number_system[] = {{"1", 0x2}};
    record->options |= TrueBit(info.CreateKey("GuardBar.Variable"), 0x4);
    record->options |= TrueBit(info.CreateKey("GuardBar.WithoutHR"), 0x8);
    record->hr_bits |= ListBits(info.CreateKey("SplitDigit"), split);
    if (info.NumberSystem_Supported())
        record->options |= ListBits(info.CreateKey("NumberSystem"), number_system);
    record->options |= TrueBit(info.CreateKey("CheckDigit.Required"), 0x1);
}

void ModelCore::SupplementalData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit attached[] = {{"1", 0x1}, {"2", 0x2}, {"3", 0x4}, {"4", 0x8}, {"5", 0x10}};
    const OString key = info.CreateKey("Attached");
    record->options |= ListBits(key, attached);
    OStringArray others;
    GetStringArray(key, others);
    if (others.GetSize() > 0) HR_Create(record, info);
}

void ModelCore::PDF417Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit level[] = {{"Auto", 0x2}};
    static const Bit columns[] = {{"Auto", 0x4}};
    record->options |= FalseBit(info.CreateKey("Truncated"), 0x1);
    record->options |= ListBits(info.CreateKey("CorrectionLevel"), level);
    record->options |= ListBits(info.CreateKey("Columns"), columns);
}

void ModelCore::MicroPDF417Data_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    if (GetFlag(info.CreateKey("Size"), "Auto")) record->options |= 0x1;
}

void ModelCore::DataMatrixData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit ecc[] = {{"000", 0x1},    {"010", 0x2},   {"040", 0x4},   {"050", 0x8},
                              {"060", 0x10},   {"070", 0x20},  {"080", 0x40},  {"090", 0x80},
                              {"100", 0x100},  {"110", 0x200}, {"120", 0x400}, {"130", 0x800},
                              {"140", 0x1000}, {"200", 0x2000}};
    static const Bit format[] = {{"Auto", 0x20000}};
    static const Bit function_codes[] = {{"None", 0x10000}};
    record->options |= ListBits(info.CreateKey("ECC"), ecc);
    record->options |= TrueBit(info.CreateKey("WhiteOnBlack"), 0x4000);
    const OString rectangle = GetString(info.CreateKey("Rectangle"), "");
    if (!rectangle.IsEmpty() && !(rectangle == "No")) record->options |= 0x8000;
    if (rectangle == "Manual") record->options |= 0x40000;
    record->options |= ListBits(info.CreateKey("FormatID"), format);
    record->options |= ListBits(info.CreateKey("FunctionCodes"), function_codes);
    record->options |= TrueBit(info.CreateKey("StructuredAppend"), 0x80000);
}

void ModelCore::MaxiCodeData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit mode[] = {{"2", 0x1}, {"3", 0x2}, {"4", 0x4}, {"5", 0x8}, {"6", 0x10}};
    record->options |= ListBits(info.CreateKey("Mode"), mode);
    record->options |= TrueBit(info.CreateKey("ZipperBlock"), 0x20);
    record->options |= TrueBit(info.CreateKey("ContrastBlock"), 0x40);
    record->options |= TrueBit(info.CreateKey("StructuredAppend"), 0x80);
}

void ModelCore::QRCodeData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit model[] = {{"1", 0x1}, {"2", 0x2}};
    static const Bit mode[] = {{"Manual", 0x4}, {"Auto", 0x8}};
    static const Bit mask[] = {{"Manual", 0x10}, {"Auto", 0x20}};
    record->options |= ListBits(info.CreateKey("Model"), model);
    record->options |= ListBits(info.CreateKey("Mode"), mode);
    record->options |= ListBits(info.CreateKey("Mask"), mask);
    record->options |= TrueBit(info.CreateKey("StructuredAppend"), 0x40);
}

void ModelCore::JapanPostData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    record->options |= TrueBit(info.CreateKey("HighPriority"), 0x1);
}

void ModelCore::CodablockData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit type[] = {{"A", 0x1}, {"E", 0x2}, {"F", 0x4}};
    record->options |= ListBits(info.CreateKey("Type"), type);
}

void ModelCore::AztecData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit finder[] = {{"Auto", 0x1}, {"Compact", 0x2}, {"Full", 0x4}};
    static const Bit correction[] = {{"Auto", 0x10}};
    static const Bit layers[] = {{"Auto", 0x20}};
    record->options |= ListBits(info.CreateKey("FinderPattern"), finder);
    record->options |= TrueBit(info.CreateKey("WhiteOnBlack"), 0x8);
    record->options |= ListBits(info.CreateKey("ErrorCorrection"), correction);
    record->options |= ListBits(info.CreateKey("Layers"), layers);
    record->options |= TrueBit(info.CreateKey("StructuredAppend"), 0x40);
}

void ModelCore::RSSData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit type[] = {{"RSS14", 0x1},           {"Truncated", 0x2}, {"Stacked", 0x4},
                               {"Omnidirectional", 0x8}, {"Limited", 0x10},  {"Expanded", 0x20},
                               {"ExpandedStacked", 0x40}};
    static const Bit segments[] = {{"Manual", 0x10000}};
    record->options |= ListBits(info.CreateKey("Type"), type);
    record->options |= ListBits(info.CreateKey("SegmentsPerRow"), segments);
}

void ModelCore::CompositeData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit type[] = {{"EAN8", 0x100}, {"EAN13", 0x200},      {"UPCA", 0x400},
                               {"UPCE", 0x800}, {"128_CC_AB", 0x1000}, {"128_CC_C", 0x2000}};
    RSSData_Create(record, info); // the linear part can be any of these
    record->options |= ListBits(info.CreateKey("Type"), type);
}

void ModelCore::TelepenData_Create(KVSymbologyData* record, const SymbologyInfo& info) {
    static const Bit mode[] = {{"Numeric", 0x2}};
    record->options |= TrueBit(info.CreateKey("CheckDigit.Required"), 0x1);
    record->options |= ListBits(info.CreateKey("Mode"), mode);
}
