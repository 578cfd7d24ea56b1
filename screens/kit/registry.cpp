#include "screens/kit/registry.h"

#include <QtGlobal>

#include <exception>

#include "screens/module1.h"

namespace fendle {

ScreenRegistry::~ScreenRegistry() {
    // The program is ending: nothing of ours runs any more, so the screens go now.
    auto all = std::move(loaded_);
    loaded_.clear();
    for (auto& [name, f] : all) {
        f->stopForUnload();
        delete f;
    }
    for (const QPointer<Form>& f : dying_) delete f.data();
}

void ScreenRegistry::define(std::string name, Maker make) { makers_[std::move(name)] = std::move(make); }

bool ScreenRegistry::isDefined(std::string_view name) const { return makers_.find(name) != makers_.end(); }

std::vector<std::string> ScreenRegistry::names() const {
    std::vector<std::string> all;
    for (const auto& [name, make] : makers_) all.push_back(name);
    return all;
}

Form* ScreenRegistry::form(std::string_view name) {
    if (const auto it = loaded_.find(name); it != loaded_.end()) return it->second;
    const auto maker = makers_.find(name);
    if (maker == makers_.end()) return nullptr;
    std::unique_ptr<Form> made = maker->second(module_);
    if (!made) return nullptr;
    Form* f = made.release();
    // Registered before its load step, so that the step may touch its own form.
    loaded_.emplace(std::string(name), f);
    ++loads_[std::string(name)];
    // A load that fails leaves the screen as far as it came, which shows
    // what it can; the log says what stopped it.
    try {
        f->Form_Load();
    } catch (const std::exception& e) {
        qWarning("Fendle!: the screen %s stopped loading: %s", f->name().c_str(), e.what());
    } catch (...) {
        qWarning("Fendle!: the screen %s stopped loading", f->name().c_str());
    }
    return f;
}

bool ScreenRegistry::isLoaded(std::string_view name) const { return loaded_.find(name) != loaded_.end(); }

int ScreenRegistry::loads(std::string_view name) const {
    const auto it = loads_.find(name);
    return it == loads_.end() ? 0 : it->second;
}

void ScreenRegistry::show(std::string_view name) {
    Form* f = form(name);
    if (!f || f->isUnloaded()) return;
    f->show();
    f->raise();
    f->activateWindow();
}

void ScreenRegistry::hide(std::string_view name) {
    if (const auto it = loaded_.find(name); it != loaded_.end()) it->second->hide();
}

void ScreenRegistry::unload(std::string_view name) {
    const auto it = loaded_.find(name);
    if (it == loaded_.end()) return;
    Form* f = it->second;
    loaded_.erase(it);
    f->stopForUnload();
    f->hide();
    f->deleteLater();   // the handler running now may belong to this form
    std::erase_if(dying_, [](const QPointer<Form>& p) { return p.isNull(); });
    dying_.emplace_back(f);
}

void ScreenRegistry::unloadAll() {
    while (!loaded_.empty()) unload(loaded_.begin()->first);
}

}  // namespace fendle
