// languages, the language screen: the seven languages of the game as one
// column of options. A click on an option turns the screen into that
// language at once; OK keeps the choice in numlang.txt and goes back to the
// title screen, which then loads in the new language.
#pragma once

#include <span>

#include "screens/kit/form.h"
#include "text/text_tables.h"

namespace fendle {

class Languages final : public Form {
    Q_OBJECT
public:
    static constexpr const char* formName = "languages";
    static constexpr double clientWidth = 5460, clientHeight = 6810;
    static constexpr int options = namedLanguages;   // Option1(0) to (13); 7 to 13 stay hidden
    static constexpr int shownOptions = textedLanguages;

    explicit Languages(Module1& module);
    void Form_Load() override;
    // The title bar's close button keeps the choice, as OK does.
    void closeRequested() override { Command1_Click(); }

    void Option1_Click(int Index);
    void Command1_Click();   // OK

    static std::span<const kit::Row> rows();

    // The names of the languages as read from languages.csv.
    const LanguageTable& languagetable() const { return languagetable_; }

protected:
    // Enter anywhere on the screen is OK; the arrow keys move the choice
    // up and down the column, round from the last to the first.
    void keyPressEvent(QKeyEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void showNames();
    void moveChoice(int step);

    LanguageTable languagetable_{};
};

// readlanguagefile for the screens that read numlang.txt: the file's
// language, unless a choice made on the language screen during this run could
// not be written there, which then stands until the program ends. Without
// the file (the first start), the language the desktop's locale asks for.
void readlanguagefile(Module1& module);

// The language of this process's locale (localeLanguage), 0 to 6.
int desktopLanguage();

}  // namespace fendle
