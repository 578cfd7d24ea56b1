// The form kit: tables become widgets at the right place and size, labels
// and label-buttons paint and click as they should, and the control kinds
// behave as the screens expect.
#include <QAccessible>
#include <QDir>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include "sample_tables.h"
#include "screens/formkit.h"

using namespace fendle;
using kit::Kind;
using kit::Row;

namespace {

// A bare host for a table: a widget and its controls.
struct Host {
    QWidget widget;
    kit::Controls controls{&widget};
    explicit Host(std::span<const Row> rows = {}, QSize size = {400, 450}) {
        widget.resize(size);
        controls.build(rows);
    }
};

int countColour(const QImage& img, QRgb colour, QRect area = {}) {
    if (area.isNull()) area = img.rect();
    int n = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if ((img.pixel(x, y) & 0xFFFFFF) == (colour & 0xFFFFFF)) ++n;
    return n;
}

// Pixels that differ from `back` anywhere outside `inside`.
int inkOutside(const QImage& img, QRgb back, QRect inside) {
    int n = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (!inside.contains(x, y) && (img.pixel(x, y) & 0xFFFFFF) != (back & 0xFFFFFF)) ++n;
    return n;
}

QImage render(QWidget& w) { return w.grab().toImage().convertToFormat(QImage::Format_RGB32); }

constexpr Row titleFrame[] = {
    {.name = "Label9", .kind = Kind::Button, .left = 720, .top = 4320, .width = 3975, .height = 435,
     .caption = "Teachers' Guide", .size = 15.75, .bold = true, .fore = colour::yellow, .back = colour::black,
     .align = kit::Align::Centre, .border = true},
};
constexpr Row titleRows[] = {
    {.name = "Frame1", .kind = Kind::Frame, .left = 0, .top = -90, .width = 5595, .height = 6660,
     .children = titleFrame},
    {.name = "Label14", .kind = Kind::Button, .left = 1200, .top = 1920, .width = 1565, .height = 375,
     .caption = "Cheat Chart", .font = kit::Face::Tahoma, .size = 11.25, .bold = true},
    {.name = "Label4", .index = 1, .kind = Kind::Label, .left = 2280, .top = 720, .width = 495, .height = 495,
     .size = 20.25, .bold = true, .border = true},
};

}  // namespace

class FormKitTest : public QObject {
    Q_OBJECT

private slots:
    void tableBuildsAtTwipsOverFifteen_data();
    void tableBuildsAtTwipsOverFifteen();
    void buttonIsAnAccessiblePushButton();
    void disabledButtonDimsAndIgnoresClicks();
    void clicksLandOnTheControlInFront();
    void longTextShrinksIntoItsBox_data();
    void longTextShrinksIntoItsBox();
    void optionArraysAreSeparateGroups();
    void checkBoxChangeIsAClick();
    void textBoxKeyFilter_data();
    void textBoxKeyFilter();
    void loadElementCopiesElementZero();
    void windowedControlsStandInFront();
    void lineDrawsBetweenItsEndsAndLetsClicksThrough();
    void picturesByTheGamesNames();
};

