#pragma once

#include <QIcon>
#include <QLabel>

namespace orv {

/// Shows an icon as large as its minimum size, sharp on every screen.
class ImageLabel final : public QLabel {
    Q_OBJECT
    /// The icon's name; the window gives the icon.
    Q_PROPERTY(QString imageName READ imageName WRITE setImageName)

 public:
    explicit ImageLabel(QWidget* parent = nullptr) : QLabel(parent) {}

    [[nodiscard]] const QString& imageName() const { return name_; }
    void setImageName(const QString& name) { name_ = name; }
    void setImage(const QString& name, const QIcon& icon);

 protected:
    bool event(QEvent* event) override;

 private:
    void render();

    QString name_;
    QIcon icon_;
};

}  // namespace orv
