// Any bytes as the blob of a data font, as a settings file and as a file of old drivers: the result
// has one font of each name, and survives export and import.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_manager.h"
#include "fonts/data_font_rfid.h"
#include "fuzz_host.h"
#include "input.h"
#include "model/symbology_info.h"
#include "support/data_file_text.h"
#include "target.h"

namespace {

constexpr uint32_t UTF_8 = 1208;

// A model with every symbology and tag, some of them with few options.
std::string EverySymbology() {
    std::string symbologies = "[A]\n";
    for (int i = 0; i < KVCapabilitiesData::SYMBOLOGIES; ++i)
        symbologies += SymbologyInfo(i).GetName().nstring() + std::string("=yes\n");
    return Record("Driver.d", "[M]\nModel=Model:A\n") +
           Record("Model.d", "[A]\nBarCode=BarCode:A\nResolution=203\n"
                             "~RFID.TagTypes=EPC64,ISO15693\n") +
           Record("BarCode.d", symbologies + "QRCode.Model=2\nDataMatrix.ECC=200\n"
                                             "MaxiCode.Mode=2,4\nSupplemental2.Attached=1\n");
}

template <class Font, class Storage>
void CheckBlob(const uint8_t* data, size_t size) {
    Font font;
    if (!font.Load(data, size)) return;
    Storage blob, again;
    font.Save(blob);
    Font copy;
    Check(copy.Load(&blob, sizeof blob));
    copy.Save(again);
    Check(std::memcmp(&blob, &again, sizeof blob) == 0);
}

void CheckBarCode(DataFont_BarCode font, const prtmodel* model) {
    for (int i = 0; i < KVCapabilitiesData::SYMBOLOGIES; ++i) {
        const int hr = font.get_hr();
        font.change_symbology(i);
        Check(font.get_symbology() == i && font.get_hr() == hr);
        (void)font.IsSupported(model);
    }
}

void CheckRFID(DataFont_RFID font, const prtmodel* model) {
    font.ValidateRFIDData(model);
    Check(font.IsSupported(model));
    Check(font.GetStartingBlock() >= 0 && font.GetStartingBlock() < 124);
    font.UpdateFormatMask();
    Check(font.GetFormatMask().nlen() < 128);
}

void CheckList(const DataFontManager& fonts, const prtmodel* model) {
    for (int i = 0; i < fonts.GetSize(); ++i) {
        for (int k = 0; k < i; ++k) Check(!fonts[i]->HasNameOf(*fonts[k]));
        if (fonts[i]->IsRFID())
            CheckRFID(static_cast<const DataFont_RFID&>(*fonts[i]), model);
        else
            CheckBarCode(static_cast<const DataFont_BarCode&>(*fonts[i]), model);
    }
    int blocks;
    {
        OFile file(OString(kOut), OFILE_WRITE);
        file.SetCodePage(UTF_8);
        blocks = fonts.ExportBarFont(file, model) + fonts.ExportRFID(file, model);
    }
    Check(blocks == fonts.GetSize());
    OFile file(OString(kOut), OFILE_READ);
    file.SetCodePage(UTF_8);
    DataFontManager again;
    const int kept = again.ImportBarFont(file, model) + again.ImportRFID(file, model);
    Check(kept == blocks);
}

} // namespace

FUZZ_TARGET(data_font_file)(const uint8_t* data, size_t size) {
    static const FuzzHost host(EverySymbology());
    const prtmodel* model = host.Model();
    CheckBlob<DataFont_BarCode, DataFontStorage_BarCode>(data, size);
    CheckBlob<DataFont_RFID, DataFontStorage_RFID>(data, size);

    OFile(OString(kIn), OFILE_WRITE).Write(data, static_cast<uint32_t>(size));
    OFile file(OString(kIn), OFILE_READ);
    file.SetCodePage(UTF_8);
    DataFontManager fonts;
    fonts.ImportBarFont(file, model);
    fonts.ImportRFID(file, model);
    CheckList(fonts, model);
    file.Seek(0, 0);
    DataFontManager binary;
    binary.ImportKBF1(file, model);
    CheckList(binary, model);
    return 0;
}