void FormKitTest::tableBuildsAtTwipsOverFifteen_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("index");
    QTest::addColumn<QRect>("geometry");
    QTest::addColumn<int>("pixelSize");
    QTest::addColumn<QString>("family");
    const QString arial = QStringLiteral("Liberation Sans"), tahoma = QStringLiteral("Tahoma");
    // Rows of the set-up screen.
    QTest::newRow("title") << "Label4" << -1 << QRect(8, 0, 357, 81) << 64 << tahoma;
    QTest::newRow("trademark") << "Label7" << -1 << QRect(328, 15, 17, 11) << 9 << tahoma;
    QTest::newRow("rules button") << "Label6" << -1 << QRect(16, 96, 193, 29) << 21 << arial;
    QTest::newRow("logo") << "Image2" << -1 << QRect(240, 96, 100, 139) << 11 << arial;
    QTest::newRow("check box") << "Check1" << -1 << QRect(48, 136, 113, 25) << 16 << arial;
    QTest::newRow("time box") << "Text2" << -1 << QRect(48, 216, 65, 27) << 16 << tahoma;
    QTest::newRow("hidden label of an array") << "Label3" << 3 << QRect(120, 220, 66, 19) << 16 << arial;
    QTest::newRow("heading") << "Label2" << -1 << QRect(8, 296, 359, 40) << 27 << arial;
    QTest::newRow("player button 3") << "Label1" << 2 << QRect(196, 340, 57, 49) << 35 << tahoma;
    QTest::newRow("notice") << "Label5" << -1 << QRect(32, 408, 225, 33) << 11 << arial;
    QTest::newRow("exit") << "Label3" << 0 << QRect(272, 408, 89, 25) << 17 << arial;
    // A frame above the top of its form, a child of it, a width that is no
    // whole number of pixels, a die.
    QTest::newRow("frame") << "Frame1" << -1 << QRect(0, -6, 373, 444) << 11 << arial;
    QTest::newRow("in the frame") << "Label9" << -1 << QRect(48, 288, 265, 29) << 21 << arial;
    QTest::newRow("1565 wide") << "Label14" << -1 << QRect(80, 128, 104, 25) << 15 << tahoma;
    QTest::newRow("die") << "Label4" << 1 << QRect(152, 48, 33, 33) << 27 << arial;
}

void FormKitTest::tableBuildsAtTwipsOverFifteen() {
    QFETCH(QString, name);
    QFETCH(int, index);
    QFETCH(QRect, geometry);
    QFETCH(int, pixelSize);
    QFETCH(QString, family);
    Host setup(sample::startplay2);
    Host title(titleRows);
    kit::Control* c = setup.controls.find(name.toStdString(), index);
    if (!c) c = title.controls.find(name.toStdString(), index);
    QVERIFY2(c, qPrintable(name));
    QCOMPARE(c->widget()->geometry(), geometry);
    QCOMPARE(c->widget()->font().pixelSize(), pixelSize);
    QCOMPARE(QFontInfo(c->widget()->font()).family(), family);
    if (name == QLatin1String("Label9")) {
        QCOMPARE(c->widget()->parentWidget(), title.controls.find("Frame1")->widget());
    }
}

void FormKitTest::buttonIsAnAccessiblePushButton() {
    Host host(sample::startplay2);
    host.widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host.widget));
    auto* exit = host.controls.get<kit::Button>("Label3", 0);
    QVERIFY(exit);

    QAccessibleInterface* a = QAccessible::queryAccessibleInterface(exit);
    QVERIFY(a);
    QCOMPARE(a->role(), QAccessible::Button);
    QCOMPARE(a->text(QAccessible::Name), QStringLiteral("Exit"));
    exit->setCaption(QStringLiteral("Sortie"));
    QCOMPARE(a->text(QAccessible::Name), QStringLiteral("Sortie"));
    QVERIFY(exit->focusPolicy() & Qt::TabFocus);

    QList<int> clicked;
    host.controls.onClick("Label3", [&](int i) { clicked << i; });
    exit->setFocus(Qt::TabFocusReason);
    QTest::keyClick(exit, Qt::Key_Space);
    QTest::keyClick(exit, Qt::Key_Return);
    QTest::mouseClick(exit, Qt::LeftButton);
    QCOMPARE(clicked, (QList<int>{0, 0, 0}));
    // The other elements of the array are labels; the same handler serves them.
    host.controls.find("Label3", 2)->setVisible(true);
    QTest::mouseClick(host.controls.find("Label3", 2)->widget(), Qt::LeftButton);
    QCOMPARE(clicked, (QList<int>{0, 0, 0, 2}));
}

