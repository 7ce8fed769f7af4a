// The model data and the records of versions and makers.
#include <algorithm>

#include "model/driver_settings.h"
#include "model/model_core.h"
#include "model/record_text.h"

namespace {

constexpr int32_t kInt16Maximum = 32767;

// The first entry whose text is the given one, in any case.
struct Translation {
    const char* text;
    uint8_t value;
};

template <size_t N>
uint8_t Translate(const OString& text, const Translation (&table)[N], uint8_t otherwise) {
    for (const Translation& entry : table)
        if (text.CompareNoCase(entry.text) == 0) return entry.value;
    return otherwise;
}

} // namespace

uint8_t ModelCore::TranslateTracking(const OString& text) {
    static const Translation table[] = {{"Left", 1}, {"Center", 2}, {"Right", 0}};
    return Translate(text, table, 1);
}

uint8_t ModelCore::TranslatePositionAnchor(const OString& text) {
    static const Translation table[] = {{"Top/Left", 0},      {"Top/Right", 1},
                                        {"Bottom/Left", 2},   {"Bottom/Right", 3},
                                        {"Baseline/Left", 4}, {"Baseline/Right", 5}};
    return Translate(text, table, 0);
}

uint8_t ModelCore::TranslateThicknessAnchor(const OString& text) {
    static const Translation table[] = {{"Center", 0}, {"Edge", 1}, {"Outer", 1}, {"Inner", 2}};
    return Translate(text, table, 0);
}

uint8_t ModelCore::TranslateOrientation(int degrees) {
    switch (degrees) {
    case 90:
        return 1;
    case 180:
        return 2;
    case 270:
        return 3;
    default:
        return 0;
    }
}

Measurement ModelCore::GetMeasurement(const char* key) {
    Measurement length;
    length.SetText(GetString(key, ""));
    return length;
}

uint16_t ModelCore::BoolBit(const char* key, uint16_t bit) {
    return GetBool(key, false) ? bit : 0;
}

uint16_t ModelCore::FlagBit(const char* key, const char* word, uint16_t bit) {
    return GetFlag(key, word) ? bit : 0;
}

int16_t ModelCore::GetThickness(const char* key) {
    return static_cast<int16_t>(std::min(GetInt(key, 0), kInt16Maximum));
}

OString ModelCore::FontName(const OString& name) const {
    return OString(model_data_.font_prefix) + OString(" ") + name;
}

void ModelCore::ModelData_Create() {
    KVModelData& data = model_data_;
    data = {};
    UseTable(MODEL);
    ReadModelTable();
    UseTable(DRAWING);
    ReadDrawingTable();
    UseTable(METHOD);
    data.copies_limit = static_cast<int16_t>(std::min(GetInt("Copies.Limit", 0), kInt16Maximum));
    if (data.copies_limit == 0) data.copies_limit = kInt16Maximum;
    UseTable(FONT);
    ReadFontTable();
    ApplyDriverSettings();
    UseTable(MANUFACTURER);
    SetRecordText(data.company_name, GetString("CompanyName", ""));
    SetRecordText(data.font_prefix, GetString("Fonts.Prefix", ""));
    SetRecordText(data.product_name, GetString("ProductName", ""));
}

void ModelCore::ReadModelTable() {
    KVModelData& data = model_data_;
    data.unprintable_width_of_model = GetMeasurement("Stock.UnprintableWidth");
    data.printable_width = GetMeasurement("Stock.Printable.X");
    data.printable_length = GetMeasurement("Stock.Printable.Y");
    data.default_width = GetMeasurement("Stock.Default.X");
    data.default_length = GetMeasurement("Stock.Default.Y");
    data.minimum_width = GetMeasurement("Stock.Minimum.X");
    data.minimum_length = GetMeasurement("Stock.Minimum.Y");
    data.maximum_width = GetMeasurement("Stock.Maximum.X");
    data.maximum_length = GetMeasurement("Stock.Maximum.Y");

    // Only an existing value is rounded to whole micrometres. The model's need not be whole.
    int32_t microns = 0;
    data.unprintable_width = data.unprintable_width_of_model;
    if (registry_.GetData("Settings:Unprintable Width", &microns, sizeof microns, REG_DWORD) ==
        static_cast<int32_t>(sizeof microns))
        data.unprintable_width.SetMicrons(microns);

    data.default_color_state = 1;
    if (GetBool("Color", false)) {
        static const struct {
            const char* key;
            const char* word;
            uint16_t bit;
        } colors[] = {
            {"Color.Spot", "2", KVModelData::COLOR_SPOT_2},
            {"Color.Spot", "3", KVModelData::COLOR_SPOT_3},
            {"Color.Spot", "4", KVModelData::COLOR_SPOT_4},
            {"Color.Process", "CMY", KVModelData::COLOR_CMY},
            {"Color.Process", "CMYK", KVModelData::COLOR_CMYK},
            {"Color.Spectrum", "16", KVModelData::COLOR_16},
            {"Color.Spectrum", "24", KVModelData::COLOR_24},
            {"Color.Spectrum", "32", KVModelData::COLOR_32},
        };
        for (const auto& color : colors) {
            if (GetFlag(color.key, color.word))
                data.color = static_cast<uint16_t>(data.color | color.bit);
        }
        if (GetString("Color.DefaultState", "").CompareNoCase("Color") == 0)
            data.default_color_state = 2;
    }
    data.tracking = TranslateTracking(GetString("Stock.Tracking", ""));
    ReadResolutions();
    data.port_bits = static_cast<uint16_t>(
        FlagBit("Ports.Bidirectional", "Parallel", KVModelData::PORT_BIDI_PARALLEL) |
        FlagBit("Ports.Bidirectional", "USB", KVModelData::PORT_BIDI_USB));
}

