// A monkey at the windows: plays the real screens of the game on the virtual
// clock with random clicks on the controls of the window in front, random
// keys, the title bar's close and advances of the clock, and checks after
// every event what must always hold. When the program ends (its Exit), the
// monkey starts it again in the same process and the same folder, so that
// the saved game, the high scores and the language carry over.
#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "engine/virtual_timers.h"
#include "event_log.h"

namespace fendle {
class Form;
class Module1;
class SoundRecorder;
}  // namespace fendle

namespace fendle::monkey {

class Stacking;

// What a run went through, for the report at its end.
struct Tally {
    std::map<std::string, std::int64_t> events;    // by kind
    std::map<std::string, std::int64_t> opened;    // screens loaded, by name
    std::int64_t sessions = 0;
    std::int64_t gamesEnded = 0;
    std::int64_t restores = 0;
    std::int64_t highScoresWritten = 0;
    std::int64_t gamesSaved = 0;
    std::int64_t virtualMs = 0;
    std::int64_t slowestMs = 0;       // the longest event, real time
    std::int64_t slowestEvent = 0;
    std::set<int> languages;
    QStringList warnings;   // Qt's warnings, the first few
    std::int64_t warningCount = 0;
};

class Monkey {
public:
    // Copies the game folder `gameDir` into a folder of its own and works
    // there; `seed` decides every choice it makes and every die.
    Monkey(const QString& gameDir, std::uint64_t seed, EventLog& log);
    ~Monkey();
    Monkey(const Monkey&) = delete;
    Monkey& operator=(const Monkey&) = delete;

    // Runs `events` events. Empty when all went well; else what broke (the
    // log has been printed).
    QString run(std::int64_t events);
    // Unloads every screen and ends the last session; empty when nothing of
    // the program is left behind.
    QString finish();

    const Tally& tally() const { return tally_; }

private:
    // Sessions: one run of the program from its title screen to its Exit.
    void startSession();
    QString endSession();
    bool programRunning() const;

    // Events.
    void click();
    void key();
    void closeFront();
    void wheel();
    void advance();
    void typeInto(Form* window);

    // Windows.
    Form* front() const;
    Form* keyWindow() const;
    std::vector<Form*> shown() const;
    Form* windowAt(const QPoint& global) const;

    // Invariants; each returns what broke, or empty.
    QString checkAfterEvent();
    QString checkWaysOut();
    QString checkScores();
    QString checkFiles();
    QString checkSounds();
    QString checkForms();
    void count();

    int below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
    double chance() { return std::uniform_real_distribution<double>(0, 1)(rng_); }

    EventLog& log_;
    std::uint64_t seed_;
    std::mt19937_64 rng_;
    QTemporaryDir folder_;
    QString previousDir_;
    VirtualClock clock_;
    std::unique_ptr<Stacking> stacking_;
    std::unique_ptr<Module1> module_;
    SoundRecorder* sound_ = nullptr;
    std::size_t soundsChecked_ = 0;
    std::set<std::string> soundsFound_;
    QStringList told_;   // messages the program would have shown in a box

    // The close of the last event, to be checked after it.
    struct Closing {
        QPointer<Form> window;
        std::string name;
        bool mayStay = false;
    };
    std::optional<Closing> closing_;

    std::string lastgameBytes_, highscoresBytes_;
    QPointer<Form> countedBoard_;
    Tally tally_;
};

}  // namespace fendle::monkey
