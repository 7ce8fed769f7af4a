// The numbers of the texts in the language libraries that the module uses.
#pragma once

enum TextNumber : int {
    TEXT_NONE = 0,

    // ---- Units.
    TEXT_CENTIMETRES = 471,
    TEXT_DOTS_PER_INCH = 472,
    TEXT_DOTS_PER_MILLIMETRE = 473,
    TEXT_INCHES = 479,
    TEXT_MILS = 481,
    TEXT_MILLIMETRES = 482,
    TEXT_PER_SECOND = 484,

    // ---- The page for label size, orientation and preset, and the dialog for a label size.
    TEXT_VIEW_STOCK = 488,
    TEXT_EDIT_STOCK = 489,
    TEXT_DELETE_STOCK = 1325,
    TEXT_NEW_STOCK = 1326,
    TEXT_STOCK_NAME = 4159,
    TEXT_STOCK_NAME_RESERVED = 4160,
    TEXT_STOCK_WITHOUT_NAME = 4161,
    TEXT_STOCK_NAME_TAKEN = 4162,
    TEXT_PAGE_SETUP_NOTICE = 9002,

    // ---- The dialog for presets.
    TEXT_NEW_PRESET = 4101,
    TEXT_UPDATE_PRESET = 4106,
    TEXT_UPDATE_PRESET_TITLE = 4107,
    TEXT_SAME_PRESET_NAMES_TITLE = 4108,
    TEXT_SAME_PRESET_NAMES = 4109,

    // ---- The page for the label material.
    TEXT_AS_SET = 10519,
    TEXT_DIRECT_THERMAL = 486,
    TEXT_THERMAL_TRANSFER = 487,
    TEXT_CONTINUOUS = 10482,
    TEXT_GAP = 10483,
    TEXT_GAP_OR_MARK = 10484,
    TEXT_MARK = 10485,
    TEXT_TEAR_OFF = 10487,
    TEXT_PEEL_OFF = 10488,
    TEXT_REWIND = 10489,
    TEXT_CUTTER = 10490,
    TEXT_APPLICATOR = 10496,
    TEXT_BACKFEED_NORMAL = 10498,
    TEXT_BACKFEED_OFF = 10499,
    TEXT_BACKFEED_BEFORE = 10500,
    TEXT_BACKFEED_AFTER = 10501,
    TEXT_BACKFEED_PERCENTAGE = 10511,
    TEXT_CUT_AFTER_JOB = 10508,
    TEXT_CUT_SEVERAL = 10510,
    TEXT_CUT_EACH_LABEL = 10512,
    TEXT_PAUSE_NEVER = 10513,
    TEXT_PAUSE_EACH_LABEL = 10514,
    TEXT_PAUSE_AFTER_JOB = 10515,
    TEXT_PAUSE_SEVERAL = 10516,
    TEXT_PAUSE_OPTIONS = 10517,
    TEXT_CUT_OPTIONS = 10518,

    // ---- A component of the system is missing: which one, what to do, the title.
    TEXT_HELP_VIEWER_MISSING = 495,
    TEXT_UPDATE_COMPONENT = 496,
    TEXT_COMPONENT_REQUIRED = 500,

    // ---- Settings could not be stored: the title, what is before their names, and the names.
    TEXT_NOT_STORED_TITLE = 497,
    TEXT_NOT_STORED = 498,
    TEXT_PRESETS = 508,
    TEXT_LABEL_SIZES = 1958,

    // ---- Names of character sets.
    TEXT_WESTERN = 1241,
    TEXT_CENTRAL_EUROPEAN = 1242,
    TEXT_CYRILLIC = 1243,
    TEXT_GREEK_LETTERS = 1244,
    TEXT_TURKISH_LETTERS = 1245,
    TEXT_HEBREW = 1246,
    TEXT_ARABIC = 1247,
    TEXT_BALTIC = 1248,
    TEXT_VIETNAMESE = 1249,
    TEXT_THAI_LETTERS = 1250,
    TEXT_JAPANESE_LETTERS = 1251,
    TEXT_SIMPLIFIED_CHINESE_LETTERS = 1252,
    TEXT_KOREAN_LETTERS = 1253,
    TEXT_TRADITIONAL_CHINESE_LETTERS = 1254,

