#include "window/header_control.h"

#include "host/guarded.h"
#include "window/notify.h"
#include "window/text_measure.h"

#include <algorithm>

namespace win32host {

static constexpr int kDividerReach = 5; // on both sides of the line after a title

// These take a pointer.
static constexpr UINT kHeaderPointers[] = {HDM_INSERTITEMW, HDM_GETITEMW, HDM_SETITEMW, HDM_LAYOUT,
                                           HDM_HITTEST};

LRESULT HeaderControl::Handle(UINT message, WPARAM first, LPARAM second) {
    if (!second && IsOneOf(kHeaderPointers, message))
        return message == HDM_INSERTITEMW || message == HDM_HITTEST ? -1 : FALSE;
    const int at = static_cast<int>(first);
    switch (message) {
    case HDM_GETITEMCOUNT:
        return static_cast<LRESULT>(titles_.size());
    case HDM_INSERTITEMW:
        return Guarded(LRESULT(-1),
                       [&] { return Insert(at, *reinterpret_cast<const HDITEMW*>(second)); });
    case HDM_DELETEITEM:
        return Delete(at);
    case HDM_GETITEMW:
        return Get(at, *reinterpret_cast<HDITEMW*>(second));
    case HDM_SETITEMW:
        return Set(at, *reinterpret_cast<const HDITEMW*>(second));
    case HDM_LAYOUT:
        return Layout(*reinterpret_cast<const HDLAYOUT*>(second));
    case HDM_HITTEST:
        return HitTest(*reinterpret_cast<HDHITTESTINFO*>(second));
    case HDM_GETITEMRECT:
        if (!Has(at) || !second) return FALSE;
        *reinterpret_cast<RECT*>(second) = RectOf(at);
        return TRUE;
    case HDM_ORDERTOINDEX:
        return Has(at) ? order_[static_cast<size_t>(at)] : at;
    case HDM_GETORDERARRAY:
        return GetOrder(at, reinterpret_cast<int*>(second));
    case HDM_SETORDERARRAY:
        return SetOrder(at, reinterpret_cast<const int*>(second));
    case WM_SETFONT:
        font_ = reinterpret_cast<HFONT>(first);
        InvalidateRect(Self(), nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font_);
    case WM_LBUTTONDOWN:
        MouseDown(PointOf(second));
        return 0;
    case WM_MOUSEMOVE:
        MouseMove(PointOf(second));
        return 0;
    case WM_LBUTTONUP:
        MouseUp(PointOf(second));
        return 0;
    case WM_LBUTTONDBLCLK:
        DoubleClick(PointOf(second));
        return 0;
    case WM_CAPTURECHANGED:
        pressed_ = dragged_ = -1;
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

static void TakeTitle(const HDITEMW& item, std::u16string& text, int& width, int& format,
                      LPARAM& data, int& image) {
    if (item.mask & HDI_TEXT) text = item.pszText ? item.pszText : u"";
    if (item.mask & HDI_WIDTH) width = std::max(0, item.cxy);
    if (item.mask & HDI_FORMAT) format = item.fmt;
    if (item.mask & HDI_LPARAM) data = item.lParam;
    if (item.mask & HDI_IMAGE) image = item.iImage;
}

LRESULT HeaderControl::Insert(int at, const HDITEMW& item) {
    if (at < 0) return -1;
    const int count = static_cast<int>(titles_.size());
    at = std::min(at, count);
    Title title;
    TakeTitle(item, title.text, title.width, title.format, title.data, title.image);
    order_.reserve(order_.size() + 1);
    titles_.insert(titles_.begin() + at, std::move(title));
    for (int& other : order_)
        if (other >= at) ++other;
    int place = item.mask & HDI_ORDER ? item.iOrder : at;
    place = std::clamp(place, 0, count);
    order_.insert(order_.begin() + place, at);
    InvalidateRect(Self(), nullptr, TRUE);
    return at;
}

LRESULT HeaderControl::Delete(int at) {
    if (!Has(at)) return FALSE;
    titles_.erase(titles_.begin() + at);
    order_.erase(std::find(order_.begin(), order_.end(), at));
    for (int& other : order_)
        if (other > at) --other;
    InvalidateRect(Self(), nullptr, TRUE);
    return TRUE;
}

LRESULT HeaderControl::Get(int at, HDITEMW& item) const {
    if (!Has(at)) return FALSE;
    const Title& title = At(at);
    if (item.mask & HDI_TEXT) CopyText(title.text, item.pszText, item.cchTextMax);
    if (item.mask & HDI_WIDTH) item.cxy = title.width;
    if (item.mask & HDI_FORMAT) item.fmt = title.format;
    if (item.mask & HDI_LPARAM) item.lParam = title.data;
    if (item.mask & HDI_IMAGE) item.iImage = title.image;
    if (item.mask & HDI_ORDER)
        item.iOrder =
            static_cast<int>(std::find(order_.begin(), order_.end(), at) - order_.begin());
    return TRUE;
}

LRESULT HeaderControl::Set(int at, const HDITEMW& item) {
    if (!Has(at)) return FALSE;
    HDITEMW change = item;
    if (Notify(HDN_ITEMCHANGINGW, at, &change) || !Has(at)) return FALSE;
    Title& title = At(at);
    TakeTitle(item, title.text, title.width, title.format, title.data, title.image);
    if (item.mask & HDI_ORDER) {
        order_.erase(std::find(order_.begin(), order_.end(), at));
        order_.insert(order_.begin() + std::clamp(item.iOrder, 0, static_cast<int>(order_.size())),
                      at);
    }
    InvalidateRect(Self(), nullptr, TRUE);
    Notify(HDN_ITEMCHANGEDW, at, &change);
    return TRUE;
}

LRESULT HeaderControl::SetOrder(int count, const int* order) {
    if (!order || count != static_cast<int>(titles_.size())) return FALSE;
    std::vector<int> wanted(order, order + count);
    std::vector<int> sorted = wanted;
    std::sort(sorted.begin(), sorted.end());
    for (int i = 0; i < count; ++i)
        if (sorted[static_cast<size_t>(i)] != i) return FALSE;
    order_ = std::move(wanted);
    InvalidateRect(Self(), nullptr, TRUE);
    return TRUE;
}

LRESULT HeaderControl::GetOrder(int count, int* order) const {
    if (!order || count < static_cast<int>(order_.size())) return FALSE;
    std::copy(order_.begin(), order_.end(), order);
    return TRUE;
}

LRESULT HeaderControl::Layout(const HDLAYOUT& layout) const {
    if (!layout.prc || !layout.pwpos) return FALSE;
    const TextMeasure measure(Self(), font_);
    const int height = Style() & HDS_HIDDEN ? 0 : measure.LineHeight() + measure.Scaled(8);
    RECT& area = *layout.prc;
    *layout.pwpos = {Self(), HWND_TOP, area.left, area.top, area.right - area.left, height, 0};
    area.top += height;
    return TRUE;
}

RECT HeaderControl::RectOf(int at) const {
    RECT client = {};
    GetClientRect(Self(), &client);
    int x = 0;
    for (int other : order_) {
        if (other == at) break;
        x += At(other).width;
    }
    return {x, 0, x + At(at).width, client.bottom};
}

LRESULT HeaderControl::HitTest(HDHITTESTINFO& info) const {
    RECT client = {};
    GetClientRect(Self(), &client);
    info.flags = HHT_NOWHERE;
    info.iItem = -1;
    if (!Holds(client, info.pt)) return -1;
    // The line after the rightmost title that is near: a title without width can be dragged open.
    for (auto other = order_.rbegin(); other != order_.rend(); ++other) {
        const RECT rect = RectOf(*other);
        if (info.pt.x >= rect.right - kDividerReach && info.pt.x <= rect.right + kDividerReach) {
            info.flags = HHT_ONDIVIDER;
            return info.iItem = *other;
        }
        if (Holds(rect, info.pt)) {
            info.flags = HHT_ONHEADER;
            return info.iItem = *other;
        }
    }
    return -1;
}

LRESULT HeaderControl::Notify(UINT code, int at, HDITEMW* item) const {
    NMHEADERW record = {};
    record.iItem = at;
    record.pitem = item;
    return NotifyParent(Self(), code, record.hdr);
}

void HeaderControl::MouseDown(POINT point) {
    HDHITTESTINFO hit = {point, 0, 0};
    const auto at = static_cast<int>(HitTest(hit));
    if (at == -1) return;
    if (hit.flags == HHT_ONDIVIDER) {
        HDITEMW item = {};
        item.mask = HDI_WIDTH;
        item.cxy = At(at).width;
        if (Notify(HDN_BEGINTRACKW, at, &item) || !Has(at)) return;
        dragged_ = at;
        grip_ = RectOf(at).right - point.x;
    } else if (Style() & HDS_BUTTONS) {
        pressed_ = at;
    }
    SetCapture(Self());
    InvalidateRect(Self(), nullptr, FALSE);
}

void HeaderControl::MouseMove(POINT point) {
    if (!Has(dragged_)) return;
    HDITEMW item = {};
    item.mask = HDI_WIDTH;
    item.cxy = std::max(0, static_cast<int>(point.x + grip_ - RectOf(dragged_).left));
    if (item.cxy == At(dragged_).width || Notify(HDN_TRACKW, dragged_, &item)) return;
    Set(dragged_, item);
}

void HeaderControl::MouseUp(POINT point) {
    const int pressed = pressed_;
    const int dragged = dragged_;
    pressed_ = dragged_ = -1;
    if (GetCapture() == Self()) ReleaseCapture();
    InvalidateRect(Self(), nullptr, FALSE);
    if (Has(dragged)) {
        HDITEMW item = {};
        item.mask = HDI_WIDTH;
        item.cxy = At(dragged).width;
        Notify(HDN_ENDTRACKW, dragged, &item);
    } else if (Has(pressed) && Holds(RectOf(pressed), point)) {
        Notify(HDN_ITEMCLICKW, pressed);
    }
}

void HeaderControl::DoubleClick(POINT point) {
    HDHITTESTINFO hit = {point, 0, 0};
    const auto at = static_cast<int>(HitTest(hit));
    if (at == -1) return;
    Notify(hit.flags == HHT_ONDIVIDER ? HDN_DIVIDERDBLCLICKW : HDN_ITEMDBLCLICKW, at);
}

void RegisterHeaderControl();
void RegisterHeaderControl() {
    RegisterControl<HeaderControl>(WC_HEADERW, CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW);
}

} // namespace win32host
