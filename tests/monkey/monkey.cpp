#include "monkey.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest>
#include <QtTest/qtestspontaneevent.h>

#include <algorithm>
#include <cstdio>

#include "engine/seeded_random.h"
#include "saved/highscores.h"
#include "saved/lastgame.h"
#include "screens/fen1_form.h"
#include "screens/game_screens.h"
#include "screens/highscores_form.h"
#include "screens/module1.h"
#include "screens/qt_ports.h"
#include "text/file_io.h"
#include "ways_out.h"

namespace fendle::monkey {

namespace {

std::string text(const QString& s) { return s.toStdString(); }

std::string describe(const QWidget* w) {
    if (const auto* c = dynamic_cast<const kit::Control*>(w)) {
        std::string d = c->name();
        if (c->index() >= 0) {
            d += '(';
            d += std::to_string(c->index());
            d += ')';
        }
        return d;
    }
    return w ? text(w->metaObject()->className()) : "nothing";
}

// The window's client area on the screen.
QRect onScreen(const QWidget* w) { return QRect(w->mapToGlobal(QPoint(0, 0)), w->size()); }

bool isBackdrop(const Form* f) { return f->windowFlags() & Qt::WindowStaysOnBottomHint; }

// A caption that holds a count the game keeps: empty, or a whole number.
bool negative(const QString& caption) {
    bool ok = false;
    const int v = caption.trimmed().toInt(&ok);
    return ok && v < 0;
}

// Qt's own warnings, kept for the report and the log.
Tally* warningsTo = nullptr;
EventLog* warningsLog = nullptr;
QtMessageHandler previousHandler = nullptr;

void onQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        // The offscreen platform stacks no windows; the monkey keeps the order itself.
        if (message.startsWith("This plugin does not support")) return;
        if (warningsTo) {
            ++warningsTo->warningCount;
            if (warningsTo->warnings.size() < 10 && !warningsTo->warnings.contains(message))
                warningsTo->warnings << message;
        }
        if (warningsLog) warningsLog->note("  Qt warning: " + message.left(150).toStdString());
        return;
    }
    if (previousHandler) previousHandler(type, context, message);
}

// How much more (or less) often than the rest a control is clicked. The
// buttons that end the program or leave a game are clicked seldom, so that
// runs go deep; Throw Dice and the numbers of the board often, so that games
// are played to their end.
double favour(const std::string& screen, const kit::Control& c) {
    const std::string& n = c.name();
    if (screen == "Titlefrm" && n == "Label7") return 0.1;
    if (screen == "Startplay2" && n == "Label3" && c.index() == 0) return 0.1;
    if (screen == "fen1") {
        if (n == "Label3") return c.index() == 2 ? 24 : 0.1;
        if (n == "Label1") return 8;
    }
    return 1;
}

}  // namespace

// The order of the program's windows, as a window manager keeps it: a window
// shown or raised comes to the top; those that stay on top stand above the
// rest, the backdrop below all.
class Stacking final : public QObject {
public:
    Stacking() { qApp->installEventFilter(this); }
    ~Stacking() override { qApp->removeEventFilter(this); }

    // The shown windows, topmost first.
    std::vector<Form*> shown() const {
        std::vector<Form*> top, middle, bottom;
        for (auto it = order_.rbegin(); it != order_.rend(); ++it) {
            Form* f = it->data();
            if (!f || !f->isVisible()) continue;
            if (f->windowFlags() & Qt::WindowStaysOnTopHint) top.push_back(f);
            else if (isBackdrop(f)) bottom.push_back(f);
            else middle.push_back(f);
        }
        top.insert(top.end(), middle.begin(), middle.end());
        top.insert(top.end(), bottom.begin(), bottom.end());
        return top;
    }

    bool eventFilter(QObject* watched, QEvent* e) override {
        const QEvent::Type t = e->type();
        if (t == QEvent::Show || t == QEvent::ZOrderChange) {
            auto* f = qobject_cast<Form*>(watched);
            if (f && f->isWindow()) {
                std::erase_if(order_, [f](const QPointer<Form>& p) { return p.isNull() || p == f; });
                order_.emplace_back(f);
            }
        }
        return false;
    }

private:
    std::vector<QPointer<Form>> order_;
};

