// The actions of printers.
#pragma once

#include <cstdint>

// Menus, programs and the table of texts use these numbers. The gaps are actions of other printer
// languages.
enum printer_action : int32_t {
    ACTION_TEST_LABEL = 1,
    ACTION_BLANK_LABEL = 2,
    ACTION_CHARACTER_TEST = 5, // in the printer's diagnostic mode
    ACTION_FEED = 6,
    ACTION_CUT = 8,
    ACTION_RESET = 10, // as if switched off and on
    ACTION_CALIBRATE = 11,
    ACTION_CONFIGURATION_LABEL = 12,
    ACTION_LIST_ALL = 13,
    ACTION_LIST_FONTS = 14,
    ACTION_LIST_FORMATS = 15,
    ACTION_LIST_GRAPHICS = 16,
    ACTION_LIST_BUILT_IN_FONTS = 17,
    ACTION_LIST_BUILT_IN_BAR_CODES = 18,
    ACTION_SENSOR_PROFILE = 20,
    ACTION_SEND_FILE = 22,
    ACTION_LABEL_LENGTH = 23,
    ACTION_CACHE = 25,
    ACTION_CLEAR_CACHE = 26,
    ACTION_FACTORY_SETTINGS = 28,
    ACTION_MEMORY = 32,
    ACTION_ADMINISTRATION = 36,
    ACTION_INFORMATION = 37,
    ACTION_STATUS = 38,
    ACTION_PRINTER_OPTIONS = 39,
    ACTION_OFFICE_COMPATIBILITY = 41,
    ACTION_RFID_OPTIONS = 45,
    ACTION_POWER_MANAGEMENT = 46,
};

// How an action is offered: the sum of these bits, or 0 if it is not.
constexpr uint32_t ACTION_OFFERED = 1;
constexpr uint32_t ACTION_OPENS_DIALOG = 2;
constexpr uint32_t ACTION_ADMINISTRATIVE = 4; // not for users below the printer's access level
