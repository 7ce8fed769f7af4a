// The user's language and units, and the texts of the user interface.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

#include "core/ostring.h"

class prtmodel;
class prtreg;

// Every text, dialog, menu and bitmap of the user interface is in a language library beside the
// driver; the module has none of its own. A locale keeps the libraries of the user's language and
// of English loaded, and takes everything from the first that has it.
//
// Lengths are in microns (thousandths of a millimetre) everywhere. Inches, millimetres and
// centimetres exist only in texts, which are made and read here.
//
// Languages are three lower-case letters ("enu", "deu"). An object belongs to one thread.
class prtlocale {
public:
    enum Units : int32_t { SYSTEM_UNITS = 0, INCHES = 1, MILLIMETRES = 2, CENTIMETRES = 3 };

    struct Language {
        char code[4];
        uint16_t code_page;
        uint16_t name; // the number of its name among the texts
        bool is_asked; // the user is asked before it is chosen: a system may
                       // not be able to show it
    };

    // English first. For the page on which the user chooses one.
    static std::span<const Language> Languages();

    // Empty: no libraries, empty texts, the system's units.
    prtlocale() = default;
    // Frees the libraries.
    virtual ~prtlocale();
    prtlocale(const prtlocale&) = delete;
    prtlocale& operator=(const prtlocale&) = delete;

    // Reads the system's locale and the user's choices, and loads both libraries. A language that
    // cannot be used, or whose library is missing, is replaced by English. False unless both
    // libraries are loaded; the locale is usable with one of them. May be called again, to bring a
    // new language into use.
    bool Load(prtreg& reg, prtmodel* model);

    // The first step of Load: units, separators and language of the system.
    void LoadSystem();

    // Stores the user's language and units. Always true.
    bool Save(prtreg& reg);

    // ---- Language -------------------------------------------------------------------------------

    // The language in use. It is the system's if the user has chosen "sys".
    const char* GetCurrentLanguage() const;
    // The user's choice: a language, or "sys".
    const char* GetUserLanguage() const { return user_language_; }
    const char* GetSystemLanguage() const { return system_language_; }

    // The code page of the current language, or 0 for a language that is not among Languages().
    uint32_t GetCurrentCP() const;

    // Whether a language can be used with a printer: the system has its code page and its library
    // is among the files of the printer's driver. English always can.
    static bool LanguageExists(prtmodel* model, const char* language);

    // For that page: chooses a language or "sys", for the next Load. For some languages, unless
    // they are the system's, the user is asked first (`owner` is the window of the question). False
    // if nothing was chosen.
    bool SetNewLanguage(HWND owner, const char* language);

    // Turns the system's abbreviation of its language (as Windows gives it, "FRC") into one of
    // Languages(), or English if it is not among them.
    void ConvertSystemLanguage();

    const OString& GetHelpFile() const { return help_file_; } // full path

    // ---- Texts and other resources --------------------------------------------------------------

    // Loads the texts that are used all the time, the unit labels.
    void init();

    // The library that is searched first, for what the system itself shows; null without one.
    HMODULE GetModule() const { return primary_library_ ? primary_library_ : english_library_; }

    // A text by its number, at most 511 characters. Empty if neither library has it.
    OString GetString(int id) const;

    // A dialog template by name. Stores its size in bytes in `size`, which may be null. Null if
    // neither library has it. Like all resources, it is valid until the next Load.
    const void* GetDialog(const OString& name, uint32_t* size) const;
    // A menu template by name, or null.
    const void* GetMenu(const OString& name) const;
    // A menu made from the template, or null. The caller destroys it.
    HMENU LoadMenuW(const OString& name) const;
    // A bitmap by number: a BITMAPINFO followed by the pixels. Null if there is none.
    const void* LockBitmap(int id) const;

    // The signs, or "(C)", "(TM)" and "(R)" if the code page of the language lacks them.
    OString GetCopyright() const;
    OString GetTrademark() const;
    OString GetRegistered() const;

    // ---- Units ----------------------------------------------------------------------------------

    // For that page too: the user's choice, effective at once. A number that is not among Units
    // means inches.
    void SetNewUnits(int32_t units);
    int32_t GetUnits() const { return units_; }

    bool is_metric() const { return is_mm() || is_cm(); }
    bool is_mm() const { return EffectiveUnits() == MILLIMETRES; }
    bool is_cm() const { return EffectiveUnits() == CENTIMETRES; }

    // The name of the current unit ("mm"), and what makes a length a speed ("/s").
    const OString& GetUnitsLabel() const { return units_label_; }
    const OString& GetSecondLabel() const { return second_label_; }

    const OString& GetDecimalSeparator() const { return decimal_separator_; }
    const OString& GetThousandsSeparator() const { return thousands_separator_; }

    // A length with its unit: "12.7 mm", "1.27 cm", "0.50 in". Halves are rounded away from zero.
    OString microns_to_string(int32_t microns) const;

    // Reads a length in the unit that its first letter names ("c", "i" or "m"), or in the current
    // one if there is no letter, down to thousandths of the unit. Takes the system's decimal
    // separator and the point. A text without a number is 0. A number beyond 25.4 m in the current
    // unit (1000, 2540 or 25400, before the separator) is 25.4 m, whatever follows it. A smaller
    // one may still become more in another unit, 645 m at most.
    int32_t string_to_microns(const OString& text) const;

    // A size in bytes, with a decimal below 100 K: "0 K", "1.5 K", "100 K".
    OString FormatK(uint32_t bytes) const;

    // The width of a bar of `dots` dots: in mils ("9.9 mils") or millimetres ("0.25 mm").
    OString xdimension_to_string(int dots, int dpi) const;

    // A resolution, "203 dpi" or "8.0 dots/mm", or two: "8.0 dots/mm x 8.0 dots/mm".
    OString dpi_to_string(int dpi) const;
    OString dpi_to_string(int x, int y) const;

private:
    Units EffectiveUnits() const;
    void LoadUnitsLabel();
    void FreeLibraries();
    const void* FindResourceData(const WCHAR* name, const WCHAR* type, uint32_t* size) const;
    bool HasWesternSigns() const;
    OString Decimal(int64_t value, int digits, bool negative) const;

    HMODULE primary_library_ = nullptr;
    HMODULE english_library_ = nullptr;
    char user_language_[4] = "sys";
    char system_language_[4] = "enu";
    int32_t units_ = SYSTEM_UNITS;
    int32_t system_units_ = MILLIMETRES;
    OString units_label_;
    OString second_label_;
    OString help_file_;
    OString primary_library_name_;
    OString english_library_name_;
    bool leading_zero_ = false;
    OString decimal_separator_;
    OString thousands_separator_;
};
