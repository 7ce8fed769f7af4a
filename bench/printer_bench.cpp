// What goes to the printer and comes back: 100 MB through the output stream into a job, compared
// with writing the same packets to a file; every character of a font as pictures at 600 dpi,
// compared with only drawing them; a directory of files, compared with cutting it into lines.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "bench_host.h"
#include "core/fixed_text.h"
#include "fonts/char_masks.h"
#include "fonts/font_sender.h"
#include "model/record_text.h"
#include "printer/prtstream.h"
#include "spooler/open_printer.h"
#include "support/data_file_text.h"
#include "ui/prtui.h"
#include "zpl/host_lists.h"

namespace {

constexpr int64_t kStreamed = 100'000'000;
constexpr int kPacket = 8192;

// The installed printer with its UI object.
class Printer {
public:
    Printer()
        : module_(Record("Driver.d", "[Model 1]\nModel=Model:A\n") +
                  Record("Model.d", "[A]\nFont=Font:A\nResolution=600\nStock.Default.X=4 in\n"
                                    "Stock.Default.Y=6 in\n") +
                  Record("Font.d", "[A]\nDownload.Bitmap=yes\n"
                                   "Download.Bitmap.Orientation=0,90\n"))
        , opened_("Dock 3", PRINTER_ALL_ACCESS)
        , ui_(prtui::new_ext()) {
        ui_->init(opened_.Get(), nullptr, 0);
    }
    const std::string& root() const { return module_.Root(); }
    prtstream& stream() const { return *ui_->stream; }

    // Removes the job from the spooler.
    void Delete(int job) const {
        SetJobW(opened_.Get(), static_cast<DWORD>(job), 0, nullptr, JOB_CONTROL_DELETE);
    }

private:
    const AttachedModule module_;
    const OpenPrinter opened_;
    const std::unique_ptr<prtui> ui_;
};

long PeakMemory() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss; // KB
}

std::vector<char> Packet() {
    std::vector<char> packet(kPacket);
    for (size_t i = 0; i < packet.size(); ++i) packet[i] = static_cast<char>(i * 7);
    return packet;
}

void BM_WritePacketsToAFile(benchmark::State& state) {
    const Printer printer;
    const std::string path = printer.root() + "/packets";
    const std::vector<char> packet = Packet();
    for (auto _ : state) {
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        for (int64_t sent = 0; sent < kStreamed; sent += kPacket)
            if (write(file, packet.data(), packet.size()) != kPacket) state.SkipWithError("write");
        close(file);
        unlink(path.c_str());
    }
    state.SetBytesProcessed(state.iterations() * kStreamed);
}
// Both run many times and are measured in processor time, as it is chance how long the disk delays
// the one or the other, and what the system does to find memory for a single file.
constexpr double kStreaming = 1; // seconds
BENCHMARK(BM_WritePacketsToAFile)->Unit(benchmark::kMillisecond)->MinTime(kStreaming);

void BM_StreamIntoAJob(benchmark::State& state) {
    const Printer printer;
    prtstream& stream = printer.stream();
    const std::vector<char> packet = Packet();
    const long before = PeakMemory();
    for (auto _ : state) {
        const int job = stream.StartJob("Stream");
        for (int64_t sent = 0; sent < kStreamed; sent += kPacket)
            stream.write(packet.data(), kPacket);
        stream.EndJob();
        if (job <= 0) state.SkipWithError("no job");
        printer.Delete(job);
    }
    state.SetBytesProcessed(state.iterations() * kStreamed);
    state.counters["grown_KB"] = static_cast<double>(PeakMemory() - before);
}
BENCHMARK(BM_StreamIntoAJob)->Unit(benchmark::kMillisecond)->MinTime(kStreaming);

// ---- Fonts --------------------------------------------------------------------------------------

constexpr int kPoints = 24;

