// Times of the documents beside two yardsticks on the same bytes: what QSettings takes to read the file, and what one
// write with fsync takes. How to run it, and figures, are in README.md.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <QSettings>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "core/state/merge.h"
#include "equipment/army_tables.h"
#include "roster/roster2.h"
#include "support/silent_platform.h"
#include "units/army_list.h"
#include "units/mult_unit.h"
#include "units/unit.h"

namespace fs = std::filesystem;

namespace {

const std::string kFolder = (fs::temp_directory_path() / "vdtools2-bench").string();
const std::string kListFile = kFolder + "/list.v2l";

class CNoBrowser : public IBrowser {
  public:
    void Navigate(const std::string&) override {}
    void Refresh() override {}
    void Print() override {}
};

std::shared_ptr<CGenUnit> NewUnit(const std::string& name) {
    auto unit = std::make_shared<CGenUnit>();
    unit->NewUnit(CGenUnit::Single);
    unit->SetName(name);
    unit->SetDescr("One of the many who answer the bell of the keep.");
    unit->AsUnit()->SetStatValue(CUnit::SS, 4);
    for (int i = 0; i < 3; ++i) {
        auto item = std::make_shared<CEqItem>();
        item->NewItem(i == 2 ? CEqItem::Accessory : CEqItem::Weapon);
        item->SetName("Equipment " + std::to_string(i));
        item->SetDescr("Heavy, loud and seldom clean.");
        if (CWeapon* weapon = item->AsWeapon()) {
            weapon->SetWeaponClass("Rifle");
            weapon->SetPenMultiplier(1.5F);
            weapon->SetBaseCost(7.5);
        } else {
            item->AsAccessory()->SetPointCost(2.25);
        }
        unit->AsUnit()->AddItem(std::move(item));
    }
    return unit;
}

std::vector<std::string> ShuffledNames(std::int64_t count) {
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < count; ++i)
        names.push_back("Unit number " + std::to_string(i));
    std::shuffle(names.begin(), names.end(), std::mt19937(1));
    return names;
}

void Fill(CArmyList& list, std::int64_t count) {
    list.SetName("A long list");
    std::vector<std::string> names = ShuffledNames(count);
    std::sort(names.begin(), names.end());  // as a file holds them
    for (const std::string& name : names)
        list.ArmyUnits().Add(NewUnit(name));
}

std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteList(std::int64_t count) {
    CArmyList list;
    Fill(list, count);
    list.WriteInfo(kListFile);
}

void RawWrite(const std::string& path, const std::string& bytes) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    benchmark::DoNotOptimize(::write(file, bytes.data(), bytes.size()));
    ::fsync(file);
    ::close(file);
}

void LoadList(benchmark::State& state) {
    WriteList(state.range(0));
    for (auto _ : state) {
        CArmyList list;
        if (!list.ReadInfo(kListFile) || list.ArmyUnits().Count() != state.range(0)) state.SkipWithError("not loaded");
    }
    state.counters["MB"] = static_cast<double>(fs::file_size(kListFile)) / 1e6;
}

void LoadByQSettings(benchmark::State& state) {
    WriteList(state.range(0));
    for (auto _ : state) {
        const QSettings settings(QString::fromStdString(kListFile), QSettings::IniFormat);
        qsizetype length = 0;
        for (const QString& key : settings.allKeys())
            length += settings.value(key).toString().size();
        benchmark::DoNotOptimize(length);
    }
}

void SaveList(benchmark::State& state) {
    CArmyList list;
    Fill(list, state.range(0));
    for (auto _ : state) {
        if (!list.WriteInfo(kListFile)) state.SkipWithError("not saved");
    }
}

void SaveRaw(benchmark::State& state) {
    WriteList(state.range(0));
    const std::string bytes = Bytes(kListFile);
    for (auto _ : state)
        RawWrite(kFolder + "/raw", bytes);
}

void PageOfList(benchmark::State& state) {
    CArmyList list;
    Fill(list, state.range(0));
    CNoBrowser browser;
    URoster2 roster(browser);
    for (auto _ : state)
        roster.ShowArmyList(list);
    state.counters["MB"] = static_cast<double>(fs::file_size(roster.DefaultPagePath())) / 1e6;
}

