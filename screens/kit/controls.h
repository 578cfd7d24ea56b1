// The builder of a form's controls: makes them from a screen's rows, finds
// them again by name and index, so that `Label3`(2) in the code is
// `get<kit::Button>("Label3", 2)`, and hands their clicks and changes to the
// handlers of the form. It owns the controls, and each control its widget.
//
//   controls.build(rows);
//   controls.onClick("Label6", [this](int) { Label6_Click(); });
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screens/kit/control.h"

class QButtonGroup;
class QWidget;

namespace fendle::kit {

class Controls {
public:
    using Handler = std::function<void(int index)>;

    explicit Controls(QWidget* form) : form_(form) {}
    ~Controls();
    Controls(const Controls&) = delete;
    Controls& operator=(const Controls&) = delete;

    // Builds the controls of `rows` in `container` (the form when null).
    void build(std::span<const Row> rows, QWidget* container = nullptr);

    // A control by name and index (-1 for a lone control); null if none.
    Control* find(std::string_view name, int index = -1) const;
    template <class C>
    C* get(std::string_view name, int index = -1) const {
        return dynamic_cast<C*>(find(name, index));
    }
    // The loaded elements of an array, by ascending index.
    std::vector<Control*> array(std::string_view name) const;
    std::size_t size() const { return count_; }

    // Creates element `index` of an array as a copy of element 0's row, in
    // element 0's container, hidden, as the classic Load statement did.
    // Returns the element that is already there if it exists, null when the
    // array has no element 0.
    Control* loadElement(std::string_view name, int index);

    // Handler of a click on any element of `name` (for a check box: a change
    // of its value; for an option: its selection). The index is -1 for a
    // lone control. One handler per name; a new one replaces the old.
    void onClick(std::string_view name, Handler handler);
    // Handler of a change of a text box's text or a scroll bar's value.
    void onChange(std::string_view name, Handler handler);

private:
    friend class Control;
    Control* make(const Row& row, int index, QWidget* container);
    void dispatch(const std::map<std::string, Handler, std::less<>>& handlers, const Control& c) const;
    QButtonGroup* groupFor(const std::string& name, QWidget* container);

    QWidget* form_;
    std::vector<std::unique_ptr<Control>> owned_;
    std::map<std::string, std::map<int, Control*>, std::less<>> byName_;
    std::map<std::string, Handler, std::less<>> clicks_;
    std::map<std::string, Handler, std::less<>> changes_;
    std::map<std::pair<std::string, QWidget*>, QButtonGroup*> groups_;
    std::size_t count_ = 0;
};

}  // namespace fendle::kit
