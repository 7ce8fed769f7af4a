// The printer model's answers to the spooler.
#include <algorithm>
#include <cstring>

#include "core/fixed_text.h"
#include "model/prtmodel.h"

namespace {

constexpr uint32_t kNotSupported = 0xFFFFFFFF;

// The size of the platform's fields for names, in characters.
constexpr int kBinName = 24;
constexpr int kFileName = 64;
constexpr int kPersonalityName = 32;

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
        return dev_mode ? dev_mode->dmFields : kNotSupported;
    case DC_SIZE:
        return dev_mode ? dev_mode->dmSize : kNotSupported;
    case DC_EXTRA:
        return dev_mode ? dev_mode->dmDriverExtra : kNotSupported;
    case DC_VERSION:
        return dev_mode ? dev_mode->dmSpecVersion : kNotSupported;
    case DC_DRIVER:
        return dev_mode ? dev_mode->dmDriverVersion : kNotSupported;

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
        if (output) PutFixedText(output, "Internal Spool", kBinName);
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
        const OStringArray& files = GetDependentFiles();
        if (output) {
            for (int i = 0; i < files.GetSize(); ++i)
                PutFixedText(output + static_cast<size_t>(i) * kFileName * sizeof(WCHAR), files[i],
                             kFileName);
        }
        return static_cast<uint32_t>(files.GetSize());
    }
    case DC_PERSONALITY:
        if (output) {
            OString name(GetPrefix());
            name.MakeUpper();
            PutFixedText(output, name, kPersonalityName);
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
        return kNotSupported;
    }
}
