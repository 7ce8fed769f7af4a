// The printer model's answers to the spooler.
#include <algorithm>
#include <cstring>

#include "core/fixed_text.h"
#include "model/prtmodel.h"
#include "spooler/printer_info.h"

namespace {

constexpr uint32_t NOT_SUPPORTED = 0xFFFFFFFF;

// The slots that the platform gives names, in characters.
constexpr int BIN_NAME = 24;
constexpr int FILE_NAME = 64;
constexpr int PERSONALITY_NAME = 32;

template <class T>
void Put(unsigned char* output, T value) {
    std::memcpy(output, &value, sizeof value);
}

// Width and length in tenths of a millimetre, in the low and the high half.
uint32_t Extent(Measurement width, Measurement length, unsigned char* output) {
    const auto clamp = [](Measurement size) {
        return static_cast<uint32_t>(std::clamp(size.MM10(), 1, 32767));
    };
    const uint32_t extent = clamp(width) | clamp(length) << 16;
    if (output) Put(output, extent);
    return extent;
}

} // namespace

uint32_t prtmodel::DeviceCapabilitiesW(uint16_t capability, unsigned char* output,
                                       const DEVMODEW* dev_mode) const {
    switch (capability) {
    case DC_FIELDS:
        return dev_mode ? dev_mode->dmFields : NOT_SUPPORTED;
    case DC_SIZE:
        return dev_mode ? dev_mode->dmSize : NOT_SUPPORTED;
    case DC_EXTRA:
        return dev_mode ? dev_mode->dmDriverExtra : NOT_SUPPORTED;
    case DC_VERSION:
        return dev_mode ? dev_mode->dmSpecVersion : NOT_SUPPORTED;
    case DC_DRIVER:
        return dev_mode ? dev_mode->dmDriverVersion : NOT_SUPPORTED;

    case DC_PAPERS:
    case DC_PAPERSIZE:
    case DC_PAPERNAMES:
        return EnumerateForms(capability, output);

    case DC_MINEXTENT:
        return Extent(GetPaperWidthMin(), GetPaperLengthMin(), output);
    case DC_MAXEXTENT:
        return Extent(GetPaperWidthMax(), GetPaperLengthMax(), output);
    case DC_BINS:
        if (output) Put<uint16_t>(output, DMBIN_USER);
        return 1;
    case DC_BINNAMES:
        if (output) PutFixedText(output, "Internal Spool", BIN_NAME);
        return 1;
    case DC_ENUMRESOLUTIONS: {
        OTypedArray<int> numbers;
        const int pairs = GetResolutions(numbers);
        if (output) {
            for (int i = 0; i < numbers.GetSize(); ++i)
                Put<int32_t>(output + static_cast<size_t>(i) * sizeof(int32_t), numbers[i]);
        }
        return static_cast<uint32_t>(pairs);
    }
    case DC_FILEDEPENDENCIES: {
        const PrinterInfo printer(GetPrinterName());
        const OStringArray& files = printer.GetDependentFiles();
        if (output) {
            for (int i = 0; i < files.GetSize(); ++i)
                PutFixedText(output + static_cast<size_t>(i) * FILE_NAME * sizeof(WCHAR), files[i],
                             FILE_NAME);
        }
        return static_cast<uint32_t>(files.GetSize());
    }
    case DC_PERSONALITY:
        if (output) {
            OString name(GetPrefix());
            name.MakeUpper();
            PutFixedText(output, name, PERSONALITY_NAME);
        }
        return 1;
    case DC_NUP:
        if (output) Put<uint32_t>(output, 1);
        return 1;

    case DC_TRUETYPE: // as bitmaps
    case DC_EMF_COMPLIANT:
        return 1;
    case DC_ORIENTATION:
        return 90; // landscape is portrait turned counter-clockwise
    case DC_COPIES:
        return static_cast<uint32_t>(GetMaxCopies());
    case DC_BINADJUST:
        return 2;
    case DC_COLORDEVICE:
        return ColorSupport(255) ? 1 : 0;
    case DC_DUPLEX:
    case DC_COLLATE:
    case DC_STAPLE:
        return 0;
    default:
        return NOT_SUPPORTED;
    }
}
