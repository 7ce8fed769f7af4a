// A DEVMODE with the driver's private part.
#pragma once

#include <windows.h>

#include <cstdint>

#include "settings/prtconfig.h"

class prtmodel;
class Stock;

// Document settings of 16-bit programs, in the ANSI layout, and of the driver's own.
using DEVMODE16 = DEVMODEA;
using DEVMODE32 = DEVMODEW;

// A view of a buffer with a DEVMODE, or of none. The driver's own is 1508 bytes: the public fields
// (220), the halftone block (164, common_private_dm.h) and the configuration with its tail (1124,
// prtconfig.h). Lengths are in tenths of a millimetre.
//
// A buffer made by others may be of any version, size and origin. Only its extent is taken from it:
// it has dmSize + dmDriverExtra bytes, and at least those up to dmFields. Public fields beyond
// dmSize do not exist: they are read as their neutral values, compared as 0 and not written.
// Without a configuration, its settings are neutral and setting them does nothing.
//
// `model` is never null.
class DevMode {
public:
    DevMode() = default;
    // A view of the caller's buffer, which must outlive it. Null stands for no buffer.
    explicit DevMode(DEVMODEW* dev_mode)
        : dev_mode_(dev_mode) {}
    ~DevMode() { Free(); }
    DevMode(const DevMode&) = delete;

    // ---- The buffer -----------------------------------------------------------------------------

    // Makes a buffer of its own, of the default size and zeroed. No buffer without memory.
    void Create();
    // Releases the buffer, and frees it if it came from Create.
    void Free();
    // Makes a buffer of its own with the defaults of a model.
    void CreateDefault(const prtmodel* model);
    // Becomes a view of another buffer of the caller's.
    void SetDevMode(DEVMODEW* dev_mode);
    DEVMODEW* GetDevMode() const { return dev_mode_; }
    static int GetDefaultDevModeSize();

    // The configuration in the buffer, or null. It is looked up once, so nothing else may change
    // the sizes in the buffer afterwards.
    prtconfig* GetConfiguration() const;

    // ---- All of it ------------------------------------------------------------------------------

    // Writes the defaults of a model into the buffer, which has room for the default size.
    void Reset(const prtmodel* model);

    // Brings the public fields within the model's limits: orientation, copies, colour and the
    // resolution, which must be one of the model's pairs. Scale becomes 100, without duplex and
    // collation.
    void Validate(const prtmodel* model);

    // Takes over what a DEVMODE asks for (MergeDevMode). Nothing without a buffer or for null.
    void Merge(const DEVMODEW* source, const prtmodel* model);

    // Merges the settings of another DEVMODE into one of this driver.
    //
    // A field is taken if the source's dmFields name it and both public parts hold it, with these
    // exceptions. Length and width of the paper are always taken. A paper size other than custom
    // takes precedence over them, and a form's name alone over the size; dmFields then name only
    // what is used. Colour and resolution are taken only from a DEVMODE of the same device name.
    // From others, and for symbolic resolutions, the model's are used. Never taken are the TrueType
    // option, media type, dithering and the fields of displays. Then the halftone block is taken,
    // the fields are validated, and the configuration is taken from a DEVMODE of the same printer
    // family and configuration version.
    static void MergeDevMode(DEVMODEW* destination, const DEVMODEW* source, const prtmodel* model);

    // Takes all public fields from dmFields on, and the configuration under the same conditions.
    // Device name, versions, sizes and halftone block stay.
    DevMode& operator=(const DevMode& other);

    // The same settings: equal configurations, orientation, source, resolution, colour, duplex,
    // collation, colour management and media type, and papers that differ by at most 0.2 mm.
    // Copies, scale and the paper's number and name do not count. Two without a configuration
    // differ.
    bool operator==(const DevMode& other) const;

    // The checksum of all of the DEVMODE, by which pages notice changes. 0 without a buffer.
    uint32_t GetCRC32() const;

    // Copies all of the DEVMODE to a buffer with room for it. Nothing without one.
    void CopyTo(DEVMODEW* destination) const;

    // Takes over the fields and the configuration of a 16-bit program's DEVMODE. The device name,
    // sizes and the form's name stay. This should be a default one before.
    void Convert(const void* source);
    static void Convert16(DEVMODE32* destination, const DEVMODE16* source);

    // Whether the system manages colours for the driver, so that the fields for it count.
    static bool SupportsICM();

    // ---- Settings: most of them are for the property pages --------------------------------------

    // The fingerprint of the preset that the settings came from, or 0.
    uint32_t GetPresetCRC32() const;
    void SetPresetCRC32(uint32_t checksum);
    // Stores a preset's name. Null stands for an empty one.
    void SetPresetName(const WCHAR* name);

    int GetCopies() const; // 1 unless dmFields say that copies are set
    void SetCopies(int copies);

    // 0 portrait, 1 landscape, 2 and 3 the same turned by 180 degrees.
    int GetOrientation() const;
    void SetOrientation(int orientation);

    bool GetMirror() const;
    void SetMirror(bool mirror);
    bool GetNegative() const;
    void SetNegative(bool negative);

    int GetColor() const; // 1 monochrome, 2 colour
    void SetColor(int color);

    // The system's usual values, 1 and 2, if there is no colour management.
    int GetICMIntent() const;
    void SetICMIntent(int intent);
    int GetICMMethod() const;
    void SetICMMethod(int method);

    // Both resolutions in one number: y in the high half, x in the low one.
    uint32_t GetResolutionID() const;
    void SetResolutionID(uint32_t id);

    void SetPaperSize(int paper_size);

    // Takes a stock as the paper: its number, its form size (at most 3.2767 m) and its name, of
    // which 31 characters fit. Only for the user's stock do dmFields name length and width. Nothing
    // for null.
    void SetStock(const Stock* stock);

private:
    // Whether there is a buffer and its public part holds a field.
    template <class T>
    bool Holds(T DEVMODEW::*field) const {
        return dev_mode_ && reinterpret_cast<const char*>(&(dev_mode_->*field) + 1) -
                                    reinterpret_cast<const char*>(dev_mode_) <=
                                dev_mode_->dmSize;
    }
    template <class T>
    T Get(T DEVMODEW::*field, T neutral) const {
        return Holds(field) ? dev_mode_->*field : neutral;
    }
    template <class T>
    void Set(T DEVMODEW::*field, int value) {
        if (Holds(field)) dev_mode_->*field = static_cast<T>(value);
    }
    // Sets a field and its bit in dmFields.
    void Set(SHORT DEVMODEW::*field, int value, DWORD bit);
    bool GetFlag(uint16_t flag) const;
    void SetFlag(uint16_t flag, bool on);

    DEVMODEW* dev_mode_ = nullptr;
    bool owned_ = false;
    mutable prtconfig* configuration_ = nullptr;
};
