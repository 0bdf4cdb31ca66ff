// The database of soundings: entering one with its levels, and a file that has grown large.

#include "LevelsDB.h"
#include "MadeLevels.h"
#include "SndMetaData.h"
#include "SoundingDB.h"
#include "TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

struct Filled {
    explicit Filled(int soundings) : db((folder / "soundings.sqlite").string(), kFlags, soundingsSchema()) {
        for (const double pressure : {1000.0, 925.0, 850.0, 700.0, 500.0, 400.0, 300.0, 250.0, 200.0, 150.0, 100.0}) {
            made.add(LevelType::Standard, {{LFtime, 1.0},
                                           {LFpres, pressure},
                                           {LFtdry, -10.0},
                                           {LFrh, 50.0},
                                           {LFwspd, 12.0},
                                           {LFwdir, 90.0},
                                           {LFalt, 1000.0}});
        }
        SQLiteDB::Transaction whole(db);
        for (int i = 0; i < soundings; ++i) {
            enter();
        }
        whole.commit();
    }
    void enter() {
        const std::string name = "/data/campaign/flight/D2021" + std::to_string(++entered) + ".1";
        SQLiteDB::Transaction whole(db);
        db.addSounding(name, SndMetaData(), "OMBRA D");
        LevelsDB::addLevels(&made.levels, &db, name);
        whole.commit();
    }

    static constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    TemporaryFolder folder;
    SoundingDB db;
    MadeLevels made;
    int entered = 0;
};

void enterSounding(benchmark::State& state) {
    Filled filled(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        filled.enter();
    }
}

void listSoundings(benchmark::State& state) {
    Filled filled(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        double lat = 0.0;
        double lon = 0.0;
        for (const auto& sounding : filled.db.getSoundings()) {
            benchmark::DoNotOptimize(filled.db.getLocation(sounding.id, lat, lon));
        }
    }
}

} // namespace

BENCHMARK(enterSounding)->Arg(0)->Arg(50000)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(listSoundings)->Arg(10000)->Arg(50000)->UseRealTime()->Unit(benchmark::kMillisecond);
