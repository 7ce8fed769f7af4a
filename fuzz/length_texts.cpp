// Lengths as people and tables write them, in any units and with any separators: lengths that are
// read stay within limits, and a length that is written reads back as the same.
#include <win32host/control.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/numbers.h"
#include "input.h"
#include "locale/prtlocale.h"
#include "model/measurement.h"
#include "target.h"

namespace {

constexpr int32_t kLongest = 25400 * 25400; // 645 m

void CheckLocale(const prtlocale& locale, const OString& text) {
    const int32_t microns = locale.string_to_microns(text);
    Check(microns >= -kLongest && microns <= kLongest);
    // Displayed lengths are rounded to 0.1 mm or 0.01 in.
    if (std::abs(microns) > 25000000) return;
    const OString shown = locale.microns_to_string(microns);
    Check(std::abs(locale.string_to_microns(shown) - microns) <= 127);
}

} // namespace

FUZZ_TARGET(length_texts)(const uint8_t* data, size_t size) {
    Input input(data, size);
    const size_t choice = input.Number();
    const std::string bytes = input.Rest();
    const OString text(bytes.c_str());

    Measurement length;
    length.SetText(text);
    Check(std::abs(int64_t{length.Microns()}) <= 214748365);
    (void)length.MM10();
    for (const int dpi : {0, -203, 203, 300, INT32_MAX}) (void)length.Dots(dpi);
    Measurement sum = length + length;
    sum.SetPoints(xtol(text.nstring()));
    Check(xtol(text.wstring()) == xtol(text.nstring()));

    win32host::LocaleFacts facts;
    facts.inches = (choice & 1) != 0;
    facts.leading_zero = (choice & 2) != 0;
    facts.decimal = (choice & 4) != 0 ? TEXT(",") : TEXT(".");
    win32host::SetLocaleFacts(facts);
    prtlocale locale;
    locale.LoadSystem();
    for (const int32_t units : {prtlocale::SYSTEM_UNITS, prtlocale::INCHES, prtlocale::MILLIMETRES,
                                prtlocale::CENTIMETRES}) {
        locale.SetNewUnits(units);
        CheckLocale(locale, text);
    }
    if (bytes.size() >= 8) {
        int32_t numbers[2];
        std::memcpy(numbers, bytes.data(), sizeof numbers);
        (void)locale.microns_to_string(numbers[0]);
        (void)locale.FormatK(static_cast<uint32_t>(numbers[0]));
        (void)locale.xdimension_to_string(numbers[0], numbers[1]);
        (void)locale.dpi_to_string(numbers[0], numbers[1]);
    }
    return 0;
}
