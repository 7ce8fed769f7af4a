// What the print spooler knows about one printer.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <memory>

#include "core/obuffer.h"
#include "core/ostring.h"
#include "core/ostring_array.h"

// Built on a printer handle or a printer name. Asks the spooler only when a getter first needs an
// answer, and only once: a PrinterInfo lives for one operation and does not follow later changes,
// except its own SetDevMode. For a printer that cannot be opened or asked, strings are empty and
// there is no DEVMODE. Not shared between threads.
//
// The spooler is asked through its wide-character functions or, where those do not exist (16-bit
// systems), through the ANSI ones.
class PrinterInfo {
public:
    // On a printer by name, "LABELS" or "\\SERVER\LABELS". It is opened for each question and
    // closed again.
    explicit PrinterInfo(const OString& name);

    // On an open printer handle, which is borrowed and never closed here. A null handle stands for
    // a printer that the spooler does not know.
    explicit PrinterInfo(void* handle);

    // On an open handle, or by name for a caller without one, as not every spooler opens a printer
    // to ask its driver. A null or empty name stands for a printer that the spooler does not know.
    static PrinterInfo Of(void* handle, const WCHAR* name);

    virtual ~PrinterInfo();

    PrinterInfo(const PrinterInfo&) = delete;
    PrinterInfo& operator=(const PrinterInfo&) = delete;

    // The printer's full name as the spooler spells it, or the name given to the constructor if the
    // spooler does not answer.
    const OString& GetPrinterName() const;

    // True if the spooler answered with the printer's record.
    bool IsKnown() const;
    // The same for the record of the printer's driver.
    bool IsDriverKnown() const;

    // The printer's record.
    const OString& GetServerName() const; // "\\SERVER"; empty for a local printer
    const OString& GetShareName() const;
    const OString& GetPortName() const;
    const OString& GetDriverName() const;
    const OString& GetComment() const;
    const OString& GetLocation() const;
    const OString& GetSeparatorFile() const;
    const OString& GetPrintProcessor() const;
    const OString& GetDatatype() const;
    const OString& GetParameters() const;
    uint32_t GetAttributes() const; // PRINTER_ATTRIBUTE_ bits

    // The printer's default DEVMODE, dmSize + dmDriverExtra bytes, or null if it has none. One from
    // an ANSI function is converted. The copy belongs to this object and is replaced by SetDevMode.
    const DEVMODEW* GetDevMode() const;

    // The record of the printer's driver. File names are without their folder.
    uint32_t GetDriverVersion() const;
    const OString& GetEnvironment() const;
    const OString& GetDriverDirectory() const; // the folder of the driver file
    const OString& GetDriverFile() const;
    const OString& GetDataFile() const;
    const OString& GetConfigFile() const;
    const OString& GetHelpFile() const;
    const OString& GetMonitorName() const;
    const OString& GetDefaultDatatype() const;
    const OStringArray& GetDependentFiles() const;
    // Empty if the spooler does not know driver information level 6.
    const OString& GetManufacturer() const;
    const OString& GetHardwareID() const;
    const OString& GetProvider() const;

    // The printer family's prefix: the first three characters of the data file's name, in lower
    // case ("zpl" of "ZPLQV.DDT"). Shorter or empty if the name is.
    OString GetPrefix() const;

    // The OEM code: the fourth and fifth character of the data file's name, in lower case ("qv").
    OString GetOEM() const;

    // The printer name without its server: the part after the first backslash at or after the third
    // character, or the full name if there is none.
    OString PrinterPart() const;

    // True if the printer has no server, or is one that the spooler does not know.
    bool IsLocal() const;

    // Makes `dev_mode` (dmSize + dmDriverExtra bytes) the printer's default. False if the printer
    // cannot be opened with full access, if the spooler refuses, and for null. From then on
    // GetDevMode returns the new default.
    bool SetDevMode(DEVMODEW* dev_mode);

private:
    struct PrinterRecord;
    struct DriverRecord;

    const PrinterRecord& Printer() const;
    const DriverRecord& Driver() const;
    void FetchPrinter() const;
    void FetchDriver() const;
    // Takes the spooler's answer, a PRINTER_INFO_2W or PRINTER_INFO_2A.
    template <typename Info>
    void TakePrinter(const OBuffer<unsigned char>& record) const;

    void* const handle_;
    mutable OString name_;
    mutable std::unique_ptr<PrinterRecord> printer_;
    mutable std::unique_ptr<DriverRecord> driver_;
    mutable OBuffer<unsigned char> dev_mode_;
};