    // ---- Languages of the user interface, and the question before one is chosen that a system may
    // not be able to show.
    TEXT_ENGLISH = 1271,
    TEXT_SPANISH = 1272,
    TEXT_GERMAN = 1273,
    TEXT_FRENCH = 1274,
    TEXT_JAPANESE = 1275,
    TEXT_BRAZILIAN_PORTUGUESE = 1276,
    TEXT_ITALIAN = 1277,
    TEXT_SIMPLIFIED_CHINESE = 1278,
    TEXT_TRADITIONAL_CHINESE = 1279,
    TEXT_FINNISH = 1280,
    TEXT_DANISH = 1281,
    TEXT_SWEDISH = 1282,
    TEXT_NORWEGIAN = 1283,
    TEXT_DUTCH = 1284,
    TEXT_PORTUGUESE = 1285,
    TEXT_CZECH = 1286,
    TEXT_POLISH = 1287,
    TEXT_KOREAN = 1288,
    TEXT_THAI = 1289,
    TEXT_HUNGARIAN = 1290,
    TEXT_GREEK = 1291,
    TEXT_TURKISH = 1292,
    TEXT_LANGUAGE_WARNING = 1299,
    TEXT_RUSSIAN = 1300,
    // Languages that only code pages are named after.
    TEXT_HEBREW_NAME = 1293,
    TEXT_ARABIC_NAME = 1294,
    TEXT_ESTONIAN = 1295,
    TEXT_LATVIAN = 1296,
    TEXT_LITHUANIAN = 1297,
    TEXT_VIETNAMESE_NAME = 1298,
    TEXT_BULGARIAN = 1301,
    TEXT_UKRAINIAN = 1302,
    TEXT_ROMANIAN = 1303,
    TEXT_SLOVAK = 1304,

    // ---- The sheets for administration, for what a document sends, and for the status monitor.
    TEXT_ADVANCED_SHEET = 1340,
    TEXT_ADMINISTRATION_SHEET = 1341,
    TEXT_STATUS_SHEET = 2471,

    // ---- Administration. Access levels are those of users, from administrators down, and nobody.
    TEXT_ADMINISTRATORS = 490,
    TEXT_POWER_USERS = 491,
    TEXT_USERS = 492,
    TEXT_EVERYONE = 493,
    TEXT_NOBODY = 494,
    TEXT_SETTINGS_FILES = 2311,
    TEXT_SETTINGS_FILTER = 2331,
    TEXT_OLD_SETTINGS_FILTER = 2332,
    TEXT_NO = 1979,
    TEXT_YES = 1981,
    TEXT_BAR_FONT_CONTENTS = 4140,
    TEXT_STOCK_CONTENTS = 4141,
    TEXT_PRESET_CONTENTS = 4142,
    TEXT_RFID_FONT_CONTENTS = 4145,
    TEXT_DRIVER_SETTINGS = 4146,
    TEXT_EXPORTED = 4148,
    TEXT_IMPORTED = 4149,

    // ---- Units that the user can choose.
    TEXT_AS_THE_SYSTEM = 457,
    TEXT_UNIT_INCHES = 458,
    TEXT_UNIT_MILLIMETRES = 459,
    TEXT_UNIT_CENTIMETRES = 460,

    // ---- Other specifications than the model's: the question, and where the media runs.
    TEXT_SPECIFICATIONS = 505,
    TEXT_SPECIFICATIONS_WARNING = 506,
    TEXT_OVERRIDE_QUESTION = 507,
    TEXT_LEFT_TRACKED = 511,
    TEXT_CENTRE_TRACKED = 512,
    TEXT_RIGHT_TRACKED = 513,

    // ---- Columns of the code pages for office programs.
    TEXT_CODE_PAGE_NUMBER = 520,
    TEXT_CODE_PAGE_CHARACTERS = 521,
    TEXT_CODE_PAGE_SUFFIX = 522,
    TEXT_CODE_PAGE_LANGUAGES = 523,

    // ---- Command sequences of a document, and the choice of no escape character.
    TEXT_FIRST_USER_COMMANDS = 462,
    TEXT_SECOND_USER_COMMANDS = 463,
    TEXT_THIRD_USER_COMMANDS = 464,
    TEXT_FOURTH_USER_COMMANDS = 465,
    TEXT_NO_ESCAPE_CHARACTER = 494,

    // ---- Fonts: kinds, properties, what is known of a download, columns, and the question before
    // they are deleted.
    TEXT_BAR_CODE_FONT = 440,
    TEXT_DOWNLOADED_FONT = 441,
    TEXT_BITMAP_FONT = 442,
    TEXT_RESIDENT_FONT = 443,
    TEXT_TRUETYPE_FONT = 444,
    TEXT_FONT_FILE = 445,
    TEXT_FONT_IDENTIFIER = 446,
    TEXT_FONT_SIZE = 448,
    TEXT_FONT_CHARACTER_SET = 449,
    TEXT_FONT_CODE_PAGE = 450,
    TEXT_FONT_SYMBOLOGY = 451,
    TEXT_FONT_TYPE = 452,
    TEXT_FONT_DOWNLOAD = 453,
    TEXT_FONT_MODULE_WIDTH = 454,
    TEXT_FONT_MISSING = 455,
    TEXT_OTHER_FONT = 461,
    TEXT_FONT_PRESENT = 466,
    TEXT_FONTS = 467,
    TEXT_SELECTED_FONTS = 468,
    TEXT_FONT_NAME = 469,
    TEXT_FONT_STATUS = 470,
    TEXT_DELETE_FONTS_QUESTION = 1331,
    TEXT_DELETE_FONTS = 1332,

