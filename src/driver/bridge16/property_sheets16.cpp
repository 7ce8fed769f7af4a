#include "driver/bridge16/property_sheets16.h"

#include "core/obuffer.h"
#include "driver/bridge16/convert_dialog.h"
#include "driver/bridge16/find_sheet16.h"
#include "driver/bridge16/page32.h"
#include "driver/bridge16/placeholder_templates.h"
#include "driver/bridge16/sheet_window.h"
#include "driver/bridge16/tab_names16.h"
#include "registry/oregistry.h"
#include "ui/prt_prop_sheet.h"
#include "ui/prtui.h"

namespace {

constexpr char kLaunchKey[] = "LOCAL:X16/Launch/";
constexpr UINT kLookAgain = 10; // milliseconds

void PublishTemplates(const prtui& ui) {
    ORegistry registry;
    const int count = ui.pages16.GetSize();
    for (int i = 0; i < count; ++i) {
        uint32_t size = 0;
        const void* const page = ui.locale.GetDialog(ui.pages16.GetName(i), &size);
        const auto bytes = static_cast<int>(size);
        const uint32_t length = ConvertDialog(page, bytes, nullptr, 0);
        OBuffer<unsigned char> converted(length);
        ConvertDialog(page, bytes, converted.GetData(), static_cast<int>(converted.GetSize()));
        registry.SetBinary(OString(kLaunchKey) << "Template" << i, converted.GetData(),
                           converted.GetSize());
    }
    registry.SetDWORD(OString(kLaunchKey) << "Template Count", static_cast<uint32_t>(count));
}

// The 16-bit driver's sheet, or null if there will be none.
HWND WaitForSheet16(const prtui& ui) {
    const UINT_PTR timer = SetTimer(nullptr, 0, kLookAgain, nullptr);
    if (!timer) return nullptr;
    HWND found = nullptr;
    MSG message = {};
    while (!found && ui.channel16.IsAlive()) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            // The program has to see it, too.
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
        found = X16_FindSheet16(ui.printer_name);
    }
    KillTimer(nullptr, timer);
    return found;
}

void StartSheet(prtPropSheet& sheet, prtui* ui) {
    sheet.Init(ui);
    sheet.SetTitle(ui->printer_name);
    sheet.SetFlags(PSH_PROPTITLE);
}

} // namespace

int X16_CreatePropertySheet(prtui* ui, HWND parent) {
    prtPropSheet sheet;
    StartSheet(sheet, ui);
    sheet.AddPages(ui->pages16);
    if (ui->start_on_last) sheet.SetStartPage(sheet.GetPageCount() - 1);
    return sheet.Display(parent);
}

int X16_AppendPropertySheet(prtui* ui) {
    PublishTemplates(*ui);
    const SheetWindow sheet16(WaitForSheet16(*ui));
    if (!sheet16.Get()) return IDCANCEL;

    PlaceholderTemplates templates; // outlives the sheet
    prtPropSheet sheet;
    StartSheet(sheet, ui);
    prtreg registry(ui->model->GetRegistry());
    OStringArray names;
    GetTabNames16(registry, sheet16, sheet16.TabCount() - ui->pages16.GetSize(), names);
    for (int i = 0; i < names.GetSize(); ++i)
        sheet.AddPageTemplate(templates.Add(names[i]), X16_Page32::DlgProc);
    sheet.AddPages(ui->pages16);
    return sheet.Display(GetParent(sheet16.Get()));
}
