#include "RegistryXML.h"
#include "ShippedConfiguration.h"
#include "TarvoConfigSet.h"

#include <benchmark/benchmark.h>

namespace {

/// What every opened sounding pays: its own store over the file, and its own set over the store. The goal is 30 ms.
void openConfiguration(benchmark::State& state) {
    for (auto _ : state) {
        RegistryXML store(TARVO_SOURCE_DIR "/resources/tarvo.xml", "");
        const TarvoConfigSet set(&store);
        if (store.status() != RegistryXML::LOADED) {
            state.SkipWithError("the shipped configuration cannot be loaded");
            break;
        }
        benchmark::DoNotOptimize(set.exists("WindQCWL"));
    }
}
BENCHMARK(openConfiguration)->Unit(benchmark::kMillisecond);

void openWhileAnotherIsOpen(benchmark::State& state) {
    const RegistryXML other(TARVO_SOURCE_DIR "/resources/tarvo.xml", "");
    openConfiguration(state);
}
BENCHMARK(openWhileAnotherIsOpen)->Unit(benchmark::kMillisecond);

void saveNothing(benchmark::State& state) {
    const auto store = RegistryXML::fromText(shippedConfiguration(), "");
    TarvoConfigSet set(store.get());
    for (auto _ : state) {
        set.save(false);
    }
}
BENCHMARK(saveNothing)->Unit(benchmark::kMicrosecond);

} // namespace
