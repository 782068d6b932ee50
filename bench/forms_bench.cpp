// Times of the weapon maker, the army list and the squad composer over long documents: from a key press or click to the
// result repainted. How to run it, and figures, are in README.md.

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <functional>
#include <string>

#include "composers/army_list.h"
#include "composers/squad_composer.h"
#include "controls/color_button.h"
#include "controls/list_box.h"
#include "controls/qt_application.h"
#include "controls/text_edit.h"
#include "core/state/global.h"
#include "equipment/army_tables.h"
#include "makers/weapon_maker.h"
#include "support/silent_platform.h"
#include "units/army_list.h"

namespace {

constexpr int kWeapons = 10000;
constexpr int kUnits = 5000;

void FillEquipment() {
    CEqList& list = MGlobal::ArmyTables().ArmyWeapons();
    if (list.Count() > 0) return;
    const std::string weaponClass = *MGlobal::SuppTables().WeaponClasses().Item(1);
    for (int i = 0; i < kWeapons; ++i) {
        auto item = std::make_shared<CEqItem>();
        item->NewItem(CEqItem::Weapon);
        item->SetName("Weapon number " + std::to_string(kWeapons + i));
        item->AsWeapon()->SetWeaponClass(weaponClass);
        item->AsWeapon()->SetPenMultiplier(1);
        item->AsWeapon()->SetBaseCost(4);
        list.Add(std::move(item));
    }
}

// Every fifth entry is a squad; the others are of the four types in turn.
void FillArmyList() {
    CUnitList& list = MGlobal::ArmyList().ArmyUnits();
    if (list.Count() > 0) return;
    for (int i = 0; i < kUnits; ++i) {
        auto entry = std::make_shared<CGenUnit>();
        entry->NewUnit(i % 5 == 4 ? CGenUnit::Squad : CGenUnit::Single);
        if (CUnit* unit = entry->AsUnit()) {
            unit->SetUnitType(i % 5);
            unit->InitUnit();
        }
        entry->SetName("Unit number " + std::to_string(kUnits + i));
        list.Add(std::move(entry));
    }
}

template <class TControl>
TControl& Get(CForm& form, const char* name) {
    return *static_cast<TControl*>(form.findChild<QWidget*>(QString::fromLatin1(name)));
}

/// Counts how often a widget has been painted.
class CPaintCounter : public QObject {
  public:
    explicit CPaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    int Paints = 0;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++Paints;
        return QObject::eventFilter(watched, event);
    }
};

void PressKey(QWidget& field, QChar key) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_unknown, Qt::NoModifier, QString(key));
        QApplication::sendEvent(&field, &event);
    }
}

void Click(QWidget& button) {
    const QPointF place = button.rect().center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, place, button.mapToGlobal(place), Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(&button, &event);
    }
}

/// Times `act`, each time until what the form shows is another text than before, painted, and nothing is left to be
/// done. The counter tells the worst.
void MeasureRepaint(benchmark::State& state, QWidget& painted, const std::function<std::string()>& shown,
                    const std::function<void(int round)>& act) {
    CPaintCounter paints(painted);
    QApplication::processEvents();
    double worst = 0;
    int round = 0;
    for (auto _ : state) {
        const std::string before = shown();
        const int paintsBefore = paints.Paints;
        QElapsedTimer clock;
        clock.start();
        act(round++);
        QApplication::processEvents();
        const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        if (shown() == before || paints.Paints == paintsBefore) {
            state.SkipWithError("nothing new was painted");
            break;
        }
        state.SetIterationTime(seconds);
        worst = std::max(worst, seconds);
    }
    state.counters["worst_ms"] = worst * 1e3;
}

template <class TForm>
void OpenTheForm(benchmark::State& state) {
    FillEquipment();
    FillArmyList();
    for (auto _ : state) {
        TForm form;
        form.ShowNonModal();
        QApplication::processEvents();
    }
}

