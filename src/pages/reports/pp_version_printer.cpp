// ppVersion: this printer's specifications, stocks and port.
#include <winspool.h>

#include "locale/report_text_numbers.h"
#include "locale/text_numbers.h"
#include "model/driver_settings.h"
#include "model/prtmodel.h"
#include "pages/reports/pp_version.h"
#include "printer/prtstream.h"
#include "spooler/platform_flags.h"
#include "spooler/printer_info.h"
#include "ui/prtui.h"

namespace {

// Right, left and centre, as the model numbers them.
constexpr int kTrackings[] = {TEXT_RIGHT_TRACKED, TEXT_LEFT_TRACKED, TEXT_CENTRE_TRACKED};

constexpr uint32_t kAnyColor = 255;

} // namespace

// ---- Specifications -----------------------------------------------------------------------------

void ppVersion::ShowSpecifications() {
    Tab(TEXT_INFO_SPECIFICATIONS_TAB);
    const prtmodel& model = *GetModel();
    OString heading = GetString(TEXT_INFO_PRINTER_HEADING);
    DriverSettings settings;
    settings.Load(registry_);
    if (settings.OverrideSpecifications()) heading << " " << GetString(TEXT_INFO_OVERRIDDEN);
    Info_Header(heading);
    const int tracking = model.GetTracking();
    Info_Item(TEXT_INFO_TRACKING, kTrackings[tracking >= 0 && tracking < 2 ? tracking : 2]);
    Info_Item(TEXT_INFO_ORIENTATION, TEXT_FIRST_ROTATION + model.GetNaturalOrientation());
    LengthItem(TEXT_INFO_PRINTABLE_WIDTH, model.GetPrintableWidth().Microns());
    LengthItem(TEXT_INFO_PAPER_LENGTH, model.GetPaperLengthMax().Microns());
    LengthItem(TEXT_INFO_UNPRINTABLE_WIDTH, model.GetUnprintableWidth().Microns());
    // In dots per inch for users of metric units, too.
    const auto resolution = [this](int label, int dpi) {
        Info_Item(label, FormatInt(dpi) + " " + GetString(TEXT_DOTS_PER_INCH));
    };
    const int map = model.GetMapResolution();
    resolution(TEXT_INFO_HORIZONTAL_RESOLUTION, model.GetXResolution());
    resolution(TEXT_INFO_VERTICAL_RESOLUTION, model.GetYResolution());
    resolution(TEXT_INFO_MAP_RESOLUTION, map != 0 ? map : model.GetYResolution());
    SupportItem(TEXT_INFO_ROTATION, model.CanFlip180());
    SupportItem(TEXT_INFO_MIRROR, model.CanMirror());
    SupportItem(TEXT_INFO_NEGATIVE, model.CanNegative());
    if (model.ColorSupport(kAnyColor))
        Info_Item(TEXT_INFO_COLOR, "CMYK");
    else
        Info_Item(TEXT_INFO_COLOR, TEXT_MONOCHROME);
    if (capabilities_) ShowDrawing();
    const uint32_t copies = GetUI()->DeviceCapabilitiesW(DC_COPIES, nullptr);
    Info_Item(TEXT_INFO_COPIES, FormatInt(static_cast<int32_t>(copies)));
    if (capabilities_) ShowMethods();
    ShowInterface();
}

// Adds an item about lines or boxes with their greatest thickness.
void ppVersion::ShowDrawing() {
    Info_Header(TEXT_INFO_DRAWING_HEADING);
    const auto show = [this](int label, uint16_t bits, int thickness) {
        if (bits == 0) return SupportItem(label, false);
        OString text = GetString(TEXT_INFO_SUPPORTED);
        if (thickness != 0) text << " (" << thickness << " " << GetString(TEXT_INFO_DOTS) << ")";
        Info_Item(label, text);
    };
    show(TEXT_INFO_LINES, capabilities_->line_bits, GetModel()->GetMaxLineThickness());
    show(TEXT_INFO_BOXES, capabilities_->box_bits, GetModel()->GetMaxBoxThickness());
}

