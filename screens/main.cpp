// Fendle!: the program. It answers its command line, picks the scale of its
// windows, finds its data beside itself or under its prefix, and starts by
// opening the title screen.
#include <QApplication>
#include <QTimer>

#include <cstdlib>

#include "screens/kit/fonts.h"
#include "screens/game_screens.h"
#include "screens/module1.h"
#include "screens/scale.h"
#include "screens/startup.h"
#include "screens/titlefrm.h"

namespace {

class PaintedThenExit : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* e) override {
        if (e->type() == QEvent::Paint)
            QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
        return QObject::eventFilter(watched, e);
    }
};

}  // namespace

int main(int argc, char* argv[]) {
    fendle::CommandLine options;
    if (const auto ended = fendle::readCommandLine(argc, argv, options)) return *ended;
    const fendle::ScaleChoice scale = fendle::prepareScale(options.scale);

    QApplication app(argc, argv);
    if (const auto ended = fendle::applyScale(scale)) return *ended;
    fendle::nameApplication();
    if (!fendle::findGameFolders()) return 1;
    QApplication::setWindowIcon(fendle::applicationIcon());
    // The program ends only by its own Exit buttons, never because a window
    // closed while the next one was opening.
    QApplication::setQuitOnLastWindowClosed(false);
    fendle::kit::fontFamily(fendle::kit::Face::Tahoma);   // loads the Tahoma clone

    fendle::Module1 module;
    fendle::defineGameScreens(module);
    // Opened from inside the event loop, so that a load that has to stop the
    // program can end the loop.
    QTimer::singleShot(0, &app, [&module] {
        module.screens.show(fendle::Titlefrm::formName);
        // For timing the start: with FENDLE_EXIT_WHEN_SHOWN set, the program
        // ends as soon as the title screen has been painted once.
        if (std::getenv("FENDLE_EXIT_WHEN_SHOWN"))
            if (QWidget* title = module.screens.form(fendle::Titlefrm::formName))
                title->installEventFilter(new PaintedThenExit(title));
    });
    return QApplication::exec();
}
