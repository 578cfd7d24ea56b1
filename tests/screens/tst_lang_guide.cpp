// The language screen and the teachers' guide: the language at load and
// after a click, OK and its file, the keyboard, a languages.csv that may be
// missing or short, and the guide's ways in and out. A numlang.txt that
// cannot be written is tst_faults'.
#include "game_run.h"

using namespace fendle;
using testing::GameRun;

namespace {

QStringList optionCaptions(Form* f) {
    QStringList names;
    for (int i = 0; i < 7; ++i) names << GameRun::caption(f, "Option1", i);
    return names;
}
// The seven names as languages.csv writes them in a language (its line i + 1
// after the heading names language i).
QStringList csvNames(const GameRun& g, int lang) {
    const auto rows = g.table("text/languages.csv");
    QStringList names;
    for (std::size_t i = 0; i < 7; ++i) names << rows[i + 2][std::size_t(lang)];
    return names;
}
int chosen(Form* f) {
    for (int i = 0; i < 14; ++i)
        if (f->get<kit::OptionButton>("Option1", i)->value()) return i;
    return -1;
}

}  // namespace

class TestLangGuide : public QObject {
    Q_OBJECT

    // The title screen, then Change Language.
    static Form* languageScreen(GameRun& g) {
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label8");
        return g.screen("languages");
    }

private slots:
    // The language at load with languages.csv missing or short (whole, the
    // screen in each language is an approved shot): language 0 selects
    // nothing new, so nothing runs before the names are read and the design's
    // stay; any other counts as a click first and leaves blank names. The
    // load that stops opens at the page size, and OK works all the same.
    void theLanguageAtLoad() {
        const QStringList design = {"English", "Dutch", "French", "German", "Italian", "Spanish", "Welsh"};
        const struct {
            int lang, keep;   // bytes of languages.csv left; -1 removes it
        } cases[] = {{0, -1}, {3, -1}, {5, 200}};
        for (const auto& c : cases) {
            GameRun g;
            g.write("numlang.txt", QByteArray::number(c.lang) + "\r\n");
            const QStringList names = c.lang == 0 ? design : QStringList(7, QString());
            if (c.keep < 0) QVERIFY(QFile::remove(g.file("text/languages.csv")));
            else QVERIFY(QFile::resize(g.file("text/languages.csv"), c.keep));
            Form* languages = languageScreen(g);
            QVERIFY(languages && languages->isVisible());
            QCOMPARE(chosen(languages), c.lang);
            QCOMPARE(optionCaptions(languages), names);
            QCOMPARE(GameRun::caption(languages, "Command1"), g.table("text/text.csv")[4][std::size_t(c.lang)]);
            QCOMPARE(languages->size(), QSize(800, 600));
            GameRun::press(languages, "Command1");
            QCOMPARE(g.read("numlang.txt"), QByteArray::number(c.lang) + "\r\n");
            QVERIFY(!g.loaded("languages") && g.screen("Titlefrm")->isVisible());
            QVERIFY(g.messages.isEmpty());
        }
    }

    // Before any choice is saved the title screen opens in the desktop's
    // language; a saved choice wins over it.
    void theDesktopLanguageUntilAChoiceIsSaved() {
        const struct {
            const char *language, *lang, *numlang;
            int number;
        } cases[] = {
            {"", "fr_FR.UTF-8", nullptr, 1},
            {"cy:de", "de_DE.UTF-8", nullptr, 6},
            {"", "de_DE.UTF-8", "0\r\n", 0},
        };
        const QByteArray all = qgetenv("LC_ALL");
        for (const auto& c : cases) {
            qputenv("LC_ALL", "");
            qputenv("LANGUAGE", c.language);
            qputenv("LANG", c.lang);
            GameRun g;
            if (c.numlang) g.write("numlang.txt", c.numlang);
            g.open();
            QCOMPARE(g.module->state.languagenumber, c.number);
        }
        qputenv("LC_ALL", all);
    }

