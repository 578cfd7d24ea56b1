// The form kit: labels and label-buttons paint and click as they should, the
// bold Tahoma is bold, and the choices report their changes. How labels fit
// their words is held by the approved shots of every screen (tst_golden) and
// the fit check of tst_look.
#include <QAbstractButton>
#include <QFile>
#include <QFontMetricsF>
#include <QRawFont>
#include <QImage>
#include <QPainter>
#include <QTest>

#include "screens/kit/controls.h"
#include "screens/kit/native.h"
#include "screens/kit/painted.h"
#include "screens/kit/units.h"
#include "text/game_paths.h"

using namespace fendle;
using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;

namespace {

constexpr Rgb yellow = colour::yellow, black = colour::black;

// Two label-buttons and a label, as the small screens have them.
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

int countColour(const QImage& img, QRgb colour, QRect area = {}) {
    if (area.isNull()) area = img.rect();
    int n = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if ((img.pixel(x, y) & 0xFFFFFF) == (colour & 0xFFFFFF)) ++n;
    return n;
}

QImage render(QWidget& w) { return w.grab().toImage().convertToFormat(QImage::Format_RGB32); }

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

    // The bold Tahoma draws stems visibly heavier than the regular, and
    // every character takes the room it takes in the clone's bold file, so
    // that no layout moves.
    void boldTahomaIsBoldAtTheClonesWidths() {
        const QString cloneBold = QStringLiteral("/usr/share/wine/fonts/tahomabd.ttf");
        if (!QFile::exists(cloneBold)) QSKIP("the Tahoma clone is not installed");
        auto font = [](int pixels, bool bold) {
            QFont f = kit::makeFont(Face::Tahoma, 12, bold);
            f.setPixelSize(pixels);
            return f;
        };
        // The ink across the middle of an "l", in pixels.
        auto stem = [](const QFont& f) {
            QImage img(4 * f.pixelSize(), 2 * f.pixelSize(), QImage::Format_Grayscale8);
            img.fill(255);
            QPainter p(&img);
            p.setFont(f);
            p.drawText(f.pixelSize(), 3 * f.pixelSize() / 2, QStringLiteral("l"));
            p.end();
            int top = img.height(), bottom = -1;
            for (int y = 0; y < img.height(); ++y)
                for (int x = 0; x < img.width(); ++x)
                    if (img.constScanLine(y)[x] < 128) top = std::min(top, y), bottom = std::max(bottom, y);
            double ink = 0;
            for (int x = 0; x < img.width(); ++x) ink += (255 - img.constScanLine((top + bottom) / 2)[x]) / 255.0;
            return ink;
        };
        for (int pixels : {15, 21, 37, 64}) {
            const double bold = stem(font(pixels, true)), regular = stem(font(pixels, false));
            QVERIFY2(bold >= 1.4 * regular, qPrintable(QString("%1 px: %2 against %3").arg(pixels).arg(bold).arg(regular)));
        }
        QString characters = QStringLiteral("\u20ac\u2019\u2013");
        for (char16_t c = 0x20; c < 0x17F; ++c)
            if (c < 0x7F || c >= 0xA0) characters += QChar(c);
        for (int pixels : {9, 13, 15, 16, 19, 21, 35, 37, 64}) {
            const QRawFont clone(cloneBold, pixels);
            const QFontMetricsF metrics(font(pixels, true));
            for (QChar c : characters) {
                const QList<quint32> glyph = clone.glyphIndexesForString(QString(c));
                if (glyph.isEmpty() || glyph[0] == 0) continue;   // not in the clone
                if (metrics.horizontalAdvance(c) != clone.advancesForGlyphIndexes(glyph)[0].x())
                    QFAIL(qPrintable(QString("%1 at %2 px").arg(c).arg(pixels)));
            }
        }
    }

    void disabledButtonAndLabelDim() {
        Host host(sampleRows);
        QVERIFY(host.shown());
        auto* button = host.controls.get<kit::Button>("Label3", 0);
        auto* label = host.controls.get<kit::Label>("Label3", 2);
        label->setVisible(true);
        const QRgb yellowPixel = qRgb(255, 255, 0);
        QVERIFY(countColour(render(*button->widget()), yellowPixel) > 50);
        QVERIFY(countColour(render(*label->widget()), yellowPixel) > 50);
        button->setEnabled(false);
        label->setEnabled(false);
        QVERIFY(!button->enabled());
        const QImage dimButton = render(*button->widget());
        QCOMPARE(countColour(dimButton, yellowPixel), 0);
        QCOMPARE(countColour(render(*label->widget()), yellowPixel), 0);
        // The text is still there, in grey, and the face keeps its black.
        QVERIFY(countColour(dimButton, qRgb(128, 128, 128)) > 50);
        QVERIFY(countColour(dimButton, qRgb(0, 0, 0)) > 1000);
    }

    // A windowed control stands in front of a light one that comes later in
    // its table, and takes its clicks; a line paints from end to end and
    // lets the clicks through to what lies under it.
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

        const QImage img = render(host.widget);
        for (QPoint p : {QPoint(211, 79), QPoint(260, 50), QPoint(308, 21)})
            QVERIFY2(countColour(img, qRgb(255, 255, 255), QRect(p - QPoint(1, 1), QSize(3, 3))) > 0,
                     qPrintable(QString::number(p.x())));
        for (QPoint p : {QPoint(210, 20), QPoint(310, 80), QPoint(350, 50)}) QCOMPARE(img.pixel(p) & 0xFFFFFF, 0u);
    }

    // Each option array is a group of its own; a yellow caption leaves the
    // dot of the chosen option in its own colour.
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
        o2->setForeColor(colour::yellow);
        QCOMPARE(o2->widget()->palette().color(QPalette::WindowText), kit::toQColor(colour::yellow));
        QVERIFY(o2->widget()->palette().color(QPalette::Text) != kit::toQColor(colour::yellow));
        QTest::mouseClick(o1(0)->widget(), Qt::LeftButton, {}, QPoint(8, 10));
        QVERIFY(o1(0)->value() && !o1(1)->value() && o2->value());
    }
};

QTEST_MAIN(FormKitTest)
#include "tst_formkit.moc"
