#include "engine/fen1.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "engine/dice_roll.h"
#include "engine/geometry.h"

namespace fendle {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

// A caption read as a number: its leading digits, as the game wrote them.
int captionValue(const std::string& caption) { return std::atoi(caption.c_str()); }

}  // namespace

Fen1::Fen1(ModuleState& moduleState, Ports ports) : module(moduleState), ports_(ports) {
    // Design values of the controls, before any language or game is applied.
    const ModuleTexts& t = module.texts;
    model.Label2.caption = turnLine(0);
    model.Label2.fore = colour::blueText;
    model.Label9 = {"FENDLE!", colour::red, {}, true, true};
    model.Label10 = {"You made an illegal move. You have lost your turn.", colour::white, {}, false, true};
    model.Label13 = {"Seconds Remaining", colour::blueText, {}, false, true};
    const char* buttons[3] = {"Exit", "New Game", "Throw Dice"};
    for (int i = 0; i < 3; ++i) model.Label3[at(i)] = {buttons[i], colour::blueText, colour::black, true, true};
    model.Label14 = {"Cheat Chart", colour::blueText, colour::black, true, true};
    model.ShowHow = {std::string(msg::showHowButton.english), colour::blueText, colour::black, false, true};
    model.HowText = {"", colour::white, colour::black, false, true};
    for (auto& die : model.Label4) die = {"", colour::black, colour::blue, true, false};
    const std::string names[4] = {t.bluename, t.redname, t.greenname, t.yellowname};
    for (int p = 0; p < 4; ++p) {
        model.Label5[at(p + 1)] = {names[p], players[at(p)].text, {}, p == 0, true};
        model.Label6[at(p + 1)] = {"", players[at(p)].digit, players[at(p)].face, p == 0, true};
        model.Label12[at(p)] = {"2000", colour::black, players[at(p)].face, false, true};
    }
    model.Label5[0] = {"Target Score", colour::blueText, {}, false, true};
    model.Label5[5] = {"5000", colour::blueText, {}, false, true};
    model.Label5[6] = {"The computer is playing as red.", colour::noteGrey, {}, false, true};
    model.Image3.left = 3720;
    model.Image3.top = 120;

    // All eleven timers stopped, at their intervals of the design.
    static constexpr int intervals[12] = {0, 2000, 250, 250, 250, 1000, 1000, 1000, 250, 200, 2000, 2000};
    for (int timer = Timer1; timer <= Timer11; ++timer) {
        ports_.timers.stop(timer);
        ports_.timers.setInterval(timer, intervals[timer]);
    }
    ports_.timers.bind([this](int timer) { timerTick(timer); });
}

Fen1::~Fen1() {
    for (int timer = Timer1; timer <= Timer11; ++timer) ports_.timers.stop(timer);
    ports_.timers.bind(nullptr);
}

void Fen1::Form_Load(float label100Width) {
    label100Width_ = label100Width;
    if (module.restartgame == 1) {
        turn = module.savedturn;
        ports_.timers.setInterval(Timer1, 1);
        ports_.timers.start(Timer1);
    } else {
        turn = -1;
    }
    movelist.fill(0);
    movecount = 1;
    if (module.restartgame == 1) {
        for (int i = 1; i <= 100; ++i) {
            if (module.boardowner[at(i)] > 0) {
                movelist[at(movecount - 1)] = static_cast<i16>(i);
                ++movecount;
            }
        }
    }
    if (module.timeallowed != 0) {
        for (int p = 0; p < module.nplayers && p < 4; ++p) {
            model.Label12[at(p)].caption = std::to_string(module.timeallowed);
            model.Label12[at(p)].visible = true;
        }
        model.Label13.visible = true;
    }
    winflash = 0;
    winner = 0;
    bluescore = redscore = greenscore = yellowscore = 0;
    search.tworesultcount = search.threeresultcount = search.fourresultcount = 0;
    for (int n = 1; n <= 100; ++n) {
        model.Label1[at(n)] = NumberLabel{};
        model.Image1[at(n)] = Picture{};
    }
    colourprimes();
    positionnumbers();
}

// ---------------------------------------------------------------- layout

void Fen1::colourprimes() {
    for (const int p : geometry::primes) model.Label1[at(p)].fore = colour::black;
}

