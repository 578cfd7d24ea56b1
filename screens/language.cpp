#include "screens/language.h"

#include "screens/module1.h"
#include "text/text_tables.h"

namespace fendle {

void applyLayoutByLanguage(Form& form, binding::Screen screen) {
    for (const binding::LayoutChange& change : binding::layoutByLanguage(screen, form.module().state.languagenumber)) {
        kit::Control* c = form.control(change.control, change.index);
        if (!c) continue;
        switch (change.property) {
        case binding::Property::Left: c->setLeftTwips(change.value); break;
        case binding::Property::Top: c->setTopTwips(change.value); break;
        case binding::Property::Width: c->setWidthTwips(change.value); break;
        case binding::Property::Height: c->setHeightTwips(change.value); break;
        case binding::Property::FontSize: c->setFontSize(change.value); break;
        case binding::Property::Visible: c->setVisible(change.value != 0); break;
        }
    }
}

void textshow(Form& form, binding::Screen screen, int ruleSet) {
    form.refreshWindowName();
    const Module1& m = form.module();
    if (!m.tables) return;
    for (const binding::Caption& cap : binding::textshow(screen, m.state.languagenumber, *m.tables, m.state.texts, ruleSet))
        if (kit::Control* c = form.control(cap.control, cap.index)) c->setCaption(std::string_view(cap.caption));
}

}  // namespace fendle
