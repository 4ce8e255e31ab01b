#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "widgets/LinkedText.h"

namespace orv {

// What a controller shows, as plain values: the window layer binds a widget to each. Setting a
// value is at once and cheap; what is equal to what stands there tells nobody. Main thread only.

/// What every element has.
class View {
 public:
    View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    [[nodiscard]] bool isHidden() const { return hidden_; }
    void setHidden(bool hidden) { assign(hidden_, hidden); }
    [[nodiscard]] bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled) { assign(enabled_, enabled); }
    [[nodiscard]] const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string text) { assign(toolTip_, std::move(text)); }

    /// Called after every change, until it is replaced by another or by nothing. It must not
    /// change the element.
    void observe(std::function<void()> changed) { changed_ = std::move(changed); }

 protected:
    virtual ~View() = default;

    template <class T>
    void assign(T& field, std::type_identity_t<T> value) {
        if (field == value) return;
        field = std::move(value);
        changed();
    }
    void changed() const {
        if (changed_) changed_();
    }

 private:
    bool hidden_ = false;
    bool enabled_ = true;
    std::string toolTip_;
    std::function<void()> changed_;
};

/// A line of text, perhaps with links; also one that the person edits.
class TextField final : public View {
 public:
    [[nodiscard]] const std::string& stringValue() const { return text_.text; }
    [[nodiscard]] const LinkedText& text() const { return text_; }
    /// Without links.
    void setStringValue(std::string text) { assign(text_, LinkedText{std::move(text)}); }
    void setText(LinkedText text) { assign(text_, std::move(text)); }

    /// As the person does, with every key.
    void enterText(std::string text) {
        setStringValue(std::move(text));
        if (textDidChange_) textDidChange_();
    }
    void setTextDidChange(std::function<void()> action) { textDidChange_ = std::move(action); }

    /// The person should see all of it selected, to type it anew.
    void selectText() {
        ++selections_;
        changed();
    }
    [[nodiscard]] std::size_t selections() const { return selections_; }

 private:
    LinkedText text_;
    std::size_t selections_ = 0;
    std::function<void()> textDidChange_;
};

// Make a part of the field's text, in bytes, a link. What lies outside the text is left out.

void MakeHyperLink(TextField& field, std::size_t start, std::size_t length, std::string url);
void MakeHyperLinkWithColor(TextField& field, std::size_t start, std::size_t length,
                            std::string url, std::string color);

class ImageView final : public View {
 public:
    /// Empty for none.
    [[nodiscard]] const std::string& imageName() const { return name_; }
    void setImageName(std::string name) { assign(name_, std::move(name)); }
    /// What the image says, for those who do not see it.
    [[nodiscard]] const std::string& description() const { return description_; }
    void setDescription(std::string text) { assign(description_, std::move(text)); }

 private:
    std::string name_;
    std::string description_;
};

class Button : public View {
 public:
    using Action = std::function<void()>;

    /// Without a mnemonic; the window layer gives it one.
    [[nodiscard]] const std::string& title() const { return title_; }
    void setTitle(std::string title) { assign(title_, std::move(title)); }
    void setAction(Action action) { action_ = std::move(action); }

    /// As a click does: nothing while it is hidden or disabled.
    void performClick() {
        if (isHidden() || !isEnabled()) return;
        clicked();
        const Action action = action_;  // which may set another
        if (action) action();
    }

 protected:
    virtual void clicked() {}

 private:
    std::string title_;
    Action action_;
};

/// Also a radio button, whose group the controller keeps.
class CheckBox final : public Button {
 public:
    [[nodiscard]] bool isOn() const { return on_; }
    /// Performs no action.
    void setOn(bool on) { assign(on_, on); }

 private:
    void clicked() override { setOn(!on_); }

    bool on_ = false;
};

class PopUpButton final : public View {
 public:
    [[nodiscard]] const std::vector<std::string>& titles() const { return titles_; }
    /// Selects the first, and performs no action.
    void setTitles(std::vector<std::string> titles) {
        if (selected_ == 0 && titles_ == titles) return;
        selected_ = 0;
        titles_ = std::move(titles);
        changed();
    }
    /// 0 also when there is none.
    [[nodiscard]] std::size_t indexOfSelectedItem() const { return selected_; }
    /// Performs no action; nothing for an index beyond the last.
    void selectItemAtIndex(std::size_t index) {
        if (index < titles_.size()) assign(selected_, index);
    }
    void setAction(std::function<void()> action) { action_ = std::move(action); }
    /// As the person does.
    void choose(std::size_t index) {
        selectItemAtIndex(index);
        if (action_) action_();
    }

 private:
    std::vector<std::string> titles_;
    std::size_t selected_ = 0;
    std::function<void()> action_;
};

class ProgressIndicator final : public View {
 public:
    [[nodiscard]] bool isAnimating() const { return animating_; }
    void startAnimation() { assign(animating_, true); }
    void stopAnimation() { assign(animating_, false); }

 private:
    bool animating_ = false;
};

/// A window that a controller opens and closes.
class DialogWindow final : public View {
 public:
    [[nodiscard]] bool isOpen() const { return open_; }
    void orderFront() {
        ++raises_;
        assign(open_, true);
        changed();
    }
    void close() { assign(open_, false); }
    /// How often it was brought to the front.
    [[nodiscard]] std::size_t raises() const { return raises_; }

    /// Refuses what was entered: it moves left and right for a moment.
    void shakeWindow() {
        ++shakes_;
        changed();
    }
    [[nodiscard]] std::size_t shakes() const { return shakes_; }

    /// What happens when the person closes it.
    void setCloseAction(std::function<void()> action) { closeAction_ = std::move(action); }
    void performClose() const {
        const auto action = closeAction_;
        if (action) action();
    }

 private:
    bool open_ = false;
    std::size_t raises_ = 0;
    std::size_t shakes_ = 0;
    std::function<void()> closeAction_;
};

}  // namespace orv