void FormKitTest::disabledButtonDimsAndIgnoresClicks() {
    Host host(sample::startplay2);
    host.widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host.widget));
    auto* button = host.controls.get<kit::Button>("Label8");
    auto* label = host.controls.get<kit::Label>("Label2");
    int clicks = 0;
    host.controls.onClick("Label8", [&](int) { ++clicks; });
    host.controls.onClick("Label2", [&](int) { ++clicks; });
    const QRgb yellow = qRgb(255, 255, 0);

    const QImage enabledButton = render(*button);
    const QImage enabledLabel = render(*label);
    QVERIFY(countColour(enabledButton, yellow) > 50);
    QVERIFY(countColour(enabledLabel, yellow) > 50);

    button->setEnabled(false);
    label->setEnabled(false);
    QVERIFY(!button->enabled());
    const QImage dimButton = render(*button);
    const QImage dimLabel = render(*label);
    QCOMPARE(countColour(dimButton, yellow), 0);
    QCOMPARE(countColour(dimLabel, yellow), 0);
    // The text is still there, in grey, and the face keeps its black.
    QVERIFY(countColour(dimButton, qRgb(128, 128, 128)) > 50);
    QVERIFY(countColour(dimButton, qRgb(0, 0, 0)) > 1000);

    button->setFocus(Qt::TabFocusReason);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::keyClick(button, Qt::Key_Space);
    QTest::keyClick(button, Qt::Key_Return);
    QTest::mouseClick(&host.widget, Qt::LeftButton, {}, label->geometry().center());
    QCOMPARE(clicks, 0);

    button->setEnabled(true);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(clicks, 1);
}

void FormKitTest::clicksLandOnTheControlInFront() {
    // A counter over a number: the counter takes the click, the number does
    // not, until the counter is hidden.
    constexpr Row rows[] = {
        {.name = "Label1", .index = 7, .kind = Kind::Label, .left = 300, .top = 300, .width = 480, .height = 480,
         .caption = "7", .size = 15.75, .bold = true, .transparent = true, .align = kit::Align::Centre},
        {.name = "Image1", .index = 7, .kind = Kind::Image, .left = 300, .top = 300, .width = 480, .height = 480},
    };
    Host host(rows, {100, 100});
    host.widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host.widget));
    QStringList clicked;
    host.controls.onClick("Label1", [&](int i) { clicked << QStringLiteral("Label1(%1)").arg(i); });
    host.controls.onClick("Image1", [&](int i) { clicked << QStringLiteral("Image1(%1)").arg(i); });
    QWindow* window = host.widget.windowHandle();
    const QPoint at(36, 36);
    QTest::mouseClick(window, Qt::LeftButton, {}, at);
    host.controls.find("Image1", 7)->setVisible(false);
    QTest::mouseClick(window, Qt::LeftButton, {}, at);
    host.controls.find("Label1", 7)->setEnabled(false);
    QTest::mouseClick(window, Qt::LeftButton, {}, at);
    QCOMPARE(clicked, (QStringList{"Image1(7)", "Label1(7)"}));
}

void FormKitTest::longTextShrinksIntoItsBox_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QSize>("box");
    QTest::addColumn<bool>("border");
    QTest::addColumn<bool>("shrinks");
    QTest::newRow("short word") << "Exit" << QSize(89, 25) << true << false;
    QTest::newRow("two lines that fit") << "Set Total Time Allowed" << QSize(208, 50) << false << false;
    QTest::newRow("die digit fills its face") << "6" << QSize(33, 33) << true << false;
    QTest::newRow("long translation") << "Nouvelle partie de jeu" << QSize(161, 33) << true << true;
    QTest::newRow("one long word") << "Spielanleitung" << QSize(90, 40) << false << true;
    QTest::newRow("long player name") << "Maximiliano Bartholomew Featherstonehaugh" << QSize(232, 24) << false
                                      << true;
    QTest::newRow("three digits") << "100" << QSize(32, 32) << false << true;
    QTest::newRow("line break") << "Seconds\nRemaining" << QSize(120, 50) << false << false;
}