void Fen1::positionnumbers() {
    for (int n = 1; n <= 100; ++n) {
        const geometry::LabelPlace label = geometry::numberLabelPlace(n, label100Width_);
        const geometry::LabelPlace counter = geometry::counterPlace(n, label100Width_);
        NumberLabel& l = model.Label1[at(n)];
        l.left = label.left;
        l.top = label.top;
        l.width = n == 100 ? label100Width_ : 480.0f;
        l.visible = true;
        model.Image1[at(n)].left = counter.left;
        model.Image1[at(n)].top = counter.top;
    }
    if (module.restartgame == 1) previousposition();
}

void Fen1::previousposition() {
    for (int i = 1; i <= 100; ++i) {
        const int owner = module.boardowner[at(i)];
        if (owner > 0 && owner <= 4) {
            const bool prime = model.Label1[at(i)].fore == colour::black;
            model.Label1[at(i)].visible = false;
            model.Image1[at(i)].picture = counterOf(i, owner - 1, false, prime);
            model.Image1[at(i)].visible = true;
        }
    }
    for (int i = 1; i <= 4; ++i) model.Label6[at(i)].caption = std::to_string(module.savedscores[at(i)]);
    bluescore = module.savedscores[1];
    redscore = module.savedscores[2];
    greenscore = module.savedscores[3];
    yellowscore = module.savedscores[4];
    for (int i = 0; i <= 3; ++i) {
        model.Label12[at(i)].caption = std::to_string(module.savedseconds[at(i + 1)]);
        if (module.savedseconds[at(i + 1)] < 1) model.Label6[at(i + 1)].enabled = false;
    }
}

void Fen1::showPlayers(int count) {
    for (int p = 1; p <= count && p <= 4; ++p) {
        model.Label5[at(p)].visible = true;
        model.Label6[at(p)].visible = true;
    }
}

std::string Fen1::turnLine(int playerIndex) const {
    const ModuleTexts& t = module.texts;
    const std::string* names[4] = {&t.bluename, &t.redname, &t.greenname, &t.yellowname};
    return fendle::turnLine(module.languagenumber, *names[at(playerIndex & 3)], playword);
}

// ---------------------------------------------------------------- helpers

i16& Fen1::score(int playerIndex) {
    switch (playerIndex) {
    case 0: return bluescore;
    case 1: return redscore;
    case 2: return greenscore;
    default: return yellowscore;
    }
}

int Fen1::scoreboxValue(int playerNumber) const { return captionValue(model.Label6[at(playerNumber)].caption); }

void Fen1::playIfSound(std::string_view wave) {
    if (module.soundon == 1) ports_.sound.playwave(wave);
}

std::string Fen1::counterOf(int n, int p, bool flash, bool prime) const {
    if (module.countermarks == 1) return markedCounterPicture(n, p, flash, prime);
    return counterPicture(n, flash ? "wh" : players[at(p)].prefix, prime);
}

void Fen1::stepTurn() {
    turn = static_cast<i16>(turn >= turnLimit ? turn - turnFold + 1 : turn + 1);
}

void Fen1::dimDice() {
    for (auto& die : model.Label4) die.enabled = false;
}

void Fen1::timerTick(int timer) {
    switch (timer) {
    case Timer1: Timer1_Timer(); break;
    case Timer2: Timer2_Timer(); break;
    case Timer3: Timer3_Timer(); break;
    case Timer4: Timer4_Timer(); break;
    case Timer5: Timer5_Timer(); break;
    case Timer6: Timer6_Timer(); break;
    case Timer7: Timer7_Timer(); break;
    case Timer8: Timer8_Timer(); break;
    case Timer9: Timer9_Timer(); break;
    case Timer10: Timer10_Timer(); break;
    case Timer11: Timer11_Timer(); break;
    default: break;
    }
}

// ---------------------------------------------------------------- buttons