Monkey::Monkey(const QString& gameDir, std::uint64_t seed, EventLog& log)
    : log_(log), seed_(seed), rng_(seed), stacking_(std::make_unique<Stacking>()) {
    // The game folder as the build made it, less the program and the files a
    // run writes there.
    const QDir source(gameDir);
    QDirIterator it(source.path(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString from = it.next();
        const QString name = source.relativeFilePath(from);
        if (name == "fendle" || name == "lastgame.inf" || name == "highscores.txt" || name == "numlang.txt") continue;
        QDir(folder_.path()).mkpath(QFileInfo(name).path());
        QFile::copy(from, folder_.filePath(name));
    }
    previousDir_ = QDir::currentPath();
    QDir::setCurrent(folder_.path());
    setMessageSink([this](const QString& t) { told_ << t; });
    warningsTo = &tally_;
    warningsLog = &log_;
    previousHandler = qInstallMessageHandler(onQtMessage);
}

Monkey::~Monkey() {
    finish();
    qInstallMessageHandler(previousHandler);
    warningsTo = nullptr;
    warningsLog = nullptr;
    setMessageSink({});
    QDir::setCurrent(previousDir_);
}

// ---------------------------------------------------------------- sessions

void Monkey::startSession() {
    ++tally_.sessions;
    log_.note("-- the program starts (session " + std::to_string(tally_.sessions) + ")");
    PortFactory ports;
    ports.makeTimers = [this] { return clock_.makeBank(); };
    ports.random = std::make_unique<SeededRandom>(seed_ * 0x9E3779B97F4A7C15ull + std::uint64_t(tally_.sessions));
    auto s = std::make_unique<SoundRecorder>();
    sound_ = s.get();
    soundsChecked_ = 0;
    ports.sound = std::move(s);
    module_ = std::make_unique<Module1>(std::move(ports));
    defineGameScreens(*module_);
    module_->screens.show("Titlefrm");
}

bool Monkey::programRunning() const {
    if (!module_) return false;
    for (const std::string& name : module_->screens.names())
        if (module_->screens.isLoaded(name)) return true;
    return false;
}

QString Monkey::endSession() {
    if (!module_) return {};
    for (const std::string& name : module_->screens.names())
        if (const int n = module_->screens.loads(name)) tally_.opened[name] += n;
    module_->screens.unloadAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    module_.reset();
    sound_ = nullptr;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // Nothing of the program may outlive it.
    for (QWidget* w : QApplication::topLevelWidgets())
        if (qobject_cast<Form*>(w)) return "the screen " + QString::fromStdString(qobject_cast<Form*>(w)->name()) + " outlived the program";
    return {};
}

QString Monkey::finish() {
    QString broke = checkFiles();
    const QString left = endSession();
    return broke.isEmpty() ? left : broke;
}

// ---------------------------------------------------------------- windows

std::vector<Form*> Monkey::shown() const { return stacking_->shown(); }

Form* Monkey::front() const {
    for (Form* f : shown())
        if (!isBackdrop(f)) return f;
    return nullptr;
}

Form* Monkey::keyWindow() const {
    if (auto* f = qobject_cast<Form*>(QApplication::activeWindow()); f && f->isVisible() && !isBackdrop(f)) return f;
    return front();
}

Form* Monkey::windowAt(const QPoint& global) const {
    for (Form* f : shown())
        if (onScreen(f).contains(global)) return f;
    return nullptr;
}

// ---------------------------------------------------------------- events

QString Monkey::run(std::int64_t events) {
    QString broke;
    QElapsedTimer took;
    for (std::int64_t n = 1; n <= events && broke.isEmpty(); ++n) {
        took.start();
        const double r = chance();
        const char* kind = r < 0.55 ? "click" : r < 0.70 ? "key" : r < 0.71 ? "close" : r < 0.72 ? "wheel" : "advance";
        ++tally_.events[kind];
        log_.begin(n, kind);   // each kind notes what it does below
        // After its Exit the program starts again.
        if (!programRunning()) {
            if (QString left = endSession(); !left.isEmpty()) {
                broke = left;
                break;
            }
            startSession();
            QCoreApplication::processEvents();
        }
        if (r < 0.55) click();
        else if (r < 0.70) key();
        else if (r < 0.71) closeFront();
        else if (r < 0.72) wheel();
        else advance();
        // What the event loop would do next: the posted events, then the
        // screens unloaded meanwhile go.
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        log_.end();
        if (took.elapsed() > tally_.slowestMs) {
            tally_.slowestMs = took.elapsed();
            tally_.slowestEvent = n;
        }
        broke = checkAfterEvent();
        count();
    }
    if (broke.isEmpty()) broke = checkFiles();
    if (!broke.isEmpty()) log_.print(text(broke));
    tally_.virtualMs = clock_.now();
    return broke;
}

void Monkey::click() {
    const std::vector<Form*> windows = shown();
    if (windows.empty()) return;
    // Any of the program's windows, and now and then the backdrop: the click
    // lands where the windows in front leave that place free.
    std::vector<Form*> screens;
    for (Form* f : windows)
        if (!isBackdrop(f)) screens.push_back(f);
    Form* aim = screens.empty() || chance() < 0.05 ? windows[std::size_t(below(int(windows.size())))]
                                                   : screens[std::size_t(below(int(screens.size())))];

    // The visible, enabled controls. Each name weighs the same, shared among
    // its elements, times what the monkey favours (see favour()).
    std::map<std::string, std::vector<QWidget*>> byName;
    for (QWidget* w : aim->findChildren<QWidget*>()) {
        auto* c = dynamic_cast<kit::Control*>(w);
        if (!c || !w->isVisible() || !w->isEnabled()) continue;
        const QRect r = QRect(w->mapTo(aim, QPoint(0, 0)), w->size()) & aim->rect();
        if (!r.isEmpty()) byName[c->name()].push_back(w);
    }
    std::vector<QWidget*> candidates;
    std::vector<double> weights;
    for (const auto& [name, elements] : byName)
        for (QWidget* w : elements) {
            candidates.push_back(w);
            weights.push_back(favour(aim->name(), *dynamic_cast<kit::Control*>(w)) / double(elements.size()));
        }
    QPoint local;
    QWidget* target = nullptr;
    if (candidates.empty() || chance() < 0.05) {
        local = QPoint(below(std::max(1, aim->width())), below(std::max(1, aim->height())));
    } else {
        target = candidates[std::discrete_distribution<std::size_t>(weights.begin(), weights.end())(rng_)];
        const QRect r = QRect(target->mapTo(aim, QPoint(0, 0)), target->size()) & aim->rect();
        local = QPoint(r.left() + below(r.width()), r.top() + below(r.height()));
    }
    // The click lands on whichever window is in front at that place, and
    // brings it forward, as a window manager does.
    const QPoint global = aim->mapToGlobal(local);
    Form* hit = windowAt(global);
    if (!hit) hit = aim;
    const QPoint at = hit->mapFromGlobal(global);
    QWidget* under = hit->childAt(at);
    char line[EventLog::lineLength];
    std::snprintf(line, sizeof line, "click %s %s at %d,%d -> %s %s", aim->name().c_str(), describe(target).c_str(),
                  local.x(), local.y(), hit->name().c_str(), describe(under).c_str());
    log_.note(std::string("  ") + line);

    // A click that was not aimed at the control it lands on is as seldom on a
    // button that leaves as an aimed one.
    if (auto* c = dynamic_cast<kit::Control*>(under); c && under != target && chance() > favour(hit->name(), *c)) {
        log_.note("  (not clicked)");
        return;
    }
    const bool restoring = hit->name() == "Titlefrm" && dynamic_cast<kit::Control*>(under) &&
                           dynamic_cast<kit::Control*>(under)->name() == "Label6";
    if (!isBackdrop(hit)) hit->raise();
    hit->activateWindow();
    QPointer<Form> guard(hit);
    const double how = chance();
    if (how < 0.05) {
        // A drag: pressed here, let go somewhere else in the same window.
        const QPoint to(below(hit->width()), below(hit->height()));
        log_.note("  dragged to " + std::to_string(to.x()) + "," + std::to_string(to.y()));
        QTest::mousePress(hit->windowHandle(), Qt::LeftButton, {}, at);
        if (guard) QTest::mouseMove(hit->windowHandle(), to);
        if (guard) QTest::mouseRelease(hit->windowHandle(), Qt::LeftButton, {}, to);
        return;
    }
    QTest::mouseClick(hit->windowHandle(), Qt::LeftButton, {}, at);
    if (how < 0.20) {
        // A second click at once, before the screens the first one unloaded
        // have gone: it lands on whatever is in front there now.
        QCoreApplication::processEvents();
        if (Form* again = windowAt(global)) {
            const QPoint there = again->mapFromGlobal(global);
            log_.note("  and again -> " + again->name() + " " + describe(again->childAt(there)));
            QTest::mouseClick(again->windowHandle(), Qt::LeftButton, {}, there);
        }
        return;
    }
    if (restoring && module_ && module_->screens.isLoaded(Fen1Form::formName) && !module_->screens.isLoaded("Titlefrm"))
        ++tally_.restores;
    // A click into a text box, then some typing.
    if (guard && under && dynamic_cast<kit::TextBox*>(under) && under->isVisible()) typeInto(guard);
}

void Monkey::typeInto(Form* window) {
    // Digits and signs for the time box; for a name, letters, blanks, a
    // comma, a double quote and an accented letter, which the file of high
    // scores has to keep or leave out.
    static const char keys[] = "0123456789-.5aZ ,\"";
    const int n = 1 + below(6);
    std::string typed;
    QPointer<Form> guard(window);
    for (int i = 0; i < n && guard && guard->isVisible(); ++i) {
        const int k = below(int(sizeof keys - 1) + 3);
        if (k == int(sizeof keys - 1)) {
            typed += "<bs>";
            QTest::keyClick(guard->windowHandle(), Qt::Key_Backspace);
        } else if (k == int(sizeof keys)) {
            typed += "<enter>";
            QTest::keyClick(guard->windowHandle(), Qt::Key_Return);
        } else if (k == int(sizeof keys) + 1) {
            typed += "\u00e9";
            QTest::sendKeyEvent(QTest::Click, guard->windowHandle(), Qt::Key_Eacute, QStringLiteral("\u00e9"), {});
        } else {
            typed += keys[k];
            QTest::keyClick(guard->windowHandle(), keys[k]);
        }
    }
    log_.note("  typed " + typed);
}

void Monkey::key() {
    Form* w = keyWindow();
    if (!w) return;
    struct Key {
        Qt::Key key;
        const char* name;
    };
    static const Key named[] = {
        {Qt::Key_Tab, "Tab"},         {Qt::Key_Backtab, "Shift+Tab"}, {Qt::Key_Space, "Space"},
        {Qt::Key_Return, "Return"},   {Qt::Key_Enter, "Enter"},       {Qt::Key_Escape, "Escape"},
        {Qt::Key_Left, "Left"},       {Qt::Key_Right, "Right"},       {Qt::Key_Up, "Up"},
        {Qt::Key_Down, "Down"},       {Qt::Key_PageUp, "PageUp"},     {Qt::Key_PageDown, "PageDown"},
        {Qt::Key_Home, "Home"},       {Qt::Key_End, "End"},           {Qt::Key_Backspace, "Backspace"},
        {Qt::Key_Delete, "Delete"},
    };
    QWidget* focus = w->focusWidget();
    const int pick = below(int(std::size(named)) + 12);
    char line[EventLog::lineLength];
    if (pick < int(std::size(named))) {
        const Key& k = named[pick];
        // A key that presses the focused button is as seldom on one that
        // leaves as a click.
        const bool presses = k.key == Qt::Key_Space || k.key == Qt::Key_Return || k.key == Qt::Key_Enter;
        if (auto* c = dynamic_cast<kit::Control*>(focus); presses && c && chance() > favour(w->name(), *c)) {
            log_.note(std::string("  (no ") + k.name + ")");
            return;
        }
        std::snprintf(line, sizeof line, "  key %s to %s %s", k.name, w->name().c_str(), describe(focus).c_str());
        log_.note(line);
        if (k.key == Qt::Key_Backtab) QTest::keyClick(w->windowHandle(), Qt::Key_Tab, Qt::ShiftModifier);
        else QTest::keyClick(w->windowHandle(), k.key);
    } else {
        static const char chars[] = "0123456789abcxyzQ-.";
        const char c = chars[below(int(sizeof chars - 1))];
        std::snprintf(line, sizeof line, "  key '%c' to %s %s", c, w->name().c_str(), describe(focus).c_str());
        log_.note(line);
        QTest::keyClick(w->windowHandle(), c);
    }
}

void Monkey::closeFront() {
    Form* w = front();
    if (!w) return;
    // Seldom on the board, where it ends the game.
    if (qobject_cast<Fen1Form*>(w) && chance() > 0.1) {
        log_.note("  (no close)");
        return;
    }
    Closing c{w, w->name(), false};
    // The board ignores its close while its Exit is disabled: the high-score
    // screen over it is the way on.
    if (auto* board = qobject_cast<Fen1Form*>(w)) c.mayStay = !board->control("Label3", 0)->enabled();
    log_.note("  close " + w->name());
    closing_ = c;
    QCloseEvent e;
    QSpontaneKeyEvent::setSpontaneous(&e);
    QCoreApplication::instance()->notify(w, &e);
}

void Monkey::wheel() {
    Form* w = front();
    if (!w) return;
    const QPoint at(below(w->width()), below(w->height()));
    QWidget* under = w->childAt(at);
    QWidget* receiver = under ? under : w;
    const int steps = chance() < 0.5 ? 120 : -120;
    log_.note("  wheel " + std::to_string(steps) + " on " + w->name() + " " + describe(under));
    QWheelEvent e(QPointF(receiver->mapFrom(w, at)), QPointF(w->mapToGlobal(at)), QPoint(), QPoint(0, steps),
                  Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&e);
    QCoreApplication::instance()->notify(receiver, &e);
}

void Monkey::advance() {
    // Mostly the blink of a turn; sometimes seconds, now and then minutes, so
    // that dice stop, turns pass, clocks run out and games end.
    const double r = chance();
    const int ms = r < 0.55 ? 1 + below(300) : r < 0.85 ? 300 + below(2700) : r < 0.97 ? 3000 + below(27000)
                                                                                     : 30000 + below(600000);
    log_.note("  advance " + std::to_string(ms) + " ms");
    clock_.advance(ms);
}

// ---------------------------------------------------------------- invariants

QString Monkey::checkAfterEvent() {
    for (auto check : {&Monkey::checkForms, &Monkey::checkWaysOut, &Monkey::checkScores, &Monkey::checkSounds,
                       &Monkey::checkFiles})
        if (QString broke = (this->*check)(); !broke.isEmpty()) return broke;
    if (!told_.isEmpty()) return "the program told the user: " + told_.join(" | ");
    return {};
}

// Every window of the program is a loaded screen, at most one of each name,
// and so at most one board.
QString Monkey::checkForms() {
    int boards = 0;
    std::set<std::string> names;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* f = qobject_cast<Form*>(w);
        if (!f) continue;
        boards += qobject_cast<Fen1Form*>(f) != nullptr;
        if (!names.insert(f->name()).second) return "two windows of the screen " + QString::fromStdString(f->name());
        if (!module_ || !module_->screens.isLoaded(f->name()) || module_->screens.form(f->name()) != f)
            return "the window of " + QString::fromStdString(f->name()) + " lives on, unloaded";
    }
    if (boards > 1) return QString::number(boards) + " boards at once";
    return {};
}

