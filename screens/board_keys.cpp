#include "screens/board_keys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

#include <cmath>

#include "engine/geometry.h"
#include "screens/fen1_form.h"
#include "screens/kit/accessible.h"
#include "screens/kit/fonts.h"
#include "screens/kit/text.h"
#include "screens/kit/units.h"
#include "screens/module1.h"
#include "text/text_tables.h"

namespace fendle {

namespace {

constexpr double digitsSize = 27.75;   // as the turn line
constexpr double noteSize = 15.75;
constexpr int ringRadius = 19;         // pixels from the hexagon's centre; its inner circle is 27
constexpr int ringBand = 2;            // each of the two bands, black outside and white inside
constexpr int maxDigits = 3;

// Rows of rulestable that name the zones, by zone from 1-15 up: Orange,
// Turquoise, Yellow, Blue, Green, Purple, Red.
constexpr int firstZoneNameRow = 34;

std::size_t at(int i) { return static_cast<std::size_t>(i); }

// Place of the hexagon at row t, place c, in half hexagon widths across.
double across(int t, int c) { return t + 2.0 * c; }

bool onBoard(int t, int c) { return t >= 0 && t <= 9 && c >= 0 && c <= 9; }

}  // namespace

// The button over a hexagon. Its keys go up to the board; a press that a
// screen reader asks for claims its number.
class BoardKeys::Hexagon final : public QAbstractButton {
public:
    Hexagon(BoardKeys& keys, int n, QWidget* parent) : QAbstractButton(parent), keys_(keys), n_(n) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::ClickFocus);   // focusable; only the cursor's stands in the Tab order
        const geometry::Point c = geometry::hexCentre(n);
        const int side = 2 * (ringRadius + ringBand) + 2;
        setGeometry(kit::px(c.x) - side / 2, kit::px(c.y) - side / 2, side, side);
        connect(this, &QAbstractButton::clicked, this, [this] { keys_.claim(n_); });
    }
    QSize sizeHint() const override { return size(); }

protected:
    void paintEvent(QPaintEvent*) override {
        if (!keys_.ring_ || keys_.cursor_ != n_) return;
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        const QPointF centre = QRectF(rect()).center();
        // Black outside, white inside: one of the two stands out from any zone.
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(Qt::black, ringBand));
        p.drawEllipse(centre, ringRadius + ringBand / 2.0, ringRadius + ringBand / 2.0);
        p.setPen(QPen(Qt::white, ringBand));
        p.drawEllipse(centre, ringRadius - ringBand / 2.0, ringRadius - ringBand / 2.0);
    }
    void focusInEvent(QFocusEvent* e) override {
        QAbstractButton::focusInEvent(e);
        if (keys_.cursor_ != n_) keys_.setCursor(n_);
        if (e->reason() == Qt::TabFocusReason || e->reason() == Qt::BacktabFocusReason) keys_.showRing(true);
    }
    void keyPressEvent(QKeyEvent* e) override { e->ignore(); }
    void keyReleaseEvent(QKeyEvent* e) override { e->ignore(); }

private:
    BoardKeys& keys_;
    int n_;
};

// The typed number, or a note, in the top line of the board between Throw
// Dice and the bonus banner, over the turn line: drawn as the turn line is,
// the font stepped down where a note is too long for the line.
class BoardKeys::Line final : public QWidget {
public:
    explicit Line(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(kit::px(3420), 0, kit::px(5985), kit::px(660));
        row_.bold = true;
        row_.transparent = true;
        row_.outline = true;
        row_.align = kit::Align::Centre;
        row_.wordWrap = false;
        hide();
    }
    void show(const QString& text, double points, Rgb colour) {
        row_.size = points;
        face_.style(row_, kit::makeFont(kit::Face::Arial, points, true), kit::toQColor(colour), QColor());
        face_.text = text;
        face_.invalidate();
        setAccessibleName(text);
        setVisible(true);
        update();
    }
    QString text() const { return isVisibleTo(parentWidget()) ? face_.text : QString(); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        face_.paint(p, rect(), true);
    }

private:
    kit::Row row_{};
    kit::LabelFace face_;
};

