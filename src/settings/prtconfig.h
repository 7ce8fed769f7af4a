// The driver configuration: the printer's own settings inside a DEVMODE.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

#include "core/ostring.h"
#include "imaging/dithercfg.h"

class prtmodel;

// Neither record is aligned: the DEVMODEs of other versions decide where they are.
#pragma pack(push, 1)

// The last eight bytes of a DEVMODE, by which the configuration before them is found.
struct endconfig {
    char signature[3]; // "kvk"
    char prefix[3];    // of the printer family, as in the names of the driver's files
    uint16_t size;     // of configuration and tail; below 1024 there are no user commands
};
static_assert(sizeof(endconfig) == 8);

// The configuration as the framework sees it: the head of a block that the printer language
// extends. It is a stored format, little-endian.
//
// `model` is never null, except where said. For blocks from get_cfg only the length was checked, so
// every field may have any value until Validate.
struct prtconfig {
    static constexpr int USER_COMMANDS = 4;
    static constexpr int USER_COMMAND_SIZE = 256;

    // Commands of the user, sent at four points of a job: 8-bit texts, padded with zeros. One that
    // fills its place has no terminator. The last four bytes are the preset checksum while the
    // fourth text leaves them free.
    char user[USER_COMMANDS][USER_COMMAND_SIZE];
    uint16_t length; // of the complete block
    uint16_t version;
    uint16_t flags;
    uint16_t reserved;
    int32_t option_length; // micrometres
    dithercfg dither;

    enum : uint16_t {
        FLAG_TURNED = 1, // by 180 degrees
        FLAG_MIRROR = 2,
        FLAG_NEGATIVE = 4,
        FLAG_OPTION = 16
    };

    // Equal settings: the user commands as texts, the lengths, and all bytes after the length. So
    // neither what follows the end of a command nor the preset checksum counts.
    bool operator==(const prtconfig& other) const;

    // The printer takes 24-bit colours and screens them by itself. For the pages about graphics.
    bool is_24bit_device() const { return dither.algorithm == dithercfg::ALGORITHM_DEVICE; }

    // Resets the framework's part, except length and version. Without a model, to a state that fits
    // no model in particular.
    void Reset(const prtmodel* model);
    // Resets a complete block, of GetTotalSize() without the tail, as the printer language wants
    // it. Nothing for null.
    static void Reset(prtconfig* config, const prtmodel* model);

    // Resets what the model does not support, and brings the dithering settings into their ranges.
    void Validate(const prtmodel* model);

    // Brings a value between two limits. The lower one wins if they are crossed. Returns whether
    // the value changed.
    static bool validate_range(int32_t& value, int32_t min, int32_t max);

    // Replaces user command `number` by the first 256 bytes of a text, and the rest of its place by
    // zeros. Nothing for another number than 0 to 3. For the page about user commands.
    void set_user(const OString& text, int number);

    // The checksum of the name of the preset that the settings came from. It is not written while
    // the fourth user command takes up its place, that is from 251 characters on. Then a piece of
    // the command is read.
    uint32_t GetPresetCRC32() const;
    void SetPresetCRC32(uint32_t checksum);

    // The tail of a DEVMODE. Null if there is none: for null, if specification version, driver
    // version or size is 0, without the signature, or if the configuration that it describes would
    // not fit into the driver's private bytes.
    static const endconfig* get_tail(const DEVMODEW* dev_mode);
    static endconfig* get_tail(DEVMODEW* dev_mode);

    // The same for any record of `size` public and `extra` private bytes.
    static const endconfig* get_tail(const void* record, uint16_t size, uint16_t extra);

    // The configuration of a DEVMODE. Null without a tail, if it is too short for the fields above,
    // or if its own length exceeds the available bytes.
    static const prtconfig* get_cfg(const DEVMODEW* dev_mode);
    static prtconfig* get_cfg(DEVMODEW* dev_mode);

    // Copies the configuration in front of one tail to that in front of another: as many bytes as
    // the shorter one has. Nothing when a tail is null or without the signature, when the printer
    // families differ and when the configurations are of different versions. Both tails stand
    // after at least as many bytes as their sizes tell of, as those from get_tail do.
    static void Copy(endconfig* destination, const endconfig* source);

    // The size of configuration and tail in this driver.
    static int GetTotalSize();
};
static_assert(sizeof(prtconfig) == 1060);
static_assert(offsetof(prtconfig, length) == 1024);
static_assert(offsetof(prtconfig, version) == 1026);
static_assert(offsetof(prtconfig, flags) == 1028);
static_assert(offsetof(prtconfig, option_length) == 1032);
static_assert(offsetof(prtconfig, dither) == 1036);

#pragma pack(pop)