DownloadedFont Font() {
    DownloadedFont font;
    font.type = DownloadedFont::BITMAP;
    font.point_size = kPoints * 10;
    std::memcpy(font.characters, FindCharMask(ALL_CHARACTERS).characters, sizeof font.characters);
    SetRecordText(font.info.file_name, "SANS.FNT");
    font.info.location[0] = 'E';
    PutFixedText(font.font.lfFaceName, "DejaVu Sans", LF_FACESIZE);
    return font;
}

// Draws every character twice, for the two rotations, and takes its bits.
void BM_DrawCharacters(benchmark::State& state) {
    LOGFONTW description = Font().font;
    description.lfHeight = -kPoints * 600 / 72;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HFONT font = CreateFontIndirectW(&description);
    SelectObject(dc, font);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc, &metrics);
    const HBITMAP bitmap = CreateBitmap(metrics.tmMaxCharWidth, metrics.tmHeight, 1, 1, nullptr);
    SelectObject(dc, bitmap);
    std::vector<char> bits(
        static_cast<size_t>((metrics.tmMaxCharWidth + 15) / 16 * 2 * metrics.tmHeight));
    for (auto _ : state)
        for (int i = 0; i < 2 * 224; ++i) {
            const auto character = static_cast<char>(32 + i % 224);
            TextOutA(dc, 0, 0, &character, 1);
            GetBitmapBits(bitmap, static_cast<LONG>(bits.size()), bits.data());
        }
    DeleteDC(dc);
    DeleteObject(bitmap);
    DeleteObject(font);
}
BENCHMARK(BM_DrawCharacters)->Unit(benchmark::kMillisecond);

void BM_DownloadBitmapFont(benchmark::State& state) {
    const Printer printer;
    DownloadedFont font = Font();
    for (auto _ : state) {
        const int job = printer.stream().StartJob("Font");
        if (!DownloadBitmapFont(font, printer.stream())) state.SkipWithError("nothing sent");
        printer.stream().EndJob();
        printer.Delete(job);
    }
    if (font.info.characters != 224) state.SkipWithError("not all characters");
    state.counters["bytes"] = font.info.data_size;
}
BENCHMARK(BM_DownloadBitmapFont)->Unit(benchmark::kMillisecond);

// ---- Answers ------------------------------------------------------------------------------------

// A printer's directory, in which every second file is listed twice.
std::string Directory(int64_t files) {
    std::string answer = "\x02\r\n- DIR *:*.*\r\n";
    for (int64_t i = 0; i < files; ++i) {
        char line[64];
        std::snprintf(line, sizeof line, "* %c:F%07d.GRF %6d   P  \r\n", i % 3 ? 'E' : 'R',
                      static_cast<int>(i - i % 3 / 2), static_cast<int>(i % 999999));
        answer += line;
    }
    return answer + "-  8348608 bytes free E:\r\n\x03\r\n";
}

void BM_CutDirectoryIntoNames(benchmark::State& state) {
    const std::string answer = Directory(state.range(0));
    for (auto _ : state) {
        std::unordered_set<std::string> names;
        std::string_view rest = answer;
        for (size_t end; (end = rest.find("\r\n")) != rest.npos; rest.remove_prefix(end + 2))
            if (end > 20) names.emplace(rest.substr(2, 14));
        benchmark::DoNotOptimize(names.size());
    }
}
BENCHMARK(BM_CutDirectoryIntoNames)->Unit(benchmark::kMicrosecond)->Arg(20)->Arg(200)->Arg(2000);

void BM_ReadDirectory(benchmark::State& state) {
    const std::string answer = Directory(state.range(0));
    for (auto _ : state) {
        OStringArray files;
        ReadFileList(answer.data(), static_cast<uint32_t>(answer.size()), files);
        if (files.GetSize() != state.range(0)) state.SkipWithError("not all files");
    }
}
BENCHMARK(BM_ReadDirectory)->Unit(benchmark::kMicrosecond)->Arg(20)->Arg(200)->Arg(2000);

} // namespace
