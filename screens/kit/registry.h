// The screens by name, with the classic lifetime: the first touch of a
// screen creates it and runs its load step; unloading stops its timers at
// once, hides it and destroys it once the running handler has returned; the
// next touch makes a fresh one.
#pragma once

#include <QPointer>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/ports.h"
#include "screens/kit/form.h"

namespace fendle {

class Module1;

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
