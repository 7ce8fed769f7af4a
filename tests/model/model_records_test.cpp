// The other records of a model, and how long they are kept.

#include <cstring>
#include <tuple>

#include "model/model_data_cache.h"
#include "spooler/printer_info.h"
#include "support/data_file_text.h"
#include "support/model_test.h"

namespace {

class ModelRecords : public ModelTest {};

uint16_t Word(const void* record, size_t offset) {
    uint16_t value;
    std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof value);
    return value;
}

} // namespace

TEST_F(ModelRecords, OfCapabilitiesTellWhatThePrinterDrawsAndHowItRepeats) {
    const std::tuple<std::string ModelTables::*, const char*, size_t, uint16_t> cases[] = {
        {&ModelTables::drawing, "Line=yes", 10, 1},
        {&ModelTables::drawing, "Line=yes", 18, 1},
        {&ModelTables::drawing, "Line.Color=yes\nLine.Diagonal=yes", 10, 6},
        {&ModelTables::drawing, "Line.Color=yes", 18, 0},
        {&ModelTables::drawing, "Box=yes\nBox.Color=yes\nBox.Fill.Color=yes", 12, 7},
        {&ModelTables::drawing, "Box=yes", 20, 1},
        {&ModelTables::drawing, "Box.Join=Mitered,Rounded\nCircle=yes", 12, 48},
        {&ModelTables::drawing, "BarCode.DrawUnsupported.1D=Graphic,Lines", 14, 1},
        {&ModelTables::drawing, "BarCode.DrawUnsupported.1D=Graphic,Lines", 22, 0},
        {&ModelTables::drawing, "BarCode.DrawUnsupported.1D=Lines,Graphic", 22, 1},
        {&ModelTables::drawing, "BarCode.DrawUnsupported.2D=Lines", 16, 1},
        {&ModelTables::drawing, "BarCode.DrawUnsupported.2D=Lines", 24, 1},
        {&ModelTables::drawing, "BarCode.DrawUnsupported.2D=Graphic", 16, 0},
        {&ModelTables::method, "Serialization=yes\nStaticFields=yes\nVariableData=yes", 26, 7},
        {&ModelTables::method, "StaticGraphics=yes", 26, 8},
        {&ModelTables::method, "StaticGraphics=yes\nStaticGraphics.Restrictions=NoVariableGraphics",
         26, 16},
        {&ModelTables::method, "StaticGraphics.Restrictions=NoVariableGraphics", 26, 0},
        {&ModelTables::method, "Cache.Graphic=yes", 26, 160},
        {&ModelTables::method, "Cache.Format=yes", 26, 192},
        {&ModelTables::method, "TemplateExport=yes", 26, 256},
        {&ModelTables::method, "Serialization.Count.Limit=99999999", 28, 0xE0FF},
        {&ModelTables::method, "Serialization.Count.Limit=99999999", 30, 0x05F5},
        {&ModelTables::method, "Serialization.Step.Limit=65537", 34, 1},
        {&ModelTables::method, "Serialization.RolloverExpands=yes", 36, 1},
        {&ModelTables::method, "Serialization.Copies=yes", 38, 0},
        {&ModelTables::method, "Serialization.Copies=no", 38, 1}};
    Install({});
    for (const auto& [table, lines, offset, expected] : cases) {
        ModelTables tables;
        tables.*table = lines;
        Replace(tables);
        EXPECT_EQ(Word(Model()->GetCapabilitiesData(), offset), expected)
            << lines << " at " << offset;
    }
}

TEST_F(ModelRecords, AreKeptForEachPrinterUntilItsStampOrItsModelChanges) {
    Install({.drawing = "Line=yes\n", .barcode = "Code39=yes\n"});
    Model()->GetCapabilitiesData();
    Model()->GetDriverInfo();
    Model()->GetManufacturerInfo();
    Model()->GetRFIDCapabilities();
    const ModelDataCache cache;
    const auto size = [&](const char* name) { return cache.GetDataSize(Records(), name); };
    EXPECT_EQ(size("ModelData"), 180u);
    EXPECT_EQ(size("CapabilitiesData"), 1900u);
    EXPECT_EQ(size("DriverInfo"), 24u);
    EXPECT_EQ(size("ManufacturerInfo"), 78u);
    EXPECT_EQ(size("RFIDCapabilities"), 28u);
    // Another printer has a stamp of its own.
    ASSERT_TRUE(AddPrinter("Dock 4", "Model 1"));
    prtreg("Dock 4").SetDWORD("DATA:Model Synchronization", 5);
    std::unique_ptr<prtmodel>(prtmodel::new_ext(PrinterInfo(OString("Dock 4"))));
    EXPECT_EQ(cache.GetDataSize({"Dock 4", "Model 1(QV)", 5}, "ModelData"), 180u);
    EXPECT_EQ(size("CapabilitiesData"), 1900u);
    Registry().SetDWORD("DATA:Model Synchronization", 6);
    Model();
    EXPECT_EQ(size("CapabilitiesData"), 0u);
    EXPECT_EQ(cache.GetDataSize({"Dock 4", "Model 1(QV)", 5}, "ModelData"), 180u);
}

// As with a printer that is deleted and added again, or gets another driver.
TEST_F(ModelRecords, AreThoseOfTheDriverThatThePrinterHasNow) {
    Install({.model = "Resolution=203\n"});
    const auto old = Model();
    EXPECT_EQ(old->GetXResolution(), 203);
    WriteFile("WINDOWS\\system32\\new.ddt",
              Record("Driver.d", "[Model 2]\nModel=Model:B\n") +
                  Record("Model.d", "[B]\nResolution=300\n~CustomData=~CustomData:A\n"));
    ASSERT_TRUE(AddDriver("Model 2", "newqv.ddt"));
    WCHAR name[] = TEXT("Dock 3");
    PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    ASSERT_TRUE(OpenPrinterW(name, &printer, &access) && DeletePrinter(printer));
    ClosePrinter(printer);
    ASSERT_TRUE(AddPrinter("Dock 3", "Model 2"));
    EXPECT_EQ(Model()->GetXResolution(), 300);
    // A user of the old model continues with it and leaves the new one's records alone.
    old->GetDriverInfo();
    EXPECT_STREQ(Model()->GetDriverInfo()->prefix, "new");
    EXPECT_STREQ(old->GetDriverInfo()->prefix, "zpl");
}