void Fen1::Label3_Click(i16 Index) {
    // Every button first hides the illegal-move line, readies the dice faces
    // in the colour of the player on turn, and clears the search.
    model.Label10.visible = false;
    const Rgb line = model.Label2.fore;
    const Rgb face = line == colour::blueText ? colour::blue : line;
    const Rgb digit = (face == colour::blue || face == colour::red) ? colour::white : colour::black;
    for (auto& die : model.Label4) {
        die.caption.clear();
        die.back = face;
        die.fore = digit;
    }
    search.clearForButton();

    if (Index == button::exitGame) {
        if (winner == 0 && turn > 0) ports_.screens.savegame();
        ports_.screens.show("Titlefrm");
        ports_.screens.unload("Cheatchart");
        ports_.screens.unload("fen1");
        playIfSound("wav\\click.wav");
        return;
    }
    if (Index == button::newGame) {
        module.boardowner.fill(0);
        ports_.screens.show("Startplay2");
        ports_.screens.unload("Cheatchart");
        ports_.screens.unload("fen1");
        playIfSound("wav\\click.wav");
        return;
    }
    if (Index != button::throwDice) return;

    model.Label3[button::throwDice].enabled = false;
    model.ShowHow.visible = false;
    model.HowText.visible = false;
    Random& random = ports_.random;
    random.randomize();
    // A board with no free hexagon has no throw to offer; the end of the
    // game has been decided before that can happen, but never loop for ever.
    bool anyFree = false;
    for (int n = 1; n <= 100; ++n) anyFree = anyFree || !model.Image1[at(n)].visible;
    for (;;) {
        diceroll::draw(random, module.dice);
        diceroll::start(ports_.timers, module.soundon == 1, module.dicerevealed);

        search.dice = module.dice;
        search.allowednumbers();
        search.allowednumbers2();
        int unusable = 0;
        for (int n = 1; n <= 100; ++n)
            if (search.allowed[at(n)] == 0 || model.Image1[at(n)].visible) ++unusable;
        if (unusable < 100 || !anyFree) break;
    }
    playIfSound("wav\\cupdice.wav");
}

// ---------------------------------------------------------------- dice

static_assert(Timer5 == diceroll::stopTimer && Timer8 == diceroll::spinTimer);

void Fen1::Timer8_Timer() { diceroll::spin(ports_.timers, ports_.random, module.dicerevealed, model.Label4); }

void Fen1::Timer5_Timer() {
    if (!diceroll::stop(ports_.timers, module.dicerevealed, module.dice, model.Label4)) return;
    tell({.kind = GameEvent::Kind::thrown, .player = (turn + 1) % module.nplayers,
          .dice = {module.dice[0], module.dice[1], module.dice[2], module.dice[3]}});
    // The fourth die has stopped: the computer may play, the clock runs.
    if (turn % 2 == 0 && module.computerlevel != 0) ports_.timers.start(Timer6);
    if (module.timeallowed != 0) ports_.timers.start(Timer7);
}

// ---------------------------------------------------------------- the move

bool Fen1::takesANumber() const {
    return !ports_.timers.running(Timer1) && model.Label4[0].enabled && !ports_.timers.running(Timer5) && winner <= 0;
}

bool Fen1::computersTurn() const { return module.computerlevel != 0 && module.nplayers == 2 && (turn + 1) % 2 == 1; }

void Fen1::Label1_Click(i16 Index) {
    if (!takesANumber()) return;
    if (Index < 1 || Index > 100) return;
    const int n = Index;

    ports_.timers.stop(Timer7);
    stepTurn();

    MoveRecord& move = moves.emplace_back();
    move.player = turn % module.nplayers;
    move.computer = computerMoving_;
    for (int d = 0; d < 4; ++d) move.dice[at(d)] = module.dice[at(d)];
    move.number = n;
    model.ShowHow.visible = true;

    if (search.allowed[at(n)] == 0) {
        move.best = bestChoice();
        if (move.best) move.bestPoints = zoneOf(move.best).reward + checkfendle(move.best);
        for (auto& clock : model.Label12) clock.visible = false;
        model.Label13.visible = false;
        model.Label10.visible = true;
        ports_.timers.start(Timer1);
        playIfSound("wav\\boink.wav");
        tell({.kind = GameEvent::Kind::illegal, .player = turn % module.nplayers, .number = n});
        return;
    }

    static constexpr const char* rewardSounds[] = {"wav\\click1.wav", "wav\\click.wav",   "wav\\space.wav",
                                                   "wav\\key.wav",    "wav\\boom.wav",    "wav\\subping.wav",
                                                   "wav\\laser3.wav"};
    const Zone& zone = zoneOf(n);
    const i16 bonus = checkfendle(static_cast<i16>(n));
    if (bonus == 0) {
        playIfSound(rewardSounds[&zone - zones.data()]);
    } else if (bonus == 100) {
        playIfSound("wav\\cash.wav");
        ports_.timers.start(Timer2);
    } else {
        playIfSound("wav\\cheer2.wav");
        ports_.timers.start(Timer4);
    }
    const int points = zone.reward + bonus;
    const int p = turn % module.nplayers;
    move.legal = true;
    move.points = points;
    move.bonus = bonus;
    i16& s = score(p);
    s = static_cast<i16>(std::min(s + points, 32767));
    model.Label6[at(p + 1)].caption = std::to_string(s);
    module.boardowner[at(n)] = static_cast<i16>(p + 1);
    if (movecount >= 1 && movecount <= 100) {
        movelist[at(movecount - 1)] = static_cast<i16>(n);
        movelist[at(movecount)] = 0;
        ++movecount;
    }
    if (module.languagenumber == 6) {
        model.Label2.fontSize = 19;
        model.Label2.top = 120;
    }
    model.Label2.caption = std::to_string(points) + " " + module.texts.pointstext;
    const bool prime = model.Label1[at(n)].fore == colour::black;
    model.Label1[at(n)].visible = false;
    Picture& counter = model.Image1[at(n)];
    counter.picture = counterOf(n, p, false, prime);
    counter.visible = true;
    model.Image3.picture = counterOf(n, p, true, prime);
    model.Image3.left = counter.left;
    model.Image3.top = counter.top;
    ports_.timers.start(Timer9);
    ports_.timers.start(Timer1);
    tell({.kind = GameEvent::Kind::claimed, .player = p, .number = n, .points = points, .bonus = bonus});
}

