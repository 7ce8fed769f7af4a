// Strings compared with the standard library's.
#include <benchmark/benchmark.h>

#include <string>

#include "core/ostring.h"

namespace {

using WideText = std::basic_string<WCHAR>;

// Builds a text of `range` characters piece by piece.
template <class Text, class Append>
void AppendPieces(benchmark::State& state, int piece, Append append) {
    const int count = static_cast<int>(state.range(0)) / piece;
    for (auto _ : state) {
        Text text;
        for (int i = 0; i < count; ++i) append(text);
        benchmark::DoNotOptimize(text);
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void BM_Append_Char(benchmark::State& state) {
    AppendPieces<OString>(state, 1, [](OString& text) { text << 'x'; });
}

void BM_Append_Char_std(benchmark::State& state) {
    AppendPieces<std::string>(state, 1, [](std::string& text) { text += 'x'; });
}

void BM_Append_WChar(benchmark::State& state) {
    AppendPieces<OString>(state, 1, [](OString& text) { text << WCHAR{'x'}; });
}

void BM_Append_WChar_std(benchmark::State& state) {
    AppendPieces<WideText>(state, 1, [](WideText& text) { text += WCHAR{'x'}; });
}

void BM_Append_String(benchmark::State& state) {
    const OString piece("piece ");
    AppendPieces<OString>(state, 6, [&piece](OString& text) { text << piece; });
}

void BM_Append_String_std(benchmark::State& state) {
    const std::string piece("piece ");
    AppendPieces<std::string>(state, 6, [&piece](std::string& text) { text += piece; });
}

void BM_Append_Literal(benchmark::State& state) {
    AppendPieces<OString>(state, 6, [](OString& text) { text << "piece "; });
}

void BM_Append_Literal_std(benchmark::State& state) {
    AppendPieces<std::string>(state, 6, [](std::string& text) { text += "piece "; });
}

OString Sample(uint32_t code_page, int64_t length) {
    OString text;
    text.SetCodePage(code_page);
    for (int64_t i = 0; i < length; ++i) text << (i % 8 ? WCHAR{'x'} : WCHAR{0xE9});
    return text;
}

void BM_To_8Bit(benchmark::State& state) {
    const OString source = Sample(static_cast<uint32_t>(state.range(1)), state.range(0));
    for (auto _ : state) {
        OString text;
        text.SetCodePage(source.GetCodePage());
        text = source.wstring();
        benchmark::DoNotOptimize(text.nstring());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_To_UTF16(benchmark::State& state) {
    const OString source = Sample(static_cast<uint32_t>(state.range(1)), state.range(0));
    for (auto _ : state) {
        OString text;
        text.SetCodePage(source.GetCodePage());
        text = source.nstring();
        benchmark::DoNotOptimize(text.wstring());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The minimum cost of a conversion: assigning the same text.
void BM_Assign_std(benchmark::State& state) {
    const WideText source(Sample(1252, state.range(0)).wstring());
    for (auto _ : state) {
        WideText text(source.c_str());
        benchmark::DoNotOptimize(text);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(BM_Append_Char)->Arg(100)->Arg(10000);
BENCHMARK(BM_Append_Char_std)->Arg(100)->Arg(10000);
BENCHMARK(BM_Append_WChar)->Arg(100)->Arg(10000);
BENCHMARK(BM_Append_WChar_std)->Arg(100)->Arg(10000);
BENCHMARK(BM_Append_String)->Arg(10000);
BENCHMARK(BM_Append_String_std)->Arg(10000);
BENCHMARK(BM_Append_Literal)->Arg(10000);
BENCHMARK(BM_Append_Literal_std)->Arg(10000);
BENCHMARK(BM_To_8Bit)->Args({1000, 1252})->Args({1000, 1208});
BENCHMARK(BM_To_UTF16)->Args({1000, 1252})->Args({1000, 1208});
BENCHMARK(BM_Assign_std)->Arg(1000);

} // namespace
