#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "files.h"
#include "json.h"
#include "machine/dev_mode_bytes.h"
#include "machine/driver_module.h"
#include "machine/printer.h"
#include "sheet/people.h"
#include "sheet/session.h"
#include "sheet/version_report.h"
#include "text.h"

#include <windows.h>

#include <printer_sheets/printer_sheets.h>

#include <iostream>
#include <optional>

namespace {

using printer_sheets::Ended;

// Dots per inch of a screen.
constexpr uint32_t kUsualScreen = 96;
constexpr uint32_t kFinestScreen = 2400;

constexpr const char* kSheetUsage =
    "sheet PRINTER [--document | --defaults | --device] [--in FILE] [--out FILE] [--run SCRIPT] "
    "[--pictures DIR] [--dpi N] [--version-report FILE] [--json]";

// Which of the sheets is meant.
std::string KindIn(const Arguments& arguments) {
    std::string kind;
    for (const char* name : {"document", "defaults", "device"}) {
        if (!arguments.Has(name)) continue;
        if (!kind.empty()) throw UsageFault(std::string("usage: labelhost ") + kSheetUsage);
        kind = name;
    }
    if (kind.empty()) kind = "document";
    if (kind != "document" && (arguments.Has("in") || arguments.Has("out")))
        throw UsageFault("--in and --out are for document settings");
    return kind;
}

std::string ScriptText(const std::string& file) {
    if (file != "-") return ReadBytes("cannot read script", file);
    return ReadBytes(std::cin);
}

SheetPlan PlanOf(const Arguments& arguments, const std::string& kind) {
    SheetPlan plan;
    plan.kind = kind;
    plan.has_script = arguments.Has("run");
    if (plan.has_script) plan.acts = ParseScript(ScriptText(arguments.Get("run", "")));
    plan.pictures = arguments.Get("pictures", "");
    if (plan.pictures.empty()) return plan;
    std::error_code error;
    std::filesystem::create_directories(PathOf(plan.pictures), error);
    if (error) throw Fault("cannot make folder '" + plan.pictures + "': " + error.message());
    return plan;
}

// A printer as the folder of printers opens it: to be changed if its user may.
class AdministeredPrinter {
public:
    explicit AdministeredPrinter(const std::string& name) {
        if (Opens(name, PRINTER_ALL_ACCESS))
            printer_.emplace(name, PRINTER_ALL_ACCESS);
        else
            printer_.emplace(name, PRINTER_ACCESS_USE);
    }

    HANDLE handle() const { return printer_->handle(); }
    bool may_change() const { return may_change_; }

private:
    bool Opens(const std::string& name, ACCESS_MASK access) {
        WideString wide = ToWide(name);
        PRINTER_DEFAULTSW wanted = {};
        wanted.DesiredAccess = access;
        HANDLE handle = nullptr;
        may_change_ = OpenPrinterW(wide.data(), &handle, &wanted) != FALSE;
        if (may_change_) ClosePrinter(handle);
        return may_change_;
    }

    bool may_change_ = false;
    std::optional<OpenedPrinter> printer_;
};

// Opens the sheet and answers how it ended. `output` becomes what a program gets.
Ended OpenSheet(const std::string& kind, const std::string& name, DevModeBytes* input,
                std::vector<BYTE>& output) {
    const WideString wide = ToWide(name);
    if (kind == "document") {
        const OpenedPrinter printer(name, PRINTER_ACCESS_USE);
        return printer_sheets::ShowDocument(nullptr, printer.handle(), wide,
                                            input ? input->get() : nullptr, output);
    }
    const AdministeredPrinter printer(name);
    const auto show =
        kind == "defaults" ? printer_sheets::ShowDefaults : printer_sheets::ShowDevice;
    return show(nullptr, printer.handle(), wide, printer.may_change());
}

} // namespace

void SheetCommand(const Words& words) {
    const Arguments arguments(words, {"in", "out", "run", "pictures", "dpi", "version-report"},
                              {"document", "defaults", "device", "json"});
    arguments.RequireCount(1, 1, kSheetUsage);
    const std::string& name = arguments[0];
    const std::string kind = KindIn(arguments);
    SheetPlan plan = PlanOf(arguments, kind);
    std::optional<VersionReport> report;
    if (arguments.Has("version-report")) {
        if (plan.has_script) throw UsageFault("--version-report and --run exclude each other");
        report.emplace(arguments.Get("version-report", ""));
        plan.has_script = true;
        plan.make_acts = [&report](int pages) { return report->Acts(pages); };
    }
    if (arguments.Has("dpi"))
        SetScreenResolution(static_cast<int>(arguments.Number("dpi", kFinestScreen, kUsualScreen)));
    std::optional<DevModeBytes> input;
    if (arguments.Has("in")) input = DevModeBytes::ReadFrom(arguments.Get("in", ""));

    const DriverModule driver(name);
    const OpenedThings opened(driver.module());
    Session session(std::move(plan));
    std::vector<BYTE> output;
    SetLastError(ERROR_SUCCESS);
    const Ended ended = OpenSheet(kind, name, input ? &*input : nullptr, output);
    const DWORD error = GetLastError();
    session.End(ended != Ended::Failed);

    Json told = {{"printer", name}, {"kind", kind}};
    told.update(session.Told());
    told["acts"] = opened.Told();
    const bool confirmed = told["result"] == "ok" || told.contains("applied");
    if (arguments.Has("out") && confirmed && !output.empty())
        DevModeBytes(output, "the driver of '" + name + "'").WriteTo(arguments.Get("out", ""));
    if (report && session.fault().empty() && told["result"] != "failed") {
        report->Keep();
        told["version_report"] = arguments.Get("version-report", "");
    }
    if (arguments.Has("json"))
        PrintJson(told);
    else
        PrintForPeople(told);
    if (!session.fault().empty()) throw Fault(session.fault());
    if (told["result"] == "failed")
        throw SystemFault("the sheet of '" + name + "' cannot be opened", error);
}