BoardKeys::BoardKeys(Fen1Form& form) : QObject(&form), form_(form) { named_.fill(-1); }

BoardKeys::~BoardKeys() {
    if (qApp) qApp->removeEventFilter(this);
}

QWidget* BoardKeys::hexagon(int n) const { return n >= 1 && n <= 100 ? hexagons_[at(n)] : nullptr; }

void BoardKeys::build() {
    for (int n = 1; n <= 100; ++n) hexagons_[at(n)] = new Hexagon(*this, n, &form_);
    announcer_ = new kit::Announcer(&form_);
    line_ = new Line(&form_);
    // Tab goes from the board to Throw Dice, Cheat Chart, Show me how (while
    // it shows), New Game and Exit.
    QWidget* order[] = {hexagons_[100], form_.control("Label3", button::throwDice)->widget(),
                        form_.control("Label14")->widget(), form_.control("ShowHow")->widget(),
                        form_.control("Label3", button::newGame)->widget(),
                        form_.control("Label3", button::exitGame)->widget()};
    for (std::size_t i = 0; i + 1 < std::size(order); ++i) QWidget::setTabOrder(order[i], order[i + 1]);
    for (Hexagon* h : hexagons_)
        if (h) h->show();
    setCursor(1);
    nameHexagons(true);
    qApp->installEventFilter(this);
}

void BoardKeys::focusBoard() {
    if (Hexagon* h = hexagons_[at(cursor_)]) h->setFocus(Qt::OtherFocusReason);
}

// A mouse press on the board puts the ring away: the keyboard is not in use.
bool BoardKeys::eventFilter(QObject* watched, QEvent* event) {
    if (ring_ && event->type() == QEvent::MouseButtonPress) {
        const auto* w = qobject_cast<QWidget*>(watched);
        if (w && w->window() == &form_) showRing(false);
    }
    return false;
}

void BoardKeys::showRing(bool on) {
    if (ring_ == on) return;
    ring_ = on;
    if (Hexagon* h = hexagons_[at(cursor_)]) h->update();
}

void BoardKeys::setCursor(int n, bool keepGoal) {
    if (n < 1 || n > 100) return;
    Hexagon* was = hexagons_[at(cursor_)];
    Hexagon* now = hexagons_[at(n)];
    cursor_ = n;
    if (!keepGoal) {
        const geometry::GridPos g = geometry::gridOf(n);
        goalX_ = across(g.t, g.c);
    }
    if (was && was != now) {
        was->setFocusPolicy(Qt::ClickFocus);
        was->update();
    }
    if (now) {
        now->setFocusPolicy(Qt::StrongFocus);
        now->update();
        if (was && was->hasFocus()) now->setFocus(Qt::OtherFocusReason);
    }
}

// Left and Right along the row; Up and Down to the neighbour above or below
// nearest to where the moves up and down began, so that they zigzag up a
// column of the rhombus rather than drift along it.
void BoardKeys::step(int key) {
    const geometry::GridPos g = geometry::gridOf(cursor_);
    if (key == Qt::Key_Left || key == Qt::Key_Right) {
        const int c = g.c + (key == Qt::Key_Left ? -1 : 1);
        if (onBoard(g.t, c)) setCursor(geometry::hexNumber(g.t, c));
        return focusBoard();
    }
    // Above stand places c (to the right) and c - 1; below, c (to the left)
    // and c + 1. A tie goes to place c, so that Up then Down comes back.
    const int t = g.t + (key == Qt::Key_Up ? 1 : -1);
    int best = -1;
    double bestDistance = 0;
    for (const int c : {g.c, key == Qt::Key_Up ? g.c - 1 : g.c + 1}) {
        if (!onBoard(t, c)) continue;
        const double d = std::fabs(across(t, c) - goalX_);
        if (best < 0 || d < bestDistance) best = c, bestDistance = d;
    }
    if (best >= 0) setCursor(geometry::hexNumber(t, best), true);
    focusBoard();
}

