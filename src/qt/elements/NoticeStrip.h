#pragma once

#include <QFrame>

class QLabel;

namespace orv {

class Icons;
class ImageLabel;

/// A line across the window that says what is wrong, with a button to put it away.
class NoticeStrip final : public QFrame {
    Q_OBJECT

 public:
    explicit NoticeStrip(QWidget* parent = nullptr);

    [[nodiscard]] QLabel& label() const { return *label_; }
    void setIcons(const Icons& icons);

 Q_SIGNALS:
    void dismissed();

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    ImageLabel* image_;
    QLabel* label_;
};

}  // namespace orv