    // ---- The editors of data fonts: a name that another font has, usual names, and adjustments of
    // the size; formats and encodings of RFID data.
    TEXT_REPLACE_DATA_FONT = 1330,
    TEXT_NOT_ADJUSTED = 1590,
    TEXT_SMALLER = 1591,
    TEXT_MUCH_SMALLER = 1592,
    TEXT_LARGER = 1593,
    TEXT_MUCH_LARGER = 1594,
    TEXT_NEW_RFID_FONT = 1616,
    TEXT_CUSTOM_FORMAT = 2225,
    TEXT_FIRST_ENCODING = 3100,
    TEXT_GENERAL_FORMAT = 3150,

    // ---- The names of symbologies follow each other.
    TEXT_FIRST_SYMBOLOGY = 1500,

    // ---- The kinds of font downloads, and the sets of characters for bitmap fonts.
    TEXT_TRUETYPE_DOWNLOAD = 1901,
    TEXT_BITMAP_DOWNLOAD = 1902,
    TEXT_ALL_CHARACTERS = 1910,
    TEXT_ASCII = 1911,
    TEXT_CAPITALS_NUMBERS = 1912,
    TEXT_CAPITALS_PUNCTUATION = 1913,
    TEXT_CAPITALS = 1914,
    TEXT_NUMBERS = 1915,
    TEXT_AMOUNTS = 1916,
    TEXT_CAPITALS_NUMBERS_PUNCTUATION = 1917,
    TEXT_REPLACE_FONT = 1920,
    TEXT_REPLACE_FONT_QUESTION = 1921,

    // ---- Files that are sent to the printer unchanged: the dialog's title, and its filters.
    TEXT_FILES_TO_SEND = 2317,
    TEXT_ALL_FILES = 2330,
    TEXT_PRINTER_FILES = 2337,

    // ---- The log and the recordings of a printer. Its title, that it needs the status monitor,
    // the kind of file, and what is above recordings that could not be sent.
    TEXT_LOGGING_NEEDS_MONITOR = 501,
    TEXT_LOGGING = 502,
    TEXT_LOG_FILES = 2336,
    TEXT_RECORDINGS_NOT_SENT = 2338,

    // ---- Printer actions.
    TEXT_TEST_LABEL = 2401,
    TEXT_CHARACTER_TEST = 2404,
    TEXT_BLANK_LABEL = 2405,
    TEXT_CONFIGURATION_LABEL = 2406,
    TEXT_LIST_FONTS = 2407,
    TEXT_LIST_FORMATS = 2408,
    TEXT_LIST_GRAPHICS = 2409,
    TEXT_LIST_ALL = 2410,
    TEXT_LIST_BUILT_IN_FONTS = 2411,
    TEXT_LIST_BUILT_IN_BAR_CODES = 2412,
    TEXT_SENSOR_PROFILE = 2413,
    TEXT_INFORMATION = 2450,
    TEXT_FEED = 2451,
    TEXT_CUT = 2452,
    TEXT_RESET = 2453,
    TEXT_CALIBRATE = 2454,
    TEXT_FACTORY_SETTINGS = 2457,
    TEXT_LABEL_LENGTH = 2458,
    TEXT_SEND_FILE = 2464,
    TEXT_MEMORY = 2467,
    TEXT_CACHE = 2483,
    TEXT_CLEAR_CACHE = 2484,
    TEXT_PRINTER_OPTIONS = 2485,
    TEXT_RFID_OPTIONS = 2487,
    TEXT_POWER_MANAGEMENT = 2488,

    // ---- Colours on the page about graphics. The intents of colour matching follow each other.
    TEXT_NO_COLOR_MATCHING = 494,
    TEXT_MONOCHROME = 1401,
    TEXT_COLOR = 1402,
    TEXT_FIRST_INTENT = 1411,

    // ---- The objects that are kept in the printer: columns of their list, and their kinds.
    TEXT_CACHE_OBJECT = 2501,
    TEXT_CACHE_SIZE = 2502,
    TEXT_CACHE_USED = 2503,
    TEXT_CACHE_AGE = 2504,
    TEXT_CACHE_NAME = 2505,
    TEXT_CACHED_FORMAT = 2511,
    TEXT_CACHED_GRAPHIC = 2512,

    // ---- What the printer does about an RFID label that cannot be written, numbers 1 to 3.
    TEXT_FIRST_RFID_FAILURE = 3000,