// ---------------------------------------------------------------- flashes

void Fen1::Timer9_Timer() {
    module.counterflash = static_cast<i16>(module.counterflash + 1);
    model.Image3.visible = module.counterflash % 2 == 1;
    if (module.counterflash >= 10) {
        module.counterflash = 0;
        ports_.timers.stop(Timer9);
    }
}

void Fen1::Timer2_Timer() {
    module.fendleflash = static_cast<i16>(module.fendleflash + 1);
    model.Label9.fore = module.fendleflash % 2 == 1 ? colour::yellow : colour::red;
    if (module.fendleflash >= 10) {
        module.fendleflash = 0;
        ports_.timers.stop(Timer2);
    }
}

void Fen1::Timer4_Timer() {
    module.fendleflash = static_cast<i16>(module.fendleflash + 1);
    if (module.fendleflash % 2 == 1) {
        model.Label9.fore = colour::yellow;
        model.Label9.caption = module.texts.doublefendletext;
    } else {
        model.Label9.fore = colour::red;
        model.Label9.caption = "FENDLE!";
    }
    if (module.fendleflash >= 10) {
        module.fendleflash = 0;
        ports_.timers.stop(Timer4);
    }
}

void Fen1::Timer3_Timer() {
    if (winflash >= winflashLimit) winflash = static_cast<i16>(winflash - winflashLimit);
    winflash = static_cast<i16>(winflash + 1);
    if (winflash % 2 == 1) model.Label2.fore = colour::white;
    else if (winner >= 1 && winner <= 4) model.Label2.fore = players[at(winner - 1)].text;
}

// ---------------------------------------------------------------- the wind-up

void Fen1::Timer1_Timer() {
    ports_.timers.setInterval(Timer1, 2000);
    checkendofgame();
    if (winner > 0) {
        ports_.timers.stop(Timer1);
        return;
    }
    // The next player in play: each player out of time costs one step of turn.
    turn = static_cast<i16>(turn - 1);
    int q = 0;
    for (int tries = 0; tries <= module.nplayers; ++tries) {
        stepTurn();
        q = (turn + 1) % module.nplayers;
        if (model.Label6[at(q + 1)].enabled) break;
    }
    if (module.languagenumber == 6) {
        model.Label2.visible = false;
        model.Label2.fontSize = 28;
        model.Label2.top = 0;
        model.Label2.visible = true;
    }
    const Rgb c = players[at(q)].text;
    for (auto& b : model.Label3) b.fore = c;
    model.Label14.fore = c;
    model.ShowHow.fore = c;
    model.Label5[0].fore = c;
    model.Label5[5].fore = c;
    model.Label13.fore = c;
    model.Label2.fore = c;
    model.Label2.caption = turnLine(q);
    if (q == 1 && turn % 2 == 0 && module.computerlevel != 0) Label3_Click(button::throwDice);
    if (module.timeallowed != 0) {
        for (int p = 0; p < module.nplayers && p < 4; ++p) model.Label12[at(p)].visible = true;
        model.Label13.visible = true;
    }
    model.Label10.visible = false;
    ports_.timers.stop(Timer1);
    tell({.kind = GameEvent::Kind::turn, .player = q});
}