bool BoardKeys::keyPress(QKeyEvent* e) {
    const Qt::KeyboardModifiers mods = e->modifiers() & ~Qt::KeypadModifier;
    if (mods != Qt::NoModifier) return false;
    Fen1& game = form_.game();
    const BoardModel& b = form_.model();
    const bool canThrow = b.Label3[button::throwDice].enabled;
    const int key = e->key();
    if (key >= Qt::Key_0 && key <= Qt::Key_9) {
        if (game.computersTurn() || game.winner > 0) return true;
        note_.clear();
        if (typed_.size() < maxDigits && !(typed_.isEmpty() && key == Qt::Key_0)) typed_ += QChar('0' + (key - Qt::Key_0));
        else if (typed_.isEmpty()) typed_ = QStringLiteral("0");
        const int value = typed_.toInt();
        if (value >= 1 && value <= 100) {
            showRing(true);
            setCursor(value);
            focusBoard();
        }
        showLine();
        return true;
    }
    switch (key) {
    case Qt::Key_Backspace:
        if (typed_.isEmpty() && note_.isEmpty()) return false;
        typed_.chop(1);
        note_.clear();
        showLine();
        return true;
    case Qt::Key_Escape:
        if (typed_.isEmpty() && note_.isEmpty()) return false;
        typed_.clear();
        note_.clear();
        showLine();
        return true;
    case Qt::Key_Space:
        if (canThrow) form_.control("Label3", button::throwDice)->fireClick();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!typed_.isEmpty()) claim(typed_.toInt());
        else if (canThrow) form_.control("Label3", button::throwDice)->fireClick();
        else if (ring_) claim(cursor_);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        showRing(true);
        step(key);
        return true;
    default: return false;
    }
}

void BoardKeys::claim(int n) {
    Fen1& game = form_.game();
    // Nothing counts while the dice roll, a move shows, or the computer plays.
    if (game.computersTurn() || !game.takesANumber()) return;
    const QString number = typed_.isEmpty() ? QString::number(n) : typed_;
    if (n < 1 || n > 100) return refuse(msg::refuseNotOnBoard, number);
    if (form_.model().Image1[at(n)].visible) return refuse(msg::refuseCovered, number);
    typed_.clear();
    note_.clear();
    setCursor(n);
    form_.claimNumber(n);
}

void BoardKeys::refuse(const Message& why, const QString& number) {
    typed_.clear();
    note_ = form_.module().message(why, number.toStdString());
    showLine();
    announcer_->say(note_);
}

// The typed digits, or a note, large in the top line over the turn line,
// which comes back once both are gone.
void BoardKeys::showLine() {
    kit::Control* turn = form_.control("Label2");
    if (!line_ || !turn) return;
    const bool shown = !typed_.isEmpty() || !note_.isEmpty();
    if (shown) line_->show(note_.isEmpty() ? typed_ : note_, note_.isEmpty() ? digitsSize : noteSize, form_.model().Label2.fore);
    else line_->hide();
    turn->setVisible(!shown && form_.model().Label2.visible);
}

QString BoardKeys::line() const { return line_ ? line_->text() : QString(); }

QString BoardKeys::colourName(int player) const {
    const ModuleTexts& t = form_.module().state.texts;
    const std::string* names[4] = {&t.bluename, &t.redname, &t.greenname, &t.yellowname};
    return QString::fromStdString(*names[at(player & 3)]);
}

QString BoardKeys::playerName(int player) const {
    if (form_.module().state.computerlevel != 0 && player == 1) return form_.module().message(msg::computerName);
    return colourName(player);
}

