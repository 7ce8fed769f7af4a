#include "printer/prtstream.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

#include "core/memory.h"
#include "core/ofile.h"
#include "printer/ui_printer.h"

namespace {

// What the rendering module can tell of its objects is far below: their size has 16 bits.
constexpr int32_t kLongestDescription = 1 << 20;

} // namespace

prtstream::~prtstream() {
    kill();
}

void prtstream::init() {
    spool_.reset();
    clear();
    capacity_ = kCapacity;
    measuring_ = false;
    xpml_open_ = false;
    query_open_ = false;
    ui_ = nullptr;
    hprinter_ = nullptr;
}

void prtstream::init(UIPrinter* ui) {
    init();
    ui_ = ui;
    hprinter_ = ui ? ui->hprinter : nullptr;
}

// ---- Jobs ---------------------------------------------------------------------------------------

void prtstream::Connect() {
    spool_.reset(); // the old one first: two at once would be two jobs
    spool_.reset(new (kCounted) prtspool(ui_));
}

int prtstream::StartJob(const OString& name) {
    Connect();
    if (!spool_) return 0;
    const int job = spool_->StartDocW(name);
    spool_->StartPage();
    // The rendering module begins its output with the first packet, even an empty one.
    spool_->WriteDirect(nullptr, 0);
    return job;
}

void prtstream::EndDocument() {
    if (!spool_) return;
    spool_->EndPage();
    spool_->EndDoc();
    spool_.reset();
}

bool prtstream::EndJob() {
    flush();
    EndDocument();
    return true;
}

void prtstream::write_packet(const char* data, int count) {
    if (count == 0) return;
    if (spool_) {
        spool_->WriteDirect(data, count);
        return;
    }
    StartJob("write_packet");
    if (spool_) spool_->WriteDirect(data, count);
    // Not EndJob, which flushes: the packet may still be counted as gathered.
    EndDocument();
}

// ---- Writing ------------------------------------------------------------------------------------

bool prtstream::Grow(int32_t count) {
    int64_t capacity = capacity_;
    while (int64_t{buffered_} + count > capacity) capacity *= 2;
    if (capacity > INT32_MAX) return false;
    if (buffer_.GetData() && !buffer_.SetSize(static_cast<uint32_t>(capacity))) return false;
    capacity_ = static_cast<int32_t>(capacity);
    return true;
}

prtstream& prtstream::write(const char* data, int32_t count) {
    if (count <= 0) return *this;
    if (measuring_ && !Grow(count)) return *this;
    if (int64_t{buffered_} + count > capacity_) flush();
    if (!buffer_.GetData() && !buffer_.SetSize(static_cast<uint32_t>(capacity_))) return *this;
    if (count > capacity_) {
        write_direct(data, count);
    } else {
        std::memcpy(buffer_.GetData() + buffered_, data, static_cast<size_t>(count));
        buffered_ += count;
    }
    return *this;
}

prtstream& prtstream::write_byte(char value) {
    return write(&value, 1);
}

prtstream& prtstream::operator<<(const char* text) {
    return text ? write(text, static_cast<int32_t>(std::strlen(text))) : *this;
}

prtstream& prtstream::operator<<(int32_t number) {
    char digits[12];
    const char* end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return write(digits, static_cast<int32_t>(end - digits));
}

prtstream& endl(prtstream& stream) {
    return stream << "\r\n";
}

void prtstream::write_direct(const char* data, int32_t count) {
    const int32_t packet = std::min(capacity_, kLargestPacket);
    for (; count > packet; data += packet, count -= packet) write_packet(data, packet);
    write_packet(data, count);
}

void prtstream::write_file(const OString& path) {
    OFile file(path, OFILE_READ);
    if (!file.is_open()) return;
    const uint32_t length = file.GetLength();
    if (length == 0 || length > INT32_MAX) return;
    OBuffer<char> contents(length);
    const auto count = static_cast<int32_t>(length);
    if (contents.GetData() && file.Read(contents.GetData(), count) == count)
        write(contents.GetData(), count);
}

void prtstream::flush() {
    if (!buffer_.GetData() || measuring_) return;
    if (buffered_ > 0) write_direct(buffer_.GetData(), buffered_);
    clear();
}

