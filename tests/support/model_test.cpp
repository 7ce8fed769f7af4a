#include "support/model_test.h"

#include "core/base64.h"
#include "model/resource_cache.h"
#include "spooler/driver_utility.h"
#include "spooler/printer_info.h"
#include "support/data_file_text.h"

std::string ModelDataFile(const ModelTables& tables) {
    return Record("Driver.d", "[Model 1]\nManufacturer=Manufacturer:A\nModel=Model:A\n") +
           Record("Model.d", "[A]\nBarCode=BarCode:A\nDrawing=Drawing:A\nFeatures=Features:A\n"
                             "Font=Font:A\nMethod=Method:A\n~CustomData=~CustomData:A\n" +
                                 tables.model) +
           Record("Manufacturer.d", "[A]\n" + tables.manufacturer) +
           Record("BarCode.d", "[A]\n" + tables.barcode) +
           Record("Drawing.d", "[A]\n" + tables.drawing) +
           Record("Features.d", "[A]\n" + tables.features) +
           Record("Font.d", "[A]\nCodePages=CodePages:A\n" + tables.font) +
           Record("CodePages.d", "[A]\n" + tables.code_pages) +
           Record("Method.d", "[A]\n" + tables.method) +
           Record("~CustomData.d", "[A]\n" + tables.custom_data);
}

std::string Encoded(const void* data, size_t size) {
    std::string text(Base64::EncodeLength(static_cast<uint32_t>(size)), '\0');
    uint32_t length = 0;
    Base64::Encode(data, static_cast<uint32_t>(size), text.data(), &length);
    text.resize(length);
    return text;
}

std::string CustomDataLines(const CustomData& data) {
    return "Data.Length=" + std::to_string(sizeof data) + "\nData=" + Encoded(&data, sizeof data) +
           "\n";
}

// The module stands for one of the system's own libraries, so that its folder is on drive C.
ModelTest::ModelTest() {
    DriverUtility::SetModuleHandle(GetModuleHandleW(TEXT("kernel32.dll")));
    OResourceCache::Initialize();
    ModelDataCache::Initialize();
}

ModelTest::~ModelTest() {
    OResourceCache::Free();
    ModelDataCache::Free();
    DriverUtility::SetModuleHandle(nullptr);
}

void ModelTest::WriteDataFile(const ModelTables& tables) {
    const OString folder = DriverUtility::GetDriverDirectory();
    WriteFile(std::string(folder.nstring()).substr(3) + "\\zpl.ddt", ModelDataFile(tables));
}

void ModelTest::Replace(const ModelTables& tables) {
    WriteDataFile(tables);
    Forget();
}

void ModelTest::Forget() {
    OResourceCache::Free();
    OResourceCache::Initialize();
    ModelDataCache::Free();
    ModelDataCache::Initialize();
}

void ModelTest::Install(const ModelTables& tables, const std::string& oem) {
    WriteDataFile(tables);
    ASSERT_TRUE(AddDriver("Model 1", ("zpl" + oem + ".ddt").c_str()));
    ASSERT_TRUE(AddPrinter("Dock 3", "Model 1"));
}

std::unique_ptr<extmodel> ModelTest::Model() {
    return std::unique_ptr<extmodel>(
        static_cast<extmodel*>(prtmodel::new_ext(PrinterInfo(OString("Dock 3")))));
}

prtreg ModelTest::Registry() {
    return prtreg(OString("Dock 3"));
}

ModelDataOwner ModelTest::Records() {
    return {"Dock 3", "Model 1(QV)", 0};
}

std::string Text(const OString& text) {
    return text.nstring();
}

std::string Text(const OStringArray& texts) {
    std::string all;
    for (int i = 0; i < texts.GetSize(); ++i) all += (i ? "," : "") + Text(texts[i]);
    return all;
}