void BoardKeys::nameHexagons(bool all) {
    Module1& m = form_.module();
    const TextTables* tables = m.tables.get();
    const int lang = m.state.languagenumber;
    for (int n = 1; n <= 100; ++n) {
        const int owner = m.state.boardowner[at(n)];
        if (!hexagons_[at(n)] || (!all && owner == named_[at(n)])) continue;
        named_[at(n)] = owner;
        const std::string number = std::to_string(n);
        QString name;
        if (owner >= 1 && owner <= 4) {
            name = m.message(Problem{msg::hexCounter, {number, colourName(owner - 1).toStdString()}});
        } else {
            const auto zone = static_cast<int>(&zoneOf(n) - zones.data());
            std::string zoneName;
            if (tables && lang >= 0 && lang < tableLanguages)
                zoneName = tables->rulestable[at(lang)][at(firstZoneNameRow + zone)];
            name = m.message(Problem{msg::hexFree, {number, zoneName}});
        }
        hexagons_[at(n)]->setAccessibleName(name);
    }
}

QString BoardKeys::scores() const {
    const BoardModel& b = form_.model();
    QStringList each;
    for (int p = 0; p < 4; ++p) {
        const ControlState& box = b.Label6[at(p + 1)];
        if (!box.visible) continue;
        each << QStringLiteral("%1 %2").arg(playerName(p)).arg(form_.game().scoreboxValue(p + 1));
    }
    return form_.module().message(msg::saidScores, each.join(QStringLiteral(", ")).toStdString());
}

QString BoardKeys::sentence(const GameEvent& e) const {
    Module1& m = form_.module();
    const ModuleTexts& t = m.state.texts;
    const std::string who = playerName(e.player).toStdString();
    const auto text = [&m](const Message& message, std::vector<std::string> args) {
        return m.message(Problem{message, std::move(args)});
    };
    using K = GameEvent::Kind;
    switch (e.kind) {
    case K::thrown: {
        std::vector<std::string> args = {who};
        for (i16 d : e.dice) args.push_back(std::to_string(d));
        return text(msg::saidThrow, args);
    }
    case K::claimed: {
        const Message& said = e.bonus == 200 ? msg::saidDoubleFendle : e.bonus == 100 ? msg::saidFendle : msg::saidMove;
        return text(said, {who, std::to_string(e.number), std::to_string(e.points)});
    }
    case K::illegal: return text(msg::saidIllegal, {who, std::to_string(e.number)});
    case K::turn: return QString::fromStdString(form_.game().turnLine(e.player));
    case K::outOfTime: return text(msg::saidOutOfTime, {who});
    case K::gameOver: return QString::fromStdString(t.gameovertext);
    case K::timeUp: return QString::fromStdString(t.solotimeouttext) + QStringLiteral(". ") + scores();
    case K::pathBonus: return text(msg::saidPathBonus, {colourName(e.player).toStdString()});
    case K::won: {
        const std::string* wins[4] = {&t.bluewinstext, &t.redwinstext, &t.greenwinstext, &t.yellowwinstext};
        return QString::fromStdString(*wins[at(e.player & 3)]) + QStringLiteral(". ") + scores();
    }
    case K::draw: return QString::fromStdString(t.drawtext) + QStringLiteral(". ") + scores();
    }
    return {};
}

void BoardKeys::afterSync() {
    if (!announcer_) return;
    nameHexagons(false);
    // The turn line stays under the typed number, whatever the sync showed.
    if (!line().isEmpty()) form_.control("Label2")->setVisible(false);
    if (pending_.empty()) return;
    QStringList said;
    bool moved = false;
    for (const GameEvent& e : pending_) {
        said << sentence(e);
        moved = moved || e.kind == GameEvent::Kind::turn;
        if (e.kind == GameEvent::Kind::turn) note_.clear();
    }
    pending_.clear();
    // A move lays the typed number away; after the move the keyboard is back on the board.
    if (!form_.game().takesANumber()) typed_.clear();
    showLine();
    if (moved) focusBoard();
    said.removeAll(QString());
    announcer_->say(said.join(QLatin1Char(' ')));
}

}  // namespace fendle
