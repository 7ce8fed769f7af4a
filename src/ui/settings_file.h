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
// Blocks are found by their tags, anywhere in the file. Files of old drivers with one kind of
// setting are read too, if that kind is asked for: stocks ("KFM1"), presets ("DM"), bar code fonts
// ("KBF1").

// The contents to write or read, as bits.
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
    uint8_t options; // 1 if driver settings were
};
static_assert(sizeof(KDSettingsResult) == 10);
static_assert(offsetof(KDSettingsResult, options) == 8);

// The settings of one printer that files are made from. Driver settings are those in the registry
// of the model's printer. The lists are written from memory and read into it.
struct SettingsFileLists {
    prtmodel& model;
    StockList& stocks;
    PresetList& presets;
    DataFontManager& data_fonts;
};

// Writes a settings file of the contents in `flags`, replacing an existing one. If it cannot be
// written completely, the old one stays and the result is zeros.
KDSettingsResult ExportSettingsFile(const OString& name, int flags, SettingsFileLists settings);

// Adds the contents in `flags` of a file of any kind. Nothing, with zeros, for a file that is
// missing, of another kind or cannot be read to its end; in the last case the lists are not saved
// until they are loaded again. Driver settings for another model are left out; others take effect
// at once, in all processes.
KDSettingsResult ImportSettingsFile(const OString& name, int flags, SettingsFileLists settings);

// The same from an open file.
KDSettingsResult ImportSettingsFile(OFile& file, int flags, SettingsFileLists settings);