// Reads "203", "300x600": up to eight, of which numbers keep their low 16 bits.
void ModelCore::ReadResolutions() {
    OStringArray entries;
    GetStringArray("Resolution", entries);
    int index = 0;
    for (auto& resolution : model_data_.resolutions) {
        if (index >= entries.GetSize()) break;
        const OString& entry = entries[index++];
        OStringArray numbers;
        numbers.Split(entry, "x");
        if (numbers.GetSize() == 0) continue;
        resolution.x = static_cast<uint16_t>(static_cast<int32_t>(numbers[0]));
        resolution.y = numbers.GetSize() > 1
                           ? static_cast<uint16_t>(static_cast<int32_t>(numbers[1]))
                           : resolution.x;
    }
}

void ModelCore::ReadDrawingTable() {
    KVModelData& data = model_data_;
    data.natural_orientation = TranslateOrientation(GetInt("Transform.Orientation", 0));
    data.can_flip180 = GetBool("Transform.Flip180", false);
    data.can_mirror = GetBool("Transform.Mirror", false);
    data.can_print_inverse = GetBool("Transform.Inverse", false);

    data.line_thickness_maximum = GetThickness("Line.Thickness.Maximum");
    data.line_thickness_anchor = TranslateThicknessAnchor(GetString("Line.Thickness.Anchor", ""));
    data.line_anchor = TranslatePositionAnchor(GetString("Line.Anchor", ""));
    data.box_thickness_maximum = GetThickness("Box.Thickness.Maximum");
    data.box_thickness_anchor = TranslateThicknessAnchor(GetString("Box.Thickness.Anchor", ""));
    data.box_anchor = TranslatePositionAnchor(GetString("Box.Anchor", ""));
    data.can_fill_box = GetBool("Box.Fill", false);

    data.barcode_anchor = TranslatePositionAnchor(GetString("BarCode.Anchor", ""));
    data.barcode_anchor_relative = GetBool("BarCode.Anchor.Relative", false);
    data.white_text_needs_background = GetBool("Text.WhiteOnBlack.Background", false);
    data.text_anchor = TranslatePositionAnchor(GetString("Text.Anchor", ""));
    data.text_anchor_relative = GetBool("Text.Anchor.Relative", false);
    data.text_bits = static_cast<uint16_t>(
        (GetFlag("Text.Rotation", "None") ? 0 : KVModelData::TEXT_ROTATION) |
        FlagBit("Text.Rotation", "Any", KVModelData::TEXT_ANY_ANGLE) |
        FlagBit("Text.Scaling", "Anisotropic", KVModelData::TEXT_ANISOTROPIC));
    data.map_resolution = static_cast<uint16_t>(GetInt("Transform.MapResolution", 0));
}

void ModelCore::ReadFontTable() {
    uint16_t bits = BoolBit("Download.TrueType", KVModelData::DOWNLOAD_TRUETYPE);
    if (GetBool("Download.Bitmap", false)) {
        const char* const orientation = "Download.Bitmap.Orientation";
        bits = static_cast<uint16_t>(bits | KVModelData::DOWNLOAD_BITMAP |
                                     FlagBit(orientation, "0", KVModelData::DOWNLOAD_BITMAP_0) |
                                     FlagBit(orientation, "90", KVModelData::DOWNLOAD_BITMAP_90));
    }
    model_data_.download_bits = bits;
}

void ModelCore::ApplyDriverSettings() {
    KVModelData& data = model_data_;
    DriverSettings settings;
    settings.Load(registry_);
    if (settings.OverrideSpecifications()) {
        data.minimum_width.SetMicrons(settings.GetPaperWidthMin());
        data.maximum_width.SetMicrons(settings.GetPaperWidthMax());
        data.minimum_length.SetMicrons(settings.GetPaperLengthMin());
        data.maximum_length.SetMicrons(settings.GetPaperLengthMax());
        data.printable_width.SetMicrons(settings.GetPrintableWidth());
        data.tracking = static_cast<uint8_t>(settings.GetTracking());

        const int32_t x = settings.GetXResolution();
        const int32_t y = settings.GetYResolution();
        if (x != data.resolutions[0].x || y != data.resolutions[0].y) {
            for (auto& resolution : data.resolutions) resolution = {};
            data.resolutions[0] = {static_cast<uint16_t>(x), static_cast<uint16_t>(y)};
        }
    }
    if (settings.GetDisableCopiesLimit()) data.copies_limit = kInt16Maximum;
    if (settings.HasFailed()) whole_ = false;
}

void ModelCore::DriverInfo_Create(KVDriverInfo& record) {
    record.size = sizeof record;
    record.major = 6;
    record.minor = 7;
    record.release_major = 4;
    record.release_minor = 1;
    record.release_number = 2;
    SetRecordText(record.prefix, prefix_);
    record.flags = 0x8000;
}

void ModelCore::ManufacturerInfo_Create(KVManufacturerInfo& record) {
    static const struct {
        const char* code;
        const char* name;
    } makers[] = {{"in", "Intermec Corporation"},
                  {"tt", "Toshiba TEC Corporation"},
                  {"dt", "Datamax Corporation"}};

    const OString code(oem_[0] ? oem_ + 1 : oem_);
    OString maker("Valdrick");
    for (const auto& entry : makers)
        if (code == entry.code) maker = entry.name;
    record.size = sizeof record;
    SetRecordText(record.company_name, model_data_.company_name);
    SetRecordText(record.manufacturer, maker);
    SetRecordText(record.oem, code);
}
