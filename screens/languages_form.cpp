#include "screens/languages_form.h"

#include <QKeyEvent>

#include <algorithm>
#include <cstdlib>

#include "screens/game_screens.h"
#include "screens/kit/native.h"
#include "screens/module1.h"
#include "screens/titlefrm.h"
#include "text/file_io.h"

namespace fendle {

namespace {

using kit::Align;
using kit::Face;
using kit::Kind;
using kit::Row;

constexpr double optionWidth = 2295;

// Option1(i) offers language number i. The first seven stand in one column,
// which the load step centres; the seven languages without texts stand
// hidden beside them. The design's captions are only placeholders (1 to 5
// in alphabetical order): the load step names each option from the table.
constexpr Row option(int index, double left, const char* caption) {
    const bool shown = index < Languages::shownOptions;
    return Row{.name = "Option1", .index = index, .kind = Kind::Option, .left = left,
               .top = 1800 + 480.0 * (shown ? index : index - Languages::shownOptions), .width = optionWidth,
               .height = 375, .caption = caption, .size = 12, .bold = true, .fore = colour::yellow,
               .back = setupBlue, .visible = shown, .value = index == 0 ? 1 : 0};
}

constexpr Row languagesRows[] = {
    {.name = "Label4", .left = 120, .top = 0, .width = 5355, .height = 1215, .caption = "FENDLE!", .font = Face::Tahoma,
     .size = 48, .bold = true, .fore = colour::red, .transparent = true, .align = Align::Centre},
    {.name = "Label7", .left = 4920, .top = 240, .width = 255, .height = 165, .caption = "TM", .font = Face::Tahoma,
     .size = 6.75, .bold = true, .fore = colour::black, .transparent = true, .outline = true, .wordWrap = false},
    option(0, 240, "English"),
    option(1, 240, "Dutch"),
    option(2, 240, "French"),
    option(3, 240, "German"),
    option(4, 240, "Italian"),
    option(5, 240, "Spanish"),
    option(6, 240, "Welsh"),
    option(7, 2880, "Danish"),
    option(8, 2880, "Finnish"),
    option(9, 2880, "Hungarian"),
    option(10, 2880, "Norwegian"),
    option(11, 2880, "Swedish"),
    option(12, 2880, "Polish"),
    option(13, 2880, "Portuguese"),
    {.name = "Command1", .kind = Kind::PushButton, .left = 2040, .top = 5520, .width = 1335, .height = 375,
     .caption = "OK", .size = 12, .bold = true},
    {.name = "Label5", .left = 1020, .top = 6120, .width = 3375, .height = 495, .caption = notice,
     .fore = colour::yellow, .transparent = true, .align = Align::Centre},
};

}  // namespace

std::span<const kit::Row> Languages::rows() { return languagesRows; }

int desktopLanguage() {
    return localeLanguage([](const char* name) {
        const char* value = std::getenv(name);
        return std::string(value ? value : "");
    });
}

void readlanguagefile(Module1& module) {
    ModuleState& s = module.state;
    const std::optional<std::string> saved = readFileBytes(gamePath(numlangFile));
    readlanguagefile(saved, s.languagenumber, s.languagename);
    std::optional<i16> chosen = module.unsavedLanguage;
    if (!saved && !chosen) chosen = i16(desktopLanguage());
    if (chosen) {
        s.languagenumber = *chosen;
        s.languagename = languageName(s.languagenumber).value_or("English");
    }
}

Languages::Languages(Module1& module) : Form(module, formName) {
    setClientSizeTwips(clientWidth, clientHeight);
    setBackColor(setupBlue);
    build(languagesRows);
    onClick("Option1", [this](int i) { Option1_Click(i); });
    onClick("Command1", [this](int) { Command1_Click(); });
    for (kit::Control* c : controls().array("Option1")) c->widget()->installEventFilter(this);
}

void Languages::Form_Load() {
    Module1& m = module();
    ModuleState& s = m.state;
    centre();
    setWindowName(msg::windowLanguages);
    // Without tables (nothing read yet) the design's English stays.
    if (m.tables) {
        control("Command1")->setCaption(std::string_view(s.texts.oktext));
        control("Label5")->setCaption(std::string_view(s.texts.noticetext));
    }
    // Selecting another option than the design's counts as a click on it,
    // before the names are read: its names are blank until they are.
    if (auto* chosen = get<kit::OptionButton>("Option1", s.languagenumber)) {
        chosen->setValue(true);
        chosen->widget()->setFocus();
    }
    if (!readlanguagenames(readFileBytes(gamePath(languagesCsvFile)), languagetable_)) {
        // The screen opens as far as it came, at the page size; OK still works.
        m.fitform(*this);
        return;
    }
    showNames();
    // One column, centred on the window by the options' design width.
    const double left = (clientSizeTwips().width() - optionWidth) / 2;
    for (int i = 0; i < shownOptions; ++i) control("Option1", i)->setLeftTwips(left);
}

void Languages::showNames() {
    const int language = std::clamp<int>(module().state.languagenumber, 0, tableLanguages - 1);
    const auto& names = languagetable_[static_cast<std::size_t>(language)];
    for (int j = 0; j < options; ++j)
        control("Option1", j)->setCaption(std::string_view(names[static_cast<std::size_t>(j)]));
}

void Languages::Option1_Click(int Index) {
    Module1& m = module();
    ModuleState& s = m.state;
    s.languagenumber = static_cast<i16>(Index);
    showNames();
    if (m.tables) {
        settexts(*m.tables, s.languagenumber, s.texts);
        control("Label5")->setCaption(std::string_view(s.texts.noticetext));
        control("Command1")->setCaption(std::string_view(s.texts.oktext));
    }
    setWindowName(msg::windowLanguages);
}

void Languages::Command1_Click() {
    Module1& m = module();
    ModuleState& s = m.state;
    for (int i = 0; i < options; ++i) {
        auto* o = get<kit::OptionButton>("Option1", i);
        if (!o || !o->value()) continue;
        s.languagenumber = static_cast<i16>(i);
        if (writeNumlang(gamePath(numlangFile), i)) {
            m.unsavedLanguage.reset();
        } else {
            // The choice holds until the program ends, whatever the file says.
            m.unsavedLanguage = s.languagenumber;
            tellUser(m.message(msg::languageNotSaved));
        }
    }
    if (const auto name = languageName(s.languagenumber)) s.languagename = *name;
    if (m.tables) settexts(*m.tables, s.languagenumber, s.texts);
    m.screens.show(Titlefrm::formName);
    m.screens.unload(formName);
}

void Languages::moveChoice(int step) {
    int i = 0;
    while (i < shownOptions && !get<kit::OptionButton>("Option1", i)->value()) ++i;
    // A hidden option chosen: the column starts again from its top.
    const int next = i < shownOptions ? (i + step + shownOptions) % shownOptions : 0;
    auto* o = get<kit::OptionButton>("Option1", next);
    o->widget()->setFocus(Qt::OtherFocusReason);
    o->setValue(true);
}

bool Languages::eventFilter(QObject* watched, QEvent* e) {
    if (e->type() == QEvent::KeyPress) {
        const auto* k = static_cast<QKeyEvent*>(e);
        if (k->modifiers() == Qt::NoModifier || k->modifiers() == Qt::KeypadModifier) {
            switch (k->key()) {
            case Qt::Key_Up:
            case Qt::Key_Left: moveChoice(-1); return true;
            case Qt::Key_Down:
            case Qt::Key_Right: moveChoice(+1); return true;
            default: break;
            }
        }
    }
    return Form::eventFilter(watched, e);
}

void Languages::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
        e->accept();
        Command1_Click();
        return;
    }
    Form::keyPressEvent(e);
}

}  // namespace fendle