// ---------------------------------------------------------------- the computer

void Fen1::Timer6_Timer() {
    Random& random = ports_.random;
    random.randomize();
    int level = module.computerlevel;
    if (level == 2) level = 2 * static_cast<int>(std::floor(2 * random.rnd())) + 1;
    bool any = false;
    for (int n = 1; n <= 100; ++n) any = any || isCandidate(n);

    i16 choice = 0;
    if (level == 1 && any) {
        // A uniform choice among the candidates. (Without one, a click that
        // beat the computer to the only number has ended this turn already.)
        int n = 0;
        do {
            random.randomize();
            n = static_cast<int>(std::floor(100 * random.rnd() + 1));
        } while (n < 1 || n > 100 || !isCandidate(n));
        choice = static_cast<i16>(n);
    } else if (level == 3) {
        choice = bestChoice();
    }
    computerMoving_ = true;
    if (choice != 0) Label1_Click(choice);
    computerMoving_ = false;
    ports_.timers.stop(Timer6);
}

bool Fen1::isCandidate(int n) const { return search.allowed[at(n)] == 1.0 && model.Label1[at(n)].visible; }

i16 Fen1::bestChoice() const {
    i16 choice = 0;
    int best = 0;
    for (int n = 1; n <= 100; ++n) {
        if (!isCandidate(n)) continue;
        const int value = zoneOf(n).reward + checkfendle(static_cast<i16>(n));
        if (value > best) {
            best = value;
            choice = static_cast<i16>(n);
        }
    }
    return choice;
}

// ---------------------------------------------------------------- Show me how

void Fen1::ShowHow_Click() {
    if (!model.ShowHow.visible || moves.empty()) return;
    model.HowText.visible = !model.HowText.visible;
    if (model.HowText.visible) model.HowText.caption = howText(moves.back(), howWords);
}

// ---------------------------------------------------------------- the clock

void Fen1::Timer7_Timer() {
    if (winner > 0) return;
    const int p = (turn + 1) % module.nplayers;
    ControlState& clock = model.Label12[at(p)];
    const int left = captionValue(clock.caption) - 1;
    clock.caption = std::to_string(left);
    if (left <= 0) {
        model.Label6[at(p + 1)].enabled = false;
        playIfSound("wav\\gong.wav");
        tell({.kind = GameEvent::Kind::outOfTime, .player = p});
        ports_.timers.stop(Timer7);
        ports_.timers.start(Timer1);
    }
}

// ---------------------------------------------------------------- the bonus

bool Fen1::neighbours(int p, int q) const {
    const NumberLabel& a = model.Label1[at(p)];
    const NumberLabel& b = model.Label1[at(q)];
    const float dx = std::fabs(a.left - b.left);   // differences in single precision
    const float dy = std::fabs(a.top - b.top);
    return dx < 2.1 * geometry::hexhalfwidth && dy < 1.1 * geometry::hexrowheight;
}

i16 Fen1::checkfendle(i16 n) const {
    i16 bonus = 0;
    for (int i = 1; i <= 100; ++i) {
        if (i == n || !neighbours(i, n) || model.Label1[at(i)].visible) continue;
        for (int j = 1; j <= 100; ++j) {
            if (j != i && j != n && neighbours(j, n) && neighbours(i, j) && !model.Label1[at(j)].visible)
                bonus = 100;
        }
    }
    if (model.Label1[at(n)].fore == colour::black) bonus = static_cast<i16>(bonus * 2);
    return bonus;
}

// ---------------------------------------------------------------- the path

i16 Fen1::okToCheck() {
    for (int i = 0; i <= movecount - 1 && i <= 100; ++i) {
        switch (movelist[at(i)]) {
        case 1: hasone = vbTrue; break;
        case 2: hastwo = vbTrue; break;
        case 3: hasthree = vbTrue; break;
        case 100: hashundred = vbTrue; break;
        default: break;
        }
    }
    if (movecount > 18) hasenough = vbTrue;
    if (hasone && hashundred && hasenough && (hastwo || hasthree)) readytocheck = vbTrue;
    return readytocheck;
}