    // Each click turns the whole screen into the language clicked, at once;
    // OK keeps the last one in a file of one line and opens the title screen
    // in it. The column stays where the design width puts it.
    void aClickChangesTheScreenAndOkKeepsIt() {
        GameRun g;
        const auto text = g.table("text/text.csv");
        Form* languages = languageScreen(g);
        g.sound->played.clear();
        for (const std::size_t lang : {3, 5}) {
            GameRun::tick(languages, "Option1", int(lang));
            QCOMPARE(std::size_t(g.state().languagenumber), lang);
            QCOMPARE(optionCaptions(languages), csvNames(g, int(lang)));
            QCOMPARE(GameRun::caption(languages, "Label5"), text[3][lang]);
            QCOMPARE(GameRun::caption(languages, "Command1"), text[4][lang]);
            for (int i = 0; i < 7; ++i) QCOMPARE(languages->control("Option1", i)->leftTwips(), (5460.0 - 2295.0) / 2);
        }
        QVERIFY(g.sound->played.empty());

        GameRun::press(languages, "Command1");
        QCOMPARE(g.read("numlang.txt"), QByteArray("5\r\n"));
        QCOMPARE(QString::fromStdString(g.state().languagename), QString("Dutch"));
        Form* title = g.screen("Titlefrm");
        QVERIFY(title && !g.loaded("languages"));
        QCOMPARE(GameRun::caption(title, "Label8"), text[2][5]);
        QVERIFY(!GameRun::shows(title, "Label9"));   // no English layout
        QVERIFY(g.sound->played.empty());
    }

    // The title bar's close and Enter are OK; the arrow keys move the choice
    // through the seven, round from one end to the other.
    void theWindowAndTheKeyboard() {
        const std::pair<QList<int>, int> cases[] = {   // keys, then the language kept
            {{}, 0},   // the title bar's close
            {{Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, 2},
            {{Qt::Key_Up, Qt::Key_Enter}, 6},   // up from the top
            {QList<int>(8, Qt::Key_Down) + QList<int>{Qt::Key_Return}, 1},   // down past the bottom
        };
        for (const auto& [keys, language] : cases) {
            GameRun g;
            Form* languages = languageScreen(g);
            QCOMPARE(languages->focusWidget(), languages->control("Option1", 0)->widget());
            for (int key : keys) {
                QVERIFY(g.loaded("languages"));
                QTest::keyClick(languages->focusWidget(), Qt::Key(key));
            }
            if (g.loaded("languages")) {
                QCOMPARE(chosen(languages), language);
                QCOMPARE(languages->focusWidget(), languages->control("Option1", language)->widget());
                QCOMPARE(int(g.state().languagenumber), language);
                GameRun::closeByTitleBar(languages);
            }
            QVERIFY(!g.loaded("languages") && g.loaded("Titlefrm"));
            QCOMPARE(g.read("numlang.txt"), QByteArray::number(language) + "\r\n");
            QCOMPARE(int(g.state().languagenumber), language);
        }
    }

    // The guide opens in front of the title screen and blocks nothing; only
    // Exit closes it, without a sound, and leaving the title screen leaves
    // it open. Without its picture it opens all the same, at the page size.
    void theGuide() {
        GameRun g;
        QVERIFY(QFile::remove(g.file("Images/logo2.jpg")));
        g.state().computerlevel = 2;
        g.open();
        Form* title = g.screen("Titlefrm");
        GameRun::press(title, "Label9");
        Form* guide = g.screen("TeacherGuide");
        QVERIFY(guide && guide->isVisible() && title->isVisible());
        QCOMPARE(guide->size(), QSize(800, 600));
        QCOMPARE(guide->windowModality(), Qt::NonModal);
        QCOMPARE(int(g.state().computerlevel), 0);
        QVERIFY(g.sound->played.empty());

        for (const auto& [name, index] : {std::pair{"Label3", 1}, {"Label3", 2}, {"Label3", 3}, {"Label2", -1},
                                          {"Label4", -1}, {"Image2", -1}, {"Label5", -1}}) {
            GameRun::press(guide, name, index);
            QVERIFY2(g.loaded("TeacherGuide") && guide->isVisible(), name);
        }
        // The title screen still answers: Change Language leaves it, and the
        // guide stays.
        QWidget* change = title->control("Label8")->widget();
        QTest::mouseClick(title->windowHandle(), Qt::LeftButton, {}, change->mapTo(title, change->rect().center()));
        QVERIFY(g.loaded("languages") && !g.loaded("Titlefrm"));
        QVERIFY(g.loaded("TeacherGuide"));

        GameRun::press(guide, "Label3", 0);
        QVERIFY(!g.loaded("TeacherGuide"));
        QVERIFY(g.sound->played.empty());
    }
};

QTEST_MAIN(TestLangGuide)
#include "tst_lang_guide.moc"
