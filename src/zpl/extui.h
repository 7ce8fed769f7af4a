// The UI object of ZPL II printers.
#pragma once

#include "ui/prtui.h"
#include "zpl/extstream.h"

// What is done to a memory of the printer.
enum class MemoryWork {
    FORMAT, // deletes all that is in it
    PRINT,  // a list of its files
    ERASE,  // deletes its files
    RESET,  // of the optional memory, whichever that is
};

// How a printer with a battery saves it.
struct PowerSettings {
    bool sleep = false; // after a time without work
    bool low_voltage_pause = true;
    bool forced_sleep = false; // also with labels still to print
    int32_t timeout = 1;       // until it sleeps, seconds
};

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

    // ---- What the dialogs do, and programs in their place, for a model that exists.

    // In a job of the work's name. `memory` is the letter of the memory that is meant; but for
    // PRINT the rendering module forgets what it has stored there.
    void RunMemoryWork(MemoryWork work, char memory);
    // As they were set last.
    PowerSettings GetPowerSettings() const;
    // Stores the settings and sends them to the printer.
    void SetPowerSettings(const PowerSettings& settings);
    void DischargeBattery();

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

protected:
    // Those of ZPL II printers, and then those of all printers.
    const ActionRow* FindAction(printer_action action) const override;

private:
    // The display name of the memory with this letter, or the letter if the library has no text
    // for it.
    OString MemoryName(const OString& letter) const;

    extstream stream_;
};
