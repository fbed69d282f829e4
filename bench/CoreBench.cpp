// The costs every widget pays many times over: sharing and building strings, copying counted
// pointers (alone and with two threads on one count) and converting text to and from UTF-8.

#include "qor/LightweightString.h"
#include "qor/Ptr.h"
#include "qor/UTF8.h"

#include <benchmark/benchmark.h>

namespace {

class Payload : public iObject {};

// 64 characters in six scripts plus symbols outside the basic plane, 115 bytes of UTF-8.
char const* const mixedScriptText = "Panelkit ünïcödé — Ελληνικά, Русский, 日本語のテキスト, "
                                    "한국어 ✓🙂🚀 ok, done";

void BM_Core_StringCopy(benchmark::State& state) {
    LightweightString<wchar_t> const source(L"A caption long enough to live in a body of its own");
    for (auto _ : state) {
        LightweightString<wchar_t> copy = source;
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(BM_Core_StringCopy);

void BM_Core_StringAppend(benchmark::State& state) {
    constexpr int pieces = 64;
    for (auto _ : state) {
        LightweightString<wchar_t> text;
        for (int i = 0; i < pieces; ++i)
            text.append(L"piece, ");
        benchmark::DoNotOptimize(text.c_str());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * pieces);
}
BENCHMARK(BM_Core_StringAppend);

Qor::Ptr<iObject> const& sharedObject() {
    static Qor::Ptr<iObject> const object = Qor::makePtr<Payload>();
    return object;
}

// Each copy adds and releases one owner through OS()->refCounts(); with several threads they all
// contend for the same count.
void BM_Core_PtrCopy(benchmark::State& state) {
    Qor::Ptr<iObject> const& source = sharedObject();
    for (auto _ : state) {
        Qor::Ptr<iObject> copy = source;
        benchmark::DoNotOptimize(copy);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_Core_PtrCopy);
BENCHMARK(BM_Core_PtrCopy)->Name("BM_Core_PtrCopyThreaded")->Threads(2);

void BM_Core_UTF8RoundTrip(benchmark::State& state) {
    LightweightString<char> const source(mixedScriptText);
    if (fromUTF8(source).size() != 64 || toUTF8(fromUTF8(source)) != source) {
        state.SkipWithError("the sample text does not survive a round trip");
        return;
    }
    for (auto _ : state) {
        LightweightString<char> back = toUTF8(fromUTF8(source));
        benchmark::DoNotOptimize(back.c_str());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * source.size());
}
BENCHMARK(BM_Core_UTF8RoundTrip);

} // namespace
