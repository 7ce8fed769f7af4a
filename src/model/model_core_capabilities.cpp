// The capabilities record.
#include "model/model_core.h"
#include "model/record_text.h"

void ModelCore::CapabilitiesData_Create(KVCapabilitiesData& record) {
    using C = KVCapabilitiesData;
    record.size = sizeof(KVCapabilitiesData);
    record.symbology_size = sizeof(KVSymbologyData);
    record.symbology_offset = offsetof(KVCapabilitiesData, symbologies);
    record.symbology_count = C::SYMBOLOGIES;
    record.font_count = C::DEFAULT_FONTS;
    record.font_size = sizeof(KVDefaultFont);
    record.font_offset = offsetof(KVCapabilitiesData, fonts);

    UseTable(DRAWING);
    record.line_bits =
        static_cast<uint16_t>(BoolBit("Line", C::LINE) | BoolBit("Line.Color", C::LINE_COLOR) |
                              BoolBit("Line.Diagonal", C::LINE_DIAGONAL));
    record.box_bits = static_cast<uint16_t>(
        BoolBit("Box", C::BOX) | BoolBit("Box.Color", C::BOX_COLOR) |
        BoolBit("Box.Fill.Color", C::BOX_FILL_COLOR) |
        FlagBit("Box.Join", "Rounded", C::BOX_ROUNDED) | BoolBit("Circle", C::CIRCLE));
    record.line = BoolBit("Line", 1);
    record.box = BoolBit("Box", 1);
    const OString lines("Lines");
    const char* const unsupported_1d = "BarCode.DrawUnsupported.1D";
    const char* const unsupported_2d = "BarCode.DrawUnsupported.2D";
    record.unsupported_1d_lines = GetFlag(unsupported_1d, lines);
    record.unsupported_2d_lines = GetFlag(unsupported_2d, lines);
    record.unsupported_1d_lines_first = GetString(unsupported_1d, "").Find("Lines") == 0;
    record.unsupported_2d_lines_first = GetString(unsupported_2d, "").Find("Lines") == 0;

    UseTable(METHOD);
    uint16_t method = static_cast<uint16_t>(
        BoolBit("Serialization", C::SERIALIZATION) | BoolBit("StaticFields", C::STATIC_FIELDS) |
        BoolBit("VariableData", C::VARIABLE_DATA) | BoolBit("Cache.Graphic", C::CACHE_GRAPHIC) |
        BoolBit("Cache.Format", C::CACHE_FORMAT) | BoolBit("TemplateExport", C::TEMPLATE_EXPORT));
    if (GetBool("StaticGraphics", false)) {
        const bool only = GetFlag("StaticGraphics.Restrictions", "NoVariableGraphics");
        method =
            static_cast<uint16_t>(method | (only ? C::STATIC_GRAPHICS_ONLY : C::STATIC_GRAPHICS));
    }
    if (method & (C::CACHE_GRAPHIC | C::CACHE_FORMAT))
        method = static_cast<uint16_t>(method | C::CACHE);
    record.method_bits = method;
    record.serialization_count_limit =
        static_cast<uint32_t>(GetInt("Serialization.Count.Limit", 0));
    record.serialization_step_limit = static_cast<uint32_t>(GetInt("Serialization.Step.Limit", 0));
    record.serialization_rollover_expands = BoolBit("Serialization.RolloverExpands", 1);
    record.serialization_no_copies = !GetBool("Serialization.Copies", false);

    for (int i = 0; i < C::SYMBOLOGIES; ++i) SymbologyData_Create(&record.symbologies[i], i);
    DefaultFonts_Create(record.fonts);
}

void ModelCore::DefaultFonts_Create(KVDefaultFont* fonts) {
    UseTable(FONT);
    DefaultFont_Create(fonts[0], "DefaultFont.Text.Name", "DefaultFont.Text.Size",
                       "DefaultFont.Text.Weight");
    DefaultFont_Create(fonts[1], "DefaultFont.BarCode.Name", "DefaultFont.BarCode.Size",
                       "DefaultFont.BarCode.Weight");
}

void ModelCore::DefaultFont_Create(KVDefaultFont& font, const char* name, const char* size,
                                   const char* weight) {
    SetRecordText(font.name, FontName(GetString(name, "")));
    font.size = static_cast<uint16_t>(GetInt(size, 0));
    font.weight = static_cast<uint16_t>(GetInt(weight, 400));
}
