// The form kit: label-buttons and labels click as they should, a control in
// front takes the click, and the choices report their changes. What controls
// paint, in every state and font, is held by the approved shots of every
// screen (tst_golden) and the fit check of tst_look.
#include <QAbstractButton>
#include <QTest>

#include "screens/kit/controls.h"
#include "screens/kit/native.h"
#include "screens/kit/painted.h"
#include "text/game_paths.h"

using namespace fendle;
using kit::Align;
using kit::Kind;
using kit::Row;

namespace {

constexpr Rgb yellow = colour::yellow, black = colour::black;

// Two label-buttons and a label, as the small screens have them: the first
// button holds the focus when the window shows.
constexpr Row sampleRows[] = {
    {.name = "Label8", .kind = Kind::Button, .left = 3240, .top = 3720, .width = 2175, .height = 435,
     .caption = "High Scores", .size = 15.75, .bold = true, .fore = yellow, .back = black, .border = true},
    {.name = "Label3", .index = 0, .kind = Kind::Button, .left = 4080, .top = 6120, .width = 1335, .height = 375,
     .caption = "Exit", .size = 12.75, .bold = true, .fore = yellow, .back = black, .align = Align::Centre,
     .border = true},
    {.name = "Label3", .index = 2, .kind = Kind::Label, .left = 120, .top = 2880, .width = 3120, .height = 600,
     .caption = "Set Total Time Allowed", .size = 20.25, .bold = true, .fore = yellow, .visible = false},
};

// A bare host for a table: a widget and its controls.
struct Host {
    QWidget widget;
    kit::Controls controls{&widget};
    explicit Host(std::span<const Row> rows = {}, QSize size = {400, 450}) {
        widget.resize(size);
        controls.build(rows);
    }
    bool shown() {
        widget.show();
        return QTest::qWaitForWindowExposed(&widget);
    }
    void click(QPoint at) { QTest::mouseClick(widget.windowHandle(), Qt::LeftButton, {}, at); }
};

}  // namespace

class FormKitTest : public QObject {
    Q_OBJECT

private slots:
    // The fonts the build made are in the game folder.
    void initTestCase() { useGameFolders({FENDLE_GAME_DIR, {}}); }

    // The focus comes from the keyboard only. A click presses the button
    // and leaves the focus where it was, unseen; the first Space after that
    // shows the focus, the next presses. Space and Enter press a button that
    // Tab reached. The other elements of the array are labels, served by the
    // same handler.
    void buttonTakesTheFocusFromTheKeyboardOnly() {
        Host host(sampleRows);
        QVERIFY(host.shown());
        QAbstractButton* exit = host.controls.get<kit::Button>("Label3", 0)->button();
        QList<int> clicked;
        host.controls.onClick("Label3", [&](int i) { clicked << i; });
        QTest::mouseClick(exit, Qt::LeftButton);
        QVERIFY(!exit->hasFocus());
        exit->setFocus(Qt::TabFocusReason);
        QTest::keyClick(exit, Qt::Key_Space);
        QTest::keyClick(exit, Qt::Key_Return);
        QTest::mouseClick(exit, Qt::LeftButton);
        QCOMPARE(clicked, (QList<int>{0, 0, 0, 0}));
        QTest::keyClick(exit, Qt::Key_Space);
        QCOMPARE(clicked.size(), 4);
        QTest::keyClick(exit, Qt::Key_Space);
        host.controls.find("Label3", 2)->setVisible(true);
        QTest::mouseClick(host.controls.find("Label3", 2)->widget(), Qt::LeftButton);
        QCOMPARE(clicked, (QList<int>{0, 0, 0, 0, 0, 2}));
    }

    // A windowed control stands in front of a light one that comes later in
    // its table, and takes its clicks; a line lets the clicks through to
    // what lies under it.
    void clicksGoToTheControlInFront() {
        constexpr Row rows[] = {
            {.name = "Check1", .kind = Kind::CheckBox, .left = 0, .top = 1500, .width = 1500, .height = 375},
            {.name = "Label9", .kind = Kind::Label, .left = 0, .top = 1500, .width = 1500, .height = 375},
            // A line from (210, 80) to (310, 20) pixels over a black label.
            {.name = "Label2", .kind = Kind::Label, .left = 3000, .top = 0, .width = 3000, .height = 1500,
             .back = black},
            {.name = "Line1", .kind = Kind::Line, .fore = colour::white, .lineWidth = 2, .x1 = 3150, .y1 = 1200,
             .x2 = 4650, .y2 = 300},
        };
        Host host(rows, {400, 150});
        QVERIFY(host.shown());
        QStringList clicked;
        for (const char* name : {"Label9", "Label2"})
            host.controls.onClick(name, [&, name](int) { clicked << name; });
        host.click({8, 112});
        QCOMPARE(host.controls.get<kit::CheckBox>("Check1")->value(), 1);
        host.click({260, 50});
        QCOMPARE(clicked, QStringList{"Label2"});
    }

    // Each option array is a group of its own.
    void optionsChooseWithinTheirArray() {
        constexpr Row rows[] = {
            {.name = "Option1", .index = 0, .kind = Kind::Option, .left = 0, .top = 0, .width = 1500, .height = 300},
            {.name = "Option1", .index = 1, .kind = Kind::Option, .left = 0, .top = 300, .width = 1500, .height = 300,
             .value = 1},
            {.name = "Option2", .index = 0, .kind = Kind::Option, .left = 2000, .top = 0, .width = 1500, .height = 300,
             .value = 1},
        };
        Host host(rows);
        QVERIFY(host.shown());
        auto o1 = [&](int i) { return host.controls.get<kit::OptionButton>("Option1", i); };
        auto* o2 = host.controls.get<kit::OptionButton>("Option2", 0);
        QTest::mouseClick(o1(0)->widget(), Qt::LeftButton, {}, QPoint(8, 10));
        QVERIFY(o1(0)->value() && !o1(1)->value() && o2->value());
    }
};

QTEST_MAIN(FormKitTest)
#include "tst_formkit.moc"
