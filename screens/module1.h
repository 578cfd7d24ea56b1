// Module1: what lives as long as the program. The module variables, the
// text tables, the high-score arrays, the screens by name, and the ports
// through which the screens reach time, chance and sound. One object for the
// whole run, made after the QApplication and handed to every screen.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "engine/game_state.h"
#include "engine/ports.h"
#include "screens/kit/registry.h"
#include "text/messages.h"

namespace fendle {

struct TextTables;   // the language tables, filled by the title screen's load step

// Where the screens' timers, chance and sound come from. qt() is the running
// program's; tests put VirtualClock banks, a SeededRandom and a
// SoundRecorder in its place.
struct PortFactory {
    std::function<std::unique_ptr<TimerBank>()> makeTimers;   // one bank per form
    std::unique_ptr<Random> random;
    std::unique_ptr<Sound> sound;

    static PortFactory qt();
};

class Module1 {
public:
    explicit Module1(PortFactory ports = PortFactory::qt());
    ~Module1();
    Module1(const Module1&) = delete;
    Module1& operator=(const Module1&) = delete;

    // The module variables: nplayers, soundon, boardowner, connarray, the
    // language and its module texts, and the rest.
    ModuleState state;

    // texttable and rulestable; empty until the title screen has read them.
    std::shared_ptr<TextTables> tables;

    // One of the program's own messages in the current language, from
    // text\messages.csv, which is read at the first use; "%1" becomes `arg`.
    QString message(const Message& m, std::string_view arg = {});
    QString message(const Problem& p);
    // The table itself, for texts whose "%1" … are filled later.
    const MessageTable& messages();

    // The high-score table: rows 0 to 9 in use, row 10 never touched.
    std::array<std::string, 11> highnames{};
    std::array<i16, 11> highpoints{};
    i16 newhighrow = 0;   // 0: no name awaited; else the row awaiting one, plus 1
    // True while the table holds entries that highscores.txt could not take:
    // the arrays are then kept as they are, not read over from the file.
    bool highscoresAheadOfFile = false;

    // A language chosen on the language screen that numlang.txt could not
    // keep: it stands over what the file says until the program ends.
    std::optional<i16> unsavedLanguage;
    // The same for the marks on the counters and countermarks.txt.
    std::optional<i16> unsavedCountermarks;

    // Whether the user has been told that games.csv could not take a game:
    // once in a run is enough.
    bool toldGameNotRecorded = false;

    // Gives a screen the page size of 12000 x 9000 twips (800 x 600 pixels)
    // and centres it on its screen, with the hourglass up meanwhile.
    void fitform(Form& frm);
    // Plays a wave file ("wav\\click.wav") in the background. Does not look
    // at soundon: each caller does, where it calls.
    void playwave(std::string_view filename) { ports_.sound->playwave(filename); }

    // Ends the program at once: every screen goes, the event loop returns.
    void endProgram();

    std::unique_ptr<TimerBank> makeTimers() { return ports_.makeTimers(); }
    Random& random() { return *ports_.random; }
    Sound& sound() { return *ports_.sound; }

private:
    PortFactory ports_;
    std::unique_ptr<MessageTable> messages_;

public:
    // Last, so that the screens go before the ports they use. "Grey", the
    // backdrop, is defined from the start.
    ScreenRegistry screens{*this};
};

inline constexpr double pageWidthTwips = 12000;
inline constexpr double pageHeightTwips = 9000;

}  // namespace fendle