void ppVersion::ShowMethods() {
    using Bits = KVCapabilitiesData;
    const uint16_t methods = capabilities_->method_bits;
    SupportItem(TEXT_INFO_SERIALIZATION, methods & Bits::SERIALIZATION);
    SupportItem(TEXT_INFO_VARIABLE_DATA, methods & Bits::VARIABLE_DATA);
    Info_Item(TEXT_INFO_STATIC_FIELDS, methods & Bits::STATIC_FIELDS     ? TEXT_INFO_SUPPORTED
                                       : methods & Bits::STATIC_GRAPHICS ? TEXT_INFO_STATIC_GRAPHICS
                                       : methods & Bits::STATIC_GRAPHICS_ONLY
                                           ? TEXT_INFO_STATIC_GRAPHICS_ONLY
                                           : TEXT_INFO_NOT_SUPPORTED);
    SupportItem(TEXT_INFO_GRAPHIC_CACHE, methods & Bits::CACHE_GRAPHIC);
    SupportItem(TEXT_INFO_FORMAT_CACHE, methods & Bits::CACHE_FORMAT);
    SupportItem(TEXT_INFO_TEMPLATE_EXPORT, methods & Bits::TEMPLATE_EXPORT);
}

void ppVersion::ShowInterface() {
    Info_Header(TEXT_INFO_INTERFACE_HEADING);
    Info_Item(TEXT_INFO_INTERFACE, winNT ? "32-bit" : "16-bit");
    if (const KVDriverInfo* const driver = GetModel()->GetDriverInfo()) {
        OString version;
        version << driver->release_major << "." << driver->release_minor;
        Info_Item(TEXT_INFO_INTERFACE_VERSION, version);
        Info_Item(TEXT_INFO_INTERFACE_REVISION, FormatInt(driver->release_number));
    }
    if (const KVManufacturerInfo* const maker = GetModel()->GetManufacturerInfo()) {
        Info_Item(TEXT_INFO_MAKER, maker->company_name);
        Info_Item(TEXT_INFO_MANUFACTURER, maker->manufacturer);
        Info_Item(TEXT_INFO_OEM, maker->oem);
    }
    Info_Item(TEXT_INFO_PREFIX, GetModel()->GetPrefix());
}

// ---- Stocks -------------------------------------------------------------------------------------

void ppVersion::ShowStocks() {
    Tab(TEXT_LABEL_SIZES);
    const StockList& stocks = GetUI()->stocks;
    for (const Stock* stock = stocks.GetNextValid(nullptr); stock;
         stock = stocks.GetNextValid(stock)) {
        Info_Header(stock->GetName());
        LengthItem(TEXT_INFO_WIDTH, stock->width);
        LengthItem(TEXT_INFO_LENGTH, stock->length);
        LengthItem(TEXT_INFO_LINER_LEFT, stock->liner_left);
        LengthItem(TEXT_INFO_LINER_RIGHT, stock->liner_right);
    }
}

// ---- This printer's settings --------------------------------------------------------------------

void ppVersion::ShowSettings() {
    Tab(TEXT_INFO_SETTINGS_TAB);
    const PrinterInfo printer(GetUI()->printer_name);
    Info_Item(TEXT_INFO_PRINTER, printer.GetPrinterName());
    Info_Item(TEXT_INFO_PORT, printer.GetPortName());
    Info_Line("");
    prtstream* const stream = GetUI()->stream;
    const OString type = stream ? stream->GetPortType() : OString();
    if (type.IsEmpty()) {
        Info_Item(TEXT_INFO_PORT_FACTS, TEXT_INFO_NOT_AVAILABLE);
        return;
    }
    Info_Item(TEXT_INFO_PORT_FACTS, TEXT_INFO_AVAILABLE);
    Info_Item(TEXT_INFO_PORT_TYPE, type);
    if (type != "TCP/IP") return;
    Info_Item(TEXT_INFO_ADDRESS, stream->GetPortIPAddress());
    Info_Item(TEXT_INFO_UDP_PORT, stream->GetPortUDPPort());
    Info_Item(TEXT_INFO_PORT_MONITOR, stream->GetPortMonitorName());
    Info_Item(TEXT_INFO_DESCRIPTION, stream->GetPortDescription());
    Info_Item(TEXT_INFO_PROTOCOL, stream->GetPortProtocol());
}
