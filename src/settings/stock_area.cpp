// The printable part of a stock, and the start of the page.
#include <algorithm>

#include "model/prtmodel.h"
#include "settings/dev_mode.h"
#include "settings/public_part.h"
#include "settings/stock.h"

namespace {

int32_t Narrow(int64_t value) {
    return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

// Micrometres in dots: cut, and counting the last dot that is begun.
int64_t Dots(int64_t microns, int dpi) {
    return dpi * microns / 25400;
}

int64_t DotsUp(int64_t microns, int dpi) {
    return (dpi * microns + 25399) / 25400;
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
    if (turn == 1) margins[0] = offset_bottom, margins[1] = offset_left;
    if (turn == 2) margins[0] = offset_right, margins[1] = offset_bottom;
    if (turn == 3) margins[0] = offset_top, margins[1] = offset_right;
    if (turn == 1 || turn == 3) {
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
    if (turn == 0) shift[0] = away;
    if (turn == 1) shift[1] = away;
    if (turn == 2) shift[0] = -away;
    if (turn == 3) shift[1] = -away;

    int64_t reference = 0;
    if (left_tracked) reference = offset_right + unprintable;
    if (right_tracked || (centre_tracked && natural == 2))
        reference = int64_t{offset_left} + offset_right;
    if (centre_tracked && natural == 1) reference = offset_left;

    int64_t origin[2] = {shift[0], shift[1]};
    int64_t device[2] = {0, 0};
    if (natural == 2) {
        origin[0] = -shift[0];
        origin[1] = -shift[1];
        if (turn == 0) origin[0] += reference;
        if (turn == 1) origin[0] = reference - shift[0] - shift[1];
        if (turn == 2) origin[0] = 0;
        if (turn == 1 || turn == 3) origin[1] = 0;
        if (left_tracked) {
            device[0] = Dots(shift[0], dpi_x);
            device[1] = Dots(shift[1], dpi_y);
            shift[0] = shift[1] = 0;
        }
    } else {
        const bool towards_centre = natural == 1 && centre_tracked;
        if (turn == 0 && towards_centre) origin[0] -= reference;
        if (turn == 1) {
            origin[1] = 0;
            if (!right_tracked) origin[0] += shift[1];
            if (towards_centre) origin[0] -= reference;
        }
        if (turn == 2) origin[0] = reference;
        if (turn == 3) {
            origin[1] = 0;
            origin[0] = shift[0] + reference;
        }
        if (right_tracked) {
            if (natural == 0) {
                device[0] = DotsUp(shift[0], dpi_x);
                device[1] = DotsUp(shift[1], dpi_y);
            }
            shift[0] = shift[1] = 0;
        }
    }
    origin_x = Narrow(DotsUp(origin[0], dpi_x));
    origin_y = Narrow(DotsUp(origin[1], dpi_y));
    shift_x = Narrow(DotsUp(shift[0], dpi_x));
    shift_y = Narrow(DotsUp(shift[1], dpi_y));
    margin_x = Narrow(Dots(margins[0], dpi_x));
    margin_y = Narrow(Dots(margins[1], dpi_y));
    device_x = Narrow(device[0]);
    device_y = Narrow(device[1]);
}
