// The report of the driver about itself, the system and the printer, for people who ask for
// support.
#pragma once

#include "model/model_records.h"
#include "pages/reports/pp_information.h"

// Everything is read anew from the system each time that the report is filled.
class ppVersion : public ppInformation {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppVersion>;

    void Init() override;
    bool RefreshInformation() override; // always true

private:
    // The tabs.
    void ShowDriver();
    void ShowSystem();
    void ShowSoftware();
    void ShowPorts();
    void ShowPrinters();
    void ShowSpecifications();
    void ShowStocks();
    void ShowBarCodes();
    void ShowSettings();

    // Parts of them.
    void ShowOperatingSystem();
    void ShowProcessor();
    void ShowUser();
    void ShowRegionalSettings();
    void ShowDrives();
    void ShowComponents();
    void ShowPrinter(const OString& name);
    void ShowConfigurationFile(const OString& path);
    void ShowDrawing();
    void ShowMethods();
    void ShowInterface();
    void ShowBarCode(int symbology);
    void ShowBarCodeOptions(int symbology, uint32_t options);

    void Tab(const UStringResource& title);
    // An item, unless there is no value.
    void ItemIfAny(int label, const OString& value);
    // An item with the text `otherwise` in place of an empty value.
    void ItemOr(int label, const OString& value, int otherwise);
    void LengthItem(int label, int32_t microns);
    void SupportItem(int label, bool is_supported);

    const KVCapabilitiesData* capabilities_ = nullptr; // the model's; null without memory
    bool is_prerelease_ = false;
};