void prtstream::clear() {
    buffered_ = 0;
    buffer_.Clear();
}

void prtstream::kill() {
    flush();
    clear();
}

// ---- Measuring ----------------------------------------------------------------------------------

void prtstream::CacheStart() {
    flush();
    measuring_ = true;
}

void prtstream::CacheStop() {
    buffered_ = 0;
    measuring_ = false;
}

int32_t prtstream::GetCachedMemory() const {
    return GetCachedSize();
}

// ---- The rendering module -----------------------------------------------------------------------

uint32_t prtstream::Escape(int code, int input_size, const char* input, int output_size,
                           char* output) {
    if (!spool_) Connect();
    return spool_ ? spool_->Escape(code, input_size, input, output_size, output) : 0;
}

void prtstream::DownloadFont(const KVFontInfo& font) {
    Escape(ESCAPE_DOWNLOAD_FONT, sizeof font, reinterpret_cast<const char*>(&font), 0, nullptr);
}

void prtstream::DownloadFontData(const char* data, uint32_t count) {
    const auto announced = static_cast<uint16_t>(count);
    if (count > UINT32_MAX - sizeof announced) return; // the block's size would wrap around
    OBuffer<char> block(sizeof announced + count);
    if (!block.GetData()) return;
    std::memcpy(block.GetData(), &announced, sizeof announced);
    if (count) std::memcpy(block.GetData() + sizeof announced, data, count);
    Escape(ESCAPE_DOWNLOAD_FONT_DATA, static_cast<uint16_t>(block.GetSize()), block.GetData(), 0,
           nullptr);
}

void prtstream::DownloadBitmapData(const KVDownloadBitmapChar* glyph) {
    if (!glyph) return;
    const auto size = static_cast<uint16_t>(sizeof *glyph + glyph->data_size);
    Escape(ESCAPE_DOWNLOAD_BITMAP, size, reinterpret_cast<const char*>(glyph), 0, nullptr);
}

bool prtstream::GetCacheInformation(OBuffer<unsigned char>& description) {
    const auto ask = [this](int32_t size, unsigned char* output) {
        return static_cast<int32_t>(
            Escape(ESCAPE_CACHE_INFORMATION, 0, nullptr, size, reinterpret_cast<char*>(output)));
    };
    const int32_t size = ask(0, nullptr);
    if (size < 1 || size > kLongestDescription) return false;
    OBuffer<unsigned char> told(static_cast<uint32_t>(size));
    if (!told.GetData()) return false;
    // There may be less to tell by now than there was room asked for.
    const int32_t length = std::min(ask(size, told.GetData()), size);
    if (length < 1 || !told.SetSize(static_cast<uint32_t>(length))) return false;
    description = std::move(told);
    return true;
}

void prtstream::CacheAction(const KVCacheAction& action) {
    Escape(ESCAPE_CACHE_ACTION, sizeof action, reinterpret_cast<const char*>(&action), 0, nullptr);
}

void prtstream::CacheItemAction(const KVCacheItemAction& action) {
    Escape(ESCAPE_CACHE_ITEM_ACTION, sizeof action, reinterpret_cast<const char*>(&action), 0,
           nullptr);
}

// ---- The printer --------------------------------------------------------------------------------

HDC prtstream::GetDC() const {
    return spool_ ? spool_->GetDC() : nullptr;
}

int32_t prtstream::GetVerticalDPI() {
    if (!spool_) Connect();
    const HDC dc = GetDC();
    return dc ? GetDeviceCaps(dc, LOGPIXELSY) : 0;
}

int32_t prtstream::GetPageWidth() const {
    return spool_ ? spool_->GetPrintableArea().cx : 0;
}

int32_t prtstream::GetPageHeight() const {
    return spool_ ? spool_->GetPrintableArea().cy : 0;
}

int32_t prtstream::GetDPI() const {
    const prtmodel* model = GetModel();
    return model ? model->GetXResolution() : 0;
}

prtmodel* prtstream::GetModel() const {
    return ui_ ? ui_->model.get() : nullptr;
}