void FormKitTest::longTextShrinksIntoItsBox() {
    QFETCH(QString, text);
    QFETCH(QSize, box);
    QFETCH(bool, border);
    QFETCH(bool, shrinks);
    kit::LabelFace face;
    face.text = text;
    face.font = kit::makeFont(kit::Face::Arial, 15.75, true);
    face.fore = Qt::white;
    face.back = Qt::black;
    face.border = border;
    face.align = kit::Align::Centre;

    const int drawn = face.fitted(box).pixelSize();
    if (shrinks)
        QVERIFY2(drawn < 21, qPrintable(QString::number(drawn)));
    else
        QCOMPARE(drawn, 21);

    // Painted with room around it, no ink leaves the box.
    QImage img(box + QSize(200, 200), QImage::Format_RGB32);
    const QRgb back = qRgb(0, 0, 255);
    img.fill(back);
    const QRect where(QPoint(100, 100), box);
    {
        QPainter p(&img);
        face.paint(p, where, true);
    }
    QCOMPARE(inkOutside(img, back, where), 0);
    QVERIFY(countColour(img, qRgb(255, 255, 255), where) > 10);
}

void FormKitTest::optionArraysAreSeparateGroups() {
    constexpr Row rows[] = {
        {.name = "Option1", .index = 0, .kind = Kind::Option, .left = 0, .top = 0, .width = 1500, .height = 300},
        {.name = "Option1", .index = 1, .kind = Kind::Option, .left = 0, .top = 300, .width = 1500, .height = 300},
        {.name = "Option1", .index = 2, .kind = Kind::Option, .left = 0, .top = 600, .width = 1500, .height = 300,
         .value = 1},
        {.name = "Option2", .index = 0, .kind = Kind::Option, .left = 2000, .top = 0, .width = 1500, .height = 300,
         .value = 1},
        {.name = "Option2", .index = 1, .kind = Kind::Option, .left = 2000, .top = 300, .width = 1500,
         .height = 300},
    };
    Host host(rows);
    host.widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host.widget));
    QList<int> chosen;
    host.controls.onClick("Option1", [&](int i) { chosen << i; });
    auto o1 = [&](int i) { return host.controls.get<kit::OptionButton>("Option1", i); };
    auto o2 = [&](int i) { return host.controls.get<kit::OptionButton>("Option2", i); };
    QVERIFY(o1(2)->value() && o2(0)->value());

    QTest::mouseClick(o1(0), Qt::LeftButton, {}, QPoint(8, 10));
    QVERIFY(o1(0)->value() && !o1(1)->value() && !o1(2)->value());
    QVERIFY(o2(0)->value());   // the other array keeps its choice
    QTest::mouseClick(o1(0), Qt::LeftButton, {}, QPoint(8, 10));   // again: stays chosen
    QVERIFY(o1(0)->value());
    o1(1)->setValue(true);
    QVERIFY(!o1(0)->value());
    QCOMPARE(chosen, (QList<int>{0, 1}));
}

void FormKitTest::checkBoxChangeIsAClick() {
    Host host(sample::startplay2);
    QList<int> clicks;
    host.controls.onClick("Check3", [&](int i) { clicks << i; });
    auto* box = host.controls.get<kit::CheckBox>("Check3");
    QCOMPARE(box->value(), 1);
    box->setValue(1);   // no change, no click
    QVERIFY(clicks.isEmpty());
    box->setValue(0);
    QCOMPARE(clicks.size(), 1);
    QCOMPARE(box->value(), 0);
    // A handler installed later replaces the first.
    int second = 0;
    host.controls.onClick("Check3", [&](int) { ++second; });
    box->setValue(1);
    QCOMPARE(clicks.size(), 1);
    QCOMPARE(second, 1);
}

void FormKitTest::textBoxKeyFilter_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("result");
    QTest::newRow("digits") << "600" << "600";
    QTest::newRow("letters dropped") << "a1B2" << "12";
    QTest::newRow("sign and point") << "-7.5" << "-7.5";
    QTest::newRow("at most four") << "123456" << "1234";
    QTest::newRow("backspace passes") << "12\b3" << "13";
    QTest::newRow("blank dropped") << "1 2" << "12";
}