QString Monkey::checkWaysOut() {
    // The close of the last event took its window away, but for the board
    // while its Exit is disabled.
    if (closing_) {
        const Closing c = *std::exchange(closing_, std::nullopt);
        if (c.window && c.window->isVisible() && !c.mayStay)
            return "the title bar's close left " + QString::fromStdString(c.name) + " on the screen";
    }
    if (!programRunning()) return {};
    bool someScreen = false;
    for (Form* f : shown()) {
        if (isBackdrop(f)) continue;
        someScreen = true;
        const ScreenWays* ways = waysOutOf(f->name());
        if (!ways) return "no ways out are known for the screen " + QString::fromStdString(f->name());
        if (ways->closeOnly) continue;
        bool open = !ways->orShown.empty() && module_->screens.isLoaded(ways->orShown) &&
                    module_->screens.form(ways->orShown)->isVisible();
        for (const Way& way : ways->controls) {
            if (open) break;
            kit::Control* c = f->control(way.name, way.index);
            if (!c) continue;
            QWidget* w = c->widget();
            if (!w->isVisible() || !w->isEnabled()) continue;
            // Reachable: a click somewhere on it lands on it.
            const QRect r(w->mapTo(f, QPoint(0, 0)), w->size());
            for (int i = 1; i <= 3 && !open; ++i)
                for (int j = 1; j <= 3 && !open; ++j) {
                    const QPoint p(r.left() + r.width() * i / 4, r.top() + r.height() * j / 4);
                    QWidget* under = f->rect().contains(p) ? f->childAt(p) : nullptr;
                    open = under && (under == w || w->isAncestorOf(under));
                }
        }
        if (!open) return "the screen " + QString::fromStdString(f->name()) + " is shown with no way out";
    }
    if (!someScreen) return "the program runs with no screen shown but the backdrop";
    return {};
}

