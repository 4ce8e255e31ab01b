#pragma once

#include <QLabel>

namespace orv {

/// A label whose tone says what its text is for, and that cuts a line that does not fit; the whole
/// is then its tool tip.
class TextLabel final : public QLabel {
    Q_OBJECT
    /// "muted", "strong", "section", "headline" or "refused".
    Q_PROPERTY(QString tone READ tone WRITE setTone)
    /// Where a line is cut: "end", "middle", or empty for never.
    Q_PROPERTY(QString cut READ cut WRITE setCut)

 public:
    explicit TextLabel(QWidget* parent = nullptr) : QLabel(parent) {}

    [[nodiscard]] const QString& tone() const { return tone_; }
    void setTone(const QString& tone);
    [[nodiscard]] const QString& cut() const { return cut_; }
    void setCut(const QString& cut) { cut_ = cut; }

    [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    /// Tab goes to the first link at once.
    void focusInEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

 private:
    [[nodiscard]] bool mayBeCut() const;
    /// As it fits.
    [[nodiscard]] QString shownText() const;

    QString tone_;
    QString cut_;
};

}  // namespace orv
