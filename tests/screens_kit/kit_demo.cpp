// A look at the kit, not a test: `kit_demo setup` shows the backdrop and the
// sample set-up screen; `kit_demo board [n]` builds a board-sized form of
// 100 number labels, 100 counters and a few buttons n times, prints the mean
// build time, and shows the last one.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QTimer>

#include <cstdio>
#include <vector>

#include "sample_tables.h"
#include "screens/form.h"
#include "screens/grey.h"
#include "screens/module1.h"

using namespace fendle;

namespace {

class SetupSample final : public Form {
public:
    explicit SetupSample(Module1& m) : Form(m, "Startplay2") {}
    void Form_Load() override {
        setClientSizeTwips(5580, 6570);
        setBackColor(sample::setupBlue);
        build(sample::startplay2);
        centre();
        onClick("Label3", [this](int i) {
            if (i == 0) QApplication::quit();
        });
    }
};

class BoardSample final : public Form {
public:
    explicit BoardSample(Module1& m) : Form(m, "fen1") {}
    void Form_Load() override {
        module().fitform(*this);
        setBackColor(colour::boardBlue);
        static const kit::Row rows[] = {
            {.name = "Label1", .index = 0, .kind = kit::Kind::Label, .left = 3120, .top = 2520, .width = 480,
             .height = 480, .caption = "0", .size = 15.75, .bold = true, .fore = colour::numberGrey,
             .transparent = true, .align = kit::Align::Centre, .visible = false},
            {.name = "Image1", .index = 0, .kind = kit::Kind::Image, .left = 3480, .top = 2520, .width = 480,
             .height = 480, .visible = false},
            {.name = "Label3", .index = 0, .kind = kit::Kind::Button, .left = 60, .top = 8400, .width = 1695,
             .height = 495, .caption = "Exit", .font = kit::Face::Tahoma, .size = 15.75, .bold = true,
             .fore = colour::blueText, .back = colour::black, .align = kit::Align::Centre, .border = true},
            {.name = "Label3", .index = 1, .kind = kit::Kind::Button, .left = 9480, .top = 8400, .width = 2415,
             .height = 495, .caption = "New Game", .font = kit::Face::Tahoma, .size = 15.75, .bold = true,
             .fore = colour::blueText, .back = colour::black, .align = kit::Align::Centre, .border = true},
            {.name = "Label3", .index = 2, .kind = kit::Kind::Button, .left = 1080, .top = 120, .width = 2295,
             .height = 495, .caption = "Throw Dice", .font = kit::Face::Tahoma, .size = 15.75, .bold = true,
             .fore = colour::blueText, .back = colour::black, .align = kit::Align::Centre, .border = true},
            {.name = "Label2", .kind = kit::Kind::Label, .left = 4680, .top = 0, .width = 3180, .height = 660,
             .caption = "Blue to Play", .size = 27.75, .bold = true, .fore = colour::blueText,
             .transparent = true, .align = kit::Align::Centre},
        };
        build(rows);
        for (int n = 1; n <= 100; ++n) {
            const double left = 3600 + ((n - 1) % 10) * 780 + (((n - 1) / 10) % 2) * 390;
            const double top = 900 + ((n - 1) / 10) * 720;
            kit::Control* img = controls().loadElement("Image1", n);
            img->place(left, top, 480, 480);
            kit::Control* lab = controls().loadElement("Label1", n);
            lab->setCaption(QString::number(n));
            lab->place(left, top, n == 100 ? 525 : 480, 480);
            lab->setVisible(true);
            if (n % 7 == 0) lab->setForeColor(colour::black);
        }
        for (int d = 0; d < 4; ++d) {
            static const char* faces[] = {"3", "5", "1", "6"};
            kit::Row die{.name = "Label4", .index = d, .kind = kit::Kind::Label, .left = 1680.0 + (d % 2) * 600,
                         .top = 720.0 + (d / 2) * 600, .width = 495, .height = 495, .caption = faces[d],
                         .size = 20.25, .bold = true, .fore = colour::white, .back = colour::blue,
                         .align = kit::Align::Centre, .border = true};
            controls().build(std::span(&die, 1));
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QString mode = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("setup");
    QDir().mkpath(QStringLiteral("Images"));
    if (!QFile::exists(QStringLiteral("Images/logo2.jpg"))) {
        QImage logo(100, 139, QImage::Format_RGB32);
        logo.fill(QColor(255, 200, 0));
        QPainter p(&logo);
        p.setBrush(QColor(0, 128, 0));
        p.drawEllipse(10, 20, 80, 100);
        p.end();
        logo.save(QStringLiteral("Images/logo2.jpg"));
    }
    Module1 module;
    module.screens.define<SetupSample>("Startplay2");
    module.screens.define<BoardSample>("fen1");
    if (mode == QLatin1String("board")) {
        const int n = argc > 2 ? std::atoi(argv[2]) : 20;
        QElapsedTimer clock;
        std::vector<qint64> ns;
        for (int i = 0; i < n; ++i) {
            clock.start();
            Form* f = module.screens.form("fen1");
            ns.push_back(clock.nsecsElapsed());
            if (i + 1 < n) {
                module.screens.unload("fen1");
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            } else {
                clock.start();
                f->grab();
                const qint64 paint = clock.nsecsElapsed();
                std::printf("%zu controls; first paint %.2f ms; build %.2f ms first, ", f->controls().size(),
                            paint / 1e6, ns.front() / 1e6);
            }
        }
        qint64 sum = 0;
        for (std::size_t i = 1; i < ns.size(); ++i) sum += ns[i];
        if (ns.size() > 1) std::printf("%.2f ms mean of the next %zu\n", sum / 1e6 / double(ns.size() - 1), ns.size() - 1);
        module.screens.show("Grey");
        module.screens.show("fen1");
    } else {
        module.screens.show("Grey");
        module.screens.show("Startplay2");
    }
    if (qEnvironmentVariableIsSet("KIT_DEMO_QUIT_MS"))
        QTimer::singleShot(qEnvironmentVariableIntValue("KIT_DEMO_QUIT_MS"), &app, &QApplication::quit);
    return app.exec();
}
