// Opens the test sheet and plays a script with it: sheet_player RESOURCES SCRIPT [PICTURES]. What
// it tells, in JSON, is what labelhost tells of a printer's sheet.
#include "fault.h"
#include "files.h"
#include "machine/machine.h"
#include "pages.h"
#include "sheet/session.h"
#include "text.h"

#include <cstdio>

namespace {

using Words = std::vector<std::string>;

bool OpenSheet(const std::string& resources) {
    const HMODULE library =
        LoadLibraryExW(ToWide(resources).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!library) throw Fault("cannot load '" + resources + "'");
    LoadTestControls();
    std::vector<HPROPSHEETPAGE> pages = MakeTestPages(library);
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.pszCaption = TEXT("Test sheet");
    header.nPages = static_cast<UINT>(pages.size());
    header.phpage = pages.data();
    return PropertySheetW(&header) >= 0;
}

int Play(const Words& words) {
    SheetPlan plan;
    plan.kind = "test";
    plan.has_script = words[1] != "none";
    if (plan.has_script) plan.acts = ParseScript(ReadBytes("cannot read script", words[1]));
    if (words.size() > 2) plan.pictures = words[2];
    const OpenedThings opened(GetModuleHandleW(nullptr));
    Session session(std::move(plan));
    session.End(OpenSheet(words[0]));
    Json told = session.Told();
    told["acts"] = opened.Told();
    PrintJson(told);
    if (!session.fault().empty()) throw Fault(session.fault());
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        Words words(argv + 1, argv + argc);
        if (words.size() > 2 && words[0] == "--root") {
            UseRoot(words[1]);
            words.erase(words.begin(), words.begin() + 2);
        }
        if (words.size() < 2)
            throw UsageFault("usage: sheet_player [--root DIR] RESOURCES SCRIPT [PICTURES]");
        return Play(words);
    } catch (const UsageFault& fault) {
        std::fprintf(stderr, "sheet_player: %s\n", fault.what());
        return 2;
    } catch (const Fault& fault) {
        std::fprintf(stderr, "sheet_player: %s\n", fault.what());
        return 1;
    }
}