// nextnode among the targets of jumps 0 to jumpcount - 1.
bool Fen1::inPrevPath() const { return nextnode >= 0 && nextnode <= 100 && isTarget_[at(nextnode)]; }

// nextnode among movelist 0 to movecount - 1 (which holds a 0 behind the last
// counter); if not, the walk moves on to the next slot.
void Fen1::inArraytest() {
    inarrayflag = nextnode >= 0 && nextnode <= 100 && inMovelist_[at(nextnode)] ? vbTrue : vbFalse;
    if (!inarrayflag) ++nodeindex;
}

void Fen1::saveJump() {
    if (jumpcount <= 100) jumps[at(jumpcount)] = {currentnode, nodeindex, nextnode};
    if (nextnode >= 0 && nextnode <= 100) isTarget_[at(nextnode)] = true;
    jumpedback = vbFalse;
    ++jumpcount;
    jumpback = 1;
}

void Fen1::doJumpBack() {
    if (jumpcount < jumpback && jumpcount != 0) {
        jumpback = 1;
        ++wrapcount;
        if (wrapcount > 1) gaveup = vbTrue;
    }
    if (jumpcount < jumpback) gaveup = vbTrue;
    if (!gaveup) {
        const Jump& j = jumps[at(jumpcount - jumpback)];
        currentnode = j.node;
        if (currentnode == 0) backatstart = vbTrue;
        jumpedback = vbTrue;
        nodeindex = static_cast<i16>(j.index + 1);
    }
}

void Fen1::checkelement(i16& element) {
    element = module.connarray[at(currentnode)][at(nodeindex)];
    if (nodeindex == 6) return;
    if (element == 0 || inPrevPath()) {
        ++nodeindex;
        return;
    }
    inArraytest();
    if (!inarrayflag) return;
    saveJump();
    nodeindex = 0;
    currentnode = static_cast<i16>(element - 1);
}

void Fen1::findPath() {
    // Every step advances a slot, enters a hexagon not yet entered, or moves
    // the step back on; the second wrap gives up. The bound only guards
    // against a neighbour table that is not the board's.
    for (long guard = 0; guard < 1000000; ++guard) {
        if (backatstart && nodeindex == 6) break;
        if (gaveup) break;
        if (nodeindex == 6 && jumpedback) {
            jumpedback = vbFalse;
            nodeindex = 0;
        }
        nextnode = module.connarray[at(currentnode)][at(nodeindex)];
        i16 element = 0;
        checkelement(element);
        if (nodeindex == 6) {
            ++jumpback;
            if (jumpback == jumpcount) continue;
            doJumpBack();
        }
        if (nextnode == 100) {
            pathfound = vbTrue;
            break;
        }
    }
}

void Fen1::fitLabel2(Moment moment) {
    struct Fit {
        int top;          // -1 keeps the top
        double size;      // 0 keeps the size
    };
    // By language 0 to 6: at the end of the game, with the path bonus, with the winner.
    static constexpr Fit table[3][7] = {
        {{-1, 0}, {-1, 0}, {-1, 0}, {120, 19}, {-1, 0}, {120, 19}, {120, 24}},
        {{-1, 0}, {120, 19}, {-1, 24}, {-1, 0}, {-1, 0}, {-1, 0}, {-1, 0}},
        {{-1, 0}, {120, 19}, {-1, 24}, {120, 19}, {-1, 0}, {120, 22}, {120, 19}},
    };
    const int lang = module.languagenumber;
    if (lang < 0 || lang > 6) return;
    const Fit& f = table[static_cast<int>(moment)][lang];
    if (f.top >= 0) model.Label2.top = f.top;
    if (f.size > 0) model.Label2.fontSize = f.size;
}

