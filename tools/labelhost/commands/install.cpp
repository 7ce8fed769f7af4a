#include "arguments.h"
#include "commands/commands.h"
#include "commands/progress.h"
#include "fault.h"
#include "files.h"
#include "machine/install_driver.h"
#include "machine/printer.h"
#include "text.h"

#include <windows.h>
#include <winspool.h>

#include <cstdio>
#include <fstream>
#include <set>
#include <sstream>
#include <utility>

namespace {

constexpr const char* kInstallUsage =
    "install PRINTER --model NAME | --list FILE  [--oem CODE] [--port PORT] [--product DIR] "
    "[--progress]";

struct NewPrinter {
    std::string name, model, port;
};

void AddPrinter(const NewPrinter& printer, const Model& model, const DriverFiles& files) {
    WideString name = ToWide(printer.name);
    WideString port = ToWide(printer.port);
    WideString driver = ToWide(model.name);
    WideString processor = TEXT("WinPrint");
    WideString data_type =
        ToWide(files.default_data_type.empty() ? "RAW" : files.default_data_type);
    PRINTER_INFO_2W info = {};
    info.pPrinterName = name.data();
    info.pPortName = port.data();
    info.pDriverName = driver.data();
    info.pPrintProcessor = processor.data();
    info.pDatatype = data_type.data();
    // The printer can answer on this port.
    info.Attributes = PRINTER_ATTRIBUTE_LOCAL | PRINTER_ATTRIBUTE_ENABLE_BIDI;
    info.Priority = 1;
    const HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    if (!handle)
        throw SystemFault("cannot add printer '" + printer.name + "' on port '" + printer.port +
                              "'",
                          GetLastError());
    ClosePrinter(handle);
}

// Adds printers and, before the first one of a model, its driver.
class Installer {
public:
    explicit Installer(const Arguments& arguments)
        : product_(arguments.Get("product", DefaultProductFolder()))
        , oem_(arguments.Get("oem", "")) {}

    // Throws Fault if there is no such model, or no driver files for its brand.
    void Check(const std::string& model) const { FilesOf(product_.FindModel(model)); }

    // Answers the model's own spelling of its name.
    const std::string& Install(const NewPrinter& printer) {
        const Model& model = product_.FindModel(printer.model);
        const DriverFiles files = FilesOf(model);
        if (drivers_.insert(model.name).second) InstallDriver(product_, model, files);
        AddPrinter(printer, model, files);
        return model.name;
    }

private:
    DriverFiles FilesOf(const Model& model) const {
        return product_.FilesOf(oem_.empty() ? model.oem : oem_);
    }

    const Installation product_;
    const std::string oem_;
    std::set<std::string> drivers_; // installed so far
};

// A printer's line holds its name, its model and, optionally, its port in place of the usual one,
// separated by tabs. Lines that are empty or start with # are skipped.
std::vector<NewPrinter> ReadList(const std::string& file, const std::string& port) {
    std::ifstream in(PathOf(file), std::ios::binary);
    if (!in) throw FileFault("cannot read", file);
    std::vector<NewPrinter> printers;
    size_t number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        std::vector<std::string> fields;
        std::istringstream text(line);
        for (std::string field; std::getline(text, field, '\t');) fields.push_back(Trim(field));
        if (Trim(line).empty() || line[0] == '#') continue;
        if (fields.size() < 2 || fields.size() > 3 || fields[0].empty() || fields[1].empty())
            throw Fault("'" + file + "' line " + std::to_string(number) +
                        ": a printer's name, its model and its port have tabs between them");
        printers.push_back(
            {fields[0], fields[1], fields.size() > 2 && !fields[2].empty() ? fields[2] : port});
    }
    if (in.bad()) throw FileFault("cannot read", file); // for example, a folder
    return printers;
}

void InstallOne(Installer& installer, const NewPrinter& printer) {
    installer.Check(printer.model);
    if (PrinterExists(printer.name)) throw Fault("a printer '" + printer.name + "' exists");
    const std::string& model = installer.Install(printer);
    std::printf("%s: %s on %s\n", printer.name.c_str(), model.c_str(), printer.port.c_str());
}

// A printer that already exists was installed by an interrupted run.
void InstallUnlessThere(Installer& installer, const NewPrinter& printer) {
    if (!PrinterExists(printer.name)) return InstallOne(installer, printer);
    const PrinterFacts facts = FactsOf(printer.name);
    if (!SameText(facts.driver, printer.model) || !SameText(facts.port, printer.port))
        throw Fault("a printer '" + printer.name + "' exists, a " + facts.driver + " on " +
                    facts.port);
    std::printf("%s: is there already\n", printer.name.c_str());
}

void InstallAll(Installer& installer, const std::vector<NewPrinter>& printers, bool progress) {
    for (const NewPrinter& printer : printers) installer.Check(printer.model);
    Progress work("installed", printers.size(), progress);
    for (const NewPrinter& printer : printers) {
        work.Next();
        try {
            InstallUnlessThere(installer, printer);
        } catch (const Fault& fault) {
            work.Failed(fault.what());
        }
    }
    work.Finish();
}

} // namespace

void InstallCommand(const Words& words) {
    const Arguments arguments(words, {"model", "list", "oem", "port", "product"}, {"progress"});
    const bool one = arguments.Has("model"), many = arguments.Has("list");
    if (one == many || arguments.size() != (one ? 1 : 0))
        throw UsageFault(std::string("usage: labelhost ") + kInstallUsage);

    const std::string port = arguments.Get("port", "FILE:");
    Installer installer(arguments);
    if (one)
        InstallOne(installer, {arguments[0], arguments.Get("model", ""), port});
    else
        InstallAll(installer, ReadList(arguments.Get("list", ""), port), arguments.Has("progress"));
}

void RemoveCommand(const Words& words) {
    const Arguments arguments(words, {}, {});
    arguments.RequireCount(1, 1, "remove PRINTER");
    OpenedPrinter printer(arguments[0], PRINTER_ALL_ACCESS);
    if (!DeletePrinter(printer.handle()))
        throw SystemFault("cannot remove printer '" + arguments[0] + "'", GetLastError());
}
