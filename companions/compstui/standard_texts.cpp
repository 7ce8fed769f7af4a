// The texts that the common property sheets have for drivers, in English.
#include "compstui/sheet_functions.h"

#include <iterator>

namespace compstui {
namespace {

// clang-format off
// From IDS_CPSUI_STRID_FIRST on, in the order of their numbers.
constexpr LPCWSTR kTexts[] = {
    TEXT("Setup"), TEXT("More"), TEXT("Change"), TEXT("Option"), TEXT("of"), TEXT("Range: from"),
    TEXT("to"), TEXT(": "), TEXT("<"), TEXT(">"), TEXT("/"), TEXT("%"), TEXT("(none)"),
    TEXT("Properties"), TEXT("Default Document"), TEXT("Document"), TEXT("Advanced Document"),
    TEXT("Printer"), TEXT("Automatically Select"), TEXT("Paper/Output"), TEXT("Graphic"),
    TEXT("Options"), TEXT("Advanced"), TEXT("Page Setup"), TEXT("Advanced"), TEXT("Device Options"),
    TEXT("False"), TEXT("True"), TEXT("No"), TEXT("Yes"), TEXT("Off"), TEXT("On"), TEXT("Default"),
    TEXT("Error"), TEXT("None"), TEXT("Not"), TEXT("Exist"), TEXT("Not Installed"),
    TEXT("Orientation"), TEXT("Scaling"), TEXT("Number of Copies"), TEXT("Source"),
    TEXT("Print Quality"), TEXT("Resolution"), TEXT("Color Appearance"), TEXT("Duplex"),
    TEXT("TrueType Font"), TEXT("Form Name"), TEXT("Image Color Management"), TEXT("ICM Method"),
    TEXT("ICM Intent"), TEXT("Media"), TEXT("Dithering"), TEXT("Portrait"), TEXT("Landscape"),
    TEXT("Rotated Landscape"), TEXT("Collate"), TEXT("Collated"), TEXT("Printer Folder Setting"),
    TEXT("Draft"), TEXT("Low"), TEXT("Medium"), TEXT("High"), TEXT("Presentation"), TEXT("Color"),
    TEXT("Grayscale"), TEXT("Monochrome"), TEXT("Simplex"), TEXT("Horizontal"), TEXT("Vertical"),
    TEXT("Long Side"), TEXT("Short Side"), TEXT("Print as Graphics"), TEXT("Download as Soft Font"),
    TEXT("Download as Outlines"), TEXT("Substitute with Device Font"), TEXT("Black and White"),
    TEXT("No ICM"), TEXT("Use ICM"), TEXT("Saturation"), TEXT("Contrast"), TEXT("Exact Color"),
    TEXT("Standard"), TEXT("Glossy"), TEXT("Transparency"), TEXT("Regular"), TEXT("Bond"),
    TEXT("Coarse"), TEXT("Fine"), TEXT("Line Art"), TEXT("Error Diffusion"), TEXT("Halftone"),
    TEXT("Halftone Color Adjustment"), TEXT("Halftoning by the Computer"),
    TEXT("Halftoning by the Device"), TEXT("Halftoning by the Printer"),
    TEXT("Output Bin Assignment"), TEXT("Watermark"), TEXT("Form to Tray Assignment"),
    TEXT("Upper Tray"), TEXT("Only One"), TEXT("Lower Tray"), TEXT("Middle Tray"),
    TEXT("Manual Feed Tray"), TEXT("Envelope Tray"), TEXT("Envelope, Manual Feed"),
    TEXT("Tractor Feed"), TEXT("Small Format Tray"), TEXT("Large Format Tray"),
    TEXT("Large Capacity Tray"), TEXT("Cassette"), TEXT("Default Tray"), TEXT("Form Source"),
    TEXT("Manual Feed"), TEXT("Printer Memory (KB)"), TEXT("Printer Memory (MB)"),
    TEXT("Page Protection"), TEXT("Halftone Setup"), TEXT("Installed Font Cartridges"),
    TEXT("Slot 1"), TEXT("Slot 2"), TEXT("Slot 3"), TEXT("Slot 4"), TEXT("Left Slot"),
    TEXT("Right Slot"), TEXT("Stapler"), TEXT("Stapler On"), TEXT("Stapler Off"), TEXT("Stacker"),
    TEXT("Mailbox"), TEXT("Copy"), TEXT("Copies"), TEXT("Total"), TEXT("Make"), TEXT("Print"),
    TEXT("Fax"), TEXT("Plot"), TEXT("Slow"), TEXT("Fast"), TEXT("Rotated"), TEXT("Reset"),
    TEXT("All"), TEXT("Device"), TEXT("Settings"), TEXT("Revert"), TEXT("Changes"), TEXT("Changed"),
    TEXT("Warning"), TEXT("About"), TEXT("Version"), TEXT("No Name"), TEXT("Setting"),
    TEXT("Device Settings"), TEXT("Layout"), TEXT("Paper/Quality"), TEXT("Page Order"),
    TEXT("Front to Back"), TEXT("Back to Front"), TEXT("Quality Settings"), TEXT("Draft"),
    TEXT("Better"), TEXT("Best"), TEXT("Custom"), TEXT("Output Bin"), TEXT("Pages Per Sheet"),
    TEXT("1"), TEXT("2"), TEXT("4"), TEXT("6"), TEXT("9"), TEXT("16"), TEXT("Side 1"),
    TEXT("Side 2"), TEXT("Booklet"),
};
// clang-format on

static_assert(IDS_CPSUI_STRID_FIRST + std::size(kTexts) == 64874, "one text for each number");

} // namespace

LPCWSTR StandardText(UINT number) {
    if (number < IDS_CPSUI_STRID_FIRST || number - IDS_CPSUI_STRID_FIRST >= std::size(kTexts))
        return nullptr;
    return kTexts[number - IDS_CPSUI_STRID_FIRST];
}

} // namespace compstui
