// The page for resolution, colour and the screening of pictures.
#pragma once

#include "core/oarray.h"
#include "model/model_records.h"
#include "pages/graphics/dither_preview.h"
#include "ui/prtpage.h"
#include "ui/uradio_button.h"

// Edits the document settings and their dithering in place, and shows what a sample picture then
// looks like.
class ppGraphics : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppGraphics>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool PaletteChange(UINT message, WPARAM first, LPARAM second) override;
    const char* HelpTopic() override { return "/base/Graphics.html"; }

    // Open the dialogs: IDOK or IDCANCEL.
    int ColorAdjustment();
    int DitherSetup();

private:
    void FillLists();
    void FillResolutions();
    void FillColors();
    void FillColorMatching();
    void EnableControls();
    void ShowPreview();
    void SelectColor();
    void SelectColorMatching();
    void SelectMethod();
    // Whether the system's own halftones are edited, not the driver's.
    bool UsesSystemHalftones() const;
    bool PrintsInColor() const { return devmode_.GetColor() != DMCOLOR_MONOCHROME; }

    URadioButton method_;
    OTypedArray<uint16_t> method_values_; // of the buttons of `method_`
    DitherCapabilities capabilities_ = {};
    DitherPreview preview_;
};
