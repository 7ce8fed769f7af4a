// The fixture of tests that need a printer model: one made-up printer with the tables of its model.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/ofile.h"
#include "model/model_data_cache.h"
#include "support/printer_test.h"
#include "zpl/extmodel.h"

// The properties of the model, as the lines of its section in each table.
struct ModelTables {
    std::string model = {};
    std::string drawing = {};
    std::string method = {};
    std::string font = {};
    std::string barcode = {};
    std::string features = {};
    std::string manufacturer = {};
    std::string custom_data = {};
    std::string code_pages = {};
};

// The bytes of a model data file in which the driver "Model 1" leads to these properties.
std::string ModelDataFile(const ModelTables& tables);

// Bytes in Base64, as in tables and settings files.
std::string Encoded(const void* data, size_t size);

// The lines of table custom_data for this record.
std::string CustomDataLines(const CustomData& data);

class ModelTest : public PrinterTest {
protected:
    ModelTest();
    ~ModelTest() override;

    // Installs the printer "Dock 3" with driver "Model 1" and these tables. The OEM code is the
    // end of the name of its data file.
    void Install(const ModelTables& tables, const std::string& oem = "qv");

    // Gives the installed printer other tables and forgets the contents of the old ones, as if the
    // module had been loaded again.
    void Replace(const ModelTables& tables);

    // Forgets what was read of all data files and models.
    static void Forget();

    // The model of the installed printer, never null.
    static std::unique_ptr<extmodel> Model();

    // Its key map.
    static prtreg Registry();

    // The owner of the records in the cache after a model was made.
    static ModelDataOwner Records();

    // The text of a settings file that `write(file)` writes.
    template <class Write>
    std::string Written(Write write) const {
        OFile file("C:\\out.kds", OFILE_WRITE);
        file.SetCodePage(1208);
        write(file);
        file.Close();
        return BytesOf(OnDriveC("out.kds"));
    }
    // The result of `read(file)` for a file of these bytes.
    template <class Read>
    int Taken(const std::string& bytes, Read read, const std::string& name = "in.kds") const {
        WriteFile(name, bytes);
        OFile file(("C:\\" + name).c_str(), OFILE_READ);
        file.SetCodePage(1208);
        return read(file);
    }

private:
    void WriteDataFile(const ModelTables& tables);
};

// The 8-bit text of a string, for comparison.
std::string Text(const OString& text);
// The results of `describe(node)` for all nodes of a list, separated by blanks.
template <class List, class Describe>
std::string Joined(const List& list, Describe describe) {
    std::string all;
    for (const auto* node = list.GetNext(nullptr); node; node = list.GetNext(node))
        all += (all.empty() ? "" : " ") + describe(*node);
    return all;
}
// Values to be compared all at once.
using NumberList = std::vector<int64_t>;
// The bytes of a number, as files of old drivers have them.
inline std::string Bytes4(uint32_t number) {
    return std::string(reinterpret_cast<const char*>(&number), sizeof number);
}
// The strings of an array, separated by commas.
std::string Text(const OStringArray& texts);
