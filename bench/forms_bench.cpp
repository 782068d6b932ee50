// Times of the maker's window over a long document: from a key press or click to the cost repainted. How to run it, and
// figures, are in README.md.

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <functional>
#include <string>

#include "controls/color_button.h"
#include "controls/qt_application.h"
#include "controls/text_edit.h"
#include "core/state/global.h"
#include "equipment/army_tables.h"
#include "makers/weapon_maker.h"
#include "support/silent_platform.h"

namespace {

constexpr int kWeapons = 10000;

void FillDocument() {
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

/// Opens the maker on the document and times `edit`, each time until the cost, another one then, is painted and nothing
/// is left to be done. The counter tells the worst.
void Measure(benchmark::State& state, const std::function<void(FWeaponMaker&, int round)>& edit) {
    FillDocument();
    FWeaponMaker form;
    form.ShowNonModal();
    form.activateWindow();
    auto& cost = Get<QXTextEdit>(form, "tedPointCost");
    CPaintCounter painted(cost);
    QApplication::processEvents();
    double worst = 0;
    int round = 0;
    for (auto _ : state) {
        const std::string before = cost.Text();
        const int paints = painted.Paints;
        QElapsedTimer clock;
        clock.start();
        edit(form, round++);
        QApplication::processEvents();
        const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        if (cost.Text() == before || painted.Paints == paints) {
            state.SkipWithError("the cost was not repainted");
            break;
        }
        state.SetIterationTime(seconds);
        worst = std::max(worst, seconds);
    }
    state.counters["worst_ms"] = worst * 1e3;
}

void KeyIntoTargetingBonus(benchmark::State& state) {
    Measure(state, [](FWeaponMaker& form, int round) {
        auto& bonus = Get<QXTextEdit>(form, "tedTargetingBonus");
        bonus.selectAll();
        PressKey(bonus, round % 2 == 0 ? u'7' : u'3');
    });
}

void ClickOfAttackType(benchmark::State& state) {
    Measure(state, [](FWeaponMaker& form, int round) {
        Click(Get<QXColorButton>(form, round % 2 == 0 ? "optAttackType(0)" : "optAttackType(4)"));
    });
}

// Not an edit, but what meets the whole list: to the next record and its display.
void StepOfTheWalk(benchmark::State& state) {
    FillDocument();
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

void OpenTheForm(benchmark::State& state) {
    FillDocument();
    for (auto _ : state) {
        FWeaponMaker form;
        form.ShowNonModal();
        QApplication::processEvents();
    }
}

BENCHMARK(KeyIntoTargetingBonus)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ClickOfAttackType)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(StepOfTheWalk)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenTheForm)->Unit(benchmark::kMillisecond);

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
