#include "pages/graphics/pp_dither_setup.h"

#include "imaging/image_dither.h"

namespace {

constexpr uint16_t kPatternList = 545;
constexpr int kSequences = 20;

} // namespace

int16_t* ppDitherSetup::Field() {
    if (!config_) return nullptr;
    dithercfg& settings = config_->dither;
    switch (settings.algorithm) {
    case dithercfg::ALGORITHM_DISPERSED:
        return &settings.dispersed_matrix;
    case dithercfg::ALGORITHM_CLUSTERED:
        return &settings.clustered_matrix;
    case dithercfg::ALGORITHM_ALGEBRAIC:
        return &settings.sequence;
    case dithercfg::ALGORITHM_DIFFUSION:
        return &settings.diffusion_kernel;
    default:
        return nullptr;
    }
}

void ppDitherSetup::FillPatterns() {
    switch (config_->dither.algorithm) {
    case dithercfg::ALGORITHM_DISPERSED:
        CB_AddString(kPatternList, "2 x 2", 0);
        CB_AddString(kPatternList, "4 x 4", 1);
        CB_AddString(kPatternList, "8 x 8", 2);
        break;
    case dithercfg::ALGORITHM_CLUSTERED:
        CB_AddString(kPatternList, "4 x 4", 1);
        CB_AddString(kPatternList, "6 x 6", 2);
        CB_AddString(kPatternList, "8 x 8", 3);
        break;
    case dithercfg::ALGORITHM_ALGEBRAIC:
        for (int n = 0; n < kSequences; ++n) {
            int a = 0, b = 0, c = 0;
            ImageDither::GetAlgebraicSequence(n, a, b, c);
            OString text;
            text << "A = " << a << ", B = " << b << ", C = " << c;
            CB_AddString(kPatternList, text, n);
        }
        break;
    case dithercfg::ALGORITHM_DIFFUSION:
        CB_AddString(kPatternList, "Floyd-Steinberg", 0);
        CB_AddString(kPatternList, "Jarvis", 1);
        break;
    default:
        break;
    }
}

void ppDitherSetup::Refresh(bool all) {
    const int16_t* const field = Field();
    if (!all || !field) return;
    CB_ResetContent(kPatternList);
    FillPatterns();
    CB_SetCurSelData(kPatternList, *field);
}

bool ppDitherSetup::Command(uint16_t id, uint16_t code, LPARAM value) {
    int16_t* const field = Field();
    if (id != kPatternList || code != CBN_SELCHANGE || !field)
        return prtpage::Command(id, code, value);
    *field = static_cast<int16_t>(CB_GetCurSelData(kPatternList));
    return false;
}