    // ---- Saving a report: the dialog, and kinds of files.
    TEXT_SAVE_REPORT = 2312,
    TEXT_PLAIN_TEXT = 2333,
    TEXT_RICH_TEXT = 2334,
    TEXT_WEB_PAGE = 2335,

    // ---- The built-in presets.
    TEXT_CURRENT_SETTINGS = 4102,
    TEXT_DEFAULT_SETTINGS = 4103,
    TEXT_ABOUT_CURRENT_SETTINGS = 4104,
    TEXT_ABOUT_DEFAULT_SETTINGS = 4105,

    // "Y" or "N": whether the properties open on their last page.
    TEXT_START_ON_LAST_PAGE = 9990,

    // ---- The memories of a printer, by their letters.
    TEXT_MEMORY_R = 10430,
    TEXT_MEMORY_E = 10431,
    TEXT_MEMORY_B = 10432,
    TEXT_MEMORY_A = 10433,

    // ---- What the rendering module makes of a page.
    TEXT_MODE_STANDARD = 10581,
    TEXT_MODE_ALTERNATIVE_1 = 10582,
    TEXT_MODE_ALTERNATIVE_2 = 10583,
    TEXT_MODE_EXTENDED_1 = 10584,
    TEXT_MODE_EXTENDED_2 = 10585,

    // What the printer does with its media, in the order of the numbers 0 to 3.
    TEXT_FIRST_MEDIA_FEED = 10502,

    // ---- The message that a battery's state is not known.
    TEXT_POWER_TITLE = 10486,
    TEXT_NO_POWER_READINGS = 10491,

    // ---- The report of what a printer says about itself: tabs, then headings and labels.
    TEXT_REPORT_PRINTER = 10601,
    TEXT_REPORT_COMMUNICATION = 10602,
    TEXT_REPORT_MEMORY = 10603,
    TEXT_REPORT_SETTINGS = 10604,
    TEXT_REPORT_CONFIGURATION = 10605,
    TEXT_REPORT_STATUS = 10606,
    TEXT_REPORT_FILES = 10607,
    TEXT_REPORT_MODEL = 10611,
    TEXT_REPORT_VERSION = 10612,
    TEXT_REPORT_DOTS = 10613,
    TEXT_REPORT_ADMINISTRATION = 10614,
    TEXT_REPORT_PASSWORD = 10615,
    TEXT_REPORT_SERIAL = 10616,
    TEXT_REPORT_BAUD = 10617,
    TEXT_REPORT_HANDSHAKE = 10618,
    TEXT_REPORT_PARITY = 10619,
    TEXT_REPORT_STOP_BITS = 10620,
    TEXT_REPORT_DATA_BITS = 10621,
    TEXT_REPORT_TOTAL = 10622,
    TEXT_REPORT_AVAILABLE = 10623,
    TEXT_REPORT_USED = 10624,
    TEXT_REPORT_STATIC_RAM = 10625,
    TEXT_REPORT_LABEL = 10626,
    TEXT_REPORT_LENGTH = 10627,
    TEXT_REPORT_PRINT = 10628,
    TEXT_REPORT_STORAGE = 10629,
    TEXT_REPORT_PAPER_OUT = 10630,
    TEXT_REPORT_RIBBON_OUT = 10631,
    TEXT_REPORT_PAUSE = 10632,
    TEXT_REPORT_PRINT_HEAD = 10633,
    TEXT_REPORT_HEAD_TEMPERATURE = 10634,
    TEXT_REPORT_NAME = 10635,
    TEXT_REPORT_SIZE = 10636,
    TEXT_REPORT_NO_FILES = 10637,
    TEXT_REPORT_SUMMARY = 10638,
    TEXT_REPORT_TOTAL_FILES = 10639,
    TEXT_REPORT_MEMORY_USED = 10640,
    TEXT_DOTS = 10543, // after a number
    TEXT_BUFFER_FULL = 10549,
    TEXT_RECEIVE_BUFFER = 10550,
    TEXT_MEDIA_TYPE = 10551,
    TEXT_SENSOR_PROFILE_STATE = 10552,
    TEXT_DIAGNOSTICS = 10553,
    TEXT_TRANSFER_MODE = 10554,
    TEXT_PRINT_MODE = 10558,
    TEXT_FORMATS = 10559,
    TEXT_GRAPHICS = 10560,

    // ---- Jobs that concern a printer's battery, and the question that asks for its state.
    TEXT_DISCHARGE_BATTERY = 10492,
    TEXT_POWER_QUERY_JOB = 10494,
    TEXT_POWER_QUERY = 10495,

    // A font in the printer that this driver did not download.
    TEXT_UNKNOWN_FONT = 10530,
};
