#pragma once

#include <QWidget>

namespace orv {

/// A heading, which is a label of the tone "section", and what stands below it. It is there as long
/// as any of that is.
class Section final : public QWidget {
    Q_OBJECT

 public:
    explicit Section(QWidget* parent = nullptr) : QWidget(parent) {}

 protected:
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    [[nodiscard]] bool hasContent() const;
};

}  // namespace orv
