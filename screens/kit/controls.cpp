#include "screens/kit/controls.h"

#include <QButtonGroup>
#include <QRadioButton>

#include "screens/kit/native.h"
#include "screens/kit/painted.h"

namespace fendle::kit {

bool isWindowed(Kind k) {
    switch (k) {
    case Kind::Label:
    case Kind::Button:
    case Kind::Image:
    case Kind::Line:
        return false;
    default:
        return true;
    }
}

Controls::~Controls() {
    // Nothing reaches the handlers once the form goes; the widgets go with
    // their controls, the containers' last.
    for (auto& c : owned_) c->owner_ = nullptr;
    while (!owned_.empty()) owned_.pop_back();
}

Control* Controls::make(const Row& row, int index, QWidget* container) {
    std::unique_ptr<Control> made;
    switch (row.kind) {
    case Kind::Label:
        made = std::make_unique<Label>(row, index, this, container);
        break;
    case Kind::Button:
        made = std::make_unique<Button>(row, index, this, container);
        break;
    case Kind::CheckBox:
        made = std::make_unique<CheckBox>(row, index, this, container);
        break;
    case Kind::Option: {
        auto o = std::make_unique<OptionButton>(row, index, this, container);
        groupFor(row.name, container)->addButton(o->option());
        // In its group, the option ignores the other options of its
        // container; auto-exclusive, a screen reader hears it as a radio
        // button rather than a check box.
        o->option()->setAutoExclusive(true);
        made = std::move(o);
        break;
    }
    case Kind::TextBox:
        made = std::make_unique<TextBox>(row, index, this, container);
        break;
    case Kind::Image:
        made = std::make_unique<Image>(row, index, this, container);
        break;
    case Kind::PictureBox:
        made = std::make_unique<PictureBox>(row, index, this, container);
        break;
    case Kind::Frame:
        made = std::make_unique<Frame>(row, index, this, container);
        break;
    case Kind::Line:
        made = std::make_unique<Line>(row, index, this, container);
        break;
    case Kind::PushButton:
        made = std::make_unique<PushButton>(row, index, this, container);
        break;
    case Kind::HScrollBar:
        made = std::make_unique<HScrollBar>(row, index, this, container);
        break;
    }
    Control* c = made.get();
    owned_.push_back(std::move(made));
    auto& slot = byName_[std::string(row.name)][index];
    if (!slot) ++count_;
    slot = c;
    return c;
}

QButtonGroup* Controls::groupFor(const std::string& name, QWidget* container) {
    QButtonGroup*& g = groups_[{name, container}];
    if (!g) {
        g = new QButtonGroup(form_);
        g->setExclusive(true);
    }
    return g;
}

void Controls::build(std::span<const Row> rows, QWidget* container) {
    if (!container) container = form_;
    std::vector<QWidget*> windowed;
    for (const Row& row : rows) {
        Control* c = make(row, row.index, container);
        if (isWindowed(row.kind)) windowed.push_back(c->widget());
        if (!row.children.empty()) build(row.children, c->widget());
    }
    for (QWidget* w : windowed) w->raise();
}

Control* Controls::find(std::string_view name, int index) const {
    const auto it = byName_.find(name);
    if (it == byName_.end()) return nullptr;
    const auto el = it->second.find(index);
    return el == it->second.end() ? nullptr : el->second;
}

std::vector<Control*> Controls::array(std::string_view name) const {
    std::vector<Control*> out;
    const auto it = byName_.find(name);
    if (it == byName_.end()) return out;
    for (const auto& [index, c] : it->second) out.push_back(c);
    return out;
}

Control* Controls::loadElement(std::string_view name, int index) {
    if (Control* there = find(name, index)) return there;
    Control* first = find(name, 0);
    if (!first) return nullptr;
    QWidget* container = first->widget()->parentWidget();
    Row row = first->row();
    row.visible = false;
    row.enabled = first->enabled();
    row.size = first->fontSize();
    row.left = first->leftTwips();
    row.top = first->topTwips();
    row.width = first->widthTwips();
    row.height = first->heightTwips();
    row.fore = first->foreColor();
    row.back = first->backColor();
    Control* c = make(row, index, container);
    c->setCaption(first->caption());
    if (auto* img = dynamic_cast<Image*>(first); img && img->hasPicture()) static_cast<Image*>(c)->setPicture(img->picture());
    if (!isWindowed(row.kind)) {
        // Light controls stay under the windowed ones of their container.
        for (QObject* o : container->children()) {
            auto* w = qobject_cast<QWidget*>(o);
            const Control* k = Control::of(w);
            if (w && k && w != c->widget() && isWindowed(k->kind())) {
                c->widget()->stackUnder(w);
                break;
            }
        }
    }
    return c;
}

void Controls::onClick(std::string_view name, Handler handler) { clicks_[std::string(name)] = std::move(handler); }

void Controls::onChange(std::string_view name, Handler handler) { changes_[std::string(name)] = std::move(handler); }

void Controls::dispatch(const std::map<std::string, Handler, std::less<>>& handlers, const Control& c) const {
    const auto it = handlers.find(c.name());
    if (it == handlers.end() || !it->second) return;
    const Handler h = it->second;   // the handler may replace itself
    h(c.index());
}

}  // namespace fendle::kit
