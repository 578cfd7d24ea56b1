// The monkey at the windows: a seeded run of random clicks, keys, closes and
// clock advances over the real screens, checked after every event. The seed
// comes from FENDLE_MONKEY_SEED, else from the time of day, and is printed
// first; FENDLE_MONKEY_EVENTS sets the number of events (20000), and
// FENDLE_MONKEY_HANG_SECONDS how long one event may take (10);
// FENDLE_MONKEY_TRACE=1 prints every event as it runs.
#include <QApplication>
#include <QtTest>

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "event_log.h"
#include "monkey.h"
#include "screens/form.h"

using namespace fendle;

namespace {

std::uint64_t fromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* v = std::getenv(name);
    if (!v || !*v) return otherwise;
    return std::strtoull(v, nullptr, 10);
}

}  // namespace

class TestMonkey : public QObject {
    Q_OBJECT

private slots:
    void playsAtTheWindows() {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        const std::uint64_t seed =
            fromEnvironment("FENDLE_MONKEY_SEED", std::uint64_t(std::chrono::duration_cast<std::chrono::microseconds>(now).count()) % 1000000000);
        const auto events = std::int64_t(fromEnvironment("FENDLE_MONKEY_EVENTS", 20000));
        const int hang = int(fromEnvironment("FENDLE_MONKEY_HANG_SECONDS", 10));
        std::fprintf(stderr, "monkey: seed %llu, %lld events (FENDLE_MONKEY_SEED=%llu to replay)\n",
                     static_cast<unsigned long long>(seed), static_cast<long long>(events),
                     static_cast<unsigned long long>(seed));

        monkey::EventLog log(seed, events);
        log.setTrace(fromEnvironment("FENDLE_MONKEY_TRACE", 0) != 0);
        log.startWatchdog(hang);
        QElapsedTimer took;
        took.start();
        QString broke;
        {
            monkey::Monkey m(QStringLiteral(FENDLE_GAME_DIR), seed, log);
            broke = m.run(events);
            if (broke.isEmpty()) {
                broke = m.finish();
                if (!broke.isEmpty()) log.print(broke.toStdString());
            }
            const monkey::Tally& t = m.tally();
            QString kinds, opened, languages;
            for (const auto& [k, n] : t.events) kinds += QString(" %1 %2").arg(QString::fromStdString(k)).arg(n);
            for (const auto& [k, n] : t.opened) opened += QString(" %1 %2").arg(QString::fromStdString(k)).arg(n);
            for (int l : t.languages) languages += QString(" %1").arg(l);
            std::fprintf(stderr,
                         "monkey: %lld events in %.1f s (%s ), %.0f s of game time, %lld sessions; the slowest event, "
                         "#%lld, took %lld ms\n"
                         "monkey: screens opened:%s\n"
                         "monkey: %lld games ended, %lld saved games written, %lld restored, %lld high-score tables "
                         "written; languages:%s\n"
                         "monkey: %lld warnings from Qt%s%s\n",
                         static_cast<long long>(events), double(took.elapsed()) / 1000, qPrintable(kinds),
                         double(t.virtualMs) / 1000, static_cast<long long>(t.sessions),
                         static_cast<long long>(t.slowestEvent), static_cast<long long>(t.slowestMs), qPrintable(opened),
                         static_cast<long long>(t.gamesEnded), static_cast<long long>(t.gamesSaved),
                         static_cast<long long>(t.restores), static_cast<long long>(t.highScoresWritten),
                         qPrintable(languages), static_cast<long long>(t.warningCount),
                         t.warnings.isEmpty() ? "" : ": ", qPrintable(t.warnings.join(" | ")));
        }
        QVERIFY2(broke.isEmpty(), qPrintable(broke));
        // A clean end: no window of the program is left.
        for (QWidget* w : QApplication::topLevelWidgets()) QVERIFY2(!qobject_cast<Form*>(w), "a screen outlived the run");
    }
};

QTEST_MAIN(TestMonkey)
#include "tst_monkey.moc"
