// Form: the base of every screen, a fixed-size top-level window built from
// tables of controls. A window holds the keyboard focus itself until Tab
// moves it to a control, so that no button has the focus unseen. ScreenRegistry: the screens by name, with the classic
// lifetime: the first touch of a screen creates it and runs its load step;
// unloading stops its timers at once, hides it and destroys it once the
// running handler has returned; the next touch makes a fresh one.
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
#include "screens/formkit.h"
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
    // Brings accessibleName() up to the current language (textshow does).
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
    bool centred_ = false;   // centred and not moved since: centre again once the frame is known
};

class ScreenRegistry final : public Screens {
public:
    using Maker = std::function<std::unique_ptr<Form>(Module1&)>;

    explicit ScreenRegistry(Module1& module) : module_(module) {}
    ~ScreenRegistry() override;
    ScreenRegistry(const ScreenRegistry&) = delete;
    ScreenRegistry& operator=(const ScreenRegistry&) = delete;

    // Tells the registry how to make the screen `name`.
    void define(std::string name, Maker make);
    template <class F>
    void define(std::string name) {
        define(std::move(name), [](Module1& m) { return std::make_unique<F>(m); });
    }
    bool isDefined(std::string_view name) const;
    // Every screen the registry can make, by name.
    std::vector<std::string> names() const;

    // The screen, loaded at its first touch (null for a name never defined).
    // A load step that throws stops where it is; the screen stays loaded as
    // far as it came.
    Form* form(std::string_view name);
    template <class F>
    F* get(std::string_view name) {
        return dynamic_cast<F*>(form(name));
    }
    bool isLoaded(std::string_view name) const;

    // Screens port: show touches the screen and brings it to the front;
    // unload does nothing for a screen that is not loaded.
    void show(std::string_view name) override;
    void unload(std::string_view name) override;
    void hide(std::string_view name);
    // Unloads every screen, as unload() does.
    void unloadAll();

    // What the board's Exit and end of game ask for; the screens that do it
    // set these.
    std::function<void()> onSavegame;
    std::function<void()> onCheckhighscore;
    void savegame() override {
        if (onSavegame) onSavegame();
    }
    void checkhighscore() override {
        if (onCheckhighscore) onCheckhighscore();
    }

    // Times a screen has been loaded since the program started.
    int loads(std::string_view name) const;

private:
    Module1& module_;
    std::map<std::string, Maker, std::less<>> makers_;
    std::map<std::string, Form*, std::less<>> loaded_;
    std::map<std::string, int, std::less<>> loads_;
    std::vector<QPointer<Form>> dying_;   // unloaded, waiting for the event loop
};

}  // namespace fendle
