// The scale of the windows: the scale chosen for common screens, the scales a
// user may ask for, and, run at scale 2, every picture of every screen drawn
// from its twin at twice the resolution.
#include <QtTest>

#include "game_run.h"
#include "screens/scale.h"

using namespace fendle;

class TestScale : public QObject {
    Q_OBJECT

private slots:
    void chosenForCommonScreens() {
        // The board's page is 800 x 600 and needs 16 x 64 more for its frame;
        // the scale is the largest eighth at which page and frame still fit.
        struct Case {
            QSize screen;
            double scale;
        };
        const Case cases[] = {
            {{800, 600}, 1.0},       // too small for the frame too: never below 1
            {{640, 480}, 1.0},
            {{1024, 768}, 1.125},    // (768 - 64) / 600 = 1.17
            {{1366, 768}, 1.125},
            {{1280, 1024}, 1.5},     // (1280 - 16) / 800 = 1.58 across; 1.6 down
            {{1920, 1080}, 1.625},   // (1080 - 64) / 600 = 1.69
            {{2560, 1440}, 2.25},    // 2.29
            {{3840, 2160}, 3.375},   // 3.49
        };
        for (const Case& c : cases) QCOMPARE(chooseScale(c.screen), c.scale);
    }

    void explicitScales() {
        const std::pair<const char*, std::optional<double>> cases[] = {
            {"1", 1.0}, {"1.5", 1.5}, {" 2 ", 2.0}, {"0.5", 0.5}, {"8", 8.0},
            {"0.4", std::nullopt}, {"8.5", std::nullopt}, {"", std::nullopt}, {"two", std::nullopt},
            {"nan", std::nullopt}, {"inf", std::nullopt}, {"1,5", std::nullopt},
        };
        for (const auto& [text, want] : cases) QVERIFY2(parseScale(QString::fromLatin1(text)) == want, text);
    }

    // Every screen with a counter on the board: each picture it shows has
    // the ratio of the screen, so at scale 2 it comes from its twin.
    void everyPictureAtTheScreensResolution() {
        testing::GameRun run;
        Module1& m = *run.module;
        run.open();
        m.state.nplayers = 2;
        for (const std::string& name : m.screens.names()) m.screens.form(name);
        Fen1Form* board = run.board();
        board->game().showPlayers(2);
        board->sync();
        m.screens.show(Fen1Form::formName);
        run.throwDice({6, 5, 4, 3});
        run.clickHexagon(18);
        QStringList wrong;
        int pictures = 0;
        for (const std::string& name : m.screens.names()) {
            Form* f = m.screens.form(name);
            const qreal ratio = f->devicePixelRatioF();
            std::vector<std::pair<QString, const QPixmap*>> shown = {{QString::fromStdString(name), &f->picture()}};
            for (QWidget* w : f->findChildren<QWidget*>()) {
                const QString at = QString::fromStdString(name) + ' ' + w->objectName();
                if (auto* image = dynamic_cast<const kit::Image*>(w)) shown.push_back({at, &image->pixmap()});
                if (auto* box = dynamic_cast<const kit::PictureBox*>(w)) shown.push_back({at, &box->pixmap()});
            }
            for (const auto& [at, pm] : shown) {
                if (pm->isNull()) continue;
                ++pictures;
                if (pm->devicePixelRatio() != ratio) wrong << at;
            }
        }
        QVERIFY(pictures >= 9);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join('\n')));
    }
};

QTEST_MAIN(TestScale)
#include "tst_scale.moc"
