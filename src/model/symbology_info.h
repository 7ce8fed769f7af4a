// The bar code symbologies by number.
#pragma once

#include "core/ostring.h"

// A symbology's name in the tables and its possible properties. Numbers 0 and 1 are two variants of
// Code 39 with one set of properties, which are read as those of 0: asked on its own, 1 has neither
// ratios nor a check digit to show. A number outside 0 to 36 has an empty name.
class SymbologyInfo {
public:
    enum Number {
        CODE39 = 0,
        CODE39_VARIANT,
        CODE93,
        CODE128,
        CODABAR,
        INTERLEAVED_2_OF_5,
        MSI,
        UPC_A,
        UPC_E,
        EAN_13,
        EAN_8,
        SUPPLEMENTAL_2,
        SUPPLEMENTAL_5,
        POSTNET,
        CODE_ONE,
        PDF417,
        DATA_MATRIX,
        MAXICODE,
        QR_CODE,
        ROYAL_MAIL,
        AUSTRALIAN_POST,
        JAPAN_POST,
        KIX,
        FIM,
        CODE11,
        CODE16K,
        CODE49,
        CODABLOCK,
        MICRO_PDF417,
        AZTEC,
        AZTEC_MESA,
        RSS,
        COMPOSITE,
        PLANET,
        CP_CODE,
        VERICODE,
        TELEPEN
    };

    explicit SymbologyInfo(int number);

    int GetNumber() const { return number_; }
    const OString& GetName() const { return name_; }

    // The key of one of its properties: "Code39.FullASCII" for "FullASCII".
    OString CreateKey(const OString& suffix) const;

    // What the tables can tell of it. The dialog for bar code fonts has its own rules for what it
    // offers of that.

    // Whether wide and narrow bars have a ratio.
    bool Ratios_Supported() const;
    // Whether there can be human-readable text.
    bool HR_Supported() const;
    // Whether the check digit can be part of that text.
    bool ShowCheckDigit_Supported() const;
    // Whether there is a number system to choose.
    bool NumberSystem_Supported() const;

private:
    const int number_;
    const OString name_;
};
