// Settings files: a printer's stocks, presets, fonts and driver settings as one text.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/ofile.h"
#include "fonts/data_font_manager.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"

// A settings file is UTF-8 text:
//
//   <driver version='6.6'>
//
//   <stock> ... </stock>                  see StockList::Export
//   <preset> ... </preset>                    PresetList::Export
//   <font type='Bar Code'> ... </font>        DataFontManager::ExportBarFont
//   <font type='RFID'> ... </font>            DataFontManager::ExportRFID, where there is RFID
//   <options model='MODEL'> ... </options>    DriverSettings::Export
//
// Blocks are found by their tags, wherever they stand. Files of old drivers with one kind of
// setting are read too, as far as that kind is asked for: stocks ("KFM1"), presets ("DM"), bar code
// fonts ("KBF1").

// What is to be written or read; bits.
enum SettingsFileContent : int {
    SETTINGS_STOCKS = 0x001,
    SETTINGS_PRESETS = 0x002,
    SETTINGS_BAR_FONTS = 0x004,
    SETTINGS_RFID_FONTS = 0x008,
    SETTINGS_OPTIONS = 0x100, // the driver settings
};

// How much was written or read.
struct KDSettingsResult {
    uint16_t stocks;
    uint16_t presets;
    uint16_t bar_fonts;
    uint16_t rfid_fonts;
    uint8_t options; // 1 when driver settings were
};
static_assert(sizeof(KDSettingsResult) == 10);
static_assert(offsetof(KDSettingsResult, options) == 8);

// The settings of one printer that files are made of. Driver settings are those in the registry of
// the model's printer; the lists are written from memory and read into it.
struct SettingsFileLists {
    prtmodel& model;
    StockList& stocks;
    PresetList& presets;
    DataFontManager& data_fonts;
};

// Writes a settings file of the contents in `flags`, in place of one that there is. When it cannot
// be written to its end, the old one stays and the result is zeros.
KDSettingsResult ExportSettingsFile(const OString& name, int flags, SettingsFileLists settings);

// Adds the contents in `flags` of a file of any kind. Nothing, and zeros, for a file that is not
// there, for one of another kind and for one that cannot be read to its end: then the lists are not
// saved until they are loaded again. Driver settings for another model are left out; those that are
// taken are in force at once, in all processes.
KDSettingsResult ImportSettingsFile(const OString& name, int flags, SettingsFileLists settings);

// The same from an open file.
KDSettingsResult ImportSettingsFile(OFile& file, int flags, SettingsFileLists settings);
