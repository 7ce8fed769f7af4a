// Any bytes as a settings file, and as the binary files of old drivers: the stocks and presets that
// come out are in order, and the file that they are exported to has them all.
#include <windows.h>

#include <win32host/control.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

#include "driver/printer_info.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"
#include "zpl/extmodel.h"

namespace {

constexpr uint32_t UTF_8 = 1208;

// A host of this process's own, which ends with it.
class Host {
public:
    Host() {
        std::string pattern = (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        folder_ = pattern;
        std::filesystem::create_directories(folder_ / "drive_c");
        win32host::SetRoot(pattern);
        model_.reset(prtmodel::new_ext(PrinterInfo(nullptr)));
    }
    ~Host() {
        model_.reset();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    const prtmodel* Model() const { return model_.get(); }

private:
    std::filesystem::path folder_;
    std::unique_ptr<prtmodel> model_;
};

// Opens one of the two files of a round.
struct File : OFile {
    File(const char* name, uint32_t mode)
        : OFile(OString(name), mode) {
        if (!is_open()) std::abort();
        SetCodePage(UTF_8);
    }
};

constexpr char kIn[] = "C:\\in.kds";
constexpr char kOut[] = "C:\\out.kds";

template <class List>
int Exported(const List& list) {
    File file(kOut, OFILE_WRITE);
    return list.Export(file);
}

void Check(const StockList& list, const prtmodel* model, bool text) {
    for (const Stock *stock = list.GetNext(nullptr), *next; (next = list.GetNext(stock));
         stock = next) {
        const int names = std::strcmp(stock->GetName().nstring(), next->GetName().nstring());
        if (stock->is_user() == next->is_user() ? names >= 0 : next->is_user()) std::abort();
    }
    const int blocks = Exported(list);
    File file(kOut, OFILE_READ);
    StockList again(model);
    // The names of old drivers may have line ends in them.
    if (text && again.Import(file, 0) != blocks) std::abort();
}

void Check(const PresetList& list, const prtmodel* model, bool text) {
    for (const Preset *preset = list.GetNext(nullptr), *next; (next = list.GetNext(preset));
         preset = next)
        if (preset->Collate(*next) > 0) std::abort();
    const int blocks = Exported(list);
    File file(kOut, OFILE_READ);
    PresetList again;
    if (text && again.Import(file, model) != blocks) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const Host host;
    const prtmodel* model = host.Model();
    File(kIn, OFILE_WRITE).Write(data, static_cast<uint32_t>(size));
    for (const bool text : {true, false}) {
        File file(kIn, OFILE_READ);
        StockList stocks(model);
        text ? stocks.Import(file, 0) : stocks.ImportKFM1(file);
        Check(stocks, model, text);
        file.Seek(0, 0);
        PresetList presets;
        text ? presets.Import(file, model) : presets.ImportKPR1(file, model);
        Check(presets, model, text);
    }
    return 0;
}
