// Text conversion between code pages and UTF-16, compared with iconv with a descriptor that stays
// open.
#include <windows.h>

#include <benchmark/benchmark.h>

#include <string>

#include <iconv.h>

namespace {

struct Sample {
    UINT code_page;
    const char* iconv_name;
    std::string bytes;
};

// About 4 KB of text: labels in German, product names in Japanese, and both in UTF-8.
Sample MakeSample(int64_t code_page) {
    std::string bytes;
    const char* name = "UTF-8";
    const char* piece = "Stra\xC3\x9F"
                        "e 12, \xE6\x97\xA5\xE6\x9C\xAC ";
    if (code_page == 1252) {
        name = "CP1252";
        piece = "Stra\xDF"
                "e 12, K\xF6ln; Gr\xF6\xDF"
                "e M ";
    } else if (code_page == 932) {
        name = "CP932";
        piece = "\x93\xFA\x96\x7B label 12 \xB1\xB2\xB3 ";
    }
    while (bytes.size() < 4096) bytes += piece;
    return {static_cast<UINT>(code_page), name, bytes};
}

void DecodeHost(benchmark::State& state) {
    const Sample sample = MakeSample(state.range(0));
    std::u16string out(sample.bytes.size(), u'\0');
    for (auto _ : state)
        benchmark::DoNotOptimize(MultiByteToWideChar(sample.code_page, 0, sample.bytes.data(),
                                                     static_cast<int>(sample.bytes.size()),
                                                     out.data(), static_cast<int>(out.size())));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(sample.bytes.size()));
}

void DecodeIconv(benchmark::State& state) {
    const Sample sample = MakeSample(state.range(0));
    std::u16string out(sample.bytes.size(), u'\0');
    const iconv_t descriptor = iconv_open("UTF-16LE", sample.iconv_name);
    for (auto _ : state) {
        char* from = const_cast<char*>(sample.bytes.data());
        char* to = reinterpret_cast<char*>(out.data());
        size_t left = sample.bytes.size(), room = out.size() * 2;
        benchmark::DoNotOptimize(iconv(descriptor, &from, &left, &to, &room));
    }
    iconv_close(descriptor);
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(sample.bytes.size()));
}

std::u16string Decoded(const Sample& sample) {
    std::u16string text(sample.bytes.size(), u'\0');
    const int units = MultiByteToWideChar(sample.code_page, 0, sample.bytes.data(),
                                          static_cast<int>(sample.bytes.size()), text.data(),
                                          static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(units));
    return text;
}

void EncodeHost(benchmark::State& state) {
    const Sample sample = MakeSample(state.range(0));
    const std::u16string text = Decoded(sample);
    std::string out(sample.bytes.size(), '\0');
    for (auto _ : state)
        benchmark::DoNotOptimize(
            WideCharToMultiByte(sample.code_page, 0, text.data(), static_cast<int>(text.size()),
                                out.data(), static_cast<int>(out.size()), nullptr, nullptr));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(sample.bytes.size()));
}

void EncodeIconv(benchmark::State& state) {
    const Sample sample = MakeSample(state.range(0));
    const std::u16string text = Decoded(sample);
    std::string out(sample.bytes.size(), '\0');
    const iconv_t descriptor = iconv_open(sample.iconv_name, "UTF-16LE");
    for (auto _ : state) {
        char* from = reinterpret_cast<char*>(const_cast<char16_t*>(text.data()));
        char* to = out.data();
        size_t left = text.size() * 2, room = out.size();
        benchmark::DoNotOptimize(iconv(descriptor, &from, &left, &to, &room));
    }
    iconv_close(descriptor);
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(sample.bytes.size()));
}

BENCHMARK(DecodeHost)->Arg(1252)->Arg(932)->Arg(65001);
BENCHMARK(DecodeIconv)->Arg(1252)->Arg(932)->Arg(65001);
BENCHMARK(EncodeHost)->Arg(1252)->Arg(932)->Arg(65001);
BENCHMARK(EncodeIconv)->Arg(1252)->Arg(932)->Arg(65001);

} // namespace
