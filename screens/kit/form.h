// Form: the base of every screen, a fixed-size top-level window built from
// tables of controls. A window holds the keyboard focus itself until Tab
// moves it to a control, so that no button has the focus unseen.
#pragma once

#include <QPixmap>
#include <QPointer>
#include <QPoint>
#include <QSize>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/ports.h"
#include "engine/rgb.h"
#include "screens/kit/controls.h"
#include "screens/kit/units.h"
#include "text/messages.h"

namespace fendle {

class Module1;
class FormTimers;

// Where a window of `size` twips stands on a screen of `screen` twips,
// centred: left = screen width / 2 - width / 2, top likewise. Negative when
// the window is larger than the screen.
QPoint centredTwips(QSizeF screen, QSizeF size);

class Form : public QWidget {
    Q_OBJECT
public:
    Form(Module1& module, std::string name);
    ~Form() override;

    const std::string& name() const { return name_; }
    Module1& module() const { return module_; }

    // The load step, run by the registry at the first touch of the screen.
    virtual void Form_Load() {}
    // A close asked for by the window manager (the title bar's button). The
    // window does not close by itself; by default the screen is unloaded.
    // Screens close each other through the registry, not with close().
    virtual void closeRequested();

    // Controls.
    kit::Controls& controls() { return controls_; }
    void build(std::span<const kit::Row> rows) { controls_.build(rows); }
    kit::Control* control(std::string_view name, int index = -1) const { return controls_.find(name, index); }
    template <class W>
    W* get(std::string_view name, int index = -1) const {
        return controls_.get<W>(name, index);
    }
    void onClick(std::string_view name, kit::Controls::Handler h) { controls_.onClick(name, std::move(h)); }
    void onChange(std::string_view name, kit::Controls::Handler h) { controls_.onChange(name, std::move(h)); }

    // Size and place in twips. The client area has a fixed size; the window's
    // place is that of its outer frame, as the screen's arithmetic wants.
    void setClientSizeTwips(double width, double height);
    QSizeF clientSizeTwips() const;
    QSizeF outerSizeTwips() const;
    double leftTwips() const;
    double topTwips() const;
    void moveTwips(double left, double top);
    // Size of the screen the window stands on, in twips.
    QSizeF screenSizeTwips() const;
    // Centres the window on its screen at its present size.
    void centre();

    // The name a screen reader announces for the window, in the current
    // language ("Fendle! \u2013 Set up the game"); the visible caption stays
    // as the screen was designed. A reader that asks later hears it in the
    // language chosen by then.
    void setWindowName(const Message& m, std::string_view arg = {});
    // That name in the current language; empty when the screen has none.
    QString windowName() const;
    // Brings accessibleName() and the window's title up to the current
    // language (textshow does).
    void refreshWindowName();

    // Back colour and a picture drawn at the top left of the client area.
    void setBackColor(Rgb colour);
    Rgb backColor() const { return back_; }
    void setPicture(std::string_view file);
    const QPixmap& picture() const { return picture_; }

    // The form's eleven timers. Started after unload, they do nothing.
    TimerBank& timers();
    bool isUnloaded() const { return unloaded_; }

protected:
    void closeEvent(QCloseEvent* e) override;
    void paintEvent(QPaintEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void hideEvent(QHideEvent* e) override;

private:
    friend class ScreenRegistry;
    void stopForUnload();

    Module1& module_;
    std::string name_;
    kit::Controls controls_;
    std::unique_ptr<FormTimers> timers_;
    Rgb back_{};
    QPixmap picture_;
    std::optional<Message> windowName_;
    std::string windowArg_;
    bool unloaded_ = false;
    QPointer<QWidget> behind_;   // the window that was active when this one showed
    bool centred_ = false;   // centred and not moved since: centre again once the frame is known
};

}  // namespace fendle
