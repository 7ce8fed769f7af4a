// The UI object of ZPL II printers.
#pragma once

#include "driver/prtui.h"
#include "zpl/extstream.h"

class extui : public prtui {
public:
    // Made by prtui::new_ext.
    extui() = default;
    // The stream goes first: what it still holds is sent while the printer is known.
    ~extui() override;

    void InitEx() override;

    // 8192 KB, numbers 0 to 999, and every memory of the model.
    void GetCacheParameters(CacheParameters& parameters) const override;

    // Whether the printer can answer.
    bool EnableVerifyFonts(prtstream& stream) override;

    void PrinterAction(prtpage* page, printer_action action) override;
    uint32_t PrinterActionSupported(prtpage* page, printer_action action) override;

    // Tells the rendering module that the memory of that letter no longer holds what it has stored
    // there. Makes no job.
    void ClearCachedObjects(int32_t location);

    // The user names the file, in the eight characters that a printer has for it, and chooses a
    // memory; the model's default one comes first.
    void ChooseFontSettings(CFontSettings* settings) override;
    bool VerifyFonts(prtpage* page) override;
    // Gives the file its ending and the font a letter that no other one of the printer's has. The
    // list of fonts is read anew for that.
    void AdjustFontInfo(DownloadedFontInfo* font) override;

private:
    // What the user knows a memory by, whose letter is given: that letter where there is no text.
    OString MemoryName(const OString& location) const;
    // Whether the printer can cut and is not left to its own print mode.
    bool CanCut() const;
    // The configuration in a format of its own.
    void WriteConfiguration();
    // Jobs of the action's name: a control command; the configuration, and behind it a format with
    // a command.
    void RunControl(printer_action action, const char* command);
    void RunConfigured(printer_action action, const char* command);

    extstream stream_;
};
