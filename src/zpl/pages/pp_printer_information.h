// The report of what a printer says about itself.
#pragma once

#include "pages/reports/pp_information.h"
#include "zpl/zpl_query.h"

class ppPrinterInformation : public ppInformation {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppPrinterInformation>;

    // Asks the printer. True always; the report is empty if the printer does not answer.
    bool RefreshInformation() override;

private:
    void ShowPrinter(const OPropertySet& answers);
    void ShowCommunication(const OPropertySet& answers);
    void ShowMemory(const OPropertySet& answers);
    void ShowSettings(const OPropertySet& answers);
    void ShowConfiguration(const OStringArray& lines);
    void ShowStatus(const OPropertySet& answers);
    void ShowFiles(const OStringArray& files);
    // A label and the printer's answer; empty if it gave none.
    void Item(int label, const OPropertySet& answers, const char* name);
};
