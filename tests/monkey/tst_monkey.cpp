// The monkey at the windows: a seeded run of random clicks on the controls of
// the screens, random keys, the title bar's close and advances of the virtual
// clock over the real screens, checked after every event. When the program
// ends (its Exit), it starts again in the same folder, so that the saved
// game, the high scores and the language carry over.
//
// The seed comes from FENDLE_MONKEY_SEED, else from the time of day, and is
// printed first; FENDLE_MONKEY_EVENTS sets the number of events (20000). A
// broken invariant names the event after which it broke, and the seed with
// that number of events replays the run up to it; a crash or a hang (the
// test's time limit) is replayed from the seed.
#include "../screens/game_run.h"

#include <QApplication>
#include <QPointer>

#include <chrono>
#include <cstdio>
#include <map>
#include <random>
#include <set>

#include "saved/highscores.h"
#include "saved/lastgame.h"
#include "screens/highscores_form.h"
#include "text/file_io.h"

using namespace fendle;
using testing::GameRun;

namespace {

std::uint64_t fromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* v = std::getenv(name);
    return v && *v ? std::strtoull(v, nullptr, 10) : otherwise;
}

QtMessageHandler qtHandler = nullptr;

// The offscreen platform stacks no windows, and says so at every raise.
void quietStacking(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (!message.startsWith("This plugin does not support") && qtHandler) qtHandler(type, context, message);
}

bool isBackdrop(const Form* f) { return f->windowFlags() & Qt::WindowStaysOnBottomHint; }

// The part of a control inside its window.
QRect inside(const Form* f, const QWidget* w) { return QRect(w->mapTo(f, QPoint(0, 0)), w->size()) & f->rect(); }

// How often, against the rest, a control is clicked or pressed by a key: the
// buttons that end the program or leave a game seldom, so that runs go deep;
// Throw Dice and the numbers of the board often, so that games end.
double favour(const std::string& screen, const kit::Control& c) {
    const std::string& n = c.name();
    if ((screen == "Titlefrm" && n == "Label7") || (screen == "Startplay2" && n == "Label3" && c.index() == 0)) return 0.1;
    if (screen == "fen1" && n == "Label3") return c.index() == 2 ? 24 : 0.1;
    if (screen == "fen1" && n == "Label1") return 8;
    return 1;
}

// The ways out of each screen: a shown screen always offers one of these
// controls, visible, enabled and where a click reaches it; or `orShown` is
// shown over it as the way on; or, with none, its title bar's close is the
// way out. "Fendlerules" stands for every rule page.
struct ScreenWays {
    std::string screen;
    std::vector<std::pair<const char*, int>> controls;
    std::string orShown = {};
};
const ScreenWays waysOut[] = {
    {"Titlefrm", {{"Label5", -1}, {"Picture1", -1}, {"Label8", -1}, {"Label7", -1}}},   // OK, Change Language, Exit
    {"Startplay2", {{"Label1", 0}, {"Label1", 1}, {"Label1", 2}, {"Label1", 3}, {"Label3", 0}}},
    {"Startautoplay2", {{"Label1", -1}, {"Label7", -1}, {"Label3", 0}}},
    {"languages", {{"Command1", -1}}},
    {"highscores", {{"Label3", 0}}},
    {"TeacherGuide", {{"Label3", 0}}},
    {"Cheatchart", {}},
    // Exit and New Game; the high-score screen over a game that has ended.
    {"fen1", {{"Label3", 0}, {"Label3", 1}}, "highscores"},
    {"Fendlerules", {{"Label3", 0}, {"Label3", 1}, {"Label3", 2}}},
};

class Monkey final : public QObject {
public:
    explicit Monkey(std::uint64_t seed) : seed_(seed), rng_(seed) {
        setMessageSink([this](const QString& t) { told_ << t; });
        qtHandler = qInstallMessageHandler(quietStacking);
        qApp->installEventFilter(this);
    }
    ~Monkey() override {
        endSession();
        qApp->removeEventFilter(this);
        qInstallMessageHandler(qtHandler);
        setMessageSink({});
    }

    // Runs `events` events; empty when all went well, else what broke and
    // after which event.
    QString run(std::int64_t events) {
        QString broke;
        std::int64_t n = 1;
        for (; n <= events && broke.isEmpty(); ++n) {
            const double r = chance();
            if (!programRunning()) {   // after its Exit the program starts again
                if (broke = endSession(); !broke.isEmpty()) break;
                startSession();
                QCoreApplication::processEvents();
            }
            if (r < 0.55) click();
            else if (r < 0.70) key();
            else if (r < 0.71) closeFront();
            else advance();
            // What the event loop does next: the posted events, then the
            // screens unloaded meanwhile go.
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            broke = checkAfterEvent();
        }
        if (broke.isEmpty()) broke = checkFiles();
        if (broke.isEmpty()) broke = endSession();
        return broke.isEmpty() ? broke : broke + QStringLiteral(" (FENDLE_MONKEY_EVENTS=%1 replays up to it)").arg(n - 1);
    }

private:
    // ------------------------------------------------------------ sessions

