// A run of the program for widget tests: the screens of the game in a copy
// of the game folder, on virtual time, scripted dice and a sound recorder,
// with the messages the program would show collected instead.
#pragma once

#include <QCheckBox>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest>
#include <QtTest/qtestspontaneevent.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "screens/fen1_form.h"
#include "engine/geometry.h"
#include "engine/seeded_random.h"
#include "engine/virtual_timers.h"
#include "screens/game_screens.h"
#include "screens/kit/native.h"
#include "screens/kit/painted.h"
#include "screens/module1.h"
#include "screens/qt_ports.h"
#include "text/listinput.h"

namespace fendle::testing {

// Copies the files of the folder `from` into `to`, less those named in `leave`.
inline bool copyFolder(const QString& from, const QString& to, const QStringList& leave = {}) {
    bool copied = true;
    for (QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString name = QDir(from).relativeFilePath(it.next());
        if (leave.contains(name)) continue;
        QDir(to).mkpath(QFileInfo(name).path());
        copied = QFile::copy(it.filePath(), to + '/' + name) && copied;
    }
    return copied;
}

// A copy of the game folder the build made, less the program and any file a
// run has written there; the current folder while it lives.
struct GameFolder {
    GameFolder() {
        copyFolder(QStringLiteral(FENDLE_GAME_DIR), folder.path(), {"fendle", "lastgame.inf", "highscores.txt", "numlang.txt", "countermarks.txt", "games.csv"});
        previous = QDir::currentPath();
        QDir::setCurrent(folder.path());
    }
    ~GameFolder() { QDir::setCurrent(previous); }

    QTemporaryDir folder;
    QString previous;
};

// The program's module with the game's screens, on virtual time.
inline std::unique_ptr<Module1> gameModule(VirtualClock& clock, std::unique_ptr<Random> random, std::unique_ptr<Sound> sound) {
    PortFactory ports;
    ports.makeTimers = [&clock] { return clock.makeBank(); };
    ports.random = std::move(random);
    ports.sound = std::move(sound);
    auto module = std::make_unique<Module1>(std::move(ports));
    defineGameScreens(*module);
    return module;
}

class GameRun : public GameFolder {
public:
    // speaker: where the sounds go besides the recorder; none by default.
    explicit GameRun(std::unique_ptr<Sound> speaker = nullptr) {
        auto r = std::make_unique<ScriptedRandom>();
        random = r.get();
        auto s = std::make_unique<RecordAndPlay>();
        sound = &s->recorder;
        s->speaker = std::move(speaker);
        module = gameModule(clock, std::move(r), std::move(s));
        setMessageSink([this](const QString& text) { messages << text; });
    }
    ~GameRun() {
        module.reset();
        setMessageSink({});
    }

