// The driver configuration of ZPL II printers.
#pragma once

#include "model/model_records.h"
#include "settings/prtconfig.h"

class extstream;

#pragma pack(push, 1)

// The complete block. A 16-bit field of -1 leaves its setting to the printer: the command for it is
// not sent.
struct extconfig : prtconfig {
    int16_t media_type;          // 0 direct thermal, 1 thermal transfer
    int16_t media_tracking;      // 0 continuous, 1 gap, 2 and 3 mark
    int32_t backfeed;            // 0 none, 1 to 3 before and after the cut or off, 4 by percentage
    int32_t backfeed_percentage; // 0 to 100
    int32_t print_speed;         // the three are values of the model's speed table
    int32_t slew_speed;
    int32_t backfeed_speed;
    int32_t label_top; // micrometres
    int32_t tear_off;  // micrometres
    int32_t relative_darkness;
    int32_t absolute_darkness;
    int16_t print_mode;  // PRINT_
    int16_t option;      // of the options page, 0 to 4
    int16_t cut_variant; // 0 to 2, for PRINT_CUTTER
    int16_t stock_option;
    int32_t stock_count; // 1 to MOST_LABELS
    uint16_t setting_flags;
    uint16_t reserved2;

    static constexpr uint16_t VERSION = 1028;
    enum : int16_t {
        PRINT_AS_SET = -1,
        PRINT_TEAR_OFF = 0,
        PRINT_PEEL_OFF = 1,
        PRINT_REWIND = 2,
        PRINT_CUTTER = 3,
        PRINT_APPLICATOR = 4
    };
    enum : int32_t { BACKFEED_PERCENTAGE = 4 };
    static constexpr int32_t MOST_LABELS = 9999;
    enum : uint16_t {
        SETTING_PAUSE_AFTER_CUT = 1,
        SETTING_LABEL_TOP = 2, // this and the next three: the setting is sent
        SETTING_TEAR_OFF = 4,
        SETTING_SPEEDS = 8,
        SETTING_DARKNESS = 16,
        SETTING_ABSOLUTE_DARKNESS = 32
    };

    // Sets everything as for a new printer: speeds as marked in the model's table, media and print
    // mode left to the printer, darkness 12. Without a model there are no speeds, and the dots of
    // pictures are those of dithercfg::Reset.
    void Reset(const prtmodel* model);

    // Brings every setting within the limits of the model. Settings that the model does not support
    // are reset. The limits of the label top and tear-off offsets are in dots of the printer. A
    // model without a resolution has no such limits, and they stay as they are.
    void Validate(const prtmodel* model);

    // Brings in line what follows from the print mode: only the modes without a motion of their own
    // send a tear-off position, and choices that mean each label count one.
    void SettlePrintMode();

    // For the page of the options: the darkness in force, the absolute one (0 to 30) or the
    // relative one (-30 to 30).
    int GetDarkness() const;
    void SetDarkness(int darkness);
    bool IsAbsoluteDarkness() const { return (setting_flags & SETTING_ABSOLUTE_DARKNESS) != 0; }
    void SetAbsoluteDarkness(bool absolute);

    // For the page of the options: the printer waits after each cut; only with PRINT_CUTTER.
    bool get_pauseaftercut() const;

    // The text that the speed command carries for a speed: that of the first table entry with this
    // value, or empty if there is none.
    static OString FindSpdLetter(int32_t speed, const CustomData& data);

    // The value of the first entry that is marked as the default, or 0.
    static int32_t GetDefaultSpeed(const CustomData& data);

    // Writes the commands that bring a printer into this configuration and into the settings of its
    // driver, to stand inside a format. They are for the stream's printer and the page of its open
    // job; a stream without a model gets nothing. Settings without a command and those left to the
    // printer are not written. Defined in the layer above, with the stream.
    void output(extstream& stream) const;

    // The letter of a media feed action: "F" for 0 (feed), "L" for 2 (length), "C" for 3
    // (calibrate), "N" (nothing) for any other.
    static const char* mediafeed(int action);

    // The configuration of a DEVMODE of a ZPL printer, or null if it has none or one shorter than
    // all of these fields.
    static extconfig* get_cfg(DEVMODEW* dev_mode);
    static const extconfig* get_cfg(const DEVMODEW* dev_mode);
};
static_assert(sizeof(extconfig) == 1116);

#pragma pack(pop)