    void startSession() {
        ++sessions_;
        auto s = std::make_unique<SoundRecorder>();
        sound_ = s.get();
        soundsChecked_ = 0;
        module_ = testing::gameModule(clock_, std::make_unique<SeededRandom>(seed_ * 0x9E3779B97F4A7C15ull + sessions_), std::move(s));
        module_->screens.show("Titlefrm");
    }

    bool programRunning() const {
        if (!module_) return false;
        for (const std::string& name : module_->screens.names())
            if (module_->screens.isLoaded(name)) return true;
        return false;
    }

    // Unloads every screen and ends the program; empty when nothing of it is
    // left behind.
    QString endSession() {
        if (!module_) return {};
        module_->screens.unloadAll();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        module_.reset();
        sound_ = nullptr;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* f = qobject_cast<Form*>(w)) return "the screen " + QString::fromStdString(f->name()) + " outlived the program";
        return {};
    }

    // ------------------------------------------------------------ windows

    // The order of the program's windows, as a window manager keeps it (the
    // offscreen platform keeps none): a window shown or raised comes to the
    // top.
    bool eventFilter(QObject* watched, QEvent* e) override {
        auto* f = qobject_cast<Form*>(watched);
        if (f && f->isWindow() && (e->type() == QEvent::Show || e->type() == QEvent::ZOrderChange)) {
            std::erase_if(order_, [f](const QPointer<Form>& p) { return p.isNull() || p == f; });
            order_.emplace_back(f);
        }
        return false;
    }

    // The shown windows, topmost first: those that stay on top above the
    // rest, the backdrop below all.
    std::vector<Form*> shown() const {
        std::vector<Form*> all;
        for (int layer = 0; layer < 3; ++layer)
            for (auto it = order_.rbegin(); it != order_.rend(); ++it)
                if (Form* f = *it; f && f->isVisible() && layer == (f->windowFlags() & Qt::WindowStaysOnTopHint ? 0 : isBackdrop(f) ? 2 : 1))
                    all.push_back(f);
        return all;
    }

    Form* front() const {
        for (Form* f : shown())
            if (!isBackdrop(f)) return f;
        return nullptr;
    }

    // ------------------------------------------------------------ events

    void click() {
        const std::vector<Form*> windows = shown();
        if (windows.empty()) return;
        // Mostly at the screen in front; now and then at any shown window,
        // the backdrop too: the click lands on whichever window is in front
        // at that place.
        Form* aim = front() && chance() < 0.85 ? front() : windows[std::size_t(below(int(windows.size())))];
        // Each control's name weighs the same, shared among its elements,
        // times its favour; now and then the click goes anywhere.
        std::map<std::string, std::vector<QWidget*>> byName;
        for (QWidget* w : aim->findChildren<QWidget*>())
            if (auto* c = kit::Control::of(w); c && w->isVisible() && w->isEnabled() && !inside(aim, w).isEmpty())
                byName[c->name()].push_back(w);
        std::vector<QWidget*> candidates;
        std::vector<double> weights;
        for (const auto& [name, elements] : byName)
            for (QWidget* w : elements) {
                candidates.push_back(w);
                weights.push_back(favour(aim->name(), *kit::Control::of(w)) / double(elements.size()));
            }
        QWidget* target = nullptr;
        QPoint local(below(std::max(1, aim->width())), below(std::max(1, aim->height())));
        if (!candidates.empty() && chance() > 0.05) {
            target = candidates[std::discrete_distribution<std::size_t>(weights.begin(), weights.end())(rng_)];
            const QRect r = inside(aim, target);
            local = QPoint(r.left() + below(r.width()), r.top() + below(r.height()));
        }
        const QPoint global = aim->mapToGlobal(local);
        Form* hit = aim;
        for (Form* f : windows)
            if (QRect(f->mapToGlobal(QPoint(0, 0)), f->size()).contains(global)) {
                hit = f;
                break;
            }
        const QPoint at = hit->mapFromGlobal(global);
        QWidget* under = hit->childAt(at);
        // A click that lands on another control than the one aimed at is as
        // seldom on a button that leaves as an aimed one.
        if (auto* c = kit::Control::of(under); c && under != target && chance() > favour(hit->name(), *c)) return;
        if (!isBackdrop(hit)) hit->raise();
        hit->activateWindow();
        QTest::mouseClick(hit->windowHandle(), Qt::LeftButton, {}, at);
    }

    void key() {
        Form* w = qobject_cast<Form*>(QApplication::activeWindow());
        if (!w || !w->isVisible() || isBackdrop(w)) w = front();
        if (!w) return;
        static const Qt::Key named[] = {Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Space,  Qt::Key_Return,   Qt::Key_Enter,
                                        Qt::Key_Escape, Qt::Key_Left,    Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,
                                        Qt::Key_Home,   Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Backspace,
                                        Qt::Key_Delete};
        // Digits and signs for the time box; for a name letters, a comma and
        // a double quote, which the file of high scores has to keep.
        static const char chars[] = "0123456789abcxyzQ-.,\"";
        QWidget* focus = w->focusWidget();
        const int pick = below(int(std::size(named)) + 12);
        const char typed = pick < int(std::size(named)) ? '\0' : chars[below(int(sizeof chars) - 1)];
        const Qt::Key key = typed ? Qt::Key_unknown : named[pick];
        // A key that presses the focused button is as seldom on one that
        // leaves as a click.
        const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
        if (auto* c = kit::Control::of(focus); presses && c && chance() > favour(w->name(), *c)) return;
        if (typed) QTest::keyClick(w->windowHandle(), typed);
        else QTest::keyClick(w->windowHandle(), key);
    }

    void closeFront() {
        Form* w = front();
        if (!w) return;
        auto* board = qobject_cast<Fen1Form*>(w);
        if (board && chance() > 0.1) return;   // seldom on the board, where it ends the game
        // The board ignores its close while its Exit is disabled: the
        // high-score screen over it is the way on.
        closing_ = w;
        mayStay_ = board && !board->control("Label3", 0)->enabled();
        GameRun::closeByTitleBar(w);
    }

    void advance() {
        // Mostly the blink of a turn; sometimes seconds, now and then
        // minutes, so that dice stop, turns pass, clocks run out and games end.
        const double r = chance();
        const int ms = r < 0.55 ? 1 + below(300) : r < 0.85 ? 300 + below(2700) : r < 0.97 ? 3000 + below(27000) : 30000 + below(600000);
        clock_.advance(ms);
    }

    // ------------------------------------------------------------ invariants

    QString checkAfterEvent() {
        for (auto check : {&Monkey::checkForms, &Monkey::checkWaysOut, &Monkey::checkScores, &Monkey::checkSounds, &Monkey::checkFiles})
            if (QString broke = (this->*check)(); !broke.isEmpty()) return broke;
        if (!told_.isEmpty()) return "the program told the user: " + told_.join(" | ");
        return {};
    }

    // Every window of the program is a loaded screen, one of each name, and
    // so at most one board.
    QString checkForms() {
        std::set<std::string> names;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            auto* f = qobject_cast<Form*>(w);
            if (!f) continue;
            const QString name = QString::fromStdString(f->name());
            if (!names.insert(f->name()).second) return "two windows of the screen " + name;
            if (!module_ || !module_->screens.isLoaded(f->name()) || module_->screens.form(f->name()) != f)
                return "the window of " + name + " lives on, unloaded";
        }
        return {};
    }

    QString checkWaysOut() {
        // The close of the last event took its window away, but for the
        // board while its Exit is disabled.
        if (Form* f = std::exchange(closing_, nullptr); f && f->isVisible() && !mayStay_)
            return "the title bar's close left " + QString::fromStdString(f->name()) + " on the screen";
        if (!programRunning()) return {};
        bool someScreen = false;
        for (Form* f : shown()) {
            if (isBackdrop(f)) continue;
            someScreen = true;
            const QString name = QString::fromStdString(f->name());
            const ScreenWays* ways = nullptr;
            for (const ScreenWays& w : waysOut)
                if (w.screen == f->name() || (w.screen == "Fendlerules" && name.startsWith("Fendlerules"))) ways = &w;
            if (!ways) return "no ways out are known for the screen " + name;
            if (ways->controls.empty()) continue;   // its title bar's close
            bool open = !ways->orShown.empty() && module_->screens.isLoaded(ways->orShown) &&
                        module_->screens.form(ways->orShown)->isVisible();
            for (const auto& [control, index] : ways->controls) {
                kit::Control* c = f->control(control, index);
                QWidget* w = c ? c->widget() : nullptr;
                if (open || !w || !w->isVisible() || !w->isEnabled()) continue;
                // Reachable: a click somewhere on it lands on it.
                const QRect r(w->mapTo(f, QPoint(0, 0)), w->size());
                for (int i = 1; i <= 9 && !open; ++i) {
                    const QPoint p(r.left() + r.width() * (1 + (i - 1) % 3) / 4, r.top() + r.height() * (1 + (i - 1) / 3) / 4);
                    QWidget* under = f->rect().contains(p) ? f->childAt(p) : nullptr;
                    open = under && (under == w || w->isAncestorOf(under));
                }
            }
            if (!open) return "the screen " + name + " is shown with no way out";
        }
        return someScreen ? QString() : "the program runs with no screen shown but the backdrop";
    }

    // No negative score in the table or on the board, no negative clock.
    QString checkScores() {
        if (!module_) return {};
        for (int r = 0; r < Highscores::rowsShown; ++r)
            if (module_->highpoints[std::size_t(r)] < 0) return "a negative score in row " + QString::number(r) + " of the table";
        Fen1Form* board = loadedBoard(*module_);
        for (int p = 0; board && p < 4; ++p)
            for (const QString& caption : {board->control("Label6", p + 1)->caption(), board->control("Label12", p)->caption()})
                if (caption.trimmed().toInt() < 0) return "a negative score or clock on the board: " + caption;
        return {};
    }

    QString checkSounds() {
        for (; sound_ && soundsChecked_ < sound_->played.size(); ++soundsChecked_) {
            const QString name = QString::fromStdString(sound_->played[soundsChecked_]);
            if (!QFileInfo::exists(QString::fromStdString(gamePath(name.toStdString())))) return "a sound that is not there: " + name;
        }
        return {};
    }

    // The two files the game writes can always be read back: whole, and as
    // the game would write them again.
    QString checkFiles() {
        if (const auto bytes = readFileBytes(gamePath(lastgameFile)); bytes && *bytes != lastgameBytes_) {
            const auto game = readLastgame(*bytes);
            if (!game) return "lastgame.inf cannot be read back";
            if (lastgameText(*game) != *bytes) return "lastgame.inf is not as the game writes it";
            for (const auto& s : game->scores)
                if (s && *s < 0) return "a negative score in lastgame.inf";
            lastgameBytes_ = *bytes;
        }
        if (const auto bytes = readFileBytes(gamePath(highscoresFile)); bytes && *bytes != highscoresBytes_) {
            HighScores t;
            t.highpoints.fill(-1);
            readHighScores(*bytes, t);
            for (int r = 0; r < 10; ++r) {
                if (t.highpoints[std::size_t(r)] < 0) return "highscores.txt ends before row " + QString::number(r);
                if (r % 5 != 0 && t.highpoints[std::size_t(r)] > t.highpoints[std::size_t(r - 1)])
                    return "highscores.txt is out of order at row " + QString::number(r);
            }
            if (highscoresText(t) != *bytes) return "highscores.txt is not as the game writes it";
            highscoresBytes_ = *bytes;
        }
        return {};
    }

    int below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
    double chance() { return std::uniform_real_distribution<double>(0, 1)(rng_); }

    std::uint64_t seed_, sessions_ = 0;
    std::mt19937_64 rng_;
    testing::GameFolder folder_;
    VirtualClock clock_;
    std::vector<QPointer<Form>> order_;
    std::unique_ptr<Module1> module_;
    SoundRecorder* sound_ = nullptr;
    std::size_t soundsChecked_ = 0;
    QStringList told_;   // messages the program would have shown in a box
    QPointer<Form> closing_;   // the window closed by the last event, checked after it
    bool mayStay_ = false;
    std::string lastgameBytes_, highscoresBytes_;
};

}  // namespace

class TestMonkey : public QObject {
    Q_OBJECT

private slots:
    void playsAtTheWindows() {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        const std::uint64_t seed = fromEnvironment(
            "FENDLE_MONKEY_SEED", std::uint64_t(std::chrono::duration_cast<std::chrono::microseconds>(now).count()) % 1000000000);
        const auto events = std::int64_t(fromEnvironment("FENDLE_MONKEY_EVENTS", 20000));
        std::fprintf(stderr, "monkey: seed %llu, %lld events (FENDLE_MONKEY_SEED=%llu to replay)\n",
                     static_cast<unsigned long long>(seed), static_cast<long long>(events), static_cast<unsigned long long>(seed));

        const QString broke = Monkey(seed).run(events);
        QVERIFY2(broke.isEmpty(), qPrintable(broke));
    }
};

QTEST_MAIN(TestMonkey)
#include "tst_monkey.moc"