void FormKitTest::textBoxKeyFilter() {
    QFETCH(QString, typed);
    QFETCH(QString, result);
    Host host(sample::startplay2);
    auto* box = host.controls.get<kit::TextBox>("Text2");
    box->setVisible(true);
    host.widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host.widget));
    QList<int> seen;
    box->setKeyPress([&](int key) {
        seen << key;
        const bool keep = key == '-' || key == '.' || (key >= '0' && key <= '9') || key == 8;
        return keep ? key : 0;
    });
    box->setFocus();
    box->clear();
    for (QChar ch : typed) {
        if (ch == QLatin1Char('\b'))
            QTest::keyClick(box, Qt::Key_Backspace);
        else
            QTest::keyClicks(box, QString(ch));
    }
    QCOMPARE(box->text(), result);
    QCOMPARE(seen.size(), typed.size());
    QVERIFY(box->alignment() & Qt::AlignHCenter);
}

void FormKitTest::loadElementCopiesElementZero() {
    constexpr Row rows[] = {
        {.name = "Label1", .index = 0, .kind = Kind::Label, .left = 3120, .top = 2520, .width = 480,
         .height = 480, .caption = "", .size = 15.75, .bold = true, .fore = colour::numberGrey, .transparent = true,
         .align = kit::Align::Centre, .visible = false},
        {.name = "Check1", .kind = Kind::CheckBox, .left = 0, .top = 0, .width = 6000, .height = 6000},
    };
    Host host(rows);
    kit::Control* zero = host.controls.find("Label1", 0);
    zero->setForeColor(colour::black);
    zero->setFontSize(12);
    zero->setLeft(1565);

    kit::Control* n = host.controls.loadElement("Label1", 55);
    QVERIFY(n);
    QCOMPARE(n->index(), 55);
    QCOMPARE(host.controls.find("Label1", 55), n);
    QVERIFY(!n->visible());
    QCOMPARE(n->left(), 1565.0);
    QCOMPARE(n->widget()->geometry(), QRect(104, 168, 32, 32));
    QCOMPARE(n->foreColor(), colour::black);
    QCOMPARE(n->widget()->font().pixelSize(), 16);
    QVERIFY(n->row().transparent);
    QCOMPARE(host.controls.loadElement("Label1", 55), n);   // already loaded
    QCOMPARE(host.controls.loadElement("Check1", 1), nullptr);   // no array
    QCOMPARE(host.controls.array("Label1").size(), std::size_t(2));
    // A light element made later still stands behind the windowed check box.
    const QObjectList& kids = host.widget.children();
    QVERIFY(kids.indexOf(n->widget()) < kids.indexOf(host.controls.find("Check1")->widget()));
}

void FormKitTest::windowedControlsStandInFront() {
    // The label comes later in the table, yet the check box under it takes
    // the click: windowed controls stand in front of light ones.
    constexpr Row rows[] = {
        {.name = "Check1", .kind = Kind::CheckBox, .left = 0, .top = 0, .width = 1500, .height = 375},
        {.name = "Label1", .kind = Kind::Label, .left = 0, .top = 0, .width = 1500, .height = 375},
    };
    Host host(rows, {200, 100});
    host.widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host.widget));
    int label = 0;
    host.controls.onClick("Label1", [&](int) { ++label; });
    QTest::mouseClick(host.widget.windowHandle(), Qt::LeftButton, {}, QPoint(8, 12));
    QCOMPARE(host.controls.get<kit::CheckBox>("Check1")->value(), 1);
    QCOMPARE(label, 0);
}

void FormKitTest::lineDrawsBetweenItsEndsAndLetsClicksThrough() {
    constexpr Row rows[] = {
        {.name = "Label1", .kind = Kind::Label, .left = 0, .top = 0, .width = 3000, .height = 1500,
         .back = colour::black},
        {.name = "Line1", .kind = Kind::Line, .fore = colour::white, .lineWidth = 2, .x1 = 150, .y1 = 1200,
         .x2 = 1650, .y2 = 300},
    };
    Host host(rows, {200, 100});
    host.widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host.widget));
    const QImage img = render(host.widget);
    const QRgb white = qRgb(255, 255, 255), black = qRgb(0, 0, 0);
    // From (10, 80) to (110, 20) in pixels: a point near each end and the middle.
    for (QPoint p : {QPoint(11, 79), QPoint(60, 50), QPoint(108, 21)})
        QVERIFY2(countColour(img, white, QRect(p - QPoint(1, 1), QSize(3, 3))) > 0, qPrintable(QString::number(p.x())));
    for (QPoint p : {QPoint(10, 20), QPoint(110, 80), QPoint(150, 50)}) QCOMPARE(img.pixel(p) & 0xFFFFFF, black & 0xFFFFFF);
    int label = 0;
    host.controls.onClick("Label1", [&](int) { ++label; });
    QTest::mouseClick(host.widget.windowHandle(), Qt::LeftButton, {}, QPoint(60, 50));
    QCOMPARE(label, 1);
}

