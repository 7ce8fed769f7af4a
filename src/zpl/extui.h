// The UI object of ZPL II printers.
#pragma once

#include "ui/prtui.h"
#include "zpl/extstream.h"

// Operations on a memory of the printer.
enum class MemoryWork {
    FORMAT, // deletes everything in it
    PRINT,  // prints a list of its files
    ERASE,  // deletes its files
    RESET,  // of the optional memory, whatever memory that is
};

// How a printer with a battery saves power.
struct PowerSettings {
    bool sleep = false; // after a time without work
    bool low_voltage_pause = true;
    bool forced_sleep = false; // also with labels still to print
    int32_t timeout = 1;       // seconds until it sleeps
};

class extui : public prtui {
public:
    // Made by prtui::new_ext.
    extui() = default;
    // Destroys the stream first: its last bytes are sent while the printer is known.
    ~extui() override;

    void InitEx() override;

    // The framework's pages, then those of ZPL II printers. Defined in zpl/pages/page_groups.cpp.
    int32_t AddPages(uint32_t groups) override;

    // 8192 KB, numbers 0 to 999, and all memories of the model.
    void GetCacheParameters(CacheParameters& parameters) const override;

    // Whether the printer can answer.
    bool EnableVerifyFonts(prtstream& stream) override;

    void PrinterAction(prtpage* page, printer_action action) override;

    // ---- The work of the dialogs, and of programs in their place, for a model that exists.

    // Runs in a job named after the work. `memory` is the letter of the memory. Except for PRINT,
    // the rendering module forgets the objects it has stored there.
    void RunMemoryWork(MemoryWork work, char memory);
    // The settings as last stored.
    PowerSettings GetPowerSettings() const;
    // Stores the settings and sends them to the printer. False, with nothing sent, if they could
    // not be stored.
    [[nodiscard]] bool SetPowerSettings(const PowerSettings& settings);
    void DischargeBattery();

    // Tells the rendering module that the memory of that letter no longer holds the objects it has
    // stored there. Makes no job.
    void ClearCachedObjects(int32_t location);

    // The display name of the memory with this letter, or the letter if the library has no text
    // for it.
    OString MemoryName(const OString& letter) const;

    // The user names the file, in the eight characters that a printer allows, and chooses a memory;
    // the model's default one comes first.
    void ChooseFontSettings(CFontSettings* settings) override;
    bool VerifyFonts(prtpage* page) override;
    // Gives the file its extension, and the font a letter that no other font of the printer has. To
    // find it, the list of fonts is read again.
    void AdjustFontInfo(DownloadedFontInfo* font) override;

protected:
    void Settle(DevMode& settings) const override;

    // The actions of ZPL II printers, then those of all printers.
    const ActionRow* FindAction(printer_action action) const override;

private:
    extstream stream_;
};
