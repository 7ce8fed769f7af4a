#include "model/symbology_info.h"

namespace {

struct Symbology {
    const char* name;
    bool ratios;
    bool hr;
    bool show_check_digit;
};

// By number.
const Symbology kSymbologies[] = {
    {"Code39", true, true, true},
    {"Code39", false, true, false},
    {"Code93", true, true, true},
    {"Code128", false, true, false},
    {"Codabar", true, true, false},
    {"I-2/5", true, true, true},
    {"MSI", true, true, true},
    {"UPC-A", false, true, true},
    {"UPC-E", false, true, true},
    {"EAN-13", false, true, true},
    {"EAN-8", false, true, true},
    {"Supplemental2", false, true, false},
    {"Supplemental5", false, true, false},
    {"Postnet", false, true, false},
    {"CodeOne", false, false, false},
    {"PDF417", false, false, false},
    {"DataMatrix", false, false, false},
    {"MaxiCode", false, false, false},
    {"QRCode", false, false, false},
    {"RoyalMail", false, true, false},
    {"AustralianPost", false, true, false},
    {"JapanPost", false, true, false},
    {"KIX", false, true, false},
    {"FIM", false, true, false},
    {"Code11", true, true, true},
    {"Code16K", false, true, false},
    {"Code49", false, true, false},
    {"Codablock", false, true, false},
    {"MicroPDF417", false, false, false},
    {"Aztec", false, false, false},
    {"AztecMesa", false, false, false},
    {"RSS", false, true, false},
    {"Composite", false, true, false},
    {"Planet", false, true, false},
    {"CPCode", false, false, false},
    {"Vericode", false, false, false},
    {"Telepen", false, true, false},
};
constexpr int kCount = sizeof kSymbologies / sizeof kSymbologies[0];
static_assert(kCount == SymbologyInfo::TELEPEN + 1);

// An unknown number has no ratios and no check digit, but may have a text.
const Symbology kUnknown = {"", false, true, false};

const Symbology& Find(int number) {
    return number >= 0 && number < kCount ? kSymbologies[number] : kUnknown;
}

} // namespace

SymbologyInfo::SymbologyInfo(int number)
    : number_(number)
    , name_(Find(number).name) {}

OString SymbologyInfo::CreateKey(const OString& suffix) const {
    return name_ + OString(".") + suffix;
}

bool SymbologyInfo::Ratios_Supported() const {
    return Find(number_).ratios;
}

bool SymbologyInfo::HR_Supported() const {
    return Find(number_).hr;
}

bool SymbologyInfo::ShowCheckDigit_Supported() const {
    return Find(number_).show_check_digit;
}

bool SymbologyInfo::NumberSystem_Supported() const {
    return number_ == UPC_E;
}