void FormKitTest::picturesByTheGamesNames() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString oldCwd = QDir::currentPath();
    QVERIFY(QDir::setCurrent(dir.path()));
    auto restore = qScopeGuard([&] { QDir::setCurrent(oldCwd); });
    QDir().mkpath(QStringLiteral("Images"));
    QDir().mkpath(QStringLiteral("images"));
    QImage red(20, 10, QImage::Format_RGB32), green(30, 40, QImage::Format_RGB32);
    red.fill(Qt::red);
    green.fill(Qt::green);
    QVERIFY(red.save(QStringLiteral("Images/pic.bmp")));
    QVERIFY(green.save(QStringLiteral("images/pic.jpg")));
    QVERIFY(green.save(QStringLiteral("images/pic.bmp")));

    constexpr Row rows[] = {
        {.name = "Image1", .kind = Kind::Image, .left = 150, .top = 150, .width = 900, .height = 900,
         .picture = "Images\\pic.bmp"},
        {.name = "Image2", .kind = Kind::Image, .left = 1500, .top = 150, .width = 900, .height = 900,
         .picture = "images\\pic.jpg", .stretch = true},
        {.name = "Image3", .kind = Kind::Image, .left = 3000, .top = 150, .width = 900, .height = 900,
         .picture = "Images\\missing.bmp"},
        {.name = "Picture1", .kind = Kind::PictureBox, .left = 0, .top = 1200, .width = 240, .height = 240,
         .back = colour::black, .border = true, .picture = "Images\\pic.bmp"},
    };
    Host host(rows, {300, 100});
    auto* natural = host.controls.get<kit::Image>("Image1");
    auto* stretched = host.controls.get<kit::Image>("Image2");
    auto* missing = host.controls.get<kit::Image>("Image3");
    // Not stretched, the control takes the picture's size.
    QCOMPARE(natural->widget()->geometry(), QRect(10, 10, 20, 10));
    QCOMPARE(natural->width(), 300.0);
    QCOMPARE(render(*natural).pixel(5, 5), qRgb(255, 0, 0));
    // Stretched, it keeps its box.
    QCOMPARE(stretched->widget()->geometry(), QRect(100, 10, 60, 60));
    QVERIFY(stretched->hasPicture());
    // A missing file leaves it empty at its design size.
    QVERIFY(!missing->hasPicture());
    QCOMPARE(missing->widget()->geometry(), QRect(200, 10, 60, 60));
    // "images" is another folder than "Images".
    natural->setPicture("images\\pic.bmp");
    QCOMPARE(natural->widget()->size(), QSize(30, 40));
    QCOMPARE(render(*natural).pixel(5, 5), qRgb(0, 255, 0));
    // A picture box shows its picture at its top left, inside the border,
    // clipped to its box, and takes clicks.
    auto* box = host.controls.get<kit::PictureBox>("Picture1");
    const QImage boxed = render(*box);
    QCOMPARE(boxed.pixel(2, 2), qRgb(255, 0, 0));
    QCOMPARE(boxed.pixel(13, 8), qRgb(255, 0, 0));
    QVERIFY(boxed.pixel(6, 13) != qRgb(255, 0, 0));   // below the picture: back colour
    int clicks = 0;
    host.controls.onClick("Picture1", [&](int) { ++clicks; });
    QTest::mouseClick(box, Qt::LeftButton);
    QCOMPARE(clicks, 1);
    QCOMPARE(hostPath("counters\\blre2.bmp"), QStringLiteral("counters/blre2.bmp"));
}

QTEST_MAIN(FormKitTest)
#include "tst_formkit.moc"
