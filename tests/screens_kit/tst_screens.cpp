// Forms and the screen registry: loading at the first touch, unloading from
// a form's own handler, timers that stop with their form, the page size and
// centring, the window manager's close, and the backdrop.
#include <QCloseEvent>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QtTest/qtestspontaneevent.h>

#include <stdexcept>

#include "engine/seeded_random.h"
#include "engine/virtual_timers.h"
#include "screens/form.h"
#include "screens/grey.h"
#include "screens/module1.h"
#include "screens/qt_ports.h"

using namespace fendle;

namespace {

// Module1 with virtual time, fixed chance and a recorder for sound.
struct TestModule {
    VirtualClock clock;
    std::unique_ptr<Module1> module;
    TestModule() {
        PortFactory p;
        p.makeTimers = [this] { return clock.makeBank(); };
        p.random = std::make_unique<SeededRandom>(3);
        p.sound = std::make_unique<SoundRecorder>();
        module = std::make_unique<Module1>(std::move(p));
    }
};

constexpr kit::Row sampleRows[] = {
    {.name = "Label3", .index = 0, .kind = kit::Kind::Button, .left = 120, .top = 120, .width = 1335,
     .height = 375, .caption = "Exit", .size = 12.75, .bold = true, .fore = colour::yellow,
     .back = colour::black, .align = kit::Align::Centre, .border = true},
};

// A screen that counts its loads, ticks timer 2 every 100 ms from its load,
// and unloads itself from its Exit button or from its third tick.
class Sample final : public Form {
public:
    static inline int loads = 0;
    static inline int ticks = 0;
    static inline bool failLoad = false;
    explicit Sample(Module1& m) : Form(m, "Sample") {}
    void Form_Load() override {
        ++loads;
        setClientSizeTwips(5580, 6570);
        build(sampleRows);
        onClick("Label3", [this](int) {
            module().screens.unload(name());
            afterUnload = isUnloaded();   // the form is still whole here
        });
        timers().bind([this](int t) {
            ++ticks;
            if (t == 2 && ticks == 3) module().screens.unload(name());
        });
        timers().setInterval(2, 100);
        timers().start(2);
        if (failLoad) throw std::runtime_error("picture missing");
        loadedToTheEnd = true;
    }
    bool afterUnload = false;
    bool loadedToTheEnd = false;
};

// A screen that answers the window manager's close by hiding only.
class Stubborn final : public Form {
public:
    explicit Stubborn(Module1& m) : Form(m, "Stubborn") {}
    void closeRequested() override {
        ++asked;
        hide();
    }
    int asked = 0;
};

class Plain final : public Form {
public:
    explicit Plain(Module1& m) : Form(m, "Plain") {}
};

// As the window manager's close arrives: a spontaneous event (sendEvent
// would make it a program's own).
void closeFromWindowManager(QWidget* w) {
    QCloseEvent e;
    QSpontaneKeyEvent::setSpontaneous(&e);
    QCoreApplication::instance()->notify(w, &e);
}

}  // namespace

class ScreensTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        Sample::loads = 0;
        Sample::ticks = 0;
        Sample::failLoad = false;
    }

    void loadAtFirstTouchUnloadFromOwnHandler() {
        TestModule t;
        ScreenRegistry& screens = t.module->screens;
        screens.define<Sample>("Sample");
        QCOMPARE(screens.form("Nowhere"), nullptr);
        QPointer<Sample> first = screens.get<Sample>("Sample");
        QVERIFY(first && screens.isLoaded("Sample"));
        QVERIFY(!first->isVisible());   // a touch loads; only show shows
        screens.show("Sample");
        screens.show("Sample");
        QCOMPARE(screens.get<Sample>("Sample"), first.data());
        QCOMPARE(Sample::loads, 1);
        QVERIFY(QTest::qWaitForWindowExposed(first.data()));

        QTest::mouseClick(first->get<kit::Button>("Label3", 0), Qt::LeftButton);
        QVERIFY(!screens.isLoaded("Sample"));
        QVERIFY(first);   // still here: its handler has only just returned
        QVERIFY(first->afterUnload);
        QVERIFY(!first->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!first);

        // The next touch makes a fresh one, loaded again.
        Sample* second = screens.get<Sample>("Sample");
        QVERIFY(second && !second->afterUnload);
        QCOMPARE(Sample::loads, 2);
        QCOMPARE(screens.loads("Sample"), 2);
        screens.unload("Sample");
        screens.unload("Sample");   // not loaded: nothing happens
    }

    void timersStopAtUnload() {
        TestModule t;
        ScreenRegistry& screens = t.module->screens;
        screens.define<Sample>("Sample");
        QPointer<Sample> s = screens.get<Sample>("Sample");
        t.clock.advance(250);
        QCOMPARE(Sample::ticks, 2);
        // The third tick unloads the form from its own handler: no tick after.
        t.clock.advance(1000);
        QCOMPARE(Sample::ticks, 3);
        QVERIFY(!screens.isLoaded("Sample"));
        QVERIFY(s);
        QVERIFY(!s->timers().running(2));
        s->timers().start(2);   // too late: the form is gone
        t.clock.advance(1000);
        QCOMPARE(Sample::ticks, 3);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!s);
        t.clock.advance(1000);   // its bank is gone with it
    }

    void failedLoadStopsWhereItIs() {
        TestModule t;
        t.module->screens.define<Sample>("Sample");
        Sample::failLoad = true;
        Sample* s = t.module->screens.get<Sample>("Sample");
        QVERIFY(s && !s->loadedToTheEnd);
        QVERIFY(s->control("Label3", 0));   // built before the failure
        QCOMPARE(t.module->screens.get<Sample>("Sample"), s);
        QCOMPARE(Sample::loads, 1);
    }

    void fitformCentresThePage() {
        TestModule t;
        t.module->screens.define<Plain>("Plain");
        Form* f = t.module->screens.form("Plain");
        f->setClientSizeTwips(5580, 6570);
        t.module->fitform(*f);
        QCOMPARE(f->size(), QSize(800, 600));
        QCOMPARE(f->clientSizeTwips(), QSizeF(12000, 9000));
        QCOMPARE(QGuiApplication::overrideCursor(), nullptr);   // the hourglass is gone again
        const QRect screen = f->screen()->geometry();
        QCOMPARE(f->frameGeometry().topLeft(),
                 screen.topLeft() + QPoint((screen.width() - 800) / 2, (screen.height() - 600) / 2));
        // A window as high as the screen, or higher, overhangs it evenly.
        f->setClientSizeTwips(9000, screen.height() * 15 + 300);
        f->centre();
        QCOMPARE(f->frameGeometry().top(), screen.top() - 10);
        QCOMPARE(f->topTwips(), double(screen.top() * 15 - 150));
    }

    void windowManagerClose() {
        TestModule t;
        ScreenRegistry& screens = t.module->screens;
        screens.define<Plain>("Plain");
        screens.define<Stubborn>("Stubborn");
        screens.show("Plain");
        screens.show("Stubborn");
        QPointer<Form> plain = screens.form("Plain");
        Stubborn* stubborn = screens.get<Stubborn>("Stubborn");

        // By default the close unloads the screen.
        closeFromWindowManager(plain);
        QVERIFY(!screens.isLoaded("Plain"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!plain);

        // A screen may answer otherwise.
        closeFromWindowManager(stubborn);
        QCOMPARE(stubborn->asked, 1);
        QVERIFY(screens.isLoaded("Stubborn"));
        QVERIFY(!stubborn->isVisible());

        // The program's own close, as when the application quits, goes through:
        // a refusal there would keep the program from ending.
        screens.show("Stubborn");
        QVERIFY(stubborn->close());
        QCOMPARE(stubborn->asked, 1);
    }

    void greyCoversTheScreen() {
        TestModule t;
        ScreenRegistry& screens = t.module->screens;
        screens.show("Grey");
        Grey* grey = screens.get<Grey>("Grey");
        QVERIFY(grey && QTest::qWaitForWindowExposed(grey));
        QVERIFY(grey->windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(grey->geometry(), grey->screen()->geometry());
        QVERIFY(grey->findChildren<QWidget*>().isEmpty());
        const QImage shot = grey->grab().toImage();
        QCOMPARE(shot.pixel(0, 0) & 0xFFFFFF, qRgb(49, 135, 215) & 0xFFFFFF);
        QCOMPARE(shot.pixel(shot.width() - 1, shot.height() - 1) & 0xFFFFFF, qRgb(49, 135, 215) & 0xFFFFFF);
    }
};

QTEST_MAIN(ScreensTest)
#include "tst_screens.moc"
