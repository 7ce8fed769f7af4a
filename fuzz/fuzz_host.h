// What fuzz targets that read files of the host share.
#pragma once

#include <windows.h>

#include <win32host/control.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "model/model_data_cache.h"
#include "model/prtmodel.h"
#include "model/resource_cache.h"
#include "registry/oregistry.h"
#include "spooler/driver_utility.h"
#include "spooler/printer_info.h"
#include "support/data_file_text.h"

// A model data file of one driver, "M", with bar codes and RFID. `properties` are additional lines
// for its model.
inline std::string UsualModelData(const std::string& properties = std::string()) {
    return Record("Driver.d", "[M]\nModel=Model:A\n") +
           Record("Model.d",
                  "[A]\nBarCode=BarCode:A\nResolution=203\n~RFID.TagTypes=EPC64\n" + properties) +
           Record("BarCode.d", "[A]\nCode39=yes\nCode128=yes\n");
}

// A host for this process, removed when it ends, with a printer "P" of the driver "M". `model_data`
// are the bytes of the driver's model data file.
class FuzzHost {
public:
    explicit FuzzHost(const std::string& model_data) {
        std::string pattern = (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        folder_ = pattern;
        win32host::SetRoot(pattern);
        OResourceCache::Initialize();
        ModelDataCache::Initialize();
        DriverUtility::SetModuleHandle(::GetModuleHandleW(TEXT("kernel32.dll")));
        const std::string driver_folder = DriverUtility::GetDriverDirectory().nstring();
        std::string path = (folder_ / "drive_c").string() + driver_folder.substr(2) + "/zpl.ddt";
        std::replace(path.begin(), path.end(), '\\', '/');
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream(path, std::ios::binary) << model_data;

        ORegistry registry;
        registry.SetString("PRINT:Printers/P/Name", "P");
        registry.SetString("PRINT:Printers/P/Printer Driver", "M");
        const OString driver = "PRINT:Environments/Windows NT x86/Drivers/Version-3/M/";
        registry.SetString(driver + "Driver", "zplui.dll");
        registry.SetString(driver + "Data File", "zplqv.ddt");
        model_.reset(prtmodel::new_ext(PrinterInfo("P")));
        if (!model_ || !model_->HasBarCodes() || !model_->HasRFID()) std::abort();
    }
    ~FuzzHost() {
        model_.reset();
        OResourceCache::Free();
        ModelDataCache::Free();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    FuzzHost(const FuzzHost&) = delete;
    FuzzHost& operator=(const FuzzHost&) = delete;

    prtmodel* Model() const { return model_.get(); }

    // The POSIX path of a file in the root of drive C; that of the drive itself for an empty name.
    std::string OnDriveC(const std::string& name) const {
        const std::string drive = win32host::Root() + "/drive_c";
        return name.empty() ? drive : drive + "/" + name;
    }

private:
    std::filesystem::path folder_;
    std::unique_ptr<prtmodel> model_;
};

// The two files of a round.
inline constexpr char kIn[] = "C:\\in.kds";
inline constexpr char kOut[] = "C:\\out.kds";
