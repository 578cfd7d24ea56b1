#include "screens/module1.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include "screens/grey.h"
#include "screens/qt_ports.h"
#include "text/file_io.h"

namespace fendle {

PortFactory PortFactory::qt() {
    PortFactory p;
    p.makeTimers = [] { return std::make_unique<QtTimerBank>(); };
    p.random = std::make_unique<ClockRandom>();
    p.sound = std::make_unique<QtSound>();
    return p;
}

Module1::Module1(PortFactory ports) : ports_(std::move(ports)) { screens.define<Grey>(Grey::formName); }

Module1::~Module1() = default;

void Module1::fitform(Form& frm) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    frm.setClientSizeTwips(pageWidthTwips, pageHeightTwips);
    frm.centre();
    QGuiApplication::restoreOverrideCursor();
}

const MessageTable& Module1::messages() {
    if (!messages_) {
        messages_ = std::make_unique<MessageTable>();
        // A missing or short file leaves the English built into the program.
        messages_->read(readFileBytes(gamePath(messagesCsvFile)));
    }
    return *messages_;
}

QString Module1::message(const Message& m, std::string_view arg) {
    return QString::fromStdString(messages().text(m, state.languagenumber, arg));
}

QString Module1::message(const Problem& p) { return QString::fromStdString(messages().text(p, state.languagenumber)); }

void Module1::endProgram() {
    screens.unloadAll();
    // exit(), not quit(): quit() would first ask every window to close.
    QCoreApplication::exit(0);
}

}  // namespace fendle