QString Monkey::checkScores() {
    if (!module_) return {};
    for (int r = 0; r < Highscores::rowsShown; ++r)
        if (module_->highpoints[std::size_t(r)] < 0) return "a negative score in row " + QString::number(r) + " of the table";
    if (Fen1Form* board = loadedBoard(*module_)) {
        for (int p = 1; p <= 4; ++p)
            if (negative(board->control("Label6", p)->caption()))
                return "a negative score on the board: " + board->control("Label6", p)->caption();
        for (int p = 0; p < 4; ++p)
            if (negative(board->control("Label12", p)->caption()))
                return "a negative clock on the board: " + board->control("Label12", p)->caption();
    }
    return {};
}

QString Monkey::checkSounds() {
    if (!sound_) return {};
    for (; soundsChecked_ < sound_->played.size(); ++soundsChecked_) {
        const std::string& name = sound_->played[soundsChecked_];
        if (soundsFound_.count(name)) continue;
        if (!QFileInfo::exists(QString::fromStdString(gamePath(name))))
            return "a sound that is not there: " + QString::fromStdString(name);
        soundsFound_.insert(name);
    }
    return {};
}

// The two files the game writes can always be read back: whole, and as the
// game would write them again.
QString Monkey::checkFiles() {
    if (const auto bytes = readFileBytes(gamePath(lastgameFile))) {
        if (*bytes != lastgameBytes_) {
            const auto game = readLastgame(*bytes);
            if (!game) return "lastgame.inf cannot be read back";
            if (lastgameText(*game) != *bytes) return "lastgame.inf is not as the game writes it";
            for (const auto& s : game->scores)
                if (s && *s < 0) return "a negative score in lastgame.inf";
            lastgameBytes_ = *bytes;
            ++tally_.gamesSaved;
        }
    }
    if (const auto bytes = readFileBytes(gamePath(highscoresFile))) {
        if (*bytes != highscoresBytes_) {
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
            ++tally_.highScoresWritten;
        }
    }
    return {};
}

void Monkey::count() {
    if (!module_) return;
    tally_.languages.insert(module_->state.languagenumber);
    Fen1Form* board = loadedBoard(*module_);
    if (board && board != countedBoard_ && board->game().winner != 0) {
        countedBoard_ = board;
        ++tally_.gamesEnded;
    }
}

}  // namespace fendle::monkey
