// The printable part of a stock, and the start of the page.
#include <algorithm>

#include "model/prtmodel.h"
#include "settings/dev_mode.h"
#include "settings/public_part.h"
#include "settings/stock.h"

namespace {

// The turns of a page, as DevMode::GetOrientation counts them.
enum Turn : int { PORTRAIT, LANDSCAPE, PORTRAIT_TURNED, LANDSCAPE_TURNED };

// How the labels lie in the printer, as prtmodel::GetNaturalOrientation counts it.
enum Natural : int { NATURAL_0, NATURAL_90, NATURAL_180 };

// The places of coordinates in a pair.
enum Axis : int { X, Y };

constexpr int kMicronsPerInch = 25400;

int32_t Narrow(int64_t value) {
    return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

// Micrometres in dots: cut, and counting the last dot that is begun.
int64_t Dots(int64_t microns, int dpi) {
    return dpi * microns / kMicronsPerInch;
}

int64_t DotsUp(int64_t microns, int dpi) {
    return (dpi * microns + kMicronsPerInch - 1) / kMicronsPerInch;
}

} // namespace

void Stock::CalculatePrintableArea(const prtmodel* model) {
    const int64_t paper = int64_t{width} + liner_left + liner_right;
    const int64_t long_paper = int64_t{length} + gap_top + gap_bottom;
    const int64_t printable_max = model->GetPrintableWidth().Microns();
    int64_t unprintable = model->GetUnprintableWidth().Microns();
    int64_t printable = width;
    int64_t left, right;

    if (model->IsCenterTracked()) {
        printable = std::min(printable, printable_max);
        left = std::max<int64_t>((paper - printable) / 2, liner_left) + unprintable;
        right = paper - left - printable;
    } else {
        const bool left_tracked = model->IsLeftTracked();
        const int64_t liner = left_tracked ? liner_left : liner_right;
        if (unprintable > liner)
            printable -= unprintable - liner;
        else
            unprintable = liner;
        printable = std::min(printable, printable_max);
        left = right = unprintable;
        (left_tracked ? right : left) = paper - printable - unprintable;
    }
    paper_width = Narrow(paper);
    paper_length = Narrow(long_paper);
    printable_width = Narrow(printable);
    offset_left = Narrow(left);
    offset_right = Narrow(right);
    printable_length = std::min(length, model->GetPaperLengthMax().Microns());
    offset_top = 0;
    offset_bottom = Narrow(long_paper - printable_length);
}

void Stock::CalculateOffsets(const prtmodel* model, const DEVMODEW* dev_mode) {
    CalculatePrintableArea(model);
    const int turn = DevMode(const_cast<DEVMODEW*>(dev_mode)).GetOrientation();
    const DEVMODEW mode = PublicPart(dev_mode).fields;
    const bool left_tracked = model->IsLeftTracked();
    const bool right_tracked = model->IsRightTracked();
    const bool centre_tracked = model->IsCenterTracked();
    const int64_t unprintable = model->GetUnprintableWidth().Microns();
    const int natural = model->GetNaturalOrientation();

    // The page as turned.
    int64_t margins[2] = {offset_left, offset_top};
    if (turn == LANDSCAPE) margins[X] = offset_bottom, margins[Y] = offset_left;
    if (turn == PORTRAIT_TURNED) margins[X] = offset_right, margins[Y] = offset_bottom;
    if (turn == LANDSCAPE_TURNED) margins[X] = offset_top, margins[Y] = offset_right;
    if (turn == LANDSCAPE || turn == LANDSCAPE_TURNED) {
        std::swap(paper_width, paper_length);
        std::swap(printable_width, printable_length);
    }
    dpi_x = mode.dmPrintQuality;
    dpi_y = mode.dmYResolution;
    if (mode.dmOrientation != DMORIENT_PORTRAIT) std::swap(dpi_x, dpi_y);

    // How far the label is from where the printer tracks it.
    int64_t shift[2] = {0, 0};
    int64_t away = 0;
    if (left_tracked && offset_left > unprintable) away = unprintable - offset_left;
    if (right_tracked && offset_right > unprintable) away = offset_right - unprintable;
    if (turn == PORTRAIT) shift[X] = away;
    if (turn == LANDSCAPE) shift[Y] = away;
    if (turn == PORTRAIT_TURNED) shift[X] = -away;
    if (turn == LANDSCAPE_TURNED) shift[Y] = -away;

    int64_t reference = 0;
    if (left_tracked) reference = offset_right + unprintable;
    if (right_tracked || (centre_tracked && natural == NATURAL_180))
        reference = int64_t{offset_left} + offset_right;
    if (centre_tracked && natural == NATURAL_90) reference = offset_left;

    int64_t origin[2] = {shift[X], shift[Y]};
    int64_t device[2] = {0, 0};
    if (natural == NATURAL_180) {
        origin[X] = -shift[X];
        origin[Y] = -shift[Y];
        if (turn == PORTRAIT) origin[X] += reference;
        if (turn == LANDSCAPE) origin[X] = reference - shift[X] - shift[Y];
        if (turn == PORTRAIT_TURNED) origin[X] = 0;
        if (turn == LANDSCAPE || turn == LANDSCAPE_TURNED) origin[Y] = 0;
        if (left_tracked) {
            device[X] = Dots(shift[X], dpi_x);
            device[Y] = Dots(shift[Y], dpi_y);
            shift[X] = shift[Y] = 0;
        }
    } else {
        const bool towards_centre = natural == NATURAL_90 && centre_tracked;
        if (turn == PORTRAIT && towards_centre) origin[X] -= reference;
        if (turn == LANDSCAPE) {
            origin[Y] = 0;
            if (!right_tracked) origin[X] += shift[Y];
            if (towards_centre) origin[X] -= reference;
        }
        if (turn == PORTRAIT_TURNED) origin[X] = reference;
        if (turn == LANDSCAPE_TURNED) {
            origin[Y] = 0;
            origin[X] = shift[X] + reference;
        }
        if (right_tracked) {
            if (natural == NATURAL_0) {
                device[X] = DotsUp(shift[X], dpi_x);
                device[Y] = DotsUp(shift[Y], dpi_y);
            }
            shift[X] = shift[Y] = 0;
        }
    }
    origin_x = Narrow(DotsUp(origin[X], dpi_x));
    origin_y = Narrow(DotsUp(origin[Y], dpi_y));
    shift_x = Narrow(DotsUp(shift[X], dpi_x));
    shift_y = Narrow(DotsUp(shift[Y], dpi_y));
    margin_x = Narrow(Dots(margins[X], dpi_x));
    margin_y = Narrow(Dots(margins[Y], dpi_y));
    device_x = Narrow(device[X]);
    device_y = Narrow(device[Y]);
}