void EditAWeapon(benchmark::State& state, const std::function<void(FWeaponMaker&, int round)>& edit) {
    FillEquipment();
    FWeaponMaker form;
    form.ShowNonModal();
    form.activateWindow();
    auto& cost = Get<QXTextEdit>(form, "tedPointCost");
    MeasureRepaint(
        state, cost, [&cost] { return cost.Text(); }, [&](int round) { edit(form, round); });
}

void KeyIntoTargetingBonus(benchmark::State& state) {
    EditAWeapon(state, [](FWeaponMaker& form, int round) {
        auto& bonus = Get<QXTextEdit>(form, "tedTargetingBonus");
        bonus.selectAll();
        PressKey(bonus, round % 2 == 0 ? u'7' : u'3');
    });
}

void ClickOfAttackType(benchmark::State& state) {
    EditAWeapon(state, [](FWeaponMaker& form, int round) {
        Click(Get<QXColorButton>(form, round % 2 == 0 ? "optAttackType(0)" : "optAttackType(4)"));
    });
}

// Not an edit, but what meets the whole list: to the next record and its display.
void StepOfTheWalk(benchmark::State& state) {
    FillEquipment();
    FWeaponMaker form;
    form.ShowNonModal();
    for (int i = 0; i < 3; ++i)
        Click(Get<QXColorButton>(form, "cmdPrev"));  // the last records, which take longest to be found
    int round = 0;
    for (auto _ : state) {
        Click(Get<QXColorButton>(form, round++ % 2 == 0 ? "cmdPrev" : "cmdNext"));
        QApplication::processEvents();
    }
}

/// From one filter, by its index, to another and back.
template <class TForm>
void ChangeTheFilter(benchmark::State& state, int first, int second) {
    FillArmyList();
    TForm form;
    form.ShowNonModal();
    auto& list = Get<CListBox>(form, "lstUnits");
    Click(Get<QXColorButton>(form, ("optFilter(" + std::to_string(second) + ")").c_str()));
    MeasureRepaint(
        state, *list.viewport(), [&list] { return std::to_string(list.ListCount()) + list.List(1); },
        [&](int round) {
            Click(Get<QXColorButton>(form,
                                     ("optFilter(" + std::to_string(round % 2 == 0 ? first : second) + ")").c_str()));
        });
}

void ArmyListFilter(benchmark::State& state) {
    ChangeTheFilter<FArmyList>(state, 0, 1);
}

void SquadComposerFilter(benchmark::State& state) {
    ChangeTheFilter<FSquadComposer>(state, 2, 1);
}

// A page of all entries at a time, from the top to the end and back again.
void ArmyListScroll(benchmark::State& state) {
    FillArmyList();
    FArmyList form;
    form.ShowNonModal();
    Click(Get<QXColorButton>(form, "optFilter(0)"));
    QScrollBar& bar = *Get<CListBox>(form, "lstUnits").verticalScrollBar();
    bool down = true;
    MeasureRepaint(
        state, *Get<CListBox>(form, "lstUnits").viewport(), [&bar] { return std::to_string(bar.value()); },
        [&](int /*round*/) {
            if (bar.value() == bar.maximum()) down = false;
            if (bar.value() == bar.minimum()) down = true;
            bar.triggerAction(down ? QScrollBar::SliderPageStepAdd : QScrollBar::SliderPageStepSub);
        });
}

BENCHMARK(KeyIntoTargetingBonus)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ClickOfAttackType)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(StepOfTheWalk)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenTheForm<FWeaponMaker>)->Unit(benchmark::kMillisecond);
BENCHMARK(ArmyListFilter)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ArmyListScroll)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SquadComposerFilter)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenTheForm<FArmyList>)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    CQtApplication application(argc, argv);
    CSilentPlatform platform(APPLICATION_FOLDER);
    MPlatform::Install(&platform);
    MGlobal::LoadWorkingFiles();
    MGlobal::SetSkinId(1);
    benchmark::RunSpecifiedBenchmarks();
    MGlobal::Reset();
}
