// Forms and the screen registry: timers that stop with their form, a page
// higher than the screen, and the backdrop. Each page's size and place on the
// screen are in the approved records of tst_golden; loading at the first
// touch, unloading from a form's own handler and the window manager's close
// are met by every screen of the game and tested there.
#include <QPointer>
#include <QScreen>
#include <QTest>

#include "engine/seeded_random.h"
#include "engine/virtual_timers.h"
#include "screens/kit/form.h"
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

// A screen that ticks timer 2 every 100 ms from its load and unloads itself
// from its third tick.
class Sample final : public Form {
public:
    static inline int ticks = 0;
    explicit Sample(Module1& m) : Form(m, "Sample") {}
    void Form_Load() override {
        timers().bind([this](int t) {
            ++ticks;
            if (t == 2 && ticks == 3) module().screens.unload(name());
        });
        timers().setInterval(2, 100);
        timers().start(2);
    }
};

class Plain final : public Form {
public:
    explicit Plain(Module1& m) : Form(m, "Plain") {}
};

}  // namespace

class ScreensTest : public QObject {
    Q_OBJECT

private slots:
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
        QVERIFY(s);   // still whole: its handler has only just returned
        QVERIFY(!s->timers().running(2));
        s->timers().start(2);   // too late: the form is gone
        t.clock.advance(1000);
        QCOMPARE(Sample::ticks, 3);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!s);
        t.clock.advance(1000);   // its bank is gone with it
    }

    void fitformCentresThePage() {
        TestModule t;
        t.module->screens.define<Plain>("Plain");
        Form* f = t.module->screens.form("Plain");
        f->setClientSizeTwips(5580, 6570);
        t.module->fitform(*f);
        QCOMPARE(QGuiApplication::overrideCursor(), nullptr);   // the hourglass is gone again
        // A window as high as the screen, or higher, overhangs it evenly.
        const QRect screen = f->screen()->geometry();
        f->setClientSizeTwips(9000, screen.height() * 15 + 300);
        f->centre();
        QCOMPARE(f->frameGeometry().top(), screen.top() - 10);
        QCOMPARE(f->topTwips(), double(screen.top() * 15 - 150));
        // The program's own close, as when the application quits, goes
        // through: a refusal there would keep the program from ending.
        f->show();
        QVERIFY(f->close());
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