void PageRaw(benchmark::State& state) {
    CArmyList list;
    Fill(list, state.range(0));
    CNoBrowser browser;
    URoster2 roster(browser);
    roster.ShowArmyList(list);
    const std::string bytes = Bytes(roster.DefaultPagePath());
    for (auto _ : state)
        RawWrite(kFolder + "/raw", bytes);
}

void PriceUnits(benchmark::State& state) {
    CArmyList list;
    Fill(list, state.range(0));
    for (auto _ : state) {
        for (CGenUnit& unit : list.ArmyUnits())
            unit.CalculatePointCost();
    }
}

void AddInRandomOrder(benchmark::State& state) {
    std::vector<std::shared_ptr<CGenUnit>> units;
    for (const std::string& name : ShuffledNames(state.range(0)))
        units.push_back(NewUnit(name));
    for (auto _ : state) {
        CArmyList list;
        for (const auto& unit : units)
            list.ArmyUnits().Add(unit);
    }
}

void FindByKey(benchmark::State& state) {
    CArmyList list;
    Fill(list, state.range(0));
    const std::vector<std::string> names = ShuffledNames(state.range(0));
    for (auto _ : state) {
        for (const std::string& name : names)
            benchmark::DoNotOptimize(list.ArmyUnits().Exists(name));
    }
}

// Two documents without a common name, whose elements alternate: `which` is 0 for one, 1 for the other.
void FillHalf(CArmyList& list, std::int64_t count, int which) {
    for (std::int64_t i = 0; i < count; ++i)
        list.ArmyUnits().Add(NewUnit("Unit number " + std::to_string(2 * i + which)));
}

void FillHalf(CArmyTables& tables, std::int64_t count, int which) {
    for (std::int64_t i = 0; i < count; ++i) {
        auto item = std::make_shared<CEqItem>();
        item->NewItem(CEqItem::Weapon);
        item->SetName("Weapon number " + std::to_string(2 * i + which));
        item->AsWeapon()->SetWeaponClass("Rifle");
        tables.ArmyWeapons().Add(item);
    }
}

template <class TDocument>
void LoadSecond(benchmark::State& state) {
    TDocument written;
    FillHalf(written, state.range(0), 1);
    written.WriteInfo(kListFile);
    for (auto _ : state) {
        TDocument second;
        if (!second.ReadInfo(kListFile)) state.SkipWithError("not loaded");
    }
}

template <class TDocument>
void MergeSecond(benchmark::State& state) {
    TDocument second;
    FillHalf(second, state.range(0), 1);
    for (auto _ : state) {
        state.PauseTiming();
        auto first = std::make_unique<TDocument>();
        FillHalf(*first, state.range(0), 0);
        state.ResumeTiming();
        MMerge::Merge(*first, second);
        state.PauseTiming();
        first.reset();
        state.ResumeTiming();
    }
}

template <class TBenchmark>
void RegisterMerge(const char* name, TBenchmark run) {
    benchmark::RegisterBenchmark(name, run)->Arg(5000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

template <class TBenchmark>
void Register(const char* name, TBenchmark run) {
    benchmark::RegisterBenchmark(name, run)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

}  // namespace

int main(int argc, char** argv) {
    fs::create_directories(kFolder);
    CSilentPlatform platform(kFolder);
    MPlatform::Install(&platform);
    Register("load/list", LoadList);
    Register("load/QSettings", LoadByQSettings);
    Register("save/list", SaveList);
    Register("save/raw", SaveRaw);
    Register("page/list", PageOfList);
    Register("page/raw", PageRaw);
    Register("price", PriceUnits);
    Register("add", AddInRandomOrder);
    Register("find", FindByKey);
    RegisterMerge("merge/load second list", LoadSecond<CArmyList>);
    RegisterMerge("merge/list", MergeSecond<CArmyList>);
    RegisterMerge("merge/load second tables", LoadSecond<CArmyTables>);
    RegisterMerge("merge/tables", MergeSecond<CArmyTables>);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    fs::remove_all(kFolder);
}
