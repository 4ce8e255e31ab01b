// The least that a program with a window does until it is painted, to compare start-up times.

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace {

class BareWindow final : public QWidget {
 protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    }
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    BareWindow window;
    window.resize(860, 620);
    window.show();
    return QApplication::exec();
}
