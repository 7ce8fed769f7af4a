// The printer model of ZPL II printers.
#pragma once

#include "model/prtmodel.h"

class extmodel : public prtmodel {
public:
    // Made by prtmodel::new_ext.
    extmodel() = default;

    using prtmodel::GetRFIDCapabilities;
    void GetClockCapabilities(KVClockCapabilities*& record) const override;
    void GetTemplateCapabilities(KVTemplateCapabilities*& record) const override;
    void GetRFIDCapabilities(KVRFIDCapabilities*& record) const override;

    // The printer emulates ZPL in the mode called PPLZ.
    bool IsPPLZ() const;

    bool HasPowerOptions() const;
    bool HasApplicatorMode() const;
    bool HasPeelOffMode() const;
    bool HasMemoryInitializeCommand() const;   // ^JB
    bool HasConfigurationLabelCommand() const; // ^HH

    // The memory where objects are stored in the printer, by its letter ("R", "E").
    OString GetDefaultMemoryLocation() const;
    // All memories; the working memory R comes last. Replaces the array.
    void GetMemoryLocations(OStringArray& locations) const;

    // The kinds of RFID tags that the printer supports. Replaces the array.
    void GetRFIDTagTypes(OStringArray& types) const;
    // The transponder's position on the label, as set for the printer.
    int GetRFIDTransponderOffset() const;

    // Limits in dots.
    int GetLabelTopMin() const;
    int GetLabelTopMax() const;
    int GetTearOffMin() const;
    int GetTearOffMax() const;
    bool TearOff() const; // the tear-off position can be adjusted
    // The printer takes the tear-off position in three digits.
    bool RequiresFixedTearOffAdjustment() const;
};

// The models of this driver are all of the ZPL II kind.
inline const extmodel& AsZpl(const prtmodel& model) {
    return static_cast<const extmodel&>(model);
}