void Fen1::checkendofgame() {
    wrapcount = gaveup = 0;
    hasone = hastwo = hasthree = hashundred = hasenough = readytocheck = 0;
    jumpcount = currentnode = nodeindex = jumpback = jumpedback = backatstart = pathfound = 0;
    isTarget_.fill(false);
    inMovelist_.fill(false);
    for (int i = 0; i <= movecount - 1 && i <= 100; ++i) inMovelist_[at(movelist[at(i)])] = true;

    if (okToCheck()) findPath();
    // A full board always holds a path, even where the walk gives up early.
    if (!pathfound && movecount > 100) pathfound = vbTrue;

    if (pathfound) {
        winner = static_cast<i16>(turn % module.nplayers + 1);
        ports_.timers.stop(Timer1);
        if (module.soundon == 1) {
            ports_.sound.playwave("wav\\crowd.wav");
            module.soundon = 0;
        }
        fitLabel2(Moment::endOfGame);
        model.Label2.caption = module.texts.gameovertext;
        tell({.kind = GameEvent::Kind::gameOver});
        ports_.timers.start(Timer10);
        ports_.timers.start(Timer3);
        return;
    }
    int inplay = 0;
    for (int i = 1; i <= 4; ++i)
        if (model.Label6[at(i)].visible && model.Label6[at(i)].enabled) ++inplay;
    if (inplay == 0 && module.nplayers > 1) {
        winner = 5;
        ports_.timers.stop(Timer1);
        fitLabel2(Moment::endOfGame);
        model.Label2.caption = module.texts.gameovertext;
        tell({.kind = GameEvent::Kind::gameOver});
        ports_.timers.start(Timer11);
        ports_.timers.start(Timer3);
        if (module.soundon == 1) {
            ports_.sound.playwave("wav\\crowd.wav");
            module.soundon = 0;
        }
        return;
    }
    if (inplay == 0) {
        winner = 1;
        ports_.timers.stop(Timer1);
        model.Label2.fore = colour::blueText;
        fitLabel2(Moment::endOfGame);
        model.Label2.caption = module.texts.solotimeouttext;
        tell({.kind = GameEvent::Kind::timeUp});
        ports_.timers.start(Timer3);
        if (module.soundon == 1) {
            ports_.sound.playwave("wav\\crowd.wav");
            module.soundon = 0;
        }
        ports_.screens.checkhighscore();
        return;
    }
    winner = 0;
    dimDice();
    model.Label3[button::throwDice].enabled = true;
}

// ---------------------------------------------------------------- the ending

void Fen1::Timer10_Timer() {
    const ModuleTexts& t = module.texts;
    const Rgb mover = model.Label3[button::throwDice].fore;
    const std::string* names[4] = {&t.bluename, &t.redname, &t.greenname, &t.yellowname};
    std::string name;
    for (int p = 0; p < 4; ++p) {
        if (mover == players[at(p)].text) {
            ControlState& box = model.Label6[at(p + 1)];
            box.caption = std::to_string(captionValue(box.caption) + 500);
            name = *names[p];
            tell({.kind = GameEvent::Kind::pathBonus, .player = p, .points = 500});
            break;
        }
    }
    fitLabel2(Moment::pathBonus);
    model.Label2.caption = pathbonustext + " " + name;
    ports_.timers.stop(Timer10);
    ports_.timers.start(Timer11);
}

void Fen1::Timer11_Timer() {
    int best = scoreboxValue(1);
    int bestplayer = 1;
    for (int i = 2; i <= 4; ++i) {
        if (scoreboxValue(i) > best) {
            best = scoreboxValue(i);
            bestplayer = i;
        }
    }
    winner = static_cast<i16>(bestplayer);
    for (int i = 1; i <= 4; ++i)
        if (i != bestplayer && scoreboxValue(i) == best) winner = 5;

    fitLabel2(Moment::winnerLine);
    const ModuleTexts& t = module.texts;
    switch (winner) {
    case 1: model.Label2.fore = colour::blueText; model.Label2.caption = t.bluewinstext; break;
    case 2: model.Label2.fore = colour::red; model.Label2.caption = t.redwinstext; break;
    case 3: model.Label2.fore = colour::green; model.Label2.caption = t.greenwinstext; break;
    case 4: model.Label2.fore = colour::yellow; model.Label2.caption = t.yellowwinstext; break;
    default:
        model.Label2.fore = colour::black;
        model.Label2.caption = t.drawtext;
        if (module.languagenumber == 2) {
            model.Label2.top = 120;
            model.Label2.fontSize = 20;
        }
        break;
    }
    if (winner >= 1 && winner <= 4) tell({.kind = GameEvent::Kind::won, .player = winner - 1});
    else tell({.kind = GameEvent::Kind::draw});
    ports_.screens.checkhighscore();
    ports_.timers.stop(Timer11);
}

}  // namespace fendle
