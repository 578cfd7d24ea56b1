// How the screens meet people who do not use them as the designer did: a
// keyboard focus that never sits unseen on a button.
#include "game_run.h"

using namespace fendle;
using testing::GameRun;

namespace {

// A board shown as the set-up screens leave it.
Fen1Form* showBoard(GameRun& g, int nplayers, int timeallowed = 0) {
    g.state().nplayers = static_cast<i16>(nplayers);
    g.state().timeallowed = static_cast<i16>(timeallowed);
    auto* f = g.module->screens.get<Fen1Form>(Fen1Form::formName);
    f->game().showPlayers(nplayers);
    f->sync();
    g.module->screens.show(Fen1Form::formName);
    return f;
}

QImage render(QWidget* w) { return w->grab().toImage().convertToFormat(QImage::Format_RGB32); }

}  // namespace

class TestLook : public QObject {
    Q_OBJECT

private slots:
    // Throw Dice clicked: no button takes the focus, none wears a frame, and
    // a Space later presses nothing. Tab shows where the focus is.
    void theFocusComesOnlyFromTheKeyboard() {
        GameRun g;
        Fen1Form* f = showBoard(g, 2);
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        auto focusedButton = [] { return qobject_cast<kit::Button*>(QApplication::focusWidget()); };
        auto framed = [](kit::Control* button) {
            // A dotted frame three pixels in, in the text's colour, on the black face.
            const QImage img = render(button->widget());
            const QRgb dot = kit::toQColor(button->foreColor()).rgb();
            int dots = 0;
            for (int x = 4; x < img.width() - 4; ++x) dots += img.pixel(x, 3) == dot;
            return dots > img.width() / 4;
        };
        QVERIFY(!focusedButton());
        g.scriptDice({1, 2, 3, 4});
        QTest::mouseClick(f->windowHandle(), Qt::LeftButton, {}, f->control("Label3", button::throwDice)->widget()->geometry().center());
        g.clock.advance(2250);
        QVERIFY(!f->control("Label3", button::throwDice)->enabled());
        QVERIFY(!focusedButton());
        QVERIFY(!framed(f->control("Label14")));
        const auto sounds = g.sound->played.size();
        QTest::keyClick(f->windowHandle(), Qt::Key_Space);
        QCOMPARE(g.sound->played.size(), sounds);
        QVERIFY(g.board());

        QTest::keyClick(f->windowHandle(), Qt::Key_Tab);
        kit::Button* b = focusedButton();
        QVERIFY(b && b->window() == f);
        QVERIFY(framed(b));
    }
};

QTEST_MAIN(TestLook)
#include "tst_look.moc"
