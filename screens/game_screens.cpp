#include "screens/game_screens.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QTimer>

#include "screens/cheatchart.h"
#include "screens/fen1_form.h"
#include "saved/lastgame.h"
#include "screens/highscores_form.h"
#include "screens/languages_form.h"
#include "screens/module1.h"
#include "screens/rulepages.h"
#include "screens/startautoplay2.h"
#include "screens/startplay2.h"
#include "screens/teacherguide.h"
#include "screens/titlefrm.h"
#include "text/file_io.h"
#include "text/text_tables.h"

namespace fendle {

namespace {

MessageSink& sink() {
    static MessageSink s;
    return s;
}

}  // namespace

void defineGameScreens(Module1& module) {
    ScreenRegistry& screens = module.screens;
    screens.define<Titlefrm>(Titlefrm::formName);
    screens.define<Startplay2>(Startplay2::formName);
    screens.define<Startautoplay2>(Startautoplay2::formName);
    screens.define<Highscores>(Highscores::formName);
    screens.define<Fen1Form>(Fen1Form::formName);
    screens.define<Languages>(Languages::formName);
    screens.define<TeacherGuide>(TeacherGuide::formName);
    screens.define<Cheatchart>(Cheatchart::formName);
    defineRulePages(screens);
    screens.onSavegame = [&module] { savegame(module); };
    screens.onCheckhighscore = [&module] { checkhighscore(module); };
}

Fen1Form* loadedBoard(Module1& module) {
    if (!module.screens.isLoaded(Fen1Form::formName)) return nullptr;
    return module.screens.get<Fen1Form>(Fen1Form::formName);
}

void savegame(Module1& module) {
    Fen1Form* board = loadedBoard(module);
    if (!board) return;
    // A failed write keeps the game saved before, whole. The pupil is told
    // once the board has gone and the title screen stands, not in the middle
    // of Exit while the board's timers could still tick.
    if (!writeLastgame(gamePath(lastgameFile), makeSavedGame(module.state, board->game()))) {
        const QString text = module.message(msg::gameNotSaved);
        QTimer::singleShot(0, QCoreApplication::instance(), [text] { tellUser(text); });
    }
}


void setMessageSink(MessageSink s) { sink() = std::move(s); }

void tellUser(const QString& text) {
    if (sink()) {
        sink()(text);
        return;
    }
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Fendle!"), text, QMessageBox::Ok);
    // In front of the high-score screen, which stays on top of the others.
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.exec();
}

void stopForMissingFile(Module1& module, const Problem& what) {
    tellUser(module.message(msg::cannotGoOn, module.message(what).toStdString()));
    module.endProgram();
    QCoreApplication::exit(1);
}

}  // namespace fendle
