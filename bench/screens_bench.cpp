// The windows' speed and footprint, with the real Qt ports, in the game
// folder. Run it under a display to measure what a player sees:
//   xvfb-run -a -s "-screen 0 1024x768x24" build/bench/screens_bench
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QScrollBar>
#include <QTimer>
#include <QWindow>

#include <sys/resource.h>

#include <fstream>
#include <string>

#include "screens/cheatchart.h"
#include "screens/fen1_form.h"
#include "screens/game_screens.h"
#include "screens/kit/native.h"
#include "screens/kit/painted.h"
#include "screens/kit/text.h"
#include "screens/languages_form.h"
#include "screens/module1.h"
#include "screens/rulepages.h"

namespace fendle {
namespace {

long residentKilobytes() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
    return 0;
}

double cpuSeconds() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) + double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

void runEventsFor(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

Fen1Form* openBoard(Module1& module, int nplayers) {
    module.state.nplayers = static_cast<i16>(nplayers);
    auto* f = module.screens.get<Fen1Form>(Fen1Form::formName);
    f->game().showPlayers(nplayers);
    f->sync();
    module.screens.show(Fen1Form::formName);
    return f;
}

// The program from its start to the title screen painted, as a player
// starting it sees it.
void BM_StartToTitleShown(benchmark::State& state) {
    for (auto _ : state) {
        QProcess fendle;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("FENDLE_EXIT_WHEN_SHOWN", "1");
        fendle.setProcessEnvironment(env);
        fendle.start(QStringLiteral(FENDLE_GAME_DIR "/fendle"), {});
        if (!fendle.waitForFinished(10000) || fendle.exitCode() != 0) state.SkipWithError("fendle did not show its title");
    }
}
BENCHMARK(BM_StartToTitleShown)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(10);

// The board window's load: 100 number labels, 100 counters, the board and
// the legend's pictures, shown and painted once.
void BM_Fen1Load(benchmark::State& state) {
    Module1 module;
    module.screens.define<Fen1Form>(Fen1Form::formName);
    for (auto _ : state) {
        Fen1Form* f = openBoard(module, 4);
        f->repaint();
        state.PauseTiming();
        module.screens.unload(Fen1Form::formName);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Fen1Load)->Unit(benchmark::kMillisecond)->UseRealTime();

// Runs events until the window is on the screen, so that a paint is a real one.
void waitUntilExposed(QWidget* w) {
    QElapsedTimer waited;
    waited.start();
    while (!(w->windowHandle() && w->windowHandle()->isExposed()) && waited.elapsed() < 2000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

// The Cheat Chart's opening as a player sees it: its 291 cells made from
// their rows' first elements, the window mapped and painted once.
void BM_CheatchartOpen(benchmark::State& state) {
    Module1 module;
    module.screens.define<Cheatchart>(Cheatchart::formName);
    for (auto _ : state) {
        module.screens.show(Cheatchart::formName);
        Form* chart = module.screens.form(Cheatchart::formName);
        waitUntilExposed(chart);
        chart->repaint();
        state.PauseTiming();
        module.screens.unload(Cheatchart::formName);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_CheatchartOpen)->Unit(benchmark::kMillisecond)->UseRealTime();

// One step of the chart's bar: the panel and the fixed column moved and the
// window painted again.
void BM_CheatchartStep(benchmark::State& state) {
    Module1 module;
    module.screens.define<Cheatchart>(Cheatchart::formName);
    module.screens.show(Cheatchart::formName);
    Form* chart = module.screens.form(Cheatchart::formName);
    waitUntilExposed(chart);
    kit::HScrollBar* bar = chart->get<kit::HScrollBar>("HScroll1");
    int v = 0;
    for (auto _ : state) {
        v = v == 100 ? 0 : v + 1;
        bar->bar()->setValue(v);
        chart->repaint();
    }
}
BENCHMARK(BM_CheatchartStep)->Unit(benchmark::kMillisecond)->UseRealTime();

// A board waiting for a click: CPU used per second of waiting, and the
// resident memory of the process with a game on the screen.
void BM_WaitingForAClick(benchmark::State& state) {
    Module1 module;
    module.screens.define<Fen1Form>(Fen1Form::formName);
    Fen1Form* f = openBoard(module, 2);
    runEventsFor(500);
    // A few moves, so that counters and their pictures are loaded.
    for (int n : {10, 20, 30, 40}) {
        f->game().search.allowed[static_cast<std::size_t>(n)] = 1.0;
        f->model().Label4[0].enabled = true;
        f->game().Label1_Click(static_cast<i16>(n));
        f->sync();
        runEventsFor(2100);
    }
    double cpu = 0;
    for (auto _ : state) {
        const double before = cpuSeconds();
        runEventsFor(2000);
        cpu += cpuSeconds() - before;
    }
    state.counters["cpu_percent"] = 100.0 * cpu / (2.0 * double(state.iterations()));
    state.counters["resident_MB"] = double(residentKilobytes()) / 1024.0;
}
BENCHMARK(BM_WaitingForAClick)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

// The language screen: its load (the names read, the column placed) shown
// and painted once, and a click on an option, which renames the fourteen
// options, the notice and OK and repaints the screen.
void BM_LanguagesLoad(benchmark::State& state) {
    Module1 module;
    defineGameScreens(module);
    module.screens.form("Titlefrm");   // reads the tables
    for (auto _ : state) {
        module.screens.show(Languages::formName);
        module.screens.form(Languages::formName)->repaint();
        state.PauseTiming();
        module.screens.unload(Languages::formName);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_LanguagesLoad)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_LanguageClick(benchmark::State& state) {
    Module1 module;
    defineGameScreens(module);
    module.screens.form("Titlefrm");
    module.screens.show(Languages::formName);
    auto* f = module.screens.get<Languages>(Languages::formName);
    int i = 0;
    for (auto _ : state) {
        i = (i + 1) % Languages::shownOptions;
        f->get<kit::OptionButton>("Option1", i)->setValue(true);
        f->repaint();
    }
}
BENCHMARK(BM_LanguageClick)->Unit(benchmark::kMicrosecond)->UseRealTime();

// A roll of the dice with the real timers, from the click until the fourth
// die has stopped and the spin has ended, without sound (the shorter roll,
// spinning from 100 ms on): CPU used per second of the roll. Argument 0 is
// the board's Throw Dice, 1 the one on page 2 of the rules.
void BM_DiceRoll(benchmark::State& state) {
    Module1 module;
    module.screens.define<Fen1Form>(Fen1Form::formName);
    defineRulePages(module.screens);
    module.state.soundon = 0;
    Form* f = nullptr;
    if (state.range(0) == 0) {
        f = openBoard(module, 2);
    } else {
        module.screens.show("Fendlerules2");
        f = module.screens.form("Fendlerules2");
    }
    runEventsFor(300);
    const char* button = state.range(0) == 0 ? "Label3" : "Label2";
    const int index = state.range(0) == 0 ? 2 : -1;
    double cpu = 0, wall = 0;
    for (auto _ : state) {
        if (state.range(0) == 0) {   // the board throws again once the move has been shown
            auto* board = static_cast<Fen1Form*>(f);
            board->model().Label3[2].enabled = true;
            board->sync();
        }
        QElapsedTimer clock;
        clock.start();
        const double before = cpuSeconds();
        static_cast<kit::Button*>(f->control(button, index))->click();
        runEventsFor(1100);
        cpu += cpuSeconds() - before;
        wall += double(clock.elapsed()) / 1000.0;
    }
    state.counters["cpu_percent"] = 100.0 * cpu / wall;
    state.counters["spin_interval_ms"] = f->timers().interval(8);
}
BENCHMARK(BM_DiceRoll)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

// One paint of the board's turn line, plain (0) and outlined (1).
void BM_PaintTurnLine(benchmark::State& state) {
    kit::LabelFace face;
    face.text = QStringLiteral("Blue to Play");
    face.font = kit::makeFont(kit::Face::Arial, 27.75, true);
    face.fore = kit::toQColor(colour::blueText);
    face.transparent = true;
    face.wrap = false;
    face.align = kit::Align::Centre;
    face.outline = state.range(0) != 0;
    QImage img(212, 44, QImage::Format_RGB32);
    for (auto _ : state) {
        img.fill(kit::toQColor(colour::boardBlue));
        QPainter p(&img);
        face.paint(p, img.rect(), true);
    }
}
BENCHMARK(BM_PaintTurnLine)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace fendle

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QDir::setCurrent(FENDLE_GAME_DIR);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