    QString file(const QString& name) const { return folder.filePath(name); }
    void write(const QString& name, const QByteArray& bytes) const {
        QFile f(file(name));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    QByteArray read(const QString& name) const {
        QFile f(file(name));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    void open() { module->screens.show("Titlefrm"); }
    // The title screen and its OK: the set-up screen.
    Form* setUp() {
        open();
        press(screen("Titlefrm"), "Label5");
        return screen("Startplay2");
    }
    // A game begun by a button of the set-up screen: 0 against the computer,
    // 1 to 3 for two to four players.
    void startGame(int playersButton) { press(setUp(), "Label1", playersButton); }
    bool loaded(const char* name) const { return module->screens.isLoaded(name); }
    template <class F = Form>
    F* screen(const char* name) {
        return loaded(name) ? module->screens.get<F>(name) : nullptr;
    }
    Fen1Form* board() { return screen<Fen1Form>(Fen1Form::formName); }
    ModuleState& state() { return module->state; }
    std::string lastSound() const { return sound->played.empty() ? std::string() : sound->played.back(); }

    // A press of a button, a label or a picture box.
    static void press(Form* f, const char* name, int index = -1) {
        QVERIFY2(f && f->control(name, index), name);
        QTest::mouseClick(f->control(name, index)->widget(), Qt::LeftButton);
    }
    // A click on a check box or an option button, in its box but to the
    // right of its words: the whole box takes the click.
    static void tick(Form* f, const char* name, int index = -1) {
        QWidget* w = f->control(name, index)->widget();
        QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(w->width() - 2, w->height() / 2));
    }
    // The window manager's close button: a spontaneous close event.
    static void closeByTitleBar(QWidget* w) {
        QCloseEvent e;
        QSpontaneKeyEvent::setSpontaneous(&e);
        QCoreApplication::instance()->notify(w, &e);
    }
    static QString caption(Form* f, const char* name, int index = -1) { return f->control(name, index)->caption(); }
    static bool shows(Form* f, const char* name, int index = -1) { return f->control(name, index)->widget()->isVisible(); }

    // The board for nplayers with timeallowed seconds each, built and shown
    // as the set-up screens leave it.
    Fen1Form* showBoard(int nplayers, int timeallowed = 0) {
        state().nplayers = static_cast<i16>(nplayers);
        state().timeallowed = static_cast<i16>(timeallowed);
        auto* f = module->screens.get<Fen1Form>(Fen1Form::formName);
        f->game().showPlayers(nplayers);
        f->sync();
        module->screens.show(Fen1Form::formName);
        return f;
    }

    // The cells of a text table of the game folder ("text/text.csv"),
    // [row][column] with the rows from 1, read here field by field rather
    // than through the program's tables.
    std::vector<std::vector<QString>> table(const char* file, std::size_t columns = 7) const {
        const QByteArray bytes = read(file);
        ListInput in(std::string_view(bytes.constData(), std::size_t(bytes.size())));
        std::vector<std::vector<QString>> rows(1, std::vector<QString>(columns));
        std::string field;
        while (!in.atEnd())
            for (QString& cell : rows.emplace_back(columns)) cell = in.readString(field) ? QString::fromStdString(field) : QString();
        return rows;
    }

    // Throw Dice with these four dice, and wait until the fourth is shown.
    void throwDice(std::array<int, 4> dice) {
        scriptDice(dice);
        press(board(), "Label3", button::throwDice);
        clock.advance(2250);
    }
    void scriptDice(std::array<int, 4> dice) {
        std::vector<double> draws;
        for (int v : dice) draws.insert(draws.end(), {0.015, (v - 1) / 6.0 + 0.01});
        random->script(draws);
    }
    // The centre of hexagon n on the board window, and a click there where
    // the window system would deliver it.
    static QPoint hexagonPoint(int n) {
        const geometry::Point c = geometry::hexCentre(n);
        return {kit::px(c.x), kit::px(c.y)};
    }
    void clickHexagon(int n) { QTest::mouseClick(board()->windowHandle(), Qt::LeftButton, {}, hexagonPoint(n)); }

    // Lays counters along the bottom row of the board and up its right
    // edge, 1 to 55 to 100, leaving hexagon `gap` free, with a few more so
    // that the end of the game is looked for: the next counter on `gap`
    // completes the path.
    void layPathBut(int gap, int owner) {
        const int cover[] = {1, 3, 6, 10, 15, 21, 28, 36, 45, 55, 64, 72, 79, 85, 90, 94, 97, 99, 100,
                             2, 50, 60, 70, 80, 95, 40, 30, 20, 5, 7, 9, 11, 13, 17};
        Fen1& game = board()->game();
        BoardModel& b = board()->model();
        for (int n : cover) {
            const auto i = static_cast<std::size_t>(n);
            if (n == gap || b.Image1[i].visible) continue;
            module->state.boardowner[i] = static_cast<i16>(owner);
            b.Label1[i].visible = false;
            b.Image1[i].picture = counterPicture(n, players[static_cast<std::size_t>(owner - 1)].prefix, b.Label1[i].fore == colour::black);
            b.Image1[i].visible = true;
            game.movelist[static_cast<std::size_t>(game.movecount - 1)] = static_cast<i16>(n);
            game.movelist[static_cast<std::size_t>(game.movecount)] = 0;
            ++game.movecount;
        }
        board()->sync();
    }

    struct RecordAndPlay : Sound {
        SoundRecorder recorder;
        std::unique_ptr<Sound> speaker;
        void playwave(std::string_view name) override {
            recorder.playwave(name);
            if (speaker) speaker->playwave(name);
        }
    };

    VirtualClock clock;
    ScriptedRandom* random = nullptr;
    SoundRecorder* sound = nullptr;
    std::unique_ptr<Module1> module;
    QStringList messages;
};

}  // namespace fendle::testing
